#pragma once
// The application's one preference.

#include <string_view>

// Largest CMC (2:1) delta E that still counts as a match.
inline constexpr const char *kToleranceKey = "delta_E_CMC_tolerance";
inline constexpr float kDefaultTolerance = 2.5f;

// Where the preferences live: QSettings(kSettingsOrganization, kSettingsApplication) in the
// native format, on Linux ~/.config/cxf-compare/cxf-compare.conf (or under $XDG_CONFIG_HOME).
// The command-line tool reads the tolerance from there.
inline constexpr const char *kSettingsOrganization = "cxf-compare";
inline constexpr const char *kSettingsApplication = "cxf-compare";

// The float a stored text stands for, as the platform's lenient conversion reads it: the text
// the store writes for a float (the shortest that reads back exactly, "nan" and "inf"
// included) reads back exactly; otherwise leading white space is skipped and the decimal
// number at the start is read, the rest ignored, and no number gives 0.
// Examples: "2.3" gives 2.3f, "3.5abc" 3.5, " -0.25" -0.25, "abc" 0, "nan" NaN.
float floatFromStoredText(std::string_view text);
