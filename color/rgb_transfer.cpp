#include "rgb_transfer.h"

#include <cmath>

double luminance_from_linear_NTSC(double red, double green, double blue)
{
    return 0.299 * red + 0.5864 * green + 0.1146 * blue;
}

double luma_from_gamma_NTSC(double red, double green, double blue)
{
    return luminance_from_linear_NTSC(red, green, blue);
}

double luma_from_gamma_SMPTE_240M(double red, double green, double blue)
{
    return 0.2124 * red + 0.7011 * green + 0.0866 * blue;
}

double luminance_from_linear_sRGB(double red, double green, double blue)
{
    return 0.212671 * red + 0.71516 * green + 0.072169 * blue;
}

double luma_from_gamma_sRGB(double red, double green, double blue)
{
    return luminance_from_linear_sRGB(red, green, blue);
}

namespace {

double sRGB_to_linear(double v)
{
    if (v <= 0.04045)
        return v / 12.92;
    return std::pow((v + 0.055) / 1.055, 2.4);
}

double linear_to_sRGB(double v)
{
    if (v <= 0.0031308)
        return v * 12.92;
    return 1.055 * std::pow(v, 0.4166666666666667) - 0.055;
}

void apply_to_rgb(RGBColor *rgb, double (*curve)(double))
{
    rgb->r = curve(rgb->r);
    rgb->g = curve(rgb->g);
    rgb->b = curve(rgb->b);
}

double Rec709_to_linear(double v)
{
    if (v <= 0.081)
        return v / 4.5;
    return std::pow((v + 0.099) / 1.099, 2.2222222222222223);
}

double linear_to_Rec709(double v)
{
    if (v <= 0.018)
        return v * 4.5;
    return 1.099 * std::pow(v, 0.45) - 0.099;
}

} // namespace

void rgb_sRGB_to_linear(RGBColor *rgb)
{
    apply_to_rgb(rgb, sRGB_to_linear);
}

void rgb_linear_to_sRGB(RGBColor *rgb)
{
    apply_to_rgb(rgb, linear_to_sRGB);
}

void E709_to_linear(double *v)
{
    *v = Rec709_to_linear(*v);
}

void linear_to_E709(double *v)
{
    *v = linear_to_Rec709(*v);
}

void rgb_Rec709_to_linear(RGBColor *rgb)
{
    apply_to_rgb(rgb, Rec709_to_linear);
}

void rgb_linear_to_Rec709(RGBColor *rgb)
{
    apply_to_rgb(rgb, linear_to_Rec709);
}

void rgb_display_gamma_to_linear(RGBColor *rgb, double gamma)
{
    rgb->r = std::pow(rgb->r, gamma);
    rgb->g = std::pow(rgb->g, gamma);
    rgb->b = std::pow(rgb->b, gamma);
}

void rgb_image_gamma_to_linear(RGBColor *rgb, double gamma)
{
    rgb->r = std::pow(rgb->r, 1 / gamma);
    rgb->g = std::pow(rgb->g, 1 / gamma);
    rgb->b = std::pow(rgb->b, 1 / gamma);
}

double lightness_from_luminance(double Y, double Yn)
{
    const double t = Y / Yn;
    if (t <= 0.008856451679035631) // 216 / 24389
        return t * 903.2962962962963 / 100;
    return 1.16 * std::pow(t, 0.3333333333333333) - 0.16;
}

double luminance_from_lightness(double L)
{
    if (L > 0.08)
        return ((0.6406576735413507 * L + 0.3075156832998482) * L + 0.04920250932797572) * L +
               0.002624133830825372;
    return L * 0.1107419712070875; // 1 / 9.03
}
