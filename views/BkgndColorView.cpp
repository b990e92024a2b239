#include "BkgndColorView.h"

#include "BkgndColorViewDelegate.h"
#include "QColor+QVExtras.h"
#include "document_reading.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QPainter>
#include <QPainterPath>
#include <QUrl>

namespace {

constexpr float kCornerRadius = 9.0f;
constexpr qreal kCaptionX = 10;
constexpr qreal kLabLineY = 10;    // from the bottom edge, up
constexpr qreal kSwatchLineY = 26; // 16 points above the first line
constexpr double kBlackCaptionAboveL = 70.0;

// Captions are placed from the view's lower-left corner, y up; Qt paints y down.
QPointF fromLowerLeft(const QWidget *view, qreal x, qreal y)
{
    return {x, view->height() - y};
}

QString firstLocalFile(const QMimeData *mime)
{
    if (!mime || !mime->hasUrls())
        return {};
    const QList<QUrl> urls = mime->urls();
    return urls.isEmpty() ? QString() : urls.first().toLocalFile();
}

} // namespace

BkgndColorView::BkgndColorView(QWidget *parent)
    : QWidget(parent), m_swatchLabel(tr("Drop a ColorMunki color patch or project here")),
      m_color(Qt::darkGray), m_labLabel(QStringLiteral("D50 L*a*b*: --")), m_labelColor(Qt::white)
{
    setAcceptDrops(true);
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
    if (m_swatchLabel == swatchLabel)
        return;
    m_swatchLabel = swatchLabel;
    setToolTip(m_swatchLabel);
    update();
    Q_EMIT swatchLabelChanged(m_swatchLabel);
}

void BkgndColorView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!(m_labColor.alpha > 0)) {
        paintEmptyTarget(painter);
        return;
    }
    QPainterPath path;
    path.addRoundedRect(QRectF(rect()), kCornerRadius, kCornerRadius);
    painter.fillPath(path, m_color);

    QFont font = QApplication::font();
    font.setPointSizeF(10);
    painter.setFont(font);
    painter.setPen(m_labelColor);
    painter.drawText(fromLowerLeft(this, kCaptionX, kLabLineY), m_labLabel);
    // A long name is shortened with an ellipsis rather than cut off at the edge.
    const QString label = painter.fontMetrics().elidedText(m_swatchLabel, Qt::ElideRight,
                                                           int(width() - 2 * kCaptionX));
    painter.drawText(fromLowerLeft(this, kCaptionX, kSwatchLineY), label);
}

void BkgndColorView::paintEmptyTarget(QPainter &painter)
{
    const QColor primary = QColor::fromRgbF(0.4f, 0.4f, 0.4f);
    const QRectF frame = QRectF(rect()).adjusted(4, 4, -4, -4);
    QPen pen(m_dragHighlight ? palette().color(QPalette::Highlight) : primary,
             m_dragHighlight ? 3 : 2, Qt::DashLine);
    painter.setPen(pen);
    painter.drawRoundedRect(frame, kCornerRadius, kCornerRadius);
    painter.setPen(primary);
    painter.drawText(frame.adjusted(12, 12, -12, -12), Qt::AlignCenter | Qt::TextWordWrap,
                     tr("Drop a color patch or project here"));
}

void BkgndColorView::dragEnterEvent(QDragEnterEvent *event)
{
    if (firstLocalFile(event->mimeData()).isEmpty())
        return;
    m_dragHighlight = true;
    update();
    event->acceptProposedAction();
}

void BkgndColorView::dragLeaveEvent(QDragLeaveEvent *)
{
    m_dragHighlight = false;
    update();
}

void BkgndColorView::dropEvent(QDropEvent *event)
{
    m_dragHighlight = false;
    update();
    const QString path = firstLocalFile(event->mimeData());
    if (path.isEmpty())
        return;
    const QFileInfo info(path);
    if (!info.exists() || info.isDir()) {
        QApplication::beep();
        return;
    }
    event->acceptProposedAction();
    const std::optional<std::string> text = readDocumentText(QFile::encodeName(path).toStdString());
    if (m_delegate)
        m_delegate->parseXML(text ? QByteArray::fromStdString(*text) : QByteArray(), this);
}
