// The controller with its main window, headless; figures are CMC 2:1 worked by hand.
#include "BkgndColorView.h"
#include "app_window_fixture.h"
#include "csv_table.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>

#include <map>

namespace {

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

QByteArray sampleDocument(const char *name)
{
    QFile file(QStringLiteral(CXF_SOURCE_DIR "/data/samples/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class AppDelegateTest : public AppWindowTest
{
protected:
    void drop(int swatch, LabColor lab)
    {
        controller->takeSample(lab, QStringLiteral("caption %1").arg(swatch),
                               swatch == 1 ? controller->dragView1() : controller->dragView2());
    }

    void setTolerance(float tolerance)
    {
        UserDefaults::standardUserDefaults()->setFloat(tolerance, kToleranceKey);
    }

    QList<QLineEdit *> fields() const
    {
        return {controller->delta_E_tf(), controller->delta_L_tf(), controller->delta_C_tf(),
                controller->delta_H_tf()};
    }
};

// tests/data/reference/controller_rules.csv: two samples and a tolerance, the four fields'
// texts, the verdict (its colour) and which component fields are highlighted.
TEST_F(AppDelegateTest, ShowsAndColoursTheStoredDifferences)
{
    const CsvTable table = readCsv(CXF_TEST_DATA_DIR "/reference/controller_rules.csv");
    ASSERT_EQ(table.rows.size(), 8u);
    const std::map<QString, QColor> colours = {{QStringLiteral("identical"), neutral()},
                                               {QStringLiteral("match"), kGreen},
                                               {QStringLiteral("mismatch"), kRed}};
    for (const auto &row : table.rows) {
        SCOPED_TRACE(row[6]);
        const Values lab1 = csvNumbers(row[0]), lab2 = csvNumbers(row[1]);
        setTolerance(float(csvDouble(row[2])));
        drop(1, {lab1[0], lab1[1], lab1[2], 1});
        drop(2, {lab2[0], lab2[1], lab2[2], 1});
        const QStringList texts = QString::fromStdString(row[3]).split(QLatin1Char(' '));
        const Values highlighted = csvNumbers(row[5]);
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(fields()[i]->text(), texts[i]) << i;
        const QString verdict = QString::fromStdString(row[4]);
        EXPECT_EQ(controller->verdictLabel()->text(), verdict);
        EXPECT_EQ(background(controller->delta_E_tf()), colours.at(verdict));
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(background(fields()[i + 1]), highlighted[i] ? kPink : neutral()) << i;
    }
}

TEST_F(AppDelegateTest, OneSampleOnlyLeavesTheFieldsUntouchedAndAForeignSwatchSetsNoSample)
{
    BkgndColorView stranger;
    stranger.setDelegate(controller.get());
    controller->takeSample({70, 1, 2, 1}, QStringLiteral("elsewhere"), &stranger);
    EXPECT_EQ(stranger.swatchLabel(), QStringLiteral("elsewhere"));
    EXPECT_FALSE(controller->isSample1Defined());
    EXPECT_EQ(UserDefaults::standardUserDefaults()->floatForKey(kToleranceKey), 2.5f);
    drop(2, {60, -5, 20, 1});
    EXPECT_TRUE(controller->isSample2Defined());
    EXPECT_EQ(controller->dragView2()->swatchLabel(), QStringLiteral("caption 2"));
    EXPECT_EQ(controller->dragView1()->labColor().alpha, 0); // still empty
    for (QLineEdit *field : fields()) {
        EXPECT_TRUE(field->text().isEmpty()) << field->objectName().toStdString();
        EXPECT_EQ(background(field), neutral());
    }
}

TEST_F(AppDelegateTest, DocumentsSetTheSwatchesAndRefusedOnesChangeNothing)
{
    QStringList alerts;
    controller->setAlertPresenter([&](QMessageBox &box) {
        alerts << box.text() << box.informativeText() << box.buttons().first()->text();
        EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
    });
    controller->parseXML(sampleDocument("sample-a.cxf"), controller->dragView1());
    EXPECT_EQ(controller->dragView1()->swatchLabel(),
              QStringLiteral("Sample A \u2013\u2013 one patch"));
    EXPECT_EQ(controller->sample1().L, double(49.02f)); // read as the nearest float
    EXPECT_EQ(controller->dragView1()->labLabel(),
              QStringLiteral("D50 L*a*b*: 49.020, 43.200, 36.430"));
    controller->parseXML(sampleDocument("brand-reds-project.cxf"), controller->dragView2());
    EXPECT_EQ(controller->dragView2()->swatchLabel(),
              QStringLiteral("Brand Reds \u2013\u2013 project with 4 patches averaged"));
    const QString shown = controller->delta_E_tf()->text();
    EXPECT_FALSE(shown.isEmpty());

    controller->parseXML(sampleDocument("d65-measurement.cxf"), controller->dragView2());
    for (const QByteArray &bad : {QByteArray("<CxF:CxF><unclosed>"), QByteArray(),
                                  QByteArray("<CxF:CxF><x>1</x></CxF:CxF>")})
        controller->parseXML(bad, controller->dragView2());
    // Only the measurement conditions raise an alert.
    EXPECT_EQ(alerts, (QStringList{
                          QStringLiteral("The specified Lab colors cannot be used for comparison."),
                          QStringLiteral("The Lab colors were not specified with D50 "
                                         "illuminant and 2\u00b0 observer."),
                          QStringLiteral("Ok")}));
    EXPECT_EQ(controller->dragView2()->swatchLabel(),
              QStringLiteral("Brand Reds \u2013\u2013 project with 4 patches averaged"));
    EXPECT_EQ(controller->delta_E_tf()->text(), shown);
}

} // namespace
