#pragma once
// Chromaticity diagrams and correlated colour temperature: CIE XYZ and xyY, the CIE 1931 xy,
// CIE 1960 uv and CIE 1976 u'v' diagrams, the spectrum-locus test, and conversions between a
// correlated colour temperature (CCT, kelvin) and a chromaticity.
//
// Nothing allocates, keeps state or reports: out-of-range temperatures give (0, 0) or are not
// checked, failed searches give 0, y = 0 gives zero XYZ, zero XYZ gives the equal-energy
// point. References (docs/references.md): [CIE015-2004], [Robertson1968], [Wyszecki1982],
// [McCamy1992], [HernandezAndres1999], [Kang2002], [Krystek1985].

#include "color_types.h"

struct xyChromaticity {
    double x, y; // CIE 1931
};

struct uvChromaticity {
    double u, v; // CIE 1960 UCS
};

struct upvpChromaticity {
    double up, vp; // CIE 1976 UCS u', v'
};

struct xyYTriple {
    double x, y, Y;
};

// --- XYZ, xy and xyY ---------------------------------------------------------------------
// x = X / S, y = Y / S with S = X + Y + Z [CIE015-2004]; X = x·Y / y, Z = (1 − x − y)·Y / y.

// Chromaticity of a tristimulus value.
// X, Y, Z: any scale. Result: (X / S, Y / S), S = X + Y + Z; (1/3, 1/3) when all three are
// 0; a sum of 0 from values of mixed signs gives infinities or NaN.
// Example: (0.95047, 1, 1.08883) gives (0.3127266146810121, 0.3290231303260619).
xyChromaticity xy_from_XYZ(double X, double Y, double Z);

// xy_from_XYZ through pointers: writes x and y (a null pointer is skipped).
void XYZ_to_xy(double *x, double *y, double X, double Y, double Z);

// XYZ_from_xy through pointers: writes (x / y, 1, (1 − x − y) / y), or zeros when y = 0
// (a null pointer is skipped).
void xy_to_XYZ(double *X, double *Y, double *Z, double x, double y);

// (x / y, 1, (1 − x − y) / y); (0, 0, 0) when y = 0.
// Example: the D65 white (0.31271, 0.32902) gives (0.9504285453771807, 1, 1.0889003707981277).
XYZTriple XYZ_from_xy(double x, double y);

// Chromaticity and luminance of a tristimulus value.
// Result: (x, y, Y) as xy_from_XYZ, Y unchanged; (1/3, 1/3, 0) for zero input.
// Example: (0.95047, 1, 1.08883) gives (0.3127266146810121, 0.3290231303260619, 1).
xyYTriple xyY_from_XYZ(double X, double Y, double Z);

// xyY_from_XYZ through pointers (a null pointer is skipped).
void XYZ_to_xyY(double *x, double *y, double *Y_out, double X, double Y, double Z);

// Tristimulus value of a chromaticity x, y with luminance Y.
// Result: (x·Y / y, Y, (1 − x − y)·Y / y); all 0 when y = 0.
// Example: (0.31271, 0.32902, 0.5) gives (0.47521427268859034, 0.5, 0.5444501853990639).
XYZTriple XYZ_from_xyY(double x, double y, double Y);

// XYZ_from_xyY through pointers (a null pointer is skipped).
void xyY_to_XYZ(double *X, double *Y_out, double *Z, double x, double y, double Y);

// --- Spectrum locus ----------------------------------------------------------------------
// Even-odd ray test against the polygon of the locus from 360 to 700 nm (the first 341 rows of
// gCIE1931_nm_xy), closed by the line of purples from 700 nm back to 360 nm; points outside
// the stored bounds of the whole table are rejected first.

// Whether the chromaticity x, y lies inside the CIE 1931 spectrum locus.
// Result: true inside; false outside, on the far side of the line of purples, or for NaN.
// Points exactly on an edge may fall either way.
// Example: (0.3127, 0.329) is inside, (0.1, 0.01) outside.
bool xy_inside_CIE1931_locus(double x, double y);

// --- The uniform chromaticity scales -----------------------------------------------------
// [CIE015-2004]: with D = −2x + 12y + 3,  u = u' = 4x / D,  v = 6y / D,  v' = 9y / D = 1.5 v.
// Inverses: x = 3u / (2u − 8v + 4), y = 2v / (2u − 8v + 4);
//           x = 9u' / (6u' − 16v' + 12), y = 4v' / (6u' − 16v' + 12).
// A zero denominator gives infinities or NaN.

// CIE 1960 uv of a CIE 1931 xy.
// Example: (0.31271, 0.32902) gives (0.19782944951777845, 0.3122214454942573).
uvChromaticity CIE_1960_uv_from_1931_xy(double x, double y);

// CIE 1931 xy of a CIE 1960 uv.
// Example: (0.19783, 0.31222) gives (0.3127087833921703, 0.32901628115285314).
xyChromaticity CIE_1931_xy_from_1960_uv(double u, double v);

// CIE 1976 u'v' of a CIE 1931 xy.
// Example: (0.31271, 0.32902) gives (0.19782944951777845, 0.46833216824138596).
upvpChromaticity CIE_1976_upvp_from_1931_xy(double x, double y);

// CIE 1931 xy of a CIE 1976 u'v'.
// Example: (0.19783, 0.46833) gives (0.3127087833921703, 0.32901628115285314).
xyChromaticity CIE_1931_xy_from_1976_upvp(double up, double vp);

// u'v' of a uv: (u, v·3·0.5). Example: (0.19783, 0.31222) gives (0.19783, 0.46833).
upvpChromaticity CIE_1976_upvp_from_1960_uv(double u, double v);

