#pragma once
// Plain functions that centre, capture and inscribe one rectangle in another. QRectF, QPointF
// and QSizeF carry x, y, width and height in y-up coordinates: the origin is the lower-left
// corner and y is the lower edge (QRectF's own top/bottom names are not used here). A view maps
// the results to Qt's y-down space once, where it paints.
//
// With `integral`, values are rounded to whole points as each function says; rounding is
// floor(v + 0.5), so 7.5 becomes 8 and -7.5 becomes -7.

#include <QPointF>
#include <QRectF>
#include <QSizeF>

// The largest rectangle with rect's proportions that fits in outer, centred in it; the zero
// rectangle when either has a zero width or height. No rounding.
// QVMaxInscribedRectInRect((0, 0, 2, 1), (0, 0, 100, 100)) = (0, 25, 100, 50).
QRectF QVMaxInscribedRectInRect(QRectF rect, QRectF outer);

// The rectangle spanned by two points: the lower-left corner is the smaller x and y.
QRectF QVMakeRectFromPointToPoint(QPointF p1, QPointF p2);

// A rectangle at the origin with the given size.
QRectF QVMakeRectWithSize(QSizeF size);

// rect's size placed in the middle of outer; rect's origin is ignored. With `integral` the size
// is rounded first and the position after.
// QVCenteredRectInRect((0, 0, 10, 10), (0, 0, 25, 25), true) = (8, 8, 10, 10).
QRectF QVCenteredRectInRect(QRectF rect, QRectF outer, bool integral);

// As QVCenteredRectInRect across, but three quarters of the free height lie below the rectangle
// and one quarter above it. QVAppleCenteredRectInRect((0, 0, 10, 10), (0, 0, 30, 30), ...)
// has y = 15.
QRectF QVAppleCenteredRectInRect(QRectF rect, QRectF outer, bool integral);

// rect moved, not resized, so that it lies inside outer where it can. The zero rectangle when
// rect is both wider and taller than outer. With `integral` rect's size is rounded but outer's
// is floored (kept as it stands), a moved x or y is ceiled at the lower-left edge and floored
// at the upper-right one. In a dimension where rect is larger, the lower-left edge wins.
QRectF QVCapturedRectInRect(QRectF rect, QRectF outer, bool integral);

// The size (p2.x - p1.x, p2.y - p1.y); it may be negative.
QSizeF QVOffsetFromPointToPoint(QPointF p1, QPointF p2);
