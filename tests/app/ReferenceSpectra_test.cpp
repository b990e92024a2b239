// The chart of reference spectra: the controller's data source against points worked out
// apart from the code (tests/data/reference/reference_spectra.csv: the black body by Planck's
// law at 6500 K with c2 = 0.014388 m K; D50, D65 and D75 by the CIE daylight formula with M1
// and M2 rounded to three decimals as in the CIE tables, hence their wider tolerance; CIE D65
// the published table over 100), the axes as Qt Charts lays them out, and the drawn pixels.
#include "AppDelegate.h"
#include "MainInterface.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QChartView>
#include <QFile>
#include <QGraphicsTextItem>
#include <QMainWindow>
#include <QTest>

#include <functional>
#include <map>

namespace {

struct Point {
    QString plot;
    unsigned nm;
    double value, tolerance;
};

std::vector<Point> referencePoints()
{
    std::vector<Point> points;
    QFile file(QStringLiteral(CXF_TEST_DATA_DIR "/reference/reference_spectra.csv"));
    if (file.open(QIODevice::ReadOnly) && !file.readLine().isEmpty()) {
        while (!file.atEnd()) {
            const QStringList f = QString::fromUtf8(file.readLine().trimmed()).split(u',');
            points.push_back({f.at(0), f.at(1).toUInt(), f.at(2).toDouble(), f.at(3).toDouble()});
        }
    }
    return points;
}

unsigned recordAt(unsigned nm)
{
    return (nm - 300) / 5;
}

} // namespace

TEST(ReferenceSpectra, DataSourceServesTheGridAndTheCurves)
{
    AppDelegate controller;
    controller.demoSpectrums();
    const QString bb = QStringLiteral("BB");
    EXPECT_EQ(controller.numberOfRecordsForPlot(bb), 107u);
    EXPECT_EQ(controller.numberForPlot(bb, AppDelegate::ScatterPlotFieldX, 0), QVariant(300u));
    EXPECT_EQ(controller.numberForPlot(bb, AppDelegate::ScatterPlotFieldX, 106), QVariant(830u));
    const std::vector<Point> points = referencePoints();
    ASSERT_EQ(points.size(), 16u);
    for (const Point &p : points) {
        const QVariant y =
            controller.numberForPlot(p.plot, AppDelegate::ScatterPlotFieldY, recordAt(p.nm));
        EXPECT_EQ(y.typeId(), QMetaType::Float);
        EXPECT_NEAR(y.toDouble(), p.value, p.tolerance) << p.plot.toStdString() << " " << p.nm;
    }
    EXPECT_EQ(controller.numberForPlot(QStringLiteral("D55"), AppDelegate::ScatterPlotFieldY, 52),
              QVariant(0.0f));
    EXPECT_FALSE(controller.numberForPlot(bb, 2, 52).isValid());
}

class ReferenceSpectraChart : public ::testing::Test
{
protected:
    void SetUp() override
    {
        window = loadMainInterface(controller);
        ASSERT_EQ(controller.chartWindow(), nullptr); // nothing is built at launch
        window->findChild<QAction *>(QStringLiteral("actionReferenceSpectra"))->trigger();
        view = qobject_cast<QChartView *>(controller.chartView());
        ASSERT_NE(view, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(controller.chartWindow()));
        view->setRenderHint(QPainter::Antialiasing, false); // a line's pixels in its own colour
        // The plot area settles 10 px under the top and 50 px over the bottom (left and right
        // give way to the room Qt Charts takes for the axis labels).
        QChart *chart = view->chart();
        ASSERT_TRUE(QTest::qWaitFor([chart] {
            return qAbs(chart->plotArea().top() - 10) <= 0.5 &&
                   qAbs(chart->plotArea().bottom() - (chart->rect().bottom() - 50)) <= 0.5;
        }));
    }

