// The swatch: which of a drop's types it reads, in which order, what text reaches its delegate,
// its captions, and how it looks empty, while a drag hovers and filled.
#include "BkgndColorView.h"
#include "BkgndColorViewDelegate.h"
#include "QMimeData+QVExtras.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>

#include <functional>

namespace {

struct Recorder : BkgndColorViewDelegate {
    QStringList texts; // "<null>" for no text
    void parseXML(const QByteArray &text, BkgndColorView *) override
    {
        texts << (text.isNull() ? QStringLiteral("<null>") : QString::fromUtf8(text));
    }
};

QString writeFile(const QTemporaryDir &dir, const char *name, const QByteArray &bytes)
{
    QFile file(dir.filePath(QLatin1String(name)));
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
    return file.fileName();
}

TEST(BkgndColorView, ReadsTheTypesInItsOrder)
{
    QTemporaryDir dir;
    const QString first = writeFile(dir, "first.cxf", "first");
    const QString second = writeFile(dir, "second.cxf", "second");
    const QString latin1 = writeFile(dir, "latin1.cxf", "caf\xe9");
    const auto withUrls = [](const QStringList &paths, QMimeData *m) {
        QList<QUrl> urls;
        for (const QString &p : paths)
            urls << QUrl::fromLocalFile(p);
        m->setUrls(urls);
        return m;
    };
    const auto withData = [](const char *type, const QByteArray &data, QMimeData *m) {
        m->setData(QLatin1String(type), data);
        return m;
    };
    struct Row {
        const char *name;
        std::function<QMimeData *()> mime;
        QStringList texts;
    };
    const Row rows[] = {
        {"the first of three files",
         [&] {
             return withUrls({first, second, second}, new QMimeData);
         },
         {QStringLiteral("first")}},
        {"a URL before CxF data",
         [&] { return withData("com.public.cxf", "data", withUrls({second}, new QMimeData)); },
         {QStringLiteral("second")}},
        {"a missing file beeps and sends nothing",
         [&] { return withUrls({dir.filePath(QStringLiteral("gone"))}, new QMimeData); },
         {}},
        {"a folder beeps and sends nothing",
         [&] { return withUrls({dir.path()}, new QMimeData); },
         {}},
        {"undecodable bytes send no text",
         [&] { return withUrls({latin1}, new QMimeData); },
         {QStringLiteral("<null>")}},
        {"CxF data",
         [&] { return withData("com.public.cxf", "<CxF/>", new QMimeData); },
         {QStringLiteral("<CxF/>")}},
        {"only the other CxF type reads the absent public one",
         [&] { return withData("com.xrite.cxf", "<CxF/>", new QMimeData); },
         {QStringLiteral("<null>")}},
        {"old-style file names are refused",
         [&] { return withData(kQVFilenamesType, "/a.cxf", new QMimeData); },
         {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        Recorder recorder;
        BkgndColorView view;
        view.setDelegate(&recorder);
        std::unique_ptr<QMimeData> mime(row.mime());
        view.takeDataFromPasteboard(mime.get(), nullptr);
        EXPECT_EQ(recorder.texts, row.texts);
    }
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

// A few pixels of the three looks. The swatch is 220 x 160: the arrow's centre line is x = 110
// and, for a one-line message, its lower third lies about 60 points above the bottom edge.
TEST(BkgndColorView, DrawsTheEmptyTargetTheHighlightAndTheColour)
{
    BkgndColorView view;
    view.resize(220, 160);
    const auto pixel = [&](int x, int yUp) {
        return view.grab().toImage().pixelColor(x, view.height() - 1 - yUp);
    };
    // Empty: the dashed border starts at the top centre, grey arrow, no fill at the centre top.
    const QColor arrowIdle = pixel(110, 70);
    EXPECT_LT(std::abs(arrowIdle.red() - arrowIdle.blue()), 8) << "a grey arrow";
    EXPECT_LT(arrowIdle.value(), 200);

    QMimeData cxf;
    cxf.setData(QStringLiteral("com.public.cxf"), "<CxF/>");
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &cxf, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &enter);
    ASSERT_TRUE(view.dragInProgress());
    const QColor arrowHot = pixel(110, 70);
    EXPECT_GT(arrowHot.red() - arrowHot.blue(), 60) << "reddening towards the tip";

    view.setLabColor({50, 0, 0, 1}); // mid grey, about sRGB 119
    const QColor fill = pixel(110, 80);
    EXPECT_NEAR(fill.red(), 119, 2);
    EXPECT_NEAR(fill.green(), 119, 2);
    EXPECT_NE(pixel(0, 0), fill) << "rounded corner";
    view.setLabColor({50, 0, 0, 0});
    EXPECT_NE(pixel(110, 80), fill) << "alpha 0: the empty target again";
}

} // namespace
