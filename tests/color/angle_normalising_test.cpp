// The normalisers lift a negative angle by adding whole turns one at a time; however they get
// there, the result must be bit for bit that loop's, as far out as the loop ends.
#include "scalar.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

double loopNormalised(double angle, double turn)
{
    while (angle < 0)
        angle += turn;
    return angle / turn;
}

TEST(AngleNormalising, FarNegativeAnglesGiveTheLoopsResult)
{
    const double twoPi = 6.283185307179586;
    // Up to tens of millions of turns; radians collect rounding at every step.
    for (const double r : {-1.0, -6.2e6, -6.3e6, -1e7, -(0x1p24 + 0.3), -1.5e8, -0x1p27})
        EXPECT_EQ(normalized_from_radians(r), loopNormalised(r, twoPi)) << r;
    for (const double d : {-359.5, -3.7e8, -(0x1p33 + 0.1), -1e10})
        EXPECT_EQ(normalized_from_degrees(d), loopNormalised(d, 360.0)) << d;
    // Where adding a turn no longer changes the angle the loop never ends: the true remainder.
    EXPECT_EQ(normalized_from_degrees(-1e300),
              std::fmod(360 + std::fmod(-1e300, 360.0), 360) / 360);
}

} // namespace
