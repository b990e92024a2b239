#pragma once
// Linear RGB ⇄ CIE XYZ: the fixed sRGB matrices, and matrices built from the chromaticities
// of a named working space. RGB is linear (no transfer curve); XYZ has the white's Y = 1.

#include "color_types.h"
#include "data/rgb_working_spaces.h"
#include "data/standard_illuminants.h"

// Fixed sRGB (D65) matrices [IEC61966-2-1], [Lindbloom]:
//   X = 0.4124564 r + 0.3575761 g + 0.1804375 b      r =  3.2404542 X − 1.5371385 Y − 0.4985314 Z
//   Y = 0.2126729 r + 0.7151522 g + 0.072175  b      g = −0.969266  X + 1.8760108 Y + 0.041556  Z
//   Z = 0.0193339 r + 0.119192  g + 0.9503041 b      b =  0.0556434 X − 0.2040259 Y + 1.0572252 Z

// XYZ of a linear sRGB colour; unclamped, alpha copied.
// Example: (1, 1, 1) → (0.95047, 1.0000001, 1.08883) (the rows of the published matrix).
XYZColor XYZ_from_sRGB(RGBColor rgb);
// Linear sRGB of an XYZ colour; r, g, b and alpha each clamped to 0..1 (NaN passes through).
// Example: (0.5, 1.2, 0.1, alpha 1.5) → (0, 1, 0, 1): r −0.274 and b −0.111 clamp to 0, g
// 1.771 and the alpha to 1.
RGBColor sRGB_from_XYZ(XYZColor xyz);

// RGB-to-XYZ matrix from the XYZ of three primaries and of the white [Lindbloom]: with P the
// primaries as columns and S = P⁻¹ W, the result is P with each column scaled by its S, so
// that (1, 1, 1) maps to W whatever the primaries' luminances. A singular P (|det| ≤ 1e-8)
// goes on with its adjugate, unreported: the matrix is then meaningless.
// Example: primaries (1, 0, 0), (0, 1, 0), (0, 0, 1) with white (0.5, 1, 2) → diag(0.5, 1, 2).
void RGB_to_XYZ_matrix_for_primaries(double *m, XYZTriple red, XYZTriple green, XYZTriple blue,
                                     XYZTriple white);

// RGB-to-XYZ matrix of a working space [Lindbloom]: each primary (x, y, Y) becomes
// (x Y / y, Y, (1 − x − y) Y / y) (X = Z = 0 when y = 0), the white W = (xw/yw, 1,
// (1 − xw − yw)/yw) ((0, 1, 0) when yw = 0), then RGB_to_XYZ_matrix_for_primaries: the stored
// Y of the primaries cancels out, as intended.
// Example: sRGB gives a middle row (0.2126368, 0.7151830, 0.0721802) summing to 1.
void RGB_to_XYZ_matrix_for_colorspace_chromaticities(double *m,
                                                     const ColorSpaceChromaticities *space);
// The inverse of the above, through invert_3x3_matrix (a failed inversion leaves the adjugate).
void XYZ_to_RGB_matrix_for_colorspace_chromaticities(double *m,
                                                     const ColorSpaceChromaticities *space);

// m · (r, g, b), unclamped, alpha copied. m: an RGB-to-XYZ matrix.
// Example: the identity and (−0.5, 2, 0.5, alpha 3) → (−0.5, 2, 0.5, 3).
XYZColor XYZ_from_RGB_using_matrix(const double *m, RGBColor rgb);
// m · (X, Y, Z), then r, g, b and alpha clamped to 0..1 (NaN passes through). m: an
// XYZ-to-RGB matrix. Example: the identity and (−0.5, 2, 0.5, alpha 3) → (0, 1, 0.5, 1).
RGBColor RGB_from_XYZ_using_matrix(const double *m, XYZColor xyz);

// The same through a working space, building (and for RGB_from_ inverting) its matrix on
// every call. Example: sRGB white (1, 1, 1) → (0.9504285453771807, 1, 1.0889003707981277).
XYZColor XYZ_from_RGB_using_colorspace_chromaticities(RGBColor rgb, ColorSpaceChromaticities space);
RGBColor RGB_from_XYZ_using_colorspace_chromaticities(XYZColor xyz, ColorSpaceChromaticities space);
