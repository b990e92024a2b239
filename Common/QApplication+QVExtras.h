#pragma once
// The application's name and its application menu.
//
// The name stands in for a bundle's display name and name: the display name the program set
// with QGuiApplication::setApplicationDisplayName, else the name it set with
// QCoreApplication::setApplicationName. The main menu is the menu bar of the main window.

#include <QString>

class QMainWindow;
class QMenu;

// The display name when there is one (not null), else the name; null when both are null.
QString applicationName(const QString &displayName, const QString &name);
// The running application's: its display name when one was set, else its application name
// (which Qt takes from the executable when the program sets none).
QString applicationName();

// The submenu of the first action of the window's menu bar; null without a window, a menu
// bar or a first action. A window without a menu bar is not given one.
QMenu *applicationMenu(const QMainWindow *mainWindow);
// The same for the application's main window: the active window if it is a QMainWindow, else
// the first top-level QMainWindow.
QMenu *applicationMenu();
