#pragma once
// Key-value observation: what an observer is told when an observed value changes.

#include <QFlags>
#include <QString>
#include <QVariant>

class QObject;

enum class KeyValueObservingOption {
    New = 0x01,     // the change carries the new value
    Old = 0x02,     // the change carries the old value
    Initial = 0x04, // notify once at once, when the observer is added
    Prior = 0x08,   // notify also just before the change
};
Q_DECLARE_FLAGS(KeyValueObservingOptions, KeyValueObservingOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(KeyValueObservingOptions)

// The change record. A value that the options did not ask for, or that does not exist (a key
// without a value), is an invalid QVariant.
struct KeyValueChange {
    QVariant newValue;
    QVariant oldValue;
    bool isPrior = false; // sent before the change (Prior option)
};

class KeyValueObserver
{
public:
    virtual ~KeyValueObserver() = default;
    virtual void observeValueForKeyPath(const QString &keyPath, QObject *object,
                                        const KeyValueChange &change, void *context) = 0;
};
