// Shapes in y-up coordinates against hand-worked tables, and painted through a view's one flip.
#include "QPainterPath+QVExtras.h"

#include "qt_csv.h"
#include "tolerance.h"

#include <QImage>
#include <QPainter>

#include <cmath>
#include <vector>

namespace {

constexpr double kTolPath = 1e-9;

std::vector<QPointF> pointsOf(const QString &text)
{
    std::vector<QPointF> points;
    for (const QString &pair : text.split(u'|', Qt::SkipEmptyParts)) {
        const QStringList xy = pair.split(u' ');
        points.emplace_back(xy[0].toDouble(), xy[1].toDouble());
    }
    return points;
}

// Each corner's circle: a point just inside it along the diagonal is in the path, one just
// outside is not (for r = 0 the same probes test the plain corner).
void expectCornerRadius(const QPainterPath &path, const QRectF &rect, double r)
{
    const double minX = rect.x(), minY = rect.y(), maxX = minX + rect.width(),
                 maxY = minY + rect.height();
    const double d = 1 / std::sqrt(2.0);
    const struct {
        QPointF centre, out;
    } corners[] = {{{minX + r, minY + r}, {-d, -d}},
                   {{maxX - r, minY + r}, {d, -d}},
                   {{maxX - r, maxY - r}, {d, d}},
                   {{minX + r, maxY - r}, {-d, d}}};
    for (const auto &c : corners) {
        EXPECT_TRUE(path.contains(c.centre + c.out * (r - 0.05))) << c.centre.x();
        EXPECT_FALSE(path.contains(c.centre + c.out * (r + 0.05))) << c.centre.x();
    }
    EXPECT_TRUE(path.contains(rect.center()));
}

std::optional<QPainterPath> build(const QStringList &row, const QRectF &rect)
{
    const QString &kind = row[0];
    const double p1 = row[5].toDouble(), p2 = row[6].toDouble();
    const qint64 p3 = row[7].toLongLong();
    if (kind == u"arrow")
        return bezierPathWithArrowInRect(rect, p1, p2, p3);
    if (kind == u"sides_radius")
        return bezierPathWithSides(quint32(p1), p2);
    if (kind == u"sides_rect")
        return bezierPathWithSides(quint32(p1), rect);
    if (kind == u"polygon_at")
        return bezierPathWithPolygonAt(rect.topLeft(), p1, int(p2));
    if (kind == u"triangle")
        return bezierPathWithTriangleInRect(rect, p3);
    if (kind == u"triangle_edge")
        return bezierPathWithTriangleInRect(rect, QVRectEdge(p3));
    QPainterPath path; // jagged: from the rectangle's origin to its (w, h) as a point
    path.moveTo(rect.topLeft());
    std::vector<QPointF> buffer(2 * std::size_t(p1));
    zol_jaggedLineToPoint(path, {rect.width(), rect.height()}, int(p1), p2, buffer);
    return path;
}

TEST(BezierShapes, PointsAndCornersMatchTheHandWorkedTable)
{
    for (const QStringList &row : qtCsvRows("shapes/path_points.csv")) {
        SCOPED_TRACE(row.join(u',').toStdString());
        const QRectF rect(row[1].toDouble(), row[2].toDouble(), row[3].toDouble(),
                          row[4].toDouble());
        const QString &kind = row[0];
        if (kind == u"valid_rect") {
            double a = row[5].toDouble(), b = row[6].toDouble(), spacing = row[7].toDouble();
            const QRectF grown = zol_validRectWithRect(rect, a, b, spacing);
            const std::vector<QPointF> want = pointsOf(row[9]);
            EXPECT_EQ(grown, QRectF(want[0], want[1]));
            EXPECT_EQ(QPointF(a, b), want[2]);
            EXPECT_EQ(spacing, want[3].x());
            continue;
        }
        if (kind == u"rounded" || kind == u"roundrect" || kind == u"capsule") {
            const float radius = row[5].toFloat();
            const QPainterPath path =
                kind == u"rounded"     ? bezierPathWithRoundedRectangle(rect, radius)
                : kind == u"roundrect" ? bezierPathWithRoundRectInRect(rect, radius)
                                       : bezierPathWithCapsule(rect);
            if (row[9] == u"none") {
                EXPECT_EQ(path.elementCount(), 0);
            } else {
                expectCornerRadius(path, rect, row[9].toDouble());
            }
            continue;
        }
        const std::optional<QPainterPath> path = build(row, rect);
        if (row[9] == u"none") {
            EXPECT_FALSE(path.has_value());
            continue;
        }
        ASSERT_TRUE(path.has_value());
        const std::vector<QPointF> want = pointsOf(row[9]);
        const bool closed = row[8] == u"1";
        ASSERT_EQ(std::size_t(path->elementCount()), want.size() + (closed ? 1 : 0));
        for (std::size_t i = 0; i < want.size(); ++i) {
            EXPECT_CLOSE(path->elementAt(int(i)).x, want[i].x(), kTolPath) << i;
            EXPECT_CLOSE(path->elementAt(int(i)).y, want[i].y(), kTolPath) << i;
        }
        if (closed) {
            EXPECT_EQ(QPointF(path->elementAt(path->elementCount() - 1)), want.front());
        }
    }
}

TEST(BezierShapes, PaintedAsAViewPaintsThem)
{
    QImage image(140, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(0, 100);
    painter.scale(1, -1); // the one flip: from here on y grows upwards
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawPath(bezierPathWithArrowInRect({20, 10, 60, 80}, 30, 30, 1));
    painter.drawPath(bezierPathWithRoundedRectangle({82, 2, 16, 40}, 8));
    painter.drawPath(bezierPathWithCapsule({100, 60, 36, 16}, QVCapsuleRoundLeftEnd));
    painter.setPen(QPen(Qt::red, 4));
    strokeInsideWithinRect(painter, bezierPathWithRoundedRectangle({84, 50, 14, 40}, 0),
                           {80, 40, 30, 30});
    painter.end();

    // Pixel centres in y-up coordinates (x.5, y.5), worked from the shapes: the arrow points down
    // to (50, 10) and its head is 30 high; the rounded rectangle's lower corners are cut by radius
    // 8; the capsule's left end is rounded (radius 8, half its height), its right end square; the
    // stroke inside the last rectangle is 4 wide and stops at y = 70.
    const struct {
        double x, y;
        QColor colour;
    } probes[] = {{30, 35, Qt::black},  {50, 85, Qt::black},      {30, 85, Qt::white},
                  {30, 15, Qt::white},  {82.5, 2.5, Qt::white},   {90, 4, Qt::black},
                  {90, 38, Qt::black},  {100.5, 60.5, Qt::white}, {135.5, 60.5, Qt::black},
                  {118, 68, Qt::black}, {87.5, 60, Qt::red},      {91, 60, Qt::white},
                  {83, 60, Qt::white},  {87.5, 80, Qt::white}};
    for (const auto &p : probes) {
        SCOPED_TRACE(testing::Message() << p.x << ", " << p.y);
        EXPECT_EQ(image.pixelColor(int(p.x), 99 - int(p.y)), p.colour);
    }
}

TEST(BezierShapes, GapAdjustmentFitsWholeTeeth)
{
    for (const QStringList &row : qtCsvRows("shapes/gap_adjustment.csv")) {
        SCOPED_TRACE(row.join(u',').toStdString());
        float count = row[0].toFloat(), gap = -1;
        const float half =
            CubicBezierPathGapAdjustment(count, gap, row[1].toFloat(), row[2].toFloat());
        EXPECT_EQ(count, row[3].toFloat());
        EXPECT_EQ(gap, row[4].toFloat());
        EXPECT_EQ(half, row[5].toFloat());
    }
}

} // namespace
