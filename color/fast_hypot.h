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
#include <utility>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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
    // The larger and the smaller; a NaN in either ends up in one of them (max keeps its first
    // argument, min its second, when the comparison fails).
    const double ax = std::max(x_abs, y_abs), ay = std::min(y_abs, x_abs);
    if (!(ax <= 0x1p+500 && ay >= 0x1p-500)) // huge, tiny, zero, inf or NaN
        return std::hypot(x, y);
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

// {fast_hypot(x1, y1), fast_hypot(x2, y2)}, the two in the two lanes of one vector where the
// processor has them: lane by lane the very operations above, so the very same doubles.
inline std::pair<double, double> fast_hypot_pair(double x1, double y1, double x2, double y2)
{
#if defined(__SSE2__)
    const __m128d sign = _mm_set1_pd(-0.0);
    const __m128d x = _mm_andnot_pd(sign, _mm_set_pd(x2, x1));
    const __m128d y = _mm_andnot_pd(sign, _mm_set_pd(y2, y1));
    const __m128d low = _mm_set1_pd(0x1p-500), high = _mm_set1_pd(0x1p+500);
    const __m128d in_range = _mm_and_pd(_mm_and_pd(_mm_cmpge_pd(x, low), _mm_cmple_pd(x, high)),
                                        _mm_and_pd(_mm_cmpge_pd(y, low), _mm_cmple_pd(y, high)));
    const __m128d ax = _mm_max_pd(x, y), ay = _mm_min_pd(x, y);
    const __m128d negligible = _mm_cmple_pd(ay, _mm_mul_pd(ax, _mm_set1_pd(0x1p-54)));
    if (_mm_movemask_pd(in_range) != 3 || _mm_movemask_pd(negligible) != 0)
        return {fast_hypot(x1, y1), fast_hypot(x2, y2)};
    const __m128d two = _mm_set1_pd(2.0);
    __m128d h = _mm_sqrt_pd(_mm_add_pd(_mm_mul_pd(ax, ax), _mm_mul_pd(ay, ay)));
    const __m128d delta_y = _mm_sub_pd(h, ay);
    const __m128d t1_y = _mm_mul_pd(ax, _mm_sub_pd(_mm_mul_pd(two, delta_y), ax));
    const __m128d t2_y =
        _mm_mul_pd(_mm_sub_pd(delta_y, _mm_mul_pd(two, _mm_sub_pd(ax, ay))), delta_y);
    const __m128d delta_x = _mm_sub_pd(h, ax);
    const __m128d t1_x = _mm_mul_pd(_mm_mul_pd(two, delta_x), _mm_sub_pd(ax, _mm_mul_pd(two, ay)));
    const __m128d t2_x =
        _mm_add_pd(_mm_mul_pd(_mm_sub_pd(_mm_mul_pd(_mm_set1_pd(4.0), delta_x), ay), ay),
                   _mm_mul_pd(delta_x, delta_x));
    const __m128d near_y = _mm_cmple_pd(h, _mm_mul_pd(two, ay));
    const __m128d t = _mm_or_pd(_mm_and_pd(near_y, _mm_add_pd(t1_y, t2_y)),
                                _mm_andnot_pd(near_y, _mm_add_pd(t1_x, t2_x)));
    h = _mm_sub_pd(h, _mm_div_pd(t, _mm_mul_pd(two, h)));
    return {_mm_cvtsd_f64(h), _mm_cvtsd_f64(_mm_unpackhi_pd(h, h))};
#else
    return {fast_hypot(x1, y1), fast_hypot(x2, y2)};
#endif
}
