// HSB, HSL and HCL: primaries, secondaries and exactly representable examples of the hexcone
// [Smith1978] and double cone [Joblove1978] worked by hand, the kept single-precision steps,
// round trips over grids, the three HCL blends and a degenerate sweep.
#include "hsb_hsl_hcl.h"

#include "hue.h"
#include "tolerance.h"

#include <cmath>
#include <limits>

namespace {

const double nan = std::numeric_limits<double>::quiet_NaN();
const double inf = std::numeric_limits<double>::infinity();

// The inverse conversions take fmod(H, 2) in single precision: H (below 6) narrowed to a float
// is off by at most half a float ulp at 4..8, 2⁻²², so X moves by at most C · 2.4e-7.
constexpr double kTolFloatRemainder = 2.5e-7;
// HCL back to RGB: when the smallest channel is 0 that error can push m a hair below 0, and the
// m < 0 branch then scales the whole colour by luma / (luma − m), which multiplies the error by
// up to the ratio of the largest to the smallest weight, 0.71516 / 0.072169 ≈ 10.
constexpr double kTolHCLRoundTrip = 10 * kTolFloatRemainder;
// fast_atan2 is within 10.2 mrad of the exact angle: 1.63e-3 of a turn, plus the remainder.
constexpr double kTolFastAtanTurns = 1.7e-3;

void expectRGB(const RGBColor &c, const RGBColor &expected, double tol)
{
    EXPECT_CLOSE(c.r, expected.r, tol);
    EXPECT_CLOSE(c.g, expected.g, tol);
    EXPECT_CLOSE(c.b, expected.b, tol);
    EXPECT_EQ(c.alpha, expected.alpha);
}

// Hues in turns compared on the circle, so that 1.0 and 0 are the same place.
void expectSameHue(double hue, double expected, double tol)
{
    EXPECT_CLOSE(angular_distance(expected, hue, 1.0), 0, tol) << "hue " << hue;
}

struct ModelCase {
    const char *name;
    RGBColor rgb;
    double hue;                    // exact, by the sector rule
    double hsbS, hsbB, hslS, hslL; // by hand
};

// Every channel a multiple of 1/4, exact in single precision, so HSB's float minimum matches.
const ModelCase kModelCases[] = {
    // Red: green equals the minimum first, h = 5 − (0 − 1) / 1 = 6, hue 1.0 (kept, = 0).
    {"red", {1, 0, 0, 0.5}, 1.0, 1, 1, 1, 0.5},
    {"yellow: blue minimum, 1 − 0", {1, 1, 0, 0.5}, 1.0 / 6, 1, 1, 1, 0.5},
    {"green: red minimum, 3 − 1", {0, 1, 0, 0.5}, 1.0 / 3, 1, 1, 1, 0.5},
    {"cyan: 3 − 0", {0, 1, 1, 0.5}, 0.5, 1, 1, 1, 0.5},
    {"blue: 3 − (0 − 1)", {0, 0, 1, 0.5}, 2.0 / 3, 1, 1, 1, 0.5},
    {"magenta: green minimum, 5 − 0", {1, 0, 1, 0.5}, 5.0 / 6, 1, 1, 1, 0.5},
    // d = 0.75, L = 0.375, S_HSL = 0.75 / (1 − |0.75 − 1|) = 1.
    {"dark yellow", {0.75, 0.75, 0, 0.5}, 1.0 / 6, 1, 0.75, 1, 0.375},
    {"half green", {0, 0.5, 0, 0.5}, 1.0 / 3, 1, 0.5, 1, 0.25},
    // d = 0.5, L = 0.75, S_HSL = 0.5 / (1 − 0.5) = 1.
    {"pale cyan", {0.5, 1, 1, 0.5}, 0.5, 0.5, 1, 1, 0.75},
    {"pale blue: 3 − (0.5 − 1) / 0.5 = 4", {0.5, 0.5, 1, 0.5}, 2.0 / 3, 0.5, 1, 1, 0.75},
    {"dull magenta", {0.75, 0.25, 0.75, 0.5}, 5.0 / 6, 2.0 / 3, 0.75, 0.5, 0.5},
    // 210°: red minimum, 3 − (0.5 − 0.75) / 0.5 = 3.5; S_HSB = 0.5 / 0.75.
    {"steel blue", {0.25, 0.5, 0.75, 0.5}, 7.0 / 12, 2.0 / 3, 0.75, 0.5, 0.5},
    // 30°: blue minimum, 1 − (0.75 − 0.5) / 0.5 = 0.5.
    {"orange", {0.75, 0.5, 0.25, 0.5}, 1.0 / 12, 2.0 / 3, 0.75, 0.5, 0.5},
    // Greys: d = 0 gives hue 0 and saturation 0 (white: no 0 / 0 in the HSL saturation).
    {"black", {0, 0, 0, 0.5}, 0, 0, 0, 0, 0},
    {"grey", {0.5, 0.5, 0.5, 0.5}, 0, 0, 0.5, 0, 0.5},
    {"white", {1, 1, 1, 0.5}, 0, 0, 1, 0, 1},
};

TEST(HSBAndHSL, PrimariesSecondariesGreysAndQuarterStepColours)
{
    for (const auto &c : kModelCases) {
        SCOPED_TRACE(c.name);
        const HSBColor hsb = hsb_from_rgb(c.rgb);
        EXPECT_CLOSE(hsb.hue, c.hue, kTolUlps);
        EXPECT_CLOSE(hsb.saturation, c.hsbS, kTolUlps);
        EXPECT_CLOSE(hsb.brightness, c.hsbB, kTolUlps);
        EXPECT_EQ(hsb.alpha, 0.5);
        expectRGB(rgb_from_hsb(hsb), c.rgb, kTolFloatRemainder);

        const HSLColor hsl = hsl_from_rgb(c.rgb);
        EXPECT_CLOSE(hsl.hue, c.hue, kTolUlps);
        EXPECT_CLOSE(hsl.saturation, c.hslS, kTolUlps);
        EXPECT_CLOSE(hsl.lightness, c.hslL, kTolUlps);
        EXPECT_EQ(hsl.alpha, 0.5);
        expectRGB(rgb_from_hsl(hsl), c.rgb, kTolFloatRemainder);
    }
}

TEST(HSBAndHSL, OffTheFloatGridHSLStaysExactAndHSBKeepsItsSinglePrecisionHue)
{
    // HSL in double: mn 0.2 is red, d = 0.4, h = 3 − (0.4 − 0.6) / 0.4 = 3.5 → 210°;
    // L = 0.4, S = 0.4 / (1 − |0.8 − 1|) = 0.5.
    const HSLColor hsl = hsl_from_rgb({0.2, 0.4, 0.6, 1});
    EXPECT_CLOSE(hsl.hue, 210.0 / 360, 1e-15);
    EXPECT_CLOSE(hsl.saturation, 0.5, 1e-15);
    EXPECT_CLOSE(hsl.lightness, 0.4, 1e-15);
    expectRGB(rgb_from_hsl(hsl), {0.2, 0.4, 0.6, 1}, kTolFloatRemainder);

    // HSB narrows to float: mn = 0.2f = 0.20000000298023224, mx = 0.6f = 0.6000000238418579,
    // d = 0.40000002086162567. Neither 0.2 nor 0.4 (doubles) equals mn, so the blue line is
    // taken: h = 1 − (0.2 − 0.4) / d = 1.4999999739229692, hue 0.24999999565382822 (≈ 90°,
    // not 210°); S = d / mx = 0.6666666749450892; brightness mx.
    const HSBColor hsb = hsb_from_rgb({0.2, 0.4, 0.6, 1});
    EXPECT_CLOSE(hsb.hue, 0.24999999565382822, kTolUlps);
    EXPECT_CLOSE(hsb.saturation, 0.6666666749450892, kTolUlps);
    EXPECT_EQ(hsb.brightness, double(0.6f));
}

TEST(HexconeInverse, HuesAreTakenByWholeTurnsAndBadHuesGiveNoChroma)
{
    const RGBColor red = rgb_from_hsb({0, 1, 1, 1});
    expectRGB(red, {1, 0, 0, 1}, 0);
    expectRGB(rgb_from_hsb({1.0, 1, 1, 1}), red, 0);
    expectRGB(rgb_from_hsb({-0.25, 1, 1, 1}), rgb_from_hsb({0.75, 1, 1, 1}), 0);
    expectRGB(rgb_from_hsl({2.5, 1, 0.5, 1}), rgb_from_hsl({0.5, 1, 0.5, 1}), 0);
    expectRGB(rgb_from_hsb({1e300, 1, 1, 1}), red, 0); // ends at once: fmod(1e300, 1) = 0
    // No sector: the channels are the offset m alone (brightness − C = 0.8 − 0.4).
    expectRGB(rgb_from_hsb({nan, 0.5, 0.8, 1}), {0.4, 0.4, 0.4, 1}, kTolUlps);
    expectRGB(rgb_from_hsb({inf, 0.5, 0.8, 1}), {0.4, 0.4, 0.4, 1}, kTolUlps);
    // −1e-20 + 1 rounds to 1 exactly, outside [0, 1): no sector either.
    expectRGB(rgb_from_hsb({-1e-20, 0.5, 0.8, 1}), {0.4, 0.4, 0.4, 1}, kTolUlps);
}

TEST(RoundTrips, RGBThroughEachModelAndBack)
{
    // HSB on a grid of eighths (exact in single precision; other values move HSB's hue, as
    // above); HSL and HCL on tenths. The error bounds are the single-precision remainder's.
    for (int i = 0; i <= 8; ++i)
        for (int j = 0; j <= 8; ++j)
            for (int k = 0; k <= 8; ++k) {
                const RGBColor rgb{i / 8.0, j / 8.0, k / 8.0, 0.5};
                SCOPED_TRACE(testing::Message() << i << "/8 " << j << "/8 " << k << "/8");
                expectRGB(rgb_from_hsb(hsb_from_rgb(rgb)), rgb, kTolFloatRemainder);
            }
    for (int i = 0; i <= 10; ++i)
        for (int j = 0; j <= 10; ++j)
            for (int k = 0; k <= 10; ++k) {
                const RGBColor rgb{i / 10.0, j / 10.0, k / 10.0, 0.5};
                SCOPED_TRACE(testing::Message() << i << " " << j << " " << k << " tenths");
                expectRGB(rgb_from_hsl(hsl_from_rgb(rgb)), rgb, kTolFloatRemainder);
                expectRGB(rgb_from_hcl(hcl_from_rgb(rgb)), rgb, kTolHCLRoundTrip);
            }
}

TEST(HCL, ChromaSaturationAndRec709Luma)
{
    // (0.2, 0.4, 0.6): hue as HSL, 7/12; chroma 0.4; saturation 0.4 / 0.6;
    // luma 0.212671·0.2 + 0.71516·0.4 + 0.072169·0.6 = 0.0425342 + 0.286064 + 0.0433014.
    const HCLColor hcl = hcl_from_rgb({0.2, 0.4, 0.6, 0.5});
    EXPECT_CLOSE(hcl.hue, 7.0 / 12, 1e-15);
    EXPECT_CLOSE(hcl.chroma, 0.4, 1e-15);
    EXPECT_CLOSE(hcl.saturation, 2.0 / 3, 1e-15);
    EXPECT_CLOSE(hcl.luma, 0.3718996, 1e-15);
    EXPECT_EQ(hcl.alpha, 0.5);
    // Back: hexcone (0, 0.2, 0.4) has luma 0.1718996, m = 0.2, m + C = 0.6 fits: k = 1.
    // The saturation field is ignored.
    expectRGB(rgb_from_hcl({7.0 / 12, 0.4, 123, 0.3718996, 0.5}), {0.2, 0.4, 0.6, 0.5},
              kTolFloatRemainder);

    const HCLColor grey = hcl_from_rgb({0.5, 0.5, 0.5, 1});
    EXPECT_EQ(grey.hue, 0);
    EXPECT_EQ(grey.chroma, 0);
    EXPECT_EQ(grey.saturation, 0);
    EXPECT_CLOSE(grey.luma, 0.5, kTolUlps);

    const double lumas[] = {0.212671, 0.927831, 0.71516, 0.787329, 0.072169, 0.28484};
    for (int i = 0; i < 6; ++i) { // the six fully saturated colours of the table above
        const HCLColor c = hcl_from_rgb(kModelCases[i].rgb);
        SCOPED_TRACE(kModelCases[i].name);
        EXPECT_CLOSE(c.hue, kModelCases[i].hue, kTolUlps);
        EXPECT_EQ(c.chroma, 1);
        EXPECT_EQ(c.saturation, 1);
        EXPECT_CLOSE(c.luma, lumas[i], 1e-15);
    }
}

TEST(HCL, OutOfCubeRequestsKeepHueAndLumaAndLoseChroma)
{
    // Blue at luma 0.9, chroma 1: hexcone (0, 0, 1), m = 0.9 − 0.072169 = 0.827831;
    // m + C > 1, so k = (1 − 0.9) / (1.827831 − 0.9) = 0.10777824840946248, m = 1 − k.
    expectRGB(rgb_from_hcl({2.0 / 3, 1, 0, 0.9, 1}), {0.8922217515905375, 0.8922217515905375, 1, 1},
              kTolFloatRemainder);
    // Yellow at luma 0.05: hexcone (1, 1, 0), m = 0.05 − 0.927831 < 0, so
    // k = 0.05 / 0.927831 = 0.053889124204731256 and m = 0.
    expectRGB(rgb_from_hcl({1.0 / 6, 1, 0, 0.05, 1}),
              {0.053889124204731256, 0.053889124204731256, 0, 1}, kTolFloatRemainder);

    for (double luma : {0.05, 0.5, 0.9})
        for (int i = 0; i < 36; ++i) {
            const double hue = i / 36.0;
            SCOPED_TRACE(testing::Message() << "luma " << luma << " hue " << hue);
            const RGBColor rgb = rgb_from_hcl({hue, 1, 0, luma, 1});
            for (double c : {rgb.r, rgb.g, rgb.b}) {
                EXPECT_GE(c, -1e-12);
                EXPECT_LE(c, 1 + 1e-12);
            }
            const HCLColor back = hcl_from_rgb(rgb);
            EXPECT_CLOSE(back.luma, luma, 1e-12);
            expectSameHue(back.hue, hue, 1e-6);
            EXPECT_LE(back.chroma, 1 + 1e-12);
        }
}

TEST(HCLBlend, ThroughGreyFallsToZeroChromaWhereTheHueJumps)
{
    const HCLColor a{0.1, 0.3, 0, 0.2, 1}, b{0.6, 0.1, 0, 0.8, 0};
    struct Case {
        double t, hue, chroma;
    };
    // s = 0.4, the jump at t = c1 / s = 0.75.
    const Case cases[] = {
        {0, 0.1, 0.3},                   // the first colour
        {0.5, 0.1, 0.1},                 // 0.3 − 0.4 · 0.5
        {0.75, 0.6, 0},                  // 0.75 > 0.75 fails: second hue, 0.1 − 0.25 · 0.4
        {0.9, 0.6, 0.06}, {1, 0.6, 0.1}, // the second colour
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.t);
        const HCLColor r = hcl_blend(kHCLBlendThroughGrey, a, b, c.t);
        EXPECT_EQ(r.hue, c.hue);
        EXPECT_CLOSE(r.chroma, c.chroma, 1e-15);
        EXPECT_CLOSE(r.luma, 0.2 + 0.6 * c.t, 1e-15);
        EXPECT_CLOSE(r.alpha, 1 - c.t, 1e-15);
    }
    // Two greys: 0 / 0 fails the test, so the second hue with chroma 0.
    const HCLColor g = hcl_blend(kHCLBlendThroughGrey, {0.1, 0, 0, 0, 1}, {0.6, 0, 0, 0, 1}, 0.3);
    EXPECT_EQ(g.hue, 0.6);
    EXPECT_EQ(g.chroma, 0);
}

