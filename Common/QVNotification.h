#pragma once
// A notification record (name, sending object, user info) and a dump of it to the log, for
// debugging.

#include <QPointer>
#include <QString>
#include <QVariantMap>

class QObject;

struct QVNotification {
    QString name;
    QPointer<QObject> object;
    QVariantMap userInfo;
};

// Logs "QVLogNotification(nil)" for a null notification, else four lines: "Notification:",
// "name = <name>", "object = <object>", "userInfo = <user info>", the object and the user info
// as QDebug writes them.
void QVLogNotification(const QVNotification *notification);
