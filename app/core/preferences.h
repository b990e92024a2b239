#pragma once
// The application's one preference, shared by the window and the command-line tool. Settings
// live in QSettings(kSettingsOrganization, kSettingsApplication), native format: on Linux
// ~/.config/cxf-compare/cxf-compare.conf (or under $XDG_CONFIG_HOME).

inline constexpr char kSettingsOrganization[] = "cxf-compare";
inline constexpr char kSettingsApplication[] = "cxf-compare";

// Largest CMC (2:1) delta E that still counts as a match; read as a float.
inline constexpr char kDeltaECMCToleranceKey[] = "delta_E_CMC_tolerance";
inline constexpr float kDeltaECMCToleranceDefault = 2.5f;
