// LCh blends: the three modes, worked by hand from their definitions.
#include "lch_blend.h"

#include "tolerance.h"

#include <cmath>
#include <limits>

namespace {

constexpr double pi = 3.141592653589793;
constexpr double kTolFastAtan = 1.02e-2; // as in hue_test.cpp

double radians(double degrees)
{
    return degrees * pi / 180;
}

TEST(LChBlend, ShorterArcCrossesZeroDegrees)
{
    // 350° → 10°: wrapped d = 10° − 350° = −340° ≤ −180°, so d = +20°; halfway is 350° + 10°,
    // i.e. 2π, above the wrapped range (kept: the unwrapped h1 is used).
    const LChColor c1 = {50, 20, radians(350), 0};
    const LChColor c2 = {70, 40, radians(10), 1};
    for (int mode : {2, 7, -1}) {
        const LChColor mid = LCh_blend(mode, c1, c2, 0.5);
        EXPECT_CLOSE(mid.h, radians(360), 1e-14);
        EXPECT_EQ(mid.C, 30);
        EXPECT_EQ(mid.L, 60);
        EXPECT_EQ(mid.alpha, 0.5);
    }
    // Unwrapped inputs two turns away blend the same way.
    EXPECT_CLOSE(LCh_blend(2, {50, 20, radians(350 - 720), 1}, c2, 0.5).h, radians(360 - 720),
                 1e-13);
    // π → 0: d = −π exactly, which is lifted to +π (the test is "≤ −π"): halfway is 3π/2.
    EXPECT_EQ(LCh_blend(2, {50, 20, pi, 1}, {50, 20, 0, 1}, 0.5).h, 1.5 * pi);
    // t is not clamped.
    EXPECT_CLOSE(LCh_blend(2, c1, c2, 2).h, radians(390), 1e-14);
}

TEST(LChBlend, ThroughTheNeutralAxis)
{
    const LChColor c1 = {50, 30, 1.0, 1};
    const LChColor c2 = {50, 10, -2.0, 1};
    const LChColor start = LCh_blend(0, c1, c2, 0);
    EXPECT_EQ(start.C, 30);
    EXPECT_EQ(start.h, 1.0);
    const LChColor end = LCh_blend(0, c1, c2, 1);
    EXPECT_EQ(end.C, 10);
    EXPECT_EQ(end.h, -2.0);
    // S = 40: chroma falls as 30 − 40 t to zero at t = 0.75, where the second hue takes over.
    const LChColor before = LCh_blend(0, c1, c2, 0.5);
    EXPECT_EQ(before.C, 10);
    EXPECT_EQ(before.h, 1.0);
    const LChColor neutral = LCh_blend(0, c1, c2, 0.75);
    EXPECT_EQ(neutral.C, 0);
    EXPECT_EQ(neutral.h, -2.0);
    const LChColor after = LCh_blend(0, c1, c2, 0.875);
    EXPECT_EQ(after.C, 5);
    EXPECT_EQ(after.h, -2.0);
    // Two greys: S = 0, 0/0 is NaN, the second branch gives C = 0 on h2.
    const LChColor greys = LCh_blend(0, {40, 0, 1, 1}, {60, 0, 2, 1}, 0.3);
    EXPECT_EQ(greys.C, 0);
    EXPECT_EQ(greys.h, 2);
}

TEST(LChBlend, CartesianGoesThroughTheChord)
{
    // Opposite hues of equal chroma: a goes from 20 to −20, so halfway is the neutral axis and
    // a quarter of the way is (10, 0): C 10, h ≈ 0 (fast arctangent).
    const LChColor c1 = {50, 20, 0, 1};
    const LChColor c2 = {50, 20, pi, 1};
    const LChColor quarter = LCh_blend(1, c1, c2, 0.25);
    EXPECT_CLOSE(quarter.C, 10, 1e-12);
    EXPECT_CLOSE(quarter.h, 0, kTolFastAtan);
    // 0° and 90° at chroma 10: halfway (5, 5), C = 5√2, h = 45°.
    const LChColor diagonal = LCh_blend(1, {50, 10, 0, 1}, {50, 10, pi / 2, 1}, 0.5);
    EXPECT_CLOSE(diagonal.C, 5 * std::sqrt(2.0), 1e-12);
    EXPECT_CLOSE(diagonal.h, pi / 4, kTolFastAtan);
}

TEST(LChBlend, DegenerateHuesNeitherHangNorCrash)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const double values[] = {-1, 0, 1, inf, -inf, nan, 1e300};
    for (int mode : {0, 1, 2})
        for (double h : values)
            for (double t : values) {
                const LChColor c = LCh_blend(mode, {50, 10, h, 1}, {50, h, 1, 1}, t);
                if (mode == 2 && !std::isfinite(h)) {
                    EXPECT_TRUE(std::isnan(c.h));
                }
            }
}

} // namespace
