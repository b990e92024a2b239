#pragma once
// The controller with its real main window, launched and shown, with no tolerance stored and
// no window state remembered; alerts are dismissed unseen.
#include "AppDelegate.h"
#include "DesktopWindow.h"
#include "MainInterface.h"
#include "UserDefaults.h"

#include <gtest/gtest.h>

#include <QMainWindow>
#include <QMessageBox>
#include <QSettings>

#include <memory>

inline const QString kToleranceKey = QStringLiteral("delta_E_CMC_tolerance");

class AppWindowTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        UserDefaults::standardUserDefaults()->removeObjectForKey(kToleranceKey);
        QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("cxf-compare"),
                  QStringLiteral("cxf-compare"))
            .remove(QStringLiteral("MainWindow"));
        controller = std::make_unique<AppDelegate>();
        controller->setAlertPresenter([](QMessageBox &) {});
        window = loadMainInterface(*controller);
        controller->applicationWillFinishLaunching();
        window->show();
        controller->applicationDidFinishLaunching();
        desktop = window->findChild<DesktopWindow *>();
    }
    void TearDown() override
    {
        controller.reset(); // stops observing before the window goes
        window.reset();
        UserDefaults::standardUserDefaults()->removeObjectForKey(kToleranceKey);
    }
    std::unique_ptr<AppDelegate> controller;
    std::unique_ptr<QMainWindow> window;
    DesktopWindow *desktop = nullptr;
};
