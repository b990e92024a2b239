// cxf-delta as a user runs it: the built executable on the sample documents, with its own
// settings directory. The tool must decide exactly as the window does, so the expected
// differences, verdict and highlight are the comparison core's for the Lab values the JSON
// reports; those are checked against the documents' literals rounded to float and averaged here.
#include "comparison.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

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

std::string quoted(const std::string &word)
{
    std::string text = "'";
    for (char c : word)
        text += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return text + "'";
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
        fs::create_directories(home_ / "config" / "cxf-compare");
    }
    void TearDown() override { fs::remove_all(home_); }

    ToolRun run(const std::vector<std::string> &arguments)
    {
        std::string command = "timeout 20 env HOME=" + quoted(home_.string()) +
                              " XDG_CONFIG_HOME=" + quoted((home_ / "config").string()) + " " +
                              quoted(CXF_DELTA_PATH);
        for (const std::string &argument : arguments)
            command += " " + quoted(argument);
        command +=
            " >" + quoted((home_ / "out").string()) + " 2>" + quoted((home_ / "err").string());
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, slurp(home_ / "out"),
                slurp(home_ / "err")};
    }

    fs::path home_;
};

QJsonObject parsed(const std::string &json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(json), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << json;
    return document.object();
}

QJsonValue at(const QJsonObject &object, const char *key)
{
    return object.value(QString::fromLatin1(key));
}

std::string text(const QJsonValue &value)
{
    return value.toString().toStdString();
}

QJsonObject sample(const QJsonObject &json, int index)
{
    return at(json, "samples").toArray().at(index).toObject();
}

LabColor labOf(const QJsonObject &sample)
{
    const QJsonArray lab = at(sample, "lab").toArray();
    return {lab.at(0).toDouble(), lab.at(1).toDouble(), lab.at(2).toDouble(), 1.0};
}

float floatOf(const QJsonObject &object, const char *key)
{
    return static_cast<float>(at(object, key).toDouble());
}

double f(float v)
{
    return static_cast<double>(v);
}

// The differences, verdict and highlight of the JSON are the window's for its two samples.
void expectWindowsDecision(const QJsonObject &json)
{
    const CmcDifferences d = computeCmcDifferences(labOf(sample(json, 0)), labOf(sample(json, 1)));
    EXPECT_EQ(floatOf(json, "delta_E"), d.delta_E);
    EXPECT_EQ(floatOf(json, "delta_L"), d.delta_L);
    EXPECT_EQ(floatOf(json, "delta_C"), d.delta_C);
    EXPECT_EQ(floatOf(json, "delta_H"), d.delta_H);
    EXPECT_EQ(floatOf(json, "delta_H_deg"), d.delta_H_deg);
    const char *names[] = {"neutral", "match", "mismatch"};
    const Verdict verdict = verdictFor(d.delta_E, floatOf(json, "tolerance"));
    EXPECT_EQ(text(at(json, "verdict")), names[static_cast<int>(verdict)]);
    const Highlight h = highlightFor(d);
    QJsonArray expected;
    for (const auto &[on, name] : {std::pair{h.lightness, "delta_L"},
                                   std::pair{h.chroma, "delta_C"}, std::pair{h.hue, "delta_H"}})
        if (on)
            expected.append(QString::fromLatin1(name));
    EXPECT_EQ(at(json, "highlight").toArray(), expected);
}

TEST_F(CxfDelta, SamplesAreReadExactlyAndDecidedAsTheWindowDoes)
{
    const ToolRun r =
        run({kSamples + "sample-a.cxf", kSamples + "brand-reds-project.cxf", "--json"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.err, "");
    const QJsonObject json = parsed(r.out);
    EXPECT_EQ(floatOf(json, "tolerance"), 2.5f); // the default: no settings stored
    const QJsonObject a = sample(json, 0), b = sample(json, 1);
    EXPECT_EQ(text(at(a, "status")), "ok");
    EXPECT_TRUE(at(a, "message").isNull());
    EXPECT_EQ(text(at(a, "caption")), "Sample A –– one patch");
    EXPECT_EQ(labOf(a).L, f(49.02f));
    EXPECT_EQ(labOf(a).a, f(43.20f));
    EXPECT_EQ(labOf(a).b, f(36.43f));
    EXPECT_EQ(text(at(b, "caption")), "Brand Reds –– project with 4 patches averaged");
    EXPECT_EQ(at(b, "patches").toInt(), 4);
    EXPECT_EQ(labOf(b).L, (f(49.82f) + f(48.08f) + f(49.41f) + f(48.67f)) / 4);
    EXPECT_EQ(labOf(b).a, (f(43.85f) + f(43.44f) + f(42.79f) + f(42.88f)) / 4);
    EXPECT_EQ(labOf(b).b, (f(38.08f) + f(34.85f) + f(38.13f) + f(35.67f)) / 4);
    EXPECT_EQ(text(at(json, "verdict")), "match");
    expectWindowsDecision(json);
}

TEST_F(CxfDelta, ExitStatusFollowsTheVerdictAndTheTolerance)
{
    const std::string a = kSamples + "sample-a.cxf", b = kSamples + "sample-b.cxf",
                      reds = kSamples + "brand-reds-project.cxf";
    std::ofstream(home_ / "config" / "cxf-compare" / "cxf-compare.conf")
        << "[General]\ndelta_E_CMC_tolerance=0.1\n"; // below the 0.15 of a and reds
    struct Case {
        std::vector<std::string> arguments;
        int status;
        const char *verdict;
        float tolerance;
    };
    const Case cases[] = {
        {{a, b, "--json"}, 1, "mismatch", 0.1f},
        {{"--json", b, a}, 1, "mismatch", 0.1f},
        {{a, a, "--tolerance", "0", "--json"}, 0, "neutral", 0.0f},
        {{a, reds, "--json"}, 1, "mismatch", 0.1f},
        {{a, reds, "--json", "--tolerance=0.2"}, 0, "match", 0.2f},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.arguments));
        const ToolRun r = run(c.arguments);
        EXPECT_EQ(r.status, c.status) << r.err;
        const QJsonObject json = parsed(r.out);
        EXPECT_EQ(text(at(json, "verdict")), c.verdict);
        EXPECT_EQ(floatOf(json, "tolerance"), c.tolerance);
        expectWindowsDecision(json);
    }
    // The printed delta E reads back exactly: as the tolerance it matches, one float less does not.
    const float deltaE = floatOf(parsed(run({a, reds, "--json"}).out), "delta_E");
    char printed[32];
    std::snprintf(printed, sizeof printed, "%.9g", f(deltaE));
    EXPECT_EQ(run({a, reds, std::string("--tolerance=") + printed}).status, 0);
    std::snprintf(printed, sizeof printed, "%.9g", f(std::nextafter(deltaE, 0.0f)));
    EXPECT_EQ(run({a, reds, std::string("--tolerance=") + printed}).status, 1);
}

