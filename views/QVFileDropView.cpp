#include "QVFileDropView.h"

#include "QColor+QVExtras.h"
#include "QMimeData+QVExtras.h"
#include "QObject+QVExtras.h"
#include "QPainterPath+QVExtras.h"
#include "QString+Geometrics.h"
#include "QVFileDropLayout.h"
#include "QVInvocation.h"
#include "QVShadow.h"

#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QLinearGradient>
#include <QLoggingCategory>
#include <QMimeData>
#include <QPainter>
#include <QPainterPath>
#include <QTimer>

Q_LOGGING_CATEGORY(lcDropView, "qv.dropview", QtInfoMsg)

namespace {

// The singular and plural messages of the built-in kinds, indexed by kind.
struct KindMessages {
    const char *one;
    const char *many;
};
constexpr KindMessages kKindMessages[] = {
    {nullptr, nullptr},
    {QT_TRANSLATE_NOOP("QVFileDropView", "Drop a file here"),
     QT_TRANSLATE_NOOP("QVFileDropView", "Drop files here")},
    {QT_TRANSLATE_NOOP("QVFileDropView", "Drop a folder here"),
     QT_TRANSLATE_NOOP("QVFileDropView", "Drop folders here")},
    {QT_TRANSLATE_NOOP("QVFileDropView", "Drop a file or folder here"),
     QT_TRANSLATE_NOOP("QVFileDropView", "Drop files or folders here")},
    {QT_TRANSLATE_NOOP("QVFileDropView", "Drop an image here"),
     QT_TRANSLATE_NOOP("QVFileDropView", "Drop images here")},
};

// Attempts of the promised-file poll: one count for every view in the process, deliberately.
int gPromisedFileAttempts = 0;
int gPromisedFilePollInterval = 100;

QStringList typesOf(std::initializer_list<const char *> names)
{
    QStringList types;
    for (const char *name : names)
        types.append(QLatin1String(name));
    return types;
}

bool hasPromisedFile(const QMimeData *pasteboard)
{
    return pasteboardHasItemConformingToTypes(
        pasteboard, typesOf({kQVPromisedFileContentType, kQVPromisedFileURLType}));
}

// The generic operation: a copy (or a link) of whatever the source offers.
void acceptAsGeneric(QDropEvent *event)
{
    const Qt::DropActions offered = event->possibleActions();
    event->setDropAction(offered.testFlag(Qt::CopyAction)   ? Qt::CopyAction
                         : offered.testFlag(Qt::LinkAction) ? Qt::LinkAction
                                                            : event->proposedAction());
    event->accept();
}

QColor white(double level, double alpha = 1.0)
{
    return QColor::fromRgbF(float(level), float(level), float(level), float(alpha));
}

} // namespace

bool QVFileDropDelegate::dropViewCanTakeDataFromPasteboard(QVFileDropView *, const QMimeData *,
                                                           QObject *)
{
    return false;
}
void QVFileDropDelegate::dropViewTakeDataFromPasteboard(QVFileDropView *, const QMimeData *,
                                                        QObject *)
{
}
void QVFileDropDelegate::dropViewTakeFiles(QVFileDropView *, const std::optional<QList<QUrl>> &) {}
void QVFileDropDelegate::dropViewTakeFolders(QVFileDropView *, const QList<QUrl> &) {}
void QVFileDropDelegate::dropViewTakeFilesAndFolders(QVFileDropView *, const QList<QUrl> &) {}
void QVFileDropDelegate::dropViewTakeImages(QVFileDropView *, const QList<QImage> &) {}

QVFileDropView::QVFileDropView(QWidget *parent)
    : QWidget(parent), m_message(tr("Drop a file here")), m_primaryColor(white(1.0 / 3.0))
{
    // Nothing is registered yet: the view takes no drag until told what to take.
    setAcceptDrops(false);
}

QVFileDropView::~QVFileDropView()
{
    invalidatePromisedFileTimer();
}

void QVFileDropView::setMessage(const QString &message)
{
    const bool changed = message != m_message;
    m_message = message;
    update();
    if (changed)
        Q_EMIT messageChanged(m_message);
}

void QVFileDropView::setAcceptsDrop(bool acceptsDrop)
{
    if (acceptsDrop == m_acceptsDrop)
        return;
    m_acceptsDrop = acceptsDrop;
    update();
}

void QVFileDropView::setDragInProgress(bool dragInProgress)
{
    if (dragInProgress == m_dragInProgress)
        return;
    m_dragInProgress = dragInProgress;
    update();
    Q_EMIT dragInProgressChanged(m_dragInProgress);
}

