// Swatch colours: a D50 CIELAB value shown through colour management as sRGB.
#include "QColor+QVExtras.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(ColorWithCalibratedD50L, WhiteGreyAndBlackLandOnTheNeutralAxis)
{
    // L* 50 is Y = ((50 + 16) / 116)³ = 0.184187; sRGB encodes it as
    // 1.055 · Y^(1/2.4) − 0.055 = 0.46634 [IEC61966-2-1].
    struct Case {
        double L, expected;
    } cases[] = {{100, 1.0}, {50, 0.46634}, {0, 0.0}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.L);
        const QColor color = colorWithCalibratedD50L(c.L, 0, 0, 1);
        EXPECT_NEAR(color.redF(), c.expected, 2e-3);
        EXPECT_NEAR(color.greenF(), c.expected, 2e-3);
        EXPECT_NEAR(color.blueF(), c.expected, 2e-3);
        EXPECT_EQ(color.alphaF(), 1.0f);
    }
}

TEST(ColorWithCalibratedD50L, ChromaticValuesKeepTheirHueAndOutOfGamutIsClipped)
{
    const QColor red = colorWithCalibratedD50L(50, 60, 40, 1);
    EXPECT_GT(red.redF(), red.greenF());
    EXPECT_GT(red.redF(), red.blueF());
    const QColor beyond = colorWithCalibratedD50L(50, 0, -200, 0.5);
    EXPECT_LE(beyond.blueF(), 1.0f);
    EXPECT_GE(beyond.redF(), 0.0f);
    EXPECT_NEAR(beyond.alphaF(), 0.5f, 1.0 / 65535); // QColor keeps 16 bits a channel
}

TEST(ColorWithCalibratedD50L, NaNGivesBlack)
{
    EXPECT_EQ(colorWithCalibratedD50L(std::nan(""), 0, 0, 1), QColor(Qt::black));
}

} // namespace
