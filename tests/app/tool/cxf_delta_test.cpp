// cxf-delta as a user runs it: the built executable on the sample documents, with its own
// settings directory, checking exit statuses, the JSON object and the text report.
//
// The tool must decide exactly as the window does, so the expected differences, verdict and
// highlight are the comparison core's for the Lab values the JSON reports; the Lab values
// themselves are checked against the documents' decimal literals rounded to float by the
// compiler and averaged here.
#include "comparison.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char **environ;

namespace {

namespace fs = std::filesystem;

const std::string kSamples = CXF_SOURCE_DIR "/data/samples/";
const std::string kDefects = CXF_TEST_DATA_DIR "/cxf/";

struct ToolRun {
    int status = -1;
    std::string out, err;
};

std::string slurp(const fs::path &path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// A settings directory of its own for each test, so the user's preferences play no part.
class CxfDelta : public testing::Test
{
protected:
    void SetUp() override
    {
        home_ = fs::temp_directory_path() /
                ("cxf-delta-test-" + std::to_string(::getpid()) + "-" +
                 testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(home_);
        fs::create_directories(home_ / "config");
    }
    void TearDown() override { fs::remove_all(home_); }

    void storeTolerance(const std::string &value)
    {
        fs::create_directories(home_ / "config" / "cxf-compare");
        std::ofstream(home_ / "config" / "cxf-compare" / "cxf-compare.conf")
            << "[General]\ndelta_E_CMC_tolerance=" << value << "\n";
    }

    ToolRun run(const std::vector<std::string> &arguments)
    {
        std::vector<std::string> environment;
        for (char **variable = environ; *variable; ++variable) {
            const std::string entry = *variable;
            if (!entry.starts_with("HOME=") && !entry.starts_with("XDG_CONFIG_HOME="))
                environment.push_back(entry);
        }
        environment.push_back("HOME=" + home_.string());
        environment.push_back("XDG_CONFIG_HOME=" + (home_ / "config").string());

        std::vector<std::string> argvStrings{CXF_DELTA_PATH};
        argvStrings.insert(argvStrings.end(), arguments.begin(), arguments.end());
        std::vector<char *> argv, envp;
        for (auto &s : argvStrings)
            argv.push_back(s.data());
        argv.push_back(nullptr);
        for (auto &s : environment)
            envp.push_back(s.data());
        envp.push_back(nullptr);

        const std::string out = (home_ / "stdout").string(), err = (home_ / "stderr").string();
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                         0600);
        posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                         0600);
        pid_t pid = 0;
        ToolRun result;
        if (posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), envp.data()) == 0) {
            int status = 0;
            waitpid(pid, &status, 0);
            result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
        }
        posix_spawn_file_actions_destroy(&actions);
        result.out = slurp(out);
        result.err = slurp(err);
        return result;
    }

    fs::path home_;
};

QJsonObject parsed(const std::string &json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(json), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << json;
    EXPECT_TRUE(document.isObject()) << json;
    return document.object();
}

std::string text(const QJsonValue &value)
{
    return value.toString().toStdString();
}

LabColor labOf(const QJsonValue &sample)
{
    const QJsonArray lab = sample.toObject().value(QStringLiteral("lab")).toArray();
    return {lab.at(0).toDouble(), lab.at(1).toDouble(), lab.at(2).toDouble(), 1.0};
}

float floatOf(const QJsonObject &object, const char *key)
{
    return static_cast<float>(object.value(QString::fromLatin1(key)).toDouble());
}

double f(float v)
{
    return static_cast<double>(v);
}

// The differences, verdict and highlight of the JSON are the window's for its two samples.
void expectWindowsDecision(const QJsonObject &json)
{
    const QJsonArray samples = json.value(QStringLiteral("samples")).toArray();
    const CmcDifferences d = computeCmcDifferences(labOf(samples.at(0)), labOf(samples.at(1)));
    EXPECT_EQ(floatOf(json, "delta_E"), d.delta_E);
    EXPECT_EQ(floatOf(json, "delta_L"), d.delta_L);
    EXPECT_EQ(floatOf(json, "delta_C"), d.delta_C);
    EXPECT_EQ(floatOf(json, "delta_H"), d.delta_H);
    EXPECT_EQ(floatOf(json, "delta_H_deg"), d.delta_H_deg);

    const char *names[] = {"neutral", "match", "mismatch"};
    const Verdict verdict = verdictFor(d.delta_E, floatOf(json, "tolerance"));
    EXPECT_EQ(text(json.value(QStringLiteral("verdict"))), names[static_cast<int>(verdict)]);

    const Highlight h = highlightFor(d);
    QJsonArray expected;
    if (h.lightness)
        expected.append(QStringLiteral("delta_L"));
    if (h.chroma)
        expected.append(QStringLiteral("delta_C"));
    if (h.hue)
        expected.append(QStringLiteral("delta_H"));
    EXPECT_EQ(json.value(QStringLiteral("highlight")).toArray(), expected);
}