void QVFileDropView::setAcceptableDragUTIs(const QStringList &types)
{
    m_acceptableDragUTIs = types;
    setAcceptDrops(!types.isEmpty());
    m_registeredTypes = CustomTypes;
}

void QVFileDropView::setAcceptableDragCount(quint64 count)
{
    m_acceptableDragCount = count;
    updateMessageForKind();
}

void QVFileDropView::registerKind(Kind kind, const QStringList &types)
{
    setAcceptableDragUTIs(types);
    m_registeredTypes = kind;
    updateMessageForKind();
}

void QVFileDropView::registerForDraggedFiles()
{
    registerKind(Files,
                 typesOf({kQVFileURLType, kQVPromisedFileURLType, kQVPromisedFileContentType}));
}

void QVFileDropView::registerForDraggedFolders()
{
    registerKind(Folders, typesOf({kQVFileURLType}));
}

void QVFileDropView::registerForDraggedFilesAndFolders()
{
    registerKind(FilesAndFolders,
                 typesOf({kQVFileURLType, kQVPromisedFileURLType, kQVPromisedFileContentType}));
}

void QVFileDropView::registerForDraggedImages()
{
    registerKind(Images, typesOf({kQVFileURLType, kQVImageType}));
}

void QVFileDropView::updateMessageForKind()
{
    if (m_registeredTypes < Files || m_registeredTypes > Images)
        return; // a custom kind keeps the caller's message
    const KindMessages &messages = kKindMessages[m_registeredTypes];
    setMessage(tr(m_acceptableDragCount == 1 ? messages.one : messages.many));
}

bool QVFileDropView::canTakeDataFromPasteboard(const QMimeData *pasteboard, QObject *sender)
{
    if (m_dragDelegate && m_dragDelegate->respondsTo(QVFileDropDelegate::CanTakeDataFromPasteboard))
        return m_dragDelegate->dropViewCanTakeDataFromPasteboard(this, pasteboard, sender);
    return canTakeByKind(pasteboard);
}

bool QVFileDropView::canTakeByKind(const QMimeData *pasteboard)
{
    switch (m_registeredTypes) {
    case Files:
        return canReadURLs(pasteboard, classReadingOptionsForFileURLs()) ||
               hasPromisedFile(pasteboard);
    case Folders:
        return canReadURLs(pasteboard, classReadingOptionsForFolderURLs());
    case FilesAndFolders:
        return canReadURLs(pasteboard, classReadingOptionsForFileAndFolderURLs()) ||
               hasPromisedFile(pasteboard);
    case Images:
        return canReadURLs(pasteboard, classReadingOptionsForImageFileURLs()) ||
               (pasteboard && pasteboard->hasImage());
    default:
        return pasteboardHasItemConformingToTypes(pasteboard, m_acceptableDragUTIs);
    }
}

void QVFileDropView::takeDataFromPasteboard(const QMimeData *pasteboard, QObject *sender)
{
    if (m_dragDelegate && m_dragDelegate->respondsTo(QVFileDropDelegate::TakeDataFromPasteboard)) {
        m_dragDelegate->dropViewTakeDataFromPasteboard(this, pasteboard, sender);
        return;
    }
    takeByKind(pasteboard, sender);
}

