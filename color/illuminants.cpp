#include "illuminants.h"

#include "data/cie1931_2deg_cmf_1nm.h"
#include "data/cie_daylight_basis_S0_S1_S2_5nm.h"
#include "math_constants.h"

#include <cmath>
#include <cstdint>

// --- CIE daylight ------------------------------------------------------------------------

xyChromaticity xy_from_CIE_D_illuminant_temp(double temperature)
{
    const double T = temperature * 1.000556328233658; // 1.4388 / 1.4380
    const double T2 = T * T, T3 = T2 * T;
    double x;
    if (4000 <= T && T <= 7000)
        x = -4.607e9 / T3 + 2.9678e6 / T2 + 99.11 / T + 0.244063;
    else if (7000 < T && T <= 25000)
        x = -2.0064e9 / T3 + 1.9018e6 / T2 + 247.48 / T + 0.23704;
    else
        return {0, 0};
    return {x, -3 * x * x + 2.87 * x - 0.275};
}

namespace {

constexpr unsigned kDaylightFirstNm = 300;
constexpr unsigned kDaylightLastNm = 830;
constexpr unsigned kDaylightStepNm = 5;
static_assert(gSLambdaConstants[0].wavelength == kDaylightFirstNm);
static_assert(gSLambdaConstants[gNumSLambdaConstants - 1].wavelength == kDaylightLastNm);
static_assert((kDaylightLastNm - kDaylightFirstNm) / kDaylightStepNm + 1 == gNumSLambdaConstants);

} // namespace

SpectrumBuffer create_spectrum_for_CIE_D_illuminant_xy(unsigned start_nm, unsigned end_nm,
                                                       unsigned step_nm, double x, double y)
{
    if (start_nm >= end_nm || start_nm < kDaylightFirstNm || end_nm > kDaylightLastNm)
        return SpectrumBuffer();

    const size_t n = (end_nm - start_nm) / kDaylightStepNm + 1;
    const size_t first_row = (start_nm - kDaylightFirstNm) / kDaylightStepNm;
    const uint64_t row_advance = step_nm / kDaylightStepNm;
    // The rows follow the step while the count and the labels follow 5 nm: refuse a call whose
    // rows would run past the end of the table.
    if (first_row + (n - 1) * row_advance >= gNumSLambdaConstants)
        return SpectrumBuffer();

    SpectrumBuffer spectrum = allocate_spectrum(n);
    if (!spectrum)
        return spectrum;

    const double M = 0.0241 + 0.2562 * x - 0.7341 * y;
    const double M1 = (-1.3515 - 1.7703 * x + 5.9114 * y) / M;
    const double M2 = (0.03 - 31.4424 * x + 30.0717 * y) / M;

    double scale = 1;
    size_t row = first_row;
    uint32_t wavelength = start_nm;
    for (size_t i = 0; i < n; ++i) {
        const DaylightBasisRow &S = gSLambdaConstants[row];
        const double value = S.S0 + M1 * S.S1 + M2 * S.S2;
        spectrum[i] = {wavelength, value};
        if (wavelength == 560)
            scale = 1 / value;
        row += row_advance;
        wavelength += kDaylightStepNm;
    }
    for (size_t i = 0; i < n; ++i)
        spectrum[i].value *= scale;
    return spectrum;
}

SpectrumBuffer create_spectrum_for_CIE_D_illuminant_temp(unsigned start_nm, unsigned end_nm,
                                                         unsigned step_nm, double temperature)
{
    const xyChromaticity xy = xy_from_CIE_D_illuminant_temp(temperature);
    if (xy.x == 0 || xy.y == 0)
        return SpectrumBuffer();
    return create_spectrum_for_CIE_D_illuminant_xy(start_nm, end_nm, step_nm, xy.x, xy.y);
}

// --- Black body --------------------------------------------------------------------------

