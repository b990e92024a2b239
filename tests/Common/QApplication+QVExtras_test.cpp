// Application name and menu, first element, notification dump.

#include "QApplication+QVExtras.h"
#include "QList+QVExtras.h"
#include "QVNotification.h"

#include <gtest/gtest.h>

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

TEST(QApplicationQVExtras, NameMenuAndFirstObject)
{
    const QString display = QStringLiteral("Display"), name = QStringLiteral("Name");
    EXPECT_EQ(applicationName(display, name), display); // preferred even with a name
    EXPECT_EQ(applicationName(QString(), name), name);
    EXPECT_TRUE(applicationName(QString(), QString()).isNull());

    QMainWindow window;
    EXPECT_EQ(applicationMenu(&window), nullptr);
    EXPECT_EQ(window.menuWidget(), nullptr); // no menu bar made on the way
    QMenu *first = window.menuBar()->addMenu(QStringLiteral("App"));
    window.menuBar()->addMenu(QStringLiteral("File"));
    EXPECT_EQ(applicationMenu(&window), first);

    EXPECT_EQ(firstObject(QList<QMenu *>()), nullptr);
    EXPECT_FALSE(firstObject(QVariantList()).isValid());
}

TEST(QApplicationQVExtras, LogNotificationLines)
{
    static QStringList lines;
    const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { lines << text; });
    QVLogNotification(nullptr);
    QVNotification note{QStringLiteral("Changed"), nullptr, {{QStringLiteral("k"), 1}}};
    QVLogNotification(&note);
    qInstallMessageHandler(previous);
    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(lines.mid(0, 3),
              QStringList({QStringLiteral("QVLogNotification(nil)"),
                           QStringLiteral("Notification:"), QStringLiteral("name = Changed")}));
    EXPECT_EQ(lines.at(3), QStringLiteral("object = QObject(0x0)"));
    EXPECT_TRUE(lines.at(4).startsWith(QStringLiteral("userInfo = QMap((k, QVariant(int, 1)))")))
        << lines.at(4).toStdString();
}
