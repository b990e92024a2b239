#pragma once
// One vocabulary of tolerances and one comparison for numeric tests. The helper treats NaN as
// equal to NaN and infinities as equal to themselves, and on failure prints both values and the
// error as a multiple of the tolerance, at the caller's line.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

// A reference value worked out by hand to about ten significant digits.
inline constexpr double kTolReference = 1e-9;
// Conversions there and back in double precision.
inline constexpr double kTolRoundTrip = 1e-12;
// Exact up to the last few bits of a double.
inline constexpr double kTolUlps = 1e-15;

inline ::testing::AssertionResult closeWithin(const char *actualExpr, const char *expectedExpr,
                                              const char * /*tolExpr*/, double actual,
                                              double expected, double tolerance)
{
    if (std::isnan(actual) && std::isnan(expected))
        return ::testing::AssertionSuccess();
    if (std::isinf(actual) || std::isinf(expected)) {
        if (actual == expected)
            return ::testing::AssertionSuccess();
    } else if (std::fabs(actual - expected) <= tolerance) {
        return ::testing::AssertionSuccess();
    }
    const double error = std::fabs(actual - expected);
    char buffer[320];
    std::snprintf(buffer, sizeof buffer,
                  "%s = %.17g\n%s = %.17g\nerror %.3g is %.3g times the tolerance %.3g", actualExpr,
                  actual, expectedExpr, expected, error, error / tolerance, tolerance);
    return ::testing::AssertionFailure() << buffer;
}

#define EXPECT_CLOSE(actual, expected, tolerance)                                                  \
    EXPECT_PRED_FORMAT3(closeWithin, actual, expected, tolerance)
