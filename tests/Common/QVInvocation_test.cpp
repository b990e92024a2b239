// The deferred call: arguments from index 2, a deleted target is not called.

#include "QVInvocation.h"

#include <gtest/gtest.h>

#include <QObject>

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