void QVFileDropView::takeByKind(const QMimeData *pasteboard, QObject *sender)
{
    const auto responds = [this](QVFileDropDelegate::Method method) {
        return m_dragDelegate && m_dragDelegate->respondsTo(method);
    };
    switch (m_registeredTypes) {
    case CustomTypes:
        // Only a custom kind complains; the built-in kinds stay quiet. Deliberate.
        QApplication::beep();
        qCInfo(lcDropView) << "No delegate method implemented to accept the specified drag types";
        return;
    case Files:
        if (responds(QVFileDropDelegate::TakeFiles)) {
            const QList<QUrl> files = readURLs(pasteboard, classReadingOptionsForFileURLs());
            if (isNotEmpty(files))
                m_dragDelegate->dropViewTakeFiles(this, files);
            else
                takePromisedFile(pasteboard, sender);
        }
        return;
    case Folders:
        if (responds(QVFileDropDelegate::TakeFolders)) {
            const QList<QUrl> folders = readURLs(pasteboard, classReadingOptionsForFolderURLs());
            if (isNotEmpty(folders))
                m_dragDelegate->dropViewTakeFolders(this, folders);
        }
        return;
    case FilesAndFolders:
        if (responds(QVFileDropDelegate::TakeFilesAndFolders)) {
            const QList<QUrl> urls =
                readURLs(pasteboard, classReadingOptionsForFileAndFolderURLs());
            if (isNotEmpty(urls))
                m_dragDelegate->dropViewTakeFilesAndFolders(this, urls);
            else
                takePromisedFile(pasteboard, sender); // reported through dropViewTakeFiles
        }
        return;
    case Images:
        if (responds(QVFileDropDelegate::TakeImages)) {
            QList<QImage> images;
            const QList<QUrl> urls = readURLs(pasteboard, classReadingOptionsForImageFileURLs());
            for (const QUrl &url : urls) {
                const QImage image(url.toLocalFile());
                if (!image.isNull())
                    images.append(image); // one that does not load is skipped
            }
            if (urls.isEmpty() && pasteboard && pasteboard->hasImage())
                images.append(qvariant_cast<QImage>(pasteboard->imageData()));
            if (isNotEmpty(images))
                m_dragDelegate->dropViewTakeImages(this, images);
        }
        return;
    default:
        return;
    }
}

void QVFileDropView::takePromisedFile(const QMimeData *pasteboard, QObject *sender)
{
    const QUrl url = readFileURLPromiseOfType(pasteboard, QString(), sender);
    if (url.isEmpty())
        return;
    pollForPromisedFileAtPath(url.toLocalFile());
}

void QVFileDropView::invalidatePromisedFileTimer()
{
    if (!m_promisedFileTimer)
        return;
    m_promisedFileTimer->stop();
    m_promisedFileTimer->deleteLater();
    m_promisedFileTimer = nullptr;
}

void QVFileDropView::pollForPromisedFileAtPath(const QString &path)
{
    invalidatePromisedFileTimer();
    const QFileInfo info(path);
    if (info.exists() && !info.isDir()) {
        gPromisedFileAttempts = 0;
        if (m_dragDelegate)
            m_dragDelegate->dropViewTakeFiles(this, QList<QUrl>{QUrl::fromLocalFile(path)});
        return;
    }
    if (gPromisedFileAttempts < kPromisedFileAttempts) {
        ++gPromisedFileAttempts;
        QVInvocation invocation =
            QVInvocation::invocationWithTarget(this, &QVFileDropView::pollForPromisedFileAtPath);
        invocation.setArgument(QVariant(path), 2); // the invocation keeps its own copy
        auto *timer = new QTimer(this);
        timer->setSingleShot(true);
        timer->setInterval(gPromisedFilePollInterval);
        connect(timer, &QTimer::timeout, this, [invocation] { invocation.invoke(); });
        m_promisedFileTimer = timer;
        timer->start();
        return;
    }
    gPromisedFileAttempts = 0;
    if (m_dragDelegate)
        m_dragDelegate->dropViewTakeFiles(this, std::nullopt); // the promise failed
}

int QVFileDropView::promisedFilePollInterval()
{
    return gPromisedFilePollInterval;
}

void QVFileDropView::setPromisedFilePollInterval(int milliseconds)
{
    gPromisedFilePollInterval = milliseconds;
}

bool QVFileDropView::validateUserInterfaceItem(QKeySequence::StandardKey action)
{
    if (action != QKeySequence::Paste)
        return false;
    return canTakeDataFromPasteboard(QApplication::clipboard()->mimeData(), nullptr);
}

void QVFileDropView::dragEnterEvent(QDragEnterEvent *event)
{
    invalidatePromisedFileTimer(); // the attempt count carries on
    const QMimeData *pasteboard = event->mimeData();
    if (!m_acceptsDrop || event->possibleActions() == Qt::DropActions() ||
        quint64(pasteboardItemCount(pasteboard)) > m_acceptableDragCount ||
        !canTakeDataFromPasteboard(pasteboard, event->source())) {
        event->ignore();
        return;
    }
    setDragInProgress(true);
    acceptAsGeneric(event);
}

void QVFileDropView::dragMoveEvent(QDragMoveEvent *event)
{
    if (m_dragInProgress)
        acceptAsGeneric(event);
    else
        event->ignore();
}

void QVFileDropView::dragLeaveEvent(QDragLeaveEvent *)
{
    setDragInProgress(false);
}

void QVFileDropView::dropEvent(QDropEvent *event)
{
    takeDataFromPasteboard(event->mimeData(), event->source());
    setDragInProgress(false);
    acceptAsGeneric(event); // also when nothing was taken
}

