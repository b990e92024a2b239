// The swatch: the drop types it reads and in which order, its captions and its three looks.
#include "BkgndColorView.h"
#include "BkgndColorViewDelegate.h"
#include "QMimeData+QVExtras.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>

namespace {

struct Recorder : BkgndColorViewDelegate {
    QStringList texts; // "<null>" for no text
    void parseXML(const QByteArray &text, BkgndColorView *) override
    {
        texts << (text.isNull() ? QStringLiteral("<null>") : QString::fromUtf8(text));
    }
};

TEST(BkgndColorView, ReadsTheTypesInItsOrder)
{
    QTemporaryDir dir;
    const auto write = [&](const char *name, const QByteArray &bytes) {
        QFile file(dir.filePath(QLatin1String(name)));
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        return file.fileName();
    };
    const QString first = write("first.cxf", "first"), second = write("second.cxf", "second");
    struct Row {
        QStringList paths;
        const char *type;
        QByteArray data;
        QStringList texts;
    };
    const Row rows[] = {
        {{first, second, second}, nullptr, {}, {QStringLiteral("first")}},
        {{second}, "com.public.cxf", "data", {QStringLiteral("second")}}, // the URL first
        {{dir.filePath(QStringLiteral("gone"))}, nullptr, {}, {}},        // beeps
        {{dir.path()}, nullptr, {}, {}},                                  // beeps
        {{}, "com.public.cxf", "<CxF/>", {QStringLiteral("<CxF/>")}},
        {{}, "com.public.cxf", "caf\xe9", {QStringLiteral("<null>")}},
        {{}, "com.xrite.cxf", "<CxF/>", {QStringLiteral("<null>")}}, // reads the public type
        {{}, kQVFilenamesType, "/a.cxf", {}},                        // logged only
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.paths.join(QLatin1Char(' ')).toStdString() + (row.type ? row.type : ""));
        QMimeData mime;
        QList<QUrl> urls;
        for (const QString &p : row.paths)
            urls << QUrl::fromLocalFile(p);
        if (!urls.isEmpty())
            mime.setUrls(urls);
        if (row.type)
            mime.setData(QLatin1String(row.type), row.data);
        Recorder recorder;
        BkgndColorView view;
        view.setDelegate(&recorder);
        view.takeDataFromPasteboard(&mime, nullptr);
        EXPECT_EQ(recorder.texts, row.texts);
    }
}

TEST(BkgndColorView, PromisedFileIsReadWhenItAppears)
{
    QVFileDropView::setPromisedFilePollInterval(5);
    const QString name =
        QStringLiteral("swatch promise %1.cxf").arg(QCoreApplication::applicationPid());
    QMimeData mime;
    mime.setData(QLatin1String(kQVPromisedFileURLType),
                 "file:///x/" + QUrl::toPercentEncoding(name));
    Recorder recorder;
    BkgndColorView view;
    view.setDelegate(&recorder);
    view.takeDataFromPasteboard(&mime, nullptr);
    QFile file(QDir(QDir::tempPath()).filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<CxF/>");
    file.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !recorder.texts.isEmpty(); }, 2000));
    EXPECT_EQ(recorder.texts, QStringList{QStringLiteral("<CxF/>")});
    file.remove();
    QVFileDropView::setPromisedFilePollInterval(100);
}

TEST(BkgndColorView, CaptionIsBlackOnlyAboveL70)
{
    BkgndColorView view;
    view.setLabColor({70.0, 1.5, -2.25, 1});
    EXPECT_EQ(view.labelColor(), QColor(Qt::white));
    EXPECT_EQ(view.labLabel(), QStringLiteral("D50 L*a*b*: 70.000, 1.500, -2.250"));
    view.setLabColor({70.001, 0, 0, 1});
    EXPECT_EQ(view.labelColor(), QColor(Qt::black));
}

// A few pixels of the three looks of a 220 x 160 swatch, y up: the arrow's centre line is
// x = 110, and 70 points up lies in its lower part.
TEST(BkgndColorView, DrawsTheEmptyTargetTheHighlightAndTheColour)
{
    BkgndColorView view;
    view.resize(220, 160);
    const auto pixel = [&](int x, int yUp) {
        return view.grab().toImage().pixelColor(x, view.height() - 1 - yUp);
    };
    const QColor arrowIdle = pixel(110, 70);
    EXPECT_LT(std::abs(arrowIdle.red() - arrowIdle.blue()), 8) << "a grey arrow";
    EXPECT_LT(arrowIdle.value(), 200);

    QMimeData cxf;
    cxf.setData(QStringLiteral("com.public.cxf"), "<CxF/>");
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &cxf, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &enter);
    const QColor arrowHot = pixel(110, 70);
    EXPECT_GT(arrowHot.red() - arrowHot.blue(), 60) << "reddening towards the tip";

    view.setLabColor({50, 0, 0, 1}); // mid grey, sRGB 119
    const QColor fill = pixel(110, 80);
    EXPECT_NEAR(fill.red(), 119, 2);
    EXPECT_NEAR(fill.green(), 119, 2);
    EXPECT_NE(pixel(0, 0), fill) << "rounded corner";
    view.setLabColor({50, 0, 0, 0});
    EXPECT_NE(pixel(110, 80), fill) << "alpha 0: the empty target again";
}

} // namespace
