#pragma once
// A file named by the user (File > Open, Open Recent, the command line) read as a swatch reads
// a dropped file, with the reason in words when it gives no text.

#include <QByteArray>
#include <QString>

struct DocumentFile {
    QByteArray text; // valid UTF-8; null when the file gave no text
    // Empty when there is text; otherwise why not, translated: "no such file", "permission
    // denied", "it is a directory", "it is not a regular file", "it is larger than 64 MiB",
    // "it is not UTF-8 text", or the system's own error text.
    QString problem;
};

DocumentFile readDocumentFile(const QString &path);
