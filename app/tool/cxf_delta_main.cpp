// cxf-delta A.cxf B.cxf [--tolerance T] [--json] | --version | --help
// Compares two CxF documents the way CxF Compare does, with document A as sample 1.
#include "cxf_delta_report.h"
#include "tolerance_setting.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr char kUsage[] =
    "usage: cxf-delta A.cxf B.cxf [--tolerance T] [--json]\n"
    "\n"
    "Compares two CxF colour documents as CxF Compare does: each document is read and its\n"
    "patches averaged into one D50 L*a*b* sample; A is sample 1 (the reference), B sample 2.\n"
    "Prints both captions and Lab values, delta E CMC(2:1), delta L, delta C, delta H in\n"
    "degrees, and the verdict.\n"
    "\n"
    "  --tolerance T  largest delta E that still counts as a match (default: the\n"
    "                 application's preference delta_E_CMC_tolerance, 2.5 unless changed)\n"
    "  --json         print one JSON object instead of text\n"
    "  --version      print the version\n"
    "  -h, --help     print this text\n"
    "\n"
    "Exit status: 0 match or identical samples, 1 mismatch, 2 a document refused or\n"
    "unreadable, 64 usage error.\n";

int usageError(const std::string &problem)
{
    std::fprintf(stderr, "cxf-delta: %s\n%s", problem.c_str(), kUsage);
    return kExitUsage;
}

// A finite, non-negative decimal number taking the whole argument.
bool parseTolerance(std::string_view text, float &tolerance)
{
    const char *end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, tolerance);
    return result.ec == std::errc() && result.ptr == end && std::isfinite(tolerance) &&
           tolerance >= 0;
}

} // namespace

int main(int argc, char **argv)
{
    std::vector<std::string> files;
    bool json = false;
    bool toleranceGiven = false;
    float tolerance = 0;
    bool optionsEnded = false;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (optionsEnded || argument.empty() || argument[0] != '-' || argument == "-") {
            files.emplace_back(argument);
        } else if (argument == "--") {
            optionsEnded = true;
        } else if (argument == "-h" || argument == "--help") {
            std::fputs(kUsage, stdout);
            return 0;
        } else if (argument == "--version") {
            std::puts("cxf-delta " CXF_VERSION);
            return 0;
        } else if (argument == "--json") {
            json = true;
        } else if (argument == "--tolerance" || argument.starts_with("--tolerance=")) {
            std::string_view value;
            if (argument == "--tolerance") {
                if (i + 1 >= argc)
                    return usageError("--tolerance needs a value");
                value = argv[++i];
            } else {
                value = argument.substr(std::strlen("--tolerance="));
            }
            if (!parseTolerance(value, tolerance))
                return usageError("not a tolerance: " + std::string(value));
            toleranceGiven = true;
        } else {
            return usageError("unknown option " + std::string(argument));
        }
    }
    if (files.size() != 2)
        return usageError("expected two documents, got " + std::to_string(files.size()));
    if (!toleranceGiven)
        tolerance = storedDeltaECMCTolerance();

    const DeltaReport report = compareDocuments(files[0], files[1], tolerance);
    const std::string output = json ? formatJson(report) : formatText(report);
    std::fwrite(output.data(), 1, output.size(), stdout);
    const std::string refusals = formatRefusals(report);
    std::fwrite(refusals.data(), 1, refusals.size(), stderr);
    return exitStatusFor(report);
}
