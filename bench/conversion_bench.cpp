// Per-colour cost of the CIELAB/CIELUV conversions against LittleCMS 2 on the same inputs.
//
// Each benchmark converts the same pre-generated random colours (XYZ in 0..1.1; Lab with L in
// 0..100, a and b in −128..128) once per iteration; "per_colour" is the time of one call. The
// argument is how many: all 2^20 streams through memory (our records carry alpha, 32 bytes
// against LittleCMS's 24, so the traffic differs), the first 4096 stay in the cache and compare
// the arithmetic alone.
// LittleCMS has no CIELUV routine, so Luv_from_XYZ is measured on its own.
// Run with a Release build, e.g.  conversion_bench --benchmark_min_time=0.2
#include "hue.h"
#include "lab_luv.h"

#include <benchmark/benchmark.h>
#include <lcms2.h>

#include <random>
#include <vector>

namespace {

constexpr size_t kColours = size_t(1) << 20;
constexpr size_t kCacheResident = 4096;
constexpr double kXn = 0.9504285453771807;
constexpr double kZn = 1.0889003707981277;

struct Inputs {
    std::vector<XYZColor> xyz;
    std::vector<cmsCIEXYZ> cmsXYZ;
    std::vector<LabColor> lab;
    std::vector<cmsCIELab> cmsLab;

    Inputs()
    {
        std::mt19937_64 random(20240601);
        std::uniform_real_distribution<double> unit(0, 1.1), lightness(0, 100), ab(-128, 128);
        for (size_t i = 0; i < kColours; ++i) {
            const double X = unit(random), Y = unit(random), Z = unit(random);
            xyz.push_back({X, Y, Z, 1});
            cmsXYZ.push_back({X, Y, Z});
            const double L = lightness(random), a = ab(random), b = ab(random);
            lab.push_back({L, a, b, 1});
            cmsLab.push_back({L, a, b});
        }
    }
};

const Inputs &inputs()
{
    static const Inputs data;
    return data;
}

const cmsCIEXYZ kWhite = {kXn, 1, kZn};

void setPerColourCounter(benchmark::State &state, size_t count)
{
    state.SetItemsProcessed(int64_t(state.iterations()) * int64_t(count));
    state.counters["per_colour"] = benchmark::Counter(
        double(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

template <typename Out, typename In, typename Convert>
void run(benchmark::State &state, const std::vector<In> &in, Convert convert)
{
    const size_t count = size_t(state.range(0));
    std::vector<Out> out(count);
    for (auto _ : state) {
        for (size_t i = 0; i < count; ++i)
            convert(in[i], out[i]);
        benchmark::ClobberMemory();
    }
    benchmark::DoNotOptimize(out.data());
    setPerColourCounter(state, count);
}

void BM_Lab_from_XYZ(benchmark::State &state)
{
    run<LabColor>(state, inputs().xyz, [](const XYZColor &c, LabColor &o) { o = Lab_from_XYZ(c); });
}
void BM_cmsXYZ2Lab(benchmark::State &state)
{
    run<cmsCIELab>(state, inputs().cmsXYZ,
                   [](const cmsCIEXYZ &c, cmsCIELab &o) { cmsXYZ2Lab(&kWhite, &o, &c); });
}

void BM_XYZ_from_Lab(benchmark::State &state)
{
    run<XYZColor>(state, inputs().lab, [](const LabColor &c, XYZColor &o) { o = XYZ_from_Lab(c); });
}
void BM_cmsLab2XYZ(benchmark::State &state)
{
    run<cmsCIEXYZ>(state, inputs().cmsLab,
                   [](const cmsCIELab &c, cmsCIEXYZ &o) { cmsLab2XYZ(&kWhite, &o, &c); });
}

void BM_LCHab_from_Lab(benchmark::State &state)
{
    run<LChColor>(state, inputs().lab,
                  [](const LabColor &c, LChColor &o) { o = LCHab_from_Lab(c); });
}
void BM_cmsLab2LCh(benchmark::State &state)
{
    run<cmsCIELCh>(state, inputs().cmsLab,
                   [](const cmsCIELab &c, cmsCIELCh &o) { cmsLab2LCh(&o, &c); });
}

void BM_Luv_from_XYZ(benchmark::State &state)
{
    run<LuvColor>(state, inputs().xyz, [](const XYZColor &c, LuvColor &o) { o = Luv_from_XYZ(c); });
}

} // namespace

BENCHMARK(BM_Lab_from_XYZ)->Arg(kColours)->Arg(kCacheResident)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_cmsXYZ2Lab)->Arg(kColours)->Arg(kCacheResident)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_XYZ_from_Lab)->Arg(kColours)->Arg(kCacheResident)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_cmsLab2XYZ)->Arg(kColours)->Arg(kCacheResident)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_LCHab_from_Lab)->Arg(kColours)->Arg(kCacheResident)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_cmsLab2LCh)->Arg(kColours)->Arg(kCacheResident)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Luv_from_XYZ)->Arg(kColours)->Arg(kCacheResident)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
