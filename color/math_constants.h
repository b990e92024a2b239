#pragma once
// Constants shared by the colour library. The library writes π as the double literal below
// rather than relying on M_PI, which is not standard C++.

#include <climits>
#include <cmath>
#include <cstdint>

inline constexpr double kPi = 3.141592653589793;
inline constexpr double kTwoPi = 6.283185307179586;
inline constexpr double kHalfPi = 1.5707963267948966;
inline constexpr double kDegreesPerRadian = 180.0 / kPi; // "the factor 180 / π"

// Double to 32-bit integer as the x86 conversion instruction does it: values outside the
// range (and NaN) become INT32_MIN instead of undefined behaviour. The wrapping formulas rely
// on this, so very distant values overflow visibly rather than unpredictably.
inline int32_t int32_from_double(double v)
{
    if (!(v >= -2147483648.0 && v < 2147483648.0))
        return INT32_MIN;
    return static_cast<int32_t>(v);
}
