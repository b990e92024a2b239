#pragma once
// Chromaticity diagrams and correlated colour temperature.

#include "color_types.h"

// (x / y, 1, (1 − x − y) / y); (0, 0, 0) when y = 0.
// Example: the D65 white (0.31271, 0.32902) gives (0.9504285453771807, 1, 1.0889003707981277).
XYZTriple XYZ_from_xy(double x, double y);
