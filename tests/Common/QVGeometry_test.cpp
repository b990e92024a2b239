// The rectangle functions against cases worked out by hand (tests/data/geometry/rectangles.csv).

#include "QVGeometry.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

TEST(QVGeometry, RectangleCasesWorkedByHand)
{
    std::ifstream in(CXF_TEST_DATA_DIR "/geometry/rectangles.csv");
    std::string line;
    std::getline(in, line);
    int cases = 0;
    while (std::getline(in, line)) {
        std::istringstream row(line);
        std::string name, function, field;
        std::getline(row, name, ',');
        std::getline(row, function, ',');
        std::vector<double> v;
        while (std::getline(row, field, ','))
            v.push_back(std::stod(field));
        ASSERT_EQ(v.size(), 13u) << line;
        const QRectF rect(v[0], v[1], v[2], v[3]), outer(v[4], v[5], v[6], v[7]);
        const QPointF p1(v[0], v[1]), p2(v[2], v[3]);
        const bool integral = v[8] != 0;
        QRectF got;
        if (function == "centered")
            got = QVCenteredRectInRect(rect, outer, integral);
        else if (function == "appleCentered")
            got = QVAppleCenteredRectInRect(rect, outer, integral);
        else if (function == "captured")
            got = QVCapturedRectInRect(rect, outer, integral);
        else if (function == "maxInscribed")
            got = QVMaxInscribedRectInRect(rect, outer);
        else if (function == "fromPointToPoint")
            got = QVMakeRectFromPointToPoint(p1, p2);
        else if (function == "offset")
            got = QRectF(QPointF(0, 0), QVOffsetFromPointToPoint(p1, p2));
        else
            FAIL() << "unknown function " << function;
        // Exact: every expected value is a whole or half number.
        EXPECT_EQ(got.x(), v[9]) << name;
        EXPECT_EQ(got.y(), v[10]) << name;
        EXPECT_EQ(got.width(), v[11]) << name;
        EXPECT_EQ(got.height(), v[12]) << name;
        ++cases;
    }
    EXPECT_EQ(cases, 20);
}
