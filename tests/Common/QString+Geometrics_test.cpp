// Text measuring in a monospaced font, so that every expected size is a whole number of
// character advances by a whole number of line heights (tests/data/geometry/text_sizes.csv).

#include "QString+Geometrics.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <fstream>
#include <limits>
#include <sstream>
#include <string>

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
    const QFontMetricsF metrics(font);
    const double advance = metrics.horizontalAdvance(QLatin1Char('a'));
    const double lineHeight = QFontMetrics(font).height(); // layout lines are whole pixels
    const auto length = [](const std::string &field, double unit) {
        return field == "max" ? std::numeric_limits<float>::max() : float(std::stod(field) * unit);
    };
    std::ifstream in(CXF_TEST_DATA_DIR "/geometry/text_sizes.csv");
    std::string line;
    std::getline(in, line);
    int cases = 0;
    while (std::getline(in, line)) {
        std::istringstream row(line);
        std::string name, text, width, height, expectedWidth, expectedHeight;
        std::getline(row, name, ',');
        std::getline(row, text, ',');
        std::getline(row, width, ',');
        std::getline(row, height, ',');
        std::getline(row, expectedWidth, ',');
        std::getline(row, expectedHeight, ',');
        const QString string = QString::fromStdString(text)
                                   .replace(QLatin1String("\\r"), QLatin1String("\r"))
                                   .replace(QLatin1String("\\n"), QLatin1String("\n"));
        const QSizeF size =
            sizeForWidth(string, length(width, advance), length(height, lineHeight), &font);
        EXPECT_NEAR(size.width(), std::stod(expectedWidth) * advance, 0.5) << name;
        EXPECT_NEAR(size.height(), std::stod(expectedHeight) * lineHeight, 0.5) << name;
        ++cases;
    }
    EXPECT_EQ(cases, 10);
    EXPECT_NEAR(heightForWidth(QStringLiteral("aaa bbb"), float(5 * advance), &font),
                2 * lineHeight, 0.5);
    EXPECT_NEAR(widthForHeight(QStringLiteral("aaa bbb"), float(lineHeight), &font), 7 * advance,
                0.5);
}

TEST(QStringGeometrics, TypesetterBehaviourLastsOneMeasurementOfText)
{
    gNSStringGeometricsTypesetterBehavior = 1;
    sizeForWidth(QString(), 100, 100, QVTextAttributes());
    EXPECT_EQ(gNSStringGeometricsTypesetterBehavior, 1);
    sizeForWidth(QStringLiteral("x"), 100, 100, QVTextAttributes());
    EXPECT_EQ(gNSStringGeometricsTypesetterBehavior, -1);
}

TEST(QStringGeometrics, NullFontLogsAndMeasuresZero)
{
    static QString logged;
    const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { logged = text; });
    const QSizeF size =
        sizeForWidth(QStringLiteral("abc"), 100, 100, static_cast<QFont *>(nullptr));
    qInstallMessageHandler(previous);
    EXPECT_EQ(size, QSizeF(0, 0));
    EXPECT_EQ(logged,
              QStringLiteral("[QString sizeForWidth]: Error: cannot compute size with nil font"));
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
