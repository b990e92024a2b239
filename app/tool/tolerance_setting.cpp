#include "tolerance_setting.h"

#include "preferences.h"

#include <QSettings>
#include <QString>

float storedDeltaECMCTolerance()
{
    const QSettings settings(QString::fromLatin1(kSettingsOrganization),
                             QString::fromLatin1(kSettingsApplication));
    const QVariant value = settings.value(QString::fromLatin1(kToleranceKey));
    if (!value.isValid())
        return kDefaultTolerance;
    if (value.typeId() != QMetaType::QString)
        return value.toFloat();
    return floatFromStoredText(value.toString().toStdString());
}
