#include "QPainterPath+QVExtras.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double kDegreesPerRadian = 180.0 / std::numbers::pi;

struct Edges {
    double minX, midX, maxX, minY, midY, maxY;
};

Edges edgesOf(const QRectF &rect)
{
    const double minX = rect.x(), minY = rect.y();
    const double maxX = minX + rect.width(), maxY = minY + rect.height();
    return {minX, minX + rect.width() / 2, maxX, minY, minY + rect.height() / 2, maxY};
}

QPainterPath closedPolyline(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    bool first = true;
    for (const QPointF &p : points) {
        if (first)
            path.moveTo(p);
        else
            path.lineTo(p);
        first = false;
    }
    path.closeSubpath();
    return path;
}

} // namespace

QPainterPath bezierPathWithArrowInRect(const QRectF &rect, double headLength, double tailWidth,
                                       qint64 pointing)
{
    const Edges e = edgesOf(rect);
    const double hl = headLength;
    const double t = tailWidth / 2;
    switch (pointing) {
    case 0: // up
        return closedPolyline({{e.midX, e.maxY},
                               {e.maxX, e.maxY - hl},
                               {e.maxX - t, e.maxY - hl},
                               {e.maxX - t, e.minY},
                               {e.minX + t, e.minY},
                               {e.minX + t, e.maxY - hl},
                               {e.minX, e.maxY - hl}});
    case 2: // left
        return closedPolyline({{e.minX, e.midY},
                               {e.minX + hl, e.maxY},
                               {e.minX + hl, e.maxY - t},
                               {e.maxX, e.maxY - t},
                               {e.maxX, e.minY + t},
                               {e.minX + hl, e.minY + t},
                               {e.minX + hl, e.minY}});
    case 3: // right
        return closedPolyline({{e.maxX, e.midY},
                               {e.maxX - hl, e.maxY},
                               {e.maxX - hl, e.maxY - t},
                               {e.minX, e.maxY - t},
                               {e.minX, e.minY + t},
                               {e.maxX - hl, e.minY + t},
                               {e.maxX - hl, e.minY}});
    default: // 1 and every unknown code: down
        return closedPolyline({{e.midX, e.minY},
                               {e.maxX, e.minY + hl},
                               {e.maxX - t, e.minY + hl},
                               {e.maxX - t, e.maxY},
                               {e.minX + t, e.maxY},
                               {e.minX + t, e.minY + hl},
                               {e.minX, e.minY + hl}});
    }
}

void appendArcFromPointToPoint(QPainterPath &path, const QPointF &p1, const QPointF &p2,
                               double radius)
{
    if (path.elementCount() == 0)
        return;
    const QPointF p0 = path.currentPosition();
    // Unit vectors from the corner p1 back to p0 and on to p2.
    const QPointF u = p0 - p1, v = p2 - p1;
    const double lu = std::hypot(u.x(), u.y()), lv = std::hypot(v.x(), v.y());
    const double cross = u.x() * v.y() - u.y() * v.x();
    if (radius <= 0 || lu == 0 || lv == 0 || cross == 0) {
        path.lineTo(p1);
        return;
    }
    const QPointF du = u / lu, dv = v / lv;
    // theta is the angle at the corner; the tangent points lie r / tan(theta / 2) from it and
    // the centre r / sin(theta / 2) along the bisector.
    const double cosTheta = std::clamp(du.x() * dv.x() + du.y() * dv.y(), -1.0, 1.0);
    const double halfTheta = std::acos(cosTheta) / 2;
    const double toTangent = radius / std::tan(halfTheta);
    const QPointF t1 = p1 + du * toTangent, t2 = p1 + dv * toTangent;
    const QPointF bisector = du + dv;
    const double lb = std::hypot(bisector.x(), bisector.y());
    const QPointF centre = p1 + bisector / lb * (radius / std::sin(halfTheta));

    const double start = std::atan2(t1.y() - centre.y(), t1.x() - centre.x());
    const double end = std::atan2(t2.y() - centre.y(), t2.x() - centre.x());
    double sweep = end - start; // the short way round: the arc is less than half a turn
    if (sweep > std::numbers::pi)
        sweep -= 2 * std::numbers::pi;
    else if (sweep < -std::numbers::pi)
        sweep += 2 * std::numbers::pi;
    // QPainterPath measures angles with y pointing down; the path's y points up, so the angles
    // change sign. arcTo draws the straight line from the current point to t1 itself.
    const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    path.arcTo(box, -start * kDegreesPerRadian, -sweep * kDegreesPerRadian);
}

void appendBezierPathWithRoundedRectangle(QPainterPath &path, const QRectF &rect, float radius)
{
    if (rect.width() <= 0 || rect.height() <= 0)
        return;
    const Edges e = edgesOf(rect);
    if (radius <= 0) {
        path.moveTo(e.minX, e.minY);
        path.lineTo(e.maxX, e.minY);
        path.lineTo(e.maxX, e.maxY);
        path.lineTo(e.minX, e.maxY);
        path.closeSubpath();
        return;
    }
    const float r = std::min(radius, float(std::min(rect.width(), rect.height()) / 2));
    path.moveTo(e.midX, e.maxY);
    appendArcFromPointToPoint(path, {e.minX, e.maxY}, {e.minX, e.minY}, r);
    appendArcFromPointToPoint(path, {e.minX, e.minY}, {e.maxX, e.minY}, r);
    appendArcFromPointToPoint(path, {e.maxX, e.minY}, {e.maxX, e.maxY}, r);
    appendArcFromPointToPoint(path, {e.maxX, e.maxY}, {e.minX, e.maxY}, r);
    path.closeSubpath();
}

QPainterPath bezierPathWithRoundedRectangle(const QRectF &rect, float radius)
{
    QPainterPath path;
    appendBezierPathWithRoundedRectangle(path, rect, radius);
    return path;
}
