// Drop target geometry against layouts worked out by hand (tests/data/views/drop_layout.csv).
#include "QVFileDropLayout.h"
#include "csv_table.h"
#include "tolerance.h"

#include <gtest/gtest.h>

namespace {

// The table's values are printed to ten significant digits.
constexpr double kTolTable = 1e-7;

TEST(QVFileDropLayout, MatchesTheLayoutsWorkedByHand)
{
    const CsvTable table = readCsv(CXF_TEST_DATA_DIR "/views/drop_layout.csv");
    for (const std::vector<std::string> &f : table.rows) {
        ASSERT_EQ(f.size(), 25u) << f[0];
        std::vector<double> v;
        for (size_t i = 1; i < f.size(); ++i)
            v.push_back(std::stod(f[i]));
        SCOPED_TRACE(f[0]);
        const auto rect = [&](size_t i) { return QRectF(v[i], v[i + 1], v[i + 2], v[i + 3]); };
        const QVFileDropLayout layout = QVFileDropLayoutForBounds(rect(0), QSizeF(v[4], v[5]));
        const auto expectRect = [](const QRectF &actual, const QRectF &expected) {
            for (const auto &[a, e] : {std::pair{actual.topLeft(), expected.topLeft()},
                                       std::pair{actual.bottomRight(), expected.bottomRight()}}) {
                EXPECT_CLOSE(a.x(), e.x(), kTolTable);
                EXPECT_CLOSE(a.y(), e.y(), kTolTable);
            }
        };
        expectRect(layout.border, rect(6));
        EXPECT_EQ(layout.dash.periods, long(v[10]));
        EXPECT_CLOSE(layout.dash.on, v[11], kTolTable);
        EXPECT_CLOSE(layout.dash.off, v[12], kTolTable);
        expectRect(layout.content, rect(13));
        EXPECT_EQ(layout.arrowPossible, v[17] != 0);
        EXPECT_CLOSE(layout.text.x(), v[18], kTolTable);
        EXPECT_CLOSE(layout.text.y(), v[19], kTolTable);
        if (layout.arrowPossible)
            expectRect(layout.arrow, rect(20));
    }
    EXPECT_EQ(table.rows.size(), 7u);
}

TEST(QVFileDropLayout, InnerHighlightComesBackJustBelowTheArrowsTop)
{
    // Arrow bounds (10, 20, 40, 60), offset (0, -1), no blur: K moves up 1 to (10, 21, 40, 60);
    // united with the bounds (10, 20, 40, 61), grown by 1: (9, 19, 42, 63); 42 to move back,
    // plus 0.1 in x and -0.1 in y.
    const QVInnerShadowGeometry g =
        QVInnerShadowGeometryForArrow(QRectF(10, 20, 40, 60), QPointF(0, -1), 0);
    EXPECT_EQ(g.frame, QRectF(9, 19, 42, 63));
    EXPECT_EQ(g.shift, 42);
    EXPECT_CLOSE(g.offset.x(), 42.1, kTolUlps * 100);
    EXPECT_CLOSE(g.offset.y(), -1.1, kTolUlps * 10);
    // A negative zero offset takes -0.1.
    EXPECT_CLOSE(QVInnerShadowGeometryForArrow(QRectF(0, 0, 2, 2), QPointF(0, -0.0), 0).offset.y(),
                 -0.1, kTolUlps);
}

} // namespace
