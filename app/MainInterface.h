#pragma once
// Loads the main window from its interface file and connects it to the controller: the
// outlets, the swatches' delegate, and the menu commands.

#include <memory>

class AppDelegate;
class QMainWindow;

std::unique_ptr<QMainWindow> loadMainInterface(AppDelegate &controller);
