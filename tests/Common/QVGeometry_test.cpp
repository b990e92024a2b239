// The rectangle functions against cases worked out by hand (tests/data/geometry/rectangles.csv).

#include "QVGeometry.h"
#include "qt_csv.h"

#include <gtest/gtest.h>

#include <array>

TEST(QVGeometry, RectangleCasesWorkedByHand)
{
    const std::vector<QStringList> rows = qtCsvRows("geometry/rectangles.csv");
    for (const QStringList &f : rows) {
        const QString &name = f[0], &function = f[1];
        double v[13];
        for (int i = 0; i < 13; ++i)
            v[i] = f[i + 2].toDouble();
        const QRectF rect(v[0], v[1], v[2], v[3]), outer(v[4], v[5], v[6], v[7]);
        const QPointF p1(v[0], v[1]), p2(v[2], v[3]);
        const bool integral = v[8] != 0;
        QRectF got;
        if (function == u"centered")
            got = QVCenteredRectInRect(rect, outer, integral);
        else if (function == u"appleCentered")
            got = QVAppleCenteredRectInRect(rect, outer, integral);
        else if (function == u"captured")
            got = QVCapturedRectInRect(rect, outer, integral);
        else if (function == u"maxInscribed")
            got = QVMaxInscribedRectInRect(rect, outer);
        else if (function == u"fromPointToPoint")
            got = QVMakeRectFromPointToPoint(p1, p2);
        else if (function == u"offset")
            got = QRectF(QPointF(0, 0), QVOffsetFromPointToPoint(p1, p2));
        else
            FAIL() << "unknown function " << function.toStdString();
        // Exact: every expected value is a whole or half number.
        EXPECT_EQ((std::array{got.x(), got.y(), got.width(), got.height()}),
                  (std::array{v[9], v[10], v[11], v[12]}))
            << name.toStdString();
    }
    EXPECT_EQ(rows.size(), 20u);
}
