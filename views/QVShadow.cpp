#include "QVShadow.h"

#include <QGraphicsBlurEffect>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QImage>
#include <QPainter>
#include <QPixmap>

QImage QVShadowImage(const QImage &layer, const QVShadow &shadow)
{
    const qreal dpr = layer.devicePixelRatio();
    QImage tinted(layer.size(), QImage::Format_ARGB32_Premultiplied);
    tinted.fill(Qt::transparent);
    {
        QPainter p(&tinted);
        QImage source = layer;
        source.setDevicePixelRatio(1);
        p.drawImage(0, 0, source);
        p.setCompositionMode(QPainter::CompositionMode_SourceIn);
        p.fillRect(tinted.rect(), shadow.color);
    }
    QImage result(layer.size(), QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    {
        QGraphicsScene scene;
        scene.setSceneRect(0, 0, layer.width(), layer.height());
        auto *item = scene.addPixmap(QPixmap::fromImage(tinted));
        // Offsets are y up; image rows grow downwards.
        item->setPos(shadow.offset.x() * dpr, -shadow.offset.y() * dpr);
        if (shadow.blurRadius > 0) {
            auto *blur = new QGraphicsBlurEffect;
            blur->setBlurRadius(shadow.blurRadius * dpr);
            blur->setBlurHints(QGraphicsBlurEffect::QualityHint);
            item->setGraphicsEffect(blur);
        }
        QPainter p(&result);
        scene.render(&p, QRectF(result.rect()), scene.sceneRect());
    }
    result.setDevicePixelRatio(dpr);
    return result;
}

void QVDrawWithShadow(QPainter &painter, const QSize &size, const QVShadow &shadow,
                      const std::function<void(QPainter &)> &draw)
{
    const qreal dpr = painter.device() ? painter.device()->devicePixelRatioF() : 1.0;
    QImage layer((QSizeF(size) * dpr).toSize(), QImage::Format_ARGB32_Premultiplied);
    layer.setDevicePixelRatio(dpr);
    layer.fill(Qt::transparent);
    {
        QPainter p(&layer);
        p.setRenderHints(painter.renderHints());
        p.setFont(painter.font());
        draw(p);
    }
    painter.drawImage(QPointF(0, 0), QVShadowImage(layer, shadow));
    painter.drawImage(QPointF(0, 0), layer);
}
