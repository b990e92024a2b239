// Weights, transfer curves and lightness against [IEC61966-2-1], [ITU-R-BT709], [SMPTE240M],
// [CIE015-2004], hand calculation, and LittleCMS's CIELAB for the lightness scale.
#include "rgb_transfer.h"

#include "tolerance.h"

#include <lcms2.h>

#include <cmath>
#include <limits>

namespace {

const double nan = std::numeric_limits<double>::quiet_NaN();
const double inf = std::numeric_limits<double>::infinity();

// Each curve through its rgb_ form (alpha must survive); the E709 forms must agree with theirs.
double through(void (*curve)(RGBColor *), double v, void (*single)(double *) = nullptr)
{
    RGBColor c{v, v, v, 0.25};
    curve(&c);
    EXPECT_EQ(c.alpha, 0.25);
    if (single) {
        single(&v);
        EXPECT_CLOSE(c.g, v, 0);
    }
    return c.b;
}
double sRGB_decoded(double v)
{
    return through(rgb_sRGB_to_linear, v);
}
double sRGB_encoded(double v)
{
    return through(rgb_linear_to_sRGB, v);
}
double E709_decoded(double v)
{
    return through(rgb_Rec709_to_linear, v, E709_to_linear);
}
double E709_encoded(double v)
{
    return through(rgb_linear_to_Rec709, v, linear_to_E709);
}

TEST(Weights, KeptFourDigitSetsWhiteSumsAndPublishedRoundings)
{
    struct Case {
        const char *name;
        double (*fn)(double, double, double);
        double red, green, blue;
    };
    const Case cases[] = {
        {"luminance NTSC", luminance_from_linear_NTSC, 0.299, 0.5864, 0.1146},
        {"luma NTSC", luma_from_gamma_NTSC, 0.299, 0.5864, 0.1146},
        {"luma SMPTE 240M", luma_from_gamma_SMPTE_240M, 0.2124, 0.7011, 0.0866},
        {"luminance sRGB", luminance_from_linear_sRGB, 0.212671, 0.71516, 0.072169},
        {"luma sRGB", luma_from_gamma_sRGB, 0.212671, 0.71516, 0.072169},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.fn(1, 0, 0), c.red);
        EXPECT_EQ(c.fn(0, 1, 0), c.green);
        EXPECT_EQ(c.fn(0, 0, 1), c.blue);
    }
    // White: NTSC and sRGB sum to 1; the kept SMPTE 240M digits sum to 1.0001.
    EXPECT_CLOSE(luminance_from_linear_NTSC(1, 1, 1), 1, kTolUlps);
    EXPECT_CLOSE(luminance_from_linear_sRGB(1, 1, 1), 1, kTolUlps);
    EXPECT_CLOSE(luma_from_gamma_SMPTE_240M(1, 1, 1), 1.0001, kTolUlps);
    // [SMPTE240M] prints 0.212, 0.701, 0.087: the kept weights round to them.
    EXPECT_CLOSE(luma_from_gamma_SMPTE_240M(1, 0, 0), 0.212, 5e-4);
    EXPECT_CLOSE(luma_from_gamma_SMPTE_240M(0, 1, 0), 0.701, 5e-4);
    EXPECT_CLOSE(luma_from_gamma_SMPTE_240M(0, 0, 1), 0.087, 5e-4);
}

