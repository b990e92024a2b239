#include "QColor+QVExtras.h"

#include "lab_colorspaces.h"

#include <cmath>

QColor colorWithCalibratedD50L(double L, double a, double b, double alpha)
{
    if (!CGColorSpaceD50Lab() || std::isnan(L) || std::isnan(a) || std::isnan(b) ||
        std::isnan(alpha))
        return QColor(Qt::black);
    const RGBColor rgb = sRGB_from_D50_Lab({L, a, b, alpha});
    const auto unit = [](double v) { return float(std::fmin(std::fmax(v, 0.0), 1.0)); };
    return QColor::fromRgbF(unit(rgb.r), unit(rgb.g), unit(rgb.b), unit(alpha));
}

namespace {

double relativeLuminance(const QColor &color)
{
    const auto linear = [](float c) {
        return c <= 0.04045f ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    const QColor rgb = color.toRgb();
    return 0.2126 * linear(rgb.redF()) + 0.7152 * linear(rgb.greenF()) +
           0.0722 * linear(rgb.blueF());
}

} // namespace

double contrastRatio(const QColor &first, const QColor &second)
{
    const double a = relativeLuminance(first), b = relativeLuminance(second);
    return (std::fmax(a, b) + 0.05) / (std::fmin(a, b) + 0.05);
}

QColor readableTextColor(const QColor &background, const QColor &preferred, double minimumRatio)
{
    if (contrastRatio(background, preferred) >= minimumRatio)
        return preferred;
    const QColor black(Qt::black), white(Qt::white);
    return contrastRatio(background, black) >= contrastRatio(background, white) ? black : white;
}
