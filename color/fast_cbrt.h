#pragma once
// cbrt(x) without the library call: the very double operations of the GNU C library's generic
// cube root (sysdeps/ieee754/dbl-64/s_cbrt.c, by Dirk Alboth and Ulrich Drepper, LGPL 2.1+),
// with its frexp and ldexp calls replaced by exact bit manipulation of normal doubles. It must
// give the same double as std::cbrt, not merely a close one: a = 500 (fx − fy) cancels near the
// grey axis, where one ulp of a cube root shows in a. So the order of every operation is the C
// library's, and the library is built with -ffp-contract=off so that no product and sum fuse
// into one rounding. Zero, subnormal, infinite and NaN arguments go to std::cbrt. Should the C
// library change its cube root, the agreement test over the benchmark's colours says so.

#include <bit>
#include <cmath>
#include <cstdint>

namespace fast_cbrt_detail {

// 2^(k/3) for k = −2..2, indexed by k + 2: the exponent's remainder modulo 3, as the C library
// folds it back in.
inline constexpr double kThirdPowersOfTwo[5] = {1.0 / 1.5874010519681994748,
                                                1.0 / 1.2599210498948731648, 1.0,
                                                1.2599210498948731648, 1.5874010519681994748};

} // namespace fast_cbrt_detail

inline double fast_cbrt(double x)
{
    constexpr uint64_t kMantissa = (uint64_t(1) << 52) - 1;
    constexpr uint64_t kHalfExponent = uint64_t(1022) << 52; // biased exponent of [0.5, 1)
    const uint64_t bits = std::bit_cast<uint64_t>(x);
    const int biased = int(bits >> 52) & 0x7ff;
    if (biased == 0 || biased == 0x7ff)
        return std::cbrt(x);
    // frexp(|x|): x = xm · 2^xe with xm in [0.5, 1).
    const int xe = biased - 1022;
    const double xm = std::bit_cast<double>((bits & kMantissa) | kHalfExponent);
    const double u =
        0.354895765043919860 +
        (1.50819193781584896 +
         (-2.11499494167371287 +
          (2.44693122563534430 +
           (-1.83469277483613086 + (0.784932344976639262 - 0.145263899385486377 * xm) * xm) * xm) *
              xm) *
             xm) *
            xm;
    const double t2 = u * u * u;
    const double ym =
        u * (t2 + 2.0 * xm) / (2.0 * t2 + xm) * fast_cbrt_detail::kThirdPowersOfTwo[2 + xe % 3];
    // ldexp(±ym, xe / 3): ym is about 0.5 to 1.6 and |xe / 3| ≤ 341, so the result is normal
    // and the scaling is an exact change of the exponent field; the sign is x's.
    const uint64_t scaled = std::bit_cast<uint64_t>(ym) + (uint64_t(int64_t(xe / 3)) << 52);
    return std::bit_cast<double>(scaled | (bits & ~(kMantissa | (uint64_t(0x7ff) << 52))));
}
