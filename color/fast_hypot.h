#pragma once
// hypot(x, y) without the library call: the same correction step as the C library's own
// (Borges, "An Improved Algorithm for hypot(a,b)", 2019, the variant without fused
// multiply-add), inlined for the range where no scaling is needed. It gives the very same
// double as std::hypot there (a test compares them over millions of pairs); outside that
// range, and for infinities and NaN, it calls std::hypot.

#include <cmath>
#include <utility>

inline double fast_hypot(double x, double y)
{
    double ax = std::fabs(x), ay = std::fabs(y);
    if (ax < ay)
        std::swap(ax, ay);
    if (!(ax <= 0x1p+500 && ay >= 0x1p-500)) // huge, tiny, zero, inf or NaN
        return std::hypot(x, y);
    if (ay <= ax * 0x1p-54) // y is below half an ulp of x
        return ax + ay;
    double h = std::sqrt(ax * ax + ay * ay);
    double t1, t2;
    if (h <= 2.0 * ay) {
        const double delta = h - ay;
        t1 = ax * (2.0 * delta - ax);
        t2 = (delta - 2.0 * (ax - ay)) * delta;
    } else {
        const double delta = h - ax;
        t1 = 2.0 * delta * (ax - 2.0 * ay);
        t2 = (4.0 * delta - ay) * ay + delta * delta;
    }
    h -= (t1 + t2) / (2.0 * h);
    return h;
}
