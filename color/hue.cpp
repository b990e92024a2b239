#include "hue.h"

#include "fast_hypot.h"
#include "math_constants.h"

#include <cmath>

double radians_from_degrees(double d)
{
    return d * kPi / 180.0;
}

double degrees_from_radians(double r)
{
    return r * 180.0 / kPi;
}

namespace {

// Brings v into [0, period) with loops, as the angles are expected within a few periods;
// far values are first brought near by fmod so the loops always end.
double into_one_period(double v, double period)
{
    if (std::fabs(v) > 1e6 * period)
        v = std::fmod(v, period);
    while (v < 0)
        v += period;
    while (v >= period)
        v -= period;
    return v;
}

} // namespace

double angular_distance(double a, double b, double period)
{
    if (!std::isfinite(a) || !std::isfinite(b) || !(period > 0) || std::isinf(period))
        return std::nan("");
    a = into_one_period(a, period);
    b = into_one_period(b, period);
    double d = b - a;
    if (d <= -period / 2)
        d += period;
    else if (d > period / 2)
        d -= period;
    return d;
}

float fast_atan2f(float y, float x)
{
    const float ay = static_cast<float>(static_cast<double>(std::fabs(y)) + 1e-10);
    float angle;
    if (x >= 0) {
        const float r = (x - ay) / (x + ay);
        angle = 0.1963f * r * r * r - 0.9817f * r + 0.7853982f;
    } else {
        const float r = (x + ay) / (ay - x);
        angle = 0.1963f * r * r * r - 0.9817f * r + 2.3561945f;
    }
    return y < 0 ? -angle : angle;
}

LabColor Lab_from_LCHab(LChColor lch)
{
    return {lch.L, lch.C * std::cos(lch.h), lch.C * std::sin(lch.h), lch.alpha};
}
