#pragma once
// A drop shadow for QPainter, which has none of its own: what a function paints is drawn into
// a transparent layer, the layer's coverage is tinted with the shadow colour, blurred with Qt's
// blur effect, offset, and composited under the layer.

#include <QColor>
#include <QPointF>
#include <QSize>

#include <functional>

class QImage;
class QPainter;

struct QVShadow {
    QColor color;
    QPointF offset;        // in points, y up: (0, -1) falls one point below the shape
    double blurRadius = 0; // in points
};

// Paints `draw` (given a painter on a transparent layer of `size` logical pixels, in the same
// coordinates as `painter`) as one layer with `shadow` under it. `painter` must be in the view's
// own coordinates (no world transform).
void QVDrawWithShadow(QPainter &painter, const QSize &size, const QVShadow &shadow,
                      const std::function<void(QPainter &)> &draw);

// The shadow of a layer alone: its coverage tinted, blurred and offset (the same device pixel
// ratio as the layer).
QImage QVShadowImage(const QImage &layer, const QVShadow &shadow);
