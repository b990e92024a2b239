#include "QObject+QVExtras.h"

#include "QVAssertionHandler.h"
#include "UserDefaults.h"

#include <QAssociativeIterable>
#include <QByteArray>
#include <QHash>
#include <QLoggingCategory>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QObject>
#include <QSequentialIterable>

#include <cstring>

bool isNotEmpty(const char *string)
{
    return string != nullptr && std::strlen(string) != 0;
}

bool isNotEmpty(const QVariant &value)
{
    // A null or invalid variant (a null pointer included) is the null object.
    if (!value.isValid() || value.isNull())
        return false;
    switch (value.typeId()) {
    case QMetaType::QString:
        return !value.toString().isEmpty();
    case QMetaType::QByteArray:
        return !value.toByteArray().isEmpty();
    default:
        break;
    }
    if (value.canConvert<QAssociativeIterable>())
        return value.value<QAssociativeIterable>().size() != 0;
    if (value.canConvert<QSequentialIterable>())
        return value.value<QSequentialIterable>().size() != 0;
    return true; // numbers and other objects without a count or length
}

// ---------------------------------------------------------------------------------------------
// Observation

namespace {

Q_LOGGING_CATEGORY(lcExtras, "qv.extras", QtInfoMsg)

QObject *objectFromVariant(const QVariant &value)
{
    return value.value<QObject *>();
}

} // namespace

// One observation of a QObject property, a child of the observed object, so that it goes with
// it. Tells the observer after every emission of the property's notify signal.
class QVPropertyObservation : public QObject
{
    Q_OBJECT

public:
    QVPropertyObservation(QObject *observed, const QMetaProperty &property,
                          KeyValueObserver *observer, const QString &keyPath,
                          KeyValueObservingOptions options, void *context)
        : QObject(observed), m_property(property), m_observer(observer), m_keyPath(keyPath),
          m_options(options), m_context(context), m_lastValue(property.read(observed))
    {
        const int slot = staticMetaObject.indexOfSlot("propertyChanged()");
        QObject::connect(observed, property.notifySignal(), this, staticMetaObject.method(slot));
    }

    KeyValueObserver *observer() const { return m_observer; }
    const QString &keyPath() const { return m_keyPath; }

    void tellInitial()
    {
        KeyValueChange change;
        if (m_options & KeyValueObservingOption::New)
            change.newValue = m_lastValue;
        m_observer->observeValueForKeyPath(m_keyPath, parent(), change, m_context);
    }

public Q_SLOTS:
    void propertyChanged()
    {
        const QVariant newValue = m_property.read(parent());
        KeyValueChange change;
        if (m_options & KeyValueObservingOption::Old)
            change.oldValue = m_lastValue;
        if (m_options & KeyValueObservingOption::New)
            change.newValue = newValue;
        m_lastValue = newValue;
        m_observer->observeValueForKeyPath(m_keyPath, parent(), change, m_context);
    }

private:
    QMetaProperty m_property;
    KeyValueObserver *m_observer;
    QString m_keyPath;
    KeyValueObservingOptions m_options;
    void *m_context;
    QVariant m_lastValue;
};

void addObserver(QObject *self, KeyValueObserver *observer, const QString &keyPath,
                 KeyValueObservingOptions options, void *context)
{
    if (!self || !observer)
        return;
    if (auto *defaults = qobject_cast<UserDefaults *>(self)) {
        defaults->addObserver(observer, keyPath, options, context);
        return;
    }
    const QMetaObject *meta = self->metaObject();
    const QMetaProperty property = meta->property(meta->indexOfProperty(keyPath.toUtf8()));
    if (!property.isValid() || !property.hasNotifySignal()) {
        qCWarning(lcExtras).noquote() << QStringLiteral("%1 has no observable property \"%2\"")
                                             .arg(QLatin1String(meta->className()), keyPath);
        return;
    }
    auto *observation =
        new QVPropertyObservation(self, property, observer, keyPath, options, context);
    if (options & KeyValueObservingOption::Initial)
        observation->tellInitial();
}

void removeObserver(QObject *self, KeyValueObserver *observer, const QString &keyPath)
{
    if (!self)
        return;
    if (auto *defaults = qobject_cast<UserDefaults *>(self)) {
        defaults->removeObserver(observer, keyPath);
        return;
    }
    const auto observations =
        self->findChildren<QVPropertyObservation *>(Qt::FindDirectChildrenOnly);
    for (QVPropertyObservation *observation : observations) {
        if (observation->observer() == observer && observation->keyPath() == keyPath)
            delete observation;
    }
}

