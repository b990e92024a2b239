#include "QPainterPath+QVExtras.h"

#include <QPainter>
#include <QPen>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

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

namespace {

QRectF normalisedRect(const QRectF &rect)
{
    QRectF r = rect;
    if (r.width() < 0) {
        r.setX(r.x() + r.width()); // moves the origin, keeping the right edge
        r.setWidth(-rect.width());
    }
    if (r.height() < 0) {
        r.setY(r.y() + r.height());
        r.setHeight(-rect.height());
    }
    return r;
}

// A counter-clockwise (y-up) arc about centre from startDegrees to endDegrees: a line to its
// start from the current point, or a move there on an empty path.
void appendArcWithCentre(QPainterPath &path, const QPointF &centre, double radius,
                         double startDegrees, double endDegrees)
{
    const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    if (path.elementCount() == 0) {
        const double start = startDegrees / kDegreesPerRadian;
        path.moveTo(centre.x() + radius * std::cos(start), centre.y() + radius * std::sin(start));
    }
    // Qt's angles turn the other way round in y-up coordinates.
    path.arcTo(box, -startDegrees, -(endDegrees - startDegrees));
}

QPointF unitPolygonVertex(quint32 i, quint32 sides)
{
    // Clockwise from the top.
    const double angle = std::numbers::pi / 2 - 2 * std::numbers::pi * i / sides;
    return {std::cos(angle), std::sin(angle)};
}

QPainterPath unitPolygon(quint32 sides)
{
    QPainterPath path;
    path.moveTo(unitPolygonVertex(0, sides));
    for (quint32 i = 1; i < sides; ++i)
        path.lineTo(unitPolygonVertex(i, sides));
    path.closeSubpath();
    return path;
}

int teethFor(double length, double spacing)
{
    return std::max(1, int(std::lround(length / spacing)));
}

void jaggedLine(QPainterPath &path, const QPointF &target, int teeth, double width)
{
    std::vector<QPointF> buffer(2 * std::size_t(std::max(teeth, 0)));
    zol_jaggedLineToPoint(path, target, teeth, width, buffer);
}

} // namespace

QPainterPath bezierPathWithCapsule(const QRectF &rect)
{
    return bezierPathWithRoundedRectangle(rect, float(std::min(rect.width(), rect.height()) / 2));
}

QPainterPath bezierPathWithCapsule(const QRectF &rect, int roundEnds)
{
    const Edges e = edgesOf(rect);
    const double r = rect.height() / 2;
    QPainterPath path;
    path.moveTo(e.midX, e.maxY);
    if (roundEnds & QVCapsuleRoundLeftEnd) {
        appendArcFromPointToPoint(path, {e.minX, e.maxY}, {e.minX, e.minY}, r);
        appendArcFromPointToPoint(path, {e.minX, e.minY}, {e.maxX, e.minY}, r);
    } else {
        path.lineTo(e.minX, e.maxY);
        path.lineTo(e.minX, e.minY);
    }
    if (roundEnds & QVCapsuleRoundRightEnd) {
        appendArcFromPointToPoint(path, {e.maxX, e.minY}, {e.maxX, e.maxY}, r);
        appendArcFromPointToPoint(path, {e.maxX, e.maxY}, {e.minX, e.maxY}, r);
    } else {
        path.lineTo(e.maxX, e.minY);
        path.lineTo(e.maxX, e.maxY);
    }
    path.closeSubpath();
    return path;
}

QPainterPath bezierPathWithRoundRectInRect(const QRectF &rect, double radius)
{
    const double r = std::min(radius, std::min(rect.width(), rect.height()) / 2);
    const Edges e = edgesOf(rect);
    QPainterPath path;
    appendArcWithCentre(path, {e.minX + r, e.minY + r}, r, 180, 270);
    appendArcWithCentre(path, {e.maxX - r, e.minY + r}, r, 270, 360);
    appendArcWithCentre(path, {e.maxX - r, e.maxY - r}, r, 0, 90);
    appendArcWithCentre(path, {e.minX + r, e.maxY - r}, r, 90, 180);
    path.closeSubpath();
    return path;
}

std::optional<QPainterPath> bezierPathWithSides(quint32 sides, double radius)
{
    if (sides == 0)
        return std::nullopt;
    return QTransform::fromScale(radius, radius).map(unitPolygon(sides));
}

std::optional<QPainterPath> bezierPathWithSides(quint32 sides, const QRectF &rect)
{
    if (sides == 0)
        return std::nullopt;
    const QPainterPath unit = unitPolygon(sides);
    const QRectF bounds = unit.boundingRect();
    return QTransform::fromScale(rect.width() / bounds.width(), rect.height() / bounds.height())
        .map(unit);
}

