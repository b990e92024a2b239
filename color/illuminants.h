#pragma once
// Illuminant and black-body spectra, and the white of a spectrum.
//
// Spectra are arrays of `Spectrum` samples at a fixed step (spectrum.h); creators return an
// owning SpectrumBuffer, empty for "none". Nothing reports: rejected ranges and out-of-range
// temperatures give an empty buffer, rejected spectra give a zero XYZ, and other bad numbers
// give IEEE infinities or NaN. Tabulated data: color/data/. References (docs/references.md):
// [CIE015-2004], [CODATA2018].

#include "chromaticity.h"
#include "color_types.h"
#include "spectrum.h"

// --- CIE daylight ------------------------------------------------------------------------
// [CIE015-2004] 3.1, with T corrected from the nominal temperature by 1.4388 / 1.4380 (the
// radiation constant c2 of the time of the daylight tables to the current one):
//   4000 K ≤ T ≤ 7000 K:   xD = −4.6070e9/T³ + 2.9678e6/T² + 0.09911e3/T + 0.244063
//   7000 K < T ≤ 25000 K:  xD = −2.0064e9/T³ + 1.9018e6/T² + 0.24748e3/T + 0.237040
//   yD = −3.000 xD² + 2.870 xD − 0.275
// Relative power S(λ) = S0(λ) + M1 S1(λ) + M2 S2(λ) from the basis gSLambdaConstants, with
//   M = 0.0241 + 0.2562 xD − 0.7341 yD,
//   M1 = (−1.3515 − 1.7703 xD + 5.9114 yD) / M,   M2 = (0.0300 − 31.4424 xD + 30.0717 yD) / M.
// M1 and M2 are not rounded to three decimals here, so a spectrum differs from the published
// D65 table by up to 0.0005 (|S1| + |S2|) on its 100 scale.

// Chromaticity of the CIE daylight illuminant of nominal temperature T (kelvin).
// Result: (xD, yD); (0, 0) when the corrected temperature is outside 4000 to 25000 K (the
// nominal range is about 3997.8 to 24986.1 K) or NaN. The corrected 7000 K takes the first
// formula.
// Example: 6500 (corrected 6503.616) gives (0.3127202732603744, 0.3291252763331448).
xyChromaticity xy_from_CIE_D_illuminant_temp(double temperature);

// Relative spectral power of the CIE daylight illuminant of chromaticity x, y.
// start_nm, end_nm: 300 ≤ start < end ≤ 830. The result has (end − start) / 5 + 1 samples
// labelled start, start + 5, ..., scaled so that the sample labelled 560 nm is exactly 1
// (unscaled when no label is 560, e.g. for a start that is not a multiple of 5).
// Kept on purpose: the labels always advance by 5 nm while step_nm / 5 (integer division)
// moves the table row, so with a step other than 5 to 9 the labels and the rows part company
// (a step below 5 repeats the first row). Result: empty when the range is rejected, when the
// last row read, (start − 300) / 5 + (n − 1)·(step / 5), would lie past the table's 830 nm
// row (e.g. 300 to 830 at step 10), or when memory runs out.
// Example: (300, 830, 5, 0.31273218603656117, 0.3291372783929711), where M1 = −0.295 and
// M2 = −0.689, gives 107 samples, the one at 560 nm exactly 1: the published D65 table
// divided by 100, within its rounding.
SpectrumBuffer create_spectrum_for_CIE_D_illuminant_xy(unsigned start_nm, unsigned end_nm,
                                                       unsigned step_nm, double x, double y);

// Relative spectral power of the CIE daylight illuminant of nominal temperature T (kelvin):
// create_spectrum_for_CIE_D_illuminant_xy at xy_from_CIE_D_illuminant_temp(T). Result: as
// there, or empty when that chromaticity is (0, 0) (x or y of 0).
// Example: (300, 830, 5, 6500) gives 107 samples within 0.0005 (|S1| + |S2|) / 100 of the
// published D65 table divided by 100.
SpectrumBuffer create_spectrum_for_CIE_D_illuminant_temp(unsigned start_nm, unsigned end_nm,
                                                         unsigned step_nm, double temperature);

// --- Black body --------------------------------------------------------------------------
// Planck's law [CODATA2018], λ in metres and T in kelvin:
//   M(λ) = c1 / (π λ⁵ (exp(c2 / (λ T)) − 1))
// Kept on purpose: the creator uses the rounded c1 = 3.74183e-16 W m² and c2 = 0.014388 m K,
// while XYZ_from_black_body_temp uses c1 / π = 1.1910428681415875e-16 W m² sr⁻¹ and
// c2 = 0.014387769599838155 m K, the exact values of the 2019 SI.

// Relative spectral radiance of a Planckian radiator at temperature T (kelvin).
// start_nm < end_nm ≤ 1000 (no lower bound on start; 0 nm gives a NaN sample), step_nm ≥ 1.
// Result: (end − start) / step + 1 samples at start, start + step, ..., scaled so that the
// sample at 560 nm is exactly 1 (unscaled when 560 is not among the wavelengths); empty for
// a rejected range, a step of 0, or when memory runs out. T ≤ 0 or NaN gives NaN values.
// Example: (380, 780, 10, 5000) gives 41 samples; the one at 560 nm is 1, the one at 380 nm
// 0.6061660244931844 and the one at 780 nm 0.8285985032828219.
SpectrumBuffer create_spectrum_for_black_body_temp(unsigned start_nm, unsigned end_nm,
                                                   unsigned step_nm, double temperature);

// --- Tristimulus values of a spectrum ----------------------------------------------------
// Trapezoid rule over the CIE 1931 2° functions gCIE1931StandardObserver2deg_1nm [ISO11664-1],
// the spectrum taken as the light itself (no separate illuminant):
//   X = Σ wi S(λi) x̄(λi),  Y = Σ wi S(λi) ȳ(λi),  Z = Σ wi S(λi) z̄(λi),
//   wi = 0.5 for the first and the last sample, 1 for the others; result (X/Y, 1, Z/Y, 1).

// White of a spectrum: its XYZ normalised to Y = 1.
// samples, count: count samples whose spacing is taken from the first two and assumed
// uniform; they must lie within 360 to 830 nm. Result: (X / Y, 1, Z / Y, 1); (0, 0, 0, 0)
// when samples is null, count < 2, the first wavelength is below 360 nm, the last one is
// 831 nm or more, or the uniform spacing from the first would run past 830 nm. A spectrum
// with Y = 0 gives infinities or NaN.
// Example: a flat spectrum from 360 to 830 nm at 1 nm gives (1.0000794426571655, 1,
// 1.000327852548394, 1), the ratios of the published column sums less half the end rows.
XYZColor XYZ_from_spectrum(const Spectrum *samples, unsigned count);

// White of a Planckian radiator at temperature T (kelvin): the trapezoid sum above over all
// 471 rows, 360 to 830 nm at 1 nm, with the exact radiation constants.
// Result: (X / Y, 1, Z / Y, 1); T ≤ 0 or NaN gives NaN.
// Example: 2856 K, the temperature of illuminant A, gives (1.0984390278901164, 1,
// 0.3559803843807544, 1), chromaticity (0.447535, 0.407428); A's published white, summed from
// 380 to 780 nm at 5 nm, is (0.44758, 0.40745) [CIE015-2004] Table T.3.
XYZColor XYZ_from_black_body_temp(double temperature);
