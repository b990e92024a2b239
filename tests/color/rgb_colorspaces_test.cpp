// Linear RGB ⇄ XYZ: the fixed sRGB matrices and the working-space builders.
//
// [IEC61966-2-1] / [Lindbloom] publish the sRGB matrices to seven decimals; their rows sum to
// Lindbloom's D65 white (0.95047, 1.00000, 1.08883). The matrix for the sRGB chromaticities
// with the white (0.31271, 0.32902) was worked out outside this code base with exact rational
// arithmetic (Python fractions), printed to 17 significant digits:
//   0.41238656325299170 0.35759149092062537 0.18045049120356368
//   0.21263682167732384 0.71518298184125070 0.07218019648142547
//   0.01933062015248399 0.11919716364020845 0.95037258700543540
#include "rgb_colorspaces.h"

#include "matrix3x3.h"

#include "tolerance.h"

#include <cmath>
#include <limits>
#include <string>

namespace {

constexpr XYZTriple kD65 = {0.9504285453771807, 1, 1.0889003707981277};

// The sixteen working spaces, in the order of their table.
const ColorSpaceChromaticities *const kWorkingSpaces[] = {
    &gColorSpaceChromaticities_AdobeRGB,      &gColorSpaceChromaticities_AppleRGB,
    &gColorSpaceChromaticities_BestRGB,       &gColorSpaceChromaticities_BetaRGB,
    &gColorSpaceChromaticities_BruceRGB,      &gColorSpaceChromaticities_CIERGB,
    &gColorSpaceChromaticities_ColorMatchRGB, &gColorSpaceChromaticities_DonRGB4,
    &gColorSpaceChromaticities_ECIRGB,        &gColorSpaceChromaticities_EktaSpacePS5,
    &gColorSpaceChromaticities_NTSCRGB,       &gColorSpaceChromaticities_PALSECAMRGB,
    &gColorSpaceChromaticities_ProPhotoRGB,   &gColorSpaceChromaticities_SMPTECRGB,
    &gColorSpaceChromaticities_sRGB,          &gColorSpaceChromaticities_WideGamutRGB,
};

TEST(FixedSRGB, PublishedMatricesAreInversesAndMapWhiteToD65)
{
    const XYZColor white = XYZ_from_sRGB({1, 1, 1, 0.5});
    EXPECT_CLOSE(white.X, 0.95047, 1e-12);
    EXPECT_CLOSE(white.Y, 1.0000001, 1e-12);
    EXPECT_CLOSE(white.Z, 1.08883, 1e-12);
    EXPECT_EQ(white.alpha, 0.5);

    // Both matrices carry seven decimals, so there and back agrees to a few 1e-7.
    for (double r = 0; r <= 1; r += 0.25)
        for (double g = 0; g <= 1; g += 0.25)
            for (double b = 0; b <= 1; b += 0.25) {
                const RGBColor back = sRGB_from_XYZ(XYZ_from_sRGB({r, g, b, 1}));
                EXPECT_CLOSE(back.r, r, 3e-7);
                EXPECT_CLOSE(back.g, g, 3e-7);
                EXPECT_CLOSE(back.b, b, 3e-7);
            }
}

TEST(FixedSRGB, ResultIsClampedToTheUnitRange)
{
    // r = 3.2404542·0.5 − 1.5371385·1.2 − 0.4985314·0.1 = −0.2742; g = 1.7707;
    // b = −0.1113: all three and the alpha leave 0..1.
    const RGBColor rgb = sRGB_from_XYZ({0.5, 1.2, 0.1, 1.5});
    EXPECT_EQ(rgb.r, 0);
    EXPECT_EQ(rgb.g, 1);
    EXPECT_EQ(rgb.b, 0);
    EXPECT_EQ(rgb.alpha, 1);
    EXPECT_EQ(sRGB_from_XYZ({0, 0, 0, -2}).alpha, 0);
    EXPECT_TRUE(std::isnan(sRGB_from_XYZ({std::nan(""), 0, 0, 1}).r)); // NaN passes through
}

TEST(WorkingSpaceMatrix, SRGBChromaticitiesAgainstExactArithmetic)
{
    const double exact[9] = {0.41238656325299170, 0.35759149092062537, 0.18045049120356368,
                             0.21263682167732384, 0.71518298184125070, 0.07218019648142547,
                             0.01933062015248399, 0.11919716364020845, 0.95037258700543540};
    double m[9];
    RGB_to_XYZ_matrix_for_colorspace_chromaticities(m, &gColorSpaceChromaticities_sRGB);
    for (int i = 0; i < 9; ++i)
        EXPECT_CLOSE(m[i], exact[i], 1e-15);
    EXPECT_CLOSE(m[3] + m[4] + m[5], 1, kTolUlps);

    const XYZColor white =
        XYZ_from_RGB_using_colorspace_chromaticities({1, 1, 1, 1}, gColorSpaceChromaticities_sRGB);
    EXPECT_CLOSE(white.X, kD65.X, kTolUlps);
    EXPECT_CLOSE(white.Y, kD65.Y, kTolUlps);
    EXPECT_CLOSE(white.Z, kD65.Z, kTolUlps);
}

TEST(WorkingSpaceMatrix, EverySpaceMapsWhiteToItsWhiteAndRoundTrips)
{
    for (const ColorSpaceChromaticities *space : kWorkingSpaces) {
        SCOPED_TRACE(space->name);
        double m[9], inverse[9], product[9];
        RGB_to_XYZ_matrix_for_colorspace_chromaticities(m, space);
        XYZ_to_RGB_matrix_for_colorspace_chromaticities(inverse, space);
        multiply_3x3_by_3x3_matrix(product, inverse, m);
        for (int i = 0; i < 9; ++i)
            EXPECT_CLOSE(product[i], i % 4 == 0 ? 1 : 0, 1e-13);

        const XYZColor white = XYZ_from_RGB_using_matrix(m, {1, 1, 1, 1});
        EXPECT_CLOSE(white.X, space->wx / space->wy, 1e-14);
        EXPECT_CLOSE(white.Y, 1, 1e-14);

        const RGBColor back = RGB_from_XYZ_using_colorspace_chromaticities(
            XYZ_from_RGB_using_colorspace_chromaticities({0.2, 0.5, 0.7, 1}, *space), *space);
        EXPECT_CLOSE(back.r, 0.2, kTolRoundTrip);
        EXPECT_CLOSE(back.g, 0.5, kTolRoundTrip);
        EXPECT_CLOSE(back.b, 0.7, kTolRoundTrip);
    }
}

TEST(WorkingSpaceTable, StoredLuminancesMatchTheBuiltMatrices)
{
    // A transcription check of the table: the stored Y of each primary is the middle row of
    // the matrix built from the x, y pairs, as tabulated by [Lindbloom] to six decimals (within
    // 3e-5: the tabulated whites differ slightly). NTSC's luminances were tabulated for another
    // C white and agree within 2e-4 only.
    for (const ColorSpaceChromaticities *space : kWorkingSpaces) {
        SCOPED_TRACE(space->name);
        double m[9];
        RGB_to_XYZ_matrix_for_colorspace_chromaticities(m, space);
        const double tolerance = std::string(space->name) == "NTSC RGB" ? 2e-4 : 3e-5;
        EXPECT_CLOSE(m[3], space->rY, tolerance);
        EXPECT_CLOSE(m[4], space->gY, tolerance);
        EXPECT_CLOSE(m[5], space->bY, tolerance);
    }
    EXPECT_STREQ(gColorSpaceChromaticities_PALSECAMRGB.name, "PAL/SECAM RGB");
    EXPECT_EQ(gColorSpaceChromaticities_ECIRGB.gamma, 1.0); // nominal, kept as listed
    EXPECT_EQ(gColorSpaceChromaticities_CIERGB.wx, 0.3333333333333333);
}

TEST(WorkingSpaceMatrix, ZeroChromaticityYKeepsGoing)
{
    // A primary with y = 0 becomes (0, Y, 0); a white with y = 0 becomes (0, 1, 0). Nothing
    // is reported; the matrix is whatever the adjugate gives, and must simply be finite.
    ColorSpaceChromaticities broken = gColorSpaceChromaticities_sRGB;
    broken.by = 0;
    broken.wy = 0;
    double m[9];
    RGB_to_XYZ_matrix_for_colorspace_chromaticities(m, &broken);
    for (double v : m)
        EXPECT_TRUE(std::isfinite(v));
}

TEST(RGBFromXYZUsingMatrix, ClampsButTheForwardPathDoesNot)
{
    const double identity[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    const XYZColor xyz = XYZ_from_RGB_using_matrix(identity, {-0.5, 2, 0.5, 3});
    EXPECT_EQ(xyz.X, -0.5);
    EXPECT_EQ(xyz.Y, 2);
    EXPECT_EQ(xyz.alpha, 3);
    const RGBColor rgb = RGB_from_XYZ_using_matrix(identity, {-0.5, 2, 0.5, 3});
    EXPECT_EQ(rgb.r, 0);
    EXPECT_EQ(rgb.g, 1);
    EXPECT_EQ(rgb.b, 0.5);
    EXPECT_EQ(rgb.alpha, 1);
}

TEST(RGBConversions, DegenerateSweepNeverCrashes)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const double values[] = {-1, 0, 1, inf, -inf, nan};
    for (double a : values)
        for (double b : values) {
            const RGBColor rgb = {a, b, 0.5, 1};
            const XYZColor xyz = {a, b, 0.5, 1};
            const RGBColor back = sRGB_from_XYZ(xyz);
            EXPECT_TRUE(std::isnan(back.r) || (back.r >= 0 && back.r <= 1));
            XYZ_from_sRGB(rgb);
            XYZ_from_RGB_using_colorspace_chromaticities(rgb, gColorSpaceChromaticities_AdobeRGB);
            RGB_from_XYZ_using_colorspace_chromaticities(xyz, gColorSpaceChromaticities_AdobeRGB);
        }
}

} // namespace