QPainterPath bezierPathWithPolygonAt(const QPointF &centre, double radius, int sides)
{
    QPainterPath path;
    for (int i = 0; i < sides; ++i) {
        const double angle = 2 * std::numbers::pi * i / sides;
        const QPointF vertex = centre + QPointF(std::cos(angle), std::sin(angle)) * radius;
        if (i == 0)
            path.moveTo(vertex);
        else
            path.lineTo(vertex);
    }
    path.closeSubpath();
    return path;
}

QPainterPath bezierPathWithTriangleInRect(const QRectF &rect, qint64 pointing)
{
    const Edges e = edgesOf(rect);
    switch (pointing) {
    case 1: // down
        return closedPolyline({{e.maxX, e.maxY}, {e.minX, e.maxY}, {e.midX, e.minY}});
    case 2: // left
        return closedPolyline({{e.maxX, e.minY}, {e.maxX, e.maxY}, {e.minX, e.midY}});
    case 3: // right
        return closedPolyline({{e.minX, e.maxY}, {e.minX, e.minY}, {e.maxX, e.midY}});
    default: // 0 and every unknown code: up
        return closedPolyline({{e.minX, e.minY}, {e.maxX, e.minY}, {e.midX, e.maxY}});
    }
}

QPainterPath bezierPathWithTriangleInRect(const QRectF &rect, QVRectEdge edge)
{
    const Edges e = edgesOf(rect);
    QPointF points[3];
    switch (edge) {
    case QVRectEdge::MinX:
        points[0] = {e.minX, e.minY}, points[1] = {e.minX, e.maxY}, points[2] = {e.maxX, e.midY};
        break;
    case QVRectEdge::MinY:
        points[0] = {e.maxX, e.minY}, points[1] = {e.minX, e.minY}, points[2] = {e.midX, e.maxY};
        break;
    case QVRectEdge::MaxX:
        points[0] = {e.maxX, e.maxY}, points[1] = {e.maxX, e.minY}, points[2] = {e.minX, e.midY};
        break;
    case QVRectEdge::MaxY:
        points[0] = {e.minX, e.maxY}, points[1] = {e.maxX, e.maxY}, points[2] = {e.midX, e.minY};
        break;
    default:
        return {};
    }
    QPainterPath path;
    path.moveTo(points[0]);
    path.lineTo(points[1]);
    path.lineTo(points[2]);
    return path;
}

void strokeInsideWithinRect(QPainter &painter, const QPainterPath &path, const QRectF &rect)
{
    painter.save();
    QPen pen = painter.pen();
    pen.setWidthF(2 * pen.widthF());
    painter.setClipPath(path, Qt::IntersectClip);
    if (rect.width() > 0 && rect.height() > 0)
        painter.setClipRect(rect, Qt::IntersectClip);
    painter.strokePath(path, pen);
    painter.restore(); // the pen, its width included, and the clip
}

void strokeInside(QPainter &painter, const QPainterPath &path)
{
    strokeInsideWithinRect(painter, path, QRectF());
}

QRectF zol_validRectWithRect(const QRectF &rect, double &a, double &b, double &spacing)
{
    spacing = std::min(spacing, std::min(a, b) / 4);
    const QRectF grown = rect.adjusted(-spacing, -spacing, spacing, spacing);
    a *= grown.width() / rect.width();
    b *= grown.height() / rect.height();
    return grown;
}

QPainterPath zol_bezierPathWithJaggedRoundedRectInRect(const QRectF &rect, double a, double b,
                                                       double spacing)
{
    const Edges e = edgesOf(rect);
    const double width = spacing / 2;
    // A quarter of the ellipse's perimeter, near enough to share it out in teeth.
    const double quarter = std::numbers::pi / 2 * std::sqrt((a * a + b * b) / 2);
    const int corner = teethFor(quarter, spacing);
    const auto edge = [&](QPainterPath &path, const QPointF &to) {
        const double length =
            std::hypot(to.x() - path.currentPosition().x(), to.y() - path.currentPosition().y());
        if (length > 0)
            jaggedLine(path, to, teethFor(length, spacing), width);
    };
    const auto arc = [&](QPainterPath &path, const QPointF &centre, double startDegrees) {
        for (int j = 1; j <= corner; ++j) {
            const double angle = (startDegrees + 90.0 * j / corner) / kDegreesPerRadian;
            jaggedLine(path, centre + QPointF(a * std::cos(angle), b * std::sin(angle)), 1, width);
        }
    };
    QPainterPath path;
    path.moveTo(e.minX + a, e.minY);
    edge(path, {e.maxX - a, e.minY});
    arc(path, {e.maxX - a, e.minY + b}, 270);
    edge(path, {e.maxX, e.maxY - b});
    arc(path, {e.maxX - a, e.maxY - b}, 0);
    edge(path, {e.minX + a, e.maxY});
    arc(path, {e.minX + a, e.maxY - b}, 90);
    edge(path, {e.minX, e.minY + b});
    arc(path, {e.minX + a, e.minY + b}, 180);
    path.closeSubpath();
    return path;
}

