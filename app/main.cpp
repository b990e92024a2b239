// cxf-compare: the application's entry point.

#include "AppDelegate.h"
#include "LaunchProbe.h"
#include "MainInterface.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char *argv[])
{
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
