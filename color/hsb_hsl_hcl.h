#pragma once
// RGB and three cylindrical models: HSB (hue, saturation, brightness), HSL (hue, saturation,
// lightness) and HCL (hue, chroma, luma with the sRGB / Rec. 709 weights of rgb_transfer.h),
// plus three ways to blend two HCL colours. Hue is in turns (0..1 covers the circle) in all
// three models. Records go in and out by value, alpha is copied unchanged, nothing reports.
//
// Hue from RGB [Smith1978] [Joblove1978], with mn and mx the smallest and largest channel
// and d = mx − mn > 0, the sector chosen by the channel that equals mn:
//   red = mn:          h = 3 − (green − blue) / d
//   green = mn:        h = 5 − (blue − red) / d
//   otherwise (blue):  h = 1 − (red − green) / d
//   hue = h / 6
// These agree with the usual hexcone hue, which picks the sector by the maximum instead. Pure
// red comes out as hue 1.0 (green is found equal to the minimum first), which is the same
// place on the circle as 0 and is left as it is.
//
// Back to RGB, one hexcone step for a hue in turns and a chroma C: the hue is brought into
// [0, 1) by whole turns (subtracting, then adding), H = 6 hue,
// X = C (1 − |fmod(H, 2) − 1|) with the remainder in single precision, and by the sector of H
// (C, X, 0), (X, C, 0), (0, C, X), (0, X, C), (X, 0, C), (C, 0, X); a NaN or infinite hue gives
// (0, 0, 0). Each model then adds its own offset m to the three channels.

#include "color_types.h"

struct HSBColor {
    double hue, saturation, brightness, alpha; // hue in turns
};

struct HSLColor {
    double hue, saturation, lightness, alpha; // hue in turns
};

struct HCLColor {
    double hue, chroma, saturation, luma, alpha; // hue in turns; chroma = max − min
};

// HSB from RGB: brightness = mx, saturation = d / mx, hue as above. Kept on purpose: mn and mx
// are taken in single precision (each channel narrowed to float) and widened back, and the hue
// compares the double channels with that widened minimum, so a channel that is not exactly a
// float never equals it and the hue falls to the "otherwise" line whichever channel is
// smallest; brightness is likewise mx as a float.
// rgb: channels nominally 0..1 (any values are taken). A grey (d = 0) gives hue 0 and
// saturation 0. Bad input: mx = 0 with d ≠ 0 gives infinite saturation; NaN gives NaN.
// Example: (1, 0, 0) → (1.0, 1, 1); (0.25, 0.5, 0.75) → (7/12, 2/3, 0.75).
HSBColor hsb_from_rgb(RGBColor rgb);
// RGB from HSB: C = saturation × brightness, hexcone step, m = brightness − C.
// Bad input: never reports; a NaN or infinite hue gives no chroma, the grey (m, m, m).
// Example: (7/12, 2/3, 0.75) → (0.25, 0.5, 0.75); hue 1.0 and −0.25 give the colours of 0
// and 0.75.
RGBColor rgb_from_hsb(HSBColor hsb);

// HSL from RGB, in double precision: lightness L = (mn + mx) × 0.5, saturation
// d / (1 − |2L − 1|), hue as above (red tested first, then whether green differs from mn).
// A grey gives hue 0 and saturation 0. Bad input: never reports; outside the unit cube the
// saturation may be negative or infinite.
// Example: (0.2, 0.4, 0.6) → (210/360, 0.5, 0.4); (1, 1, 1) → (0, 0, 1).
HSLColor hsl_from_rgb(RGBColor rgb);
// RGB from HSL: C = (1 − |2 × lightness − 1|) × saturation, hexcone step, m = lightness − C/2.
// Bad input: as rgb_from_hsb.
// Example: (210/360, 0.5, 0.4) → (0.2, 0.4, 0.6).
RGBColor rgb_from_hsl(HSLColor hsl);

// HCL from RGB: chroma d, saturation d / mx, hue as for HSL, luma = 0.212671 red +
// 0.71516 green + 0.072169 blue. A grey gives hue, chroma and saturation 0.
// Bad input: never reports; mx = 0 with d ≠ 0 gives infinite saturation; NaN gives NaN.
// Example: (0.2, 0.4, 0.6) → hue 7/12, chroma 0.4, saturation 2/3, luma 0.3718996.
HCLColor hcl_from_rgb(RGBColor rgb);
// RGB from hue, chroma and luma (the saturation field is ignored): hexcone step with chroma C
// gives (r1, g1, b1); m = luma − luma(r1, g1, b1), k = 1; if m < 0, k = luma / (luma − m) and
// m = 0; else if m + C > 1, k = (1 − luma) / (m + C − luma) and m = 1 − C k; result
// (r1 k + m, g1 k + m, b1 k + m). A colour that does not fit in the unit cube keeps its hue and
// luma and loses chroma. Bad input: never reports; a NaN or infinite hue gives no chroma (a
// grey at the luma, for luma in 0..1).
// Example: hue 7/12, chroma 0.4, luma 0.3718996 → (0.2, 0.4, 0.6); luma 0.9 with chroma 1 at
// hue 2/3 (blue) → (0.8922, 0.8922, 1) within the cube, luma still 0.9.
RGBColor rgb_from_hcl(HCLColor hcl);

// The three blend modes of hcl_blend; any value other than 0 and 1 takes the shortest hue path.
inline constexpr int kHCLBlendThroughGrey = 0;
inline constexpr int kHCLBlendCartesian = 1;
inline constexpr int kHCLBlendShortestHue = 2;

// Blends two HCL colours at t (0 gives the first, 1 the second; other values extrapolate).
// Luma and alpha are always first + (second − first) × t. The result's saturation field is
// left 0: callers must not read it. Hue and chroma by mode:
//   through grey: s = c1 + c2; if c1 / s > t, chroma c1 − s t and hue h1, else chroma
//     c2 − (1 − t) s and hue h2 (chroma falls to 0 at t = c1 / s where the hue jumps);
//   Cartesian: (cos 2πh · c, sin 2πh · c) blended linearly; chroma = hypot, hue = fast_atan2
//     of the point plus 2π, reduced by a single-precision remainder by 6.2831855, over 2π
//     (within about 0.0016 of a turn of the exact angle);
//   shortest hue: dh = the shortest signed difference from h1 to h2, both reduced into
//     [0, 1) (angular_distance), hue = h1 as given + dh t (not reduced again),
//     chroma = c1 + (c2 − c1) t.
// Bad input: never reports; two greys through grey fail the 0 / 0 test and give hue h2 and
// chroma 0; a NaN or infinite hue gives a NaN hue in the shortest-hue mode.
// Example: shortest hue from hue 0.9 to 0.1 at t = 0.5 → hue 1.0 (through 0, not 0.5).
HCLColor hcl_blend(int mode, HCLColor first, HCLColor second, double t);
