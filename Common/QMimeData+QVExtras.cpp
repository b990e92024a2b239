#include "QMimeData+QVExtras.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QMimeData>
#include <QMimeDatabase>
#include <QSaveFile>

#include <algorithm>

Q_LOGGING_CATEGORY(lcPasteboard, "qv.pasteboard", QtInfoMsg)

namespace {

QVURLReadingOptions fileURLsConformingTo(const char *type)
{
    return {true, QStringList{QLatin1String(type)}};
}

// The last component of a path, as the platform's path strings give it: trailing slashes do
// not count, and "/" is its own last component.
QString lastPathComponent(QString path)
{
    while (path.size() > 1 && path.endsWith(QLatin1Char('/')))
        path.chop(1);
    if (path == QLatin1String("/"))
        return path;
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

// The bytes of one flavour of one item: a URL item's own URL line, or the format's data.
QByteArray flavorData(const QMimeData *pasteboard, qsizetype itemIndex, const QString &type)
{
    if (type == QLatin1String(kQVFileURLType) && pasteboard->urls().size() > 1)
        return pasteboard->urls().at(itemIndex).toEncoded() + "\r\n";
    return pasteboard->data(type);
}

void printFlag(std::FILE *out, unsigned flags, unsigned bit, const char *set, const char *clear)
{
    std::fprintf(out, "\t%s\n", (flags & bit) ? set : clear);
}

} // namespace

QVURLReadingOptions classReadingOptionsForFileURLs()
{
    return fileURLsConformingTo(kQVDataType);
}

QVURLReadingOptions classReadingOptionsForFolderURLs()
{
    return fileURLsConformingTo(kQVDirectoryType);
}

QVURLReadingOptions classReadingOptionsForFileAndFolderURLs()
{
    return {true, std::nullopt};
}

QVURLReadingOptions classReadingOptionsForImageFileURLs()
{
    return fileURLsConformingTo(kQVImageType);
}

bool typeConformsToType(const QString &type, const QString &conformsTo)
{
    if (type.isEmpty() || conformsTo.isEmpty())
        return false;
    if (type == conformsTo)
        return true;
    if (conformsTo.endsWith(QLatin1String("/*")))
        return type.startsWith(conformsTo.chopped(1));
    const QMimeType mime = QMimeDatabase().mimeTypeForName(type);
    return mime.isValid() && mime.inherits(conformsTo);
}

bool fileConformsToType(const QString &path, const QString &type)
{
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists())
        return false;
    const QString detected = QMimeDatabase().mimeTypeForFile(info).name();
    // Every stream of bytes is data; folders, pipes and devices are not.
    if (type == QLatin1String(kQVDataType))
        return info.isFile() && !detected.startsWith(QLatin1String("inode/"));
    return typeConformsToType(detected, type);
}

bool pasteboardHasItemConformingToTypes(const QMimeData *pasteboard, const QStringList &types)
{
    if (!pasteboard)
        return false;
    const QStringList formats = pasteboard->formats();
    for (const QString &format : formats)
        for (const QString &type : types)
            if (typeConformsToType(format, type))
                return true;
    return false;
}

QList<QUrl> readURLs(const QMimeData *pasteboard, const QVURLReadingOptions &options)
{
    QList<QUrl> result;
    if (!pasteboard || !pasteboard->hasUrls())
        return result;
    const QList<QUrl> urls = pasteboard->urls();
    for (const QUrl &url : urls) {
        if (options.fileURLsOnly && !url.isLocalFile())
            continue;
        if (options.contentsConformToTypes) {
            const QString path = url.toLocalFile();
            const QStringList &types = *options.contentsConformToTypes;
            if (std::none_of(types.cbegin(), types.cend(),
                             [&](const QString &type) { return fileConformsToType(path, type); }))
                continue;
        }
        result.append(url);
    }
    return result;
}

QList<QVPasteboardItem> pasteboardItems(const QMimeData *pasteboard)
{
    QList<QVPasteboardItem> items;
    if (!pasteboard || pasteboard->formats().isEmpty())
        return items;
    const QList<QUrl> urls = pasteboard->hasUrls() ? pasteboard->urls() : QList<QUrl>();
    if (urls.size() <= 1) {
        items.append(
            {QStringLiteral("item 1%1")
                 .arg(urls.isEmpty() ? QString() : QStringLiteral(": ") + urls[0].toString()),
             pasteboard->formats()});
        return items;
    }
    for (qsizetype i = 0; i < urls.size(); ++i) {
        QStringList types{QLatin1String(kQVFileURLType)};
        if (i == 0)
            for (const QString &format : pasteboard->formats())
                if (format != QLatin1String(kQVFileURLType))
                    types.append(format);
        items.append({QStringLiteral("item %1: %2").arg(i + 1).arg(urls[i].toString()), types});
    }
    return items;
}

qsizetype pasteboardItemCount(const QMimeData *pasteboard)
{
    return pasteboardItems(pasteboard).size();
}

QUrl promisedFilePasteLocation()
{
    return QUrl::fromLocalFile(QDir::tempPath());
}

