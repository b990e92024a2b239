// The chart of reference light sources: a black body at 6500 K, CIE daylight at 5000, 6500 and
// 7500 K, and the tabulated D65, from 300 to 830 nm, drawn with Qt Charts. The controller is
// the single source of the plotted numbers: every series is filled through
// numberOfRecordsForPlot() and numberForPlot().
#include "AppDelegate.h"

#include "data/cie_illuminant_D65_5nm.h"
#include "illuminants.h"

#include <QChart>
#include <QChartView>
#include <QGraphicsLayout>
#include <QLegend>
#include <QLineSeries>
#include <QVBoxLayout>
#include <QValueAxis>
#include <QWidget>

namespace {

constexpr uint32_t kStepNm = 5;

struct Plot {
    const char *identifier;
    QColor color;
};

// In drawing order; plot i shows spectrum_(i + 1).
const Plot kPlots[] = {
    {"BB", QColor::fromRgbF(0, 0, 0)},      {"D50", QColor::fromRgbF(1, 0, 0)},
    {"D65", QColor::fromRgbF(1, 0, 1)},     {"D75", QColor::fromRgbF(0, 0, 1)},
    {"CIE D65", QColor::fromRgbF(0, 1, 0)},
};

// Between the chart's edges and its plot area, in pixels: the labels and titles of the axes
// live in the wide left and bottom strips.
constexpr QMargins kPlotAreaPadding(50, 10, 10, 50); // left, top, right, bottom
constexpr qreal kLegendInset = 10;

// Title and labels in the chart's text style; axis line, major ticks and grid in the major
// style, minor grid lines in their own. Qt Charts draws the major ticks with the axis line's pen
// and has no tick length, no title offset, and no minor tick marks (so minor ticks are
// invisible as they should be).
void styleAxis(QValueAxis *axis, const QString &title, const QFont &font, const QPen &major,
               const QPen &minorGrid)
{
    axis->setTitleText(title);
    axis->setTitleFont(font);
    axis->setTitleBrush(Qt::black);
    axis->setLabelsFont(font);
    axis->setLabelsBrush(Qt::black);
    axis->setLinePen(major);
    axis->setGridLinePen(major);
    axis->setMinorGridLinePen(minorGrid);
    axis->setTickType(QValueAxis::TicksDynamic);
}

} // namespace

void AppDelegate::demoSpectrums()
{
    _lambda_min = 300;
    _lambda_max = 830;
    _num_bands = (_lambda_max - _lambda_min) / kStepNm + 1;
    spectrum_1 = create_spectrum_for_black_body_temp(_lambda_min, _lambda_max, kStepNm, 6500.0);
    spectrum_2 =
        create_spectrum_for_CIE_D_illuminant_temp(_lambda_min, _lambda_max, kStepNm, 5000.0);
    spectrum_3 =
        create_spectrum_for_CIE_D_illuminant_temp(_lambda_min, _lambda_max, kStepNm, 6500.0);
    spectrum_4 =
        create_spectrum_for_CIE_D_illuminant_temp(_lambda_min, _lambda_max, kStepNm, 7500.0);
    // The published D65, scaled like the others to 1 at 560 nm.
    spectrum_5 = allocate_spectrum(_num_bands);
    if (spectrum_5) {
        for (uint32_t i = 0; i < _num_bands; ++i) {
            spectrum_5[i].wavelength = gStandardIlluminantSpectrum_D65[i].wavelength;
            spectrum_5[i].value = gStandardIlluminantSpectrum_D65[i].value / 100.0;
        }
    }
}

unsigned AppDelegate::numberOfRecordsForPlot(const QString &) const
{
    return _num_bands;
}

