#include "Translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace {

// The application's .qm files lie in share/cxf-compare/translations beside bin/, in the build
// tree as in an installation.
QString applicationTranslationsPath()
{
    return QDir(QCoreApplication::applicationDirPath())
        .absoluteFilePath(QStringLiteral("../share/cxf-compare/translations"));
}

void install(QCoreApplication &app, const QString &name, const QString &path)
{
    auto *translator = new QTranslator(&app);
    if (translator->load(QLocale(), name, QStringLiteral("_"), path))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

} // namespace

void installTranslators(QCoreApplication &app)
{
    install(app, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    install(app, QStringLiteral("cxf-compare"), applicationTranslationsPath());
}
