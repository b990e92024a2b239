#pragma once
// The shared D50 and D65 Lab colour spaces, on LittleCMS 2 profiles, and the conversion of a
// D50 CIELAB colour to sRGB for painting (the colour management the views rely on).
// Part of the color_cms library (links LittleCMS); the plain library `color` does not.

#include "color_types.h"

#include <lcms2.h>

#include <array>
#include <cstdint>

// A Lab identity profile (cmsCreateLab4Profile) whose white is XYZ_from_xy of the 2°
// chromaticity of gStandardIlluminant_D50 (0.9642119944211994, 1, 0.8251882845188288), as
// xyY; black (0, 0, 0); a and b nominally −128..128 (double-precision Lab is unbounded).
// Created on the first call (thread-safe) and kept for the life of the process: every call
// returns the same handle, which callers must not close.
cmsHPROFILE CGColorSpaceD50Lab();
// The same with the white of gStandardIlluminant_D65 (0.9504285453771807, 1, 1.0889003707981277).
cmsHPROFILE CGColorSpaceD65Lab();

// Gamma-encoded sRGB (IEC 61966-2-1 curve) of a D50 CIELAB colour, through LittleCMS from
// CGColorSpaceD50Lab() to its built-in sRGB profile with the relative colorimetric intent:
// the Lab white (100, 0, 0) is the display's white (1, 1, 1), as a swatch should look, where
// the absolute intent would tint it. r, g, b are clipped to 0..1 (colours outside the sRGB
// gamut are clipped per channel); alpha is copied. The transform is created once and shared;
// it has no pixel cache, so concurrent calls are safe. NaN input gives unspecified colours.
// Example: (50, 0, 0) → (0.4663, 0.4663, 0.4663); (100, 0, 0) → (1, 1, 1).
RGBColor sRGB_from_D50_Lab(LabColor lab);

// The same quantised to 8 bits by LittleCMS (rounded, saturated at 0 and 255).
// Example: (50, 0, 0) → (119, 119, 119).
std::array<uint8_t, 3> sRGB8_from_D50_Lab(LabColor lab);
