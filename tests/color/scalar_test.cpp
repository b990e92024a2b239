// Scalar, angle and hue helpers and fast_hypot: tests/data/reference/scalar.csv (worked by hand
// from the definitions), the arctangent approximations all round, and round trips.
#include "fast_hypot.h"
#include "hue.h"
#include "scalar.h"

#include "csv_table.h"

#include <random>

namespace {

constexpr double kPi = 3.141592653589793;
// The polynomial arctangent stays within 10.15 mrad of atan2 (worst near ±97° and ±83°).
constexpr double kTolFastAtan = 1.02e-2;

double clamped(double v, double lo, double hi)
{
    clamp(&v, lo, hi);
    return v;
}

Values lch(const Values &v)
{
    const LChColor c = LCHab_from_Lab({v[0], v[1], v[2], v[3]});
    return {c.L, c.C, c.h, c.alpha};
}

TEST(Scalar, ReferenceValues)
{
    expectReferenceTable(
        "scalar.csv", {
                          REFERENCE_FN(quantized_char_from_normalized_float,
                                       double(quantized_char_from_normalized_float(float(v[0])))),
                          REFERENCE_FN(quantized_short_from_normalized_float,
                                       double(quantized_short_from_normalized_float(float(v[0])))),
                          REFERENCE_FN(normalized_from_radians, normalized_from_radians(v[0])),
                          REFERENCE_FN(normalized_from_degrees, normalized_from_degrees(v[0])),
                          REFERENCE_FN(radians_from_normalized, radians_from_normalized(v[0])),
                          REFERENCE_FN(degrees_from_normalized, degrees_from_normalized(v[0])),
                          REFERENCE_FN(wrapPosNegPI, wrapPosNegPI(v[0])),
                          REFERENCE_FN(wrapTwoPI, wrapTwoPI(v[0])),
                          REFERENCE_FN(wrapPosNeg180, wrapPosNeg180(v[0])),
                          REFERENCE_FN(wrap360, wrap360(v[0])),
                          REFERENCE_FN(wrapZeroOne, wrapZeroOne(v[0])),
                          REFERENCE_FN(wrap, wrap(v[0], v[1], v[2])),
                          REFERENCE_FN(wrap2, wrap2(v[0], v[1], v[2])),
                          REFERENCE_FN(remap, remap(v[0], v[1], v[2], v[3], v[4])),
                          REFERENCE_FN(blend, blend(v[0], v[1], v[2]),
                                       blendf(float(v[0]), float(v[1]), float(v[2]))),
                          REFERENCE_FN(clamp, clamped(v[0], v[1], v[2])),
                          REFERENCE_FN(angle_between_3_points,
                                       angle_between_3_points(v[0], v[1], v[2], v[3], v[4], v[5])),
                          REFERENCE_FN(fast_atan2_Hastings, fast_atan2_Hastings(v[0], v[1])),
                          REFERENCE_FN(radians_from_degrees, radians_from_degrees(v[0])),
                          REFERENCE_FN(degrees_from_radians, degrees_from_radians(v[0])),
                          REFERENCE_FN(angular_distance, angular_distance(v[0], v[1], v[2])),
                          REFERENCE_FN(fast_atan2, fast_atan2(v[0], v[1])),
                          {"LCHab_from_Lab", lch},
                          REFERENCE_FN(fast_hypot, fast_hypot(v[0], v[1])),
                      });
}

TEST(Scalar, ArctangentsAndLChRoundTripsWithinTheirApproximationErrorAllRound)
{
    for (int i = -1800; i <= 1800; ++i) {
        const double angle = i * kPi / 1800, y = 3 * std::sin(angle), x = 3 * std::cos(angle);
        SCOPED_TRACE(i);
        EXPECT_CLOSE(fast_atan2(y, x), std::atan2(y, x), kTolFastAtan);
        EXPECT_CLOSE(fast_atan2f(float(y), float(x)), std::atan2(y, x), kTolFastAtan + 1e-6);
        if (std::abs(i) < 1800) { // Hastings' form: about 5 mrad
            EXPECT_CLOSE(fast_atan2_Hastings(y, x), angle, 5e-3);
        }
        const LabColor back = Lab_from_LCHab(LCHab_from_Lab({40, 30 * x, 30 * y, 1}));
        EXPECT_CLOSE(back.a, 30 * x, 90 * kTolFastAtan); // chroma 90
        EXPECT_CLOSE(back.b, 30 * y, 90 * kTolFastAtan);
    }
}

// The difference formulas rely on fast_hypot giving exactly the double std::hypot gives.
TEST(Scalar, FastHypotIsBitForBitTheLibraryHypot)
{
    std::mt19937_64 rng(2019);
    std::uniform_real_distribution<double> unit(-1, 1);
    std::uniform_int_distribution<int> exponent(-40, 40);
    long mismatches = 0;
    for (int i = 0; i < 2'000'000; ++i) {
        const double x = std::ldexp(unit(rng), exponent(rng));
        // Every seventh pair nearly equal in size, where the correction step matters most.
        const double y =
            i % 7 == 0 ? x * (1 + 1e-9 * unit(rng)) : std::ldexp(unit(rng), exponent(rng));
        mismatches += fast_hypot(x, y) != std::hypot(x, y);
        const auto [first, second] = fast_hypot_pair(x, y, y * 0.75, x);
        mismatches += first != std::hypot(x, y) || second != std::hypot(y * 0.75, x);
    }
    EXPECT_EQ(mismatches, 0);
}

} // namespace

// However the normalisers lift a negative angle, the result is bit for bit that of adding whole
// turns one at a time, as far out as that loop ends (radians round at every step).
TEST(AngleNormalising, FarNegativeAnglesGiveTheLoopsResult)
{
    const auto loop = [](double angle, double turn) {
        while (angle < 0)
            angle += turn;
        return angle / turn;
    };
    for (const double r : {-1.0, -6.3e6, -1e7, -(0x1p24 + 0.3), -1.5e8, -0x1p27})
        EXPECT_EQ(normalized_from_radians(r), loop(r, 6.283185307179586)) << r;
    for (const double d : {-359.5, -3.7e8, -(0x1p33 + 0.1)})
        EXPECT_EQ(normalized_from_degrees(d), loop(d, 360.0)) << d;
}
