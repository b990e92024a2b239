// A drag source for the end-to-end drop test: a window that, when the mouse is pressed on it,
// starts a drag of the file URLs given on its command line. It prints where it is on the screen
// ("drag-source-geometry: x y width height"); it runs until it is ended.
#include <QApplication>
#include <QDrag>
#include <QFileInfo>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <cstdio>

namespace {

class DragSource : public QWidget
{
public:
    explicit DragSource(QList<QUrl> urls) : m_urls(std::move(urls)) {}

protected:
    void mousePressEvent(QMouseEvent *) override
    {
        auto *drag = new QDrag(this);
        auto *mime = new QMimeData;
        mime->setUrls(m_urls);
        drag->setMimeData(mime);
        // Stays up after the drop: the target fetches the data then.
        drag->exec(Qt::CopyAction);
    }

private:
    QList<QUrl> m_urls;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QList<QUrl> urls;
    for (const QString &path : app.arguments().mid(1))
        urls << QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    DragSource window(urls);
    window.setWindowTitle(QStringLiteral("drag source"));
    window.setGeometry(760, 560, 200, 120);
    window.show();
    QTimer::singleShot(500, &window, [&window] {
        const QPoint origin = window.mapToGlobal(QPoint(0, 0));
        std::printf("drag-source-geometry: %d %d %d %d\n", origin.x(), origin.y(), window.width(),
                    window.height());
        std::fflush(stdout);
    });
    return app.exec();
}
