#pragma once
// One RGB colour at a time: keeping it inside the unit cube, 8- and 16-bit integer channels
// and the packed 32-bit form, and alpha premultiplication. Nothing allocates or reports;
// out-of-range values are handled only where a function says so. Channel products that are
// turned into integers pass through a 32-bit integer as the x86 conversion does it
// (int32_from_double): NaN, infinities and values beyond ±2³¹ give INT32_MIN, whose low 8 and
// 16 bits are 0.

#include "color_types.h"

#include <cstdint>

// ---- Gamut handling (in place) ----

// Pulls red, green and blue onto the unit cube when they lie outside it by a hair, and turns
// the colour black when one lies further out. Channels are taken red, green, blue in turn: one
// below 0 or above 1 is snapped to 16-bit precision, trunc(v × 65535 + 0.5) / 65535 with the
// division in single precision; if that is still outside 0..1, red, green and blue become 0
// and the remaining channels are not looked at. Channels inside 0..1 are not quantised.
// rgb: the colour, nominally 0..1; alpha is never touched.
// Bad input: NaN fails both tests and is left as it is; ±inf turns the colour black.
// Example: (1.000001, 0.5, 0.5) → red exactly 1.0; (1.01, 0.5, 0.5) → (0, 0, 0).
void rgb_clamp_to_black(RGBColor *rgb);

// Clamps each of red, green, blue and alpha to 0..1 (clamp() of the scalar helpers).
// Bad input: NaN is left as it is. Example: (−0.2, 0.5, 1.7, 2) → (0, 0.5, 1, 1).
void rgb_clamp_to_gamut(RGBColor *rgb);

// Shifts and scales red, green and blue together so that they fit in 0..1: with lo and hi the
// smallest and largest channel, nothing changes when 0 ≤ lo and hi ≤ 1; otherwise
// m = min(lo, 0), range = max(1, hi) − m and each channel becomes (v − m) / range.
// Alpha is untouched. Bad input: never reports; a NaN channel can hide the others from the
// range test (NaN red leaves green and blue as they are); infinite channels give NaN channels
// (or 0 for the finite ones when the largest is +inf).
// Example: (−0.5, 0.5, 1.5) → (0, 0.5, 1).
void rgb_scale_to_gamut(RGBColor *rgb);

// Stretches red, green and blue so that the smallest becomes 0 and the largest 1:
// (v − lo) / (hi − lo). Alpha is untouched. Bad input: a grey (hi = lo) gives NaN in every
// channel; callers must avoid it. Example: (0.2, 0.4, 0.6) → (0, 0.5, 1).
void rgb_saturate(RGBColor *rgb);

// ---- Integer channels ----

// 8-bit channels by rounding: each = trunc(v × 255 + 0.5), kept to its low 8 bits (no
// clamping, so values outside 0..1 wrap). alpha may be null; the others must not.
// Example: 1.0 → 255, 0.5 → 128, 1.5 → 127 (383 kept to 8 bits).
void rgb_float_to_chars(uint8_t *red, uint8_t *green, uint8_t *blue, uint8_t *alpha, RGBColor rgb);
// 16-bit channels: each = trunc(v × 65535 + 0.5), low 16 bits. alpha may be null.
// Example: 0.5 → 32768, 1.0 → 65535.
void rgb_float_to_shorts(uint16_t *red, uint16_t *green, uint16_t *blue, uint16_t *alpha,
                         RGBColor rgb);

// Each channel = value / 255 into *out (values above 255 give channels above 1).
// Example: (255, 128, 0, 51) → (1, 0.50196…, 0, 0.2).
void chars_to_rgb_float(int red, int green, int blue, int alpha, RGBColor *out);
// Each channel = value / 65535 into *out. Example: 65535 → 1.
void shorts_to_rgb_float(int red, int green, int blue, int alpha, RGBColor *out);
// The same two rules returning the colour.
RGBColor rgb_float_from_chars(int red, int green, int blue, int alpha);
RGBColor rgb_float_from_shorts(int red, int green, int blue, int alpha);

// Unpacks red (bits 0–7), green (8–15), blue (16–23) and alpha (24–31), each byte / 255.
// Example: 0xFF336699 → (0.6, 0.4, 0.2, 1).
RGBColor rgb_float_from_rgb_char(uint32_t packed);
// Packs each channel as trunc(v × S) kept to 8 bits, S the largest double below 256
// (255.99999999999997), so 0..1 falls into 256 equally wide bins and 1.0 lands in the top one.
// Red goes to bits 0–7, green 8–15, blue 16–23, alpha to 24–31. This truncating rule is kept
// apart from the rounding one of rgb_float_to_chars on purpose.
// Example: (0.5, 0.5, 0.5, 1.0) → 0xFF7F7F7F (0.5 gives 127 here, 128 there).
uint32_t rgb_char_from_rgb_float(RGBColor rgb);

// ---- Alpha (in place) ----

// Red, green and blue each multiplied by alpha. Example: (0.5, 1, 0.2, 0.5) → (0.25, 0.5, 0.1).
void rgb_premultiply_alpha(RGBColor *rgb);
// Red, green and blue each divided by alpha when alpha > 0; with alpha 0, below 0 or NaN the
// colour is left unchanged. Example: (0.25, 0.5, 0.1, 0.5) → (0.5, 1, 0.2).
void rgb_unpremultiply_alpha(RGBColor *rgb);
