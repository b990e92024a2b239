#include "QColor+QVExtras.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

QVColor labColor(const std::optional<QVColorSpace> &space, double L, double a, double b,
                 double alpha)
{
    if (!space || std::isnan(L) || std::isnan(a) || std::isnan(b) || std::isnan(alpha))
        return QVColor::black();
    return QVColor::lab(*space, L, a, b, alpha);
}

// What a scanner of unsigned hexadecimal integers reads: leading white space, an optional 0x,
// then as many digits as there are (saturating at the largest value); 0 when none.
quint32 scanHexInt(const QString &text)
{
    const auto digit = [&text](qsizetype at) -> int {
        const char16_t c = at < text.size() ? text.at(at).unicode() : u'\0';
        if (c >= u'0' && c <= u'9')
            return c - u'0';
        if (c >= u'a' && c <= u'f')
            return c - u'a' + 10;
        if (c >= u'A' && c <= u'F')
            return c - u'A' + 10;
        return -1;
    };
    qsizetype i = 0;
    while (i < text.size() && text.at(i).isSpace())
        ++i;
    if (digit(i) == 0 && i + 1 < text.size() &&
        (text.at(i + 1) == u'x' || text.at(i + 1) == u'X') && digit(i + 2) >= 0)
        i += 2;
    quint64 value = 0;
    for (int d = digit(i); d >= 0; d = digit(++i))
        value = std::min<quint64>(value * 16 + quint64(d), 0xFFFFFFFFu);
    return quint32(value);
}

QColor calibratedRGBOf(const QVColor &color)
{
    const auto rgb = color.colorUsingColorSpaceName(QVColorSpaceName::CalibratedRGB);
    return rgb ? rgb->toQColor() : QColor::fromRgbF(0, 0, 0, 0);
}

// The painter colour of setCGFill and setCGStroke.
QColor contextColor(const QVColor &color)
{
    switch (color.colorSpaceName()) {
    case QVColorSpaceName::DeviceCMYK:
    case QVColorSpaceName::CalibratedWhite:
        return color.toQColor(); // CMYK as CMYK, grey as grey
    case QVColorSpaceName::DeviceRGB:
    case QVColorSpaceName::CalibratedRGB:
    case QVColorSpaceName::DeviceWhite:
    case QVColorSpaceName::Pattern:
    case QVColorSpaceName::Lab:
        break;
    }
    return calibratedRGBOf(color);
}

} // namespace

QVColor colorWithCalibratedD50L(double L, double a, double b, double alpha)
{
    return labColor(calibratedD50LabColorSpace(), L, a, b, alpha);
}

QVColor colorWithCalibratedD65L(double L, double a, double b, double alpha)
{
    return labColor(calibratedD65LabColorSpace(), L, a, b, alpha);
}

QVColor colorFromHexRGB(const QString &hex)
{
    const quint32 value = scanHexInt(hex);
    const float red = float((value >> 16) & 0xFF) / 255.0f;
    const float green = float((value >> 8) & 0xFF) / 255.0f;
    const float blue = float(value & 0xFF) / 255.0f;
    return QVColor::calibratedRGB(red, green, blue, 1.0);
}

QVColor checkerboardColorWithFirstColor(const QVColor &firstColor, const QVColor &secondColor,
                                        double squareWidth)
{
    const double w = squareWidth;
    const int side = std::max(1, int(std::lround(2 * w)));
    QImage tile(side, side, QImage::Format_ARGB32_Premultiplied);
    tile.fill(Qt::transparent);
    {
        QPainter painter(&tile);
        painter.setPen(Qt::NoPen);
        painter.setBrush(firstColor.toBrush());
        painter.drawRect(QRectF(0, 0, w, w));
        painter.drawRect(QRectF(w, w, w, w));
        painter.setBrush(secondColor.toBrush());
        painter.drawRect(QRectF(0, w, w, w));
        painter.drawRect(QRectF(w, 0, w, w));
    }
    // Drawn above in the image's rows, which a y-up painter shows from the bottom: the square
    // at (0, 0, w, w) is the lower-left one there.
    return QVColor::pattern(QBrush(tile));
}

float brightness(const QVColor &color)
{
    const QVColorSpaceName name = color.colorSpaceName();
    std::optional<QVColor> rgb;
    if (name == QVColorSpaceName::DeviceRGB || name == QVColorSpaceName::CalibratedRGB)
        rgb = color;
    else if (name == QVColorSpaceName::DeviceWhite)
        rgb = color.colorUsingColorSpaceName(QVColorSpaceName::DeviceRGB);
    else
        rgb = color.colorUsingColorSpaceName(QVColorSpaceName::CalibratedRGB);
    return rgb ? float(rgb->brightnessComponent()) : 0.0f;
}

QVColor contrastingBlackOrWhite(const QVColor &color)
{
    static constexpr double kBlackOrWhite[2] = {0.0, 1.0};
    static constexpr double kThreshold = 0.73;
    const float value = brightness(color);
    const double v = kBlackOrWhite[value < kThreshold ? 1 : 0];
    switch (color.colorSpaceName()) {
    case QVColorSpaceName::DeviceRGB:
        return QVColor::deviceRGB(v, v, v, 1.0);
    case QVColorSpaceName::CalibratedRGB:
        return QVColor::calibratedRGB(v, v, v, 1.0);
    case QVColorSpaceName::DeviceWhite:
        return QVColor::deviceWhite(v, 1.0);
    case QVColorSpaceName::CalibratedWhite:
    case QVColorSpaceName::DeviceCMYK:
    case QVColorSpaceName::Pattern:
    case QVColorSpaceName::Lab:
        break;
    }
    return QVColor::calibratedWhite(v, 1.0);
}

QColor createCGColor(const QVColor &color)
{
    if (color.colorSpaceName() == QVColorSpaceName::Pattern)
        return QColor(Qt::transparent); // a pattern has no components
    return color.toQColor();
}

QColor createCGColorForDeviceRGBSpace(const QVColor &color)
{
    const auto rgb = color.colorUsingColorSpaceName(QVColorSpaceName::DeviceRGB);
    return rgb ? rgb->toQColor() : QColor::fromRgbF(0, 0, 0, 0);
}

void setCGFill(const QVColor &color, QPainter &painter)
{
    painter.setBrush(contextColor(color));
}

void setCGStroke(const QVColor &color, QPainter &painter)
{
    QPen pen = painter.pen();
    pen.setColor(contextColor(color));
    painter.setPen(pen);
}

void setCGFillAndStroke(const QVColor &color, QPainter &painter)
{
    setCGFill(color, painter);
    setCGStroke(color, painter);
}

namespace {

double relativeLuminance(const QColor &color)
{
    const auto linear = [](float c) {
        return c <= 0.04045f ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    const QColor rgb = color.toRgb();
    return 0.2126 * linear(rgb.redF()) + 0.7152 * linear(rgb.greenF()) +
           0.0722 * linear(rgb.blueF());
}

} // namespace

double contrastRatio(const QColor &first, const QColor &second)
{
    const double a = relativeLuminance(first), b = relativeLuminance(second);
    return (std::fmax(a, b) + 0.05) / (std::fmin(a, b) + 0.05);
}

QColor readableTextColor(const QColor &background, const QColor &preferred, double minimumRatio)
{
    if (contrastRatio(background, preferred) >= minimumRatio)
        return preferred;
    const QColor black(Qt::black), white(Qt::white);
    return contrastRatio(background, black) >= contrastRatio(background, white) ? black : white;
}
