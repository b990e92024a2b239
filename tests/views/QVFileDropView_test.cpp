// The drop view's acceptance and reading by kind over hand-built drags, through a recording
// delegate, and the promised-file poll with a short interval.
#include "QMimeData+QVExtras.h"
#include "QVFileDropView.h"

#include <gtest/gtest.h>

#include <QDragEnterEvent>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

namespace {

struct Recorder : QVFileDropDelegate {
    Methods methods = TakeFiles | TakeFolders | TakeFilesAndFolders | TakeImages;
    QStringList calls;
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
        calls << QStringLiteral("files and folders %1").arg(f.size());
    }
    void dropViewTakeImages(QVFileDropView *, const QList<QImage> &i) override
    {
        calls << QStringLiteral("images %1").arg(i.size());
    }
};

struct Fixture : ::testing::Test {
    QTemporaryDir dir;
    QString file, folder, image;
    void SetUp() override
    {
        file = dir.filePath(QStringLiteral("a.cxf"));
        folder = dir.filePath(QStringLiteral("sub"));
        image = dir.filePath(QStringLiteral("i.png"));
        QFile f(file);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("<x/>");
        f.close();
        ASSERT_TRUE(QDir(dir.path()).mkdir(QStringLiteral("sub")));
        QImage(4, 4, QImage::Format_RGB32).save(image);
    }
    QMimeData *urls(const QStringList &paths)
    {
        auto *mime = new QMimeData;
        QList<QUrl> list;
        for (const QString &p : paths)
            list << QUrl::fromLocalFile(p);
        mime->setUrls(list);
        return mime;
    }
    static QMimeData *promise(const QByteArray &url)
    {
        auto *mime = new QMimeData;
        mime->setData(QLatin1String(kQVPromisedFileURLType), url);
        return mime;
    }
    // Whether a drag enters, and the action it is accepted with.
    static bool enters(QVFileDropView &view, const QMimeData *mime,
                       Qt::DropActions actions = Qt::MoveAction | Qt::LinkAction)
    {
        QDragEnterEvent event(QPoint(5, 5), actions, mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &event);
        if (event.isAccepted()) {
            EXPECT_EQ(event.dropAction(), Qt::LinkAction) << "a link of what a mover offers";
        }
        return event.isAccepted() && view.dragInProgress();
    }
};

TEST_F(Fixture, AcceptsTheDragsOfItsKind)
{
    using Register = void (QVFileDropView::*)();
    struct Row {
        const char *name;
        Register kind;
        std::function<QMimeData *()> mime;
        bool accepted;
    };
    const Row rows[] = {
        {"a file on a files view", &QVFileDropView::registerForDraggedFiles,
         [&] { return urls({file}); }, true},
        {"a folder on a files view", &QVFileDropView::registerForDraggedFiles,
         [&] { return urls({folder}); }, false},
        {"a promised file on a files view", &QVFileDropView::registerForDraggedFiles,
         [] { return promise("file:///x/a.cxf"); }, true},
        {"a folder on a folders view", &QVFileDropView::registerForDraggedFolders,
         [&] { return urls({folder}); }, true},
        {"a promised file on a folders view", &QVFileDropView::registerForDraggedFolders,
         [] { return promise("file:///x/a.cxf"); }, false},
        {"a missing file on a files-and-folders view",
         &QVFileDropView::registerForDraggedFilesAndFolders,
         [&] { return urls({dir.filePath(QStringLiteral("gone"))}); }, true},
        {"a web URL on a files-and-folders view",
         &QVFileDropView::registerForDraggedFilesAndFolders,
         [] {
             auto *m = new QMimeData;
             m->setUrls({QUrl(QStringLiteral("https://example.org/a.cxf"))});
             return m;
         },
         false},
        {"an image file on an images view", &QVFileDropView::registerForDraggedImages,
         [&] { return urls({image}); }, true},
        {"a text file on an images view", &QVFileDropView::registerForDraggedImages,
         [&] { return urls({file}); }, false},
        {"two files when one is allowed", &QVFileDropView::registerForDraggedFiles,
         [&] {
             return urls({file, file});
         },
         false},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        QVFileDropView view;
        (view.*row.kind)();
        std::unique_ptr<QMimeData> mime(row.mime());
        EXPECT_EQ(enters(view, mime.get()), row.accepted);
    }
}

TEST_F(Fixture, RefusesWhatDoesNotFitWhateverTheDelegateSays)
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
    std::unique_ptr<QMimeData> two(urls({file, folder}));
    EXPECT_FALSE(enters(view, two.get())) << "custom types: no URL format registered";
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

