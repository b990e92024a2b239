// Illuminant and black-body spectra and the white of a spectrum.
//
// References: [CIE015-2004] 3.1 (daylight), Table T.1 (D65, printed in data/cie/), T.3 (white
// points); [ISO11664-1] column sums of the 1 nm observer; [Robertson1968] locus points;
// [CODATA2018] radiation constants. Worked values were computed outside this code base in
// exact decimal arithmetic (Python `fractions` and `decimal`) from the published formulas.
#include "data/cie_daylight_basis_S0_S1_S2_5nm.h"
#include "data/cie_illuminant_A_5nm.h"
#include "data/cie_illuminant_D65_5nm.h"
#include "data/robertson_isotemperature_lines.h"
#include "illuminants.h"

#include "cie_csv.h"
#include "tolerance.h"

#include <climits>
#include <cmath>
#include <limits>
#include <string>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The trapezoid halves the first and last samples, which the CIE's plain sums count in full;
// from 380 to 780 nm that moves the published white points of A and D65 by up to 1.1e-5.
constexpr double kTolTrapezoidEnds = 1.5e-5;

xyChromaticity xyOf(XYZColor XYZ)
{
    const double S = XYZ.X + XYZ.Y + XYZ.Z;
    return {XYZ.X / S, XYZ.Y / S};
}

// --- CIE daylight chromaticity -----------------------------------------------------------

TEST(DaylightChromaticity, D65FromItsNominalTemperature)
{
    // T = 6500 · 1.4388/1.4380 = 6503.616; xD = −4.607e9/T³ + 2.9678e6/T² + 99.11/T + 0.244063
    // = 0.3127202732603744, yD = −3 xD² + 2.87 xD − 0.275 = 0.3291252763331448.
    const xyChromaticity xy = xy_from_CIE_D_illuminant_temp(6500);
    EXPECT_CLOSE(xy.x, 0.3127202732603744, 1e-15);
    EXPECT_CLOSE(xy.y, 0.3291252763331448, 1e-15);
    // [CIE015-2004] Table T.3 gives D65 as (0.31272, 0.32903) from its tabulated spectrum;
    // the daylight locus yD is a fit that lies 1.0e-4 above it here.
    EXPECT_CLOSE(xy.x, 0.31272, kTolPublished5);
    EXPECT_CLOSE(xy.y, 0.32903, 1.5e-4);
}

TEST(DaylightChromaticity, RangeOfTheCorrectedTemperature)
{
    struct Case {
        double nominal;
        bool inRange;
    };
    // 4000 / 1.000556328233658 = 3997.7759, 25000 / 1.000556328233658 = 24986.0995.
    const Case cases[] = {{3997.77, false}, {3997.78, true},  {4000, true},
                          {24986.09, true}, {24986.1, false}, {3000, false},
                          {30000, false},   {0, false},       {kNaN, false}};
    for (const Case &c : cases) {
        const xyChromaticity xy = xy_from_CIE_D_illuminant_temp(c.nominal);
        EXPECT_EQ(xy.x != 0, c.inRange) << c.nominal;
        EXPECT_EQ(xy.y != 0, c.inRange) << c.nominal;
        EXPECT_EQ(bool(create_spectrum_for_CIE_D_illuminant_temp(300, 830, 5, c.nominal)),
                  c.inRange)
            << c.nominal;
    }
}

TEST(DaylightChromaticity, CorrectedSevenThousandTakesTheFirstFormula)
{
    // The nominal temperature whose corrected value is exactly 7000 K.
    const double factor = 1.000556328233658;
    double nominal = 7000 / factor;
    for (int i = 0; i < 4 && nominal * factor != 7000; ++i)
        nominal = std::nextafter(nominal, nominal * factor < 7000 ? 1e9 : 0.0);
    ASSERT_EQ(nominal * factor, 7000.0);
    // First formula at 7000: 0.3053574314868805; the second would give 0.30535696793002914.
    EXPECT_CLOSE(xy_from_CIE_D_illuminant_temp(nominal).x, 0.3053574314868805, 1e-15);
    EXPECT_CLOSE(xy_from_CIE_D_illuminant_temp(nominal).y, 0.32164634547455223, 1e-15);
}

// --- CIE daylight spectra ----------------------------------------------------------------

// The chromaticity at which M1 and M2 are exactly −0.295 and −0.689, the values rounded to
// three decimals with which [CIE015-2004] computes its D65 table: solving
// M1 (0.0241 + 0.2562x − 0.7341y) = −1.3515 − 1.7703x + 5.9114y and the same for M2.
constexpr double kD65RoundedMx = 0.31273218603656117, kD65RoundedMy = 0.3291372783929711;

