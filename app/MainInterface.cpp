#include "MainInterface.h"

#include "AppDelegate.h"
#include "DesktopWindow.h"
#include "PasteCommand.h"
#include "PreferencesDialog.h"
#include "ui_MainWindow.h"

#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>

namespace {

void showAbout(QWidget *parent)
{
    QMessageBox::about(
        parent, QObject::tr("About %1").arg(QCoreApplication::applicationName()),
        QObject::tr("<h3>%1 %2</h3><p>Tells how far apart two measured colours are: drop a CxF "
                    "document on each swatch to see their CMC (2:1) colour difference.</p>"
                    "<p>Licensed under the GNU General Public License, version 3 or later.</p>")
            .arg(QCoreApplication::applicationName(), QCoreApplication::applicationVersion()));
}

} // namespace

std::unique_ptr<QMainWindow> loadMainInterface(AppDelegate &controller)
{
    auto window = std::make_unique<QMainWindow>();
    Ui::MainWindow ui;
    ui.setupUi(window.get());

    controller.setWindow(window.get());
    controller.setDragView1(ui.dragView1);
    controller.setDragView2(ui.dragView2);
    controller.setDelta_E_tf(ui.delta_E_tf);
    controller.setDelta_L_tf(ui.delta_L_tf);
    controller.setDelta_C_tf(ui.delta_C_tf);
    controller.setDelta_H_tf(ui.delta_H_tf);
    controller.setVerdictLabel(ui.verdictLabel);
    controller.setDirectionCaptions(ui.delta_L_caption, ui.delta_C_caption, ui.delta_H_caption);
    ui.dragView1->setDelegate(&controller);
    ui.dragView2->setDelegate(&controller);

    new DesktopWindow(window.get(), controller, ui); // owned by the window

    QMainWindow *parent = window.get();
    QObject::connect(ui.actionAbout, &QAction::triggered, parent, [parent] { showAbout(parent); });
    QObject::connect(ui.actionPreferences, &QAction::triggered, parent,
                     [parent] { PreferencesDialog::showShared(parent); });
    installPasteCommand(ui.actionPaste, ui.menuEdit);
    QObject::connect(ui.actionReferenceSpectra, &QAction::triggered, &controller,
                     &AppDelegate::showReferenceSpectra);
    QObject::connect(ui.actionQuit, &QAction::triggered, qApp, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    return window;
}
