#include "lch_blend.h"

#include "hue.h"
#include "math_constants.h"

#include <cmath>

namespace {

double lerp(double from, double to, double t)
{
    return from + (to - from) * t;
}

// Into [0, 2π) by whole turns, with loops as intended; far values are first brought near by
// fmod so that the loops always end (an infinite hue becomes NaN and skips them).
double into_one_turn(double h)
{
    if (!(std::fabs(h) <= 1e6 * kTwoPi))
        h = std::fmod(h, kTwoPi);
    while (h < 0)
        h += kTwoPi;
    while (h >= kTwoPi)
        h -= kTwoPi;
    return h;
}

} // namespace

LChColor LCh_blend(int mode, LChColor lch1, LChColor lch2, double t)
{
    const double L = lerp(lch1.L, lch2.L, t);
    const double alpha = lerp(lch1.alpha, lch2.alpha, t);

    if (mode == kLChBlendCartesian) {
        const double a1 = lch1.C * std::cos(lch1.h), b1 = lch1.C * std::sin(lch1.h);
        const double a2 = lch2.C * std::cos(lch2.h), b2 = lch2.C * std::sin(lch2.h);
        const double a = lerp(a1, a2, t), b = lerp(b1, b2, t);
        return {L, std::hypot(a, b), fast_atan2(b, a), alpha};
    }
    if (mode == kLChBlendThroughNeutral) {
        const double S = lch1.C + lch2.C;
        if (lch1.C / S > t)
            return {L, lch1.C - S * t, lch1.h, alpha};
        return {L, lch2.C - (1 - t) * S, lch2.h, alpha};
    }
    double d = into_one_turn(lch2.h) - into_one_turn(lch1.h);
    if (d <= -kPi)
        d += kTwoPi;
    else if (d > kPi)
        d -= kTwoPi;
    return {L, lerp(lch1.C, lch2.C, t), lch1.h + d * t, alpha};
}
