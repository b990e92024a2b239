// User defaults: registration, typed access, and observation of every change, whoever makes it.
#include "UserDefaults.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTest>

#include <vector>

namespace {

struct Heard {
    QString keyPath;
    QObject *object;
    KeyValueChange change;
    void *context;
};

class Recorder : public KeyValueObserver
{
public:
    void observeValueForKeyPath(const QString &keyPath, QObject *object,
                                const KeyValueChange &change, void *context) override
    {
        heard.push_back({keyPath, object, change, context});
    }
    std::vector<Heard> heard;
};

const QString kKey = QStringLiteral("delta_E_CMC_tolerance");
const auto kNewOld = KeyValueObservingOption::New | KeyValueObservingOption::Old;

class UserDefaultsTest : public ::testing::Test
{
protected:
    QString file() const { return dir.filePath(QStringLiteral("settings.conf")); }
    QTemporaryDir dir;
};

TEST_F(UserDefaultsTest, RegisteredDefaultsAnswerUntilTheUserSetsAValueThatReadsBackExactly)
{
    {
        UserDefaults defaults(file());
        defaults.registerDefaults({{kKey, 2.5f}});
        EXPECT_EQ(defaults.floatForKey(kKey), 2.5f);
        defaults.setFloat(1.2f, kKey);
        defaults.removeObjectForKey(kKey);
        EXPECT_EQ(defaults.floatForKey(kKey), 2.5f);
        defaults.setFloat(2.3f, kKey);
        defaults.setDouble(0.1, QStringLiteral("precise"));
    }
    UserDefaults again(file());
    EXPECT_EQ(again.floatForKey(kKey), 2.3f);
    EXPECT_EQ(again.doubleForKey(QStringLiteral("precise")), 0.1);
    QFile raw(file());
    ASSERT_TRUE(raw.open(QIODevice::ReadOnly));
    EXPECT_TRUE(raw.readAll().contains("delta_E_CMC_tolerance=2.3\n"));
}

TEST_F(UserDefaultsTest, ObserversHearNewOldObjectAndContextUntilRemoved)
{
    UserDefaults defaults(file());
    defaults.registerDefaults({{kKey, 2.5f}});
    Recorder recorder, other;
    int a = 0, b = 0;
    defaults.addObserver(&recorder, kKey, kNewOld, &a);
    defaults.addObserver(&recorder, kKey, kNewOld, &b);
    defaults.addObserver(&other, QStringLiteral("something_else"), kNewOld, nullptr);
    defaults.removeObserver(&recorder, kKey, &a);
    defaults.setFloat(1.0f, kKey);
    ASSERT_EQ(recorder.heard.size(), 1u);
    const Heard &h = recorder.heard.front();
    EXPECT_EQ(h.keyPath, kKey);
    EXPECT_EQ(h.object, &defaults);
    EXPECT_EQ(h.context, &b);
    EXPECT_EQ(h.change.oldValue.toFloat(), 2.5f);
    EXPECT_EQ(h.change.newValue.toFloat(), 1.0f);
    EXPECT_TRUE(other.heard.empty());
    defaults.removeObserver(&recorder, kKey);
    defaults.setFloat(1.75f, kKey);
    EXPECT_EQ(recorder.heard.size(), 1u);
}

TEST_F(UserDefaultsTest, ChangesByAnotherWriterOfTheFileAreHeard)
{
    UserDefaults watched(file());
    watched.registerDefaults({{kKey, 2.5f}});
    Recorder recorder;
    watched.addObserver(&recorder, kKey, kNewOld, nullptr);
    // Another program replaces the file (write, then rename), twice: the second time after the
    // rename left the old file behind.
    for (const char *value : {"0.5", "4"}) {
        QSaveFile other(file());
        ASSERT_TRUE(other.open(QIODevice::WriteOnly));
        other.write(QByteArray("[General]\ndelta_E_CMC_tolerance=") + value + "\n");
        ASSERT_TRUE(other.commit());
        const std::size_t before = recorder.heard.size();
        ASSERT_TRUE(QTest::qWaitFor([&] { return recorder.heard.size() > before; }, 5000));
        EXPECT_EQ(recorder.heard.back().change.newValue.toFloat(), QByteArray(value).toFloat());
    }
    EXPECT_EQ(recorder.heard.front().change.oldValue.toFloat(), 2.5f);
    EXPECT_EQ(watched.floatForKey(kKey), 4.0f);
}

} // namespace
