#include "QVColor.h"

#include <algorithm>
#include <cmath>

namespace {

double unit(double v)
{
    return std::clamp(v, 0.0, 1.0);
}

bool isRGB(QVColorSpaceName name)
{
    return name == QVColorSpaceName::DeviceRGB || name == QVColorSpaceName::CalibratedRGB;
}

bool isWhite(QVColorSpaceName name)
{
    return name == QVColorSpaceName::DeviceWhite || name == QVColorSpaceName::CalibratedWhite;
}

} // namespace

QVColor::QVColor(QVColorSpaceName name, std::initializer_list<double> components)
    : m_name(name), m_count(std::min(components.size(), m_components.size()))
{
    std::copy_n(components.begin(), m_count, m_components.begin());
}

QVColor QVColor::deviceRGB(double red, double green, double blue, double alpha)
{
    return {QVColorSpaceName::DeviceRGB, {red, green, blue, alpha}};
}

QVColor QVColor::calibratedRGB(double red, double green, double blue, double alpha)
{
    return {QVColorSpaceName::CalibratedRGB, {red, green, blue, alpha}};
}

QVColor QVColor::deviceWhite(double white, double alpha)
{
    return {QVColorSpaceName::DeviceWhite, {white, alpha}};
}

QVColor QVColor::calibratedWhite(double white, double alpha)
{
    return {QVColorSpaceName::CalibratedWhite, {white, alpha}};
}

QVColor QVColor::deviceCMYK(double cyan, double magenta, double yellow, double black, double alpha)
{
    return {QVColorSpaceName::DeviceCMYK, {cyan, magenta, yellow, black, alpha}};
}

QVColor QVColor::pattern(const QBrush &brush)
{
    QVColor color(QVColorSpaceName::Pattern, {});
    color.m_brush = brush;
    return color;
}

QVColor QVColor::lab(const QVColorSpace &space, double L, double a, double b, double alpha)
{
    QVColor color(QVColorSpaceName::Lab, {L, a, b, alpha});
    color.m_space = space;
    return color;
}

std::optional<QVColor> QVColor::colorUsingColorSpaceName(QVColorSpaceName name) const
{
    if (name == m_name) {
        return *this;
    }
    if (m_name == QVColorSpaceName::Pattern || name == QVColorSpaceName::Pattern ||
        name == QVColorSpaceName::Lab)
        return std::nullopt;
    const std::span<const double> c = components();
    const double alpha = c.back();

    // Everything else goes through RGB of the wanted family.
    const bool device = name == QVColorSpaceName::DeviceRGB ||
                        name == QVColorSpaceName::DeviceWhite ||
                        name == QVColorSpaceName::DeviceCMYK;
    std::array<double, 3> rgb{};
    if (isRGB(m_name)) {
        rgb = {c[0], c[1], c[2]};
    } else if (isWhite(m_name)) {
        rgb = {c[0], c[0], c[0]};
    } else if (m_name == QVColorSpaceName::DeviceCMYK) {
        const QColor q = QColor::fromCmykF(float(c[0]), float(c[1]), float(c[2]), float(c[3]));
        rgb = {q.redF(), q.greenF(), q.blueF()};
    } else { // Lab
        if (!m_space)
            return std::nullopt;
        const auto converted = rgbFromLab(*m_space, {c[0], c[1], c[2]}, device);
        if (!converted)
            return std::nullopt;
        rgb = *converted;
    }

    switch (name) {
    case QVColorSpaceName::DeviceRGB:
        return deviceRGB(rgb[0], rgb[1], rgb[2], alpha);
    case QVColorSpaceName::CalibratedRGB:
        return calibratedRGB(rgb[0], rgb[1], rgb[2], alpha);
    case QVColorSpaceName::DeviceWhite:
    case QVColorSpaceName::CalibratedWhite: {
        const double white = (11 * rgb[0] + 16 * rgb[1] + 5 * rgb[2]) / 32;
        return device ? deviceWhite(white, alpha) : calibratedWhite(white, alpha);
    }
    case QVColorSpaceName::DeviceCMYK: {
        const QColor q =
            QColor::fromRgbF(float(unit(rgb[0])), float(unit(rgb[1])), float(unit(rgb[2])))
                .toCmyk();
        return deviceCMYK(q.cyanF(), q.magentaF(), q.yellowF(), q.blackF(), alpha);
    }
    case QVColorSpaceName::Pattern:
    case QVColorSpaceName::Lab:
        break;
    }
    return std::nullopt;
}

double QVColor::brightnessComponent() const
{
    if (!isRGB(m_name))
        return 0;
    return std::max({m_components[0], m_components[1], m_components[2]});
}

QColor QVColor::toQColor() const
{
    const std::span<const double> c = components();
    if (c.empty() || std::any_of(c.begin(), c.end(), [](double v) { return std::isnan(v); }))
        return QColor(Qt::black);
    const auto rgb = [](double r, double g, double b, double a) {
        return QColor::fromRgbF(float(unit(r)), float(unit(g)), float(unit(b)), float(unit(a)));
    };
    switch (m_name) {
    case QVColorSpaceName::DeviceRGB:
    case QVColorSpaceName::CalibratedRGB:
        return rgb(c[0], c[1], c[2], c[3]);
    case QVColorSpaceName::DeviceWhite:
    case QVColorSpaceName::CalibratedWhite:
        return rgb(c[0], c[0], c[0], c[1]);
    case QVColorSpaceName::DeviceCMYK:
        return QColor::fromCmykF(float(unit(c[0])), float(unit(c[1])), float(unit(c[2])),
                                 float(unit(c[3])), float(unit(c[4])));
    case QVColorSpaceName::Lab: {
        const auto shown = colorUsingColorSpaceName(QVColorSpaceName::DeviceRGB);
        return shown ? shown->toQColor() : QColor(Qt::black);
    }
    case QVColorSpaceName::Pattern:
        break;
    }
    return QColor(Qt::black);
}

QBrush QVColor::toBrush() const
{
    return m_name == QVColorSpaceName::Pattern ? m_brush : QBrush(toQColor());
}
