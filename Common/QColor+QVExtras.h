#pragma once
// Colours made from the colour library's records, for painting.

#include <QColor>

// The display colour of a CIELAB value defined in the D50 Lab colour space, through
// LittleCMS from that space to sRGB (relative colorimetric; values outside the display's
// gamut are clipped by the transform). The values are not clamped beforehand. Black when
// the colour cannot be made (a NaN component, or no colour management).
QColor colorWithCalibratedD50L(double L, double a, double b, double alpha);
