// However the normalisers lift a negative angle, the result must be bit for bit that of adding
// whole turns one at a time, as far out as that loop ends (radians round at every step).
#include "scalar.h"

#include <gtest/gtest.h>

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
