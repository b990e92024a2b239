// cxf-compare: the application's entry point.

#include "AppDelegate.h"
#include "LaunchProbe.h"
#include "MainInterface.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char *argv[])
{
    // Log lines are written as plain lines ("Invalid XML data"), without a category prefix;
    // QT_MESSAGE_PATTERN still overrides this.
    qSetMessagePattern(QStringLiteral("%{message}"));
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("CxF Compare"));
    QCoreApplication::setApplicationVersion(QStringLiteral(CXF_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("cxf-compare"));

    AppDelegate controller;
    const std::unique_ptr<QMainWindow> window = loadMainInterface(controller);
    app.setQuitOnLastWindowClosed(controller.applicationShouldTerminateAfterLastWindowClosed());

    controller.applicationWillFinishLaunching();
    window->show();
    controller.applicationDidFinishLaunching();
    probeLaunchWhenShown(window.get());
    return app.exec();
}
