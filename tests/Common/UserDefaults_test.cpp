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
    }
    UserDefaults again(file());
    EXPECT_EQ(again.floatForKey(kKey), 2.3f);
    QFile raw(file());
    ASSERT_TRUE(raw.open(QIODevice::ReadOnly));
    EXPECT_TRUE(raw.readAll().contains("delta_E_CMC_tolerance=2.3\n"));
}

TEST_F(UserDefaultsTest, ObserversHearChangesByAnotherWriterOfTheFile)
{
    UserDefaults watched(file());
    watched.registerDefaults({{kKey, 2.5f}});
    Recorder recorder, removed;
    int context = 0;
    watched.addObserver(&recorder, kKey, kNewOld, &context);
    watched.addObserver(&removed, kKey, kNewOld, nullptr);
    watched.removeObserver(&removed, kKey);
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
    EXPECT_EQ(recorder.heard.front().keyPath, kKey);
    EXPECT_EQ(recorder.heard.front().object, &watched);
    EXPECT_EQ(recorder.heard.front().context, &context);
    EXPECT_TRUE(removed.heard.empty());
    EXPECT_EQ(watched.floatForKey(kKey), 4.0f);
}

} // namespace