// The published D65 table (data/cie/) divided by 100: 10 nm rows within half a unit of their
// last printed digit; the 5 nm rows between, the mean of two rounded rows rounded again,
// within one unit.
void expectPublishedD65(const Spectrum *samples, double extra(size_t row))
{
    const CieCsv csv = readCieCsv("cie_illuminant_D65_5nm.csv");
    ASSERT_EQ(csv.rows.size(), 107u);
    for (size_t i = 0; i < 107; ++i) {
        const std::string &printed = csv.rows[i][1];
        const double unit = 2 * halfUnitOfLastDigit(printed);
        const double tol = (samples[i].wavelength % 10 == 0 ? unit / 2 : unit) + extra(i);
        SCOPED_TRACE(csv.rows[i][0] + " nm");
        EXPECT_EQ(samples[i].wavelength, unsigned(std::stoul(csv.rows[i][0])));
        EXPECT_CLOSE(samples[i].value * 100, csvDouble(printed), tol + 1e-9);
    }
}

TEST(DaylightSpectrum, BasisWithTheRoundedCoefficientsIsThePublishedD65)
{
    const SpectrumBuffer d65 =
        create_spectrum_for_CIE_D_illuminant_xy(300, 830, 5, kD65RoundedMx, kD65RoundedMy);
    ASSERT_TRUE(d65);
    expectPublishedD65(d65.get(), [](size_t) { return 0.0; });
    EXPECT_EQ(d65[(560 - 300) / 5].value, 1.0);
}

TEST(DaylightSpectrum, NominalTemperatureIsThePublishedD65WithinTheCoefficientRounding)
{
    // At 6500 K, M1 = −0.294649 and M2 = −0.689128 are not rounded, so each row may differ
    // from the table by 0.0005 (|S1| + |S2|) more.
    const SpectrumBuffer d65 = create_spectrum_for_CIE_D_illuminant_temp(300, 830, 5, 6500);
    ASSERT_TRUE(d65);
    expectPublishedD65(d65.get(), [](size_t row) {
        return 0.0005 *
               (std::fabs(gSLambdaConstants[row].S1) + std::fabs(gSLambdaConstants[row].S2));
    });
}

TEST(DaylightSpectrum, RejectedRanges)
{
    struct Case {
        const char *name;
        unsigned start, end, step;
    };
    const Case cases[] = {
        {"start below 300", 299, 830, 5},
        {"end above 830", 300, 831, 5},
        {"start equal to end", 500, 500, 5},
        {"start after end", 600, 500, 5},
        {"rows at step 10 run past 830 nm", 300, 830, 10},
        {"rows at step 10 from 300 to 570 end at 840 nm", 300, 570, 10},
        {"huge step", 300, 310, UINT_MAX},
    };
    for (const Case &c : cases)
        EXPECT_FALSE(create_spectrum_for_CIE_D_illuminant_xy(c.start, c.end, c.step, 0.3127, 0.329))
            << c.name;
}

TEST(DaylightSpectrum, LabelsAdvanceByFiveWhileTheStepMovesTheRow)
{
    // Kept on purpose: from 300 to 565 at step 10 there are 265/5 + 1 = 54 samples labelled
    // 300, 305, ..., 565, but sample i reads row 2i (300 + 10i nm); the one labelled 560 (i 52)
    // reads 820 nm, so the scale is 1 / D65(820).
    const SpectrumBuffer s =
        create_spectrum_for_CIE_D_illuminant_xy(300, 565, 10, kD65RoundedMx, kD65RoundedMy);
    ASSERT_TRUE(s);
    const double d820 = gStandardIlluminantSpectrum_D65[104].value;
    for (unsigned i = 0; i < 54; ++i) {
        SCOPED_TRACE("sample " + std::to_string(i));
        EXPECT_EQ(s[i].wavelength, 300 + 5 * i);
        // Half a unit of the printed digits (at most 0.0005) over D65(820) = 57.4406, in the
        // numerator and the denominator: below 1.2e-5.
        EXPECT_CLOSE(s[i].value, gStandardIlluminantSpectrum_D65[2 * i].value / d820, 2e-5);
    }
    EXPECT_EQ(s[52].value, 1.0);

    // Steps 5 to 9 all move one row; a step below 5 keeps reading the first row, so with a
    // label of 560 every sample is 1.
    const SpectrumBuffer five = create_spectrum_for_CIE_D_illuminant_temp(300, 830, 5, 6500);
    const SpectrumBuffer nine = create_spectrum_for_CIE_D_illuminant_temp(300, 830, 9, 6500);
    const SpectrumBuffer zero = create_spectrum_for_CIE_D_illuminant_temp(300, 830, 0, 6500);
    ASSERT_TRUE(five && nine && zero);
    for (size_t i = 0; i < 107; ++i) {
        EXPECT_EQ(nine[i].value, five[i].value);
        EXPECT_CLOSE(zero[i].value, 1.0, kTolUlps);
    }
}

