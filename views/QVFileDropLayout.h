#pragma once
// Where the drop target's parts go, in points, with the origin at the view's lower-left corner
// and y growing upwards. The view flips these rectangles once when it paints.

#include <QPointF>
#include <QRectF>
#include <QSizeF>

// The border's dash pattern: `periods` whole periods of 4 on and 12 off, stretched or shrunk
// by the same factor so that they fill the border's perimeter exactly.
struct QVDashPattern {
    double perimeter = 0;
    long periods = 0;
    double on = 0;
    double off = 0;
    double phase = -2;
};

struct QVFileDropLayout {
    QRectF border; // the dashed rounded rectangle's frame: bounds inset by 7, moved up by 1
    QVDashPattern dash;
    QRectF content; // bounds inset by 28: the arrow and the message share it
    QRectF text;    // where the message is drawn
    bool arrowPossible = false;
    QRectF arrow; // the arrow's frame, 7 points above the message
};

// Corner radius of the border and the background.
inline constexpr double kQVDropCornerRadius = 9;

// The perimeter of a rounded rectangle of corner radius 9 over `border`, and the dashes that
// fit it. A perimeter too short for one period (under 8) gets one period; a perimeter of 0 or
// less gets none (no border is drawn).
QVDashPattern QVFileDropDashPattern(const QRectF &border);

// The layout for view bounds and the measured size of the message.
QVFileDropLayout QVFileDropLayoutForBounds(const QRectF &bounds, const QSizeF &textSize);

// The arrow's inner highlight: the frame rectangle U around the arrow's bounds, and the offset
// that carries a copy of the frame moved left by U's width back over the arrow, just below
// its top edges (for a shadow of offset `shadowOffset` and blur radius `blurRadius`).
struct QVInnerShadowGeometry {
    QRectF frame;
    double shift = 0; // the frame is moved by (-shift, 0) before it is drawn
    QPointF offset;   // the shadow's offset that brings it back
};
QVInnerShadowGeometry QVInnerShadowGeometryForArrow(const QRectF &arrowBounds,
                                                    const QPointF &shadowOffset, double blurRadius);
