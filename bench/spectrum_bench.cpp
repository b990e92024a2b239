// Cost of the spectral functions per call: a CIE daylight spectrum from 300 to 830 nm at 5 nm,
// its white by the trapezoid sum, and a correlated colour temperature by each method.
#include "chromaticity.h"
#include "illuminants.h"

#include <benchmark/benchmark.h>

namespace {

void BM_CreateDaylightSpectrum(benchmark::State &state)
{
    double T = 6500;
    for (auto _ : state) {
        benchmark::DoNotOptimize(T);
        SpectrumBuffer s = create_spectrum_for_CIE_D_illuminant_temp(300, 830, 5, T);
        benchmark::DoNotOptimize(s.get());
    }
}
BENCHMARK(BM_CreateDaylightSpectrum);

void BM_CreateBlackBodySpectrum(benchmark::State &state)
{
    double T = 6500;
    for (auto _ : state) {
        benchmark::DoNotOptimize(T);
        SpectrumBuffer s = create_spectrum_for_black_body_temp(300, 830, 5, T);
        benchmark::DoNotOptimize(s.get());
    }
}
BENCHMARK(BM_CreateBlackBodySpectrum);

// 107 samples from 300 nm are rejected (the observer starts at 360 nm), so the white is taken
// over the 95 samples from 360 to 830 nm.
void BM_XYZFromSpectrum(benchmark::State &state)
{
    const SpectrumBuffer s = create_spectrum_for_CIE_D_illuminant_temp(360, 830, 5, 6500);
    const Spectrum *samples = s.get();
    for (auto _ : state) {
        benchmark::DoNotOptimize(samples);
        benchmark::DoNotOptimize(XYZ_from_spectrum(samples, 95));
    }
}
BENCHMARK(BM_XYZFromSpectrum);

void BM_XYZFromBlackBodyTemp(benchmark::State &state)
{
    double T = 6500;
    for (auto _ : state) {
        benchmark::DoNotOptimize(T);
        benchmark::DoNotOptimize(XYZ_from_black_body_temp(T));
    }
}
BENCHMARK(BM_XYZFromBlackBodyTemp);

void BM_CCTFromXY(benchmark::State &state)
{
    const int method = int(state.range(0));
    double x = 0.31271, y = 0.32902;
    for (auto _ : state) {
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
        benchmark::DoNotOptimize(CCT_from_xy(method, x, y));
    }
}
BENCHMARK(BM_CCTFromXY)
    ->Arg(kCCTMethodMcCamy)
    ->Arg(kCCTMethodExponential)
    ->Arg(kCCTMethodRobertson)
    ->ArgName("method");

} // namespace

BENCHMARK_MAIN();
