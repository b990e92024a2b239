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

#include <optional>
#include <span>

class QPainter;

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

// ---- The rest of the family ----

// Which end of a capsule is rounded (bezierPathWithCapsule with flags).
enum QVCapsuleEnds : int {
    QVCapsuleSquareEnds = 0,
    QVCapsuleRoundLeftEnd = 1 << 0,
    QVCapsuleRoundRightEnd = 1 << 1,
    QVCapsuleRoundBothEnds = QVCapsuleRoundLeftEnd | QVCapsuleRoundRightEnd,
};

// The side of a rectangle a triangle stands on (bezierPathWithTriangleInRect by edge). Any other
// value is accepted and gives an empty path.
enum class QVRectEdge : int { MinX = 0, MinY = 1, MaxX = 2, MaxY = 3 };

// A rounded rectangle with radius half the smaller side: a pill, or a circle in a square.
QPainterPath bezierPathWithCapsule(const QRectF &rect);

// A pill whose ends are rounded by choice (QVCapsuleEnds flags; radius half the height). The
// outline starts at (midX, maxY), runs to the left end (two tangent arcs through (minX, maxY)
// and (minX, minY), or two straight lines to those corners), then the right end through
// (maxX, minY) and (maxX, maxY), and closes.
QPainterPath bezierPathWithCapsule(const QRectF &rect, int roundEnds);

// The rounded rectangle of appendBezierPathWithRoundedRectangle built from four quarter circles
// centred on the corners of the rectangle inset by the clamped radius: lower-left 180° to 270°,
// lower-right 270° to 360°, upper-right 0° to 90°, upper-left 90° to 180°, then closed. There is
// no check for an empty rectangle.
QPainterPath bezierPathWithRoundRectInRect(const QRectF &rect, double radius);

// A regular polygon of n sides about the origin: first vertex (0, radius), each next one 2π/n
// further clockwise, closed. No path for n = 0. One side gives the single point (0, radius):
// a QPainterPath keeps no closing segment for a lone point.
// Example: 4 sides, radius 2: (0, 2), (2, 0), (0, -2), (-2, 0).
std::optional<QPainterPath> bezierPathWithSides(quint32 sides, double radius);

// The unit polygon above scaled so that its bounds have rect's width and height. It is scaled
// only, not moved to the rectangle's origin; this is kept as it stands. No path for n = 0.
std::optional<QPainterPath> bezierPathWithSides(quint32 sides, const QRectF &rect);

// A regular polygon about centre: vertex i at angle i·2π/n from the positive x axis,
// counter-clockwise, at radius. An empty path for n ≤ 0.
QPainterPath bezierPathWithPolygonAt(const QPointF &centre, double radius, int sides);

// A closed triangle with its apex at the middle of the side named by pointing (1 down, 2 left,
// 3 right; 0 and every other value up, unlike the arrow) and its base along the opposite side.
// The points run counter-clockwise, the apex last.
QPainterPath bezierPathWithTriangleInRect(const QRectF &rect, qint64 pointing);

// A triangle standing on the given side with its apex at the middle of the opposite one, left
// open (a move and two lines). MinX runs (minX, minY), (minX, maxY), (maxX, midY); the others
// are the same figure turned. A code outside the four sides gives an empty path.
QPainterPath bezierPathWithTriangleInRect(const QRectF &rect, QVRectEdge edge);

// Strokes path on painter so that the stroke, as wide as the painter's pen, lies wholly inside
// the outline: saves the state, doubles the pen's width, clips to the path and, when rect has a
// positive width and height, also to rect, strokes and restores (the pen's width with it).
void strokeInsideWithinRect(QPainter &painter, const QPainterPath &path, const QRectF &rect);
// strokeInsideWithinRect with the zero rectangle (no extra clip).
void strokeInside(QPainter &painter, const QPainterPath &path);

// A zigzag-edged oval. The rectangle is normalised first (a negative width or height is made
// positive by moving the origin). When width and height are both at least 4 and spacing at
// least 3, the corner lengths are half the width and half the height, zol_validRectWithRect
// adjusts spacing, rectangle and corner lengths, and if the spacing is still at least 2 the
// result is zol_bezierPathWithJaggedRoundedRectInRect; otherwise the plain oval.
QPainterPath bezierPathWithJaggedOvalInRect(const QRectF &rect, double spacing);

