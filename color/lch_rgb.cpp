#include "lch_rgb.h"

#include "hue.h"
#include "lab_luv.h"
#include "rgb_colorspaces.h"

#include <cmath>

RGBColor rgb_from_LCHuv_using_matrix(const double *m, LChColor lch)
{
    const LuvColor luv = {lch.L, lch.C * std::cos(lch.h), lch.C * std::sin(lch.h), lch.alpha};
    return RGB_from_XYZ_using_matrix(m, XYZ_from_Luv(luv));
}

LChColor LChuv_from_rgb_using_matrix(const double *m, RGBColor rgb)
{
    return LCHuv_from_Luv(Luv_from_XYZ(XYZ_from_RGB_using_matrix(m, rgb)));
}

RGBColor rgb_from_LCHab_using_matrix(const double *m, LChColor lch)
{
    return RGB_from_XYZ_using_matrix(m, XYZ_from_Lab(Lab_from_LCHab(lch)));
}

LChColor LChab_from_rgb_using_matrix(const double *m, RGBColor rgb)
{
    return LCHab_from_Lab(Lab_from_XYZ(XYZ_from_RGB_using_matrix(m, rgb)));
}
