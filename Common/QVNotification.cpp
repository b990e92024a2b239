#include "QVNotification.h"

#include <QDebug>
#include <QLoggingCategory>
#include <QObject>

namespace {

Q_LOGGING_CATEGORY(lcNotification, "qv.notification", QtInfoMsg)

template <class T> QString described(const T &value)
{
    QString text;
    QDebug(&text).nospace().noquote() << value;
    return text;
}

} // namespace

void QVLogNotification(const QVNotification *notification)
{
    if (!notification) {
        qCInfo(lcNotification, "QVLogNotification(nil)");
        return;
    }
    qCInfo(lcNotification, "Notification:");
    qCInfo(lcNotification).noquote() << QStringLiteral("name = ") + notification->name;
    qCInfo(lcNotification).noquote()
        << QStringLiteral("object = ") + described(notification->object.data());
    qCInfo(lcNotification).noquote()
        << QStringLiteral("userInfo = ") + described(notification->userInfo);
}
