// Swatch colours: a D50 CIELAB value shown through colour management as sRGB.
#include "QColor+QVExtras.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(ColorWithCalibratedD50L, NeutralsChromaticColoursAndDegenerateValues)
{
    // L* 50 is Y = ((50 + 16) / 116)³ = 0.184187; sRGB encodes it as 1.055 · Y^(1/2.4) − 0.055
    // = 0.46634 [IEC61966-2-1]. Out of gamut is clipped; QColor keeps 16 bits a channel.
    const struct {
        double L, a, b, alpha;
        float red, green, blue;
        float tolerance;
    } cases[] = {{100, 0, 0, 1, 1, 1, 1, 2e-3f},
                 {50, 0, 0, 1, 0.46634f, 0.46634f, 0.46634f, 2e-3f},
                 {0, 0, 0, 0.5, 0, 0, 0, 2e-3f},
                 {std::nan(""), 0, 0, 1, 0, 0, 0, 0}}; // NaN gives black
    for (const auto &c : cases) {
        SCOPED_TRACE(c.L);
        const QColor color = colorWithCalibratedD50L(c.L, c.a, c.b, c.alpha);
        EXPECT_NEAR(color.redF(), c.red, c.tolerance);
        EXPECT_NEAR(color.greenF(), c.green, c.tolerance);
        EXPECT_NEAR(color.blueF(), c.blue, c.tolerance);
        EXPECT_NEAR(color.alphaF(), c.alpha, 1.0 / 65535);
    }
    const QColor red = colorWithCalibratedD50L(50, 60, 40, 1);
    EXPECT_GT(red.redF(), red.greenF());
    EXPECT_GT(red.redF(), red.blueF());
}

} // namespace
