#include "SwatchProbe.h"

#include "AppDelegate.h"
#include "BkgndColorView.h"

#include <QTimer>

#include <cstdio>

namespace {

void print(const QString &line)
{
    std::fputs(line.toUtf8().constData(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

void watch(AppDelegate &controller, BkgndColorView *view, int sample)
{
    if (!view)
        return;
    const QString name = QStringLiteral("dragView%1").arg(sample);
    QTimer::singleShot(0, view, [view, name] {
        const QPoint origin = view->mapToGlobal(QPoint(0, 0));
        print(QStringLiteral("%1-geometry: %2 %3 %4 %5")
                  .arg(name)
                  .arg(origin.x())
                  .arg(origin.y())
                  .arg(view->width())
                  .arg(view->height()));
    });
    QObject::connect(
        view, &BkgndColorView::swatchLabelChanged, view, [&controller, view, name, sample] {
            // After the controller has stored the sample as well.
            QTimer::singleShot(0, view, [&controller, view, name, sample] {
                const bool defined =
                    sample == 1 ? controller.isSample1Defined() : controller.isSample2Defined();
                print(QStringLiteral("%1: %2 | %3 | sample %4 %5")
                          .arg(name, view->labLabel(), view->swatchLabel())
                          .arg(sample)
                          .arg(defined ? QStringLiteral("defined") : QStringLiteral("undefined")));
            });
        });
}

} // namespace

void probeSwatchesWhenShown(AppDelegate &controller)
{
    if (!qEnvironmentVariableIsSet("CXF_SWATCH_PROBE"))
        return;
    watch(controller, controller.dragView1(), 1);
    watch(controller, controller.dragView2(), 2);
}
