// The shared Lab profiles and D50 Lab → sRGB through LittleCMS.
//
// Expected sRGB values by hand from [CIE015-2004] and [IEC61966-2-1]: a neutral L* = 50 has
// Y = (66/116)³ = 0.1841865185, and the sRGB encoding 1.055 Y^(1/2.4) − 0.055 = 0.4663266
// (118.91 of 255, so 119 in 8 bits). The sRGB red primary in D50 CIELAB (ICC PCS, Bradford)
// is commonly published as (54.29, 80.81, 69.89).
#include "lab_colorspaces.h"

#include "tolerance.h"

#include <cmath>
#include <limits>

namespace {

// The profiles store the adaptation matrix as s15Fixed16 numbers (steps of 1.5e-5).
constexpr double kTolS15Fixed16 = 5e-5;
// LittleCMS evaluates double-precision transforms in single precision.
constexpr double kTolFloatPipeline = 1e-5;

// The chromatic adaptation tag maps the profile's white to LittleCMS's D50 (0.9642, 1, 0.8249).
void expectWhiteAdaptsToD50(cmsHPROFILE profile, const double (&white)[3])
{
    const auto *chad =
        static_cast<const double *>(cmsReadTag(profile, cmsSigChromaticAdaptationTag));
    ASSERT_NE(chad, nullptr);
    const double d50[3] = {0.9642, 1, 0.8249};
    for (int row = 0; row < 3; ++row)
        EXPECT_CLOSE(chad[3 * row] * white[0] + chad[3 * row + 1] * white[1] +
                         chad[3 * row + 2] * white[2],
                     d50[row], kTolS15Fixed16);
}

TEST(LabColorSpaces, CreatedOnceWithTheirWhites)
{
    cmsHPROFILE d50 = CGColorSpaceD50Lab();
    cmsHPROFILE d65 = CGColorSpaceD65Lab();
    ASSERT_NE(d50, nullptr);
    ASSERT_NE(d65, nullptr);
    EXPECT_EQ(CGColorSpaceD50Lab(), d50);
    EXPECT_EQ(CGColorSpaceD65Lab(), d65);
    EXPECT_NE(d50, d65);
    EXPECT_EQ(cmsGetColorSpace(d50), cmsSigLabData);
    EXPECT_EQ(cmsGetColorSpace(d65), cmsSigLabData);
    // XYZ_from_xy of (0.34567, 0.3585) and of (0.31271, 0.32902).
    expectWhiteAdaptsToD50(d50, {0.9642119944211994, 1, 0.8251882845188288});
    expectWhiteAdaptsToD50(d65, {0.9504285453771807, 1, 1.0889003707981277});
}

TEST(SRGBFromD50Lab, NeutralsAndThePrimaryRed)
{
    const RGBColor grey = sRGB_from_D50_Lab({50, 0, 0, 0.25});
    EXPECT_CLOSE(grey.r, 0.4663266, kTolFloatPipeline);
    EXPECT_CLOSE(grey.g, 0.4663266, kTolFloatPipeline);
    EXPECT_CLOSE(grey.b, 0.4663266, kTolFloatPipeline);
    EXPECT_EQ(grey.alpha, 0.25);

    const RGBColor white = sRGB_from_D50_Lab({100, 0, 0, 1}); // relative intent: no tint
    EXPECT_CLOSE(white.r, 1, kTolFloatPipeline);
    EXPECT_CLOSE(white.g, 1, kTolFloatPipeline);
    EXPECT_CLOSE(white.b, 1, kTolFloatPipeline);

    const RGBColor red = sRGB_from_D50_Lab({54.29, 80.81, 69.89, 1});
    EXPECT_CLOSE(red.r, 1, 2e-3); // the published Lab has two decimals
    EXPECT_CLOSE(red.g, 0, 2e-3);
    EXPECT_CLOSE(red.b, 0, 2e-3);

    using Bytes = std::array<uint8_t, 3>;
    EXPECT_EQ(sRGB8_from_D50_Lab({50, 0, 0, 1}), (Bytes{119, 119, 119}));
    EXPECT_EQ(sRGB8_from_D50_Lab({100, 0, 0, 1}), (Bytes{255, 255, 255}));
    EXPECT_EQ(sRGB8_from_D50_Lab({0, 0, 0, 1}), (Bytes{0, 0, 0}));
    EXPECT_EQ(sRGB8_from_D50_Lab({54.29, 80.81, 69.89, 1}), (Bytes{255, 0, 0}));
}

TEST(SRGBFromD50Lab, OutOfGamutIsClippedAndDegenerateInputIsSurvived)
{
    const RGBColor vivid = sRGB_from_D50_Lab({50, 127, -127, 1});
    for (double c : {vivid.r, vivid.g, vivid.b}) {
        EXPECT_GE(c, 0);
        EXPECT_LE(c, 1);
    }
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (double v : {-1.0, 0.0, 1.0, inf, -inf, nan}) {
        sRGB_from_D50_Lab({v, v, v, 1});
        sRGB8_from_D50_Lab({v, -v, v, 1});
    }
}

} // namespace
