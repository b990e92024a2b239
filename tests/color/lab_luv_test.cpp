// CIELAB, CIELUV, their cylindrical forms, LCh through an RGB matrix and LCh blends:
// tests/data/reference/lab_luv.csv, LittleCMS's CIELAB and round trips.
#include "lab_luv.h"
#include "lch_blend.h"
#include "lch_rgb.h"
#include "rgb_colorspaces.h"

#include "csv_table.h"

#include <lcms2.h>

#include <random>

namespace {

constexpr double kXn = 0.31271 / 0.32902, kZn = (1 - 0.31271 - 0.32902) / 0.32902;
constexpr double kTolFastAtan = 1.02e-2; // the polynomial arctangent's worst error

// The sRGB matrices of the chromaticities, both ways.
struct SRGB {
    double toXYZ[9], toRGB[9];
    SRGB()
    {
        RGB_to_XYZ_matrix_for_colorspace_chromaticities(toXYZ, &gColorSpaceChromaticities_sRGB);
        XYZ_to_RGB_matrix_for_colorspace_chromaticities(toRGB, &gColorSpaceChromaticities_sRGB);
    }
};
const SRGB sRGB;

TEST(LabLuv, ReferenceValues)
{
    expectReferenceTable(
        "lab_luv.csv",
        {
            REFERENCE_FN(Lab_from_XYZ, values(Lab_from_XYZ(record<XYZColor>(v)))),
            REFERENCE_FN(XYZ_from_Lab, values(XYZ_from_Lab(record<LabColor>(v)))),
            REFERENCE_FN(Luv_from_XYZ, values(Luv_from_XYZ(record<XYZColor>(v)))),
            REFERENCE_FN(XYZ_from_Luv, values(XYZ_from_Luv(record<LuvColor>(v)))),
            REFERENCE_FN(XYZ_from_Luv_Bruce, values(XYZ_from_Luv_Bruce(record<LuvColor>(v)))),
            REFERENCE_FN(chroma_Luv, chroma_Luv(record<LuvColor>(v))),
            REFERENCE_FN(saturationCorrelate_Luv, saturationCorrelate_Luv(record<LuvColor>(v))),
            REFERENCE_FN(saturationCorrelate_LCH, saturationCorrelate_LCH(record<LChColor>(v))),
            REFERENCE_FN(LCHuv_from_Luv, values(LCHuv_from_Luv(record<LuvColor>(v)))),
            REFERENCE_FN(LSHuv_from_Luv, values(LSHuv_from_Luv(record<LuvColor>(v)))),
            {"LChab_from_rgb_using_sRGB",
             [](const Values &v) {
                 const LChColor c = LChab_from_rgb_using_matrix(sRGB.toXYZ, record<RGBColor>(v));
                 return Values{c.L, c.C, c.alpha};
             }},
            REFERENCE_FN(LChab_hue_from_rgb_using_sRGB,
                         LChab_from_rgb_using_matrix(sRGB.toXYZ, record<RGBColor>(v)).h),
            REFERENCE_FN(LChuv_from_rgb_using_sRGB,
                         values(LChuv_from_rgb_using_matrix(sRGB.toXYZ, record<RGBColor>(v)))),
            REFERENCE_FN(rgb_from_LCHab_using_sRGB,
                         values(rgb_from_LCHab_using_matrix(sRGB.toRGB, record<LChColor>(v)))),
            REFERENCE_FN(rgb_from_LCHuv_using_sRGB,
                         values(rgb_from_LCHuv_using_matrix(sRGB.toRGB, record<LChColor>(v)))),
            REFERENCE_FN(LCh_blend, values(LCh_blend(int(v[0]), record<LChColor>(v, 1),
                                                     record<LChColor>(v, 5), v[9]))),
        });
}

TEST(LabLuv, CIELABAgreesWithLittleCMSBothWaysAndRoundTrips)
{
    const cmsCIEXYZ white = {kXn, 1, kZn};
    std::mt19937 random(1976);
    std::uniform_real_distribution<double> unit(0, 1.1);
    for (int i = 0; i < 2000; ++i) {
        const cmsCIEXYZ xyz = {unit(random), unit(random), unit(random)};
        cmsCIELab peer;
        cmsXYZ2Lab(&white, &peer, &xyz);
        const LabColor lab = Lab_from_XYZ({xyz.X, xyz.Y, xyz.Z, 1});
        EXPECT_CLOSE(lab.L, peer.L, kTolReference);
        EXPECT_CLOSE(lab.a, peer.a, kTolReference);
        EXPECT_CLOSE(lab.b, peer.b, kTolReference);
        cmsCIEXYZ back;
        cmsLab2XYZ(&white, &back, &peer);
        const XYZColor ours = XYZ_from_Lab(lab);
        EXPECT_CLOSE(ours.X, back.X, kTolReference);
        EXPECT_CLOSE(ours.Z, back.Z, kTolReference);
        EXPECT_CLOSE(ours.Y, xyz.Y, kTolRoundTrip);
    }
}

TEST(LabLuv, CIELUVAndItsCylindricalFormsRoundTrip)
{
    for (int i = 0; i < 1000; ++i) {
        const XYZColor xyz{0.05 + i % 10 * 0.1, 0.001 + i / 10 % 10 * 0.0999, 0.05 + i / 100 * 0.1,
                           0.5};
        const LuvColor luv = Luv_from_XYZ(xyz);
        for (const XYZColor back : {XYZ_from_Luv(luv), XYZ_from_Luv_Bruce(luv)}) {
            EXPECT_CLOSE(back.X, xyz.X, kTolRoundTrip);
            EXPECT_CLOSE(back.Y, xyz.Y, kTolRoundTrip);
            EXPECT_CLOSE(back.Z, xyz.Z, kTolRoundTrip);
        }
        const LuvColor viaLCh = Luv_from_LCHuv(LCHuv_from_Luv(luv));
        EXPECT_CLOSE(viaLCh.u, luv.u, 1e-12);
        const LuvColor viaLSh = Luv_from_LSHuv(LSHuv_from_Luv(luv));
        EXPECT_CLOSE(viaLSh.v, luv.v, chroma_Luv(luv) * kTolFastAtan + 1e-12);
        const RGBColor rgb{xyz.X / 1.05, xyz.Y, xyz.Z / 1.05, 1};
        const RGBColor rgbBack =
            rgb_from_LCHuv_using_matrix(sRGB.toRGB, LChuv_from_rgb_using_matrix(sRGB.toXYZ, rgb));
        EXPECT_CLOSE(rgbBack.g, rgb.g, kTolRoundTrip);
    }
}

} // namespace
