// Linear RGB ⇄ LCh through a matrix, with the sRGB chromaticities matrix.
//
// Worked outside this code base (Python, the exact sRGB matrix of rgb_colorspaces_test.cpp,
// then the CIELAB and CIELUV formulas of [CIE015-2004] for the D65 white 0.31271, 0.32902):
//   linear sRGB red (1, 0, 0) → XYZ (0.41238656, 0.21263682, 0.01933062)
//     → Lab (53.23687853038956, 80.09347433860609, 67.20052009274274),
//       C*ab 104.55082272447248, hab 39.997529571282094°;
//     → Luv (53.23687853038956, 175.00942841839523, 37.75650056527124),
//       C*uv 179.03589966894555, huv 0.2124831741685543 rad.
#include "lch_rgb.h"

#include "rgb_colorspaces.h"

#include "tolerance.h"

#include <cmath>
#include <limits>

namespace {

constexpr double pi = 3.141592653589793;
constexpr double kTolFastAtan = 1.02e-2; // as in hue_test.cpp

struct SRGBMatrices {
    double toXYZ[9], toRGB[9];
    SRGBMatrices()
    {
        RGB_to_XYZ_matrix_for_colorspace_chromaticities(toXYZ, &gColorSpaceChromaticities_sRGB);
        XYZ_to_RGB_matrix_for_colorspace_chromaticities(toRGB, &gColorSpaceChromaticities_sRGB);
    }
};

TEST(LChFromRGB, SRGBRedWorkedValues)
{
    const SRGBMatrices sRGB;
    const LChColor ab = LChab_from_rgb_using_matrix(sRGB.toXYZ, {1, 0, 0, 0.5});
    EXPECT_CLOSE(ab.L, 53.23687853038956, kTolReference);
    EXPECT_CLOSE(ab.C, 104.55082272447248, kTolReference);
    EXPECT_CLOSE(ab.h, 39.997529571282094 * pi / 180, kTolFastAtan); // polynomial arctangent
    EXPECT_EQ(ab.alpha, 0.5);

    const LChColor uv = LChuv_from_rgb_using_matrix(sRGB.toXYZ, {1, 0, 0, 0.5});
    EXPECT_CLOSE(uv.L, 53.23687853038956, kTolReference);
    EXPECT_CLOSE(uv.C, 179.03589966894555, kTolReference);
    EXPECT_CLOSE(uv.h, 0.2124831741685543, kTolReference); // exact arctangent
    EXPECT_EQ(uv.alpha, 0.5);
}

TEST(RGBFromLCh, SRGBRedAndWhite)
{
    const SRGBMatrices sRGB;
    const RGBColor red = rgb_from_LCHab_using_matrix(
        sRGB.toRGB, {53.23687853038956, 104.55082272447248, 39.997529571282094 * pi / 180, 1});
    EXPECT_CLOSE(red.r, 1, kTolReference);
    EXPECT_CLOSE(red.g, 0, kTolReference);
    EXPECT_CLOSE(red.b, 0, kTolReference);

    const RGBColor redUV = rgb_from_LCHuv_using_matrix(
        sRGB.toRGB, {53.23687853038956, 179.03589966894555, 0.2124831741685543, 1});
    EXPECT_CLOSE(redUV.r, 1, kTolReference);
    EXPECT_CLOSE(redUV.g, 0, kTolReference);
    EXPECT_CLOSE(redUV.b, 0, kTolReference);

    for (const RGBColor white : {rgb_from_LCHab_using_matrix(sRGB.toRGB, {100, 0, 2, 1}),
                                 rgb_from_LCHuv_using_matrix(sRGB.toRGB, {100, 0, 2, 1})}) {
        EXPECT_CLOSE(white.r, 1, 1e-14);
        EXPECT_CLOSE(white.g, 1, 1e-14);
        EXPECT_CLOSE(white.b, 1, 1e-14);
    }
}

TEST(RGBFromLCh, OutOfGamutIsClampedAndUVRoundTrips)
{
    const SRGBMatrices sRGB;
    const RGBColor vivid = rgb_from_LCHab_using_matrix(sRGB.toRGB, {50, 200, 0, 2});
    EXPECT_EQ(vivid.r, 1);
    EXPECT_EQ(vivid.g, 0);
    EXPECT_EQ(vivid.alpha, 1);

    for (double r = 0.05; r <= 1; r += 0.15)
        for (double g = 0.05; g <= 1; g += 0.15)
            for (double b = 0.05; b <= 1; b += 0.15) {
                const RGBColor back = rgb_from_LCHuv_using_matrix(
                    sRGB.toRGB, LChuv_from_rgb_using_matrix(sRGB.toXYZ, {r, g, b, 1}));
                EXPECT_CLOSE(back.r, r, kTolRoundTrip);
                EXPECT_CLOSE(back.g, g, kTolRoundTrip);
                EXPECT_CLOSE(back.b, b, kTolRoundTrip);
            }
}

TEST(LChRGB, DegenerateSweepNeverCrashes)
{
    const SRGBMatrices sRGB;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const double values[] = {-1, 0, 1, inf, -inf, nan};
    for (double p : values)
        for (double q : values)
            for (double s : values) {
                rgb_from_LCHuv_using_matrix(sRGB.toRGB, {p, q, s, 1});
                rgb_from_LCHab_using_matrix(sRGB.toRGB, {p, q, s, 1});
                LChuv_from_rgb_using_matrix(sRGB.toXYZ, {p, q, s, 1});
                LChab_from_rgb_using_matrix(sRGB.toXYZ, {p, q, s, 1});
            }
}

} // namespace
