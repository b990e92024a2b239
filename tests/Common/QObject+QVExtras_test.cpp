// The emptiness test, observation by key path, bindings and class listings.

#include "QObject+QVExtras.h"
#include "QVAssertionHandler.h"
#include "UserDefaults.h"

#include <gtest/gtest.h>

#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <tuple>

TEST(QObjectQVExtras, IsNotEmpty)
{
    const QObject object;
    const QString text = QStringLiteral("x");
    const std::tuple<const char *, bool, bool> rows[] = {
        // what, answer, expected
        {"null pointer", isNotEmpty(static_cast<const QObject *>(nullptr)), false},
        {"object without count or length", isNotEmpty(&object), true},
        {"empty string", isNotEmpty(QString()), false},
        {"empty list", isNotEmpty(QVariantList()), false},
        {"list", isNotEmpty(QStringList{text}), true},
        {"invalid variant (the null object)", isNotEmpty(QVariant()), false},
        {"variant holding a null pointer", isNotEmpty(QVariant::fromValue(nullptr)), false},
        {"variant number zero", isNotEmpty(QVariant(0)), true},
        {"variant string", isNotEmpty(QVariant(text)), true},
        {"variant map", isNotEmpty(QVariant(QVariantMap{{text, 0}})), true},
    };
    for (const auto &[what, answer, expected] : rows)
        EXPECT_EQ(answer, expected) << what;
}

namespace {

class Model : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int xab MEMBER xab NOTIFY xabChanged)
    Q_PROPERTY(int abab MEMBER abab NOTIFY xabChanged)
    Q_PROPERTY(QString abc MEMBER abc)

public:
    int xab = 0, abab = 0;
    QString abc;
Q_SIGNALS:
    void xabChanged();
};

class Plain : public QObject
{
    Q_OBJECT
};

// Records "keyPath old->new" and the context of every change it is told of.
struct Recorder : QVKeyValueObserver {
    std::optional<QVObservationList> list;
    QStringList changes;
    void *lastContext = nullptr;
    std::optional<QVObservationList> objectsAndKeyPathsToObserve() const override { return list; }
    void observeValueForKeyPath(const QString &keyPath, QObject *, const KeyValueChange &change,
                                void *context) override
    {
        changes << keyPath + u' ' + change.oldValue.toString() + u"->" + change.newValue.toString();
        lastContext = context;
    }
};

QStringList logged;
void recordLog(QtMsgType, const QMessageLogContext &, const QString &text)
{
    logged << text.section(QStringLiteral(" in "), 0, 0); // without the function's name
}

struct Negating : QVValueTransformer {
    bool reverses = true;
    bool allowsReverseTransformation() const override { return reverses; }
    QVariant transformedValue(const QVariant &v) const override { return -v.toInt(); }
    QVariant reverseTransformedValue(const QVariant &v) const override { return -v.toInt(); }
};

} // namespace

TEST(QObjectQVExtras, ObservedPropertiesAndUserDefaultKeys)
{
    Model model;
    Recorder recorder;
    recorder.list = QVObservationList{{QVariant::fromValue(&model), QStringLiteral("xab")},
                                      {QVariant::fromValue(&model)}};
    registerObservedObjectsAndKeyPaths(&recorder);
    model.setProperty("xab", 5);
    unregisterObservedObjectsAndKeyPaths(&recorder);
    model.setProperty("xab", 6);
    EXPECT_EQ(recorder.changes, QStringList{QStringLiteral("xab 0->5")});

    // The keys of the map are observed, not its values.
    UserDefaults *defaults = UserDefaults::standardUserDefaults();
    const QVariantMap keys{{QStringLiteral("observedKey"), QStringLiteral("valueKey")}};
    registerObservedUserDefaults(&recorder, keys);
    defaults->setObject(QStringLiteral("b"), QStringLiteral("valueKey"));
    defaults->setObject(QStringLiteral("a"), QStringLiteral("observedKey"));
    unregisterObservedUserDefaults(&recorder, keys);
    defaults->setObject(QStringLiteral("c"), QStringLiteral("observedKey"));
    EXPECT_EQ(recorder.changes.mid(1), QStringList{QStringLiteral("observedKey ->a")});
    EXPECT_EQ(recorder.lastContext, defaults);
}

TEST(QObjectQVExtras, PropagateValueSteps)
{
    QVValueTransformer::setValueTransformer(std::make_shared<Negating>(), u"negate"_qs);
    auto oneWay = std::make_shared<Negating>();
    oneWay->reverses = false;
    const QVariantMap oneWayOptions{
        {kQVValueTransformerBindingOption,
         QVariant::fromValue(std::shared_ptr<QVValueTransformer>(oneWay))}};
    Model model;
    // Observed object, key path, options, the value set, the line logged.
    const std::tuple<QObject *, QString, QVariantMap, int, QString> rows[] = {
        {&model, u"xab"_qs, {{kQVValueTransformerNameBindingOption, u"negate"_qs}}, -7, {}},
        {&model, u"xab"_qs, oneWayOptions, 7,
         u"WARNING: binding \"value\" has value transformer, but it doesn't allow reverse "
         "transformations"_qs},
        {nullptr, u"xab"_qs, {}, 0, u"ERROR: NSObservedObjectKey was nil for binding \"value\""_qs},
        {&model, QString(), {}, 0, u"ERROR: NSObservedKeyPathKey was nil for binding \"value\""_qs},
    };
    const QtMessageHandler previous = qInstallMessageHandler(recordLog);
    for (const auto &[observed, keyPath, options, expectedXab, expectedLog] : rows) {
        QObject view;
        model.xab = 0;
        logged.clear();
        propagateValue(&view, 7, u"value"_qs); // not bound: nothing
        bind(&view, u"value"_qs, observed, keyPath, options);
        propagateValue(&view, 7, u"value"_qs);
        EXPECT_EQ(model.xab, expectedXab);
        EXPECT_EQ(logged, expectedLog.isNull() ? QStringList() : QStringList{expectedLog});
    }
    qInstallMessageHandler(previous);
    QString failure;
    const auto handler = QVAssertionHandler::setCurrentHandler(
        [&](const char *, const char *, int, const QString &text) { failure = text; });
    propagateValue(&model, 7, QString());
    QVAssertionHandler::setCurrentHandler(handler);
    EXPECT_EQ(failure, u"Invalid parameter not satisfying: binding != nil"_qs);
}

TEST(QObjectQVExtras, PropertiesWithPrefixOrFirstOccurringSuffix)
{
    const Model model;
    const Plain plain;
    const auto found = [&](const QString &prefix, const QString &suffix) {
        return propertiesWithPrefix(&model, prefix, suffix).value_or(QSet<QString>{u"nil"_qs});
    };
    EXPECT_EQ(found(u"ab"_qs, QString()), (QSet<QString>{u"abab"_qs, u"abc"_qs}));
    EXPECT_EQ(found(QString(), u"ab"_qs), QSet<QString>{u"xab"_qs});
    EXPECT_EQ(found(u"x"_qs, u"c"_qs), (QSet<QString>{u"xab"_qs, u"abc"_qs}));
    EXPECT_EQ(found(QString(), u"abcd"_qs), QSet<QString>());
    EXPECT_EQ(found(QString(), QString()), QSet<QString>());
    EXPECT_FALSE(propertiesWithPrefix(&plain, u"ab"_qs, QString()).has_value());
    EXPECT_EQ(classIntrospection(&model).value(u"methods"_qs).toStringList(),
              QStringList{u"xabChanged()"_qs});
}

#include "QObject+QVExtras_test.moc"