void QVFileDropView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawDropTarget(painter);
}

void QVFileDropView::drawDropTarget(QPainter &painter)
{
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF bounds(0, 0, width(), height());
    const QVShadow outerShadow{white(0, 0.5), QPointF(0, -1), 5};
    const QVShadow innerShadow{white(1, 0.75), QPointF(0, -1), 0};
    const QColor gradientTop = white(2.0 / 3.0);
    const QColor gradientBottom = m_dragInProgress ? QColor::fromRgbF(1, 0, 0) : white(0.5);

    QVTextAttributes attributes;
    QSizeF textSize;
    if (isNotEmpty(m_message)) {
        QFont font = QApplication::font();
        font.setBold(true);
        // The primary colour where it reads well on the window (4.5:1), else black or white.
        attributes = {font, readableTextColor(palette().color(QPalette::Window), m_primaryColor),
                      Qt::AlignHCenter};
        const QRectF content = bounds.adjusted(28, 28, -28, -28);
        const qint64 behavior = gNSStringGeometricsTypesetterBehavior;
        gNSStringGeometricsTypesetterBehavior = 1;
        textSize =
            sizeForWidth(m_message, float(content.width()), float(content.height()), attributes);
        gNSStringGeometricsTypesetterBehavior = behavior;
    }
    const QVFileDropLayout layout = QVFileDropLayoutForBounds(bounds, textSize);
    // The layout is y up; this maps it onto the widget once.
    const QTransform flip(1, 0, 0, -1, 0, bounds.height());

    if (m_backgroundColor.isValid()) {
        painter.save();
        painter.setTransform(flip);
        QPainterPath background;
        background.addRoundedRect(bounds, kQVDropCornerRadius, kQVDropCornerRadius);
        painter.fillPath(background, m_backgroundColor);
        painter.restore();
    }

    if (m_showBorder && layout.dash.periods > 0) {
        QVDrawWithShadow(painter, size(), outerShadow, [&](QPainter &p) {
            p.setTransform(flip);
            const double width = 4;
            QPen pen(m_primaryColor, width, Qt::CustomDashLine, Qt::SquareCap);
            pen.setDashPattern({layout.dash.on / width, layout.dash.off / width});
            pen.setDashOffset(layout.dash.phase / width);
            QPainterPath border;
            border.addRoundedRect(layout.border, kQVDropCornerRadius, kQVDropCornerRadius);
            p.strokePath(border, pen);
        });
    }

    if (m_showArrow && layout.arrowPossible) {
        const double w = layout.arrow.width();
        const QPainterPath arrow =
            bezierPathWithArrowInRect(layout.arrow, w / 2, w / 2, m_flipArrow ? 0 : 1);
        const QRectF arrowBounds = arrow.boundingRect();
        QVDrawWithShadow(painter, size(), outerShadow, [&](QPainter &p) {
            p.setTransform(flip);
            // Light grey at the top, down to red or grey (y up: the top is the larger y).
            QLinearGradient gradient(QPointF(0, arrowBounds.bottom()),
                                     QPointF(0, arrowBounds.top()));
            gradient.setColorAt(0, gradientTop);
            gradient.setColorAt(1, gradientBottom);
            p.fillPath(arrow, gradient);
        });
        // The inner highlight: the shadow of a frame around the arrow, with the arrow cut out,
        // falls just inside the arrow's top edges. Its blur is 0, so the shadow is the frame
        // itself, moved left by `shift` and back by the shadow's offset.
        const QVInnerShadowGeometry inner =
            QVInnerShadowGeometryForArrow(arrowBounds, innerShadow.offset, innerShadow.blurRadius);
        QPainterPath frame;
        frame.setFillRule(Qt::OddEvenFill);
        frame.addRect(inner.frame);
        frame.addPath(arrow);
        painter.save();
        painter.setTransform(flip);
        painter.setClipPath(arrow);
        painter.fillPath(frame.translated(-inner.shift + inner.offset.x(), inner.offset.y()),
                         innerShadow.color);
        painter.restore();
    }

    if (isNotEmpty(m_message)) {
        const QRectF text = flip.mapRect(layout.text);
        if (m_drawMessageShadow)
            QVDrawWithShadow(painter, size(), outerShadow,
                             [&](QPainter &p) { drawWithRect(p, m_message, text, attributes); });
        else
            drawWithRect(painter, m_message, text, attributes);
    }
}