TEST_F(CxfDelta, ProjectMatchingASinglePatch)
{
    const ToolRun r =
        run({kSamples + "sample-a.cxf", kSamples + "brand-reds-project.cxf", "--json"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.err, "");
    const QJsonObject json = parsed(r.out);
    EXPECT_EQ(floatOf(json, "tolerance"), 2.5f); // the default: no settings stored

    const QJsonArray samples = json.value(QStringLiteral("samples")).toArray();
    ASSERT_EQ(samples.size(), 2);
    const QJsonObject a = samples.at(0).toObject(), b = samples.at(1).toObject();
    EXPECT_EQ(text(a.value(QStringLiteral("file"))), kSamples + "sample-a.cxf");
    EXPECT_EQ(text(a.value(QStringLiteral("status"))), "ok");
    EXPECT_TRUE(a.value(QStringLiteral("message")).isNull());
    EXPECT_EQ(text(a.value(QStringLiteral("caption"))), "Sample A –– one patch");
    EXPECT_EQ(a.value(QStringLiteral("patches")).toInt(), 1);
    const LabColor labA = labOf(a);
    EXPECT_EQ(labA.L, f(49.02f));
    EXPECT_EQ(labA.a, f(43.20f));
    EXPECT_EQ(labA.b, f(36.43f));

    EXPECT_EQ(text(b.value(QStringLiteral("caption"))),
              "Brand Reds –– project with 4 patches averaged");
    EXPECT_EQ(b.value(QStringLiteral("patches")).toInt(), 4);
    const LabColor labB = labOf(b);
    EXPECT_EQ(labB.L, (f(49.82f) + f(48.08f) + f(49.41f) + f(48.67f)) / 4);
    EXPECT_EQ(labB.a, (f(43.85f) + f(43.44f) + f(42.79f) + f(42.88f)) / 4);
    EXPECT_EQ(labB.b, (f(38.08f) + f(34.85f) + f(38.13f) + f(35.67f)) / 4);

    EXPECT_EQ(text(json.value(QStringLiteral("verdict"))), "match");
    expectWindowsDecision(json);
}

TEST_F(CxfDelta, MismatchAndTheOrderOfTheDocuments)
{
    const ToolRun ab = run({kSamples + "sample-a.cxf", kSamples + "sample-b.cxf", "--json"});
    const ToolRun ba = run({"--json", kSamples + "sample-b.cxf", kSamples + "sample-a.cxf"});
    EXPECT_EQ(ab.status, 1);
    EXPECT_EQ(ba.status, 1);
    const QJsonObject jsonAB = parsed(ab.out), jsonBA = parsed(ba.out);
    EXPECT_EQ(text(jsonAB.value(QStringLiteral("verdict"))), "mismatch");
    expectWindowsDecision(jsonAB);
    expectWindowsDecision(jsonBA);
    // Document A is the reference: swapping changes the values, not just their signs.
    EXPECT_NE(floatOf(jsonAB, "delta_E"), floatOf(jsonBA, "delta_E"));
}

TEST_F(CxfDelta, IdenticalSamplesAreNeutral)
{
    const ToolRun r =
        run({kSamples + "sample-a.cxf", kSamples + "sample-a.cxf", "--tolerance", "0", "--json"});
    EXPECT_EQ(r.status, 0);
    const QJsonObject json = parsed(r.out);
    EXPECT_EQ(text(json.value(QStringLiteral("verdict"))), "neutral");
    EXPECT_EQ(floatOf(json, "delta_E"), 0.0f);
    EXPECT_TRUE(json.value(QStringLiteral("highlight")).toArray().isEmpty());
}

TEST_F(CxfDelta, ToleranceFromTheSettingsOrTheCommandLine)
{
    const std::vector<std::string> documents{kSamples + "sample-a.cxf",
                                             kSamples + "brand-reds-project.cxf", "--json"};
    storeTolerance("0.1"); // below the 0.15 of this pair
    ToolRun r = run(documents);
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(floatOf(parsed(r.out), "tolerance"), 0.1f);

    std::vector<std::string> overridden = documents;
    overridden.push_back("--tolerance=0.2");
    r = run(overridden);
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(floatOf(parsed(r.out), "tolerance"), 0.2f);

    // The printed delta E reads back exactly: given as the tolerance, it is a match.
    const QJsonObject first = parsed(r.out);
    char printedDeltaE[32];
    std::snprintf(printedDeltaE, sizeof printedDeltaE, "%.9g", f(floatOf(first, "delta_E")));
    overridden.back() = std::string("--tolerance=") + printedDeltaE;
    EXPECT_EQ(run(overridden).status, 0);
    std::snprintf(printedDeltaE, sizeof printedDeltaE, "%.9g",
                  f(std::nextafter(floatOf(first, "delta_E"), 0.0f)));
    overridden.back() = std::string("--tolerance=") + printedDeltaE;
    EXPECT_EQ(run(overridden).status, 1);
}

TEST_F(CxfDelta, TextReport)
{
    const ToolRun r = run({kSamples + "sample-a.cxf", kSamples + "brand-reds-project.cxf"});
    EXPECT_EQ(r.status, 0);
    for (const char *line : {"  caption         Sample A –– one patch\n",
                             "  D50 L*a*b*      49.020000457763672  43.200000762939453  "
                             "36.430000305175781  (1 patch)\n",
                             "  caption         Brand Reds –– project with 4 patches averaged\n",
                             "verdict           match (tolerance 2.5)\n"})
        EXPECT_NE(r.out.find(line), std::string::npos) << line << "\nin\n" << r.out;
    EXPECT_NE(r.out.find("delta E CMC(2:1)  "), std::string::npos);
    EXPECT_NE(r.out.find(" degrees"), std::string::npos);
}

struct RefusedCase {
    std::string file;
    std::string message;
};

TEST_F(CxfDelta, RefusedDocumentsExitTwoWithTheirMessage)
{
    const RefusedCase cases[] = {
        {kSamples + "d65-measurement.cxf",
         "The Lab colors were not specified with D50 illuminant and 2° observer."},
        {kDefects + "ten-degree-observer.cxf",
         "The Lab colors were not specified with D50 illuminant and 2° observer."},
        {kDefects + "unbalanced-tags.cxf", "Invalid XML data"},
        {kDefects + "empty.cxf", "Invalid XML data"},
        {kDefects + "binary.cxf", "Invalid XML data"},
        {kDefects + "billion-laughs.cxf", "Invalid XML data"},
        {kDefects + "wrong-root.cxf", "No 'CxF' key in XML data"},
        {kDefects + "no-palette.cxf", "No 'Palette' key in XML data"},
        {kDefects + "no-color-set.cxf", "No 'ColorSet' key in XML data"},
        {kDefects + "no-color.cxf", "No 'Color' key in XML data"},
        {kDefects + "no-such-file.cxf", "cannot read the file: No such file or directory"},
        {kDefects, "cannot read the file: Is a directory"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.file);
        const ToolRun r = run({kSamples + "sample-a.cxf", c.file, "--json"});
        EXPECT_EQ(r.status, 2);
        EXPECT_NE(r.err.find(c.file + ": "), std::string::npos) << r.err;
        EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
        const QJsonObject json = parsed(r.out);
        const QJsonObject refused =
            json.value(QStringLiteral("samples")).toArray().at(1).toObject();
        EXPECT_EQ(text(refused.value(QStringLiteral("status"))), "refused");
        EXPECT_EQ(text(refused.value(QStringLiteral("message"))), c.message);
        EXPECT_TRUE(refused.value(QStringLiteral("lab")).isNull());
        for (const char *key :
             {"delta_E", "delta_L", "delta_C", "delta_H", "delta_H_deg", "verdict"})
            EXPECT_TRUE(json.value(QString::fromLatin1(key)).isNull()) << key;
        // The other document is still reported.
        EXPECT_EQ(text(json.value(QStringLiteral("samples"))
                           .toArray()
                           .at(0)
                           .toObject()
                           .value(QStringLiteral("status"))),
                  "ok");
    }
    // Both refused, in text mode.
    const ToolRun both = run({kDefects + "empty.cxf", kSamples + "d65-measurement.cxf"});
    EXPECT_EQ(both.status, 2);
    EXPECT_NE(both.err.find("empty.cxf: Invalid XML data\n"), std::string::npos) << both.err;
    EXPECT_NE(both.err.find("d65-measurement.cxf: The specified Lab colors cannot be used for "
                            "comparison. The Lab colors were not specified with D50 illuminant "
                            "and 2° observer.\n"),
              std::string::npos)
        << both.err;
}

TEST_F(CxfDelta, HundredMegabyteFileIsRefusedInBoundedMemory)
{
    const fs::path huge = home_ / "huge.cxf";
    {
        std::ofstream out(huge, std::ios::binary);
        const std::string block(1 << 20, ' ');
        out << "<CxF:CxF>";
        for (int i = 0; i < 100; ++i)
            out << block;
        out << "</CxF:CxF>";
    }
    const ToolRun r = run({kSamples + "sample-a.cxf", huge.string()});
    EXPECT_EQ(r.status, 2);
    EXPECT_NE(r.err.find("huge.cxf: Invalid XML data\n"), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("larger than the limit of 67108864 bytes"), std::string::npos) << r.err;
}

TEST_F(CxfDelta, UsageErrors)
{
    const std::string a = kSamples + "sample-a.cxf";
    const std::vector<std::vector<std::string>> cases = {
        {},
        {a},
        {a, a, a},
        {a, a, "--frobnicate"},
        {a, a, "--tolerance"},
        {a, a, "--tolerance", "abc"},
        {a, a, "--tolerance", "nan"},
        {a, a, "--tolerance=2.5x"},
    };
    for (const auto &arguments : cases) {
        const ToolRun r = run(arguments);
        EXPECT_EQ(r.status, 64) << testing::PrintToString(arguments);
        EXPECT_NE(r.err.find("usage: cxf-delta A.cxf B.cxf [--tolerance T] [--json]"),
                  std::string::npos);
        EXPECT_EQ(r.out, "");
    }
    const ToolRun help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.out.rfind("usage: cxf-delta", 0), 0u);
}

} // namespace
