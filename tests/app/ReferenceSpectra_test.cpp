// The reference spectra chart, against points worked out apart from the code: the black body by
// Planck's law, D50, D65 and D75 by the CIE daylight formula with M1 and M2 rounded as the CIE
// tables are (hence a wider tolerance), CIE D65 from its published table; with their colours.
#include "AppDelegate.h"
#include "MainInterface.h"
#include "qt_csv.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QChartView>
#include <QGraphicsTextItem>
#include <QMainWindow>
#include <QTest>

TEST(ReferenceSpectra, DataSourceServesTheGridAndTheCurves)
{
    AppDelegate controller;
    controller.demoSpectrums();
    constexpr unsigned X = AppDelegate::ScatterPlotFieldX, Y = AppDelegate::ScatterPlotFieldY;
    const QString bb = QStringLiteral("BB");
    EXPECT_EQ(controller.numberOfRecordsForPlot(bb), 107u);
    EXPECT_EQ(controller.numberForPlot(bb, X, 0), QVariant(300u));
    EXPECT_EQ(controller.numberForPlot(bb, X, 106), QVariant(830u));
    const std::vector<QStringList> rows = qtCsvRows("reference/reference_spectra.csv");
    ASSERT_EQ(rows.size(), 16u);
    for (const QStringList &row : rows) {
        const QVariant y = controller.numberForPlot(row[0], Y, (row[1].toUInt() - 300) / 5);
        EXPECT_EQ(y.typeId(), QMetaType::Float);
        EXPECT_NEAR(y.toDouble(), row[2].toDouble(), row[3].toDouble())
            << row.join(u' ').toStdString();
    }
    EXPECT_EQ(controller.numberForPlot(QStringLiteral("D55"), Y, 52), QVariant(0.0f));
    EXPECT_FALSE(controller.numberForPlot(bb, 2, 52).isValid());
}

TEST(ReferenceSpectra, MenuOpensTheChartDrawnAsItsAxesSay)
{
    AppDelegate controller;
    const std::unique_ptr<QMainWindow> window = loadMainInterface(controller);
    ASSERT_EQ(controller.chartWindow(), nullptr); // nothing is built at launch
    window->findChild<QAction *>(QStringLiteral("actionReferenceSpectra"))->trigger();
    auto *view = qobject_cast<QChartView *>(controller.chartView());
    ASSERT_TRUE(view && QTest::qWaitForWindowExposed(controller.chartWindow()));
    QChart *chart = view->chart();
    ASSERT_TRUE(QTest::qWaitFor([chart] { // 50 px under the plot area, once laid out
        return qAbs(chart->rect().bottom() - chart->plotArea().bottom() - 50) <= 0.5;
    }));

    // Every text outside the plot area: the axes' titles and labels.
    QStringList texts;
    for (QGraphicsItem *item : view->scene()->items()) {
        const auto *text = dynamic_cast<QGraphicsTextItem *>(item);
        if (text && !chart->plotArea().contains(item->sceneBoundingRect().center()))
            texts << text->toPlainText();
    }
    texts.removeAll(QString());
    texts.sort();
    EXPECT_EQ(texts.join(u' ').toStdString(),
              "0.0 1.0 2.0 300 400 500 600 700 800 S(\u03BB) Wavelength");

    // Drawn without antialiasing, so that a line's pixels carry its own colour.
    view->setRenderHint(QPainter::Antialiasing, false);
    const auto drawnNear = [chart](const QImage &image, QPointF value, auto drawn) {
        const QPoint at = chart->mapToPosition(value).toPoint();
        for (int i = 0; i < 21; ++i) // 3 by 7 pixels around
            if (drawn(image.pixel(at + QPoint(i % 3 - 1, i / 3 - 3))))
                return true;
        return false;
    };
    // A light grey grid line every 10 nm (half a pixel wide, so paler still).
    EXPECT_TRUE(drawnNear(view->grab().toImage(), {350, 1.7}, [](QRgb p) {
        return qRed(p) == qGreen(p) && qGreen(p) == qBlue(p) && qRed(p) > 128 && qRed(p) < 255;
    }));
    // One curve at a time, since D65 and its tabulation overlap.
    for (const QStringList &row : qtCsvRows("reference/reference_spectra.csv")) {
        for (QAbstractSeries *series : chart->series())
            series->setVisible(series->name() == row[0]);
        const QRgb color = QColor(row[4]).rgb();
        EXPECT_TRUE(drawnNear(view->grab().toImage(), {row[1].toDouble(), row[2].toDouble()},
                              [color](QRgb p) { return p == color; }))
            << row.join(u' ').toStdString();
    }
}
