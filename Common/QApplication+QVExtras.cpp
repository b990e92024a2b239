#include "QApplication+QVExtras.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

QString applicationName(const QString &displayName, const QString &name)
{
    return displayName.isNull() ? name : displayName;
}

QString applicationName()
{
    // Qt answers the application name for a display name that was never set.
    const QString name = QCoreApplication::applicationName();
    const QString displayName = QGuiApplication::applicationDisplayName();
    return applicationName(displayName == name ? QString() : displayName, name);
}

QMenu *applicationMenu(const QMainWindow *mainWindow)
{
    // menuWidget(), not menuBar(): the latter makes a menu bar when there is none.
    const auto *menuBar = mainWindow ? qobject_cast<QMenuBar *>(mainWindow->menuWidget()) : nullptr;
    if (!menuBar || menuBar->actions().isEmpty())
        return nullptr;
    return menuBar->actions().constFirst()->menu();
}

QMenu *applicationMenu()
{
    if (const auto *active = qobject_cast<QMainWindow *>(QApplication::activeWindow()))
        return applicationMenu(active);
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows) {
        if (const auto *mainWindow = qobject_cast<const QMainWindow *>(window))
            return applicationMenu(mainWindow);
    }
    return nullptr;
}
