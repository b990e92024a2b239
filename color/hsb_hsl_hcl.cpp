#include "hsb_hsl_hcl.h"

#include "hue.h"
#include "math_constants.h"
#include "rgb_transfer.h"
#include "scalar.h"

#include <algorithm>
#include <cmath>

namespace {

// Hue in turns, the sector chosen by the minimum channel. The caller decides which channel
// equals the minimum, as HSB compares against a single-precision minimum.
double hue_by_minimum(RGBColor rgb, double d, bool red_is_min, bool green_is_min)
{
    double h;
    if (red_is_min)
        h = 3 - (rgb.g - rgb.b) / d;
    else if (green_is_min)
        h = 5 - (rgb.b - rgb.r) / d;
    else
        h = 1 - (rgb.r - rgb.g) / d;
    return h / 6;
}

// The hue by whole turns into [0, 1): subtract 1 while it is 1 or more, then add 1 while it is
// below 0. fmod first gives the same value (every step is exact) and keeps the loops short; a
// non-finite hue becomes NaN instead of looping for ever. As the loops are written, a hue a
// hair below 0 (within 2⁻⁵⁴) rounds up to exactly 1 and so falls outside every sector.
double hue_in_one_turn(double hue)
{
    if (!std::isfinite(hue))
        return std::nan("");
    hue = std::fmod(hue, 1.0);
    while (hue >= 1)
        hue -= 1;
    while (hue < 0)
        hue += 1;
    return hue;
}

struct Hexcone {
    double r, g, b;
};

// The hexcone step shared by the three inverse conversions, before each adds its offset.
Hexcone hexcone(double hue, double C)
{
    const double H = hue_in_one_turn(hue) * 6;
    const float remainder = std::fmod(static_cast<float>(H), 2.0f); // single precision, kept
    const double X = C * (1 - std::fabs(static_cast<double>(remainder) - 1));
    if (H >= 0 && H < 1)
        return {C, X, 0};
    if (H >= 1 && H < 2)
        return {X, C, 0};
    if (H >= 2 && H < 3)
        return {0, C, X};
    if (H >= 3 && H < 4)
        return {0, X, C};
    if (H >= 4 && H < 5)
        return {X, 0, C};
    if (H >= 5 && H < 6)
        return {C, 0, X};
    return {0, 0, 0};
}

} // namespace

HSBColor hsb_from_rgb(RGBColor rgb)
{
    const float r = static_cast<float>(rgb.r), g = static_cast<float>(rgb.g),
                b = static_cast<float>(rgb.b);
    const double mn = std::min({r, g, b});
    const double mx = std::max({r, g, b});
    const double d = mx - mn;
    if (d == 0)
        return {0, 0, mx, rgb.alpha};
    return {hue_by_minimum(rgb, d, rgb.r == mn, rgb.g == mn), d / mx, mx, rgb.alpha};
}

RGBColor rgb_from_hsb(HSBColor hsb)
{
    const double C = hsb.saturation * hsb.brightness;
    const Hexcone c = hexcone(hsb.hue, C);
    const double m = hsb.brightness - C;
    return {c.r + m, c.g + m, c.b + m, hsb.alpha};
}

HSLColor hsl_from_rgb(RGBColor rgb)
{
    const double mn = std::min({rgb.r, rgb.g, rgb.b});
    const double mx = std::max({rgb.r, rgb.g, rgb.b});
    const double L = (mn + mx) * 0.5;
    const double d = mx - mn;
    if (d == 0)
        return {0, 0, L, rgb.alpha};
    const double hue = hue_by_minimum(rgb, d, rgb.r == mn, rgb.g == mn);
    return {hue, d / (1 - std::fabs(2 * L - 1)), L, rgb.alpha};
}

RGBColor rgb_from_hsl(HSLColor hsl)
{
    const double C = (1 - std::fabs(2 * hsl.lightness - 1)) * hsl.saturation;
    const Hexcone c = hexcone(hsl.hue, C);
    const double m = hsl.lightness - 0.5 * C;
    return {c.r + m, c.g + m, c.b + m, hsl.alpha};
}

HCLColor hcl_from_rgb(RGBColor rgb)
{
    const double mn = std::min({rgb.r, rgb.g, rgb.b});
    const double mx = std::max({rgb.r, rgb.g, rgb.b});
    const double d = mx - mn;
    const double luma = luma_from_gamma_sRGB(rgb.r, rgb.g, rgb.b);
    if (d != 0)
        return {hue_by_minimum(rgb, d, rgb.r == mn, rgb.g == mn), d, d / mx, luma, rgb.alpha};
    return {0, 0, 0, luma, rgb.alpha};
}

RGBColor rgb_from_hcl(HCLColor hcl)
{
    const double C = hcl.chroma;
    const Hexcone c = hexcone(hcl.hue, C);
    double m = hcl.luma - luma_from_gamma_sRGB(c.r, c.g, c.b);
    double k = 1;
    if (m < 0) {
        k = hcl.luma / (hcl.luma - m);
        m = 0;
    } else if (m + C > 1) {
        k = (1 - hcl.luma) / ((m + C) - hcl.luma);
        m = 1 - C * k;
    }
    return {c.r * k + m, c.g * k + m, c.b * k + m, hcl.alpha};
}

HCLColor hcl_blend(int mode, HCLColor first, HCLColor second, double t)
{
    HCLColor out{0, 0, 0, blend(first.luma, second.luma, t), blend(first.alpha, second.alpha, t)};
    const double c1 = first.chroma, c2 = second.chroma;
    switch (mode) {
    case kHCLBlendThroughGrey: {
        const double s = c1 + c2;
        if (c1 / s > t) {
            out.chroma = c1 - s * t;
            out.hue = first.hue;
        } else {
            out.chroma = c2 - (1 - t) * s;
            out.hue = second.hue;
        }
        break;
    }
    case kHCLBlendCartesian: {
        const double a1 = radians_from_normalized(first.hue);
        const double a2 = radians_from_normalized(second.hue);
        const double x = blend(std::cos(a1) * c1, std::cos(a2) * c2, t);
        const double y = blend(std::sin(a1) * c1, std::sin(a2) * c2, t);
        out.chroma = std::hypot(x, y);
        // Kept on purpose: the turn is taken off with a single-precision remainder.
        const float angle = std::fmod(static_cast<float>(fast_atan2(y, x) + kTwoPi), 6.2831855f);
        out.hue = angle / kTwoPi;
        break;
    }
    default: // kHCLBlendShortestHue
        out.hue = first.hue + angular_distance(first.hue, second.hue, 1.0) * t;
        out.chroma = blend(c1, c2, t);
        break;
    }
    return out;
}
