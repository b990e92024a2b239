#include "UserDefaults.h"

#include "preferences.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemWatcher>

#include <charconv>

UserDefaults *UserDefaults::standardUserDefaults()
{
    static UserDefaults *shared = new UserDefaults(
        new QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("cxf-compare"),
                      QStringLiteral("cxf-compare")),
        QCoreApplication::instance());
    return shared;
}

UserDefaults::UserDefaults(const QString &settingsFile, QObject *parent)
    : UserDefaults(new QSettings(settingsFile, QSettings::IniFormat), parent)
{
}

UserDefaults::UserDefaults(QSettings *settings, QObject *parent)
    : QObject(parent), m_settings(settings)
{
    m_settings->setParent(this);
    // Writers replace the file (write a copy, then rename), so one change may arrive as
    // several events; gather them and reload once.
    m_reloadTimer.setSingleShot(true);
    m_reloadTimer.setInterval(20);
    connect(&m_reloadTimer, &QTimer::timeout, this, &UserDefaults::reloadFromDisk);
}

UserDefaults::~UserDefaults() = default;

QString UserDefaults::settingsFile() const
{
    return m_settings->fileName();
}

void UserDefaults::registerDefaults(const QVariantMap &defaults)
{
    for (auto it = defaults.cbegin(); it != defaults.cend(); ++it)
        m_registered.insert(it.key(), it.value());
}

QVariant UserDefaults::objectForKey(const QString &key) const
{
    const QVariant stored = m_settings->value(key);
    return stored.isValid() ? stored : m_registered.value(key);
}

float UserDefaults::floatForKey(const QString &key) const
{
    // A text (how the settings file holds every number) is read leniently, as the platform
    // reads a string's float value.
    const QVariant value = objectForKey(key);
    if (value.typeId() != QMetaType::QString)
        return value.toFloat();
    return floatFromStoredText(value.toString().toStdString());
}

double UserDefaults::doubleForKey(const QString &key) const
{
    return objectForKey(key).toDouble();
}

int UserDefaults::integerForKey(const QString &key) const
{
    return objectForKey(key).toInt();
}

bool UserDefaults::boolForKey(const QString &key) const
{
    return objectForKey(key).toBool();
}

QString UserDefaults::stringForKey(const QString &key) const
{
    return objectForKey(key).toString();
}

void UserDefaults::setObject(const QVariant &value, const QString &key)
{
    store(key, value);
}

void UserDefaults::setFloat(float value, const QString &key)
{
    // Kept as the shortest text that reads back as the same float ("2.3", not the widened
    // 2.299999952316284 that QSettings would write), so the file stays readable by people.
    char text[32];
    const auto result = std::to_chars(text, text + sizeof text, value);
    store(key, QString::fromLatin1(text, int(result.ptr - text)));
}

void UserDefaults::setDouble(double value, const QString &key)
{
    store(key, QVariant(value));
}

void UserDefaults::setInteger(int value, const QString &key)
{
    store(key, QVariant(value));
}

void UserDefaults::setBool(bool value, const QString &key)
{
    store(key, QVariant(value));
}

void UserDefaults::removeObjectForKey(const QString &key)
{
    store(key, QVariant());
}

void UserDefaults::store(const QString &key, const QVariant &value)
{
    const QVariant oldValue = objectForKey(key);
    notify(key, oldValue, QVariant(), true);
    if (value.isValid())
        m_settings->setValue(key, value);
    else
        m_settings->remove(key);
    // Written at once, so that other processes (and the command-line tool) see it.
    m_settings->sync();
    const QVariant newValue = objectForKey(key);
    if (m_lastSeen.contains(key))
        m_lastSeen.insert(key, newValue);
    notify(key, oldValue, newValue, false);
}

bool UserDefaults::synchronize()
{
    reloadFromDisk();
    return m_settings->status() == QSettings::NoError;
}

void UserDefaults::reloadFromDisk()
{
    m_settings->sync();
    for (auto it = m_lastSeen.begin(); it != m_lastSeen.end(); ++it) {
        const QVariant current = objectForKey(it.key());
        if (current == it.value())
            continue;
        const QVariant oldValue = it.value();
        it.value() = current;
        notify(it.key(), oldValue, QVariant(), true);
        notify(it.key(), oldValue, current, false);
    }
    rewatchSoon();
}

void UserDefaults::notify(const QString &key, const QVariant &oldValue, const QVariant &newValue,
                          bool prior)
{
    // A copy: an observer may add or remove observations while it is told.
    const QList<Observation> observations = m_observations.value(key);
    for (const Observation &o : observations) {
        if (prior && !(o.options & KeyValueObservingOption::Prior))
            continue;
        KeyValueChange change;
        change.isPrior = prior;
        if (o.options & KeyValueObservingOption::Old)
            change.oldValue = oldValue;
        if (!prior && (o.options & KeyValueObservingOption::New))
            change.newValue = newValue;
        o.observer->observeValueForKeyPath(key, this, change, o.context);
    }
}

void UserDefaults::addObserver(KeyValueObserver *observer, const QString &keyPath,
                               KeyValueObservingOptions options, void *context)
{
    if (!observer)
        return;
    m_observations[keyPath].append({observer, options, context});
    if (!m_lastSeen.contains(keyPath))
        m_lastSeen.insert(keyPath, objectForKey(keyPath));
    startWatching();
    if (options & KeyValueObservingOption::Initial) {
        KeyValueChange change;
        if (options & KeyValueObservingOption::New)
            change.newValue = objectForKey(keyPath);
        observer->observeValueForKeyPath(keyPath, this, change, context);
    }
}

void UserDefaults::removeObserver(KeyValueObserver *observer, const QString &keyPath)
{
    auto it = m_observations.find(keyPath);
    if (it == m_observations.end())
        return;
    it->removeIf([observer](const Observation &o) { return o.observer == observer; });
    if (it->isEmpty()) {
        m_observations.erase(it);
        m_lastSeen.remove(keyPath);
    }
}

void UserDefaults::removeObserver(KeyValueObserver *observer, const QString &keyPath, void *context)
{
    auto it = m_observations.find(keyPath);
    if (it == m_observations.end())
        return;
    it->removeIf(
        [&](const Observation &o) { return o.observer == observer && o.context == context; });
    if (it->isEmpty()) {
        m_observations.erase(it);
        m_lastSeen.remove(keyPath);
    }
}

void UserDefaults::startWatching()
{
    if (m_watcher)
        return;
    m_watcher = new QFileSystemWatcher(this);
    connect(m_watcher, &QFileSystemWatcher::fileChanged, this, [this] { m_reloadTimer.start(); });
    connect(m_watcher, &QFileSystemWatcher::directoryChanged, this,
            [this] { m_reloadTimer.start(); });
    rewatchSoon();
}

// The file may not exist yet, and a writer that renames a new copy into place leaves the
// watcher on the old, deleted file: watch the folder as well, and re-add the file each time.
void UserDefaults::rewatchSoon()
{
    if (!m_watcher)
        return;
    const QFileInfo file(m_settings->fileName());
    QDir().mkpath(file.absolutePath());
    if (!m_watcher->directories().contains(file.absolutePath()))
        m_watcher->addPath(file.absolutePath());
    if (file.exists() && !m_watcher->files().contains(file.absoluteFilePath()))
        m_watcher->addPath(file.absoluteFilePath());
}
