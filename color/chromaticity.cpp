#include "chromaticity.h"

#include "data/cie1931_spectral_locus_xy_1nm.h"
#include "data/robertson_isotemperature_lines.h"

#include <cmath>

// --- XYZ, xy and xyY ---------------------------------------------------------------------

xyChromaticity xy_from_XYZ(double X, double Y, double Z)
{
    if (X == 0 && Y == 0 && Z == 0)
        return {1.0 / 3.0, 1.0 / 3.0};
    const double S = X + Y + Z;
    return {X / S, Y / S};
}

void XYZ_to_xy(double *x, double *y, double X, double Y, double Z)
{
    const xyChromaticity xy = xy_from_XYZ(X, Y, Z);
    if (x)
        *x = xy.x;
    if (y)
        *y = xy.y;
}

XYZTriple XYZ_from_xy(double x, double y)
{
    if (y == 0)
        return {0, 0, 0};
    return {x / y, 1, (1 - x - y) / y};
}

void xy_to_XYZ(double *X, double *Y, double *Z, double x, double y)
{
    const XYZTriple XYZ = XYZ_from_xy(x, y);
    if (X)
        *X = XYZ.X;
    if (Y)
        *Y = XYZ.Y;
    if (Z)
        *Z = XYZ.Z;
}

xyYTriple xyY_from_XYZ(double X, double Y, double Z)
{
    const xyChromaticity xy = xy_from_XYZ(X, Y, Z);
    return {xy.x, xy.y, Y};
}

void XYZ_to_xyY(double *x, double *y, double *Y_out, double X, double Y, double Z)
{
    const xyYTriple xyY = xyY_from_XYZ(X, Y, Z);
    if (x)
        *x = xyY.x;
    if (y)
        *y = xyY.y;
    if (Y_out)
        *Y_out = xyY.Y;
}

XYZTriple XYZ_from_xyY(double x, double y, double Y)
{
    if (y == 0)
        return {0, 0, 0};
    return {x * Y / y, Y, (1 - x - y) * Y / y};
}

void xyY_to_XYZ(double *X, double *Y_out, double *Z, double x, double y, double Y)
{
    const XYZTriple XYZ = XYZ_from_xyY(x, y, Y);
    if (X)
        *X = XYZ.X;
    if (Y_out)
        *Y_out = XYZ.Y;
    if (Z)
        *Z = XYZ.Z;
}

// --- Spectrum locus ----------------------------------------------------------------------

namespace {

// Rows 0 to 340 of gCIE1931_nm_xy: 360 to 700 nm. Beyond 700 nm the published locus folds
// back on itself (every row from 699 nm is the same point), so the polygon stops there.
constexpr size_t kLocusPolygonRows = 341;
static_assert(kLocusPolygonRows <= gNum_CIE1931_nm_xy);
static_assert(gCIE1931_nm_xy[kLocusPolygonRows - 1].wavelength == 700);

} // namespace

bool xy_inside_CIE1931_locus(double x, double y)
{
    // Written so that NaN fails every comparison and is rejected here.
    if (!(x >= gCIE1931_nm_xy_min_x && x <= gCIE1931_nm_xy_max_x && y >= gCIE1931_nm_xy_min_y &&
          y <= gCIE1931_nm_xy_max_y))
        return false;

    bool inside = false;
    for (size_t i = 0, j = kLocusPolygonRows - 1; i < kLocusPolygonRows; j = i++) {
        const double xi = gCIE1931_nm_xy[i].x, yi = gCIE1931_nm_xy[i].y;
        const double xj = gCIE1931_nm_xy[j].x, yj = gCIE1931_nm_xy[j].y;
        if ((yj > y) != (yi > y) && x < (xj - xi) * (y - yi) / (yj - yi) + xi)
            inside = !inside;
    }
    return inside;
}

// --- The uniform chromaticity scales -----------------------------------------------------

uvChromaticity CIE_1960_uv_from_1931_xy(double x, double y)
{
    const double D = -2 * x + 12 * y + 3;
    return {4 * x / D, 6 * y / D};
}

xyChromaticity CIE_1931_xy_from_1960_uv(double u, double v)
{
    const double E = 2 * u - 8 * v + 4;
    return {3 * u / E, 2 * v / E};
}

upvpChromaticity CIE_1976_upvp_from_1931_xy(double x, double y)
{
    const double D = -2 * x + 12 * y + 3;
    return {4 * x / D, 9 * y / D};
}

xyChromaticity CIE_1931_xy_from_1976_upvp(double up, double vp)
{
    const double F = 6 * up - 16 * vp + 12;
    return {9 * up / F, 4 * vp / F};
}