TEST_F(CxfDelta, TextReport)
{
    const ToolRun r = run({kSamples + "sample-a.cxf", kSamples + "brand-reds-project.cxf"});
    EXPECT_EQ(r.status, 0);
    for (const char *line :
         {"  caption         Sample A –– one patch\n",
          "  D50 L*a*b*      49.020, 43.200, 36.430  (1 patch)\n",
          "  caption         Brand Reds –– project with 4 patches averaged\n", "delta E CMC(2:1)  ",
          " degrees", "verdict           match (tolerance 2.5)\n"})
        EXPECT_NE(r.out.find(line), std::string::npos) << line << "\nin\n" << r.out;
    const ToolRun same = run({kSamples + "sample-a.cxf", kSamples + "sample-a.cxf"});
    EXPECT_NE(same.out.find("verdict           identical (tolerance 2.5)\n"), std::string::npos);
}

TEST_F(CxfDelta, RefusedDocumentsExitTwoWithTheirMessage)
{
    // Files that cannot be read as UTF-8 text are refused as the window refuses them, without
    // being read when they are not regular files or too large (none of these may hang).
    const std::string fifo = (home_ / "fifo.cxf").string(), big = (home_ / "big.cxf").string();
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    std::ofstream(big).close();
    fs::resize_file(big, (std::uintmax_t{64} << 20) + 1);
    const std::string invalid = "Invalid XML data";
    const std::tuple<std::string, std::string, std::string> cases[] = {
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
    for (const auto &[file, message, detail] : cases) {
        SCOPED_TRACE(file);
        const ToolRun r = run({kSamples + "sample-a.cxf", file, "--json"});
        EXPECT_EQ(r.status, 2);
        EXPECT_NE(r.err.find(file + ": "), std::string::npos) << r.err;
        EXPECT_NE(r.err.find(message), std::string::npos) << r.err;
        EXPECT_NE(r.err.find(detail), std::string::npos) << r.err;
        const QJsonObject json = parsed(r.out);
        EXPECT_EQ(text(at(sample(json, 0), "status")), "ok");
        EXPECT_EQ(text(at(sample(json, 1), "status")), "refused");
        EXPECT_EQ(text(at(sample(json, 1), "message")), message);
        EXPECT_TRUE(at(sample(json, 1), "lab").isNull());
        for (const char *key :
             {"delta_E", "delta_L", "delta_C", "delta_H", "delta_H_deg", "verdict"})
            EXPECT_TRUE(at(json, key).isNull()) << key;
    }
    const ToolRun both = run({kDefects + "empty.cxf", kSamples + "d65-measurement.cxf"});
    EXPECT_EQ(both.status, 2);
    EXPECT_NE(both.err.find("empty.cxf: Invalid XML data\n"), std::string::npos) << both.err;
    EXPECT_NE(both.err.find("d65-measurement.cxf: The specified Lab colors cannot be used for "
                            "comparison. The Lab colors were not specified with D50 illuminant "
                            "and 2° observer.\n"),
              std::string::npos)
        << both.err;
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
        {a, a, "--tolerance", "nan"},
        {a, a, "--tolerance=2.5x"},
        {a, a, "--tolerance", "-0.5"},
        {a, a, "--tolerance=inf"},
    };
    for (const auto &arguments : cases) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const ToolRun r = run(arguments);
        EXPECT_EQ(r.status, 64);
        EXPECT_NE(r.err.find("usage: cxf-delta A.cxf B.cxf [--tolerance T] [--json]"),
                  std::string::npos);
        EXPECT_EQ(r.out, "");
    }
    const ToolRun help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.out.rfind("usage: cxf-delta", 0), 0u);
    const ToolRun version = run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out.rfind("cxf-delta 0.", 0), 0u) << version.out;
}

} // namespace
