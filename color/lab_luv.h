#pragma once
// CIE XYZ ⇄ CIELAB and CIELUV, and the cylindrical forms of CIELUV (LCh and LSh).
//
// Both spaces are relative to one fixed white, D65 at x 0.31271, y 0.32902:
//   Xn = 0.9504285453771807, Yn = 1, Zn = 1.0889003707981277,
//   u'n = 0.1978294495177785, v'n = 0.468332168241386,
// with ε = 216/24389 = 0.008856451679035631 and κ = 24389/27 = 903.2962962962963
// [CIE015-2004] §8.2, with the exact rational ε and κ of [Lindbloom]. No function takes a
// white point; for D50 CIELAB (the CxF values) use a colour-management path instead.
// XYZ has the white's Y = 1; L is 0..100; alpha is carried through unchanged. Hues are in
// radians and never wrapped into [0, 2π). CIELAB to LCh is LCHab_from_Lab (hue.h).

#include "color_types.h"

// CIELAB [CIE015-2004]:
//   f(t) = ∛t for t > ε (strictly), else (κ t + 16) / 116
//   L = 116 f(Y) − 16, a = 500 (f(X/Xn) − f(Y)), b = 200 (f(Y) − f(Z/Zn))
// Exactly zero XYZ gives exactly (0, 0, 0). NaN in gives NaN out.
// Example: the white (0.9504285453771807, 1, 1.0889003707981277) → (100, 0, 0);
// (0.2, 0.3, 0.4) → (61.654222, −37.317013, −9.349990).
LabColor Lab_from_XYZ(XYZColor xyz);

// Inverse of Lab_from_XYZ: fy = (L + 16)/116, fx = fy + a/500, fz = fy − b/200;
//   xr = fx³ if fx³ > ε else (116 fx − 16)/κ (zr alike); yr = fy³ (as pow) if L > 8 else L/κ.
// No clamping: out-of-gamut input may give negative components.
// Example: (50, 20, −30) → (0.2146335, 0.1841865, 0.4046805).
XYZColor XYZ_from_Lab(LabColor lab);

// CIELUV [CIE015-2004]: d = X + 15 Y + 3 Z, u' = 4X/d, v' = 9Y/d,
//   L = 116 ∛Y − 16 for Y > ε else κ Y, u = 13 L (u' − u'n), v = 13 L (v' − v'n).
// Exactly zero XYZ gives (0, 0, 0). Example: (0.2, 0.3, 0.4) → (61.654222, −49.882642, −8.580150).
LuvColor Luv_from_XYZ(XYZColor xyz);

// Inverse of Luv_from_XYZ: u' = u/(13 L) + u'n, v' = v/(13 L) + v'n,
//   Y = ((L + 16)/116)³ for L > 8 else L/κ, X = 9 Y u' / (4 v'), Z = Y (12 − 3u' − 20v') / (4 v');
// X and Z are clamped below at 0, Y is not. L ≤ 0 gives (0, 0, 0); NaN gives NaN.
// Example: Luv_from_XYZ's example (61.654222, −49.882642, −8.580150) → (0.2, 0.3, 0.4).
XYZColor XYZ_from_Luv(LuvColor luv);

// The same inverse by the other algebraic route [Lindbloom] ("Luv to XYZ"), kept beside the
// first on purpose: a = (52 L / (u + 13 L u'n) − 1)/3, b = −5 Y, d = Y (39 L / (v + 13 L v'n) − 5),
// X = (d − b)/(a + 1/3), Z = X a + b. No L ≤ 0 guard (L = 0 gives NaN) and no clamping.
// Example: as XYZ_from_Luv for in-gamut colours; (50, −100, −400) gives a negative X.
XYZColor XYZ_from_Luv_Bruce(LuvColor luv);

// Chroma C*uv = hypot(u, v). Example: (50, 3, 4) → 5.
double chroma_Luv(LuvColor luv);
// Saturation s_uv = hypot(u, v) / L; infinity or NaN for L = 0. Example: (50, 3, 4) → 0.1.
double saturationCorrelate_Luv(LuvColor luv);

// C = √(u² + v²), h = atan2(v, u) (the exact arctangent), in [−π, π]. NaN in, NaN out.
// Example: (50, 0, −5) → C 5, h −π/2.
LChColor LCHuv_from_Luv(LuvColor luv);
// u = C cos h, v = C sin h. Example: (60, 5, −π/2) → (60, ≈0, −5).
LuvColor Luv_from_LCHuv(LChColor lch);

// L, saturation S = hypot(u, v)/L in the C member, h = fast_atan2(v, u) (within about 10 mrad
// of the exact hue). S is infinite or NaN for L = 0. Example: (50, 3, 4) → S 0.1.
LChColor LSHuv_from_Luv(LuvColor luv);
// C = S L, u = C cos h, v = C sin h. Inverse of LSHuv_from_Luv up to its arctangent error.
LuvColor Luv_from_LSHuv(LChColor lsh);

// C / L of an LCh colour; infinity or NaN for L = 0. Example: (50, 25, h) → 0.5.
double saturationCorrelate_LCH(LChColor lch);
