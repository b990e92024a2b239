#pragma once
// Colours made from the colour library's records, for painting.

#include <QColor>

// The display colour of a CIELAB value defined in the D50 Lab colour space, through
// LittleCMS from that space to sRGB (relative colorimetric; values outside the display's
// gamut are clipped by the transform). The values are not clamped beforehand. Black when
// the colour cannot be made (a NaN component, or no colour management).
QColor colorWithCalibratedD50L(double L, double a, double b, double alpha);

// Contrast ratio of two colours by the WCAG 2 definition: (L1 + 0.05) / (L2 + 0.05) of their
// relative luminances in sRGB, lighter over darker; from 1 (same) to 21 (black on white).
double contrastRatio(const QColor &first, const QColor &second);

// Text colour for background: preferred when it reaches minimumRatio against it, else black or
// white, whichever contrasts more (one of them always reaches 4.5).
QColor readableTextColor(const QColor &background, const QColor &preferred,
                         double minimumRatio = 4.5);
