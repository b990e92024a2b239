// cxf-compare: the application's entry point.

#include "AppDelegate.h"
#include "LaunchProbe.h"
#include "MainInterface.h"
#include "SwatchProbe.h"
#include "Translations.h"
#include "document_reading.h"

#include <QApplication>
#include <QFile>
#include <QMainWindow>

int main(int argc, char *argv[])
{
    // Log lines are written as plain lines ("Invalid XML data"), without a category prefix;
    // QT_MESSAGE_PATTERN still overrides this.
    qSetMessagePattern(QStringLiteral("%{message}"));
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("CxF Compare"));
    QCoreApplication::setApplicationVersion(QStringLiteral(CXF_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.cxfcompare.CxFCompare"));
    installTranslators(app);

    AppDelegate controller;
    const std::unique_ptr<QMainWindow> window = loadMainInterface(controller);
    app.setQuitOnLastWindowClosed(controller.applicationShouldTerminateAfterLastWindowClosed());

    controller.applicationWillFinishLaunching();
    window->show();
    controller.applicationDidFinishLaunching();
    // "cxf-compare reference.cxf sample.cxf" opens the documents as if dropped on the swatches.
    const QStringList documents = app.arguments().mid(1, 2);
    for (qsizetype i = 0; i < documents.size(); ++i) {
        const std::optional<std::string> text =
            readDocumentText(QFile::encodeName(documents.at(i)).toStdString());
        controller.parseXML(text ? QByteArray::fromStdString(*text) : QByteArray(),
                            i == 0 ? controller.dragView1() : controller.dragView2());
    }
    probeLaunchWhenShown(window.get());
    probeSwatchesWhenShown(controller);
    return app.exec();
}
