#pragma once
// The application's controller: registers and watches the tolerance preference, keeps the two
// samples, computes the CMC (2:1) differences between them and shows them in the four result
// fields, coloured by the match rule. Both swatches hand it what is dropped on them.

#include "BkgndColorViewDelegate.h"
#include "KeyValueObserving.h"
#include "color_types.h"
#include "comparison.h"
#include "sample_routing.h"
#include "spectrum.h"

#include <QObject>
#include <QVariantMap>

#include <cstdint>
#include <functional>
#include <string_view>

class BkgndColorView;
struct CxFAlert;
class QLabel;
class QMessageBox;
class QLineEdit;
class QMainWindow;
class QWidget;
class UserDefaults;

class AppDelegate : public QObject, public KeyValueObserver, public BkgndColorViewDelegate
{
    Q_OBJECT

public:
    // Registers the default tolerance with the standard user defaults, once per process.
    // The constructor calls it, so it has run before the first controller exists.
    static void initialize();
    // The registered defaults: "delta_E_CMC_tolerance" → 2.5.
    static const QVariantMap &prefDefaults();

    explicit AppDelegate(QObject *parent = nullptr);
    ~AppDelegate() override;

    // Application lifecycle, called by main() around showing the main window.
    void applicationWillFinishLaunching();
    void applicationDidFinishLaunching();
    bool applicationShouldTerminateAfterLastWindowClosed() const { return true; }

    void observeValueForKeyPath(const QString &keyPath, QObject *object,
                                const KeyValueChange &change, void *context) override;

    // A swatch's document text; the sample it sets follows from which swatch sent it.
    void parseXML(const QByteArray &text, BkgndColorView *sender) override;

    // Shows an accepted sample on the swatch that sent it and, for dragView1 or dragView2,
    // stores it as sample 1 or 2 and recomputes. Any other sender gets colour and caption only.
    void takeSample(LabColor lab, const QString &caption, BkgndColorView *sender);

    void calcDeltaE();
    void updateUI();

    // Chart of reference light sources (AppDelegateChart.cpp). demoSpectrums() computes the five
    // curves, setupChart() builds chartWindow from them, and the two data-source calls serve the
    // plots, named by identifier: "BB", "D50", "D65", "D75", "CIE D65".
    enum ScatterPlotField : unsigned { ScatterPlotFieldX = 0, ScatterPlotFieldY = 1 };
    void demoSpectrums();
    void setupChart();
    unsigned numberOfRecordsForPlot(const QString &plot) const;
    QVariant numberForPlot(const QString &plot, unsigned field, unsigned recordIndex) const;
    // Builds the chart the first time, then brings its window to the front.
    void showReferenceSpectra();

    // State, for the window and for tests.
    bool isSample1Defined() const { return samples.lab_1_defined; }
    bool isSample2Defined() const { return samples.lab_2_defined; }
    LabColor sample1() const { return samples.lab_1; }
    LabColor sample2() const { return samples.lab_2; }
    CmcDifferences differences() const { return {delta_E, delta_L, delta_C, delta_H, delta_H_deg}; }

    // Outlets, wired by the main interface; none is owned.
    QMainWindow *window() const { return m_window; }
    void setWindow(QMainWindow *window) { m_window = window; }
    BkgndColorView *dragView1() const { return m_dragView1; }
    void setDragView1(BkgndColorView *view) { m_dragView1 = view; }
    BkgndColorView *dragView2() const { return m_dragView2; }
    void setDragView2(BkgndColorView *view) { m_dragView2 = view; }
    QLineEdit *delta_E_tf() const { return m_delta_E_tf; }
    void setDelta_E_tf(QLineEdit *field) { m_delta_E_tf = field; }
    QLineEdit *delta_L_tf() const { return m_delta_L_tf; }
    void setDelta_L_tf(QLineEdit *field) { m_delta_L_tf = field; }
    QLineEdit *delta_C_tf() const { return m_delta_C_tf; }
    void setDelta_C_tf(QLineEdit *field) { m_delta_C_tf = field; }
    QLineEdit *delta_H_tf() const { return m_delta_H_tf; }
    void setDelta_H_tf(QLineEdit *field) { m_delta_H_tf = field; }
    QWidget *chartWindow() const { return m_chartWindow; }
    void setChartWindow(QWidget *window) { m_chartWindow = window; }
    QWidget *chartView() const { return m_chartView; }
    void setChartView(QWidget *view) { m_chartView = view; }
    // The verdict in words beside delta E, so that colour is not the only signal.
    QLabel *verdictLabel() const { return m_verdictLabel; }
    void setVerdictLabel(QLabel *label) { m_verdictLabel = label; }
    // Captions under the component fields that say which way the sample differs.
    void setDirectionCaptions(QLabel *lightness, QLabel *chroma, QLabel *hue)
    {
        m_delta_L_caption = lightness;
        m_delta_C_caption = chroma;
        m_delta_H_caption = hue;
    }

    // Runs the application-modal alert of a refused document. By default the alert is shown and
    // waits for its button; tests put a presenter here that records it instead.
    using AlertPresenter = std::function<void(QMessageBox &)>;
    void setAlertPresenter(AlertPresenter presenter) { m_alertPresenter = std::move(presenter); }

    // Decimals shown in the four result fields.
    static constexpr int kResultDecimals = 2;

    // How the component fields are highlighted, in words (their tooltip).
    static QString highlightRule();
    // A text of the comparison core (log line, alert, refusal) in the user's language.
    static QString translatedCoreText(std::string_view text);

Q_SIGNALS:
    // A document was refused; message is its log line or alert message, translated.
    void documentRefused(const QString &message);
    // A document was accepted and shown on swatch.
    void sampleShown(BkgndColorView *swatch);

private:
    void showAlert(const CxFAlert &alert);
    void showVerdict(Verdict verdict, float tolerance);
    void showDirections(const Highlight &highlight);

    // Comparison state: both samples start undefined, at (0, 0, 0) with alpha 1.
    ComparisonSamples samples;
    float delta_E = 0;
    float delta_L = 0;
    float delta_C = 0;
    float delta_H = 0;     // CMC hue term: decides highlighting only
    float delta_H_deg = 0; // hue angle difference in degrees: what the delta H field shows
    // Reference spectra for the chart window.
    uint32_t _num_bands = 0;
    uint32_t _lambda_min = 0;
    uint32_t _lambda_max = 0;
    SpectrumBuffer spectrum_1, spectrum_2, spectrum_3, spectrum_4, spectrum_5;
    UserDefaults *_userDefaults;

    QMainWindow *m_window = nullptr;
    BkgndColorView *m_dragView1 = nullptr;
    BkgndColorView *m_dragView2 = nullptr;
    QLineEdit *m_delta_E_tf = nullptr;
    QLineEdit *m_delta_L_tf = nullptr;
    QLineEdit *m_delta_C_tf = nullptr;
    QLineEdit *m_delta_H_tf = nullptr;
    QWidget *m_chartWindow = nullptr;
    QWidget *m_chartView = nullptr;
    QLabel *m_verdictLabel = nullptr;
    QLabel *m_delta_L_caption = nullptr;
    QLabel *m_delta_C_caption = nullptr;
    QLabel *m_delta_H_caption = nullptr;
    AlertPresenter m_alertPresenter;
};
