#pragma once
// hypot(x, y) without the library call: the same correction step as the C library's own
// (Borges, "An Improved Algorithm for hypot(a,b)", 2019, the variant without fused
// multiply-add), inlined for the range where no scaling is needed. It gives the very same
// double as std::hypot there (a test compares them over millions of pairs); outside that
// range, and for infinities and NaN, it calls std::hypot.

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace fast_hypot_detail {

// c ? a : b through a bit mask, which compilers keep free of branches.
inline double pick(bool c, double a, double b)
{
    const uint64_t mask = uint64_t(0) - uint64_t(c);
    return std::bit_cast<double>((std::bit_cast<uint64_t>(a) & mask) |
                                 (std::bit_cast<uint64_t>(b) & ~mask));
}

} // namespace fast_hypot_detail

inline double fast_hypot(double x, double y)
{
    const double x_abs = std::fabs(x), y_abs = std::fabs(y);
    if (!(x_abs >= 0x1p-500 && x_abs <= 0x1p+500 && y_abs >= 0x1p-500 && y_abs <= 0x1p+500))
        return std::hypot(x, y); // huge, tiny, zero, inf or NaN
    const double ax = std::max(x_abs, y_abs), ay = std::min(x_abs, y_abs);
    if (ay <= ax * 0x1p-54) // y is below half an ulp of x
        return ax + ay;
    double h = std::sqrt(ax * ax + ay * ay);
    // Both forms of the correction are computed and one is picked: which one applies is a
    // coin toss for colour data, and a mispredicted branch costs more than the few products.
    const double delta_y = h - ay;
    const double t1_y = ax * (2.0 * delta_y - ax);
    const double t2_y = (delta_y - 2.0 * (ax - ay)) * delta_y;
    const double delta_x = h - ax;
    const double t1_x = 2.0 * delta_x * (ax - 2.0 * ay);
    const double t2_x = (4.0 * delta_x - ay) * ay + delta_x * delta_x;
    const bool near_y = h <= 2.0 * ay;
    h -= fast_hypot_detail::pick(near_y, t1_y + t2_y, t1_x + t2_x) / (2.0 * h);
    return h;
}
