#pragma once
// A colour as the views and the colour helpers see it: the name of the space it is defined in
// and its components, converted to a QColor (or a QBrush) only to be painted.

#include "QColorSpace+QVExtras.h"

#include <QBrush>
#include <QColor>

#include <array>
#include <optional>
#include <span>

enum class QVColorSpaceName {
    DeviceRGB,       // the display's own red, green, blue
    CalibratedRGB,   // sRGB
    DeviceWhite,     // the display's grey
    CalibratedWhite, // a grey of sRGB
    DeviceCMYK,      // cyan, magenta, yellow, black
    Pattern,         // a tiled image: no components
    Lab,             // CIELAB in a Lab colour space (its white point tells which)
};

class QVColor
{
public:
    static QVColor deviceRGB(double red, double green, double blue, double alpha);
    static QVColor calibratedRGB(double red, double green, double blue, double alpha);
    static QVColor deviceWhite(double white, double alpha);
    static QVColor calibratedWhite(double white, double alpha);
    static QVColor deviceCMYK(double cyan, double magenta, double yellow, double black,
                              double alpha);
    static QVColor pattern(const QBrush &brush);
    static QVColor lab(const QVColorSpace &space, double L, double a, double b, double alpha);
    // Opaque black: calibrated white 0.
    static QVColor black() { return calibratedWhite(0, 1); }

    QVColorSpaceName colorSpaceName() const { return m_name; }
    // The components in the space's order, alpha last (none for a pattern).
    std::span<const double> components() const { return {m_components.data(), m_count}; }
    // The Lab colour space of a Lab colour; none for the named spaces.
    const std::optional<QVColorSpace> &colorSpace() const { return m_space; }
    // The tile of a pattern colour; no brush for the others.
    QBrush patternBrush() const { return m_brush; }

    // The same colour in another named space; none to or from a pattern (unless both are) and to
    // Lab (unless it is Lab already). RGB spaces convert to each other unchanged, grey is
    // (w, w, w) in RGB and RGB is Qt's grey weighting (11 r + 16 g + 5 b) / 32 in grey; CMYK
    // converts through QColor; Lab goes through LittleCMS to sRGB, or to the display's profile
    // for device RGB.
    std::optional<QVColor> colorUsingColorSpaceName(QVColorSpaceName name) const;

    // The HSB brightness, max(r, g, b), of an RGB colour; 0 in any other space.
    double brightnessComponent() const;

    // The colour to paint with: RGB and grey as they stand (clipped to 0..1), CMYK through
    // QColor, Lab through LittleCMS to the display's profile when it has one, else to sRGB;
    // a pattern, or a component that is NaN, gives black.
    QColor toQColor() const;
    // A solid brush of toQColor(), or a pattern's tile.
    QBrush toBrush() const;

private:
    QVColor(QVColorSpaceName name, std::initializer_list<double> components);

    QVColorSpaceName m_name;
    std::array<double, 5> m_components{};
    std::size_t m_count = 0;
    std::optional<QVColorSpace> m_space;
    QBrush m_brush;
};
