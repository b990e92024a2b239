#include "CommandLine.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>

namespace {

const QStringList kHelpNames{QStringLiteral("h"), QStringLiteral("help")};
const QStringList kVersionNames{QStringLiteral("v"), QStringLiteral("version")};

} // namespace

bool asksOnlyForInformation(const QStringList &arguments)
{
    for (const QString &argument : arguments.mid(1)) {
        if (argument == QLatin1String("--"))
            break;
        QString name = argument;
        while (name.startsWith(QLatin1Char('-')))
            name.remove(0, 1);
        if (argument.startsWith(QLatin1Char('-')) &&
            (kHelpNames.contains(name) || kVersionNames.contains(name)))
            return true;
    }
    return false;
}

CommandLine parseCommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QCoreApplication::translate(
        "CommandLine", "Compares two measured colours from CxF documents by their CMC (2:1) colour "
                       "difference. Documents named here open as if dropped on the swatches."));
    const QCommandLineOption help(
        kHelpNames, QCoreApplication::translate("CommandLine", "Displays this help and exits."));
    const QCommandLineOption version(
        kVersionNames,
        QCoreApplication::translate("CommandLine", "Displays the version and exits."));
    parser.addOption(help);
    parser.addOption(version);
    parser.addPositionalArgument(
        QCoreApplication::translate("CommandLine", "reference"),
        QCoreApplication::translate("CommandLine",
                                    "CxF document for the reference swatch (sample 1)."),
        QCoreApplication::translate("CommandLine", "[reference]"));
    parser.addPositionalArgument(
        QCoreApplication::translate("CommandLine", "sample"),
        QCoreApplication::translate("CommandLine",
                                    "CxF document for the sample swatch (sample 2)."),
        QCoreApplication::translate("CommandLine", "[sample]"));

    const QString program = arguments.isEmpty() ? QStringLiteral("cxf-compare")
                                                : QFileInfo(arguments.first()).fileName();
    CommandLine result;
    const auto refuse = [&](const QString &why) {
        result.exitStatus = kExitUsage;
        result.isError = true;
        result.output =
            QStringLiteral("%1: %2\n").arg(program, why) +
            QCoreApplication::translate("CommandLine", "Try “%1 --help” for more information.")
                .arg(program) +
            QLatin1Char('\n');
        return result;
    };
    if (!parser.parse(arguments))
        return refuse(parser.errorText());
    if (parser.isSet(help)) {
        result.exitStatus = 0;
        result.output = parser.helpText();
        return result;
    }
    if (parser.isSet(version)) {
        result.exitStatus = 0;
        result.output = QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(),
                                                      QCoreApplication::applicationVersion());
        return result;
    }
    const QStringList documents = parser.positionalArguments();
    if (documents.size() > 2)
        return refuse(QCoreApplication::translate(
                          "CommandLine",
                          "too many documents: give at most two, the reference and the sample "
                          "(“%1” is a third)")
                          .arg(documents.at(2)));
    result.documents = documents;
    return result;
}

int answerCommandLine(const CommandLine &commandLine)
{
    std::FILE *stream = commandLine.isError ? stderr : stdout;
    std::fputs(commandLine.output.toLocal8Bit().constData(), stream);
    std::fflush(stream);
    return commandLine.exitStatus.value_or(0);
}
