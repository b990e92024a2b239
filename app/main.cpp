// cxf-compare: the application's entry point.

#include "AppDelegate.h"
#include "CommandLine.h"
#include "DesktopWindow.h"
#include "LaunchProbe.h"
#include "MainInterface.h"
#include "SwatchProbe.h"
#include "Translations.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char *argv[])
{
    // Log lines are written as plain lines ("Invalid XML data"), without a category prefix;
    // QT_MESSAGE_PATTERN still overrides this.
    qSetMessagePattern(QStringLiteral("%{message}"));
    QCoreApplication::setApplicationName(QStringLiteral("CxF Compare"));
    QCoreApplication::setApplicationVersion(QStringLiteral(CXF_VERSION));

    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    if (asksOnlyForInformation(arguments)) {
        // Help and version need no display.
        QCoreApplication app(argc, argv);
        installTranslators(app);
        return answerCommandLine(parseCommandLine(QCoreApplication::arguments()));
    }

    QApplication app(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("org.cxfcompare.CxFCompare"));
    installTranslators(app);
    // Parsed after Qt has taken its own options (-platform, -style, ...) from the arguments.
    const CommandLine commandLine = parseCommandLine(QCoreApplication::arguments());
    if (commandLine.exitStatus)
        return answerCommandLine(commandLine); // before any window

    AppDelegate controller;
    const std::unique_ptr<QMainWindow> window = loadMainInterface(controller);
    app.setQuitOnLastWindowClosed(controller.applicationShouldTerminateAfterLastWindowClosed());

    controller.applicationWillFinishLaunching();
    window->show();
    controller.applicationDidFinishLaunching();
    // "cxf-compare reference.cxf sample.cxf" opens the documents as if dropped on the swatches,
    // once the window is up, so that an alert is centred on it.
    window->findChild<DesktopWindow *>()->openDocumentsLater(commandLine.documents);
    probeLaunchWhenShown(window.get());
    probeSwatchesWhenShown(controller);
    return app.exec();
}
