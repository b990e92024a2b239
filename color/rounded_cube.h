#pragma once
// The cube of a double rounded once from the exact value, without the library's pow.
//
// It works with the exact product of two doubles as a pair hi + lo (hi the rounded product,
// lo its rounding error): with fused multiply-add lo = fma(a, b, −hi), otherwise Dekker's
// splitting of each factor into two 26-bit halves, whose partial products are exact. The
// cube (a·a)·a is then hi + lo of the last product plus the first product's error times a:
// the exact cube up to 2⁻¹⁰⁶ of it, rounded once; pow(x, 3) is the correctly rounded value
// too, up to its own rare misrounding. Outside 2⁻¹⁰⁰⁰ ≤ |x| ≤ 2¹⁰⁰⁰ (zero, tiny, huge, infinite,
// NaN) it falls back on the library.

#include <cmath>
#include <cstdint>

namespace rounded_cube_detail {

struct Exact {
    double hi, lo;
};

// True where the build itself targets fused multiply-add; a caller compiled for it by a target
// attribute passes true explicitly.
#if defined(__FP_FAST_FMA)
inline constexpr bool kBuiltWithFma = true;
#else
inline constexpr bool kBuiltWithFma = false;
#endif

template <bool kFma> inline Exact product(double a, double b)
{
    const double hi = a * b;
    if constexpr (kFma) {
        return {hi, std::fma(a, b, -hi)};
    } else {
        constexpr double kSplit = 134217729.0; // 2²⁷ + 1
        const double ca = kSplit * a, cb = kSplit * b;
        const double ah = ca - (ca - a), al = a - ah;
        const double bh = cb - (cb - b), bl = b - bh;
        return {hi, ((ah * bh - hi) + ah * bl + al * bh) + al * bl};
    }
}

// x³ as hi + lo, exact to within 2⁻¹⁰⁶ of it.
template <bool kFma> inline Exact cube(double x)
{
    const Exact square = product<kFma>(x, x);
    const Exact cubed = product<kFma>(square.hi, x);
    return {cubed.hi, cubed.lo + square.lo * x};
}

inline bool in_plain_range(double x)
{
    const double magnitude = std::fabs(x);
    return magnitude >= 0x1p-1000 && magnitude <= 0x1p+1000;
}

} // namespace rounded_cube_detail

// x³ rounded once (the value of pow(x, 3)); both ways of forming the products give that value.
template <bool kFma = rounded_cube_detail::kBuiltWithFma> inline double rounded_cube(double x)
{
    if (!rounded_cube_detail::in_plain_range(x))
        return std::pow(x, 3);
    const rounded_cube_detail::Exact c = rounded_cube_detail::cube<kFma>(x);
    return c.hi + c.lo;
}
