#pragma once
// White points of the CIE standard and fluorescent illuminants as chromaticities for the
// CIE 1931 2° and CIE 1964 10° observers, in this order: A, B, C, D50, D55, D65, D75, E,
// F1 to F12, five decimals as commonly tabulated for colour management. The A and daylight
// entries agree within 3e-5 with the chromaticities of the spectra of [CIE015-2004]
// (integrated in the tests); D65 here is 0.31271, 0.32902. E is 1/3, 1/3 for both observers,
// stored as 0.3333333333333333.

struct StandardIlluminant {
    const char *name;
    double x2, y2;   // CIE 1931 2° observer
    double x10, y10; // CIE 1964 10° observer
};

// {name, 2° x, 2° y, 10° x, 10° y}
// clang-format off
inline constexpr StandardIlluminant gStandardIlluminant_A = {
    "Illuminant A - Incandescent, Tungsten-Filament Lamp", 0.44757, 0.40745, 0.45117, 0.40594};
inline constexpr StandardIlluminant gStandardIlluminant_B = {
    "Illuminant B - Direct Sunlight at Noon (obsolete)", 0.34842, 0.35161, 0.3498, 0.3527};
inline constexpr StandardIlluminant gStandardIlluminant_C = {
    "Illuminant C - Shady Daylight at Noon (Average, North Sky Daylight) (obsolete)",
    0.31006, 0.31616, 0.31039, 0.31905};
inline constexpr StandardIlluminant gStandardIlluminant_D50 = {
    "Illuminant D50 - Horizon Light, ICC Profile PCS", 0.34567, 0.3585, 0.34773, 0.35952};
inline constexpr StandardIlluminant gStandardIlluminant_D55 = {
    "Illuminant D55 - Mid-Morning, Mid-Afternoon Daylight", 0.33242, 0.34743, 0.33411, 0.34877};
inline constexpr StandardIlluminant gStandardIlluminant_D65 = {
    "Illuminant D65 - 2\u00B0 Observer, Noon Daylight, Television, sRGB Color Space",
    0.31271, 0.32902, 0.31382, 0.331};
inline constexpr StandardIlluminant gStandardIlluminant_D75 = {
    "Illuminant D75 - North Sky Daylight", 0.29902, 0.31485, 0.29968, 0.3174};
inline constexpr StandardIlluminant gStandardIlluminant_E = {
    "Illuminant E - Equal Energy", 0.3333333333333333, 0.3333333333333333,
    0.3333333333333333, 0.3333333333333333};
inline constexpr StandardIlluminant gStandardIlluminant_F1 = {
    "Illuminant F1 - Daylight Fluorescent (CCT 6430K, CRI 76)", 0.3131, 0.33727, 0.31811,
    0.33559};
inline constexpr StandardIlluminant gStandardIlluminant_F2 = {
    "Illuminant F2 - Cool White Fluorescent (CCT 4230K, CRI 64)", 0.37208, 0.37529, 0.37925,
    0.36733};
inline constexpr StandardIlluminant gStandardIlluminant_F3 = {
    "Illuminant F3 - White Fluorescent (CCT 3450K, CRI 57)", 0.4091, 0.3943, 0.41761, 0.38324};
inline constexpr StandardIlluminant gStandardIlluminant_F4 = {
    "Illuminant F4 - Warm White Fluorescent (CCT 2940K, CRI 51)", 0.44018, 0.40329, 0.4492,
    0.39074};
inline constexpr StandardIlluminant gStandardIlluminant_F5 = {
    "Illuminant F5 - Daylight Fluorescent (CCT 6350K, CRI 72)", 0.31379, 0.34531, 0.31975,
    0.34246};
inline constexpr StandardIlluminant gStandardIlluminant_F6 = {
    "Illuminant F6 - Lite White Fluorescent (CCT 4150K, CRI 59)", 0.3779, 0.38835, 0.3866,
    0.37847};
inline constexpr StandardIlluminant gStandardIlluminant_F7 = {
    "Illuminant F7 - D65 Simulator, Daylight Simulator (CCT 6500K, CRI 90)", 0.31292, 0.32933,
    0.31569, 0.3296};
inline constexpr StandardIlluminant gStandardIlluminant_F8 = {
    "Illuminant F8 - D50 simulator, Sylvania F40 Design 50 (CCT 5000K, CRI 95)", 0.34588,
    0.35875, 0.34902, 0.35939};
inline constexpr StandardIlluminant gStandardIlluminant_F9 = {
    "Illuminant F9 - Cool White Deluxe Fluorescent (CCT 4150K, CRI 90)", 0.37417, 0.37281,
    0.37829, 0.37045};
inline constexpr StandardIlluminant gStandardIlluminant_F10 = {
    "Illuminant F10 - Philips TL85, Ultralume 50 (CCT 5000K, CRI 81)", 0.34609, 0.35986,
    0.3509, 0.35444};
inline constexpr StandardIlluminant gStandardIlluminant_F11 = {
    "Illuminant F11 - Philips TL84, Ultralume 40 (CCT 4000K, CRI 83)", 0.38052, 0.37713,
    0.38541, 0.37123};
inline constexpr StandardIlluminant gStandardIlluminant_F12 = {
    "Illuminant F12 - Philips TL83, Ultralume 30 (CCT 3000K, CRI 83)", 0.43695, 0.40441,
    0.44256, 0.39717};
// clang-format on