QVariant AppDelegate::numberForPlot(const QString &plot, unsigned field, unsigned recordIndex) const
{
    // Past the grid there is no record, and nothing to read before demoSpectrums() has run.
    if (recordIndex >= _num_bands)
        return {};
    switch (field) {
    case ScatterPlotFieldX:
        // Every curve takes its wavelengths from the black body: all five share the grid.
        return spectrum_1 ? QVariant(spectrum_1[recordIndex].wavelength) : QVariant();
    case ScatterPlotFieldY: {
        const Spectrum *const spectra[] = {spectrum_1.get(), spectrum_2.get(), spectrum_3.get(),
                                           spectrum_4.get(), spectrum_5.get()};
        for (size_t i = 0; i < std::size(kPlots); ++i) {
            if (plot == QLatin1String(kPlots[i].identifier) && spectra[i])
                return QVariant(static_cast<float>(spectra[i][recordIndex].value));
        }
        // An unknown plot, or a spectrum that could not be made, lies along the axis.
        return QVariant(0.0f);
    }
    default:
        return {};
    }
}

void AppDelegate::setupChart()
{
    auto *view = qobject_cast<QChartView *>(m_chartView);
    if (!view) {
        // A window of its own, deleted with the controller; closing it does not quit.
        auto *chartWindow = new QWidget(nullptr, Qt::Window);
        chartWindow->setObjectName(QStringLiteral("chartWindow"));
        chartWindow->setWindowTitle(tr("Reference Spectra"));
        chartWindow->setAttribute(Qt::WA_QuitOnClose, false);
        chartWindow->resize(720, 520);
        view = new QChartView(chartWindow);
        view->setObjectName(QStringLiteral("chartView"));
        auto *layout = new QVBoxLayout(chartWindow);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(view);
        connect(this, &QObject::destroyed, chartWindow, [chartWindow] { delete chartWindow; });
        m_chartWindow = chartWindow;
        m_chartView = view;
    }

    // Line styles. Qt's width 0 is a hairline, so the invisible style draws no line at all.
    const QPen majorLineStyle(QColor::fromRgbF(0.5, 0.5, 0.5), 1.0, Qt::SolidLine, Qt::RoundCap);
    const QPen minorGridLineStyle(QColor::fromRgbF(2.0 / 3, 2.0 / 3, 2.0 / 3), 0.5, Qt::SolidLine,
                                  Qt::RoundCap);
    const QPen invisibleLineStyle(Qt::NoPen);
    // Built and assigned to nothing, kept as it stands.
    [[maybe_unused]] const QPen redLineStyle(QColor::fromRgbF(1, 0, 0), 3.0);
    const QBrush clearFill(Qt::transparent);
    QFont textStyle(QStringLiteral("Geneva"));
    textStyle.setPointSizeF(10.0);

    // The light theme on a white view; the chart and its plot area are unfilled, without
    // padding around the chart and without corner rounding. Qt Charts has no rounding for the
    // plot area: with a clear fill and no border, its radius of 10 would draw nothing anyway.
    auto *graph = new QChart;
    graph->setTheme(QChart::ChartThemeLight);
    graph->setBackgroundBrush(clearFill);
    graph->setBackgroundPen(invisibleLineStyle);
    graph->setBackgroundRoundness(0);
    graph->setMargins(QMargins());
    graph->layout()->setContentsMargins(0, 0, 0, 0);
    graph->setPlotAreaBackgroundBrush(clearFill);
    graph->setPlotAreaBackgroundPen(invisibleLineStyle);
    graph->setPlotAreaBackgroundVisible(true);

    // Wavelength from _lambda_min to _lambda_max, S(λ) from 0 to 2, both from 32-bit floats.
    const float xLocation = static_cast<float>(_lambda_min);
    const float xLength = static_cast<float>(_lambda_max - _lambda_min);
    const float yLocation = 0.0f, yLength = 2.0f;
    auto *xAxis = new QValueAxis;
    auto *yAxis = new QValueAxis;
    graph->addAxis(xAxis, Qt::AlignBottom); // crosses the y axis at 0
    graph->addAxis(yAxis, Qt::AlignLeft);   // crosses the x axis at _lambda_min
    xAxis->setRange(double(xLocation), double(xLocation + xLength));
    yAxis->setRange(double(yLocation), double(yLocation + yLength));
    styleAxis(xAxis, tr("Wavelength"), textStyle, majorLineStyle, minorGridLineStyle);
    // Whole numbers without a sign, as "#;0;#" formats them.
    xAxis->setLabelFormat(QStringLiteral("%d"));
    xAxis->setTickAnchor(double(xLocation));
    xAxis->setTickInterval(100);
    xAxis->setMinorTickCount(9);
    styleAxis(yAxis, tr("S(\u03BB)"), textStyle, majorLineStyle, minorGridLineStyle);
    yAxis->setTickAnchor(double(yLocation));
    yAxis->setTickInterval(1.0);
    yAxis->setMinorTickCount(4);

    for (const Plot &plot : kPlots) {
        const QString identifier = QLatin1String(plot.identifier);
        QList<QPointF> points;
        const unsigned count = numberOfRecordsForPlot(identifier);
        points.reserve(count);
        for (unsigned i = 0; i < count; ++i)
            points.append({numberForPlot(identifier, ScatterPlotFieldX, i).toDouble(),
                           numberForPlot(identifier, ScatterPlotFieldY, i).toDouble()});
        auto *series = new QLineSeries;
        series->setObjectName(identifier);
        series->setName(identifier);
        series->replace(points);
        graph->addSeries(series);
        series->attachAxis(xAxis);
        series->attachAxis(yAxis);
        series->setPen(QPen(plot.color, 1.0)); // after addSeries, which applies the theme's
    }

    // The legend sits in the empty upper right corner of the plot area.
    QLegend *legend = graph->legend();
    legend->detachFromChart();
    legend->setAlignment(Qt::AlignLeft);
    legend->setFont(textStyle);
    legend->setLabelBrush(Qt::black);
    legend->setBackgroundVisible(true);
    legend->setBrush(Qt::white);
    legend->setPen(minorGridLineStyle);

    // Fixed paddings around the plot area. Qt Charts sizes the plot area itself, inside the
    // chart's margins and the room its axes take, so each new plot area corrects the margins by
    // its distance from the wanted one (the axes keep their size: one correction settles it).
    // Margins stay at 0 or more: where an axis needs more room than its padding (the y labels
    // and title take about 59 px at 10 pt), the plot area gives way rather than clip them.
    connect(graph, &QChart::plotAreaChanged, graph, [graph](const QRectF &plotArea) {
        const QRectF wanted = graph->rect().marginsRemoved(kPlotAreaPadding.toMarginsF());
        const QMargins margins = graph->margins();
        const QMargins corrected(
            qMax(0, margins.left() + qRound(wanted.left() - plotArea.left())),
            qMax(0, margins.top() + qRound(wanted.top() - plotArea.top())),
            qMax(0, margins.right() + qRound(plotArea.right() - wanted.right())),
            qMax(0, margins.bottom() + qRound(plotArea.bottom() - wanted.bottom())));
        if (corrected != margins)
            graph->setMargins(corrected);
        // The detached legend stacks its entries in one column when it has the room, then
        // shrinks to them and its margins; it starts a new column one bottom margin early.
        QLegend *legend = graph->legend();
        legend->setGeometry(plotArea);
        const QRectF entries = legend->childrenBoundingRect();
        const QSizeF size(entries.right() + entries.left(), entries.bottom() + 2 * entries.top());
        legend->setGeometry(QRectF(
            plotArea.topRight() + QPointF(-size.width() - kLegendInset, kLegendInset), size));
    });

    QChart *previous = view->chart();
    view->setChart(graph);
    delete previous; // the view's own empty chart
    view->setBackgroundBrush(Qt::white);
    view->setRenderHint(QPainter::Antialiasing);
}

void AppDelegate::showReferenceSpectra()
{
    auto *view = qobject_cast<QChartView *>(m_chartView);
    if (!view || view->chart()->series().isEmpty()) {
        demoSpectrums();
        setupChart();
    }
    m_chartWindow->show();
    m_chartWindow->raise();
    m_chartWindow->activateWindow();
}
