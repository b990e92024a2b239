// Edit > Paste: enabled for what the focused swatch takes; the clipboard's CxF becomes its sample.
#include "AppDelegate.h"
#include "BkgndColorView.h"
#include "MainInterface.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLineEdit>
#include <QMainWindow>
#include <QMimeData>
#include <QTest>

namespace {

TEST(PasteCommand, PastesClipboardCxFOntoTheFocusedSwatchOnly)
{
    AppDelegate controller;
    const std::unique_ptr<QMainWindow> window = loadMainInterface(controller);
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    window->activateWindow();
    auto *paste = window->findChild<QAction *>(QStringLiteral("actionPaste"));
    ASSERT_TRUE(paste);
    EXPECT_EQ(paste->shortcut(), QKeySequence(QKeySequence::Paste));

    controller.dragView2()->setFocus();
    QApplication::clipboard()->setText(QStringLiteral("not a document"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !paste->isEnabled(); }, 1000));

    QFile sample(QStringLiteral(CXF_SOURCE_DIR "/data/samples/sample-a.cxf"));
    ASSERT_TRUE(sample.open(QIODevice::ReadOnly));
    auto *cxf = new QMimeData;
    cxf->setData(QStringLiteral("com.public.cxf"), sample.readAll());
    QApplication::clipboard()->setMimeData(cxf);
    EXPECT_TRUE(QTest::qWaitFor([&] { return paste->isEnabled(); }, 1000));
    paste->trigger();
    EXPECT_TRUE(controller.isSample2Defined());
    EXPECT_FALSE(controller.isSample1Defined());

    window->findChild<QLineEdit *>(QStringLiteral("delta_E_tf"))->setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !paste->isEnabled(); }, 1000))
        << "no swatch has the focus";
}

} // namespace
