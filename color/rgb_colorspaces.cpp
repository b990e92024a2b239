#include "rgb_colorspaces.h"

#include "chromaticity.h"
#include "matrix3x3.h"

namespace {

// A value below 0 becomes 0, above 1 becomes 1; NaN fails both tests and passes through.
double clamp_unit(double v)
{
    if (v < 0)
        return 0;
    if (v > 1)
        return 1;
    return v;
}

RGBColor clamped(RGBColor rgb)
{
    return {clamp_unit(rgb.r), clamp_unit(rgb.g), clamp_unit(rgb.b), clamp_unit(rgb.alpha)};
}

// XYZ of a primary from its chromaticity and luminance; X = Z = 0 when y = 0.
XYZTriple XYZ_of_primary(double x, double y, double Y)
{
    if (y == 0)
        return {0, Y, 0};
    return {x * Y / y, Y, (1 - x - y) * Y / y};
}

} // namespace

XYZColor XYZ_from_sRGB(RGBColor rgb)
{
    return {0.4124564 * rgb.r + 0.3575761 * rgb.g + 0.1804375 * rgb.b,
            0.2126729 * rgb.r + 0.7151522 * rgb.g + 0.072175 * rgb.b,
            0.0193339 * rgb.r + 0.119192 * rgb.g + 0.9503041 * rgb.b, rgb.alpha};
}

RGBColor sRGB_from_XYZ(XYZColor xyz)
{
    return clamped({3.2404542 * xyz.X - 1.5371385 * xyz.Y - 0.4985314 * xyz.Z,
                    -0.969266 * xyz.X + 1.8760108 * xyz.Y + 0.041556 * xyz.Z,
                    0.0556434 * xyz.X - 0.2040259 * xyz.Y + 1.0572252 * xyz.Z, xyz.alpha});
}

void RGB_to_XYZ_matrix_for_primaries(double *m, XYZTriple red, XYZTriple green, XYZTriple blue,
                                     XYZTriple white)
{
    // clang-format off
    const double P[9] = {
        red.X, green.X, blue.X,
        red.Y, green.Y, blue.Y,
        red.Z, green.Z, blue.Z,
    };
    // clang-format on
    const double W[3] = {white.X, white.Y, white.Z};
    double Pinv[9], S[3];
    invert_3x3_matrix(Pinv, P); // a singular P goes on with its adjugate
    multiply_3x3_by_3x1_matrix(S, Pinv, W);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            m[3 * row + column] = P[3 * row + column] * S[column];
}

void RGB_to_XYZ_matrix_for_colorspace_chromaticities(double *m,
                                                     const ColorSpaceChromaticities *space)
{
    // XYZ_from_xy gives (0, 0, 0) for y = 0; this builder keeps Y = 1 there.
    const XYZTriple white = space->wy != 0 ? XYZ_from_xy(space->wx, space->wy) : XYZTriple{0, 1, 0};
    RGB_to_XYZ_matrix_for_primaries(m, XYZ_of_primary(space->rx, space->ry, space->rY),
                                    XYZ_of_primary(space->gx, space->gy, space->gY),
                                    XYZ_of_primary(space->bx, space->by, space->bY), white);
}

void XYZ_to_RGB_matrix_for_colorspace_chromaticities(double *m,
                                                     const ColorSpaceChromaticities *space)
{
    double forward[9];
    RGB_to_XYZ_matrix_for_colorspace_chromaticities(forward, space);
    invert_3x3_matrix(m, forward);
}

XYZColor XYZ_from_RGB_using_matrix(const double *m, RGBColor rgb)
{
    return {m[0] * rgb.r + m[1] * rgb.g + m[2] * rgb.b, m[3] * rgb.r + m[4] * rgb.g + m[5] * rgb.b,
            m[6] * rgb.r + m[7] * rgb.g + m[8] * rgb.b, rgb.alpha};
}

RGBColor RGB_from_XYZ_using_matrix(const double *m, XYZColor xyz)
{
    return clamped({m[0] * xyz.X + m[1] * xyz.Y + m[2] * xyz.Z,
                    m[3] * xyz.X + m[4] * xyz.Y + m[5] * xyz.Z,
                    m[6] * xyz.X + m[7] * xyz.Y + m[8] * xyz.Z, xyz.alpha});
}

XYZColor XYZ_from_RGB_using_colorspace_chromaticities(RGBColor rgb, ColorSpaceChromaticities space)
{
    double m[9];
    RGB_to_XYZ_matrix_for_colorspace_chromaticities(m, &space);
    return XYZ_from_RGB_using_matrix(m, rgb);
}

RGBColor RGB_from_XYZ_using_colorspace_chromaticities(XYZColor xyz, ColorSpaceChromaticities space)
{
    double m[9];
    XYZ_to_RGB_matrix_for_colorspace_chromaticities(m, &space);
    return RGB_from_XYZ_using_matrix(m, xyz);
}