SpectrumBuffer create_spectrum_for_black_body_temp(unsigned start_nm, unsigned end_nm,
                                                   unsigned step_nm, double temperature)
{
    if (start_nm >= end_nm || end_nm > 1000 || step_nm == 0)
        return SpectrumBuffer();

    const size_t n = (end_nm - start_nm) / step_nm + 1;
    SpectrumBuffer spectrum = allocate_spectrum(n);
    if (!spectrum)
        return spectrum;

    constexpr double c1 = 3.74183e-16; // W m², rounded on purpose
    constexpr double c2 = 0.014388;    // m K, rounded on purpose
    double scale = 1;
    uint32_t wavelength = start_nm;
    for (size_t i = 0; i < n; ++i) {
        const double lambda = wavelength * 1e-9;
        const double lambda5 = lambda * lambda * lambda * lambda * lambda;
        const double value = c1 / (kPi * lambda5 * (std::exp(c2 / (lambda * temperature)) - 1));
        spectrum[i] = {wavelength, value};
        if (wavelength == 560)
            scale = 1 / value;
        wavelength += step_nm;
    }
    for (size_t i = 0; i < n; ++i)
        spectrum[i].value *= scale;
    return spectrum;
}

// --- Tristimulus values of a spectrum ----------------------------------------------------

namespace {

constexpr uint32_t kObserverFirstNm = 360;
static_assert(gCIE1931StandardObserver2deg_1nm[0].wavelength == kObserverFirstNm);
static_assert(gNumCIE1931StandardObserver2deg_1nm == 471);

XYZColor normalised_to_Y(double X, double Y, double Z)
{
    return {X / Y, 1, Z / Y, 1};
}

} // namespace

XYZColor XYZ_from_spectrum(const Spectrum *samples, unsigned count)
{
    if (!samples || count < 2 || samples[0].wavelength < kObserverFirstNm ||
        samples[count - 1].wavelength >= 831)
        return {0, 0, 0, 0};

    // The spacing comes from the first two samples; a spectrum whose later samples are not
    // evenly spaced must still not read past the table.
    const uint64_t first_row = samples[0].wavelength - kObserverFirstNm;
    const uint64_t spacing = uint32_t(samples[1].wavelength - samples[0].wavelength);
    if (first_row + (count - 1) * spacing >= gNumCIE1931StandardObserver2deg_1nm)
        return {0, 0, 0, 0};

    double X = 0, Y = 0, Z = 0;
    for (unsigned i = 0; i < count; ++i) {
        const ColorMatchingRow &cmf = gCIE1931StandardObserver2deg_1nm[first_row + i * spacing];
        const double w = (i == 0 || i == count - 1) ? 0.5 : 1.0;
        const double v = w * samples[i].value;
        X += v * cmf.xbar;
        Y += v * cmf.ybar;
        Z += v * cmf.zbar;
    }
    return normalised_to_Y(X, Y, Z);
}

XYZColor XYZ_from_black_body_temp(double temperature)
{
    constexpr double c1L = 1.1910428681415875e-16; // 2hc², W m² sr⁻¹
    constexpr double c2 = 0.014387769599838155;    // hc/k, m K
    double X = 0, Y = 0, Z = 0;
    for (size_t i = 0; i < gNumCIE1931StandardObserver2deg_1nm; ++i) {
        const ColorMatchingRow &cmf = gCIE1931StandardObserver2deg_1nm[i];
        const double lambda = cmf.wavelength * 1e-9;
        const double lambda5 = lambda * lambda * lambda * lambda * lambda;
        const double M = c1L / (lambda5 * (std::exp(c2 / (lambda * temperature)) - 1));
        const double w = (i == 0 || i == gNumCIE1931StandardObserver2deg_1nm - 1) ? 0.5 : 1.0;
        X += w * M * cmf.xbar;
        Y += w * M * cmf.ybar;
        Z += w * M * cmf.zbar;
    }
    return normalised_to_Y(X, Y, Z);
}
