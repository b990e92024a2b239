#pragma once
// The application's one preference.

// Largest CMC (2:1) delta E that still counts as a match.
inline constexpr const char *kToleranceKey = "delta_E_CMC_tolerance";
inline constexpr float kDefaultTolerance = 2.5f;

// Where the preferences live: QSettings(kSettingsOrganization, kSettingsApplication) in the
// native format, on Linux ~/.config/cxf-compare/cxf-compare.conf (or under $XDG_CONFIG_HOME).
// The command-line tool reads the tolerance from there.
inline constexpr const char *kSettingsOrganization = "cxf-compare";
inline constexpr const char *kSettingsApplication = "cxf-compare";