TEST(SRGBCurve, PublishedValuesAndBreakPointsOnTheLinearSide)
{
    // [IEC61966-2-1]: ((0.5 + 0.055) / 1.055)^2.4 = 0.526066^2.4 = 0.214041140.
    EXPECT_CLOSE(sRGB_decoded(0.5), 0.214041140, 1e-9);
    EXPECT_CLOSE(sRGB_encoded(0.21404114048223255), 0.5, kTolRoundTrip);
    EXPECT_CLOSE(sRGB_decoded(128 / 255.0), 0.2158605, 1e-7); // 8-bit code 128
    EXPECT_EQ(sRGB_decoded(0), 0);
    EXPECT_CLOSE(sRGB_decoded(1), 1, kTolUlps);
    EXPECT_CLOSE(sRGB_encoded(1), 1, kTolUlps);
    // 0.04045 takes the linear segment: 0.04045 / 12.92. The next double up takes the power
    // segment, 2.3e-9 higher (the two segments do not quite meet).
    EXPECT_CLOSE(sRGB_decoded(0.04045), 0.0031308049535603713, kTolUlps);
    EXPECT_CLOSE(sRGB_decoded(std::nextafter(0.04045, 1)), 0.0031308072830676845, 1e-15);
    // 0.0031308 × 12.92 = 0.040449936; above, 1.055 v^(1/2.4) − 0.055 = 0.0404499075.
    EXPECT_CLOSE(sRGB_encoded(0.0031308), 0.040449936, kTolUlps);
    EXPECT_CLOSE(sRGB_encoded(std::nextafter(0.0031308, 1)), 0.04044990748269014, 1e-15);
    EXPECT_CLOSE(sRGB_decoded(-0.1), -0.1 / 12.92, kTolUlps); // negative: linear segment
}

TEST(Rec709Curve, PublishedValuesAndTheGapBetweenItsSegments)
{
    // [ITU-R-BT709] OETF: 4.5 L up to 0.018, 1.099 L^0.45 − 0.099 above.
    EXPECT_CLOSE(E709_encoded(0.018), 0.081, kTolUlps);
    EXPECT_CLOSE(E709_decoded(0.081), 0.018, kTolUlps);
    EXPECT_CLOSE(E709_encoded(1), 1, kTolUlps);
    EXPECT_CLOSE(E709_decoded(1), 1, kTolUlps);
    // 18 % grey: 0.18^0.45 = e^(0.45 ln 0.18) = 0.4622455; × 1.099 − 0.099 = 0.4090077.
    EXPECT_CLOSE(E709_encoded(0.18), 0.4090077288641504, kTolReference);
    EXPECT_CLOSE(E709_decoded(0.4090077288641504), 0.18, kTolRoundTrip);
    // The printed constants leave a gap: just above 0.018 the power segment starts at
    // 1.099 × 0.018^0.45 − 0.099 = 0.0812479, and just above 0.081 the decoder gives
    // (0.180 / 1.099)^(1/0.45) = 0.0179450, inside the linear segment.
    EXPECT_CLOSE(E709_encoded(std::nextafter(0.018, 1)), 0.08124794403514046, 1e-15);
    EXPECT_CLOSE(E709_decoded(std::nextafter(0.081, 1)), 0.017945023366747796, 1e-15);
}

TEST(TransferCurves, RoundTripsOutsideTheBreakPointGaps)
{
    // Encoded values in (0.040449936, 0.04045] (sRGB) and [0.081, 0.0812479) (Rec. 709) decode
    // to the other side of the encoder's break point (0.081 / 4.5 is a hair above 0.018) and
    // come back off by up to 3e-8 and 2.5e-4; elsewhere a round trip is exact to rounding.
    for (int i = 0; i <= 2000; ++i) {
        const double v = i / 2000.0;
        SCOPED_TRACE(v);
        if (!(v > 0.040449936 && v <= 0.04045)) {
            EXPECT_CLOSE(sRGB_encoded(sRGB_decoded(v)), v, kTolRoundTrip);
        }
        if (!(v >= 0.081 && v < 0.0812480)) {
            EXPECT_CLOSE(E709_encoded(E709_decoded(v)), v, kTolRoundTrip);
        }
    }
    EXPECT_CLOSE(sRGB_encoded(sRGB_decoded(0.04045)), 0.04045, 3e-8);
}