// --- Black body --------------------------------------------------------------------------

TEST(BlackBodySpectrum, ScaledToOneAt560nm)
{
    // With c2 = 0.014388: 380 nm relative to 560 nm at 5000 K is
    // (560/380)⁵ (e^(0.014388/(560e-9·5000)) − 1) / (e^(0.014388/(380e-9·5000)) − 1).
    const SpectrumBuffer s = create_spectrum_for_black_body_temp(380, 780, 10, 5000);
    ASSERT_TRUE(s);
    for (unsigned i = 0; i < 41; ++i)
        EXPECT_EQ(s[i].wavelength, 380 + 10 * i);
    EXPECT_EQ(s[18].value, 1.0);
    EXPECT_CLOSE(s[0].value, 0.6061660244931849, 1e-14);
    EXPECT_CLOSE(s[40].value, 0.8285985032828223, 1e-14);
}

TEST(BlackBodySpectrum, RejectedRangesAndDegenerateArguments)
{
    EXPECT_FALSE(create_spectrum_for_black_body_temp(380, 1001, 5, 5000)) << "end above 1000";
    EXPECT_TRUE(create_spectrum_for_black_body_temp(380, 1000, 5, 5000)) << "end 1000";
    EXPECT_FALSE(create_spectrum_for_black_body_temp(500, 500, 5, 5000)) << "start = end";
    EXPECT_FALSE(create_spectrum_for_black_body_temp(600, 500, 5, 5000)) << "start > end";
    EXPECT_FALSE(create_spectrum_for_black_body_temp(380, 780, 0, 5000)) << "step 0";

    // A step beyond the range gives the first sample alone.
    const SpectrumBuffer one = create_spectrum_for_black_body_temp(380, 780, UINT_MAX, 5000);
    ASSERT_TRUE(one);
    EXPECT_EQ(one[0].wavelength, 380u);

    // No lower bound on start: 0 nm is a NaN sample, the others are finite.
    const SpectrumBuffer fromZero = create_spectrum_for_black_body_temp(0, 1000, 10, 5000);
    ASSERT_TRUE(fromZero);
    EXPECT_TRUE(std::isnan(fromZero[0].value));
    EXPECT_EQ(fromZero[56].value, 1.0);
    EXPECT_TRUE(std::isfinite(fromZero[1].value));

    const SpectrumBuffer nan = create_spectrum_for_black_body_temp(380, 780, 10, kNaN);
    ASSERT_TRUE(nan);
    EXPECT_TRUE(std::isnan(nan[0].value));
}

// --- Tristimulus values of a spectrum ----------------------------------------------------

TEST(SpectrumWhite, FlatSpectrumAt1nmIsTheRatioOfThePublishedColumnSums)
{
    // [ISO11664-1] sums 106.865469489595, 106.856917101172, 106.892251278636, less half the
    // first and last rows (360: 0.0001299, 0.000003917, 0.0006061; 830: 1.251141e-06,
    // 4.5181e-07, 0): X/Y = 1.0000794426571655, Z/Y = 1.000327852548394.
    Spectrum flat[471];
    for (unsigned i = 0; i < 471; ++i)
        flat[i] = {360 + i, 1.0};
    const XYZColor XYZ = XYZ_from_spectrum(flat, 471);
    EXPECT_CLOSE(XYZ.X, 1.0000794426571655, 1e-13);
    EXPECT_EQ(XYZ.Y, 1.0);
    EXPECT_CLOSE(XYZ.Z, 1.000327852548394, 1e-13);
    EXPECT_EQ(XYZ.alpha, 1.0);
}

TEST(SpectrumWhite, TwoSamplesWeighHalfEach)
{
    // 555 nm: 0.5120501, 1, 0.005749999; 560 nm: 0.5945, 0.995, 0.0039.
    // Values 2 and 4 with weights ½: X = 0.5120501 + 1.189, Y = 1 + 1.99, Z = 0.005749999 + 0.0078.
    const Spectrum two[] = {{555, 2.0}, {560, 4.0}};
    const XYZColor XYZ = XYZ_from_spectrum(two, 2);
    EXPECT_CLOSE(XYZ.X, 1.7010501 / 2.99, kTolUlps);
    EXPECT_EQ(XYZ.Y, 1.0);
    EXPECT_CLOSE(XYZ.Z, 0.013549999 / 2.99, kTolUlps);
}

