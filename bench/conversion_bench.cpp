// Per-colour cost of the CIELAB/CIELUV conversions against LittleCMS 2 on the same inputs.
//
// Each benchmark converts the same pre-generated 2^20 random colours (XYZ in 0..1.1; Lab with
// L in 0..100, a and b in −128..128) once per iteration; "per_colour" is the time of one call.
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

void setPerColourCounter(benchmark::State &state)
{
    state.SetItemsProcessed(int64_t(state.iterations()) * int64_t(kColours));
    state.counters["per_colour"] =
        benchmark::Counter(double(kColours), benchmark::Counter::kIsIterationInvariantRate |
                                                 benchmark::Counter::kInvert);
}

template <typename Out, typename In, typename Convert>
void run(benchmark::State &state, const std::vector<In> &in, Convert convert)
{
    std::vector<Out> out(in.size());
    for (auto _ : state) {
        for (size_t i = 0; i < in.size(); ++i)
            convert(in[i], out[i]);
        benchmark::ClobberMemory();
    }
    benchmark::DoNotOptimize(out.data());
    setPerColourCounter(state);
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

BENCHMARK(BM_Lab_from_XYZ)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_cmsXYZ2Lab)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_XYZ_from_Lab)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_cmsLab2XYZ)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LCHab_from_Lab)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_cmsLab2LCh)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Luv_from_XYZ)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
