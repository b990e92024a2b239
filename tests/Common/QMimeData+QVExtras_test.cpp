// The pasteboard helpers: where a promised file will appear, and the two diagnostics' output.
#include "QMimeData+QVExtras.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>

#include <cstdio>

namespace {

QStringList gLog;
void record(QtMsgType, const QMessageLogContext &, const QString &message)
{
    gLog << message;
}

TEST(QMimeDataExtras, PromisedFileLandsInTheTemporaryDirectory)
{
    struct Row {
        const char *contentType, *requested, *promised;
        QString name; // null: no URL
    };
    const Row rows[] = {
        {nullptr, nullptr, "file:///Users/x/My%20Patch.cxf", QStringLiteral("My Patch.cxf")},
        {nullptr, nullptr, "file:///a/b/", QStringLiteral("b")},
        {nullptr, nullptr, "", QString()},
        {"image/png", "image/*", "file:///a/c.png", QStringLiteral("c.png")},
        {"image/png", "text/plain", "file:///a/c.png", QString()},
        {nullptr, "text/plain", "file:///a/d.cxf", QStringLiteral("d.cxf")},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.promised);
        QMimeData mime;
        mime.setData(QLatin1String(kQVPromisedFileURLType), row.promised);
        if (row.contentType)
            mime.setData(QLatin1String(kQVPromisedFileContentType), row.contentType);
        const QUrl url = readFileURLPromiseOfType(&mime, QLatin1String(row.requested), nullptr);
        EXPECT_EQ(url.toLocalFile(),
                  row.name.isNull() ? QString() : QDir(QDir::tempPath()).filePath(row.name));
    }
}

TEST(QMimeDataExtras, LogsTypesThenItems)
{
    QMimeData mime;
    mime.setUrls({QUrl(QStringLiteral("file:///a")), QUrl(QStringLiteral("file:///b"))});
    mime.setData(QStringLiteral("com.public.cxf"), "<CxF/>");
    gLog.clear();
    const QtMessageHandler previous = qInstallMessageHandler(record);
    logPasteboard(&mime, QStringLiteral("drag"));
    qInstallMessageHandler(previous);
    const QString rule(80, QLatin1Char('-'));
    EXPECT_EQ(gLog.join(QLatin1Char('|')),
              rule +
                  QStringLiteral("|Pasteboard: drag|---------- Types ----------|Type: "
                                 "text/uri-list|Type: com.public.cxf|---------- Items "
                                 "----------|Item: item 1: file:///a|\tUTI: text/uri-list|\tUTI: "
                                 "com.public.cxf|Item: item 2: file:///b|\tUTI: text/uri-list|") +
                  rule);
}

TEST(QMimeDataExtras, FlavorDumpProbesOneMoreFlavorAndWritesOnlyTheFirst)
{
    QTemporaryDir home;
    const QByteArray savedHome = qgetenv("HOME");
    qputenv("HOME", home.path().toLocal8Bit());
    QMimeData mime;
    mime.setData(QStringLiteral("com.public.cxf"), "first");
    mime.setData(QStringLiteral("text/plain"), "second");
    mime.setData(QStringLiteral("application/x-third"), "third");
    char *buffer = nullptr;
    size_t size = 0;
    std::FILE *out = open_memstream(&buffer, &size);
    const int status = extractPasteboardFlavorDataToDesktopFolder(&mime, out);
    std::fclose(out);
    const QString printed = QString::fromUtf8(buffer, qsizetype(size));
    std::free(buffer);
    qputenv("HOME", savedHome);

    EXPECT_EQ(status, 0) << "the probe's missing flavour counts as success";
    EXPECT_EQ(printed.count(QStringLiteral("\nindex: ")), 4);
    EXPECT_TRUE(printed.contains(
        QStringLiteral("index: 3\nflavorType: \"com.apple.pasteboardpeeker.requestonly\"\n"
                       "nsPboardFlavorType: \"\"\nosTypeFlavorType: \"\"\n"
                       "CantGetItemFlavorFlags\n")));
    EXPECT_EQ(printed.count(QStringLiteral("\tData available (not promised)\n")), 3);
    const QDir dumps(home.filePath(QStringLiteral("Desktop/Pasteboard Flavor Data")));
    const QStringList dates = dumps.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    ASSERT_EQ(dates.size(), 1);
    const QDir dated(dumps.filePath(dates.first()));
    EXPECT_EQ(dated.entryList(QDir::Files), QStringList{QStringLiteral("000")});
    QFile first(dated.filePath(QStringLiteral("000")));
    ASSERT_TRUE(first.open(QIODevice::ReadOnly));
    EXPECT_EQ(first.readAll(), QByteArray("first"));
}

} // namespace
