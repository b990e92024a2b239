#pragma once
// The application's command line: --help, --version and up to two CxF documents, the first
// for the reference swatch and the second for the sample swatch.

#include <QString>
#include <QStringList>

#include <optional>

// Exit status of a command line that cannot be used (too many documents, an unknown option).
inline constexpr int kExitUsage = 64;

struct CommandLine {
    QStringList documents; // as given: reference first, then sample
    // Set when the program answers on its own and ends before any window: help, version or a
    // usage error. output is printed to stdout, or to stderr for an error.
    std::optional<int> exitStatus;
    QString output;
    bool isError = false;
};

// Whether arguments ask only for help or the version, which need no display: main() answers
// them with a core application alone.
bool asksOnlyForInformation(const QStringList &arguments);

// arguments as QCoreApplication::arguments() gives them, the program first.
CommandLine parseCommandLine(const QStringList &arguments);

// Prints output to its stream and returns the exit status.
int answerCommandLine(const CommandLine &commandLine);
