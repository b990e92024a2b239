// Scalar and angle helpers: the listed edge cases, worked by hand from the definitions.
#include "scalar.h"

#include "tolerance.h"

#include <cmath>
#include <limits>

namespace {

constexpr double pi = 3.141592653589793;
const double nan = std::numeric_limits<double>::quiet_NaN();
const double inf = std::numeric_limits<double>::infinity();

TEST(Quantisation, EveryBinIsEquallyWideAndOneIsTheTopBin)
{
    EXPECT_EQ(quantized_char_from_normalized_float(1.0f), 255);
    EXPECT_EQ(quantized_char_from_normalized_float(0.5f), 127);
    EXPECT_EQ(quantized_char_from_normalized_float(0.0f), 0);
    EXPECT_EQ(quantized_char_from_normalized_float(1.0f / 256.0f), 0); // 0.99999…
    EXPECT_EQ(quantized_char_from_normalized_float(1.0f / 256.0f + 1e-6f), 1);
    EXPECT_EQ(quantized_short_from_normalized_float(1.0f), 65535);
    EXPECT_EQ(quantized_short_from_normalized_float(0.5f), 32767);
}

TEST(Quantisation, OutOfRangeWrapsInsteadOfClamping)
{
    EXPECT_EQ(quantized_char_from_normalized_float(1.5f), 127);  // 383 & 0xFF
    EXPECT_EQ(quantized_char_from_normalized_float(-0.5f), 129); // −127 & 0xFF
    EXPECT_EQ(quantized_char_from_normalized_float(1e30f), 0);   // huge, still defined
    EXPECT_EQ(quantized_char_from_normalized_float(std::nanf("")), 0);
}

TEST(AngleUnits, NormalisingLiftsNegativeAnglesOnly)
{
    EXPECT_CLOSE(normalized_from_radians(-pi / 2), 0.75, kTolUlps);
    EXPECT_CLOSE(normalized_from_degrees(450), 1.25, kTolUlps); // not reduced, on purpose
    EXPECT_CLOSE(normalized_from_degrees(-90), 0.75, kTolUlps);
    EXPECT_CLOSE(normalized_from_degrees(-1e300), normalized_from_degrees(-1e300), 1); // ends
    EXPECT_TRUE(std::isnan(normalized_from_degrees(-inf)));
    EXPECT_CLOSE(radians_from_normalized(0.5), pi, kTolUlps);
    EXPECT_CLOSE(degrees_from_normalized(0.25), 90, kTolUlps);
}

struct WrapCase {
    const char *name;
    double (*fn)(double);
    double in, expected;
};

TEST(Wrapping, FixedRangesHaveInclusiveLowerAndExclusiveUpperEnds)
{
    const WrapCase cases[] = {
        {"wrapPosNegPI(π) is −π", wrapPosNegPI, pi, -pi},
        {"wrapPosNegPI(−π) stays", wrapPosNegPI, -pi, -pi},
        {"wrapTwoPI(−π/2)", wrapTwoPI, -pi / 2, 1.5 * pi},
        {"wrapPosNeg180(180) is −180", wrapPosNeg180, 180, -180},
        {"wrapPosNeg180(190)", wrapPosNeg180, 190, -170},
        {"wrap360(−30) is 330", wrap360, -30, 330},
        {"wrap360(720)", wrap360, 720, 0},
        {"wrapZeroOne(−0.25) is 0.75", wrapZeroOne, -0.25, 0.75},
        {"wrapZeroOne(NaN)", wrapZeroOne, nan, nan},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_CLOSE(c.fn(c.in), c.expected, 1e-12);
    }
}

TEST(Wrapping, WrapLeavesValueWhenRangeIsEmptyAndOverflowsFarAway)
{
    EXPECT_EQ(wrap(7.5, 3, 3), 7.5);
    EXPECT_EQ(wrap(7.5, 4, 3), 7.5);
    EXPECT_CLOSE(wrap(7.5, 0, 2), 1.5, kTolUlps);
    EXPECT_CLOSE(wrap(-0.5, 0, 2), 1.5, kTolUlps);
    // k = floor(1e10) does not fit 32 bits: the conversion gives INT32_MIN, as on the
    // platform the behaviour comes from, so the result is far outside the range.
    EXPECT_GT(wrap(1e10, 0, 1), 1e9);
}

TEST(Wrapping, Wrap2LoopsIntoRangeAndSwapsReversedBounds)
{
    EXPECT_EQ(wrap2(7.5, 3, 3), 3);
    EXPECT_CLOSE(wrap2(7.5, 0, 2), 1.5, kTolUlps);
    EXPECT_CLOSE(wrap2(-0.5, 0, 2), 1.5, kTolUlps);
    EXPECT_CLOSE(wrap2(2.0, 0, 2), 0.0, kTolUlps);
    EXPECT_CLOSE(wrap2(2.5, 2, 0), 0.5, kTolUlps); // reversed: lower 0, size 2
    EXPECT_TRUE(std::isnan(wrap2(nan, 0, 1)));
    EXPECT_TRUE(std::isnan(wrap2(inf, 0, 1))); // would loop for ever
    const double far = wrap2(1e300, 0, 1);     // must end, and land in range
    EXPECT_GE(far, 0);
    EXPECT_LT(far, 1);
}

TEST(Interpolation, RemapBlendAndClamp)
{
    EXPECT_CLOSE(remap(5, 0, 10, 100, 200), 150, kTolUlps);
    EXPECT_CLOSE(blend(2, 4, 0.25), 2.5, kTolUlps);
    EXPECT_FLOAT_EQ(blendf(2, 4, 0.25f), 2.5f);

    double v = 0.5;
    clamp(&v, 0, 1);
    EXPECT_EQ(v, 0.5);
    v = -1;
    clamp(&v, 2, 1); // lo > hi: below lo becomes lo
    EXPECT_EQ(v, 2);
    v = 5;
    clamp(&v, 0, 1);
    EXPECT_EQ(v, 1);
    float f = 3;
    clampf(&f, 0, 1);
    EXPECT_EQ(f, 1);
}

TEST(Geometry, AngleBetween3PointsIsSignedFromThirdToSecond)
{
    EXPECT_CLOSE(angle_between_3_points(0, 0, 0, 1, 1, 0), pi / 2, kTolUlps);
    EXPECT_CLOSE(angle_between_3_points(0, 0, 1, 0, 0, 1), -pi / 2, kTolUlps);
    EXPECT_CLOSE(angle_between_3_points(1, 1, 2, 1, 2, 1), 0, kTolUlps);
}

TEST(Geometry, HastingsArctangent)
{
    EXPECT_EQ(fast_atan2_Hastings(0, 0), 0.0);
    EXPECT_EQ(fast_atan2_Hastings(-1, 0), -pi / 2);
    EXPECT_EQ(fast_atan2_Hastings(1, 0), pi / 2);
    // Hastings' form is good to about 5 mrad over the circle.
    for (int i = -179; i <= 179; ++i) {
        const double angle = i * pi / 180;
        SCOPED_TRACE(i);
        EXPECT_CLOSE(fast_atan2_Hastings(std::sin(angle), std::cos(angle)), angle, 5e-3);
    }
}

} // namespace
