// Application name and menu, first element, notification dump, deferred calls.

#include "QApplication+QVExtras.h"
#include "QList+QVExtras.h"
#include "QVInvocation.h"
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
    EXPECT_EQ(lines, QStringList({u"QVLogNotification(nil)"_qs, u"Notification:"_qs,
                                  u"name = Changed"_qs, u"object = QObject(0x0)"_qs,
                                  u"userInfo = QMap((k, QVariant(int, 1)))"_qs}));
}

namespace {

QStringList calls;

class Target : public QObject
{
public:
    void poll(const QString &path, int attempt) { calls << path + QString::number(attempt); }
};

} // namespace

TEST(QVInvocation, CallsWithArgumentsSetLaterUnlessTargetIsGone)
{
    calls.clear();
    auto *target = new Target;
    QVInvocation invocation = QVInvocation::invocationWithTarget(target, &Target::poll);
    invocation.setArgument(QStringLiteral("/tmp/a"), 2);
    invocation.setArgument(7, 3);
    invocation.setArgument(QStringLiteral("ignored"), 4);
    invocation.invoke();
    invocation.setArgument(8, 3);
    invocation.invoke();
    delete target;
    invocation.invoke();
    EXPECT_EQ(calls, QStringList({QStringLiteral("/tmp/a7"), QStringLiteral("/tmp/a8")}));
}
