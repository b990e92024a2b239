// A document reaches the controller the way a user gives it: dropped on a swatch (a synthetic
// drop of a file URL) or named on the application's command line. Text that is not UTF-8, and
// files that are not regular, are refused as invalid XML data and change nothing.
#include "AppDelegate.h"

#include "BkgndColorView.h"
#include "MainInterface.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDropEvent>
#include <QMainWindow>
#include <QMimeData>
#include <QProcess>
#include <QTemporaryDir>
#include <QUrl>

#include <sys/stat.h>
#include <unistd.h>

namespace {

QStringList gLog;

void recordLog(QtMsgType, const QMessageLogContext &, const QString &message)
{
    gLog << message;
}

void dropFile(BkgndColorView *swatch, const QString &path)
{
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(swatch, &enter); // Qt delivers the drop to the view that took this
    QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(swatch, &drop);
}

TEST(DocumentDrop, OnlyUtf8RegularFilesReachTheSample)
{
    QTemporaryDir dir;
    const QString fifo = dir.filePath(QStringLiteral("fifo.cxf"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    AppDelegate controller;
    const std::unique_ptr<QMainWindow> window = loadMainInterface(controller);
    BkgndColorView *swatch = controller.dragView1();
    const QString accepted = QStringLiteral("Sample A \u2013\u2013 one patch");
    const struct {
        QString path;
        bool refused;
    } cases[] = {
        {QStringLiteral(CXF_TEST_DATA_DIR "/cxf/invalid-utf8.cxf"), true},
        {QStringLiteral(CXF_SOURCE_DIR "/data/samples/sample-a.cxf"), false},
        {QStringLiteral(CXF_TEST_DATA_DIR "/cxf/invalid-utf8.cxf"), true},
        {fifo, true},
    };
    ::alarm(30); // a drop that blocks ends the test
    for (const auto &c : cases) {
        SCOPED_TRACE(c.path.toStdString());
        const QString before = swatch->swatchLabel();
        gLog.clear();
        const QtMessageHandler previous = qInstallMessageHandler(recordLog);
        dropFile(swatch, c.path);
        qInstallMessageHandler(previous);
        EXPECT_EQ(gLog,
                  c.refused ? QStringList{QStringLiteral("Invalid XML data")} : QStringList{});
        EXPECT_EQ(swatch->swatchLabel(), c.refused ? before : accepted);
    }
    ::alarm(0);
    EXPECT_EQ(controller.sample1().L, double(49.02f));
}

TEST(DocumentDrop, TheCommandLineReadsAsTheSwatchDoes)
{
    QTemporaryDir config;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("CXF_LAUNCH_PROBE"), QStringLiteral("1"));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
    QProcess app;
    app.setProcessEnvironment(env);
    app.start(QStringLiteral(CXF_COMPARE_EXECUTABLE),
              {QStringLiteral(CXF_SOURCE_DIR "/data/samples/sample-a.cxf"),
               QStringLiteral(CXF_TEST_DATA_DIR "/cxf/invalid-utf8.cxf")});
    ASSERT_TRUE(app.waitForFinished(60000));
    const QString err = QString::fromUtf8(app.readAllStandardError());
    EXPECT_EQ(app.exitCode(), 0);
    EXPECT_EQ(err.count(QStringLiteral("Invalid XML data")), 1) << err.toStdString();
}

} // namespace
