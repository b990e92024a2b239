#include "QColor+QVExtras.h"

#include <lcms2.h>

#include <cmath>

namespace {

// D50 Lab to sRGB, made once and kept for the life of the process.
cmsHTRANSFORM labToDisplayTransform()
{
    static const cmsHTRANSFORM transform = [] {
        const cmsCIExyY d50{0.34567, 0.3585, 1.0};
        cmsHPROFILE lab = cmsCreateLab4Profile(&d50);
        cmsHPROFILE srgb = cmsCreate_sRGBProfile();
        cmsHTRANSFORM t = (lab && srgb)
                              ? cmsCreateTransform(lab, TYPE_Lab_DBL, srgb, TYPE_RGB_DBL,
                                                   INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOCACHE)
                              : nullptr;
        if (lab)
            cmsCloseProfile(lab);
        if (srgb)
            cmsCloseProfile(srgb);
        return t;
    }();
    return transform;
}

} // namespace

QColor colorWithCalibratedD50L(double L, double a, double b, double alpha)
{
    const cmsHTRANSFORM transform = labToDisplayTransform();
    if (!transform || std::isnan(L) || std::isnan(a) || std::isnan(b) || std::isnan(alpha))
        return QColor(Qt::black);
    const cmsCIELab lab{L, a, b};
    double rgb[3];
    cmsDoTransform(transform, &lab, rgb, 1);
    const auto unit = [](double v) { return float(std::fmin(std::fmax(v, 0.0), 1.0)); };
    return QColor::fromRgbF(unit(rgb[0]), unit(rgb[1]), unit(rgb[2]), unit(alpha));
}
