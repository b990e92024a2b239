#pragma once
// Reading helpers over a drag's or the clipboard's QMimeData: which file URLs it offers (files,
// folders, images), where a promised file will appear, and two diagnostics that dump what it
// holds. Type identifiers are MIME format names; a few formats keep the names other desktops'
// drag sources give them ("com.public.cxf", the promised-file pair).

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <cstdio>
#include <optional>

class QMimeData;
class QObject;

// The format of file URLs.
inline constexpr char kQVFileURLType[] = "text/uri-list";
// Any file with contents (every regular file); folders.
inline constexpr char kQVDataType[] = "application/octet-stream";
inline constexpr char kQVDirectoryType[] = "inode/directory";
// Any image type.
inline constexpr char kQVImageType[] = "image/*";
// A drag source that writes its file only once dropped offers these instead of a file URL.
inline constexpr char kQVPromisedFileURLType[] = "com.apple.pasteboard.promised-file-url";
inline constexpr char kQVPromisedFileContentType[] =
    "com.apple.pasteboard.promised-file-content-type";
// Old-style file names, refused by the swatches.
inline constexpr char kQVFilenamesType[] = "NSFilenamesPboardType";

// How file URLs are read from a pasteboard: file URLs only, and optionally only those whose
// contents conform to one of the listed types (absent: any file URL).
struct QVURLReadingOptions {
    bool fileURLsOnly = true;
    std::optional<QStringList> contentsConformToTypes;
};

QVURLReadingOptions classReadingOptionsForFileURLs();
QVURLReadingOptions classReadingOptionsForFolderURLs();
QVURLReadingOptions classReadingOptionsForFileAndFolderURLs();
QVURLReadingOptions classReadingOptionsForImageFileURLs();

// Whether type name `type` is, or is a kind of, `conformsTo` (MIME inheritance through
// QMimeDatabase; "image/*" takes every image type).
bool typeConformsToType(const QString &type, const QString &conformsTo);
// Whether the file at a local path conforms to `type`: "application/octet-stream" takes any
// regular file, "inode/directory" any folder, other types the file's detected MIME type.
bool fileConformsToType(const QString &path, const QString &type);
// Whether some format of the pasteboard conforms to one of the types.
bool pasteboardHasItemConformingToTypes(const QMimeData *pasteboard, const QStringList &types);

// The URLs that the options let through, in pasteboard order (none for a null pasteboard).
QList<QUrl> readURLs(const QMimeData *pasteboard, const QVURLReadingOptions &options);
inline bool canReadURLs(const QMimeData *pasteboard, const QVURLReadingOptions &options)
{
    return !readURLs(pasteboard, options).isEmpty();
}

// Items of a pasteboard, as the platform's pasteboards count them: every URL of a URL list is an
// item of its own; the other formats belong to the first item.
struct QVPasteboardItem {
    QString description;
    QStringList types;
};
QList<QVPasteboardItem> pasteboardItems(const QMimeData *pasteboard);
qsizetype pasteboardItemCount(const QMimeData *pasteboard);

// Where a promised file will be written: a file in the temporary directory named after the last
// path component of the promised URL (percent escapes removed). Empty when the pasteboard
// promises nothing, or when `type` is given and the promised content type does not conform to
// it. The sender is not used.
QUrl readFileURLPromiseOfType(const QMimeData *pasteboard, const QString &type, QObject *sender);
// The folder promised files are asked to be written to.
QUrl promisedFilePasteLocation();

// Lists the pasteboard's types and items in the log.
void logPasteboard(const QMimeData *pasteboard, const QString &name);

// Developer diagnostic: prints every flavour of every item to `out` and writes the flavours
// under ~/Desktop/Pasteboard Flavor Data/<date>/. Returns 0 or the failing status.
int extractPasteboardFlavorDataToDesktopFolder(const QMimeData *pasteboard,
                                               std::FILE *out = stderr);

// Status codes of the diagnostics.
inline constexpr int kQVParamErr = -50;
inline constexpr int kQVBadPasteboardFlavorErr = -25133;
