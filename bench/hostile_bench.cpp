// Hostile documents just under the import's 64 MiB limit, generated here at run time: each goes
// through importCxFDocument in a forked child, which reports the outcome, its CPU time (the
// wall time on a shared machine says more about the neighbours), the wall time and the rise of
// its peak resident set (VmHWM). A document must be refused or read within 1 s and 256 MiB.
//
//   hostile_bench            all documents
//   hostile_bench NAME...    only those named
#include "cxf_import.h"

#include "cxf_project.h"
#include "in_child.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include <time.h>

namespace {

constexpr std::size_t kSize = kMaxCxFDocumentBytes - 4096;

// Repeats unit between head and tail until the document is about kSize bytes.
std::string filled(const std::string &head, const std::string &unit, const std::string &tail)
{
    std::string text = head;
    text.reserve(kSize + unit.size());
    while (text.size() + unit.size() + tail.size() < kSize)
        text += unit;
    return text + tail;
}

std::string distinctNames()
{
    std::string text = "<r>";
    text.reserve(kSize);
    for (long i = 0; text.size() + 32 < kSize; ++i)
        text += "<n" + std::to_string(i) + "/>";
    return text + "</r>";
}

std::string manyAttributes()
{
    std::string text = "<r";
    text.reserve(kSize);
    for (long i = 0; text.size() + 32 < kSize; ++i)
        text += " a" + std::to_string(i) + "=\"\"";
    return text + "/>";
}

std::string deepNesting()
{
    const std::size_t depth = (kSize - 16) / 7;
    std::string text;
    text.reserve(kSize);
    for (std::size_t i = 0; i < depth; ++i)
        text += "<e>";
    text += "x";
    for (std::size_t i = 0; i < depth; ++i)
        text += "</e>";
    return text;
}

// An entity of 1 KiB referenced over and over: 1 KiB of text per 4 bytes of document.
std::string expandedEntities()
{
    return filled("<!DOCTYPE r [<!ENTITY e \"" + std::string(1024, 'x') + "\">]><r>", "&e;",
                  "</r>");
}

// Expansions of 3 times the document, inside the amplification bound: the text budget stops it.
std::string expandedWithinAmplification()
{
    return filled("<!DOCTYPE r [<!ENTITY e \"" + std::string(10, 'x') + "\">]><r>", "<t>&e;</t>",
                  "</r>");
}

struct Hostile {
    const char *name;
    std::function<std::string()> make;
};

const std::vector<Hostile> &documents()
{
    static const std::vector<Hostile> all = {
        {"empty-elements-with-attributes", [] { return filled("<r>", "<x a=\"\"/>", "</r>"); }},
        {"empty-elements", [] { return filled("<r>", "<x/>", "</r>"); }},
        {"distinct-names", distinctNames},
        {"attributes-on-one-element", manyAttributes},
        {"deep-nesting", deepNesting},
        {"entity-expanded-text", expandedEntities},
        {"entity-expanded-within-amplification", expandedWithinAmplification},
        {"text-leaves", [] { return filled("<r>", "<t>1</t>", "</r>"); }},
    };
    return all;
}

double cpuSeconds()
{
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

struct Result {
    double seconds = 0;
    double wallSeconds = 0;
    long rssRiseKiB = 0;
    char outcome[160] = {};
};

Result runInChild(const std::string &document)
{
    const std::optional<Result> measured = resultInChild([&] {
        Result result;
        std::ofstream("/proc/self/clear_refs") << "5" << std::flush; // VmHWM := VmRSS
        const long before = statusKiB("VmRSS:");
        const auto start = std::chrono::steady_clock::now();
        const double cpuStart = cpuSeconds();
        const CxFImportOutcome outcome = importCxFDocument(document);
        result.seconds = cpuSeconds() - cpuStart;
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        result.wallSeconds = elapsed.count();
        result.rssRiseKiB = statusKiB("VmHWM:") - before;
        std::snprintf(result.outcome, sizeof result.outcome, "%s%s%s",
                      std::string(refusalMessage(outcome)).c_str(),
                      outcome.detail.empty() ? "" : ": ", outcome.detail.c_str());
        return result;
    });
    if (measured)
        return *measured;
    Result failed;
    std::snprintf(failed.outcome, sizeof failed.outcome, "child failed");
    return failed;
}

} // namespace

int main(int argc, char **argv)
{
    std::printf("%-38s %9s %9s %9s  %s\n", "document (just under 64 MiB)", "CPU", "wall",
                "RSS rise", "outcome");
    int failures = 0;
    for (const Hostile &hostile : documents()) {
        bool wanted = argc < 2;
        for (int i = 1; i < argc; ++i)
            wanted = wanted || std::strcmp(argv[i], hostile.name) == 0;
        if (!wanted)
            continue;
        const Result result = runInChild(hostile.make());
        const bool ok = result.seconds < 1.0 && result.rssRiseKiB < 256 * 1024;
        failures += !ok;
        std::printf("%-38s %6.0f ms %6.0f ms %5.0f MiB  %s%s\n", hostile.name, result.seconds * 1e3,
                    result.wallSeconds * 1e3, static_cast<double>(result.rssRiseKiB) / 1024,
                    result.outcome, ok ? "" : "  [over 1 s or 256 MiB]");
        std::fflush(stdout);
    }
    return failures == 0 ? 0 : 1;
}
