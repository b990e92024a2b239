#pragma once
// x / d for a constant d, with one product and two fused multiply-adds in place of the slow
// division instruction, giving the very double the division gives.
//
// With y = 1/d rounded, q = x·y rounded is within one ulp of x/d as long as y is within 2⁻⁵⁵
// of 1/d relatively (then x·y lies within a quarter ulp of x/d, and rounding cannot step past
// the neighbouring double). Such a q leaves an exactly representable remainder x − q·d, which
// one fused multiply-add computes exactly, and q + remainder·y rounded once is x/d rounded
// (Markstein's theorem). The closeness of y is checked at compile time for each divisor. The
// argument holds without underflow and overflow: callers check fma_division_in_range first and
// divide otherwise (zero, tiny, huge, infinite, NaN; a zero could also lose its sign).
//
// Only for code compiled with fused multiply-add (a target attribute or -mfma); elsewhere
// std::fma is a slow library call and the division is the better choice.

#include <cmath>

namespace constant_division_detail {

// |d·y − 1| < 2⁻⁵⁵ for y = 1/d rounded, from the exact product d·y = hi + lo (Dekker's
// splitting; hi − 1 is exact because hi is within a factor two of 1).
constexpr bool reciprocal_is_close(double d)
{
    const double y = 1 / d;
    constexpr double kSplit = 134217729.0; // 2²⁷ + 1
    const double cd = kSplit * d, cy = kSplit * y;
    const double dh = cd - (cd - d), dl = d - dh;
    const double yh = cy - (cy - y), yl = y - yh;
    const double hi = d * y;
    const double lo = ((dh * yh - hi) + dh * yl + dl * yh) + dl * yl;
    const double error = (hi - 1) + lo;
    return (error < 0 ? -error : error) < 0x1p-55;
}

} // namespace constant_division_detail

inline bool fma_division_in_range(double x)
{
    const double magnitude = std::fabs(x);
    return magnitude >= 0x1p-900 && magnitude <= 0x1p+900;
}

// x / kDivisor for x within fma_division_in_range (the divisor a whole number, as template
// arguments of floating type are not yet supported everywhere).
template <int kDivisor> inline double fma_divided(double x)
{
    constexpr double d = kDivisor;
    static_assert(constant_division_detail::reciprocal_is_close(d),
                  "x · (1/d) may be more than one ulp from x / d for this divisor");
    constexpr double y = 1 / d;
    const double q = x * y;
    return std::fma(std::fma(-q, d, x), y, q);
}
