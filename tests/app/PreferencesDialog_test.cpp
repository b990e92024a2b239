// The tolerance typed in Preferences reaches the settings and re-colours the main window.
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

TEST(PreferencesDialog, TypedToleranceIsStoredWhenEditingFinishes)
{
    UserDefaults *defaults = UserDefaults::standardUserDefaults();
    defaults->removeObjectForKey(kKey);
    AppDelegate controller;
    const std::unique_ptr<QMainWindow> window = loadMainInterface(controller);
    window->show();
    controller.applicationDidFinishLaunching();
    // Reference L 50, SL = 0.040975·50 / (1 + 0.01765·50) = 1.088313, achromatic: ΔE CMC(2:1)
    // = 4.35 / (2·1.088313) = 1.99850: red for 1.99, green for 2.
    controller.takeSample({50, 0, 0, 1}, QStringLiteral("reference"), controller.dragView1());
    controller.takeSample({54.35, 0, 0, 1}, QStringLiteral("sample"), controller.dragView2());
    const struct {
        const char *typed;
        int finish; // Return, Tab (focus leaves the field), 0 for closing the dialog
        float stored;
        bool green;
    } cases[] = {{"1.5", Qt::Key_Return, 1.5f, false},
                 {"3", Qt::Key_Tab, 3.0f, true},
                 {"1.99", 0, 1.99f, false},
                 {"2", Qt::Key_Return, 2.0f, true},
                 {"-1.5", Qt::Key_Return, 1.5f, false}}; // a minus cannot be typed
    for (const auto &c : cases) {
        const float before = defaults->floatForKey(kKey);
        PreferencesDialog *dialog = PreferencesDialog::showShared(window.get());
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog)); // for focus to leave the field
        dialog->toleranceField()->setFocus();
        dialog->toleranceField()->selectAll();
        QTest::keyClicks(dialog->toleranceField(), QLatin1String(c.typed));
        EXPECT_EQ(defaults->floatForKey(kKey), before) << c.typed; // nothing stored while typing
        c.finish ? QTest::keyClick(dialog->toleranceField(), Qt::Key(c.finish))
                 : void(dialog->close());
        EXPECT_EQ(defaults->floatForKey(kKey), c.stored) << c.typed;
        EXPECT_EQ(controller.delta_E_tf()->palette().color(QPalette::Base).green() > 0, c.green);
        dialog->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // a new one each time
    }
    defaults->removeObjectForKey(kKey);
}

TEST(PreferencesDialog, ShowsTheStoredValueAndSaysWhenItCannotBeSaved)
{
    QTemporaryDir dir;
    UserDefaults defaults(dir.filePath(QStringLiteral("cxf-compare.conf")));
    // Stored texts read as the platform's lenient conversion reads them.
    const char *const cases[][2] = {{"nan", "nan"}, {"150", "150"},     {"-1", "-1"},
                                    {"2.3", "2.3"}, {" 3.5abc", "3.5"}, {"abc", "0"},
                                    {"1e39", "inf"}};
    for (const auto &c : cases) {
        defaults.setObject(QString::fromLatin1(c[0]), kKey);
        EXPECT_EQ(PreferencesDialog(&defaults).toleranceField()->text(), QLatin1String(c[1]));
    }
    UserDefaults unwritable(dir.path()); // a folder: cannot be written, whoever runs the test
    PreferencesDialog dialog(&unwritable);
    dialog.show();
    QTest::keyClicks(dialog.toleranceField(), QStringLiteral("1"));
    QTest::keyClick(dialog.toleranceField(), Qt::Key_Return);
    EXPECT_TRUE(dialog.problemLabel()->isVisible()); // and Return did not close the dialog
    EXPECT_TRUE(dialog.problemLabel()->text().contains(dir.path()));
}

} // namespace
