#include "lab_luv.h"

#include "constant_division.h"
#include "fast_cbrt.h"
#include "hue.h"
#include "rounded_cube.h"

#include <cmath>
#if defined(__x86_64__) && defined(__ELF__)
#include <immintrin.h>
#endif

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

XYZColor XYZ_from_Lab_without_fma(LabColor lab)
{
    const double fy = (lab.L + 16) / 116;
    const double fx = lab.a / 500 + fy;
    const double fz = fy - lab.b / 200;
    // Kept on purpose: Y takes its branch from L, not from fy³, and its cube is pow(fy, 3),
    // computed here as the once-rounded cube that pow gives.
    const double yr = lab.L > kLightnessBreak ? rounded_cube(fy) : lab.L / kKappa;
    return {lab_f_inverse(fx) * kXn, yr, lab_f_inverse(fz) * kZn, lab.alpha};
}

#if defined(__x86_64__) && defined(__ELF__)
// The same doubles as XYZ_from_Lab_without_fma, computed without a division instruction and
// without branching on which formula applies: every division is by a constant
// (constant_division.h), the exact products of Y's cube come from fma instead of splitting, both
// sides of each choice are computed and one kept by a blend, and X and Z share the two lanes of one
// register. Random colours take the branches unpredictably, and a mispredicted branch that waits
// for its colour to arrive from memory costs more than the arithmetic.
constexpr ConstantDivisor kBy116{116}, kBy500{500}, kBy200{200}, kByKappa{kKappa};

// fma_divided lane by lane, for the divisors d and reciprocals y.
__attribute__((target("fma"))) __m128d fma_divided(__m128d x, __m128d d, __m128d y)
{
    const __m128d q = _mm_mul_pd(x, y);
    return _mm_fmadd_pd(_mm_fnmadd_pd(q, d, x), y, q);
}

// lab_f_inverse in both lanes. 116 f − 16 is 0 or at least 2⁻⁵⁰ in size, and below 2⁹⁰⁷ for
// f from XYZ_from_Lab_with_fma's range: within fma_divided's.
__attribute__((target("fma"))) __m128d lab_f_inverse(__m128d f)
{
    const __m128d cube = _mm_mul_pd(_mm_mul_pd(f, f), f);
    const __m128d kappa = _mm_set1_pd(kByKappa.d), reciprocal = _mm_set1_pd(kByKappa.y);
    const __m128d scaled = _mm_sub_pd(_mm_mul_pd(_mm_set1_pd(116), f), _mm_set1_pd(16));
    const __m128d linear = fma_divided(scaled, kappa, reciprocal);
    return _mm_blendv_pd(linear, cube, _mm_cmp_pd(cube, _mm_set1_pd(kEpsilon), _CMP_GT_OQ));
}

__attribute__((target("fma"))) XYZColor XYZ_from_Lab_with_fma(LabColor lab)
{
    // In range, so are all the quotients below (L + 16 may also be exactly +0, which divides
    // correctly); the rare colour outside, or with an exact 0 among L, a and b, takes the
    // other form.
    if (!(fma_division_in_range(lab.L) && fma_division_in_range(lab.a) &&
          fma_division_in_range(lab.b)))
        return XYZ_from_Lab_without_fma(lab);
    const double fy = fma_divided(lab.L + 16, kBy116);
    // (fx, fz) = (a / 500 + fy, fy + (−b) / 200): negating before dividing and adding instead
    // of subtracting give the same doubles, the rounding being symmetric.
    const __m128d quotients = fma_divided(_mm_set_pd(-lab.b, lab.a), _mm_set_pd(kBy200.d, kBy500.d),
                                          _mm_set_pd(kBy200.y, kBy500.y));
    const __m128d xz =
        _mm_mul_pd(lab_f_inverse(_mm_add_pd(quotients, _mm_set1_pd(fy))), _mm_set_pd(kZn, kXn));
    const __m128d cube = _mm_set_sd(rounded_cube<true>(fy));
    const __m128d linear = _mm_set_sd(fma_divided(lab.L, kByKappa));
    const __m128d above = _mm_cmp_sd(_mm_set_sd(lab.L), _mm_set_sd(kLightnessBreak), _CMP_GT_OQ);
    const double yr = _mm_cvtsd_f64(_mm_blendv_pd(linear, cube, above));
    return {_mm_cvtsd_f64(xz), yr, _mm_cvtsd_f64(_mm_unpackhi_pd(xz, xz)), lab.alpha};
}
#endif

} // namespace

#if defined(__x86_64__) && defined(__ELF__)
// A function resolved while the program is loaded runs before the address sanitizer's runtime
// is ready, so sanitized builds ask the processor on each call instead (one load, one branch
// that is always predicted, and a call: slower than the indirect function, which costs none).
#if defined(__SANITIZE_ADDRESS__)
#define XYZ_FROM_LAB_RESOLVED_AT_LOAD 0
#elif defined(__has_feature)
#define XYZ_FROM_LAB_RESOLVED_AT_LOAD !__has_feature(address_sanitizer)
#else
#define XYZ_FROM_LAB_RESOLVED_AT_LOAD 1
#endif

#if XYZ_FROM_LAB_RESOLVED_AT_LOAD
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
    return __builtin_cpu_supports("fma") ? XYZ_from_Lab_with_fma(lab)
                                         : XYZ_from_Lab_without_fma(lab);
}
#endif
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
