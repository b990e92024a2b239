#include "QVGeometry.h"

#include <algorithm>
#include <cmath>

namespace {

double roundHalfUp(double v)
{
    return std::floor(v + 0.5);
}

// Whether outer contains rect entirely, in y-up terms (edges may touch); an empty rect is in
// no rectangle.
bool containsRect(const QRectF &outer, const QRectF &rect)
{
    return rect.width() > 0 && rect.height() > 0 && outer.x() <= rect.x() &&
           outer.y() <= rect.y() && rect.x() + rect.width() <= outer.x() + outer.width() &&
           rect.y() + rect.height() <= outer.y() + outer.height();
}

QRectF centered(QRectF rect, const QRectF &outer, bool integral, double belowShare)
{
    double width = rect.width();
    double height = rect.height();
    if (integral) {
        width = roundHalfUp(width);
        height = roundHalfUp(height);
    }
    double x = (outer.width() - width) * 0.5 + outer.x();
    double y = (outer.height() - height) * belowShare + outer.y();
    if (integral) {
        x = roundHalfUp(x);
        y = roundHalfUp(y);
    }
    return QRectF(x, y, width, height);
}

// One dimension of the capture: the new origin of [origin, origin + length) within
// [outerOrigin, outerOrigin + outerLength).
double captured(double origin, double length, double outerOrigin, double outerLength, bool integral)
{
    if (outerOrigin > origin)
        return integral ? std::ceil(outerOrigin) : outerOrigin;
    if (outerOrigin + outerLength < origin + length) {
        const double moved = outerOrigin + outerLength - length;
        return integral ? std::floor(moved) : moved;
    }
    return origin;
}

} // namespace

QRectF QVMaxInscribedRectInRect(QRectF rect, QRectF outer)
{
    if (rect.width() == 0 || rect.height() == 0 || outer.width() == 0 || outer.height() == 0)
        return QRectF();
    const double a = rect.width() / rect.height();
    const double b = outer.width() / outer.height();
    if (a == b)
        return outer;
    if (a < b) {
        const double width = a * outer.height();
        return QRectF((outer.width() - width) * 0.5 + outer.x(), outer.y(), width, outer.height());
    }
    const double height = outer.width() / a;
    return QRectF(outer.x(), (outer.height() - height) * 0.5 + outer.y(), outer.width(), height);
}

QRectF QVMakeRectFromPointToPoint(QPointF p1, QPointF p2)
{
    return QRectF(std::min(p1.x(), p2.x()), std::min(p1.y(), p2.y()), std::fabs(p1.x() - p2.x()),
                  std::fabs(p1.y() - p2.y()));
}

QRectF QVMakeRectWithSize(QSizeF size)
{
    return QRectF(QPointF(0, 0), size);
}

QRectF QVCenteredRectInRect(QRectF rect, QRectF outer, bool integral)
{
    return centered(rect, outer, integral, 0.5);
}

QRectF QVAppleCenteredRectInRect(QRectF rect, QRectF outer, bool integral)
{
    return centered(rect, outer, integral, 0.25 * 3.0);
}

QRectF QVCapturedRectInRect(QRectF rect, QRectF outer, bool integral)
{
    if (rect.width() > outer.width() && rect.height() > outer.height())
        return QRectF();
    if (integral) {
        rect.setWidth(roundHalfUp(rect.width()));
        rect.setHeight(roundHalfUp(rect.height()));
        outer.setWidth(std::floor(outer.width()));
        outer.setHeight(std::floor(outer.height()));
    }
    if (containsRect(outer, rect))
        return rect;
    const double x = captured(rect.x(), rect.width(), outer.x(), outer.width(), integral);
    const double y = captured(rect.y(), rect.height(), outer.y(), outer.height(), integral);
    return QRectF(x, y, rect.width(), rect.height());
}

QSizeF QVOffsetFromPointToPoint(QPointF p1, QPointF p2)
{
    return QSizeF(p2.x() - p1.x(), p2.y() - p1.y());
}