void addObserver(QObject *self, KeyValueObserver *observer, const QVKeyPaths &keyPaths,
                 KeyValueObservingOptions options, void *context)
{
    for (const QString &keyPath : keyPaths.keyPaths())
        addObserver(self, observer, keyPath, options, context);
}

void removeObserver(QObject *self, KeyValueObserver *observer, const QVKeyPaths &keyPaths)
{
    for (const QString &keyPath : keyPaths.keyPaths())
        removeObserver(self, observer, keyPath);
}

namespace {

template <class Apply> void forEachObservedKeyPath(KeyValueObserver *self, Apply apply)
{
    const auto *listing = dynamic_cast<const QVKeyValueObserver *>(self);
    if (!listing)
        return;
    const std::optional<QVObservationList> list = listing->objectsAndKeyPathsToObserve();
    if (!list)
        return;
    for (const QVariantList &inner : *list) {
        if (inner.size() < 2)
            continue;
        QObject *observed = objectFromVariant(inner.at(0));
        for (qsizetype i = 1; i < inner.size(); ++i)
            apply(observed, inner.at(i).toString());
    }
}

} // namespace

void registerObservedObjectsAndKeyPaths(KeyValueObserver *self)
{
    forEachObservedKeyPath(self, [self](QObject *observed, const QString &keyPath) {
        addObserver(observed, self, keyPath, kQVRegisterObservingOptions, nullptr);
    });
}

void unregisterObservedObjectsAndKeyPaths(KeyValueObserver *self)
{
    forEachObservedKeyPath(self, [self](QObject *observed, const QString &keyPath) {
        removeObserver(observed, self, keyPath);
    });
}

void registerObservedUserDefaults(KeyValueObserver *self, const QVKeyPaths &keyPaths)
{
    UserDefaults *defaults = UserDefaults::standardUserDefaults();
    for (const QString &key : keyPaths.keyPaths())
        defaults->addObserver(self, key, kQVRegisterObservingOptions, defaults);
}

void unregisterObservedUserDefaults(KeyValueObserver *self, const QVKeyPaths &keyPaths)
{
    UserDefaults *defaults = UserDefaults::standardUserDefaults();
    for (const QString &key : keyPaths.keyPaths())
        defaults->removeObserver(self, key);
}

bool setValue(QObject *self, const QVariant &value, const QString &keyPath)
{
    if (auto *defaults = qobject_cast<UserDefaults *>(self)) {
        defaults->setObject(value, keyPath);
        return true;
    }
    const QStringList keys = keyPath.split(QLatin1Char('.'));
    QObject *object = self;
    for (qsizetype i = 0; object && i + 1 < keys.size(); ++i)
        object = objectFromVariant(object->property(keys.at(i).toUtf8().constData()));
    if (!object)
        return false;
    const QByteArray last = keys.last().toUtf8();
    if (object->metaObject()->indexOfProperty(last.constData()) < 0)
        return false;
    return object->setProperty(last.constData(), value);
}

// ---------------------------------------------------------------------------------------------
// Bindings

namespace {

using Bindings = QHash<QString, QVBindingInfo>;
const char *const kBindingsProperty = "qvBindings";

QHash<QString, std::shared_ptr<QVValueTransformer>> &transformerRegistry()
{
    static QHash<QString, std::shared_ptr<QVValueTransformer>> registry;
    return registry;
}

// Nil or the null object.
bool isNilOrNull(const QVariant &value)
{
    return !value.isValid() || value.isNull();
}

} // namespace

void QVValueTransformer::setValueTransformer(std::shared_ptr<QVValueTransformer> transformer,
                                             const QString &name)
{
    if (transformer)
        transformerRegistry().insert(name, std::move(transformer));
    else
        transformerRegistry().remove(name);
}

std::shared_ptr<QVValueTransformer> QVValueTransformer::valueTransformerForName(const QString &name)
{
    return transformerRegistry().value(name);
}

