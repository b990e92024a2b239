// RGB-to-XYZ matrices from ICC profile tags, on profiles made with LittleCMS in memory.
//
// Hand-built tags check the reading (big-endian s15Fixed16 through single precision) and the
// column scaling, worked in the comments; a version 2 sRGB display profile (colorants adapted
// to D50, white D65, as such profiles are written) must give back the sRGB matrix of the
// chromaticities, whose exact value is in rgb_colorspaces_test.cpp.
#include "icc_colorspace_matrix.h"

#include "lab_colorspaces.h"
#include "rgb_colorspaces.h"

#include "tolerance.h"

#include <lcms2.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

namespace {

struct ProfileCloser {
    void operator()(void *profile) const { cmsCloseProfile(profile); }
};
using Profile = std::unique_ptr<void, ProfileCloser>;

const double kSRGBExact[9] = {0.41238656325299170, 0.35759149092062537, 0.18045049120356368,
                              0.21263682167732384, 0.71518298184125070, 0.07218019648142547,
                              0.01933062015248399, 0.11919716364020845, 0.95037258700543540};

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

// A version 2 RGB display profile with the sRGB primaries and white, gamma 2.2: LittleCMS
// adapts the colorants to D50; the "wtpt" tag is then set to the D65 white as version 2
// profiles carry it.
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

// An ICC XYZType tag: "XYZ ", four reserved bytes, three big-endian s15Fixed16 numbers.
std::vector<unsigned char> xyzTag(uint32_t X, uint32_t Y, uint32_t Z)
{
    std::vector<unsigned char> tag = {'X', 'Y', 'Z', ' ', 0, 0, 0, 0};
    for (uint32_t v : {X, Y, Z})
        for (int shift = 24; shift >= 0; shift -= 8)
            tag.push_back(static_cast<unsigned char>(v >> shift));
    return tag;
}

// One step of the s15Fixed16 grid is 1/65536 = 1.5e-5.
constexpr double kTolS15Fixed16 = 2e-5;

constexpr uint32_t kOne = 0x00010000;
constexpr uint32_t kMinusHalf = 0xFFFF8000;

// An RGB profile holding only the given raw XYZ tags.
Profile
rawTagProfile(std::initializer_list<std::pair<cmsTagSignature, std::vector<unsigned char>>> tags)
{
    cmsHPROFILE profile = cmsCreateProfilePlaceholder(nullptr);
    cmsSetDeviceClass(profile, cmsSigDisplayClass);
    cmsSetColorSpace(profile, cmsSigRgbData);
    cmsSetPCS(profile, cmsSigXYZData);
    for (const auto &[signature, bytes] : tags)
        cmsWriteRawTag(profile, signature, bytes.data(),
                       static_cast<cmsUInt32Number>(bytes.size()));
    return reopened(profile);
}

void expectMatrix(const double *actual, const double (&expected)[9], double tolerance)
{
    for (int i = 0; i < 9; ++i) {
        SCOPED_TRACE(i);
        EXPECT_CLOSE(actual[i], expected[i], tolerance);
    }
}

TEST(MatrixForColorSpace, NullProfileIsSRGB)
{
    double m[9];
    RGB_to_XYZ_matrix_for_colorspace(m, nullptr);
    expectMatrix(m,
                 {kSRGBExact[0], kSRGBExact[1], kSRGBExact[2], kSRGBExact[3], kSRGBExact[4],
                  kSRGBExact[5], kSRGBExact[6], kSRGBExact[7], kSRGBExact[8]},
                 1e-15);
}

TEST(MatrixForColorSpace, NonRGBProfilesLeaveTheDestinationAlone)
{
    cmsToneCurve *gamma = cmsBuildGamma(nullptr, 2.2);
    const Profile grey(cmsCreateGrayProfile(cmsD50_xyY(), gamma));
    cmsFreeToneCurve(gamma);
    for (cmsHPROFILE profile : {static_cast<cmsHPROFILE>(grey.get()), CGColorSpaceD50Lab()}) {
        double m[9] = {2, 0, 0, 0, 4, 0, 0, 0, 8};
        RGB_to_XYZ_matrix_for_colorspace(m, profile);
        expectMatrix(m, {2, 0, 0, 0, 4, 0, 0, 0, 8}, 0);
        // The inverse then inverts the caller's matrix.
        XYZ_to_RGB_matrix_for_colorspace(m, profile);
        expectMatrix(m, {0.5, 0, 0, 0, 0.25, 0, 0, 0, 0.125}, 0);
    }
}

TEST(MatrixForColorSpace, Version2SRGBProfileGivesTheSRGBMatrix)
{
    // Within 1e-4: the tags are rounded to s15Fixed16 (1.5e-5), and LittleCMS adapted to its
    // D50 (0.9642, 1, 0.8249) while the way back starts from (0.96421, 1, 0.82519).
    const Profile profile = version2SRGB();
    ASSERT_NE(profile, nullptr);
    double m[9], inverse[9];
    RGB_to_XYZ_matrix_for_colorspace(m, profile.get());
    for (int i = 0; i < 9; ++i)
        EXPECT_CLOSE(m[i], kSRGBExact[i], 1e-4);
    XYZ_to_RGB_matrix_for_colorspace(inverse, profile.get());
    const XYZColor red = XYZ_from_RGB_using_matrix(m, {1, 0, 0, 1});
    const RGBColor back = RGB_from_XYZ_using_matrix(inverse, red);
    EXPECT_CLOSE(back.r, 1, kTolRoundTrip);
    EXPECT_CLOSE(back.g, 0, kTolRoundTrip);
}

TEST(MatrixForColorSpace, Version4ProfileMapsWhiteToItsD50WhitePointTag)
{
    // LittleCMS's own sRGB is a version 4 profile whose "wtpt" is D50 (0.9642, 1, 0.8249):
    // the colorants are still taken to D65, but the columns are scaled to that tag, as the
    // algorithm says.
    const Profile profile(cmsCreate_sRGBProfile());
    double m[9];
    RGB_to_XYZ_matrix_for_colorspace(m, profile.get());
    EXPECT_CLOSE(m[0] + m[1] + m[2], 0.9642, kTolS15Fixed16);
    EXPECT_CLOSE(m[3] + m[4] + m[5], 1, kTolS15Fixed16);
    EXPECT_CLOSE(m[6] + m[7] + m[8], 0.8249, kTolS15Fixed16);
}

TEST(MatrixForColorSpace, ReadsSignedBigEndianNumbersAndScalesColumns)
{
    // Colorants red (1, −0.5, 0), green (0, 1, 0), blue (0, 0, 1), white (1, 1, 1):
    // P = (1, 0, 0 / −0.5, 1, 0 / 0, 0, 1), S = P⁻¹ W = (1, 1.5, 1),
    // result = P · diag(S) = (1, 0, 0 / −0.5, 1.5, 0 / 0, 0, 1). The colorants do not sum to
    // D50, so no adaptation.
    const Profile profile = rawTagProfile({
        {cmsSigRedColorantTag, xyzTag(kOne, kMinusHalf, 0)},
        {cmsSigGreenColorantTag, xyzTag(0, kOne, 0)},
        {cmsSigBlueColorantTag, xyzTag(0, 0, kOne)},
        {cmsSigMediaWhitePointTag, xyzTag(kOne, kOne, kOne)},
    });
    double m[9];
    RGB_to_XYZ_matrix_for_colorspace(m, profile.get());
    expectMatrix(m, {1, 0, 0, -0.5, 1.5, 0, 0, 0, 1}, 0);
}

TEST(MatrixForColorSpace, NumbersPassThroughSinglePrecision)
{
    // Red X = 0x01000001 / 65536 = 256.0000152587890625, which single precision rounds to 256.
    // With red (a, 1, 0), green (0, 1, 0), blue (0, 0, 1) and white (1, 1, 1):
    // S = (1/a, 1 − 1/a, 1) and the result's m3 = 1/a, exactly 1/256 = 0.00390625 for a = 256
    // (0.0039062497672 had the number stayed in double precision).
    const Profile profile = rawTagProfile({
        {cmsSigRedColorantTag, xyzTag(0x01000001, kOne, 0)},
        {cmsSigGreenColorantTag, xyzTag(0, kOne, 0)},
        {cmsSigBlueColorantTag, xyzTag(0, 0, kOne)},
        {cmsSigMediaWhitePointTag, xyzTag(kOne, kOne, kOne)},
    });
    double m[9];
    RGB_to_XYZ_matrix_for_colorspace(m, profile.get());
    EXPECT_EQ(m[3], 0.00390625);
    EXPECT_EQ(m[4], 1 - 0.00390625);
}

TEST(MatrixForColorSpace, UnreadableTagsGiveZeros)
{
    // Blue missing and a white tag too short to hold its numbers: blue = (0, 0, 0), so
    // P = diag(1, 1, 0) is singular with adjugate diag(0, 0, 1); S = (0, 0, 0) and the whole
    // matrix is zero. Nothing is reported.
    const Profile profile = rawTagProfile({
        {cmsSigRedColorantTag, xyzTag(kOne, 0, 0)},
        {cmsSigGreenColorantTag, xyzTag(0, kOne, 0)},
        {cmsSigMediaWhitePointTag, {'X', 'Y', 'Z', ' ', 0, 0, 0, 0, 0, 1, 0, 0}},
    });
    double m[9] = {9, 9, 9, 9, 9, 9, 9, 9, 9};
    RGB_to_XYZ_matrix_for_colorspace(m, profile.get());
    expectMatrix(m, {0, 0, 0, 0, 0, 0, 0, 0, 0}, 0);
    XYZ_to_RGB_matrix_for_colorspace(m, profile.get()); // inverting zeros must not crash
}

TEST(MatrixForColorSpace, InstalledAdobeRGBCompatibleProfile)
{
    // Debian's icc-profiles-free: a version 2 profile with the Adobe RGB (1998) primaries.
    // Within 3e-4 of the chromaticities matrix: its "wtpt" is (0.950455, 1, 1.089050), not
    // exactly the table's D65.
    const char *path = "/usr/share/color/icc/compatibleWithAdobeRGB1998.icc";
    if (!std::filesystem::exists(path))
        GTEST_SKIP() << path << " is not installed";
    const Profile profile(cmsOpenProfileFromFile(path, "r"));
    ASSERT_NE(profile, nullptr);
    double m[9], expected[9];
    RGB_to_XYZ_matrix_for_colorspace(m, profile.get());
    RGB_to_XYZ_matrix_for_colorspace_chromaticities(expected, &gColorSpaceChromaticities_AdobeRGB);
    for (int i = 0; i < 9; ++i)
        EXPECT_CLOSE(m[i], expected[i], 3e-4);
}

} // namespace
