#pragma once
// Conveniences every object answers: an emptiness test, bulk key-value observation of
// QObject properties and user defaults, pushing a value back through a binding, and listing
// what a class declares.
//
// Stand-ins: observation is UserDefaults' own key-value observation, or for any other QObject
// the NOTIFY signal of the property named by the key path (QMetaProperty::notifySignal); setting
// a value by key path is QObject::setProperty along the path; binding info is kept on the bound
// object in a dynamic property; introspection reads the class's QMetaObject.

#include "KeyValueObserving.h"

#include <QList>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantHash>
#include <QVariantMap>

#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <optional>
#include <type_traits>

class QObject;

// isNotEmpty: false for a null pointer, the null object (a null or invalid QVariant) and
// anything whose count or length is 0; true for everything else, numbers included.
inline bool isNotEmpty(std::nullptr_t)
{
    return false;
}
bool isNotEmpty(const QVariant &value);
bool isNotEmpty(const char *string);

template <class T> bool isNotEmpty(const T &value)
{
    if constexpr (std::is_pointer_v<T>) {
        return value != nullptr && isNotEmpty(*value);
    } else if constexpr (requires {
                             {
                                 value.size()
                                 } -> std::convertible_to<std::size_t>;
                         }) {
        return value.size() != 0; // the count of a container, the length of a string
    } else if constexpr (requires {
                             {
                                 value.length()
                                 } -> std::convertible_to<std::size_t>;
                         }) {
        return value.length() != 0;
    } else {
        return true;
    }
}

// ---------------------------------------------------------------------------------------------
// Key-value observation in bulk.
//
// An observed object is either a UserDefaults (a key path is a default's name) or any QObject
// whose property of that name has a NOTIFY signal: the observer is told after each change, with
// the old and new values as the options ask (Qt's notify signals come after the change, so the
// Prior option is not honoured for properties). Removing an observation that was never added
// does nothing.

// A collection of key paths: a list yields its elements, a map or hash its keys. Converts
// implicitly, so that a registered-defaults map can be handed over as it is.
class QVKeyPaths
{
public:
    QVKeyPaths(const QStringList &list) : m_keyPaths(list) {}
    QVKeyPaths(std::initializer_list<QString> list) : m_keyPaths(list) {}
    QVKeyPaths(const QVariantMap &map) : m_keyPaths(map.keys()) {}
    QVKeyPaths(const QVariantHash &hash) : m_keyPaths(hash.keys()) {}
    QVKeyPaths(const QSet<QString> &set) : m_keyPaths(set.values()) {}

    const QStringList &keyPaths() const { return m_keyPaths; }

private:
    QStringList m_keyPaths;
};

// The options the register functions use: new and old values (the constant 3).
inline constexpr KeyValueObservingOptions kQVRegisterObservingOptions =
    KeyValueObservingOption::New | KeyValueObservingOption::Old;

void addObserver(QObject *self, KeyValueObserver *observer, const QString &keyPath,
                 KeyValueObservingOptions options, void *context);
void removeObserver(QObject *self, KeyValueObserver *observer, const QString &keyPath);
// Each key path of the collection in order, with the options and context unchanged.
void addObserver(QObject *self, KeyValueObserver *observer, const QVKeyPaths &keyPaths,
                 KeyValueObservingOptions options, void *context);
void removeObserver(QObject *self, KeyValueObserver *observer, const QVKeyPaths &keyPaths);

// An observation list: each inner list holds the observed QObject at index 0
// (QVariant::fromValue(object)) and the key paths to observe on it after it. An inner list
// with fewer than two elements observes nothing.
using QVObservationList = QList<QVariantList>;

// An observer that names what it observes. By default it names nothing.
class QVKeyValueObserver : public KeyValueObserver
{
public:
    virtual std::optional<QVObservationList> objectsAndKeyPathsToObserve() const
    {
        return std::nullopt;
    }
};

