#include "DocumentFile.h"

#include "cxf_import.h"
#include "document_reading.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>

namespace {

QString systemError(int error)
{
    if (error == ENOENT)
        return QCoreApplication::translate("DocumentFile", "no such file");
    if (error == EACCES || error == EPERM)
        return QCoreApplication::translate("DocumentFile", "permission denied");
    return QString::fromLocal8Bit(std::strerror(error));
}

} // namespace

DocumentFile readDocumentFile(const QString &path)
{
    const DocumentReading reading = readDocument(QFile::encodeName(path).toStdString());
    DocumentFile file;
    switch (reading.problem) {
    case DocumentProblem::None:
        file.text = QByteArray(reading.text->data(), qsizetype(reading.text->size()));
        break;
    case DocumentProblem::Open:
    case DocumentProblem::Read:
        file.problem = systemError(reading.error);
        break;
    case DocumentProblem::NotRegularFile:
        file.problem =
            QFileInfo(path).isDir()
                ? QCoreApplication::translate("DocumentFile", "it is a directory")
                : QCoreApplication::translate("DocumentFile", "it is not a regular file");
        break;
    case DocumentProblem::TooLarge:
        file.problem = QCoreApplication::translate("DocumentFile", "it is larger than %1 MiB")
                           .arg(kMaxCxFDocumentBytes >> 20);
        break;
    case DocumentProblem::InvalidUtf8:
        file.problem = QCoreApplication::translate("DocumentFile", "it is not UTF-8 text");
        break;
    }
    return file;
}