TEST(SpectrumWhite, TabulatedIlluminantsGiveTheirPublishedWhitePoints)
{
    // [CIE015-2004] Table T.3: A (0.44758, 0.40745), D65 (0.31272, 0.32903), 380 to 780 nm.
    const Spectrum *a = gStandardIlluminantSpectrum_A + (380 - 300) / 5;
    const Spectrum *d65 = gStandardIlluminantSpectrum_D65 + (380 - 300) / 5;
    const xyChromaticity whiteA = xyOf(XYZ_from_spectrum(a, 81));
    const xyChromaticity whiteD65 = xyOf(XYZ_from_spectrum(d65, 81));
    EXPECT_CLOSE(whiteA.x, 0.44758, kTolPublished5 + kTolTrapezoidEnds);
    EXPECT_CLOSE(whiteA.y, 0.40745, kTolPublished5 + kTolTrapezoidEnds);
    EXPECT_CLOSE(whiteD65.x, 0.31272, kTolPublished5 + kTolTrapezoidEnds);
    EXPECT_CLOSE(whiteD65.y, 0.32903, kTolPublished5 + kTolTrapezoidEnds);
}

TEST(SpectrumWhite, RejectedSpectraGiveZeros)
{
    const Spectrum from355[] = {{355, 1}, {360, 1}, {365, 1}};
    const Spectrum to831[] = {{821, 1}, {826, 1}, {831, 1}};
    // Spaced 100 nm by its first two samples: 360, 460, ..., 860 would run past the table.
    const Spectrum uneven[] = {{360, 1}, {460, 1}, {470, 1}, {480, 1}, {490, 1}, {500, 1}};
    // A second sample before the first makes the spacing wrap around.
    const Spectrum backwards[] = {{500, 1}, {495, 1}};
    struct Case {
        const char *name;
        const Spectrum *samples;
        unsigned count;
    };
    const Case cases[] = {
        {"null", nullptr, 10},          {"no samples", from355 + 1, 0},
        {"one sample", from355 + 1, 1}, {"starts at 355 nm", from355, 3},
        {"ends at 831 nm", to831, 3},   {"uneven spacing", uneven, 6},
        {"backwards", backwards, 2},
    };
    for (const Case &c : cases) {
        const XYZColor XYZ = XYZ_from_spectrum(c.samples, c.count);
        EXPECT_EQ(XYZ.X, 0) << c.name;
        EXPECT_EQ(XYZ.Y, 0) << c.name;
        EXPECT_EQ(XYZ.Z, 0) << c.name;
        EXPECT_EQ(XYZ.alpha, 0) << c.name;
    }
    // A dark spectrum is accepted and divides by zero.
    const Spectrum dark[] = {{500, 0}, {505, 0}};
    EXPECT_TRUE(std::isnan(XYZ_from_spectrum(dark, 2).X));
}

// --- White of a black body ---------------------------------------------------------------

TEST(BlackBodyWhite, FollowsRobertsonsLocusPoints)
{
    // Robertson's u, v are Planck's law with c2 = 1.4388e-2 m K; at T · c2'/c2 the exact c2'
    // gives the same radiator. Within the table's 5-decimal rounding plus 1e-6 for the
    // summation of the 1 nm table against the original computation.
    for (const IsoTemperatureLine &line : gIsoTempData) {
        if (line.mired == 0)
            continue;
        SCOPED_TRACE(std::to_string(line.mired) + " mired");
        const double T = 1e6 / line.mired * 0.014387769599838155 / 1.4388e-2;
        const XYZColor XYZ = XYZ_from_black_body_temp(T);
        const double D = XYZ.X + 15 * XYZ.Y + 3 * XYZ.Z;
        EXPECT_CLOSE(4 * XYZ.X / D, line.u, kTolPublished5 + 1e-6);
        EXPECT_CLOSE(6 * XYZ.Y / D, line.v, kTolPublished5 + 1e-6);
        EXPECT_EQ(XYZ.Y, 1.0);
        EXPECT_EQ(XYZ.alpha, 1.0);
    }
}

TEST(BlackBodyWhite, IlluminantATemperature)
{
    // Summed independently over the 471 rows: X/Y = 1.0984390278901164, Z/Y = 0.3559803843807544,
    // xy (0.447535, 0.407428). A's published white (0.44758, 0.40745) is summed from 380 to
    // 780 nm at 5 nm over the tabulated (rounded) A: 4.5e-5 away.
    const XYZColor XYZ = XYZ_from_black_body_temp(2856);
    EXPECT_CLOSE(XYZ.X, 1.0984390278901164, 1e-12);
    EXPECT_CLOSE(XYZ.Z, 0.3559803843807544, 1e-12);
    const xyChromaticity xy = xyOf(XYZ);
    EXPECT_CLOSE(xy.x, 0.44758, 5e-5);
    EXPECT_CLOSE(xy.y, 0.40745, 5e-5);

    EXPECT_TRUE(std::isnan(XYZ_from_black_body_temp(0).X));
    EXPECT_TRUE(std::isnan(XYZ_from_black_body_temp(kNaN).X));
}

} // namespace
