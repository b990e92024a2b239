#include "BkgndColorView.h"

#include "BkgndColorViewDelegate.h"
#include "QColor+QVExtras.h"
#include "QMimeData+QVExtras.h"
#include "QPainterPath+QVExtras.h"
#include "document_reading.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QMimeData>
#include <QPainter>
#include <QPainterPath>

Q_LOGGING_CATEGORY(lcSwatch, "qv.swatch", QtInfoMsg)

namespace {

constexpr float kCornerRadius = 9.0f;
constexpr qreal kCaptionX = 10;
constexpr qreal kLabLineY = 10;    // from the bottom edge, up
constexpr qreal kSwatchLineY = 26; // 16 points above the first line
constexpr double kBlackCaptionAboveL = 70.0;
constexpr char kPublicCxFType[] = "com.public.cxf";
constexpr char kXriteCxFType[] = "com.xrite.cxf";

// The bytes when they are UTF-8 text, else the null array (no text).
QByteArray utf8Text(const QByteArray &bytes)
{
    if (bytes.isNull() || !isValidUtf8(std::string_view(bytes.constData(), size_t(bytes.size()))))
        return {};
    return bytes;
}

} // namespace

BkgndColorView::BkgndColorView(QWidget *parent)
    : QVFileDropView(parent), m_swatchLabel(tr("Drop a ColorMunki color patch or project here")),
      m_color(QColor::fromRgbF(1.0f / 3, 1.0f / 3, 1.0f / 3)),
      m_labLabel(QStringLiteral("D50 L*a*b*: --")), m_labelColor(Qt::white)
{
    setDragDelegate(this);
    setAcceptableDragUTIs({QLatin1String(kQVFileURLType), QLatin1String(kQVPromisedFileURLType),
                           QLatin1String(kPublicCxFType), QLatin1String(kXriteCxFType)});
    setMessage(tr("Drop a color patch or project here"));
    setDrawMessageShadow(false);
    setPrimaryColor(QColor::fromRgbF(0.4f, 0.4f, 0.4f, 1.0f));
    // Reachable from the keyboard, so that a copied document can be pasted onto it.
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 110);
}

BkgndColorView::~BkgndColorView() = default;

void BkgndColorView::setLabColor(LabColor labColor)
{
    m_labColor = labColor;
    m_color =
        colorWithCalibratedD50L(labColor.L, labColor.a, labColor.b, labColor.alpha).toQColor();
    m_labLabel =
        QString::asprintf("D50 L*a*b*: %.3f, %.3f, %.3f", labColor.L, labColor.a, labColor.b);
    // Chosen on L alone, on purpose: light samples get black text.
    m_labelColor = labColor.L > kBlackCaptionAboveL ? QColor(Qt::black) : QColor(Qt::white);
    update();
}

void BkgndColorView::setSwatchLabel(const QString &swatchLabel)
{
    const bool changed = swatchLabel != m_swatchLabel;
    m_swatchLabel = QString(swatchLabel.constData(), swatchLabel.size()); // a copy of its own
    setToolTip(m_swatchLabel);
    update();
    if (changed)
        Q_EMIT swatchLabelChanged(m_swatchLabel);
}

void BkgndColorView::sendText(const QByteArray &text)
{
    if (m_delegate)
        m_delegate->parseXML(text, this);
}

void BkgndColorView::sendDocumentAt(const QString &path)
{
    const std::optional<DocumentText> text =
        readDocumentText(QFile::encodeName(path).toStdString());
    if (!text)
        return sendText(QByteArray());
    // The delegate reads the bytes in place: they live until it returns, and a copy of a large
    // project would cost as much as reading it.
    sendText(text->empty() ? QByteArray("")
                           : QByteArray::fromRawData(text->data(), qsizetype(text->size())));
}

void BkgndColorView::dropViewTakeDataFromPasteboard(QVFileDropView *, const QMimeData *pasteboard,
                                                    QObject *sender)
{
    if (!pasteboard)
        return;
    const QStringList types = pasteboard->formats();
    if (pasteboard->hasUrls()) {
        const QList<QUrl> urls = pasteboard->urls();
        const QString path = urls.isEmpty() ? QString() : urls.first().toLocalFile();
        const QFileInfo info(path);
        if (path.isEmpty() || !info.exists() || info.isDir()) {
            QApplication::beep();
            return;
        }
        sendDocumentAt(path);
    } else if (types.contains(QLatin1String(kQVPromisedFileURLType))) {
        const QUrl url = readFileURLPromiseOfType(pasteboard, QString(), sender);
        if (url.isEmpty())
            return;
        pollForPromisedFileAtPath(url.toLocalFile()); // the file arrives in dropViewTakeFiles
    } else if (types.contains(QLatin1String(kPublicCxFType)) ||
               types.contains(QLatin1String(kXriteCxFType))) {
        // Always the public type, even when only the other one is there; kept as it is.
        sendText(utf8Text(pasteboard->data(QLatin1String(kPublicCxFType))));
    } else if (types.contains(QLatin1String(kQVFilenamesType))) {
        qCInfo(lcSwatch) << "NSFilenamesPboardType not allowed in sandboxed apps";
    }
}

void BkgndColorView::dropViewTakeFiles(QVFileDropView *, const std::optional<QList<QUrl>> &files)
{
    if (!files || files->isEmpty())
        return;
    sendDocumentAt(files->first().toLocalFile()); // further files are ignored
}

void BkgndColorView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!(m_labColor.alpha > 0)) {
        drawDropTarget(painter);
    } else {
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF bounds(0, 0, width(), height());
        // The swatch's geometry is y up, as the drop target's; flipped once here.
        painter.save();
        painter.setTransform(QTransform(1, 0, 0, -1, 0, bounds.height()));
        painter.fillPath(bezierPathWithRoundedRectangle(bounds, kCornerRadius), m_color);
        painter.restore();

        QFont font = QApplication::font();
        font.setPointSizeF(10);
        painter.setFont(font);
        painter.setPen(m_labelColor);
        // A caption's point is the lower-left corner of its line; Qt draws from the baseline.
        const qreal descent = painter.fontMetrics().descent();
        painter.drawText(QPointF(kCaptionX, bounds.height() - kLabLineY - descent), m_labLabel);
        // A long name is shortened with an ellipsis rather than cut off at the edge.
        const QString label = painter.fontMetrics().elidedText(m_swatchLabel, Qt::ElideRight,
                                                               int(width() - 2 * kCaptionX));
        painter.drawText(QPointF(kCaptionX, bounds.height() - kSwatchLineY - descent), label);
    }
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kCornerRadius,
                                kCornerRadius);
    }
}

void BkgndColorView::focusInEvent(QFocusEvent *event)
{
    QVFileDropView::focusInEvent(event);
    update();
}

void BkgndColorView::focusOutEvent(QFocusEvent *event)
{
    QVFileDropView::focusOutEvent(event);
    update();
}
