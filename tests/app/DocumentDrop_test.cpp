// A dropped (synthetic file-URL drag) or named document that is not UTF-8 or not a regular file
// is refused as invalid XML data and changes nothing.
#include "AppDelegate.h"

#include "BkgndColorView.h"
#include "MainInterface.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDropEvent>
#include <QMainWindow>
#include <QMimeData>
#include <QProcess>
#include <QStatusBar>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString kInvalid = QStringLiteral(CXF_TEST_DATA_DIR "/cxf/invalid-utf8.cxf");
const QString kSampleA = QStringLiteral(CXF_SOURCE_DIR "/data/samples/sample-a.cxf");
QStringList gLog;

TEST(DocumentDrop, OnlyUtf8RegularFilesReachTheSample)
{
    QTemporaryDir dir;
    const QString fifo = dir.filePath(QStringLiteral("fifo.cxf"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    AppDelegate controller;
    const std::unique_ptr<QMainWindow> window = loadMainInterface(controller);
    BkgndColorView *swatch = controller.dragView1();
    const QString accepted = QStringLiteral("Sample A \u2013\u2013 one patch");
    ::alarm(30); // a drop that blocks ends the test
    for (const QString &path : {kInvalid, kSampleA, kInvalid, fifo}) {
        const QString before = swatch->swatchLabel();
        gLog.clear();
        const QtMessageHandler previous = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &line) { gLog << line; });
        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter({20, 20}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(swatch, &enter); // the drop goes to the view that took this
        QDropEvent drop({20, 20}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(swatch, &drop);
        qInstallMessageHandler(previous);
        const bool refused = path != kSampleA;
        EXPECT_EQ(gLog, refused ? QStringList{QStringLiteral("Invalid XML data")} : QStringList{});
        EXPECT_EQ(swatch->swatchLabel(), refused ? before : accepted) << path.toStdString();
        if (path == kInvalid) { // the window's status bar says why
            EXPECT_TRUE(window->statusBar()->currentMessage().contains(
                QStringLiteral("\u201cinvalid-utf8.cxf\u201d: it is not UTF-8")));
        }
    }
    ::alarm(0);
    EXPECT_EQ(controller.sample1().L, double(49.02f));
}

TEST(DocumentDrop, TheCommandLineReadsAsTheSwatchDoes)
{
    QTemporaryDir config;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("CXF_LAUNCH_PROBE"), QStringLiteral("1")); // quits once shown
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
    QProcess app;
    app.setProcessEnvironment(env);
    app.start(QStringLiteral(CXF_COMPARE_EXECUTABLE), {kSampleA, kInvalid});
    ASSERT_TRUE(app.waitForFinished(60000));
    const QString err = QString::fromUtf8(app.readAllStandardError());
    EXPECT_EQ(err.count(QStringLiteral("Invalid XML data")), 1) << err.toStdString();
}

} // namespace
