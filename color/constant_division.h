#pragma once
// x / d for a constant d, with one product and two fused multiply-adds in place of the slow
// division instruction, giving the very double the division gives.
//
// With y = 1/d rounded to nearest, q = x·y rounded is within one ulp of x/d (faithful) when y
// is close enough: within 2⁻⁵⁵ of 1/d relatively, x·y lies within a quarter ulp of x/d; when y
// is above 1/d by less than 2⁻⁵⁴, x·y overshoots x/d by under half an ulp, away from zero. In
// either case rounding cannot step past the double next to x/d. A faithful q leaves an exactly
// representable remainder x − q·d, which one fused multiply-add computes exactly, and
// q + remainder·y rounded once is x/d rounded to nearest (Markstein's theorem). The closeness
// of y is checked at compile time for each divisor. The argument holds without underflow and
// overflow: callers check fma_division_in_range first and divide otherwise (zero, tiny, huge,
// infinite, NaN; a negative zero would also come back positive).
//
// Only for code compiled with fused multiply-add (a target attribute or -mfma); elsewhere
// std::fma is a slow library call and the division is the better choice.

#include <cmath>

struct ConstantDivisor {
    double d, y;

    consteval explicit ConstantDivisor(double divisor) : d(divisor), y(1 / divisor)
    {
        // d·y − 1 from the exact product d·y = hi + lo (Dekker's splitting; hi − 1 is exact
        // because hi is within a factor two of 1).
        constexpr double kSplit = 134217729.0; // 2²⁷ + 1
        const double cd = kSplit * d, cy = kSplit * y;
        const double dh = cd - (cd - d), dl = d - dh;
        const double yh = cy - (cy - y), yl = y - yh;
        const double hi = d * y;
        const double lo = ((dh * yh - hi) + dh * yl + dl * yh) + dl * yl;
        const double error = (hi - 1) + lo;
        if (!((error > -0x1p-55 && error < 0x1p-55) || (error >= 0 && error < 0x1p-54)))
            throw "x · (1/d) may be more than one ulp from x / d for this divisor";
    }
};

inline bool fma_division_in_range(double x)
{
    const double magnitude = std::fabs(x);
    return magnitude >= 0x1p-900 && magnitude <= 0x1p+900;
}

// x / divisor.d for x within fma_division_in_range.
inline double fma_divided(double x, ConstantDivisor divisor)
{
    const double q = x * divisor.y;
    return std::fma(std::fma(-q, divisor.d, x), divisor.y, q);
}
