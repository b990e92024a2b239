#include "scalar.h"

#include "math_constants.h"

#include <cmath>

namespace {

// Integer part of a scaled value, kept to its low `modulus` bits' worth, as an unsigned
// integer would keep it after a truncating conversion (negative values in two's complement).
double low_bits_of_integer_part(double scaled, double modulus)
{
    if (std::isnan(scaled) || std::isinf(scaled))
        return 0.0;
    double kept = std::fmod(std::trunc(scaled), modulus);
    return kept < 0 ? kept + modulus : kept;
}

float largest_float_below(float v)
{
    return std::nextafter(v, 0.0f);
}

// while (v < 0) v += turn, with the very result of that loop, without taking |v| / turn
// steps. Within one binade of v every sum v + turn rounds by the same step (after at most one
// step a tie to even settles on the same parity), so the steps that stay clear of the binade
// below are taken at once; near a binade's lower edge, where the spacing halves, one at a time.
// Where adding a turn no longer changes v the loop would never end: the remainder is taken.
double lift_by_turns(double v, double turn)
{
    double step = 0;
    while (v < 0) {
        const double next = v + turn;
        if (next == v) {
            v = std::fmod(v, turn);
            return v < 0 ? v + turn : v;
        }
        int exponent = 0;
        std::frexp(v, &exponent);
        const double bottom = std::ldexp(1.0, exponent - 1); // |v| lies in [bottom, 2·bottom)
        const bool sameStep = next - v == step && -next >= bottom;
        step = next - v;
        v = next;
        if (!sameStep)
            continue;
        const double spacing = std::ldexp(1.0, exponent - 53); // of the doubles in the binade
        const double steps = std::floor((-v - bottom - spacing) / step);
        if (steps > 0)
            v += steps * step; // exact: a multiple of the spacing within the binade
    }
    return v;
}

} // namespace

uint8_t quantized_char_from_normalized_float(float v)
{
    static const float S8 = largest_float_below(256.0f); // 255.99998
    const float scaled = v * S8;
    return static_cast<uint8_t>(low_bits_of_integer_part(scaled, 256.0));
}

uint16_t quantized_short_from_normalized_float(float v)
{
    static const float S16 = largest_float_below(65536.0f); // 65535.996
    const float scaled = v * S16;
    return static_cast<uint16_t>(low_bits_of_integer_part(scaled, 65536.0));
}

double normalized_from_radians(double r)
{
    if (std::isinf(r))
        return std::nan("");
    return lift_by_turns(r, kTwoPi) / kTwoPi;
}

double radians_from_normalized(double n)
{
    return n * kTwoPi;
}

double normalized_from_degrees(double d)
{
    if (std::isinf(d))
        return std::nan("");
    return lift_by_turns(d, 360.0) / 360.0;
}

double degrees_from_normalized(double n)
{
    return n * 360.0;
}

double wrap(double v, double lo, double hi)
{
    const double range = hi - lo;
    if (!(range > 0))
        return v;
    const int32_t k = int32_from_double(std::floor((v - lo) / range));
    return v - k * range;
}

double wrap2(double v, double lo, double hi)
{
    const double r = hi - lo;
    const double lower = r < 0 ? hi : lo;
    const double size = r < 0 ? -r : r;
    const double upper = r < 0 ? lo : hi;
    if (size == 0)
        return lower;
    if (std::isinf(v))
        return std::nan("");
    // The loops are meant for values within a few periods; far beyond that the same result
    // comes from one division, and a step too small to change v would never end.
    if (std::fabs(v - lower) > 1e6 * size)
        v = lower + (v - lower) - std::floor((v - lower) / size) * size;
    while (lower > v)
        v += size;
    while (v >= upper)
        v -= size;
    return v;
}

double wrapPosNegPI(double a)
{
    return (a + kPi) - std::floor((a + kPi) / kTwoPi) * kTwoPi - kPi;
}

double wrapTwoPI(double a)
{
    return a - std::floor(a / kTwoPi) * kTwoPi;
}

double wrapPosNeg180(double a)
{
    return (a + 180.0) - std::floor((a + 180.0) / 360.0) * 360.0 - 180.0;
}

double wrap360(double a)
{
    return a - std::floor(a / 360.0) * 360.0;
}

double wrapZeroOne(double x)
{
    return x - std::floor(x);
}

double remap(double v, double a, double b, double c, double d)
{
    return (v - a) / (b - a) * (d - c) + c;
}

double blend(double a, double b, double t)
{
    return a + (b - a) * t;
}

float blendf(float a, float b, float t)
{
    return a + (b - a) * t;
}

void clamp(double *v, double lo, double hi)
{
    if (lo > *v)
        *v = lo;
    else if (*v > hi)
        *v = hi;
}

void clampf(float *v, float lo, float hi)
{
    if (lo > *v)
        *v = lo;
    else if (*v > hi)
        *v = hi;
}

double angle_between_3_points(double x1, double y1, double x2, double y2, double x3, double y3)
{
    const double ux = x2 - x1, uy = y2 - y1;
    const double wx = x3 - x1, wy = y3 - y1;
    return std::atan2(uy * wx - ux * wy, wx * ux + uy * wy);
}

// Hastings' approximation, after C. Hastings, "Approximations for Digital Computers" (1955):
// atan z ≈ z / (1 + 0.28 z²) for |z| < 1, π/2 − z / (z² + 0.28) beyond. The quotient is
// formed in single precision; the quadrant corrections are added in double.
double fast_atan2_Hastings(double y, double x)
{
    if (x == 0) {
        if (y > 0)
            return kHalfPi;
        if (y == 0)
            return 0.0;
        if (y < 0)
            return -kHalfPi;
    }
    const float z = static_cast<float>(y / x);
    if (std::fabs(z) < 1.0f) {
        const float a = z / (1.0f + 0.28f * z * z);
        if (x >= 0)
            return a;
        return y >= 0 ? a + kPi : a - kPi;
    }
    const float a = static_cast<float>(kHalfPi - static_cast<double>(z / (z * z + 0.28f)));
    return y < 0 ? a - kPi : a;
}