void bind(QObject *self, const QString &binding, QObject *observable, const QString &keyPath,
          const QVariantMap &options)
{
    Bindings bindings = self->property(kBindingsProperty).value<Bindings>();
    bindings.insert(binding, QVBindingInfo{observable, keyPath, options});
    self->setProperty(kBindingsProperty, QVariant::fromValue(bindings));
}

void unbind(QObject *self, const QString &binding)
{
    Bindings bindings = self->property(kBindingsProperty).value<Bindings>();
    bindings.remove(binding);
    self->setProperty(kBindingsProperty,
                      bindings.isEmpty() ? QVariant() : QVariant::fromValue(bindings));
}

std::optional<QVBindingInfo> infoForBinding(const QObject *self, const QString &binding)
{
    const Bindings bindings = self->property(kBindingsProperty).value<Bindings>();
    const auto it = bindings.constFind(binding);
    if (it == bindings.cend())
        return std::nullopt;
    return *it;
}

void propagateValue(QObject *self, const QVariant &value, const QString &binding)
{
    const QString function = QString::fromUtf8(Q_FUNC_INFO);
    if (binding.isNull()) {
        QVAssertionHandler::handleFailureInFunction(
            Q_FUNC_INFO, __FILE__, __LINE__,
            QStringLiteral("Invalid parameter not satisfying: %1").arg(u"binding != nil"));
        return;
    }
    const std::optional<QVBindingInfo> info = infoForBinding(self, binding);
    if (!info)
        return;

    QVariant propagated = value;
    if (!info->options.isEmpty()) {
        auto transformer = info->options.value(kQVValueTransformerBindingOption)
                               .value<std::shared_ptr<QVValueTransformer>>();
        if (!transformer) {
            const QVariant name = info->options.value(kQVValueTransformerNameBindingOption);
            if (!isNilOrNull(name))
                transformer = QVValueTransformer::valueTransformerForName(name.toString());
        }
        if (transformer) {
            if (transformer->allowsReverseTransformation())
                propagated = transformer->reverseTransformedValue(value);
            else
                qCWarning(lcExtras).noquote()
                    << QStringLiteral("WARNING: binding \"%1\" has value transformer, but it "
                                      "doesn't allow reverse transformations in %2")
                           .arg(binding, function);
        }
    }
    if (!info->observedObject) {
        qCWarning(lcExtras).noquote()
            << QStringLiteral("ERROR: NSObservedObjectKey was nil for binding \"%1\" in %2")
                   .arg(binding, function);
        return;
    }
    if (info->observedKeyPath.isNull()) {
        qCWarning(lcExtras).noquote()
            << QStringLiteral("ERROR: NSObservedKeyPathKey was nil for binding \"%1\" in %2")
                   .arg(binding, function);
        return;
    }
    setValue(info->observedObject, propagated, info->observedKeyPath);
}

// ---------------------------------------------------------------------------------------------
// Introspection

namespace {

QStringList ownPropertyNames(const QMetaObject *meta)
{
    QStringList names;
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i)
        names << QString::fromUtf8(meta->property(i).name());
    return names;
}

} // namespace

QVariantMap classIntrospection(const QObject *self)
{
    const QMetaObject *meta = self->metaObject();
    QStringList ivars;
    const QList<QByteArray> dynamicNames = self->dynamicPropertyNames();
    for (const QByteArray &name : dynamicNames)
        ivars << QString::fromUtf8(name);
    QStringList methods;
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i)
        methods << QString::fromUtf8(meta->method(i).methodSignature());
    return QVariantMap{{QStringLiteral("ivars"), ivars},
                       {QStringLiteral("properties"), ownPropertyNames(meta)},
                       {QStringLiteral("methods"), methods}};
}

std::optional<QSet<QString>> propertiesWithPrefix(const QObject *self, const QString &prefix,
                                                  const QString &suffix)
{
    const QStringList names = ownPropertyNames(self->metaObject());
    if (names.isEmpty())
        return std::nullopt;
    QSet<QString> found;
    for (const QString &name : names) {
        if (isNotEmpty(prefix) && name.indexOf(prefix) == 0)
            found.insert(name);
        // The first occurrence only, on purpose.
        const qsizetype first = isNotEmpty(suffix) ? name.indexOf(suffix) : -1;
        if (first >= 0 && first == name.size() - suffix.size())
            found.insert(name);
    }
    return found;
}

#include "QObject+QVExtras.moc"
