// The controller with its real main window, headless: what the result fields show and how
// they are coloured as samples arrive and the tolerance changes.
#include "AppDelegate.h"

#include "BkgndColorView.h"
#include "MainInterface.h"
#include "UserDefaults.h"
#include "comparison.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>

#include <cmath>
#include <memory>

namespace {

const QString kToleranceKey = QStringLiteral("delta_E_CMC_tolerance");
const QColor kGreen = QColor::fromRgbF(0.0f, 0.8f, 0.0f);
const QColor kRed = QColor::fromRgbF(0.8f, 0.0f, 0.0f);
const QColor kPink = QColor::fromRgbF(1.0f, 0.7f, 0.7f);

QColor background(const QLineEdit *field)
{
    return field->palette().color(QPalette::Base);
}

QColor neutral()
{
    return QApplication::palette().color(QPalette::Base);
}

class AppDelegateTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        UserDefaults::standardUserDefaults()->removeObjectForKey(kToleranceKey);
        controller = std::make_unique<AppDelegate>();
        window = loadMainInterface(*controller);
        controller->applicationWillFinishLaunching();
        window->show();
        controller->applicationDidFinishLaunching();
    }

    void TearDown() override
    {
        controller.reset(); // stops observing before the window goes
        window.reset();
        UserDefaults::standardUserDefaults()->removeObjectForKey(kToleranceKey);
    }

    void drop(int swatch, LabColor lab)
    {
        controller->takeSample(lab, QStringLiteral("caption %1").arg(swatch),
                               swatch == 1 ? controller->dragView1() : controller->dragView2());
    }

    void setTolerance(float tolerance)
    {
        UserDefaults::standardUserDefaults()->setFloat(tolerance, kToleranceKey);
    }

    std::unique_ptr<AppDelegate> controller;
    std::unique_ptr<QMainWindow> window;
};

TEST_F(AppDelegateTest, StartsWithBothSamplesUndefinedAndTheDefaultTolerance)
{
    EXPECT_FALSE(controller->isSample1Defined());
    EXPECT_FALSE(controller->isSample2Defined());
    EXPECT_EQ(controller->sample1().alpha, 1.0);
    EXPECT_EQ(UserDefaults::standardUserDefaults()->floatForKey(kToleranceKey), 2.5f);
    EXPECT_EQ(controller->dragView1()->labColor().alpha, 0.0); // empty swatch
}

TEST_F(AppDelegateTest, OneSampleOnlyLeavesTheFieldsUntouched)
{
    drop(1, {50, 10, 10, 1});
    EXPECT_TRUE(controller->isSample1Defined());
    EXPECT_EQ(controller->dragView1()->swatchLabel(), QStringLiteral("caption 1"));
    for (QLineEdit *field : {controller->delta_E_tf(), controller->delta_L_tf(),
                             controller->delta_C_tf(), controller->delta_H_tf()}) {
        EXPECT_TRUE(field->text().isEmpty()) << field->objectName().toStdString();
        EXPECT_EQ(background(field), neutral());
    }
    EXPECT_EQ(controller->differences().delta_E, 0);
}

TEST_F(AppDelegateTest, SecondSwatchFirstPaintsOnlyThatSwatch)
{
    drop(2, {60, -5, 20, 1});
    EXPECT_FALSE(controller->isSample1Defined());
    EXPECT_TRUE(controller->delta_E_tf()->text().isEmpty());
    EXPECT_GT(controller->dragView2()->labColor().alpha, 0);
    EXPECT_EQ(controller->dragView1()->labColor().alpha, 0);
}

TEST_F(AppDelegateTest, IdenticalSamplesAreNeutralWithNothingHighlighted)
{
    drop(1, {50, 10, 10, 1});
    drop(2, {50, 10, 10, 1});
    EXPECT_EQ(controller->delta_E_tf()->text(), QStringLiteral("0.00"));
    EXPECT_EQ(background(controller->delta_E_tf()), neutral());
    EXPECT_EQ(controller->verdictLabel()->text(), QStringLiteral("identical"));
    for (QLineEdit *field :
         {controller->delta_L_tf(), controller->delta_C_tf(), controller->delta_H_tf()})
        EXPECT_EQ(background(field), neutral()) << field->objectName().toStdString();
}

TEST_F(AppDelegateTest, DeltaEEqualToTheToleranceIsAMatch)
{
    const LabColor p{60, 20, 30, 1}, q{61, 19, 31, 1};
    setTolerance(computeCmcDifferences(p, q).delta_E);
    drop(1, p);
    drop(2, q);
    EXPECT_EQ(background(controller->delta_E_tf()), kGreen);
    EXPECT_EQ(controller->verdictLabel()->text(), QStringLiteral("match"));
}

