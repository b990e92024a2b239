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

TEST_F(UserDefaultsTest, RegisteredDefaultsAnswerUntilTheUserSetsAValue)
{
    UserDefaults defaults(file());
    EXPECT_FALSE(defaults.objectForKey(kKey).isValid());
    defaults.registerDefaults({{kKey, 2.5f}});
    EXPECT_EQ(defaults.floatForKey(kKey), 2.5f);
    defaults.setFloat(1.2f, kKey);
    EXPECT_EQ(defaults.floatForKey(kKey), 1.2f);
    defaults.removeObjectForKey(kKey);
    EXPECT_EQ(defaults.floatForKey(kKey), 2.5f);
}

TEST_F(UserDefaultsTest, FloatsReadBackExactlyAndTheFileStaysReadable)
{
    {
        UserDefaults defaults(file());
        defaults.setFloat(2.3f, kKey);
        defaults.setInteger(7, QStringLiteral("count"));
        defaults.setBool(true, QStringLiteral("flag"));
        defaults.setDouble(0.1, QStringLiteral("precise"));
    }
    UserDefaults again(file());
    EXPECT_EQ(again.floatForKey(kKey), 2.3f);
    EXPECT_EQ(again.integerForKey(QStringLiteral("count")), 7);
    EXPECT_TRUE(again.boolForKey(QStringLiteral("flag")));
    EXPECT_EQ(again.doubleForKey(QStringLiteral("precise")), 0.1);
    QFile raw(file());
    ASSERT_TRUE(raw.open(QIODevice::ReadOnly));
    EXPECT_TRUE(raw.readAll().contains("delta_E_CMC_tolerance=2.3\n"));
}

TEST_F(UserDefaultsTest, ObserverHearsNewOldObjectAndContext)
{
    UserDefaults defaults(file());
    defaults.registerDefaults({{kKey, 2.5f}});
    Recorder recorder;
    int context = 0;
    defaults.addObserver(&recorder, kKey, kNewOld, &context);
    defaults.setFloat(1.0f, kKey);
    ASSERT_EQ(recorder.heard.size(), 1u);
    const Heard &h = recorder.heard.front();
    EXPECT_EQ(h.keyPath, kKey);
    EXPECT_EQ(h.object, &defaults);
    EXPECT_EQ(h.context, &context);
    EXPECT_EQ(h.change.oldValue.toFloat(), 2.5f);
    EXPECT_EQ(h.change.newValue.toFloat(), 1.0f);
    EXPECT_FALSE(h.change.isPrior);
}

TEST_F(UserDefaultsTest, OptionsDecideWhatIsSentAndWhen)
{
    UserDefaults defaults(file());
    defaults.setFloat(3.0f, kKey);
    Recorder onlyNew, initial, prior;
    defaults.addObserver(&onlyNew, kKey, KeyValueObservingOption::New, nullptr);
    defaults.addObserver(&initial, kKey,
                         KeyValueObservingOption::Initial | KeyValueObservingOption::New, nullptr);
    defaults.addObserver(&prior, kKey, KeyValueObservingOption::Prior | kNewOld, nullptr);
    ASSERT_EQ(initial.heard.size(), 1u); // at once, with the current value
    EXPECT_EQ(initial.heard[0].change.newValue.toFloat(), 3.0f);

    defaults.setFloat(4.0f, kKey);
    ASSERT_EQ(onlyNew.heard.size(), 1u);
    EXPECT_FALSE(onlyNew.heard[0].change.oldValue.isValid());
    ASSERT_EQ(prior.heard.size(), 2u);
    EXPECT_TRUE(prior.heard[0].change.isPrior);
    EXPECT_FALSE(prior.heard[0].change.newValue.isValid());
    EXPECT_EQ(prior.heard[0].change.oldValue.toFloat(), 3.0f);
    EXPECT_EQ(prior.heard[1].change.newValue.toFloat(), 4.0f);
}

TEST_F(UserDefaultsTest, RemovedObserversHearNothingAndOtherKeysAreNotHeard)
{
    UserDefaults defaults(file());
    Recorder recorder, other;
    int a = 0, b = 0;
    defaults.addObserver(&recorder, kKey, kNewOld, &a);
    defaults.addObserver(&recorder, kKey, kNewOld, &b);
    defaults.addObserver(&other, QStringLiteral("something_else"), kNewOld, nullptr);
    defaults.removeObserver(&recorder, kKey, &a);
    defaults.setFloat(1.5f, kKey);
    ASSERT_EQ(recorder.heard.size(), 1u);
    EXPECT_EQ(recorder.heard[0].context, &b);
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

    // Another program replaces the file, as editors and QSettings do (write, then rename).
    QSaveFile other(file());
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("[General]\ndelta_E_CMC_tolerance=0.5\n");
    ASSERT_TRUE(other.commit());

    ASSERT_TRUE(QTest::qWaitFor([&] { return !recorder.heard.empty(); }, 5000));
    EXPECT_EQ(recorder.heard[0].change.oldValue.toFloat(), 2.5f);
    EXPECT_EQ(recorder.heard[0].change.newValue.toFloat(), 0.5f);
    EXPECT_EQ(watched.floatForKey(kKey), 0.5f);

    // And a second change after the rename left the old file behind.
    QSaveFile again(file());
    ASSERT_TRUE(again.open(QIODevice::WriteOnly));
    again.write("[General]\ndelta_E_CMC_tolerance=4\n");
    ASSERT_TRUE(again.commit());
    ASSERT_TRUE(QTest::qWaitFor([&] { return recorder.heard.size() >= 2; }, 5000));
    EXPECT_EQ(recorder.heard.back().change.newValue.toFloat(), 4.0f);
}

} // namespace
