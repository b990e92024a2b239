// Monospaced text measuring: whole advances by whole lines (tests/data/geometry/text_sizes.csv).

#include "QString+Geometrics.h"

#include <gtest/gtest.h>

#include "qt_csv.h"
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <limits>

namespace {

QFont monospaced()
{
    QFont font(QStringLiteral("DejaVu Sans Mono"));
    font.setPixelSize(20);
    return font;
}

} // namespace

TEST(QStringGeometrics, SizesInAdvancesAndLines)
{
    const QFont font = monospaced();
    const double advance = QFontMetricsF(font).horizontalAdvance(QLatin1Char('a'));
    const double lineHeight = QFontMetrics(font).height(); // layout lines are whole pixels
    const auto length = [](const QString &field, double unit) {
        return field == u"max" ? std::numeric_limits<float>::max() : float(field.toDouble() * unit);
    };
    const std::vector<QStringList> rows = qtCsvRows("geometry/text_sizes.csv");
    for (const QStringList &f : rows) { // case, text, width, height, expected w and h
        const QString text =
            QString(f[1]).replace(u"\\r"_qs, u"\r"_qs).replace(u"\\n"_qs, u"\n"_qs);
        const QSizeF size =
            sizeForWidth(text, length(f[2], advance), length(f[3], lineHeight), &font);
        EXPECT_NEAR(size.width(), f[4].toDouble() * advance, 0.5) << f[0].toStdString();
        EXPECT_NEAR(size.height(), f[5].toDouble() * lineHeight, 0.5) << f[0].toStdString();
    }
    EXPECT_EQ(rows.size(), 10u);
    EXPECT_NEAR(heightForWidth(QStringLiteral("aaa bbb"), float(5 * advance), &font),
                2 * lineHeight, 0.5);
    EXPECT_NEAR(widthForHeight(QStringLiteral("aaa bbb"), float(lineHeight), &font), 7 * advance,
                0.5);
}

TEST(QStringGeometrics, TypesetterBehaviourForOneMeasurementAndNullFont)
{
    gNSStringGeometricsTypesetterBehavior = 1;
    sizeForWidth(QString(), 100, 100, QVTextAttributes());
    EXPECT_EQ(gNSStringGeometricsTypesetterBehavior, 1); // an empty text leaves it
    sizeForWidth(QStringLiteral("x"), 100, 100, QVTextAttributes());
    EXPECT_EQ(gNSStringGeometricsTypesetterBehavior, -1);

    static QString logged;
    const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { logged = text; });
    EXPECT_EQ(sizeForWidth(QStringLiteral("abc"), 100, 100, static_cast<QFont *>(nullptr)),
              QSizeF(0, 0));
    qInstallMessageHandler(previous);
    EXPECT_EQ(logged, u"[QString sizeForWidth]: Error: cannot compute size with nil font"_qs);
}

// Drawn in its measured size, a wrapped centred text puts ink on both lines and none outside.
TEST(QStringGeometrics, DrawnTextFillsItsMeasuredRect)
{
    QVTextAttributes attributes{monospaced(), QColor(Qt::black), Qt::AlignHCenter};
    const QString text = QStringLiteral("Drop a file here, or two");
    const QSizeF size = sizeForWidth(text, 150, 400, attributes);
    QImage image(300, 200, QImage::Format_ARGB32);
    image.fill(Qt::white);
    const QRectF rect(QPointF(20, 30), size);
    {
        QPainter painter(&image);
        drawWithRect(painter, text, rect, attributes);
    }
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                ink |= QRect(x, y, 1, 1);
    EXPECT_EQ(size.height(), 2 * QFontMetrics(monospaced()).height());
    EXPECT_TRUE(rect.adjusted(-1, -1, 1, 1).contains(QRectF(ink))) << ink.x() << "," << ink.y();
    EXPECT_GT(ink.bottom(), rect.center().y() + 5);
}