// Observes (stops observing) every object and key path self lists, self being the observer,
// with options 3 and a null context. An observer that is no QVKeyValueObserver lists nothing.
void registerObservedObjectsAndKeyPaths(KeyValueObserver *self);
void unregisterObservedObjectsAndKeyPaths(KeyValueObserver *self);

// Observes each key of the standard user defaults with options 3 and the standard user
// defaults as context, so an observer can tell a defaults change by its context. The same
// collection must be handed to unregisterObservedUserDefaults before self goes.
void registerObservedUserDefaults(KeyValueObserver *self, const QVKeyPaths &keyPaths);
void unregisterObservedUserDefaults(KeyValueObserver *self, const QVKeyPaths &keyPaths);

// Sets the value at a key path: a default of a UserDefaults, or a chain of QObject properties
// ("a.b" is property b of the object held in property a). False when a link or the last
// property is missing or does not take the value.
bool setValue(QObject *self, const QVariant &value, const QString &keyPath);

// ---------------------------------------------------------------------------------------------
// Bindings: what a view property is bound to, so that an edit in the view can be pushed back to
// the model. Qt has no such registry; the binding info is kept on the bound object.

// Turns values into other values, and, if it allows, back.
class QVValueTransformer
{
public:
    virtual ~QVValueTransformer() = default;
    virtual bool allowsReverseTransformation() const { return true; }
    virtual QVariant transformedValue(const QVariant &value) const = 0;
    // By default the value itself.
    virtual QVariant reverseTransformedValue(const QVariant &value) const { return value; }

    // The registry of named transformers.
    static void setValueTransformer(std::shared_ptr<QVValueTransformer> transformer,
                                    const QString &name);
    static std::shared_ptr<QVValueTransformer> valueTransformerForName(const QString &name);
};

// Binding options: a transformer (QVariant::fromValue(std::shared_ptr<QVValueTransformer>)), or
// a transformer's registered name.
inline const QString kQVValueTransformerBindingOption = QStringLiteral("valueTransformer");
inline const QString kQVValueTransformerNameBindingOption = QStringLiteral("valueTransformerName");

struct QVBindingInfo {
    QPointer<QObject> observedObject;
    QString observedKeyPath; // null when missing
    QVariantMap options;
};

void bind(QObject *self, const QString &binding, QObject *observable, const QString &keyPath,
          const QVariantMap &options = QVariantMap());
void unbind(QObject *self, const QString &binding);
// The info of a bound binding; nothing when it is not bound.
std::optional<QVBindingInfo> infoForBinding(const QObject *self, const QString &binding);

// Pushes value through the binding to the bound model: reverse-transformed when the options
// name a transformer that allows it, then set at the observed key path of the observed object.
// A null binding name is reported to the assertion handler; an unbound binding does nothing;
// a transformer without reverse transformation, a missing observed object or key path is
// logged ("WARNING: binding ...", "ERROR: NSObservedObjectKey was nil ...").
void propagateValue(QObject *self, const QVariant &value, const QString &binding);

// ---------------------------------------------------------------------------------------------
// What a class declares, from its QMetaObject, its own members only (those from
// propertyOffset() and methodOffset() on, not its superclasses'), in declaration order.

// {"ivars": the receiver's dynamic properties (the values an object holds under names of its
// own: QObject lists no data members), "properties": declared properties, "methods": the
// signatures of its signals, slots and invokable methods}, each a QStringList.
QVariantMap classIntrospection(const QObject *self);

// The declared properties whose name starts with prefix or ends with suffix (either test;
// an empty argument tests nothing). Nothing (std::nullopt) when the class declares no
// properties. The suffix is tested on its first occurrence only, on purpose: with the suffix
// "ab", "xab" matches and "abab" does not.
std::optional<QSet<QString>> propertiesWithPrefix(const QObject *self, const QString &prefix,
                                                  const QString &suffix);
