#include "QVFileDropLayout.h"

#include "QVGeometry.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kBorderInset = 7;
constexpr double kBorderLift = 1;
constexpr double kContentInset = 28;
constexpr double kArrowGap = 7; // between the message and the arrow
constexpr double kMaxArrowHeight = 90;
constexpr double kDashPeriod = 16;                  // 4 on, 12 off
constexpr double kTwoPiRadius = 56.548667764616276; // 2π·9: the four corners' arcs

} // namespace

QVDashPattern QVFileDropDashPattern(const QRectF &border)
{
    QVDashPattern dash;
    // The straight sides lose 2·9 each to the corners, which add a full circle of radius 9.
    dash.perimeter = 2 * border.width() + 2 * border.height() - 72 + kTwoPiRadius;
    if (!(dash.perimeter > 0))
        return dash;
    const float q = float(dash.perimeter / kDashPeriod);
    dash.periods = long(std::fmod(dash.perimeter, kDashPeriod) > kDashPeriod / 2 ? std::ceil(q)
                                                                                 : std::floor(q));
    dash.periods = std::max(dash.periods, 1L);
    const double f = (dash.perimeter / double(dash.periods)) / kDashPeriod;
    dash.on = 4 * f;
    dash.off = 12 * f;
    return dash;
}

QVFileDropLayout QVFileDropLayoutForBounds(const QRectF &bounds, const QSizeF &textSize)
{
    QVFileDropLayout layout;
    layout.border = bounds.adjusted(kBorderInset, kBorderInset, -kBorderInset, -kBorderInset)
                        .translated(0, kBorderLift);
    layout.dash = QVFileDropDashPattern(layout.border);
    const QRectF &Q = layout.content =
        bounds.adjusted(kContentInset, kContentInset, -kContentInset, -kContentInset);
    QRectF T(QPointF(0, 0), textSize);
    layout.arrowPossible = Q.height() > T.height();
    if (layout.arrowPossible) {
        const double h = std::min(kMaxArrowHeight, Q.height() - T.height());
        const double w = 2 * h / 3;
        T.moveTo((Q.width() - T.width()) / 2 + Q.x(),
                 (Q.height() - (h + kArrowGap + T.height())) / 2 + Q.y());
        layout.arrow = QRectF((Q.width() - w) / 2 + Q.x(), T.y() + T.height() + kArrowGap, w, h);
    } else {
        T = QVCenteredRectInRect(T, Q, false);
    }
    layout.text = T;
    return layout;
}

QVInnerShadowGeometry QVInnerShadowGeometryForArrow(const QRectF &arrowBounds,
                                                    const QPointF &shadowOffset, double blurRadius)
{
    QVInnerShadowGeometry g;
    const QRectF K = arrowBounds.adjusted(-blurRadius, -blurRadius, blurRadius, blurRadius)
                         .translated(-shadowOffset.x(), -shadowOffset.y());
    g.frame = K.united(arrowBounds).adjusted(-1, -1, 1, 1);
    g.shift = std::round(g.frame.width()); // half away from zero
    // Each 0.1 carries the sign of what it is added to, negative zero included.
    const auto nudge = [](double v) { return v + std::copysign(0.1, v); };
    g.offset = QPointF(nudge(g.shift + shadowOffset.x()), nudge(shadowOffset.y()));
    return g;
}