QUrl readFileURLPromiseOfType(const QMimeData *pasteboard, const QString &type, QObject *)
{
    if (!pasteboard)
        return {};
    const QLatin1String contentType(kQVPromisedFileContentType);
    if (!type.isEmpty() && pasteboard->hasFormat(contentType) &&
        !typeConformsToType(QString::fromUtf8(pasteboard->data(contentType)).trimmed(), type))
        return {};
    // The drag source is asked to write the file into the paste location.
    const QString location = promisedFilePasteLocation().toLocalFile();
    const QByteArray promised = pasteboard->data(QLatin1String(kQVPromisedFileURLType));
    if (promised.isEmpty())
        return {};
    const QString name = lastPathComponent(QUrl::fromPercentEncoding(promised));
    return QUrl::fromLocalFile(QDir::cleanPath(location + QLatin1Char('/') + name));
}

void logPasteboard(const QMimeData *pasteboard, const QString &name)
{
    const QString rule(80, QLatin1Char('-'));
    qCInfo(lcPasteboard).noquote() << rule;
    qCInfo(lcPasteboard).noquote() << QStringLiteral("Pasteboard: %1").arg(name);
    qCInfo(lcPasteboard).noquote() << QStringLiteral("---------- Types ----------");
    if (pasteboard)
        for (const QString &type : pasteboard->formats())
            qCInfo(lcPasteboard).noquote() << QStringLiteral("Type: %1").arg(type);
    qCInfo(lcPasteboard).noquote() << QStringLiteral("---------- Items ----------");
    for (const QVPasteboardItem &item : pasteboardItems(pasteboard)) {
        qCInfo(lcPasteboard).noquote() << QStringLiteral("Item: %1").arg(item.description);
        for (const QString &type : item.types)
            qCInfo(lcPasteboard).noquote() << QStringLiteral("\tUTI: %1").arg(type);
    }
    qCInfo(lcPasteboard).noquote() << rule;
}

int extractPasteboardFlavorDataToDesktopFolder(const QMimeData *pasteboard, std::FILE *out)
{
    static const char rule[] = "------------------------------------------------------------\n";
    if (!pasteboard) {
        std::fprintf(out, "CantGetPasteboardItemCount\n");
        return kQVParamErr;
    }
    const QList<QVPasteboardItem> items = pasteboardItems(pasteboard);
    std::fprintf(out, "PasteboardRef: %p  ItemCount: %d\n", static_cast<const void *>(pasteboard),
                 int(items.size()));
    int status = 0;
    for (int index = 1; index <= int(items.size()); ++index) {
        std::fputs(rule, out);
        std::fprintf(out, "Index: %d  item ID: %d\n", index, index);
        const QStringList flavors = items[index - 1].types;
        QString folder =
            QDir::homePath() + QStringLiteral("/Desktop/Pasteboard Flavor Data/") +
            QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss +0000"));
        int itemStatus = 0;
        // One round more than there are flavours: the last probes a flavour no item has.
        for (long f = 0; f <= long(flavors.size()); ++f) {
            const bool probe = f == long(flavors.size());
            const QString flavor =
                probe ? QStringLiteral("com.apple.pasteboardpeeker.requestonly") : flavors[f];
            std::fputs(rule, out);
            std::fprintf(out, "index: %ld\n", f);
            std::fprintf(out, "flavorType: \"%s\"\n", flavor.toLatin1().left(127).constData());
            std::fprintf(out, "nsPboardFlavorType: \"%s\"\n", "");
            std::fprintf(out, "osTypeFlavorType: \"%s\"\n", "");
            if (probe) {
                std::fprintf(out, "CantGetItemFlavorFlags\n");
                itemStatus = kQVBadPasteboardFlavorErr;
                continue;
            }
            // Every flavour of a QMimeData is present, saveable and the sender's own.
            const unsigned flags = 0;
            printFlag(out, flags, 0x200, "Promised", "Data available (not promised)");
            printFlag(out, flags, 0x100, "System translated", "Not system translated");
            printFlag(out, flags, 0x8, "Presence of flavor by request only",
                      "Flavor present in normal flavor check");
            printFlag(out, flags, 0x4, "Data should not be saved", "Data can be saved");
            printFlag(out, flags, 0x2, "Sender Translated", "Not sender translated");
            printFlag(out, flags, 0x1, "Sender Only", "Not sender only");
            const QByteArray data = flavorData(pasteboard, index - 1, flavor);
            std::fprintf(out, "\tdata size: %d\n", int(data.size()));
            QDir().mkpath(folder);
            // The file's path becomes the folder of the next flavour, so only the first flavour
            // of an item reaches the disk; kept as it stands.
            folder = folder + QLatin1Char('/') + QString::asprintf("%03ld", f);
            QSaveFile file(folder);
            if (file.open(QIODevice::WriteOnly)) {
                file.write(data);
                file.commit();
            }
            itemStatus = 0;
        }
        status = itemStatus == kQVBadPasteboardFlavorErr ? 0 : itemStatus;
    }
    return status;
}
