#pragma once
// The application's one preference.

// Largest CMC (2:1) delta E that still counts as a match.
inline constexpr const char *kToleranceKey = "delta_E_CMC_tolerance";
inline constexpr float kDefaultTolerance = 2.5f;
