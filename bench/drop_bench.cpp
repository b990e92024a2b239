// One drop of a generated CxF project on the real window, to the result shown: the main window
// as the application builds it (offscreen), a file-URL drop sent to dragView2 with
// QApplication::sendEvent after a sample on dragView1, then the pending events (the repaint)
// processed. Prints the first drop in the process and the median of later ones for a project
// of 1,500 and one of 10,000 patches (36 points each), in wall and in CPU time.
//
//   drop_bench [drops [patches...]]   (default 15 drops each of 1500 and 10000 patches; run
//                                      one size alone for its first drop in a fresh process)
#include "AppDelegate.h"
#include "BkgndColorView.h"
#include "MainInterface.h"
#include "MemoryTuning.h"
#include "cxf_project.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFile>
#include <QMainWindow>
#include <QMimeData>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

namespace {

QString writeProject(const QTemporaryDir &dir, int patches)
{
    const QString path = dir.filePath(QStringLiteral("project-%1.cxf").arg(patches));
    QFile file(path);
    const std::string text = generateProject(patches, 36);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(text.data(), static_cast<qint64>(text.size())) !=
            static_cast<qint64>(text.size()))
        std::abort();
    return path;
}

// CPU time of the process so far, in milliseconds: on a shared machine it tells what the wall
// time does not.
double cpuMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
    return values[values.size() / 2];
}

// Milliseconds from the drop to the window repainted with the result.
double drop(BkgndColorView *view, const QString &path)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    const QPointF centre(view->width() / 2.0, view->height() / 2.0);
    QElapsedTimer timer;
    timer.start();
    // Qt delivers a drop to the view that took the drag's entry, as in a real drag.
    QDragEnterEvent enter(centre.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view, &enter);
    QDropEvent event(centre, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view, &event);
    QApplication::processEvents();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(settings.path()));
    keepLargeBuffersInTheHeap(); // as the application does
    QApplication app(argc, argv);
    const int drops = argc > 1 ? std::max(2, std::atoi(argv[1])) : 15;

    AppDelegate controller;
    const std::unique_ptr<QMainWindow> window = loadMainInterface(controller);
    controller.applicationWillFinishLaunching();
    window->show();
    controller.applicationDidFinishLaunching();
    QApplication::processEvents();

    const QTemporaryDir dir;
    drop(controller.dragView1(), writeProject(dir, 1));
    std::printf("%-28s %12s %16s %22s\n", "project", "first drop", "median of later",
                "CPU: first, later");
    std::vector<int> sizes;
    for (int i = 2; i < argc; ++i)
        sizes.push_back(std::atoi(argv[i]));
    if (sizes.empty())
        sizes = {1500, 10000};
    for (const int patches : sizes) {
        const QString path = writeProject(dir, patches);
        std::vector<double> times, cpu;
        for (int i = 0; i < drops; ++i) {
            const double before = cpuMilliseconds();
            times.push_back(drop(controller.dragView2(), path));
            cpu.push_back(cpuMilliseconds() - before);
        }
        if (!controller.dragView2()->swatchLabel().contains(QString::number(patches))) {
            std::fprintf(stderr, "the project was not read: %s\n",
                         qPrintable(controller.dragView2()->swatchLabel()));
            return 1;
        }
        std::printf("%6d patches x 36 points %9.1f ms %13.1f ms %9.1f ms %7.1f ms\n", patches,
                    times.front(), median({times.begin() + 1, times.end()}), cpu.front(),
                    median({cpu.begin() + 1, cpu.end()}));
        std::fflush(stdout);
    }
    return 0;
}
