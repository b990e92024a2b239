#pragma once
// Target of "Check for Updates…". On Linux the package manager updates the application, so
// the check says so, or opens the release page when one was configured at build time.

#include <QObject>

class Updater : public QObject
{
    Q_OBJECT

public:
    static Updater *sharedUpdater();

    // The release page set at build time (CXF_RELEASES_URL), or empty.
    static QString releasesUrl();

public Q_SLOTS:
    void checkForUpdates();

private:
    using QObject::QObject;
};
