#pragma once
// RGB-to-XYZ matrices from the colorant and white-point tags of an ICC matrix profile
// [ICC.1-2010], read through LittleCMS 2. Part of the color_cms library.

#include <lcms2.h>

// Fills m (nine doubles, row-major) with the RGB-to-XYZ matrix of an RGB profile:
//  - a null profile gives the matrix of gColorSpaceChromaticities_sRGB;
//  - a profile whose colour space is not RGB (grey, CMYK, Lab) leaves m untouched;
//  - otherwise the "rXYZ", "gXYZ", "bXYZ" and "wtpt" tags are read raw, 12 bytes from offset
//    8 (three big-endian s15Fixed16 numbers), each number converted to single precision,
//    scaled by 2⁻¹⁶ in single precision, then widened (so values beyond 2²⁴/65536 = 256 lose
//    their low bits, as intended); an unreadable or short tag gives (0, 0, 0). When the three
//    colorants sum to D50 (are_XYZs_Adapted_to_D50) each is taken back from the D50 white
//    (0.9642119944211994, 1, 0.8251882845188288) to the D65 white (0.9504285453771807, 1,
//    1.0889003707981277) by Bradford (adapt_XYZ_to_XYZ, method 3); the matrix is then
//    RGB_to_XYZ_matrix_for_primaries of the colorants and the "wtpt" value.
// Unreadable tags give a singular, meaningless matrix; nothing is reported. For a version 2
// sRGB profile (colorants adapted to D50, "wtpt" D65) the result is the sRGB matrix of
// [IEC61966-2-1] to about 1e-4.
void RGB_to_XYZ_matrix_for_colorspace(double *m, cmsHPROFILE profile);

// The inverse of the above through invert_3x3_matrix. For a profile that is not RGB, the
// matrix inverted is m as the caller initialised it.
void XYZ_to_RGB_matrix_for_colorspace(double *m, cmsHPROFILE profile);