    // Whether a pixel within (dx, dy) of `value`, plotted in the chart, passes `drawn`.
    bool drawnNear(const QImage &image, QPointF value, const std::function<bool(QRgb)> &drawn,
                   int dx, int dy) const
    {
        const QPoint at = view->chart()->mapToPosition(value).toPoint();
        for (int y = at.y() - dy; y <= at.y() + dy; ++y)
            for (int x = at.x() - dx; x <= at.x() + dx; ++x)
                if (drawn(image.pixel(x, y)))
                    return true;
        return false;
    }

    AppDelegate controller;
    std::unique_ptr<QMainWindow> window;
    QChartView *view = nullptr;
};

TEST_F(ReferenceSpectraChart, AxesCarryTheirTitlesAndLabels)
{
    EXPECT_FALSE(controller.chartWindow()->testAttribute(Qt::WA_QuitOnClose));
    view->grab();
    // Texts under the plot area, row by row from left to right; beside it, from the far left
    // and then bottom to top.
    const QRectF plotArea = view->chart()->plotArea();
    std::map<std::pair<int, int>, QString> below, beside;
    for (QGraphicsItem *item : view->scene()->items()) {
        const auto *text = dynamic_cast<QGraphicsTextItem *>(item);
        const QPointF c = item->sceneBoundingRect().center();
        if (!text || text->toPlainText().isEmpty())
            continue;
        if (c.y() > plotArea.bottom())
            below[{qRound(c.y()), qRound(c.x())}] = text->toPlainText();
        else if (c.x() < plotArea.left())
            beside[{qRound(c.x()), -qRound(c.y())}] = text->toPlainText();
    }
    QStringList belowTexts, besideTexts;
    for (const auto &[at, text] : below)
        belowTexts << text;
    for (const auto &[at, text] : beside)
        besideTexts << text;
    EXPECT_EQ(belowTexts.join(u' ').toStdString(), "300 400 500 600 700 800 Wavelength");
    EXPECT_EQ(besideTexts.join(u' ').toStdString(), "S(\u03BB) 0.0 1.0 2.0");
}

TEST_F(ReferenceSpectraChart, CurvesAndGridLinesLieWhereTheirValuesAre)
{
    const std::map<QString, QColor> colors = {{QStringLiteral("BB"), Qt::black},
                                              {QStringLiteral("D50"), Qt::red},
                                              {QStringLiteral("D65"), Qt::magenta},
                                              {QStringLiteral("D75"), Qt::blue},
                                              {QStringLiteral("CIE D65"), Qt::green}};
    const QList<QAbstractSeries *> series = view->chart()->series();
    ASSERT_EQ(series.size(), 5);
    // One curve at a time: D65 and its tabulation overlap.
    for (const Point &p : referencePoints()) {
        for (QAbstractSeries *s : series)
            s->setVisible(s->name() == p.plot);
        const QRgb color = colors.at(p.plot).rgb();
        EXPECT_TRUE(drawnNear(
            view->grab().toImage(), {double(p.nm), p.value},
            [color](QRgb pixel) { return pixel == color; }, 1, 3))
            << p.plot.toStdString() << " " << p.nm;
    }
    // Grid lines every 100 nm and 1 in mid grey; every 10 nm and 0.2 in a lighter grey (a
    // half-pixel line); none at 355 nm or 1.3.
    const QImage image = view->grab().toImage();
    const auto major = [](QRgb p) { return p == qRgb(128, 128, 128); };
    const auto minor = [](QRgb p) {
        return qRed(p) == qBlue(p) && qRed(p) == qGreen(p) && qRed(p) > 128 && qRed(p) < 255;
    };
    const auto white = [](QRgb p) { return p == qRgb(255, 255, 255); };
    EXPECT_TRUE(drawnNear(image, {350, 1.7}, minor, 1, 0));
    EXPECT_TRUE(drawnNear(image, {400, 1.7}, major, 1, 0));
    EXPECT_TRUE(drawnNear(image, {355, 1.7}, white, 0, 0));
    EXPECT_TRUE(drawnNear(image, {355, 1.2}, minor, 0, 1));
    EXPECT_TRUE(drawnNear(image, {355, 1.0}, major, 0, 1));
    EXPECT_TRUE(drawnNear(image, {355, 1.3}, white, 0, 0));
}
