#pragma once
// The user's preferences: a QSettings store with a registration domain of defaults, typed
// accessors, and key-value observation. Observers hear every change of a stored value,
// whoever makes it: this object, another UserDefaults on the same file, or another process
// writing the settings file (noticed through a file watcher).

#include "KeyValueObserving.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QSettings>
#include <QTimer>
#include <QVariantMap>

class QFileSystemWatcher;

class UserDefaults : public QObject
{
    Q_OBJECT

public:
    // The application's shared instance: ~/.config/cxf-compare/cxf-compare.conf on Linux.
    static UserDefaults *standardUserDefaults();

    // An instance over a given settings file (INI format), for tools and tests.
    explicit UserDefaults(const QString &settingsFile, QObject *parent = nullptr);
    ~UserDefaults() override;

    QString settingsFile() const;

    // Values returned for keys the user has not set. Later registrations add to earlier ones.
    void registerDefaults(const QVariantMap &defaults);

    QVariant objectForKey(const QString &key) const;
    float floatForKey(const QString &key) const;
    double doubleForKey(const QString &key) const;
    int integerForKey(const QString &key) const;
    bool boolForKey(const QString &key) const;
    QString stringForKey(const QString &key) const;

    void setObject(const QVariant &value, const QString &key);
    void setFloat(float value, const QString &key);
    void setDouble(double value, const QString &key);
    void setInteger(int value, const QString &key);
    void setBool(bool value, const QString &key);
    void removeObjectForKey(const QString &key);

    // Writes pending changes and reloads what others wrote; observers hear what changed.
    bool synchronize();

    // After a change (each is written at once): AccessError when the settings file could not
    // be written, so the change lasts only as long as this process.
    QSettings::Status status() const { return m_settings->status(); }

    void addObserver(KeyValueObserver *observer, const QString &keyPath,
                     KeyValueObservingOptions options, void *context);
    // Removes the observations of keyPath by observer (with any context).
    void removeObserver(KeyValueObserver *observer, const QString &keyPath);
    // Removes only the observation with that context.
    void removeObserver(KeyValueObserver *observer, const QString &keyPath, void *context);

private:
    struct Observation {
        KeyValueObserver *observer;
        KeyValueObservingOptions options;
        void *context;
    };

    UserDefaults(QSettings *settings, QObject *parent);
    void startWatching();
    void rewatchSoon();
    void reloadFromDisk();
    void store(const QString &key, const QVariant &value);
    void notify(const QString &key, const QVariant &oldValue, const QVariant &newValue, bool prior);

    QSettings *m_settings;
    QVariantMap m_registered;
    QHash<QString, QList<Observation>> m_observations;
    QHash<QString, QVariant> m_lastSeen; // per observed key, to tell what others changed
    QFileSystemWatcher *m_watcher = nullptr;
    QTimer m_reloadTimer;
};
