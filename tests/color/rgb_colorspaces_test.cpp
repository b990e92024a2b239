// XYZ, matrices, adaptation, working spaces and ICC and Lab profiles: rgb_colorspaces.csv.
#include "adaptation.h"
#include "icc_colorspace_matrix.h"
#include "lab_colorspaces.h"
#include "matrix3x3.h"
#include "rgb_colorspaces.h"

#include "csv_table.h"

#include <lcms2.h>

#include <memory>
#include <string>

namespace {

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

constexpr double kIdentity[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};

Values inverted(const Values &v)
{
    double m[9];
    Values result = {double(invert_3x3_matrix(m, v.data()))};
    result.insert(result.end(), m, m + 9);
    return result;
}

auto productFn(void (*multiply)(double *, const double *, const double *), std::size_t split,
               std::size_t size)
{
    return [=](const Values &v) {
        double m[9];
        multiply(m, v.data(), v.data() + split);
        return Values(m, m + size);
    };
}

// The adaptation matrix, column by column, by adapting the unit vectors.
Values adaptationMatrix(const Values &v)
{
    const auto from = record<XYZTriple>(v, 1), to = record<XYZTriple>(v, 4);
    Values T(9);
    for (int column = 0; column < 3; ++column) {
        XYZTriple unit{}, out{};
        (&unit.X)[column] = 1;
        EXPECT_EQ(adapt_XYZ_to_XYZ(&unit, &from, &out, &to, unsigned(v[0])), 0);
        for (int row = 0; row < 3; ++row)
            T[3 * row + column] = (&out.X)[row];
    }
    return T;
}

Values adapted(const Values &v)
{
    const auto source = record<XYZTriple>(v, 1), from = record<XYZTriple>(v, 4),
               to = record<XYZTriple>(v, 7);
    XYZTriple out = {-7, -7, -7};
    const int status = adapt_XYZ_to_XYZ(&source, &from, &out, &to, unsigned(v[0]));
    return {double(status), out.X, out.Y, out.Z};
}

struct ProfileCloser {
    void operator()(void *profile) const { cmsCloseProfile(profile); }
};
using Profile = std::unique_ptr<void, ProfileCloser>;

// Saved to memory and opened again, so that the tags are read back as a file holds them.
Profile reopened(cmsHPROFILE profile)
{
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    std::vector<unsigned char> bytes(size);
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    return Profile(cmsOpenProfileFromMem(bytes.data(), size));
}

// A version 2 RGB display profile with the sRGB primaries and white: LittleCMS adapts the
// colorants to D50; the "wtpt" tag is then set to the D65 white as version 2 profiles carry it.
Profile version2SRGB()
{
    const cmsCIExyY d65 = {0.31271, 0.32902, 1};
    const cmsCIExyYTRIPLE primaries = {{0.64, 0.33, 1}, {0.3, 0.6, 1}, {0.15, 0.06, 1}};
    cmsToneCurve *gamma = cmsBuildGamma(nullptr, 2.2);
    cmsToneCurve *curves[3] = {gamma, gamma, gamma};
    cmsHPROFILE profile = cmsCreateRGBProfile(&d65, &primaries, curves);
    cmsFreeToneCurve(gamma);
    cmsCIEXYZ white;
    cmsxyY2XYZ(&white, &d65);
    cmsWriteTag(profile, cmsSigMediaWhitePointTag, &white);
    cmsSetProfileVersion(profile, 2.1);
    return reopened(profile);
}

// Profiles by number in the reference table: 0 none, 1 a version 2 sRGB profile, 3 the D50 Lab
// profile (not RGB: the caller's matrix stays, and the inverse inverts it).
Values profileMatrix(const Values &v)
{
    const Profile made = v[0] == 1 ? version2SRGB() : nullptr;
    double m[9] = {2, 0, 0, 0, 4, 0, 0, 0, 8};
    RGB_to_XYZ_matrix_for_colorspace(m, v[0] == 3 ? CGColorSpaceD50Lab() : made.get());
    if (v[0] == 3)
        XYZ_to_RGB_matrix_for_colorspace(m, CGColorSpaceD50Lab());
    return Values(m, m + 9);
}

TEST(RGBColorSpaces, ReferenceValues)
{
    expectReferenceTable(
        "rgb_colorspaces.csv",
        {
            {"invert_3x3_matrix", inverted},
            {"multiply_3x3_by_3x1_matrix", productFn(multiply_3x3_by_3x1_matrix, 9, 3)},
            {"multiply_1x3_by_3x3_matrix", productFn(multiply_1x3_by_3x3_matrix, 3, 3)},
            {"multiply_3x3_by_3x3_matrix", productFn(multiply_3x3_by_3x3_matrix, 9, 9)},
            {"adaptation_matrix", adaptationMatrix},
            {"adapt_XYZ_to_XYZ", adapted},
            REFERENCE_FN(is_XYZ_D50, double(is_XYZ_D50(record<XYZTriple>(v)))),
            REFERENCE_FN(are_XYZs_Adapted_to_D50, double(are_XYZs_Adapted_to_D50(
                                                      record<XYZTriple>(v), record<XYZTriple>(v, 3),
                                                      record<XYZTriple>(v, 6)))),
            REFERENCE_FN(XYZ_from_sRGB, values(XYZ_from_sRGB(record<RGBColor>(v)))),
            REFERENCE_FN(sRGB_from_XYZ, values(sRGB_from_XYZ(record<XYZColor>(v)))),
            {"RGB_to_XYZ_matrix_for_sRGB_chromaticities",
             [](const Values &) {
                 double m[9];
                 RGB_to_XYZ_matrix_for_colorspace_chromaticities(m,
                                                                 &gColorSpaceChromaticities_sRGB);
                 return Values(m, m + 9);
             }},
            {"RGB_to_XYZ_matrix_for_colorspace", profileMatrix},
            REFERENCE_FN(RGB_from_XYZ_using_matrix,
                         values(RGB_from_XYZ_using_matrix(kIdentity, record<XYZColor>(v)))),
            REFERENCE_FN(sRGB_from_D50_Lab, values(sRGB_from_D50_Lab(record<LabColor>(v)))),
            {"sRGB8_from_D50_Lab",
             [](const Values &v) {
                 const auto c = sRGB8_from_D50_Lab({v[0], v[1], v[2], 1});
                 return Values{double(c[0]), double(c[1]), double(c[2])};
             }},
        });
}

TEST(RGBColorSpaces, EveryWorkingSpaceMapsWhiteToItsWhiteAndRoundTrips)
{
    for (const ColorSpaceChromaticities *space : kWorkingSpaces) {
        SCOPED_TRACE(space->name);
        double m[9], inverse[9], identity[9];
        RGB_to_XYZ_matrix_for_colorspace_chromaticities(m, space);
        XYZ_to_RGB_matrix_for_colorspace_chromaticities(inverse, space);
        multiply_3x3_by_3x3_matrix(identity, inverse, m);
        for (int i = 0; i < 9; ++i)
            EXPECT_CLOSE(identity[i], kIdentity[i], 1e-13);
        const XYZColor white = XYZ_from_RGB_using_matrix(m, {1, 1, 1, 1});
        EXPECT_CLOSE(white.X, space->wx / space->wy, 1e-14);
        EXPECT_CLOSE(white.Y, 1, 1e-14);
        const RGBColor back = RGB_from_XYZ_using_colorspace_chromaticities(
            XYZ_from_RGB_using_colorspace_chromaticities({0.2, 0.5, 0.7, 1}, *space), *space);
        EXPECT_CLOSE(back.r, 0.2, kTolRoundTrip);
        EXPECT_CLOSE(back.b, 0.7, kTolRoundTrip);
    }
}

} // namespace
