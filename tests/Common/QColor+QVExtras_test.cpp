// CIELAB, hexadecimal text, black-or-white contrast and the checkerboard (tests/data/colors).
#include "QColor+QVExtras.h"

#include "qt_csv.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <vector>

namespace {

TEST(ColorWithCalibratedD50L, LabValuesArePaintedThroughColourManagement)
{
    // L* 50 is Y = ((50 + 16) / 116)³ = 0.184187; sRGB encodes it as
    // 1.055 · Y^(1/2.4) − 0.055 = 0.46634 [IEC61966-2-1]. The Lab white is the display's white.
    struct Case {
        QVColor color;
        double expected;
    } cases[] = {{colorWithCalibratedD50L(100, 0, 0, 1), 1.0},
                 {colorWithCalibratedD50L(50, 0, 0, 1), 0.46634},
                 {colorWithCalibratedD50L(0, 0, 0, 1), 0.0},
                 {colorWithCalibratedD65L(100, 0, 0, 1), 1.0},
                 {colorWithCalibratedD50L(std::nan(""), 0, 0, 1), 0.0}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.expected);
        const QColor shown = c.color.toQColor();
        EXPECT_NEAR(shown.redF(), c.expected, 2e-3);
        EXPECT_NEAR(shown.greenF(), c.expected, 2e-3);
        EXPECT_NEAR(shown.blueF(), c.expected, 2e-3);
        EXPECT_EQ(shown.alphaF(), 1.0f);
    }
}

TEST(ColorFromHexRGB, ReadsTheLowThreeBytes)
{
    for (const QStringList &row : qtCsvRows("colors/hex_rgb.csv")) {
        SCOPED_TRACE(row.join(u',').toStdString());
        const QVColor color = colorFromHexRGB(row[0]);
        ASSERT_EQ(color.colorSpaceName(), QVColorSpaceName::CalibratedRGB);
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(color.components()[i], row[i + 1].toDouble(), 1e-7) << i;
        EXPECT_EQ(color.components()[3], 1.0);
    }
    EXPECT_EQ(colorFromHexRGB(QString()).toQColor(), QColor(Qt::black));
}

TEST(ContrastingBlackOrWhite, ThresholdAfterNarrowingAndTheReceiversFamily)
{
    const std::map<QString, QVColorSpaceName> spaces = {
        {QStringLiteral("device_rgb"), QVColorSpaceName::DeviceRGB},
        {QStringLiteral("calibrated_rgb"), QVColorSpaceName::CalibratedRGB},
        {QStringLiteral("device_white"), QVColorSpaceName::DeviceWhite},
        {QStringLiteral("calibrated_white"), QVColorSpaceName::CalibratedWhite},
        {QStringLiteral("device_cmyk"), QVColorSpaceName::DeviceCMYK}};
    for (const QStringList &row : qtCsvRows("colors/contrasting.csv")) {
        SCOPED_TRACE(row.join(u',').toStdString());
        std::vector<double> c;
        for (const QString &v : row[1].split(u' '))
            c.push_back(v.toDouble());
        const QVColorSpaceName space = spaces.at(row[0]);
        const QVColor color =
            space == QVColorSpaceName::DeviceRGB ? QVColor::deviceRGB(c[0], c[1], c[2], c[3])
            : space == QVColorSpaceName::CalibratedRGB
                ? QVColor::calibratedRGB(c[0], c[1], c[2], c[3])
            : space == QVColorSpaceName::DeviceWhite ? QVColor::deviceWhite(c[0], c[1])
            : space == QVColorSpaceName::CalibratedWhite
                ? QVColor::calibratedWhite(c[0], c[1])
                : QVColor::deviceCMYK(c[0], c[1], c[2], c[3], c[4]);
        const QVColor answer = contrastingBlackOrWhite(color);
        EXPECT_EQ(answer.colorSpaceName(), spaces.at(row[2]));
        for (std::size_t i = 0; i + 1 < answer.components().size(); ++i)
            EXPECT_EQ(answer.components()[i], row[3].toDouble()) << i;
        EXPECT_EQ(answer.components().back(), 1.0);
    }
}

TEST(CheckerboardColor, LowerLeftSquareHasTheFirstColourInAYUpView)
{
    const QVColor pattern = checkerboardColorWithFirstColor(QVColor::calibratedRGB(1, 0, 0, 1),
                                                            QVColor::calibratedRGB(0, 0, 1, 1), 5);
    QImage image(20, 20, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.translate(0, 20);
    painter.scale(1, -1); // as a view paints: y up
    painter.fillRect(QRectF(0, 0, 20, 20), pattern.toBrush());
    painter.end();
    // y-up square centres: (2, 2) lower-left, (7, 2) lower-right, (2, 7) above it, (12, 2)
    // the next tile.
    const struct {
        int x, y;
        QColor colour;
    } probes[] = {
        {2, 2, Qt::red}, {7, 2, Qt::blue}, {2, 7, Qt::blue}, {7, 7, Qt::red}, {12, 2, Qt::red}};
    for (const auto &p : probes)
        EXPECT_EQ(image.pixelColor(p.x, 19 - p.y), p.colour) << p.x << ", " << p.y;
}

} // namespace
