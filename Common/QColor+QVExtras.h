#pragma once
// Colours made from the colour library's records and from hexadecimal strings, their
// brightness, and the ways they are handed to a painter.

#include "QVColor.h"

#include <QColor>
#include <QString>

class QPainter;

// A CIELAB value as a colour of the D50 Lab colour space (calibratedD50LabColorSpace). The
// values are not clamped; the colour is painted through LittleCMS, to the display's profile
// when it has one, else to sRGB (see QVColor::toQColor). Black when the colour cannot be made
// (no Lab colour space, or a NaN component).
// Example: (100, 0, 0, 1) is the white of the space, painted as (1, 1, 1).
QVColor colorWithCalibratedD50L(double L, double a, double b, double alpha);
// The same in the D65 Lab colour space.
QVColor colorWithCalibratedD65L(double L, double a, double b, double alpha);

// An opaque calibrated-RGB colour from hexadecimal digits such as "FF8000" (an optional
// leading "0x" and leading white space are accepted; scanning stops at the first other
// character). Red is bits 16 to 23, green 8 to 15, blue 0 to 7, each divided by 255 in single
// precision; higher bits are ignored; a string that does not scan (or a null one) is black.
// Example: "FF8000" is (1, 128/255, 0, 1).
QVColor colorFromHexRGB(const QString &hex);

// A pattern of 2 by 2 squares, each squareWidth wide, on a tile 2·squareWidth wide: the
// lower-left and upper-right squares in the first colour, the others in the second. The tile
// is oriented for a painter in y-up coordinates (as the views paint): there its lower-left
// square has the first colour.
QVColor checkerboardColorWithFirstColor(const QVColor &firstColor, const QVColor &secondColor,
                                        double squareWidth);

// The HSB brightness, narrowed to single precision: read directly in device or calibrated RGB;
// a device white colour is converted to device RGB first, any other to calibrated RGB (a
// pattern has none and gives 0).
float brightness(const QVColor &color);

// Black or white, whichever reads better on color: white when brightness(color), a float,
// is below 0.73 (a double), else black. The narrowing is deliberate: a brightness of exactly
// 0.73 gives black. The answer is in color's family: device RGB, calibrated RGB, device white,
// or calibrated white for every other space; alpha 1.
QVColor contrastingBlackOrWhite(const QVColor &color);

// The colour as a QColor in its own space: RGB and grey as RGB, CMYK as a CMYK QColor, Lab
// through colour management (toQColor); a pattern gives the shared transparent colour.
QColor createCGColor(const QVColor &color);
// The colour converted to device RGB as a QColor (transparent black when it cannot be, as for
// a pattern).
QColor createCGColorForDeviceRGBSpace(const QVColor &color);

// Sets the painter's brush (setCGFill) or pen (setCGStroke, its width and style kept) to the
// colour: a device CMYK colour as CMYK, a calibrated white one as grey, any other converted to
// calibrated RGB (transparent black when it cannot be).
void setCGFill(const QVColor &color, QPainter &painter);
void setCGStroke(const QVColor &color, QPainter &painter);
// setCGFill, then setCGStroke.
void setCGFillAndStroke(const QVColor &color, QPainter &painter);

// Contrast ratio of two colours by the WCAG 2 definition: (L1 + 0.05) / (L2 + 0.05) of their
// relative luminances in sRGB, lighter over darker; from 1 (same) to 21 (black on white).
double contrastRatio(const QColor &first, const QColor &second);

// Text colour for background: preferred when it reaches minimumRatio against it, else black or
// white, whichever contrasts more (one of them always reaches 4.5).
QColor readableTextColor(const QColor &background, const QColor &preferred,
                         double minimumRatio = 4.5);