TEST_F(AppDelegateTest, ShowsTheStoredFloatsWithTwoDecimalsAndTheirDirection)
{
    drop(1, {60, 20, 30, 1});
    drop(2, {62, 18, 35, 1});
    // CMC 2:1 worked independently: ΔE 5.550, ΔL 0.838, ΔC 1.501; hue angles 56.3° → 62.8°.
    EXPECT_EQ(controller->delta_E_tf()->text(), QStringLiteral("5.55"));
    EXPECT_EQ(controller->delta_L_tf()->text(), QStringLiteral("0.84"));
    EXPECT_EQ(controller->delta_C_tf()->text(), QStringLiteral("1.50"));
    EXPECT_NEAR(controller->delta_H_tf()->text().toDouble(), 6.47, 0.11);
    EXPECT_EQ(background(controller->delta_E_tf()), kRed);
    EXPECT_EQ(controller->verdictLabel()->text(), QStringLiteral("mismatch"));
    const auto caption = [&](const char *name) {
        return window->findChild<QLabel *>(QLatin1String(name))->text();
    };
    EXPECT_EQ(caption("delta_L_caption"), QStringLiteral("lighter"));
    EXPECT_EQ(caption("delta_C_caption"), QStringLiteral("more saturated"));
    // 56.3° turned towards 90° (+b*), and the hue term is the largest.
    EXPECT_EQ(caption("delta_H_caption"), QStringLiteral("yellower \u2014 largest term"));
    // The CMC hue term (5.28) is the largest: delta H is highlighted, though it shows degrees.
    EXPECT_EQ(background(controller->delta_H_tf()), kPink);
    EXPECT_EQ(background(controller->delta_L_tf()), neutral());
}

TEST_F(AppDelegateTest, ToleranceChangeRecoloursAtOnceWithoutANewDrop)
{
    drop(1, {60, 20, 30, 1});
    drop(2, {61, 19, 31, 1});
    const CmcDifferences before = controller->differences();
    ASSERT_LT(before.delta_E, 2.5f);
    EXPECT_EQ(background(controller->delta_E_tf()), kGreen);

    setTolerance(before.delta_E / 2);
    EXPECT_EQ(background(controller->delta_E_tf()), kRed);
    EXPECT_EQ(controller->differences().delta_E, before.delta_E);

    setTolerance(2.5f);
    EXPECT_EQ(background(controller->delta_E_tf()), kGreen);
}

TEST_F(AppDelegateTest, TiedLargestTermsAreAllHighlighted)
{
    // Reference below L 16 (SL 0.511) and achromatic (SC 0.638): ΔL = 1.022 / (2·0.511) = 1
    // and ΔC = 0.638 / 0.638 = 1, exactly, in the same hue direction (ΔH ≈ 0).
    drop(1, {10, 0, 0, 1});
    drop(2, {11.022, 0, 0.638, 1});
    const CmcDifferences d = controller->differences();
    ASSERT_EQ(std::fabs(d.delta_L), std::fabs(d.delta_C));
    ASSERT_FALSE(std::fabs(d.delta_H) > std::fabs(d.delta_L));
    EXPECT_EQ(background(controller->delta_L_tf()), kPink);
    EXPECT_EQ(background(controller->delta_C_tf()), kPink);
    EXPECT_EQ(background(controller->delta_H_tf()), neutral());
}

TEST_F(AppDelegateTest, SwappedSamplesGiveOtherValues)
{
    const LabColor p{45, 20, -30, 1}, q{52, 28, -22, 1};
    drop(1, p);
    drop(2, q);
    const CmcDifferences forward = controller->differences();
    drop(1, q);
    drop(2, p);
    const CmcDifferences backward = controller->differences();
    EXPECT_NE(forward.delta_E, backward.delta_E);
    EXPECT_NE(forward.delta_L, -backward.delta_L);
    EXPECT_NE(forward.delta_C, -backward.delta_C);
    EXPECT_EQ(forward.delta_H_deg, -backward.delta_H_deg);
}

TEST_F(AppDelegateTest, ANaNDeltaEShowsRed)
{
    // The CMC hue radicand of the LCh form is not clamped: for colours of one hue direction it
    // can round below zero, and delta E is then NaN. Find such a pair on a small grid.
    LabColor p{}, q{};
    bool found = false;
    for (int i = 1; i < 200 && !found; ++i) {
        p = {50, 3.0 * i / 7, 4.0 * i / 7, 1};
        q = {50, 3.0 * i / 5, 4.0 * i / 5, 1};
        found = std::isnan(computeCmcDifferences(p, q).delta_E);
    }
    ASSERT_TRUE(found);
    drop(1, p);
    drop(2, q);
    EXPECT_EQ(background(controller->delta_E_tf()), kRed);
    EXPECT_EQ(controller->verdictLabel()->text(), QStringLiteral("mismatch"));
}

