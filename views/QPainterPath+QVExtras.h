#pragma once
// Closed outline shapes built from a rectangle and a few numbers: an arrow, rounded rectangles,
// capsules, regular polygons, triangles, jagged (zigzag-edged) ovals and pills, and a stroke
// that falls only inside a path.
//
// Every path is built in y-up coordinates: a QRectF's y() is its lower edge (minY) and
// y() + height() its upper edge (maxY); angles run counter-clockwise from the positive x axis.
// A view maps the result to Qt's y-down space once, when it paints (scale(1, -1) after a
// translation by its height).

#include <QPainterPath>
#include <QRectF>

// The arrow outline in rect: seven points joined by straight lines and closed. The head spans
// the whole rectangle and is headLength long; the shaft's sides lie tailWidth / 2 inside the
// rectangle's sides (tailWidth is what is cut away from the shaft, not the shaft's width).
// pointing: 0 up (towards maxY), 2 left, 3 right, 1 and every other value down.
// Example: rect (0, 0, 20, 30), headLength 10, tailWidth 10, pointing 1 has its tip at (10, 0),
// head corners (20, 10) and (0, 10), and a shaft from x = 5 to x = 15 up to y = 30.
QPainterPath bezierPathWithArrowInRect(const QRectF &rect, double headLength, double tailWidth,
                                       qint64 pointing);

// A new path holding one rounded rectangle (appendBezierPathWithRoundedRectangle).
QPainterPath bezierPathWithRoundedRectangle(const QRectF &rect, float radius);

// Appends one rounded rectangle to path. An empty rectangle (width or height 0 or less) appends
// nothing; a radius of 0 or less appends the plain rectangle; otherwise the radius is clamped to
// half the smaller side (in single precision) and the outline starts at (midX, maxY) and runs
// counter-clockwise through four tangent arcs, then closes.
// Example: radius 50 in a 40 x 20 rectangle gives corners of radius 10.
void appendBezierPathWithRoundedRectangle(QPainterPath &path, const QRectF &rect, float radius);

// A tangent arc, as PostScript's arct draws it: the arc of the given radius that touches the line
// from the path's current point to p1 and the line from p1 to p2, preceded by a straight line
// from the current point to the first tangent point. The path ends on the second tangent point.
// When the three points are collinear, the radius is 0 or less, or the path is empty, it draws
// a straight line to p1 instead (nothing at all on an empty path).
void appendArcFromPointToPoint(QPainterPath &path, const QPointF &p1, const QPointF &p2,
                               double radius);
