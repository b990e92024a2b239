#include "QString+Geometrics.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <limits>

qint64 gNSStringGeometricsTypesetterBehavior = -1;

namespace {

Q_LOGGING_CATEGORY(lcGeometrics, "qv.geometrics", QtInfoMsg)

constexpr float kUnlimited = std::numeric_limits<float>::max();
// Qt's layout keeps line widths in fixed point; an unlimited width is held to this.
constexpr double kWidestLine = 1.0e6;

// A text laid out line by line in a width and height, as measured and as drawn.
struct TextLayout {
    QTextLayout layout;
    int lineCount = 0; // the lines that fit in the height
    QSizeF usedSize;
};

void layOut(TextLayout &result, const QVAttributedString &string, double width, double height)
{
    QString text = string.string;
    text.replace(QLatin1String("\r\n"), QString(QChar::LineSeparator));
    text.replace(QLatin1Char('\r'), QChar::LineSeparator);
    text.replace(QLatin1Char('\n'), QChar::LineSeparator);
    const QVTextAttributes &attributes = string.attributes;

    result.layout.setText(text);
    result.layout.setFont(attributes.font.value_or(QGuiApplication::font()));
    QTextOption option(attributes.alignment.value_or(Qt::AlignLeft) & Qt::AlignHorizontal_Mask);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    result.layout.setTextOption(option);
    result.layout.setCacheEnabled(true);

    const double lineWidth = std::clamp(width, 0.0, kWidestLine);
    double y = 0;
    double usedWidth = 0;
    result.layout.beginLayout();
    for (QTextLine line = result.layout.createLine(); line.isValid();
         line = result.layout.createLine()) {
        line.setLineWidth(lineWidth);
        if (y + line.height() > height)
            break;
        line.setPosition(QPointF(0, y));
        y += line.height();
        usedWidth = std::max(usedWidth, line.naturalTextWidth());
        ++result.lineCount;
    }
    result.layout.endLayout();

    // A text ending in a line break has an empty line after it: its height is not used.
    if (result.lineCount > 0 && text.endsWith(QChar::LineSeparator)) {
        const QTextLine last = result.layout.lineAt(result.lineCount - 1);
        if (last.textLength() == 0 && last.textStart() == text.size())
            y -= last.height();
    }
    result.usedSize = QSizeF(usedWidth, y);
}

} // namespace

QSizeF sizeForWidth(const QVAttributedString &string, float width, float height)
{
    if (string.string.isEmpty())
        return QSizeF(0, 0);
    TextLayout laidOut;
    layOut(laidOut, string, double(width), double(height));
    gNSStringGeometricsTypesetterBehavior = -1;
    return laidOut.usedSize;
}

float heightForWidth(const QVAttributedString &string, float width)
{
    return float(sizeForWidth(string, width, kUnlimited).height());
}

float widthForHeight(const QVAttributedString &string, float height)
{
    return float(sizeForWidth(string, kUnlimited, height).width());
}

QSizeF sizeForWidth(const QString &string, float width, float height,
                    const QVTextAttributes &attributes)
{
    return sizeForWidth(QVAttributedString{string, attributes}, width, height);
}

float heightForWidth(const QString &string, float width, const QVTextAttributes &attributes)
{
    return float(sizeForWidth(string, width, kUnlimited, attributes).height());
}

float widthForHeight(const QString &string, float height, const QVTextAttributes &attributes)
{
    return float(sizeForWidth(string, kUnlimited, height, attributes).width());
}

QSizeF sizeForWidth(const QString &string, float width, float height, const QFont *font)
{
    if (!font) {
        qCWarning(lcGeometrics, "[%s %s]: Error: cannot compute size with nil font", "QString",
                  "sizeForWidth");
        return QSizeF(0, 0);
    }
    QVTextAttributes attributes;
    attributes.font = *font;
    return sizeForWidth(string, width, height, attributes);
}

float heightForWidth(const QString &string, float width, const QFont *font)
{
    return float(sizeForWidth(string, width, kUnlimited, font).height());
}

float widthForHeight(const QString &string, float height, const QFont *font)
{
    return float(sizeForWidth(string, kUnlimited, height, font).width());
}

void drawWithRect(QPainter &painter, const QVAttributedString &string, const QRectF &rect)
{
    if (string.string.isEmpty())
        return;
    TextLayout laidOut;
    layOut(laidOut, string, rect.width(), rect.height());
    painter.save();
    painter.setPen(string.attributes.foregroundColor.value_or(QColor(Qt::black)));
    for (int i = 0; i < laidOut.lineCount; ++i)
        laidOut.layout.lineAt(i).draw(&painter, rect.topLeft());
    painter.restore();
}

void drawWithRect(QPainter &painter, const QString &string, const QRectF &rect,
                  const QVTextAttributes &attributes)
{
    drawWithRect(painter, QVAttributedString{string, attributes}, rect);
}