QPainterPath bezierPathWithJaggedOvalInRect(const QRectF &rect, double spacing)
{
    QRectF r = normalisedRect(rect);
    if (r.width() >= 4 && r.height() >= 4 && spacing >= 3) {
        double a = r.width() / 2, b = r.height() / 2;
        r = zol_validRectWithRect(r, a, b, spacing);
        if (spacing >= 2)
            return zol_bezierPathWithJaggedRoundedRectInRect(r, a, b, spacing);
    }
    QPainterPath oval;
    oval.addEllipse(r);
    return oval;
}

QPainterPath bezierPathWithJaggedPillInRect(const QRectF &rect, double spacing)
{
    QRectF r = normalisedRect(rect);
    if (r.width() >= 4 && r.height() >= 4 && spacing >= 3) {
        double a = std::min(r.width(), r.height()) / 2, b = a;
        r = zol_validRectWithRect(r, a, b, spacing);
        if (spacing >= 1)
            return zol_bezierPathWithJaggedRoundedRectInRect(r, a, b, spacing);
    }
    return bezierPathWithRoundRectInRect(r, std::min(r.width(), r.height()) / 2);
}

void zol_jaggedLineToPoint(QPainterPath &path, const QPointF &target, int teeth, double width,
                           std::span<QPointF> buffer)
{
    if (path.elementCount() == 0 || teeth < 1 || buffer.size() < 2 * std::size_t(teeth))
        return;
    QPointF current = path.currentPosition();
    const QPointF d = target - current;
    const double len = std::hypot(d.x(), d.y());
    const QPointF step = d / teeth;
    // Components swapped, not turned: kept as it stands.
    const QPointF offset = len > 0 ? QPointF(d.y() / len * width, d.x() / len * width) : QPointF();
    for (int i = 0; i < teeth; ++i) {
        buffer[2 * i] = current + offset + step / 2;
        current += step;
        buffer[2 * i + 1] = current;
    }
    for (std::size_t i = 0; i < 2 * std::size_t(teeth); ++i)
        path.lineTo(buffer[i]);
}

float CubicBezierPathGapAdjustment(float &count, float &gap, float length, float spacing)
{
    if (length > 0) {
        const float rem = std::fmod(length, spacing);
        length += spacing - rem;
        gap = spacing - rem;
        count += std::trunc(length / spacing) + (std::fmod(length, spacing) > spacing / 2 ? 1 : 0);
    } else {
        gap = 0;
    }
    return length / 2;
}

namespace {

QPointF placed(const QPointF &point, const QVGlyphOutlineWalk &walk)
{
    return {walk.origin.x() + point.x(), walk.origin.y() - point.y()};
}

void strokeTo(const QPointF &point, QVGlyphOutlineWalk &walk, const QColor &colour)
{
    const QPointF to = placed(point, walk);
    if (walk.painter) {
        QPen pen = walk.painter->pen();
        pen.setColor(colour);
        walk.painter->setPen(pen);
        walk.painter->drawLine(walk.current, to);
    }
    walk.current = to;
}

} // namespace

int myNewPathProc(QVGlyphOutlineWalk & /*walk*/)
{
    return 0;
}

int myLineProc(const QPointF &point, QVGlyphOutlineWalk &walk)
{
    strokeTo(point, walk, Qt::green);
    return 0;
}

int myCurveProc(const QPointF & /*control1*/, const QPointF & /*control2*/, const QPointF &end,
                QVGlyphOutlineWalk &walk)
{
    strokeTo(end, walk, Qt::blue);
    return 0;
}

int myClosePathProc(QVGlyphOutlineWalk & /*walk*/)
{
    return 0;
}

void walkGlyphOutline(const QPainterPath &outline, QVGlyphOutlineWalk &walk)
{
    bool open = false;
    for (int i = 0; i < outline.elementCount(); ++i) {
        const QPainterPath::Element element = outline.elementAt(i);
        switch (element.type) {
        case QPainterPath::MoveToElement:
            if (open)
                myClosePathProc(walk);
            myNewPathProc(walk);
            walk.current = placed(element, walk);
            open = true;
            break;
        case QPainterPath::LineToElement:
            myLineProc(element, walk);
            break;
        case QPainterPath::CurveToElement:
            if (i + 2 < outline.elementCount()) {
                myCurveProc(element, outline.elementAt(i + 1), outline.elementAt(i + 2), walk);
                i += 2;
            }
            break;
        case QPainterPath::CurveToDataElement:
            break; // consumed with its curve
        }
    }
    if (open)
        myClosePathProc(walk);
}
