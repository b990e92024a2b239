#include "lab_luv.h"

#include "constant_division.h"
#include "fast_cbrt.h"
#include "hue.h"
#include "rounded_cube.h"

#include <cmath>

namespace {

// The fixed constants, used exactly as written (see the header for their meaning).
constexpr double kEpsilon = 0.008856451679035631; // 216 / 24389
constexpr double kKappa = 903.2962962962963;      // 24389 / 27
constexpr double kXn = 0.9504285453771807;
constexpr double kZn = 1.0889003707981277;
constexpr double kUn = 0.1978294495177785; // u'n
constexpr double kVn = 0.468332168241386;  // v'n
// κ ε = 8: the lightness at which the CIELAB and CIELUV lightness curves change branch.
constexpr double kLightnessBreak = 8;

double lab_f(double t)
{
    return t > kEpsilon ? fast_cbrt(t) : (kKappa * t + 16) / 116;
}

// f⁻¹ for the X and Z terms: the cube when it is above ε, else the linear branch.
double lab_f_inverse(double f)
{
    const double cube = f * f * f;
    return cube > kEpsilon ? cube : (116 * f - 16) / kKappa;
}

// Y from CIE lightness, for CIELUV (the cube written out, as the formula reads).
double Y_from_lightness(double L)
{
    if (L > kLightnessBreak) {
        const double f = (L + 16) / 116;
        return f * f * f;
    }
    return L / kKappa;
}

} // namespace

LabColor Lab_from_XYZ(XYZColor xyz)
{
    if (xyz.X == 0 && xyz.Y == 0 && xyz.Z == 0)
        return {0, 0, 0, xyz.alpha};
    const double fx = lab_f(xyz.X / kXn);
    const double fy = lab_f(xyz.Y);
    const double fz = lab_f(xyz.Z / kZn);
    return {116 * fy - 16, 500 * (fx - fy), 200 * (fy - fz), xyz.alpha};
}

namespace {

// x / d, the same double either way (constant_division.h).
template <bool kFma, int kDivisor> double divided(double x)
{
    if constexpr (kFma)
        return fma_divided<kDivisor>(x);
    else
        return x / kDivisor;
}

// Both forms give the same doubles: with fused multiply-add the divisions by 116, 500 and 200
// avoid the division instruction and the cube's exact products come from fma rather than from
// splitting; everything else is the same arithmetic.
template <bool kFma> XYZColor XYZ_from_Lab_using(LabColor lab)
{
    const double fy = divided<kFma, 116>(lab.L + 16);
    const double fx = divided<kFma, 500>(lab.a) + fy;
    const double fz = fy - divided<kFma, 200>(lab.b);
    // Kept on purpose: Y takes its branch from L, not from fy³, and its cube is pow(fy, 3),
    // computed here as the once-rounded cube that pow gives.
    const double yr = lab.L > kLightnessBreak ? rounded_cube<kFma>(fy) : lab.L / kKappa;
    return {lab_f_inverse(fx) * kXn, yr, lab_f_inverse(fz) * kZn, lab.alpha};
}

XYZColor XYZ_from_Lab_without_fma(LabColor lab)
{
    return XYZ_from_Lab_using<false>(lab);
}

#if defined(__x86_64__) && defined(__ELF__)
__attribute__((target("fma"))) XYZColor XYZ_from_Lab_with_fma(LabColor lab)
{
    // One test for the three quotients (in range, fy suits the cube too); the rare rest divides.
    if (!(fma_division_in_range(lab.L + 16) && fma_division_in_range(lab.a) &&
          fma_division_in_range(lab.b)))
        return XYZ_from_Lab_using<false>(lab);
    return XYZ_from_Lab_using<true>(lab);
}
#endif

} // namespace

#if defined(__x86_64__) && defined(__ELF__)
// The form is chosen once, when the program is loaded (an indirect function), so that calls
// pay for no dispatch: the fused multiply-add form where the processor has it.
extern "C" {
XYZColor (*resolve_XYZ_from_Lab())(LabColor)
{
    __builtin_cpu_init(); // resolvers run before the processor model is filled in otherwise
    return __builtin_cpu_supports("fma") ? XYZ_from_Lab_with_fma : XYZ_from_Lab_without_fma;
}
}

XYZColor XYZ_from_Lab(LabColor lab) __attribute__((ifunc("resolve_XYZ_from_Lab")));
#else
XYZColor XYZ_from_Lab(LabColor lab)
{
    return XYZ_from_Lab_without_fma(lab);
}
#endif

LuvColor Luv_from_XYZ(XYZColor xyz)
{
    if (xyz.X == 0 && xyz.Y == 0 && xyz.Z == 0)
        return {0, 0, 0, xyz.alpha};
    const double d = xyz.X + 15 * xyz.Y + 3 * xyz.Z;
    const double u_prime = 4 * xyz.X / d;
    const double v_prime = 9 * xyz.Y / d;
    const double L = xyz.Y > kEpsilon ? 116 * fast_cbrt(xyz.Y) - 16 : kKappa * xyz.Y;
    return {L, 13 * L * (u_prime - kUn), 13 * L * (v_prime - kVn), xyz.alpha};
}

XYZColor XYZ_from_Luv(LuvColor luv)
{
    if (luv.L <= 0)
        return {0, 0, 0, luv.alpha};
    const double u_prime = luv.u / (13 * luv.L) + kUn;
    const double v_prime = luv.v / (13 * luv.L) + kVn;
    const double Y = Y_from_lightness(luv.L);
    double X = Y * 9 * u_prime / (4 * v_prime);
    double Z = Y * (12 - 3 * u_prime - 20 * v_prime) / (4 * v_prime);
    if (X < 0)
        X = 0;
    if (Z < 0)
        Z = 0;
    return {X, Y, Z, luv.alpha};
}

XYZColor XYZ_from_Luv_Bruce(LuvColor luv)
{
    constexpr double kThird = 0.3333333333333333;
    const double L = luv.L;
    const double Y = Y_from_lightness(L);
    const double a = (52 * L / (luv.u + 13 * L * kUn) - 1) * kThird;
    const double b = -5 * Y;
    const double d = Y * (39 * L / (luv.v + 13 * L * kVn) - 5);
    const double X = (d - b) / (a + kThird);
    return {X, Y, X * a + b, luv.alpha};
}

double chroma_Luv(LuvColor luv)
{
    return std::hypot(luv.u, luv.v);
}

double saturationCorrelate_Luv(LuvColor luv)
{
    return std::hypot(luv.u, luv.v) / luv.L;
}

LChColor LCHuv_from_Luv(LuvColor luv)
{
    return {luv.L, std::sqrt(luv.u * luv.u + luv.v * luv.v), std::atan2(luv.v, luv.u), luv.alpha};
}

LuvColor Luv_from_LCHuv(LChColor lch)
{
    return {lch.L, lch.C * std::cos(lch.h), lch.C * std::sin(lch.h), lch.alpha};
}

LChColor LSHuv_from_Luv(LuvColor luv)
{
    return {luv.L, std::hypot(luv.u, luv.v) / luv.L, fast_atan2(luv.v, luv.u), luv.alpha};
}

LuvColor Luv_from_LSHuv(LChColor lsh)
{
    const double C = lsh.C * lsh.L;
    return {lsh.L, C * std::cos(lsh.h), C * std::sin(lsh.h), lsh.alpha};
}

double saturationCorrelate_LCH(LChColor lch)
{
    return lch.C / lch.L;
}
