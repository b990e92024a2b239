#pragma once
// Hue angles and the CIELAB ⇄ LCh conversion the comparison rests on.

#include "color_types.h"
#include "fast_hypot.h"

double radians_from_degrees(double d); // d × π / 180
double degrees_from_radians(double r); // r × 180 / π

// Signed shortest difference from a to b on a circle of period P, in (−P/2, P/2]: an exact
// half period comes out positive. a and b are brought into [0, P) by whole periods first.
// Never reports; a non-finite argument or a period that is not positive gives NaN.
// Example: angular_distance(350, 10, 360) = 20, (10, 350, 360) = −20, (0, 180, 360) = 180.
double angular_distance(double a, double b, double period);

// Polynomial arctangent: with ay = |y| + 1e-10, r = (x − ay)/(x + ay) for x ≥ 0 and
// angle = 0.1963 r³ − 0.9817 r + π/4, else r = (x + ay)/(ay − x) and angle = … + 3π/4;
// negated for y < 0. Within 10.2 mrad of atan2 (worst near ±83° and ±97°); (0, 0) gives
// ≈ π/2, not 0.
// Defined here so that LCHab_from_Lab and the other callers get it inlined.
inline double fast_atan2(double y, double x)
{
    const double ay = (y < 0 ? -y : y) + 1e-10;
    double angle;
    if (x >= 0) {
        const double r = (x - ay) / (x + ay);
        angle = 0.1963 * r * r * r - 0.9817 * r + 0.7853981633974483;
    } else {
        const double r = (x + ay) / (ay - x);
        angle = 0.1963 * r * r * r - 0.9817 * r + 2.356194490192345;
    }
    return y < 0 ? -angle : angle;
}
// The same in single precision (the 1e-10 is added in double, then narrowed).
float fast_atan2f(float y, float x);

// L unchanged, C = hypot(a, b), h = fast_atan2(b, a) in [−π, π] (never wrapped into
// [0, 2π)), alpha unchanged. Example: (50, 0, 0) → C 0, h ≈ 1.5708.
inline LChColor LCHab_from_Lab(LabColor lab)
{
    return {lab.L, fast_hypot(lab.a, lab.b), fast_atan2(lab.b, lab.a), lab.alpha};
}
// a = C cos h, b = C sin h.
LabColor Lab_from_LCHab(LChColor lch);
