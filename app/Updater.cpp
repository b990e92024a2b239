#include "Updater.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QUrl>

Updater *Updater::sharedUpdater()
{
    static Updater *shared = new Updater(QCoreApplication::instance());
    return shared;
}

QString Updater::releasesUrl()
{
    return QStringLiteral(CXF_RELEASES_URL);
}

void Updater::checkForUpdates()
{
    const QString url = releasesUrl();
    if (!url.isEmpty() && QDesktopServices::openUrl(QUrl(url)))
        return;
    QMessageBox::information(
        QApplication::activeWindow(), tr("Check for Updates"),
        tr("This is %1 %2.\n\nUpdates to %1 come from your system's package manager: "
           "use it to see whether a newer version is available.")
            .arg(QCoreApplication::applicationName(), QCoreApplication::applicationVersion()));
}
