// fast_hypot must give exactly the double std::hypot gives: the difference formulas rely on
// it to stay identical to their definition with hypot.
#include "fast_hypot.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

TEST(FastHypot, IsBitForBitTheLibraryHypotOverManyMagnitudes)
{
    std::mt19937_64 rng(2019);
    std::uniform_real_distribution<double> unit(-1, 1);
    std::uniform_int_distribution<int> exponent(-40, 40);
    long mismatches = 0;
    for (int i = 0; i < 2'000'000; ++i) {
        const double x = std::ldexp(unit(rng), exponent(rng));
        // Every seventh pair nearly equal in size, where the correction step matters most.
        const double y =
            i % 7 == 0 ? x * (1 + 1e-9 * unit(rng)) : std::ldexp(unit(rng), exponent(rng));
        if (fast_hypot(x, y) != std::hypot(x, y))
            ++mismatches;
    }
    EXPECT_EQ(mismatches, 0);
}

TEST(FastHypot, SpecialValuesFollowTheLibrary)
{
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(fast_hypot(3, 4), 5);
    EXPECT_EQ(fast_hypot(-3, 0), 3);
    EXPECT_EQ(fast_hypot(0, 0), 0);
    EXPECT_EQ(fast_hypot(inf, nan), inf); // hypot's rule: an infinity wins over NaN
    EXPECT_TRUE(std::isnan(fast_hypot(nan, 1)));
    EXPECT_EQ(fast_hypot(1e300, 1e300), std::hypot(1e300, 1e300)); // no overflow
    EXPECT_EQ(fast_hypot(1e-300, 1e-300), std::hypot(1e-300, 1e-300));
}

} // namespace
