// The drop view's acceptance and reading by kind, and the promised-file poll.
#include "QMimeData+QVExtras.h"
#include "QVFileDropView.h"

#include <gtest/gtest.h>

#include <QDragEnterEvent>
#include <QElapsedTimer>
#include <QImage>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>

namespace {

struct Recorder : QVFileDropDelegate {
    Methods methods = TakeFiles | TakeFolders | TakeFilesAndFolders | TakeImages;
    QStringList calls; // "<method> <count>", -1 for no list
    std::optional<QList<QUrl>> files;
    Methods implementedMethods() const override { return methods; }
    void dropViewTakeFiles(QVFileDropView *, const std::optional<QList<QUrl>> &f) override
    {
        calls << QStringLiteral("files %1").arg(f ? f->size() : -1);
        files = f;
    }
    void dropViewTakeFolders(QVFileDropView *, const QList<QUrl> &f) override
    {
        calls << QStringLiteral("folders %1").arg(f.size());
    }
    void dropViewTakeFilesAndFolders(QVFileDropView *, const QList<QUrl> &f) override
    {
        calls << QStringLiteral("both %1").arg(f.size());
    }
    void dropViewTakeImages(QVFileDropView *, const QList<QImage> &i) override
    {
        calls << QStringLiteral("images %1").arg(i.size());
    }
};

// Whether a drag enters (it is then taken as a link of what a mover offers).
bool enters(QVFileDropView &view, const QMimeData *mime,
            Qt::DropActions actions = Qt::MoveAction | Qt::LinkAction)
{
    QDragEnterEvent event(QPoint(5, 5), actions, mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &event);
    return event.isAccepted() && event.dropAction() == Qt::LinkAction && view.dragInProgress();
}

std::unique_ptr<QMimeData> drag(const QStringList &paths, const QByteArray &promise = {})
{
    auto mime = std::make_unique<QMimeData>();
    QList<QUrl> urls;
    for (const QString &p : paths)
        urls << (p.contains(QLatin1String("://")) ? QUrl(p) : QUrl::fromLocalFile(p));
    if (!urls.isEmpty())
        mime->setUrls(urls);
    if (!promise.isEmpty())
        mime->setData(QLatin1String(kQVPromisedFileURLType), promise);
    return mime;
}

TEST(QVFileDropView, AcceptsAndReadsTheDragsOfItsKind)
{
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("a.cxf")), folder = dir.path(),
                  image = dir.filePath(QStringLiteral("i.png")),
                  bad = dir.filePath(QStringLiteral("bad.png")),
                  gone = dir.filePath(QStringLiteral("gone"));
    QFile(file).open(QIODevice::WriteOnly);
    QFile broken(bad);
    broken.open(QIODevice::WriteOnly);
    broken.write("not an image");
    broken.close();
    QImage(4, 4, QImage::Format_RGB32).save(image);
    using Register = void (QVFileDropView::*)();
    const Register files = &QVFileDropView::registerForDraggedFiles,
                   folders = &QVFileDropView::registerForDraggedFolders,
                   both = &QVFileDropView::registerForDraggedFilesAndFolders,
                   images = &QVFileDropView::registerForDraggedImages;
    struct Row {
        Register kind;
        QStringList paths;
        QByteArray promise;
        bool accepted;
        QString call; // what a drop of it gives the delegate ("" nothing)
    };
    const Row rows[] = {
        {files, {file}, {}, true, QStringLiteral("files 1")},
        {files, {folder}, {}, false, {}},
        {files, {file, file}, {}, false, QStringLiteral("files 2")}, // one item at most
        {files, {}, "file:///x/a.cxf", true, {}},                    // polls, see below
        {folders, {file, folder}, {}, false, QStringLiteral("folders 1")},
        {folders, {folder}, {}, true, QStringLiteral("folders 1")},
        {folders, {}, "file:///x/a.cxf", false, {}},
        {both, {gone}, {}, true, QStringLiteral("both 1")},
        {both, {QStringLiteral("https://example.org/a.cxf")}, {}, false, {}},
        {images, {image}, {}, true, QStringLiteral("images 1")},
        {images, {file}, {}, false, {}},
        {images, {image, bad}, {}, false, QStringLiteral("images 1")}, // one fails to load
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.paths.join(QLatin1Char(' ')).toStdString() + row.promise.toStdString());
        Recorder recorder;
        QVFileDropView view;
        (view.*row.kind)();
        view.setDragDelegate(&recorder);
        const std::unique_ptr<QMimeData> mime = drag(row.paths, row.promise);
        EXPECT_EQ(enters(view, mime.get()), row.accepted);
        view.takeDataFromPasteboard(mime.get(), nullptr);
        EXPECT_EQ(recorder.calls, row.call.isEmpty() ? QStringList() : QStringList{row.call});
    }
}

TEST(QVFileDropView, RefusesWhatDoesNotFitWhateverTheDelegateSays)
{
    struct Yes : QVFileDropDelegate {
        Methods implementedMethods() const override { return CanTakeDataFromPasteboard; }
        bool dropViewCanTakeDataFromPasteboard(QVFileDropView *, const QMimeData *,
                                               QObject *) override
        {
            return true;
        }
    } yes;
    QVFileDropView view;
    view.setAcceptableDragUTIs({QStringLiteral("com.public.cxf")});
    const std::unique_ptr<QMimeData> two = drag({QStringLiteral("/a"), QStringLiteral("/b")});
    EXPECT_FALSE(enters(view, two.get())) << "no URL format registered";
    view.setDragDelegate(&yes);
    EXPECT_FALSE(enters(view, two.get())) << "two items, one allowed";
    view.setAcceptableDragCount(2);
    EXPECT_FALSE(enters(view, two.get(), Qt::IgnoreAction)) << "the source offers nothing";
    view.setAcceptsDrop(false);
    EXPECT_FALSE(enters(view, two.get()));
    view.setAcceptsDrop(true);
    EXPECT_TRUE(enters(view, two.get())) << "exactly the count";
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&view, &leave);
    EXPECT_FALSE(view.dragInProgress());
}

TEST(QVFileDropView, PromisedFileIsReportedWhenItAppearsOrAsNoneAfterTheLastAttempt)
{
    QVFileDropView::setPromisedFilePollInterval(2);
    Recorder recorder;
    QVFileDropView view;
    view.registerForDraggedFilesAndFolders();
    view.setDragDelegate(&recorder);
    const QString name = QStringLiteral("promised %1.cxf").arg(QCoreApplication::applicationPid());
    const QString path = QDir(QDir::tempPath()).filePath(name);
    const std::unique_ptr<QMimeData> mime = drag({}, "file:///x/" + QUrl::toPercentEncoding(name));
    view.takeDataFromPasteboard(mime.get(), nullptr);
    QTest::qWait(20);
    EXPECT_TRUE(recorder.calls.isEmpty());
    QFile(path).open(QIODevice::WriteOnly);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !recorder.calls.isEmpty(); }, 2000));
    EXPECT_EQ(recorder.calls, QStringList{QStringLiteral("files 1")});
    EXPECT_EQ(recorder.files->first().toLocalFile(), path);
    QFile::remove(path);

    // Never there: 100 attempts after the first look, then no list at all.
    recorder.calls.clear();
    QElapsedTimer clock;
    clock.start();
    view.takeDataFromPasteboard(mime.get(), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !recorder.calls.isEmpty(); }, 5000));
    EXPECT_GE(clock.elapsed(), 100 * 2);
    EXPECT_EQ(recorder.calls, QStringList{QStringLiteral("files -1")});
    QVFileDropView::setPromisedFilePollInterval(100);
}

} // namespace
