#pragma once
// The degenerate inputs every numeric function must survive: it must end and give the NaN,
// infinity or zero results the behaviour calls for, never crash or hang.

#include <array>
#include <cstddef>
#include <limits>

inline constexpr std::array<double, 6> kDegenerateValues = {
    -1,
    0,
    1,
    std::numeric_limits<double>::infinity(),
    -std::numeric_limits<double>::infinity(),
    std::numeric_limits<double>::quiet_NaN()};

// Calls f with every combination of N degenerate values (6^N calls).
template <std::size_t N, typename F> void forEachDegenerate(F f)
{
    std::array<double, N> v{};
    std::size_t total = 1;
    for (std::size_t i = 0; i < N; ++i)
        total *= 6;
    for (std::size_t k = 0; k < total; ++k) {
        for (std::size_t i = 0, rest = k; i < N; ++i, rest /= 6)
            v[i] = kDegenerateValues[rest % 6];
        f(v);
    }
}