// The same for a pill: both corner lengths are half the smaller side, and where the jagged pill
// is not made (a rectangle under 4 wide or high, a spacing under 3, or under 1 once adjusted)
// the result is the plain bezierPathWithRoundRectInRect with radius half the smaller side.
QPainterPath bezierPathWithJaggedPillInRect(const QRectF &rect, double spacing);

// Limits spacing to a quarter of the smaller corner length, grows rect outwards by the spacing
// on every side and rescales a and b in proportion to the grown width and height. Returns the
// grown rectangle. Example: (0, 0, 40, 20), a 20, b 10, spacing 4 gives spacing 2.5, the
// rectangle (-2.5, -2.5, 45, 25), a 22.5 and b 12.5.
QRectF zol_validRectWithRect(const QRectF &rect, double &a, double &b, double &spacing);

// The zigzag outline of rect with elliptical corners of lengths a (along x) and b (along y).
// The straight edges are drawn with zol_jaggedLineToPoint, one tooth per spacing (at least
// one) and teeth spacing / 2 high; each quarter-ellipse corner is split into chords about a
// spacing long, each drawn as one tooth. Starts at (minX + a, minY), the left end of the bottom
// edge, and runs counter-clockwise; closed.
QPainterPath zol_bezierPathWithJaggedRoundedRectInRect(const QRectF &rect, double a, double b,
                                                       double spacing);

// From the path's last point (nothing on an empty path, or for fewer than one tooth) towards
// target in n teeth: with d = target − current, len = |d| and step = d / n, each tooth adds a
// peak at (current.x + d.y/len·width + step.x/2, current.y + d.x/len·width + step.y/2) and then
// the next base point current + step. The 2n points are gathered in buffer (room for 2n
// points; a smaller buffer draws nothing) and appended as lines. The peak offset swaps the
// direction's components instead of turning it, a true perpendicular only for horizontal and
// vertical edges; this is kept as it stands. A zero-length edge puts the peaks on the base.
void zol_jaggedLineToPoint(QPainterPath &path, const QPointF &target, int teeth, double width,
                           std::span<QPointF> buffer);

// Fits whole teeth to a length, in single precision. For a length above 0: rem = length mod
// spacing; the length is raised to length + (spacing − rem) (a whole spacing more when rem is
// 0); gap = spacing − rem; count grows by the whole number of spacings in the raised length,
// plus 1 when what is left over exceeds half a spacing. For a length of 0 or less, gap = 0.
// Returns half the (possibly raised) length.
// Example: count 0, length 10, spacing 3: count 4, gap 2, result 6.
float CubicBezierPathGapAdjustment(float &count, float &gap, float length, float spacing);

// ---- Inspecting a glyph outline ----

// What the outline callbacks draw with: a painter in y-up coordinates, the text origin, and the
// pen's current position (kept by the callbacks).
struct QVGlyphOutlineWalk {
    QPainter *painter = nullptr;
    QPointF origin;
    QPointF current;
};

// Outline points are y-down offsets from the origin, as QPainterPath::addText makes them; each
// callback places a point at (origin.x + x, origin.y − y). All return 0.
// A new contour: nothing (the walk moves the current position).
int myNewPathProc(QVGlyphOutlineWalk &walk);
// A line: green, strokes the segment from the current position to the point.
int myLineProc(const QPointF &point, QVGlyphOutlineWalk &walk);
// A cubic curve: blue, strokes the straight chord from the current position to its end; the
// control points are ignored.
int myCurveProc(const QPointF &control1, const QPointF &control2, const QPointF &end,
                QVGlyphOutlineWalk &walk);
// The end of a contour: nothing.
int myClosePathProc(QVGlyphOutlineWalk &walk);

// Walks outline's elements (from QPainterPath::addText at (0, 0)) through the four callbacks:
// a move closes the contour before it (myClosePathProc), starts a new one (myNewPathProc) and
// moves the current position; lines and cubic curves go to their callbacks, and the last
// contour is closed at the end.
void walkGlyphOutline(const QPainterPath &outline, QVGlyphOutlineWalk &walk);
