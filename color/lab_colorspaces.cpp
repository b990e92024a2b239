#include "lab_colorspaces.h"

#include "chromaticity.h"
#include "data/standard_illuminants.h"

namespace {

cmsHPROFILE create_lab_profile(const StandardIlluminant &illuminant)
{
    const XYZTriple white = XYZ_from_xy(illuminant.x2, illuminant.y2);
    const cmsCIEXYZ whiteXYZ = {white.X, white.Y, white.Z};
    cmsCIExyY whitexyY;
    cmsXYZ2xyY(&whitexyY, &whiteXYZ);
    return cmsCreateLab4Profile(&whitexyY);
}

cmsHTRANSFORM create_D50_Lab_to_sRGB(cmsUInt32Number outputFormat)
{
    cmsHPROFILE sRGB = cmsCreate_sRGBProfile();
    // No 1-pixel cache: the shared transform may then be used from several threads.
    cmsHTRANSFORM transform =
        cmsCreateTransform(CGColorSpaceD50Lab(), TYPE_Lab_DBL, sRGB, outputFormat,
                           INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOCACHE);
    cmsCloseProfile(sRGB); // the transform keeps what it needs
    return transform;
}

double clip_unit(double v)
{
    if (v < 0)
        return 0;
    if (v > 1)
        return 1;
    return v;
}

} // namespace

cmsHPROFILE CGColorSpaceD50Lab()
{
    static const cmsHPROFILE profile = create_lab_profile(gStandardIlluminant_D50);
    return profile;
}

cmsHPROFILE CGColorSpaceD65Lab()
{
    static const cmsHPROFILE profile = create_lab_profile(gStandardIlluminant_D65);
    return profile;
}

RGBColor sRGB_from_D50_Lab(LabColor lab)
{
    static const cmsHTRANSFORM transform = create_D50_Lab_to_sRGB(TYPE_RGB_DBL);
    const cmsCIELab in = {lab.L, lab.a, lab.b};
    double out[3] = {0, 0, 0};
    if (transform)
        cmsDoTransform(transform, &in, out, 1);
    return {clip_unit(out[0]), clip_unit(out[1]), clip_unit(out[2]), lab.alpha};
}

std::array<uint8_t, 3> sRGB8_from_D50_Lab(LabColor lab)
{
    static const cmsHTRANSFORM transform = create_D50_Lab_to_sRGB(TYPE_RGB_8);
    const cmsCIELab in = {lab.L, lab.a, lab.b};
    std::array<uint8_t, 3> out = {0, 0, 0};
    if (transform)
        cmsDoTransform(transform, &in, out.data(), 1);
    return out;
}