upvpChromaticity CIE_1976_upvp_from_1960_uv(double u, double v)
{
    return {u, v * 3 * 0.5};
}

uvChromaticity CIE_1960_uv_from_1976_upvp(double up, double vp)
{
    return {up, 2 * vp / 3};
}

void uv_1960_to_upvp_1976(double u, double v, double *up, double *vp)
{
    // Kept on purpose: the 2/3 of the opposite direction (see the header).
    if (up)
        *up = u;
    if (vp)
        *vp = 2 * v / 3;
}

// --- Planckian locus from a temperature --------------------------------------------------

xyChromaticity CIE_1931_xy_from_CCT(double T)
{
    const double T2 = T * T, T3 = T2 * T;
    double x, y;
    if (1667 <= T && T <= 4000) {
        x = -2.661239e8 / T3 - 234358 / T2 + 877.6956 / T + 0.17991;
        if (T <= 2222)
            y = -1.1063814 * x * x * x - 1.3481102 * x * x + 2.18555832 * x - 0.20219683;
        else
            y = -0.9549476 * x * x * x - 1.37418593 * x * x + 2.09137015 * x - 0.16748867;
    } else if (4000 < T && T <= 25000) {
        x = -3.0258469e9 / T3 + 2107037.9 / T2 + 222.6347 / T + 0.24039;
        y = 3.081758 * x * x * x - 5.8733867 * x * x + 3.75112997 * x - 0.37001483;
    } else {
        return {0, 0};
    }
    return {x, y};
}

uvChromaticity CIE_1960_uv_from_CCT(double T)
{
    const double T2 = T * T;
    const double u = (0.860117757 + 0.000154118254 * T + 1.28641212e-7 * T2) /
                     (1 + 0.000842420235 * T + 7.08145163e-7 * T2);
    const double v = (0.317398726 + 4.22806245e-5 * T + 4.20481691e-8 * T2) /
                     (1 - 2.89741816e-5 * T + 1.61456053e-7 * T2);
    return {u, v};
}

bool is_temp_valid(double T)
{
    return 1666.7 <= T && T < 1e6;
}

// --- Correlated colour temperature from a chromaticity -----------------------------------

double CCT_from_XYZ(double X, double Y, double Z)
{
    if (X < 1e-20 && Y < 1e-20 && Z < 1e-20)
        return 0;

    const double D = X + 15 * Y + 3 * Z;
    const double u = 4 * X / D, v = 6 * Y / D;

    double d_prev = 0;
    for (size_t i = 0; i < gNumIsoTempData; ++i) {
        const IsoTemperatureLine &line = gIsoTempData[i];
        const double d = (v - line.v) - line.t * (u - line.u);
        // NaN is on neither side, so a NaN chromaticity finds no crossing.
        if (i > 0 && ((d_prev < 0 && d >= 0) || (d_prev >= 0 && d < 0))) {
            const IsoTemperatureLine &prev = gIsoTempData[i - 1];
            const double dm = d_prev / std::sqrt(1 + prev.t * prev.t);
            const double di = d / std::sqrt(1 + line.t * line.t);
            const double f = dm / (dm - di);
            return 1 / ((prev.mired + f * (line.mired - prev.mired)) * 1e-6);
        }
        d_prev = d;
    }
    return 0;
}

namespace {

double CCT_McCamy(double x, double y)
{
    const double n = (x - 0.332) / (y - 0.1858);
    // Kept on purpose: +449 n³ in this sign convention of n (see the header).
    return 449 * n * n * n + 3525 * n * n - 6823.3 * n + 5520.33;
}

double CCT_exponential(double x, double y)
{
    double n = (x - 0.3366) / (y - 0.1735);
    const double cct = -949.86315 + 6253.80338 * std::exp(-n / 0.92159) +
                       28.70599 * std::exp(-n / 0.20039) + 0.00004 * std::exp(-n / 0.07125);
    if (!(cct >= 50000))
        return cct;
    n = (x - 0.3356) / (y - 0.1691);
    return 36284.48953 + 0.00228 * std::exp(-n / 0.07861) + 5.4535e-36 * std::exp(-n / 0.01543);
}

} // namespace

double CCT_from_xy(int method, double x, double y)
{
    switch (method) {
    case kCCTMethodMcCamy:
        return CCT_McCamy(x, y);
    case kCCTMethodRobertson: {
        const XYZTriple XYZ = XYZ_from_xy(x, y);
        return CCT_from_XYZ(XYZ.X, XYZ.Y, XYZ.Z);
    }
    default:
        return CCT_exponential(x, y);
    }
}
