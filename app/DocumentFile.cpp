#include "DocumentFile.h"

#include "cxf_import.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("DocumentFile", text);
}

} // namespace

QString documentReadProblem(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return tr("no such file");
    if (info.isDir())
        return tr("it is a directory");
    if (!info.isFile())
        return tr("it is not a regular file");
    constexpr auto limit = qint64(kMaxCxFDocumentBytes);
    if (info.size() > limit)
        return tr("it is larger than %1 MiB").arg(limit >> 20);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.error() == QFileDevice::PermissionsError ? tr("permission denied")
                                                             : file.errorString();
    const QByteArray bytes = file.read(limit + 1);
    if (file.error() != QFileDevice::NoError)
        return file.errorString();
    if (bytes.size() > limit) // grew since it was looked at
        return tr("it is larger than %1 MiB").arg(limit >> 20);
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8.decode(bytes);
    if (utf8.hasError() || bytes.contains('\0'))
        return tr("it is not UTF-8 text");
    return {};
}