// uv of a u'v': (u', 2v' / 3). Example: (0.19783, 0.46833) gives (0.19783, 0.31222).
uvChromaticity CIE_1960_uv_from_1976_upvp(double up, double vp);

// Kept on purpose despite its name: writes u' = u and v' = 2v / 3, the u'v'-to-uv scaling, so
// that existing callers keep their numbers; CIE_1976_upvp_from_1960_uv is the one that applies
// 1.5. A null pointer is skipped.
// Example: (0.19783, 0.46833) writes 0.19783 and 0.31222.
void uv_1960_to_upvp_1976(double u, double v, double *up, double *vp);

// --- Planckian locus from a temperature --------------------------------------------------
// Cubic spline of [Kang2002], T in kelvin, both range ends inclusive:
//   1667 ≤ T ≤ 4000:   x = −2.661239e8/T³ − 234358/T² + 877.6956/T + 0.17991
//     T ≤ 2222:        y = −1.1063814x³ − 1.3481102x² + 2.18555832x − 0.20219683
//     2222 < T:        y = −0.9549476x³ − 1.37418593x² + 2.09137015x − 0.16748867
//   4000 < T ≤ 25000:  x = −3.0258469e9/T³ + 2107037.9/T² + 222.6347/T + 0.24039
//                      y = 3.081758x³ − 5.8733867x² + 3.75112997x − 0.37001483
// Kept on purpose: the T⁻² coefficient of the low range is 234358, where the paper prints
// 0.2343589e6; the difference is 0.9/T² in x (2.3e-7 at 2000 K).
// Rational fit of [Krystek1985], for 1000 K to 15000 K:
//   u = (0.860117757 + 1.54118254e-4 T + 1.28641212e-7 T²)
//       / (1 + 8.42420235e-4 T + 7.08145163e-7 T²)
//   v = (0.317398726 + 4.22806245e-5 T + 4.20481691e-8 T²)
//       / (1 − 2.89741816e-5 T + 1.61456053e-7 T²)

// CIE 1931 xy of the Planckian radiator at temperature T (kelvin, 1667 to 25000).
// Result: the spline point; (0, 0) outside the range or for NaN.
// Example: 2000 gives (0.5269028125, 0.4132648495295301).
xyChromaticity CIE_1931_xy_from_CCT(double T);

// CIE 1960 uv of the Planckian radiator at temperature T (kelvin; the fit holds for 1000 to
// 15000 K). Result: the fitted point, with no range check.
// Example: 6500 gives (0.20049470391815155, 0.31032361997499536).
uvChromaticity CIE_1960_uv_from_CCT(double T);

// Whether T (kelvin) is a temperature the spline covers: 1666.7 ≤ T < 1e6. NaN is not.
bool is_temp_valid(double T);

// --- Correlated colour temperature from a chromaticity -----------------------------------
// Robertson [Robertson1968] on gIsoTempData: with u = 4X / D, v = 6Y / D, D = X + 15Y + 3Z,
// di = (v − vi) − ti (u − ui) for each isotherm i. Between the first two lines where di
// changes sign (one below 0, the other 0 or above), with each d divided by √(1 + t²):
//   f = d(i−1) / (d(i−1) − di),   T = 10⁶ / (r(i−1) + f (ri − r(i−1))).
// McCamy [McCamy1992], kept with the sign of its cubic term reversed:
//   n = (x − 0.332) / (y − 0.1858),   T = 449 n³ + 3525 n² − 6823.3 n + 5520.33
//   (the paper's T = −449 n³ + ... in this n; for D65 this gives 2.2 K less).
// Exponential fit [HernandezAndres1999], T = A0 + A1 e^(−n/t1) + A2 e^(−n/t2) + A3 e^(−n/t3):
//   n = (x − 0.3366) / (y − 0.1735), A0 −949.86315, A1 6253.80338, t1 0.92159,
//   A2 28.70599, t2 0.20039, A3 0.00004, t3 0.07125; when that gives 50000 or more:
//   n = (x − 0.3356) / (y − 0.1691), A0 36284.48953, A1 0.00228, t1 0.07861,
//   A2 5.4535e-36, t2 0.01543 (the third term of this range is zero).

// Values of CCT_from_xy's method argument; any other value selects the exponential fit.
inline constexpr int kCCTMethodMcCamy = 0;
inline constexpr int kCCTMethodExponential = 1;
inline constexpr int kCCTMethodRobertson = 2;

// Correlated colour temperature of a tristimulus value by Robertson's method.
// X, Y, Z: any scale. Result: kelvin, between about 1667 K (600 mired) and infinity (0 mired);
// 0 when X, Y and Z are all below 1e-20, or when the point lies beyond the table's span so
// that no sign change occurs (NaN input included).
// Example: the D65 white (0.9504285453771807, 1, 1.0889003707981277) gives 6503.0106 K.
double CCT_from_XYZ(double X, double Y, double Z);

// Correlated colour temperature of a chromaticity x, y by the chosen method
// (kCCTMethodMcCamy, kCCTMethodExponential, kCCTMethodRobertson; any other value is the
// exponential fit). Result: kelvin; Robertson gives 0 as CCT_from_XYZ does, y = 0 included;
// the two fits give whatever their formulas give (infinities or NaN at their poles).
// Example: (0.31271, 0.32902) gives 6503.0106 K by Robertson, 6502.1953 K by McCamy as kept
// here, 6500.0422 K by the exponential fit.
double CCT_from_xy(int method, double x, double y);
