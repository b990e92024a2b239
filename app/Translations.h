#pragma once
// Loads the translation of the application and Qt's own for the user's locale.

class QCoreApplication;

void installTranslators(QCoreApplication &app);
