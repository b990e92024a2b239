#pragma once
// Linear RGB ⇄ LCh through a caller-supplied 3x3 matrix (nine doubles, row-major, applied to
// column vectors; see matrix3x3.h and rgb_colorspaces.h for building one). RGB is linear: no
// transfer curve is applied on either side. CIELAB and CIELUV are relative to the fixed D65
// white of lab_luv.h, so the matrix should be a D65 one (e.g. sRGB's).

#include "color_types.h"

// LCh(uv) → Luv (u = C cos h, v = C sin h) → XYZ_from_Luv → RGB_from_XYZ_using_matrix, which
// clamps r, g, b and alpha to 0..1. m: an XYZ-to-RGB matrix.
// Example: (100, 0, h) through the sRGB inverse matrix → (1, 1, 1).
RGBColor rgb_from_LCHuv_using_matrix(const double *m, LChColor lch);

// m · (r, g, b) (unclamped) → Luv_from_XYZ → C = √(u² + v²), h = atan2(v, u) (exact).
// m: an RGB-to-XYZ matrix. Example: linear sRGB red (1, 0, 0) → L 53.236879, C 179.035900,
// h 0.212483.
LChColor LChuv_from_rgb_using_matrix(const double *m, RGBColor rgb);

// LCh(ab) → Lab_from_LCHab → XYZ_from_Lab → RGB_from_XYZ_using_matrix (clamped).
// Example: (53.236879, 104.550823, 39.99753°) through the sRGB inverse matrix → (1, 0, 0).
RGBColor rgb_from_LCHab_using_matrix(const double *m, LChColor lch);

// m · (r, g, b) (unclamped) → Lab_from_XYZ → LCHab_from_Lab (fast arctangent hue).
// Example: linear sRGB red (1, 0, 0) → L 53.236879, C 104.550823, h ≈ 40.0° (in radians,
// within the arctangent's 10 mrad).
LChColor LChab_from_rgb_using_matrix(const double *m, RGBColor rgb);
