#pragma once
// RGB weights, transfer curves and the lightness scale: luminance and luma from three
// channels, the sRGB, Rec. 709 and plain power-law curves, and CIE lightness (L* / 100) from
// relative luminance and back. Double precision; nothing reports, and NaN passes through.

#include "color_types.h"

// ---- Luminance and luma weights ----
//
//   Y = wR·R + wG·G + wB·B
//   NTSC               0.299     0.5864    0.1146    [ITU-R-BT601] prints 0.299, 0.587, 0.114
//   SMPTE 240M         0.2124    0.7011    0.0866    [SMPTE240M] prints 0.212, 0.701, 0.087
//   sRGB / Rec. 709    0.212671  0.71516   0.072169  [ITU-R-BT709] primaries, D65 white
//
// Kept on purpose: the NTSC and SMPTE 240M weights are the four-digit values above, not the
// published three-digit ones. Each pair of functions shares one set: the luminance form takes
// linear channels, the luma form gamma-encoded ones, and the arithmetic is the same.

// Example: (1, 1, 1) → 1 (the three weights sum to one); (0, 1, 0) → 0.5864.
double luminance_from_linear_NTSC(double red, double green, double blue);
double luma_from_gamma_NTSC(double red, double green, double blue);
// Example: (0, 0, 1) → 0.0866.
double luma_from_gamma_SMPTE_240M(double red, double green, double blue);
// Example: (1, 0, 0) → 0.212671.
double luminance_from_linear_sRGB(double red, double green, double blue);
double luma_from_gamma_sRGB(double red, double green, double blue);

// ---- Transfer curves (in place) ----
//
// sRGB [IEC61966-2-1]:   V ≤ 0.04045:   L = V / 12.92;  else L = ((V + 0.055) / 1.055)^2.4
//                        L ≤ 0.0031308: V = 12.92 L;    else V = 1.055 L^(1/2.4) − 0.055
// Rec. 709 [ITU-R-BT709]: V ≤ 0.081:    L = V / 4.5;    else L = ((V + 0.099) / 1.099)^(1/0.45)
//                        L ≤ 0.018:     V = 4.5 L;      else V = 1.099 L^0.45 − 0.099
// Both break points belong to the linear segment. The rgb_ forms change red, green and blue
// and leave alpha; the E709 forms change one value. Values below 0 take the linear segment;
// NaN stays NaN.

// Decodes sRGB channels to linear. Example: 0.5 → 0.21404114048223255; 0.04045 → 0.04045 / 12.92.
void rgb_sRGB_to_linear(RGBColor *rgb);
// Encodes linear channels as sRGB. Example: 0.21404114048223255 → 0.5; 0.0031308 → 0.04044993.
void rgb_linear_to_sRGB(RGBColor *rgb);
// Decodes one Rec. 709 value to linear. Example: 0.081 → 0.018; 1 → 1.
void E709_to_linear(double *v);
// Encodes one linear value with the Rec. 709 curve. Example: 0.18 → 0.40900773.
void linear_to_E709(double *v);
void rgb_Rec709_to_linear(RGBColor *rgb);
void rgb_linear_to_Rec709(RGBColor *rgb);

// Plain power laws; the gamma is always the caller's (the library holds no default). A
// negative channel with a non-integer gamma gives NaN, as pow does.
// Each channel v becomes v^gamma. Example: 0.5 with gamma 2.2 → 0.21763764.
void rgb_display_gamma_to_linear(RGBColor *rgb, double gamma);
// Each channel v becomes v^(1/gamma). Example: 0.21763764 with gamma 2.2 → 0.5.
void rgb_image_gamma_to_linear(RGBColor *rgb, double gamma);
// The same two operations under their other names: raising to the gamma linearises a
// display-encoded value and encodes a linear one for an image whose gamma is 1/gamma.
inline constexpr auto &rgb_linear_to_image_gamma = rgb_display_gamma_to_linear;
inline constexpr auto &rgb_linear_to_display_gamma = rgb_image_gamma_to_linear;

// ---- Lightness (L* / 100) and relative luminance ----
//
// [CIE015-2004]: t = Y / Yn; t ≤ 216/24389: L = t · (24389/27) / 100;
//                else L = 1.16 t^(1/3) − 0.16.
// The inverse expands ((L + 0.16) / 1.16)³ into a cubic with the coefficients below, and below
// L = 0.08 uses L / 9.03. Kept on purpose: 1/9.03 is not the exact inverse of 903.2963 / 100,
// so a dark value comes back 0.033 % light after a round trip.

// CIE lightness over 100 from luminance Y and the white's Yn (same units).
// Bad input: Yn = 0 gives ±inf or NaN; negative Y takes the linear segment.
// Example: (1, 1) → 1.0; (0.5, 1) → 0.7606926101415556.
double lightness_from_luminance(double Y, double Yn);
// Relative luminance (white 1) from lightness L* / 100.
// Example: 1.0 → 1.0 to within rounding; 0.5 → 0.18418651851244416; 0.05 → 0.05 / 9.03.
double luminance_from_lightness(double L);