TEST(HCLBlend, ShortestHuePathAndAnyOtherModeValue)
{
    struct Case {
        const char *name;
        double h1, h2, t, hue;
    };
    const Case cases[] = {
        {"0.9 to 0.1 passes through 0, not 0.5", 0.9, 0.1, 0.5, 1.0},
        {"0.1 to 0.9 the other way", 0.1, 0.9, 0.5, 0.0},
        {"the first hue is used as given", 1.9, 0.1, 0.5, 2.0},
        {"half a turn goes forward", 0.0, 0.5, 0.5, 0.25},
        {"half a turn back also goes forward", 0.5, 0.0, 0.5, 0.75},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        for (int mode : {kHCLBlendShortestHue, 7, -1}) {
            const HCLColor r = hcl_blend(mode, {c.h1, 0.2, 0, 0.5, 1}, {c.h2, 0.6, 0, 0.1, 1}, c.t);
            EXPECT_CLOSE(r.hue, c.hue, 1e-15);
            EXPECT_CLOSE(r.chroma, 0.4, 1e-15);
            EXPECT_CLOSE(r.luma, 0.3, 1e-15);
        }
    }
}

TEST(DegenerateInput, EveryConversionEndsAndCopiesAlpha)
{
    const double values[] = {-1, 0, 1, inf, -inf, nan};
    for (double x : values)
        for (double y : values)
            for (double z : values) {
                const RGBColor rgb{x, y, z, 0.5};
                EXPECT_EQ(hsb_from_rgb(rgb).alpha, 0.5);
                EXPECT_EQ(hsl_from_rgb(rgb).alpha, 0.5);
                EXPECT_EQ(hcl_from_rgb(rgb).alpha, 0.5);
                EXPECT_EQ(rgb_from_hsb({x, y, z, 0.5}).alpha, 0.5);
                EXPECT_EQ(rgb_from_hsl({x, y, z, 0.5}).alpha, 0.5);
                EXPECT_EQ(rgb_from_hcl({x, y, 0, z, 0.5}).alpha, 0.5);
                for (int mode : {0, 1, 2})
                    for (double t : values)
                        (void)hcl_blend(mode, {x, y, 0, z, 1}, {z, x, 0, y, 0}, t);
            }
}

} // namespace
