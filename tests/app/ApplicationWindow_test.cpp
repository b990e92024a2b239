// Starts the real cxf-compare executable in a real X window (the test runs under xvfb-run)
// and reads back what it shows through its launch probe.
#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>

namespace {

TEST(ApplicationWindow, OpensWithItsFieldsAndTheUpdateItem)
{
    QTemporaryDir config;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    env.insert(QStringLiteral("CXF_LAUNCH_PROBE"), QStringLiteral("1"));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
    QProcess app;
    app.setProcessEnvironment(env);
    app.start(QStringLiteral(CXF_COMPARE_EXECUTABLE), {});
    ASSERT_TRUE(app.waitForStarted(10000));
    ASSERT_TRUE(app.waitForFinished(60000)) << "the application did not show its window";
    EXPECT_EQ(app.exitCode(), 0) << app.readAllStandardError().toStdString();

    const QString out = QString::fromUtf8(app.readAllStandardOutput());
    const QStringList lines = out.split(QLatin1Char('\n'));
    SCOPED_TRACE(out.toStdString());
    EXPECT_TRUE(lines.contains(
        QRegularExpression(QStringLiteral("^window: CxF Compare \\| \\d+x\\d+ \\| visible$"))));
    for (const char *field : {"delta_E_tf", "delta_L_tf", "delta_C_tf", "delta_H_tf"})
        EXPECT_TRUE(lines.contains(
            QStringLiteral("field: %1 | read-only | visible").arg(QLatin1String(field))))
            << field;
    EXPECT_TRUE(lines.contains(QStringLiteral("menu[3]: Check for Updates\u2026")));
    EXPECT_TRUE(lines.contains(QRegularExpression(QStringLiteral("^startup-ms: [0-9.]+$"))));
}

// Under a German locale the application loads its German translation.
TEST(ApplicationWindow, SpeaksTheUsersLanguage)
{
    QTemporaryDir config;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("CXF_LAUNCH_PROBE"), QStringLiteral("1"));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
    for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANGUAGE"})
        env.remove(QLatin1String(name));
    env.insert(QStringLiteral("LANG"), QStringLiteral("de_DE.UTF-8"));
    QProcess app;
    app.setProcessEnvironment(env);
    app.start(QStringLiteral(CXF_COMPARE_EXECUTABLE), {});
    ASSERT_TRUE(app.waitForFinished(60000));
    const QString out = QString::fromUtf8(app.readAllStandardOutput());
    EXPECT_TRUE(out.contains(QStringLiteral("menu[3]: Nach Aktualisierungen suchen\u2026")))
        << out.toStdString();
}

} // namespace
