#include "icc_colorspace_matrix.h"

#include "adaptation.h"
#include "chromaticity.h"
#include "matrix3x3.h"
#include "rgb_colorspaces.h"

#include <cstdint>
#include <vector>

namespace {

// An ICC XYZType tag: "XYZ " signature, 4 reserved bytes, then the three s15Fixed16 numbers.
constexpr cmsUInt32Number kXYZNumberOffset = 8;
constexpr cmsUInt32Number kXYZNumberEnd = kXYZNumberOffset + 12;

// Big-endian s15Fixed16 to double, kept on purpose through single precision.
double s15Fixed16_at(const unsigned char *bytes)
{
    const uint32_t bits = uint32_t(bytes[0]) << 24 | uint32_t(bytes[1]) << 16 |
                          uint32_t(bytes[2]) << 8 | uint32_t(bytes[3]);
    const float value = static_cast<float>(static_cast<int32_t>(bits));
    return static_cast<double>(value * (1.0f / 65536.0f));
}

XYZTriple read_XYZ_tag(cmsHPROFILE profile, cmsTagSignature signature)
{
    const cmsUInt32Number size = cmsReadRawTag(profile, signature, nullptr, 0);
    if (size < kXYZNumberEnd)
        return {0, 0, 0};
    std::vector<unsigned char> bytes(size);
    if (cmsReadRawTag(profile, signature, bytes.data(), size) < kXYZNumberEnd)
        return {0, 0, 0};
    const unsigned char *numbers = bytes.data() + kXYZNumberOffset;
    return {s15Fixed16_at(numbers), s15Fixed16_at(numbers + 4), s15Fixed16_at(numbers + 8)};
}

} // namespace

void RGB_to_XYZ_matrix_for_colorspace(double *m, cmsHPROFILE profile)
{
    if (!profile) {
        RGB_to_XYZ_matrix_for_colorspace_chromaticities(m, &gColorSpaceChromaticities_sRGB);
        return;
    }
    if (cmsGetColorSpace(profile) != cmsSigRgbData)
        return;

    XYZTriple red = read_XYZ_tag(profile, cmsSigRedColorantTag);
    XYZTriple green = read_XYZ_tag(profile, cmsSigGreenColorantTag);
    XYZTriple blue = read_XYZ_tag(profile, cmsSigBlueColorantTag);
    const XYZTriple white = read_XYZ_tag(profile, cmsSigMediaWhitePointTag);

    // Colorants adapted to the D50 connection space are taken back to D65 (the whites of
    // XYZ_from_xy at 0.34567, 0.3585 and 0.31271, 0.32902).
    if (are_XYZs_Adapted_to_D50(red, green, blue)) {
        const XYZTriple d50 = XYZ_from_xy(gStandardIlluminant_D50.x2, gStandardIlluminant_D50.y2);
        const XYZTriple d65 = XYZ_from_xy(gStandardIlluminant_D65.x2, gStandardIlluminant_D65.y2);
        adapt_XYZ_to_XYZ(&red, &d50, &red, &d65, kAdaptationBradfordToo);
        adapt_XYZ_to_XYZ(&green, &d50, &green, &d65, kAdaptationBradfordToo);
        adapt_XYZ_to_XYZ(&blue, &d50, &blue, &d65, kAdaptationBradfordToo);
    }
    RGB_to_XYZ_matrix_for_primaries(m, red, green, blue, white);
}

void XYZ_to_RGB_matrix_for_colorspace(double *m, cmsHPROFILE profile)
{
    double forward[9];
    if (profile && cmsGetColorSpace(profile) != cmsSigRgbData)
        copy_3x3_matrix(forward, m); // not RGB: the caller's matrix is what gets inverted
    else
        RGB_to_XYZ_matrix_for_colorspace(forward, profile);
    invert_3x3_matrix(m, forward);
}
