// The CxF import of a large project against a raw expat parse of the same bytes.
//
// The document is generated in memory: a project of 10,000 patches, each with Lab values and
// 36 reflectance points (380 to 730 nm), laid out and indented like the sample documents.
// "raw expat parse" runs expat over the bytes with start, end and character callbacks that
// build nothing; "reader" is XMLReader::dictionaryForXMLString (line joining and the tree);
// "import" is importCxFDocument, what a drop of the file costs (reader, checks, averaging and
// the tree's destruction).
//
// Before the Google Benchmark runs, main prints a summary: best of several runs of each, the
// ratio import / raw parse, the peak of live C++ heap (counted by the operator new below) and
// the rise of the process's peak resident set (VmHWM, reset before each measurement), each
// measured in a forked child so that the measurements do not disturb one another.
#include "XMLReader.h"
#include "cxf_import.h"
#include "cxf_project.h"
#include "in_child.h"
#include "raw_expat.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <new>
#include <string>

#include <malloc.h>

// --- Heap accounting ------------------------------------------------------------------------

namespace {
std::atomic<long long> gLiveBytes{0};
std::atomic<long long> gPeakBytes{0};

void account(long long change)
{
    const long long live = gLiveBytes.fetch_add(change, std::memory_order_relaxed) + change;
    long long peak = gPeakBytes.load(std::memory_order_relaxed);
    while (live > peak &&
           !gPeakBytes.compare_exchange_weak(peak, live, std::memory_order_relaxed)) {
    }
}

void *allocate(std::size_t size)
{
    void *p = std::malloc(size ? size : 1);
    if (!p)
        throw std::bad_alloc();
    account(static_cast<long long>(malloc_usable_size(p)));
    return p;
}

void *allocateAligned(std::size_t size, std::align_val_t align)
{
    const auto alignment = static_cast<std::size_t>(align);
    void *p = std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
    if (!p)
        throw std::bad_alloc();
    account(static_cast<long long>(malloc_usable_size(p)));
    return p;
}

void release(void *p) noexcept
{
    if (!p)
        return;
    account(-static_cast<long long>(malloc_usable_size(p)));
    std::free(p);
}
} // namespace

void *operator new(std::size_t size)
{
    return allocate(size);
}
void *operator new[](std::size_t size)
{
    return allocate(size);
}
void operator delete(void *p) noexcept
{
    release(p);
}
void operator delete[](void *p) noexcept
{
    release(p);
}
void operator delete(void *p, std::size_t) noexcept
{
    release(p);
}
void operator delete[](void *p, std::size_t) noexcept
{
    release(p);
}
// The reader's large blocks are aligned to huge pages.
void *operator new(std::size_t size, std::align_val_t align)
{
    return allocateAligned(size, align);
}
void *operator new[](std::size_t size, std::align_val_t align)
{
    return allocateAligned(size, align);
}
void operator delete(void *p, std::align_val_t) noexcept
{
    release(p);
}
void operator delete[](void *p, std::align_val_t) noexcept
{
    release(p);
}
void operator delete(void *p, std::size_t, std::align_val_t) noexcept
{
    release(p);
}
void operator delete[](void *p, std::size_t, std::align_val_t) noexcept
{
    release(p);
}

namespace {

// --- The document ---------------------------------------------------------------------------

const std::string &project()
{
    static const std::string text = generateProject(10000, 36);
    return text;
}

// --- The three workloads --------------------------------------------------------------------

long rawParse(const std::string &text)
{
    const RawExpatCounts counts = ::rawExpatParse(text.data(), text.size());
    if (!counts.wellFormed)
        std::abort();
    return counts.elements + counts.characters;
}

long readerOnly(const std::string &text)
{
    const auto tree = XMLReader::dictionaryForXMLString(text, nullptr);
    if (!tree)
        std::abort();
    return static_cast<long>(tree->size());
}

long importProject(const std::string &text)
{
    const CxFImportOutcome outcome = importCxFDocument(text);
    if (!outcome.accepted() || outcome.patchCount != 10000)
        std::abort();
    return outcome.patchCount;
}

void BM_RawExpatParse(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(rawParse(project()));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * project().size()));
}
BENCHMARK(BM_RawExpatParse)->Unit(benchmark::kMillisecond);

void BM_Reader(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(readerOnly(project()));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * project().size()));
}
BENCHMARK(BM_Reader)->Unit(benchmark::kMillisecond);

void BM_Import(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(importProject(project()));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * project().size()));
}
BENCHMARK(BM_Import)->Unit(benchmark::kMillisecond);

// --- Summary: time, heap and resident-set peaks, each in a child process --------------------

struct Figures {
    double bestSeconds = 0;
    long long heapPeakBytes = 0;
    long rssRiseKiB = -1; // -1 when the peak could not be reset
};

template <typename Work> Figures measureInChild(Work work, int runs)
{
    const std::optional<Figures> measured = resultInChild([&] {
        Figures figures;
        std::ofstream clearRefs("/proc/self/clear_refs");
        clearRefs << "5" << std::flush; // resets VmHWM to the current resident set
        const bool reset = static_cast<bool>(clearRefs);
        const long rssBefore = statusKiB("VmRSS:");
        gPeakBytes.store(gLiveBytes.load());
        const long long heapBefore = gLiveBytes.load();
        work(); // the first run carries the memory figures
        figures.heapPeakBytes = gPeakBytes.load() - heapBefore;
        if (reset)
            figures.rssRiseKiB = statusKiB("VmHWM:") - rssBefore;
        figures.bestSeconds = 1e9;
        for (int i = 0; i < runs; ++i) {
            const auto start = std::chrono::steady_clock::now();
            work();
            const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
            figures.bestSeconds = std::min(figures.bestSeconds, elapsed.count());
        }
        return figures;
    });
    if (!measured)
        std::abort();
    return *measured;
}

void printSummary()
{
    const std::string &text = project();
    std::printf("document: 10000 patches x 36 points, %zu bytes (%.1f MiB)\n", text.size(),
                static_cast<double>(text.size()) / (1 << 20));
    const Figures raw = measureInChild([&] { benchmark::DoNotOptimize(rawParse(text)); }, 7);
    const Figures reader = measureInChild([&] { benchmark::DoNotOptimize(readerOnly(text)); }, 7);
    const Figures import =
        measureInChild([&] { benchmark::DoNotOptimize(importProject(text)); }, 7);
    std::printf("%-18s %12s %16s %18s\n", "", "best time", "peak C++ heap", "peak RSS rise");
    const auto row = [](const char *name, const Figures &f) {
        std::printf("%-18s %9.1f ms %12.1f MiB %14.1f MiB\n", name, f.bestSeconds * 1e3,
                    static_cast<double>(f.heapPeakBytes) / (1 << 20),
                    static_cast<double>(f.rssRiseKiB) / 1024);
    };
    row("raw expat parse", raw);
    row("reader", reader);
    row("import", import);
    std::printf("import / raw parse: %.2f x (goal: at most 1.5 x)\n\n",
                import.bestSeconds / raw.bestSeconds);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    printSummary();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