TEST(Lightness, CIELightnessOverHundredAndItsCubicInverse)
{
    // [CIE015-2004]: 1.16 × 0.5^(1/3) − 0.16 = 1.16 × 0.7937005 − 0.16 = 0.7606926.
    EXPECT_CLOSE(lightness_from_luminance(0.5, 1), 0.7606926101415556, kTolReference);
    EXPECT_CLOSE(lightness_from_luminance(50, 100), 0.7606926101415556, kTolReference);
    EXPECT_CLOSE(lightness_from_luminance(1, 1), 1, kTolUlps);
    // 216/24389 × 24389/27 / 100 = 8 / 100 from the linear segment; the cube root meets it.
    EXPECT_CLOSE(lightness_from_luminance(216.0 / 24389, 1), 0.08, kTolUlps);
    EXPECT_CLOSE(lightness_from_luminance(std::nextafter(216.0 / 24389, 1), 1), 0.08, 1e-15);
    EXPECT_CLOSE(lightness_from_luminance(0.001, 1), 0.009032962962962963, kTolUlps);

    // ((0.5 + 0.16) / 1.16)³ = 0.5689655³ = 0.1841865.
    EXPECT_CLOSE(luminance_from_lightness(0.5), 0.18418651851244416, kTolRoundTrip);
    EXPECT_CLOSE(luminance_from_lightness(1), 1, kTolUlps);
    // At and below 0.08 the linear segment L / 9.03; kept: not the forward slope, so a dark
    // value comes back 903.2963 / 903 times itself: 0.05 → 0.0500164.
    EXPECT_CLOSE(luminance_from_lightness(0.08), 0.08 * 0.1107419712070875, kTolUlps);
    EXPECT_CLOSE(luminance_from_lightness(0.05), 0.005537098560354375, kTolUlps);
    EXPECT_CLOSE(lightness_from_luminance(luminance_from_lightness(0.05), 1), 0.05001640621795661,
                 kTolRoundTrip);
    for (int i = 9; i <= 100; ++i) { // above the break the cubic inverts the cube root
        const double L = i / 100.0;
        EXPECT_CLOSE(lightness_from_luminance(luminance_from_lightness(L), 1), L, kTolRoundTrip);
    }
}

TEST(Lightness, AgreesWithLittleCMSLab)
{
    const cmsCIEXYZ white{0.9642, 1.0, 0.8249};
    for (int i = 0; i <= 1000; ++i) {
        const double Y = i / 1000.0;
        const cmsCIEXYZ xyz{Y * white.X, Y, Y * white.Z};
        cmsCIELab lab;
        cmsXYZ2Lab(&white, &lab, &xyz);
        SCOPED_TRACE(Y);
        EXPECT_CLOSE(lightness_from_luminance(Y, 1), lab.L / 100, kTolRoundTrip);
    }
}

TEST(DegenerateInput, CurvesPassNaNAndEveryFunctionEnds)
{
    const double values[] = {-1, 0, 1, inf, -inf, nan};
    for (double v : values) {
        SCOPED_TRACE(v);
        const bool isNaN = std::isnan(v);
        EXPECT_EQ(std::isnan(sRGB_decoded(v)), isNaN);
        EXPECT_EQ(std::isnan(sRGB_encoded(v)), isNaN);
        EXPECT_EQ(std::isnan(E709_decoded(v)), isNaN);
        EXPECT_EQ(std::isnan(E709_encoded(v)), isNaN);
        EXPECT_EQ(std::isnan(luminance_from_lightness(v)), isNaN);
        for (double w : values) {
            (void)lightness_from_luminance(v, w);
            (void)luma_from_gamma_sRGB(v, w, v);
            RGBColor c{v, v, v, 1};
            rgb_display_gamma_to_linear(&c, w);
            rgb_image_gamma_to_linear(&c, w);
        }
    }
    EXPECT_CLOSE(lightness_from_luminance(-1, 1), -9.032962962962963, 1e-14); // linear
    EXPECT_CLOSE(lightness_from_luminance(1, 0), inf, 0);
    EXPECT_TRUE(std::isnan(lightness_from_luminance(0, 0)));
}

} // namespace
