// cxf-delta on the samples; expected: float literals averaged in double, CMC 2:1 by hand.
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <tuple>
#include <vector>

#include <sys/stat.h>

namespace {

const std::string kSamples = CXF_SOURCE_DIR "/data/samples/";
const std::string kDefects = CXF_TEST_DATA_DIR "/cxf/";
const std::string a = kSamples + "sample-a.cxf", b = kSamples + "sample-b.cxf",
                  reds = kSamples + "brand-reds-project.cxf";

struct ToolRun {
    int status = -1;
    std::string out, err;
    QJsonObject json() const
    {
        return QJsonDocument::fromJson(QByteArray::fromStdString(out)).object();
    }
};

QJsonValue at(const QJsonObject &object, const char *path)
{
    QJsonValue value = object;
    for (const QString &key : QString::fromLatin1(path).split(QLatin1Char('.')))
        value = key.at(0).isDigit() ? value.toArray().at(key.toInt()) : value.toObject().value(key);
    return value;
}

// A settings directory of its own for each test, so the user's preferences play no part.
class CxfDelta : public testing::Test
{
protected:
    ToolRun run(const std::vector<std::string> &arguments)
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("HOME"), home.path());
        env.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
        QStringList list;
        for (const std::string &argument : arguments)
            list << QString::fromStdString(argument);
        QProcess tool;
        tool.setProcessEnvironment(env);
        tool.start(QStringLiteral(CXF_DELTA_PATH), list);
        if (!tool.waitForFinished(20000)) {
            ADD_FAILURE() << "cxf-delta did not finish";
            tool.kill();
            tool.waitForFinished();
        }
        return {tool.exitStatus() == QProcess::NormalExit ? tool.exitCode() : -1,
                tool.readAllStandardOutput().toStdString(),
                tool.readAllStandardError().toStdString()};
    }

    QTemporaryDir home;
};

TEST_F(CxfDelta, ReadsTheSamplesExactlyAndDecidesAsTheWindowDoes)
{
    const ToolRun r = run({a, reds, "--json"});
    EXPECT_EQ(r.status, 0) << r.err;
    const QJsonObject json = r.json();
    EXPECT_EQ(at(json, "samples.1.caption").toString(),
              QStringLiteral("Brand Reds –– project with 4 patches averaged"));
    EXPECT_EQ(at(json, "samples.1.patches").toInt(), 4);
    EXPECT_EQ(at(json, "samples.0.lab").toArray(),
              (QJsonArray{49.02000045776367, 43.20000076293945, 36.43000030517578}));
    EXPECT_EQ(at(json, "samples.1.lab").toArray(),
              (QJsonArray{48.99499988555908, 43.239999771118164, 36.68249988555908}));
    // ΔE 0.1499026144 is stored as the float 0.1499026119709015.
    const std::pair<const char *, float> stored[] = {{"delta_E", 0.1499026119709015f},
                                                     {"delta_L", -0.011607903055846691f},
                                                     {"delta_C", 0.07144775241613388f},
                                                     {"delta_H", 0.13126793503761292f},
                                                     {"delta_H_deg", 0.1663539707660675f}};
    for (const auto &[key, value] : stored)
        EXPECT_EQ(float(at(json, key).toDouble()), value) << key;
    EXPECT_EQ(at(json, "tolerance").toDouble(), 2.5); // the default: no settings stored
    EXPECT_EQ(at(json, "verdict").toString(), QStringLiteral("match"));
    EXPECT_EQ(at(json, "highlight").toArray(), QJsonArray{QStringLiteral("delta_H")});
    const ToolRun text = run({a, reds}), same = run({a, a});
    EXPECT_NE(text.out.find("  D50 L*a*b*      49.020, 43.200, 36.430  (1 patch)\n"),
              std::string::npos)
        << text.out;
    EXPECT_NE(same.out.find("verdict           identical (tolerance 2.5)\n"), std::string::npos);
}

