// The real cxf-compare in a real X window (under xvfb-run), read back through its launch probe.
#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>

namespace {

// The probe's lines of one launch with LANG set to `lang`.
QStringList launchProbe(const QString &lang)
{
    QTemporaryDir config;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    env.insert(QStringLiteral("CXF_LAUNCH_PROBE"), QStringLiteral("1"));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
    for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANGUAGE"})
        env.remove(QLatin1String(name));
    env.insert(QStringLiteral("LANG"), lang);
    QProcess app;
    app.setProcessEnvironment(env);
    app.start(QStringLiteral(CXF_COMPARE_EXECUTABLE), {});
    EXPECT_TRUE(app.waitForFinished(60000)) << "the application did not show its window";
    EXPECT_EQ(app.exitCode(), 0) << app.readAllStandardError().toStdString();
    return QString::fromUtf8(app.readAllStandardOutput()).split(QLatin1Char('\n'));
}

TEST(ApplicationWindow, OpensWithItsFieldsAndTheUpdateItem)
{
    const QStringList lines = launchProbe(QStringLiteral("C.UTF-8"));
    SCOPED_TRACE(lines.join(QLatin1Char('\n')).toStdString());
    EXPECT_TRUE(lines.contains(
        QRegularExpression(QStringLiteral("^window: CxF Compare \\| \\d+x\\d+ \\| visible$"))));
    for (const char *field : {"delta_E_tf", "delta_L_tf", "delta_C_tf", "delta_H_tf"})
        EXPECT_TRUE(lines.contains(
            QStringLiteral("field: %1 | read-only | visible").arg(QLatin1String(field))))
            << field;
    EXPECT_TRUE(lines.contains(QStringLiteral("menu[3]: Check for Updates\u2026")));
    EXPECT_TRUE(lines.contains(QRegularExpression(QStringLiteral("^startup-ms: [0-9.]+$"))));
    // Under a German locale the application loads its German translation.
    EXPECT_TRUE(launchProbe(QStringLiteral("de_DE.UTF-8"))
                    .contains(QStringLiteral("menu[3]: Nach Aktualisierungen suchen\u2026")));
}

} // namespace
