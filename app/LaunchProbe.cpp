#include "LaunchProbe.h"

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <ctime>
#include <unistd.h>

namespace {

// Milliseconds since this process started, from the start time the kernel records.
double millisecondsSinceProcessStart()
{
    QFile stat(QStringLiteral("/proc/self/stat"));
    if (!stat.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray line = stat.readAll();
    // Field 22 (starttime, in clock ticks since boot); fields after the command's ')' start at 3.
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    if (fields.size() < 20)
        return -1;
    const double startTicks = fields.at(19).toDouble();
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    const double nowMs = double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
    return nowMs - startTicks * 1e3 / double(sysconf(_SC_CLK_TCK));
}

void print(const QString &line)
{
    std::fputs(line.toUtf8().constData(), stdout);
    std::fputc('\n', stdout);
}

void describe(QMainWindow *window)
{
    print(QStringLiteral("window: %1 | %2x%3 | %4")
              .arg(window->windowTitle())
              .arg(window->width())
              .arg(window->height())
              .arg(window->isVisible() ? QStringLiteral("visible") : QStringLiteral("hidden")));
    const QList<QLineEdit *> fields = window->findChildren<QLineEdit *>();
    for (const QLineEdit *field : fields)
        print(
            QStringLiteral("field: %1 | %2 | %3")
                .arg(field->objectName(),
                     field->isReadOnly() ? QStringLiteral("read-only") : QStringLiteral("editable"),
                     field->isVisible() ? QStringLiteral("visible") : QStringLiteral("hidden")));
    const QList<QAction *> menus = window->menuBar()->actions();
    if (!menus.isEmpty() && menus.first()->menu()) {
        const QList<QAction *> items = menus.first()->menu()->actions();
        for (int i = 0; i < items.size(); ++i)
            print(QStringLiteral("menu[%1]: %2")
                      .arg(i)
                      .arg(items.at(i)->isSeparator() ? QStringLiteral("-") : items.at(i)->text()));
    }
}

class FirstPaintWatcher : public QObject
{
public:
    explicit FirstPaintWatcher(QMainWindow *window) : QObject(window), m_window(window) {}

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            QTimer::singleShot(0, this, [this] { report(); }); // after this paint is done
        }
        return false;
    }

private:
    void report()
    {
        print(QStringLiteral("startup-ms: %1").arg(millisecondsSinceProcessStart(), 0, 'f', 1));
        describe(m_window);
        const QString screenshot = qEnvironmentVariable("CXF_LAUNCH_PROBE_SCREENSHOT");
        if (!screenshot.isEmpty())
            m_window->grab().save(screenshot);
        std::fflush(stdout);
        QCoreApplication::quit();
    }

    QMainWindow *m_window;
};

} // namespace

void probeLaunchWhenShown(QMainWindow *window)
{
    if (!qEnvironmentVariableIsSet("CXF_LAUNCH_PROBE"))
        return;
    window->installEventFilter(new FirstPaintWatcher(window));
}