TEST_F(CxfDelta, ExitStatusFollowsTheVerdictAndTheTolerance)
{
    QDir(home.path()).mkpath(QStringLiteral("config/cxf-compare"));
    std::ofstream(
        home.filePath(QStringLiteral("config/cxf-compare/cxf-compare.conf")).toStdString())
        << "[General]\ndelta_E_CMC_tolerance=0.1\n"; // below the 0.15 of a and reds
    // a and b: ΔE 6.101174 one way, 6.502436 the other.
    const struct {
        std::vector<std::string> arguments;
        int status;
        const char *verdict;
    } cases[] = {
        {{a, b, "--json"}, 1, "mismatch"},
        {{a, reds, "--json"}, 1, "mismatch"},
        {{a, a, "--tolerance", "0", "--json"}, 0, "neutral"},
        {{"--json", b, a, "--tolerance=6.5"}, 1, "mismatch"},
        {{a, b, "--json", "--tolerance=6.5"}, 0, "match"},
        // Equal to the stored float is a match; one float less is not.
        {{a, reds, "--tolerance=0.149902612", "--json"}, 0, "match"},
        {{a, reds, "--tolerance=0.149902597", "--json"}, 1, "mismatch"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.arguments));
        const ToolRun r = run(c.arguments);
        EXPECT_EQ(r.status, c.status) << r.err;
        EXPECT_EQ(at(r.json(), "verdict").toString(), QLatin1String(c.verdict));
    }
}

TEST_F(CxfDelta, RefusedDocumentsExitTwoAndUsageErrorsSixtyFour)
{
    // Files that cannot be read as UTF-8 text are refused as the window refuses them, without
    // being read when they are not regular files or too large (none of these may hang).
    const std::string fifo = home.filePath(QStringLiteral("fifo.cxf")).toStdString(),
                      big = home.filePath(QStringLiteral("big.cxf")).toStdString();
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    std::ofstream(big).close();
    std::filesystem::resize_file(big, (std::uintmax_t{64} << 20) + 1);
    const std::string invalid = "Invalid XML data";
    const std::tuple<std::string, std::string, std::string> refused[] = {
        {kSamples + "d65-measurement.cxf",
         "The Lab colors were not specified with D50 illuminant and 2° observer.", ""},
        {kDefects + "unbalanced-tags.cxf", invalid, ""},
        {kDefects + "no-color.cxf", "No 'Color' key in XML data", ""},
        {kDefects + "no-such-file.cxf", invalid, "No such file or directory"},
        {kDefects, invalid, "not a regular file"},
        {kDefects + "invalid-utf8.cxf", invalid, "not UTF-8"},
        {fifo, invalid, "not a regular file"},
        {"/dev/zero", invalid, "not a regular file"},
        {big, invalid, "larger than the limit of 67108864 bytes"},
    };
    for (const auto &[file, message, detail] : refused) {
        SCOPED_TRACE(file);
        const ToolRun r = run({a, file, "--json"});
        EXPECT_EQ(r.status, 2);
        EXPECT_EQ(r.err.rfind(file + ": ", 0), 0u) << r.err;
        EXPECT_NE(r.err.find(message), std::string::npos) << r.err;
        EXPECT_NE(r.err.find(detail), std::string::npos) << r.err;
        EXPECT_EQ(at(r.json(), "samples.1.message").toString(), QString::fromStdString(message));
        EXPECT_TRUE(at(r.json(), "delta_E").isNull());
    }
    const std::vector<std::vector<std::string>> usage = {{a},
                                                         {a, a, "--frobnicate"},
                                                         {a, a, "--tolerance=2.5x"},
                                                         {a, a, "--tolerance", "-0.5"},
                                                         {a, a, "--tolerance=inf"}};
    for (const auto &arguments : usage) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const ToolRun r = run(arguments);
        EXPECT_EQ(r.status, 64);
        EXPECT_NE(r.err.find("usage: cxf-delta A.cxf B.cxf [--tolerance T] [--json]"),
                  std::string::npos);
        EXPECT_EQ(r.out, "");
    }
    const ToolRun version = run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out.rfind("cxf-delta 0.", 0), 0u) << version.out;
}

} // namespace
