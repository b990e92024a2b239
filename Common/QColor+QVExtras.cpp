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
