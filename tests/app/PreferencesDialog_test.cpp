// The tolerance typed in Preferences, key by key, reaches the settings when editing finishes
// and re-colours the open main window; the field shows what is stored, as it is.
#include "AppDelegate.h"

#include "MainInterface.h"
#include "PreferencesDialog.h"
#include "UserDefaults.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString kKey = QStringLiteral("delta_E_CMC_tolerance");
const QColor kGreen = QColor::fromRgbF(0.0f, 0.8f, 0.0f);
const QColor kRed = QColor::fromRgbF(0.8f, 0.0f, 0.0f);

enum class Finish { Return, LeaveField, Close };

TEST(PreferencesDialog, TypedToleranceIsStoredWhenEditingFinishes)
{
    UserDefaults *defaults = UserDefaults::standardUserDefaults();
    defaults->removeObjectForKey(kKey);
    AppDelegate controller;
    const std::unique_ptr<QMainWindow> window = loadMainInterface(controller);
    window->show();
    controller.applicationDidFinishLaunching();
    // Reference L 50, SL = 0.040975·50 / (1 + 0.01765·50) = 1.088313, achromatic: ΔE CMC(2:1)
    // = 4.35 / (2·1.088313) = 1.99850 (between 1.99 and 2).
    controller.takeSample({50, 0, 0, 1}, QStringLiteral("reference"), controller.dragView1());
    controller.takeSample({54.35, 0, 0, 1}, QStringLiteral("sample"), controller.dragView2());
    const struct {
        const char *typed;
        Finish finish;
        float stored;
        QColor colour;
    } cases[] = {
        {"1.5", Finish::Return, 1.5f, kRed},  {"3", Finish::LeaveField, 3.0f, kGreen},
        {"1.99", Finish::Close, 1.99f, kRed}, {"2", Finish::Return, 2.0f, kGreen},
        {"-1.5", Finish::Return, 1.5f, kRed}, // a minus cannot be typed
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.typed);
        const float before = defaults->floatForKey(kKey);
        PreferencesDialog *dialog = PreferencesDialog::showShared(window.get());
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog)); // for focus to leave the field
        QLineEdit *field = dialog->toleranceField();
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, QLatin1String(c.typed));
        EXPECT_EQ(defaults->floatForKey(kKey), before); // nothing is stored while typing
        if (c.finish == Finish::Return)
            QTest::keyClick(field, Qt::Key_Return);
        else if (c.finish == Finish::LeaveField)
            QTest::keyClick(field, Qt::Key_Tab);
        else
            dialog->close();
        EXPECT_EQ(defaults->floatForKey(kKey), c.stored);
        EXPECT_EQ(controller.delta_E_tf()->palette().color(QPalette::Base), c.colour);
        dialog->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // a new one each time
    }
    defaults->removeObjectForKey(kKey);
}

TEST(PreferencesDialog, ShowsTheStoredValueAndSaysWhenItCannotBeSaved)
{
    QTemporaryDir dir;
    UserDefaults defaults(dir.filePath(QStringLiteral("cxf-compare.conf")));
    const char *const cases[][2] = {{"nan", "nan"}, {"150", "150"}, {"-1", "-1"}, {"2.5x", "2.5"}};
    for (const auto &c : cases) {
        defaults.setObject(QString::fromLatin1(c[0]), kKey);
        EXPECT_EQ(PreferencesDialog(&defaults).toleranceField()->text(), QLatin1String(c[1]));
    }
    // A settings "file" that is a folder cannot be written, whoever runs the test.
    UserDefaults unwritable(dir.path());
    PreferencesDialog dialog(&unwritable);
    dialog.show();
    dialog.toleranceField()->selectAll();
    QTest::keyClicks(dialog.toleranceField(), QStringLiteral("1.25"));
    QTest::keyClick(dialog.toleranceField(), Qt::Key_Return);
    EXPECT_TRUE(dialog.problemLabel()->isVisible()); // and Return did not close the dialog
    EXPECT_TRUE(dialog.problemLabel()->text().contains(dir.path()));
}

} // namespace
