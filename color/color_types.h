#pragma once
// The records every part of the colour library passes around: four doubles each, by value,
// the fourth an alpha that conversions carry through unchanged.

struct LabColor {
    double L, a, b, alpha; // CIELAB; L in 0..100
};

struct LChColor {
    double L, C, h, alpha; // cylindrical CIELAB; h in radians
};

struct LuvColor {
    double L, u, v, alpha; // CIELUV (u, v hold chromaticities in the u'v' distance)
};

struct XYZColor {
    double X, Y, Z, alpha; // CIE XYZ with the white's Y = 1
};

struct RGBColor {
    double r, g, b, alpha; // linear RGB, nominally 0..1
};

struct XYZTriple {
    double X, Y, Z; // white points, primaries, adaptation inputs
};
