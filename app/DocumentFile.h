#pragma once
// Why a file named by the user cannot be read as a CxF document, in words for the status bar
// and the terminal.

#include <QString>

// Empty when path names a regular, readable file of at most kMaxCxFDocumentBytes that holds
// UTF-8 text; otherwise the reason, translated: "no such file", "it is a directory", "it is
// not a regular file", "it is larger than 64 MiB", "permission denied", "it is not UTF-8 text"
// (invalid sequences or NUL bytes), or the system's own error text.
QString documentReadProblem(const QString &path);
