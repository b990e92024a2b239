// The emptiness test, observation by key path, bindings and class listings.

#include "QObject+QVExtras.h"

#include <gtest/gtest.h>

#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <map>
#include <vector>

TEST(QObjectQVExtras, IsNotEmpty)
{
    const QObject object;
    const QString empty, text = QStringLiteral("x");
    const struct {
        const char *what;
        bool answer;
        bool expected;
    } rows[] = {
        {"null pointer", isNotEmpty(static_cast<const QObject *>(nullptr)), false},
        {"object without count or length", isNotEmpty(&object), true},
        {"pointer to an empty string", isNotEmpty(&empty), false},
        {"empty string", isNotEmpty(QString()), false},
        {"string", isNotEmpty(text), true},
        {"empty byte array", isNotEmpty(QByteArray()), false},
        {"empty list", isNotEmpty(QVariantList()), false},
        {"list", isNotEmpty(QStringList{text}), true},
        {"empty map", isNotEmpty(QVariantMap()), false},
        {"empty std map", isNotEmpty(std::map<int, int>()), false},
        {"std vector", isNotEmpty(std::vector<int>{0}), true},
        {"invalid variant (the null object)", isNotEmpty(QVariant()), false},
        {"variant holding a null pointer", isNotEmpty(QVariant::fromValue(nullptr)), false},
        {"variant number zero", isNotEmpty(QVariant(0)), true},
        {"variant empty string", isNotEmpty(QVariant(QString())), false},
        {"variant string", isNotEmpty(QVariant(text)), true},
        {"variant empty list", isNotEmpty(QVariant(QVariantList())), false},
        {"variant string list", isNotEmpty(QVariant(QStringList{text})), true},
        {"variant empty map", isNotEmpty(QVariant(QVariantMap())), false},
        {"variant map", isNotEmpty(QVariant(QVariantMap{{text, 0}})), true},
    };
    for (const auto &row : rows)
        EXPECT_EQ(row.answer, row.expected) << row.what;
}