TEST(QVFileDropView, MessageFollowsKindAndCount)
{
    QVFileDropView view;
    view.registerForDraggedFiles();
    view.setAcceptableDragCount(2);
    EXPECT_EQ(view.message(), QStringLiteral("Drop files here"));
    view.setAcceptableDragCount(1);
    EXPECT_EQ(view.message(), QStringLiteral("Drop a file here"));
    view.registerForDraggedImages();
    EXPECT_EQ(view.message(), QStringLiteral("Drop an image here"));
    view.setAcceptableDragUTIs({QStringLiteral("com.public.cxf")});
    view.setMessage(QStringLiteral("mine"));
    view.setAcceptableDragCount(3);
    EXPECT_EQ(view.message(), QStringLiteral("mine"));
}

TEST_F(Fixture, ReadsEachKindAndPassesNothingEmpty)
{
    using Register = void (QVFileDropView::*)();
    struct Row {
        const char *name;
        Register kind;
        std::function<QMimeData *()> mime;
        QString call; // empty: no call
    };
    const Row rows[] = {
        {"files", &QVFileDropView::registerForDraggedFiles,
         [&] {
             return urls({file, file});
         },
         QStringLiteral("files 2")},
        {"folders", &QVFileDropView::registerForDraggedFolders,
         [&] {
             return urls({file, folder});
         },
         QStringLiteral("folders 1")},
        {"no folder among files", &QVFileDropView::registerForDraggedFolders,
         [&] { return urls({file}); }, QString()},
        {"files and folders", &QVFileDropView::registerForDraggedFilesAndFolders,
         [&] {
             return urls({file, folder});
         },
         QStringLiteral("files and folders 2")},
        {"an image that loads and one that does not", &QVFileDropView::registerForDraggedImages,
         [&] {
             return urls({image, dir.filePath(QStringLiteral("bad.png"))});
         },
         QStringLiteral("images 1")},
        {"image data", &QVFileDropView::registerForDraggedImages,
         [] {
             auto *m = new QMimeData;
             m->setImageData(QImage(2, 2, QImage::Format_RGB32));
             return m;
         },
         QStringLiteral("images 1")},
    };
    QFile(dir.filePath(QStringLiteral("bad.png"))).open(QIODevice::WriteOnly);
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        Recorder recorder;
        QVFileDropView view;
        (view.*row.kind)();
        view.setDragDelegate(&recorder);
        std::unique_ptr<QMimeData> mime(row.mime());
        view.takeDataFromPasteboard(mime.get(), nullptr);
        EXPECT_EQ(recorder.calls, row.call.isEmpty() ? QStringList() : QStringList{row.call});
    }
}

TEST_F(Fixture, PromisedFileIsReportedWhenItAppearsOrAsNoneAfterTheLastAttempt)
{
    QVFileDropView::setPromisedFilePollInterval(2);
    Recorder recorder;
    QVFileDropView view;
    view.registerForDraggedFilesAndFolders();
    view.setDragDelegate(&recorder);
    const QString name = QStringLiteral("promised %1.cxf").arg(QCoreApplication::applicationPid());
    const QString path = QDir(QDir::tempPath()).filePath(name);
    std::unique_ptr<QMimeData> mime(promise("file:///elsewhere/" + QUrl::toPercentEncoding(name)));
    view.takeDataFromPasteboard(mime.get(), nullptr);
    ASSERT_TRUE(view.promisedFileTimer());
    QTest::qWait(20);
    EXPECT_TRUE(recorder.calls.isEmpty());
    QFile(path).open(QIODevice::WriteOnly);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !recorder.calls.isEmpty(); }, 2000));
    EXPECT_EQ(recorder.calls, QStringList{QStringLiteral("files 1")});
    EXPECT_EQ(recorder.files->first().toLocalFile(), path);
    QFile::remove(path);

    // Never there: 100 attempts after the first look, then none at all.
    recorder.calls.clear();
    QElapsedTimer clock;
    clock.start();
    view.takeDataFromPasteboard(mime.get(), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !recorder.calls.isEmpty(); }, 5000));
    EXPECT_GE(clock.elapsed(), 100 * 2);
    EXPECT_EQ(recorder.calls, QStringList{QStringLiteral("files -1")});
    EXPECT_FALSE(recorder.files.has_value());
    QVFileDropView::setPromisedFilePollInterval(100);
}

} // namespace
