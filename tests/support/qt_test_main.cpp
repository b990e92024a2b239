// Entry point for tests of Qt code: a QApplication (offscreen unless the environment says
// otherwise) and a settings folder of the test's own, so no test reads or writes the user's.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

int main(int argc, char **argv)
{
    QTemporaryDir configHome;
    qputenv("XDG_CONFIG_HOME", configHome.path().toLocal8Bit());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
