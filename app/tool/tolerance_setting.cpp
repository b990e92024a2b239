#include "tolerance_setting.h"

#include "preferences.h"

#include <QSettings>
#include <QString>

float storedDeltaECMCTolerance()
{
    const QSettings settings(QString::fromLatin1(kSettingsOrganization),
                             QString::fromLatin1(kSettingsApplication));
    return settings.value(QString::fromLatin1(kToleranceKey), kDefaultTolerance).toFloat();
}
