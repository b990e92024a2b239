#pragma once
// Named RGB working spaces: primaries and white as CIE 1931 xy chromaticities.
// Source: [Lindbloom] RGB working space information (primaries, whites, luminances, gammas).
// White x, y: 0.31271, 0.32902 is D65; 0.34567, 0.3585 is D50; 0.31006, 0.31616 is C;
// 0.3333333333333333 for both is E.

struct ColorSpaceChromaticities {
    const char *name;
    double rx, ry, rY; // red primary: x, y and its relative luminance
    double gx, gy, gY; // green primary
    double bx, by, bY; // blue primary
    double wx, wy;     // white point
    // Nominal exponent, informative only: nothing in the library applies it. Kept as listed
    // (ECI RGB v2 carries 1.0 and sRGB 2.2, not their exact transfer curves).
    double gamma;
};
// The Y members are informative as well: the matrices use only the x, y pairs.

// {name, red x, y, Y, green x, y, Y, blue x, y, Y, white x, y, gamma}
// clang-format off
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_AdobeRGB = {
    "Adobe RGB 1998", 0.64, 0.33, 0.297361, 0.21, 0.71, 0.627355,
    0.15, 0.06, 0.075285, 0.31271, 0.32902, 2.2};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_AppleRGB = {
    "Apple RGB", 0.625, 0.34, 0.244634, 0.28, 0.595, 0.672034,
    0.155, 0.07, 0.083332, 0.31271, 0.32902, 1.8};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_BestRGB = {
    "Best RGB", 0.7347, 0.2653, 0.228457, 0.215, 0.775, 0.737352,
    0.13, 0.035, 0.034191, 0.34567, 0.3585, 2.2};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_BetaRGB = {
    "Beta RGB", 0.6888, 0.3112, 0.303273, 0.1986, 0.7551, 0.663786,
    0.1265, 0.0352, 0.032941, 0.34567, 0.3585, 2.2};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_BruceRGB = {
    "Bruce RGB", 0.64, 0.33, 0.240995, 0.28, 0.65, 0.683554,
    0.15, 0.06, 0.075452, 0.31271, 0.32902, 2.2};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_CIERGB = {
    "CIE RGB", 0.735, 0.265, 0.176204, 0.274, 0.717, 0.812985,
    0.167, 0.009, 0.010811, 0.3333333333333333, 0.3333333333333333, 2.2};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_ColorMatchRGB = {
    "ColorMatch RGB", 0.63, 0.34, 0.274884, 0.295, 0.605, 0.658132,
    0.15, 0.075, 0.066985, 0.34567, 0.3585, 1.8};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_DonRGB4 = {
    "Don RGB 4", 0.696, 0.3, 0.27835, 0.215, 0.765, 0.68797,
    0.13, 0.035, 0.03368, 0.34567, 0.3585, 2.2};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_ECIRGB = {
    "ECI RGB v2", 0.67, 0.33, 0.32025, 0.21, 0.71, 0.602071,
    0.14, 0.08, 0.077679, 0.34567, 0.3585, 1.0};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_EktaSpacePS5 = {
    "Ekta Space PS5", 0.695, 0.305, 0.260629, 0.26, 0.7, 0.734946,
    0.11, 0.005, 0.004425, 0.34567, 0.3585, 2.2};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_NTSCRGB = {
    "NTSC RGB", 0.67, 0.33, 0.298839, 0.21, 0.71, 0.586811,
    0.14, 0.08, 0.11435, 0.31006, 0.31616, 2.2};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_PALSECAMRGB = {
    "PAL/SECAM RGB", 0.64, 0.33, 0.222021, 0.29, 0.6, 0.706645,
    0.15, 0.06, 0.071334, 0.31271, 0.32902, 2.2};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_ProPhotoRGB = {
    "ProPhoto RGB", 0.7347, 0.2653, 0.28804, 0.1596, 0.8404, 0.711874,
    0.0366, 0.0001, 0.000086, 0.34567, 0.3585, 1.8};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_SMPTECRGB = {
    "SMPTE-C RGB", 0.63, 0.34, 0.212395, 0.31, 0.595, 0.701049,
    0.155, 0.07, 0.086556, 0.31271, 0.32902, 2.2};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_sRGB = {
    "sRGB", 0.64, 0.33, 0.212656, 0.3, 0.6, 0.715158,
    0.15, 0.06, 0.072186, 0.31271, 0.32902, 2.2};
inline constexpr ColorSpaceChromaticities gColorSpaceChromaticities_WideGamutRGB = {
    "Wide Gamut RGB", 0.735, 0.265, 0.258187, 0.115, 0.826, 0.724938,
    0.157, 0.018, 0.016875, 0.34567, 0.3585, 2.2};
// clang-format on
