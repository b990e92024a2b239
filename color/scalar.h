#pragma once
// Scalar and angle helpers: quantisation, angle units, wrapping, interpolation, clamping.
// Plain functions on single numbers; none allocates or reports errors. A not-a-number
// argument fails every ordered comparison, and the results follow from that.

#include <cstdint>

// 8-bit value from a nominal 0..1 float: trunc(v × 255.99998f) kept to its low 8 bits.
// No clamping, so values outside 0..1 wrap (1.5 gives 127). NaN gives 0.
// Example: 1.0 → 255, 0.5 → 127, 0.0 → 0.
uint8_t quantized_char_from_normalized_float(float v);
// 16-bit value: trunc(v × 65535.996f) kept to its low 16 bits. 1.0 → 65535.
uint16_t quantized_short_from_normalized_float(float v);

// Angle units. The normalising functions only lift negative angles by whole turns; an
// angle of a turn or more is not reduced (normalized_from_degrees(450) is 1.25).
double normalized_from_radians(double r);
double radians_from_normalized(double n);
double normalized_from_degrees(double d);
double degrees_from_normalized(double n);

// v into [lo, hi) by v − k·(hi − lo), k = floor((v − lo)/(hi − lo)) as a 32-bit integer
// (distant values overflow). hi − lo not positive: v unchanged.
double wrap(double v, double lo, double hi);
// The same range by repeated addition and subtraction; reversed bounds are swapped, equal
// bounds give lo. Infinite v gives NaN instead of looping for ever.
double wrap2(double v, double lo, double hi);
double wrapPosNegPI(double a);  // [−π, π)
double wrapTwoPI(double a);     // [0, 2π)
double wrapPosNeg180(double a); // [−180, 180)
double wrap360(double a);       // [0, 360)
double wrapZeroOne(double x);   // [0, 1)

// (v − a)/(b − a) × (d − c) + c
double remap(double v, double a, double b, double c, double d);
double blend(double a, double b, double t); // a + (b − a)·t
float blendf(float a, float b, float t);
// In place: below lo becomes lo, else above hi becomes hi (lo is tested first).
void clamp(double *v, double lo, double hi);
void clampf(float *v, float lo, float hi);

// Signed angle at (x1, y1) from the direction of (x3, y3) to that of (x2, y2), radians.
double angle_between_3_points(double x1, double y1, double x2, double y2, double x3, double y3);
// Hastings' rational arctangent with single-precision steps; (0, 0) gives exactly 0.
double fast_atan2_Hastings(double y, double x);
