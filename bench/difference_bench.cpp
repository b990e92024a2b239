// Colour-difference formulas per pair, ours next to LittleCMS, on the same one million random
// CIELAB pairs (close pairs, as a comparison sees them).
#include "difference.h"
#include "hue.h"

#include <benchmark/benchmark.h>
#include <lcms2.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

constexpr size_t kPairs = 1'000'000;

struct Pairs {
    std::vector<LabColor> ours1, ours2;
    std::vector<cmsCIELab> cms1, cms2;
};

const Pairs &pairs()
{
    static const Pairs p = [] {
        Pairs p;
        std::mt19937_64 rng(42);
        std::uniform_real_distribution<double> L(0, 100), ab(-100, 100), near(-5, 5);
        for (size_t i = 0; i < kPairs; ++i) {
            const LabColor a{L(rng), ab(rng), ab(rng), 1};
            const LabColor b{a.L + near(rng), a.a + near(rng), a.b + near(rng), 1};
            p.ours1.push_back(a);
            p.ours2.push_back(b);
            p.cms1.push_back({a.L, a.a, a.b});
            p.cms2.push_back({b.L, b.a, b.b});
        }
        return p;
    }();
    return p;
}

// Each benchmark walks the same pairs in order; items processed = pairs compared.
template <typename Body> void runOverPairs(benchmark::State &state, Body body)
{
    const Pairs &p = pairs();
    size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(body(p, i));
        if (++i == kPairs)
            i = 0;
    }
    state.SetItemsProcessed(state.iterations());
}

void CMC_ours_LCh(benchmark::State &state)
{
    runOverPairs(state, [](const Pairs &p, size_t i) {
        return delta_E_LCh_CMC(LCHab_from_Lab(p.ours1[i]), LCHab_from_Lab(p.ours2[i]), 2, 1);
    });
}

void CMC_ours_Lab(benchmark::State &state)
{
    runOverPairs(state, [](const Pairs &p, size_t i) {
        return delta_E_Lab_CMC(p.ours1[i], p.ours2[i], 2, 1);
    });
}

void CMC_lcms(benchmark::State &state)
{
    runOverPairs(
        state, [](const Pairs &p, size_t i) { return cmsCMCdeltaE(&p.cms1[i], &p.cms2[i], 2, 1); });
}

void CIE2000_ours(benchmark::State &state)
{
    runOverPairs(state, [](const Pairs &p, size_t i) {
        return delta_E_Lab_CIE2000(p.ours1[i], p.ours2[i]);
    });
}

void CIE2000_lcms(benchmark::State &state)
{
    runOverPairs(state, [](const Pairs &p, size_t i) {
        return cmsCIE2000DeltaE(&p.cms1[i], &p.cms2[i], 1, 1, 1);
    });
}

} // namespace

// On a shared machine other work only ever adds time, so the fastest of many short,
// interleaved repetitions (read its CPU column) is the steadiest figure:
//   difference_bench --benchmark_repetitions=30 --benchmark_min_time=0.05
//       --benchmark_enable_random_interleaving=true --benchmark_report_aggregates_only=true
double fastest(const std::vector<double> &times)
{
    return *std::min_element(times.begin(), times.end());
}

BENCHMARK(CMC_ours_LCh)->ComputeStatistics("min", fastest);
BENCHMARK(CMC_ours_Lab)->ComputeStatistics("min", fastest);
BENCHMARK(CMC_lcms)->ComputeStatistics("min", fastest);
BENCHMARK(CIE2000_ours)->ComputeStatistics("min", fastest);
BENCHMARK(CIE2000_lcms)->ComputeStatistics("min", fastest);

BENCHMARK_MAIN();
