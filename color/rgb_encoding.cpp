#include "rgb_encoding.h"

#include "math_constants.h"
#include "scalar.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace {

// Integer part of a channel product as a 32-bit integer, kept to its low bits by the
// unsigned conversion (negative values wrap as two's complement: −127 gives 129 in 8 bits).
uint32_t integer_part(double scaled)
{
    return static_cast<uint32_t>(int32_from_double(scaled));
}

// One channel outside 0..1 snapped to 16-bit precision; kept on purpose: the division is in
// single precision. False when the snapped value is still outside 0..1.
bool snapped_into_unit(double *v)
{
    if (!(*v < 0 || *v > 1))
        return true;
    const float snapped = static_cast<float>(int32_from_double(*v * 65535 + 0.5)) / 65535.0f;
    *v = snapped;
    return !(snapped < 0 || snapped > 1);
}

} // namespace

void rgb_clamp_to_black(RGBColor *rgb)
{
    for (double *channel : {&rgb->r, &rgb->g, &rgb->b}) {
        if (!snapped_into_unit(channel)) {
            rgb->r = rgb->g = rgb->b = 0;
            return;
        }
    }
}

void rgb_clamp_to_gamut(RGBColor *rgb)
{
    clamp(&rgb->r, 0, 1);
    clamp(&rgb->g, 0, 1);
    clamp(&rgb->b, 0, 1);
    clamp(&rgb->alpha, 0, 1);
}

void rgb_scale_to_gamut(RGBColor *rgb)
{
    const double lo = std::min({rgb->r, rgb->g, rgb->b});
    const double hi = std::max({rgb->r, rgb->g, rgb->b});
    if (lo >= 0 && hi <= 1)
        return;
    const double m = lo < 0 ? lo : 0;
    const double range = (hi > 1 ? hi : 1) - m;
    rgb->r = (rgb->r - m) / range;
    rgb->g = (rgb->g - m) / range;
    rgb->b = (rgb->b - m) / range;
}

void rgb_saturate(RGBColor *rgb)
{
    const double lo = std::min({rgb->r, rgb->g, rgb->b});
    const double hi = std::max({rgb->r, rgb->g, rgb->b});
    rgb->r = (rgb->r - lo) / (hi - lo);
    rgb->g = (rgb->g - lo) / (hi - lo);
    rgb->b = (rgb->b - lo) / (hi - lo);
}

void rgb_float_to_chars(uint8_t *red, uint8_t *green, uint8_t *blue, uint8_t *alpha, RGBColor rgb)
{
    *red = static_cast<uint8_t>(integer_part(rgb.r * 255 + 0.5));
    *green = static_cast<uint8_t>(integer_part(rgb.g * 255 + 0.5));
    *blue = static_cast<uint8_t>(integer_part(rgb.b * 255 + 0.5));
    if (alpha)
        *alpha = static_cast<uint8_t>(integer_part(rgb.alpha * 255 + 0.5));
}

void rgb_float_to_shorts(uint16_t *red, uint16_t *green, uint16_t *blue, uint16_t *alpha,
                         RGBColor rgb)
{
    *red = static_cast<uint16_t>(integer_part(rgb.r * 65535 + 0.5));
    *green = static_cast<uint16_t>(integer_part(rgb.g * 65535 + 0.5));
    *blue = static_cast<uint16_t>(integer_part(rgb.b * 65535 + 0.5));
    if (alpha)
        *alpha = static_cast<uint16_t>(integer_part(rgb.alpha * 65535 + 0.5));
}

void chars_to_rgb_float(int red, int green, int blue, int alpha, RGBColor *out)
{
    *out = rgb_float_from_chars(red, green, blue, alpha);
}

void shorts_to_rgb_float(int red, int green, int blue, int alpha, RGBColor *out)
{
    *out = rgb_float_from_shorts(red, green, blue, alpha);
}

RGBColor rgb_float_from_chars(int red, int green, int blue, int alpha)
{
    return {red / 255.0, green / 255.0, blue / 255.0, alpha / 255.0};
}

RGBColor rgb_float_from_shorts(int red, int green, int blue, int alpha)
{
    return {red / 65535.0, green / 65535.0, blue / 65535.0, alpha / 65535.0};
}

RGBColor rgb_float_from_rgb_char(uint32_t packed)
{
    return {(packed & 0xFF) / 255.0, ((packed >> 8) & 0xFF) / 255.0,
            ((packed >> 16) & 0xFF) / 255.0, (packed >> 24) / 255.0};
}

uint32_t rgb_char_from_rgb_float(RGBColor rgb)
{
    static const double S = std::nextafter(256.0, 0.0); // 255.99999999999997
    // Alpha is not masked: the shift into a 32-bit word drops its higher bits anyway.
    return (integer_part(rgb.r * S) & 0xFF) | (integer_part(rgb.g * S) & 0xFF) << 8 |
           (integer_part(rgb.b * S) & 0xFF) << 16 | integer_part(rgb.alpha * S) << 24;
}

void rgb_premultiply_alpha(RGBColor *rgb)
{
    rgb->r *= rgb->alpha;
    rgb->g *= rgb->alpha;
    rgb->b *= rgb->alpha;
}

void rgb_unpremultiply_alpha(RGBColor *rgb)
{
    if (!(rgb->alpha > 0))
        return;
    rgb->r /= rgb->alpha;
    rgb->g /= rgb->alpha;
    rgb->b /= rgb->alpha;
}