TEST_F(AppDelegateTest, ASwatchThatIsNeitherSampleSetsNoSample)
{
    BkgndColorView stranger;
    stranger.setDelegate(controller.get());
    controller->takeSample({70, 1, 2, 1}, QStringLiteral("elsewhere"), &stranger);
    EXPECT_EQ(stranger.swatchLabel(), QStringLiteral("elsewhere"));
    EXPECT_EQ(stranger.labColor().L, 70);
    EXPECT_FALSE(controller->isSample1Defined());
    EXPECT_FALSE(controller->isSample2Defined());
}

QByteArray sampleDocument(const char *name)
{
    QFile file(QStringLiteral(CXF_SOURCE_DIR "/data/samples/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST_F(AppDelegateTest, DroppedDocumentsSetTheSwatchesAndTheSamples)
{
    controller->parseXML(sampleDocument("sample-a.cxf"), controller->dragView1());
    EXPECT_TRUE(controller->isSample1Defined());
    EXPECT_EQ(controller->dragView1()->swatchLabel(),
              QStringLiteral("Sample A \u2013\u2013 one patch"));
    // 49.02, 43.20, 36.43 enter as the nearest 32-bit floats.
    EXPECT_EQ(controller->sample1().L, double(49.02f));
    EXPECT_EQ(controller->sample1().b, double(36.43f));
    EXPECT_EQ(controller->dragView1()->labLabel(),
              QStringLiteral("D50 L*a*b*: 49.020, 43.200, 36.430"));
    EXPECT_TRUE(controller->delta_E_tf()->text().isEmpty());

    controller->parseXML(sampleDocument("brand-reds-project.cxf"), controller->dragView2());
    EXPECT_EQ(controller->dragView2()->swatchLabel(),
              QStringLiteral("Brand Reds \u2013\u2013 project with 4 patches averaged"));
    EXPECT_FALSE(controller->delta_E_tf()->text().isEmpty());
}

TEST_F(AppDelegateTest, RefusedDocumentsLeaveEverythingAsItWas)
{
    QStringList alerts;
    controller->setAlertPresenter([&](QMessageBox &box) {
        alerts << box.text() << box.informativeText() << box.buttons().first()->text();
        EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
    });
    controller->parseXML(sampleDocument("sample-a.cxf"), controller->dragView1());
    controller->parseXML(sampleDocument("sample-b.cxf"), controller->dragView2());
    const CmcDifferences before = controller->differences();
    const QString captionBefore = controller->dragView2()->swatchLabel();

    controller->parseXML(sampleDocument("d65-measurement.cxf"), controller->dragView2());
    EXPECT_EQ(alerts, (QStringList{
                          QStringLiteral("The specified Lab colors cannot be used for comparison."),
                          QStringLiteral("The Lab colors were not specified with D50 "
                                         "illuminant and 2\u00b0 observer."),
                          QStringLiteral("Ok")}));
    for (const QByteArray &bad : {QByteArray("<CxF:CxF><unclosed>"), QByteArray(),
                                  QByteArray("<CxF:CxF><x>1</x></CxF:CxF>")})
        controller->parseXML(bad, controller->dragView2());

    EXPECT_EQ(alerts.size(), 3); // only the measurement conditions raise an alert
    EXPECT_EQ(controller->dragView2()->swatchLabel(), captionBefore);
    EXPECT_EQ(controller->differences().delta_E, before.delta_E);
    EXPECT_EQ(controller->sample2().L, double(46.12f));
}

TEST_F(AppDelegateTest, CheckForUpdatesIsTheFourthItemOfTheApplicationMenu)
{
    QMenu *applicationMenu = window->menuBar()->actions().first()->menu();
    ASSERT_NE(applicationMenu, nullptr);
    const QList<QAction *> items = applicationMenu->actions();
    ASSERT_GT(items.size(), 3);
    EXPECT_EQ(items.at(3)->text(), QStringLiteral("Check for Updates\u2026"));
    EXPECT_TRUE(items.at(0)->text().contains(QStringLiteral("About")));
    EXPECT_TRUE(items.at(2)->text().contains(QStringLiteral("Preferences")));
}

TEST_F(AppDelegateTest, ClosingTheMainWindowQuits)
{
    EXPECT_TRUE(controller->applicationShouldTerminateAfterLastWindowClosed());
}

} // namespace
