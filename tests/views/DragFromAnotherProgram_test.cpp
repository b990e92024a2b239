// A real drag from another program onto the reference swatch of the real application, under a
// virtual X server: the pointer is driven with xdotool from the drag source's window onto
// dragView1, and the application's swatch probe reports the caption and sample 1.
#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QPoint>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>

#include <functional>

namespace {

// The first line of the process's output that starts with `prefix`, waiting up to `ms` and
// calling `meanwhile` between looks.
QString awaitLine(QProcess &process, const QString &prefix, int ms,
                  const std::function<void()> &meanwhile = {})
{
    QDeadlineTimer deadline(ms);
    while (!deadline.hasExpired()) {
        while (process.canReadLine()) {
            const QString line = QString::fromUtf8(process.readLine()).trimmed();
            if (line.startsWith(prefix))
                return line;
        }
        process.waitForReadyRead(200);
        if (meanwhile)
            meanwhile();
    }
    return {};
}

QPoint centreOf(const QString &geometryLine)
{
    const QStringList f =
        geometryLine.section(QLatin1Char(':'), 1).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return f.size() == 4 ? QPoint(f[0].toInt() + f[2].toInt() / 2, f[1].toInt() + f[3].toInt() / 2)
                         : QPoint(-1, -1);
}

void xdotool(const QStringList &arguments)
{
    ASSERT_EQ(QProcess::execute(QStringLiteral("xdotool"), arguments), 0)
        << arguments.join(QLatin1Char(' ')).toStdString();
}

TEST(DragFromAnotherProgram, FileDroppedOnTheReferenceSwatchBecomesSample1)
{
    QTemporaryDir config;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    env.insert(QStringLiteral("CXF_SWATCH_PROBE"), QStringLiteral("1"));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
    QProcess app, source;
    app.setProcessEnvironment(env);
    source.setProcessEnvironment(env);
    app.start(QStringLiteral(CXF_COMPARE_EXECUTABLE), {});
    const QPoint target = centreOf(awaitLine(app, QStringLiteral("dragView1-geometry:"), 30000));
    ASSERT_GE(target.x(), 0) << "the application did not show its swatch";
    source.start(QStringLiteral(DRAG_SOURCE_EXECUTABLE),
                 {QStringLiteral(CXF_SOURCE_DIR "/data/samples/sample-a.cxf")});
    const QPoint from = centreOf(awaitLine(source, QStringLiteral("drag-source-geometry:"), 30000));
    ASSERT_GE(from.x(), 0) << "the drag source did not show its window";

    xdotool({QStringLiteral("mousemove"), QString::number(from.x()), QString::number(from.y())});
    xdotool({QStringLiteral("mousedown"), QStringLiteral("1")});
    for (int step = 1; step <= 20; ++step) {
        const QPoint p = from + (target - from) * step / 20;
        xdotool({QStringLiteral("mousemove"), QString::number(p.x()), QString::number(p.y())});
        QThread::msleep(50);
    }
    xdotool({QStringLiteral("mouseup"), QStringLiteral("1")});

    // The source answers the target's request for the data only once it sees another event
    // after the drop: nudge the pointer while waiting.
    int nudge = 0;
    const auto moveAbout = [&] {
        const QPoint p = target + QPoint(++nudge % 2, 0);
        QProcess::execute(
            QStringLiteral("xdotool"),
            {QStringLiteral("mousemove"), QString::number(p.x()), QString::number(p.y())});
    };
    EXPECT_EQ(awaitLine(app, QStringLiteral("dragView1:"), 20000, moveAbout),
              QStringLiteral("dragView1: D50 L*a*b*: 49.020, 43.200, 36.430 | "
                             "Sample A \u2013\u2013 one patch | sample 1 defined"));
    source.kill();
    app.kill();
    source.waitForFinished();
    app.waitForFinished();
}

} // namespace
