// The comparison the window and the tool share: stored floats, verdict and highlight rules.
#include "comparison.h"

#include "tolerance.h"

#include <cmath>
#include <limits>

namespace {

const float nanf_ = std::numeric_limits<float>::quiet_NaN();

struct VerdictCase {
    const char *name;
    float delta_E, tolerance;
    Verdict expected;
};

TEST(Verdict, FollowsTheToleranceRule)
{
    const VerdictCase cases[] = {
        {"identical samples are neutral, not a match", 0.0f, 2.5f, Verdict::Neutral},
        {"negative zero is neutral too", -0.0f, 2.5f, Verdict::Neutral},
        {"delta E equal to the tolerance is a match", 2.5f, 2.5f, Verdict::Match},
        {"just above the tolerance is a mismatch", std::nextafter(2.5f, 3.0f), 2.5f,
         Verdict::Mismatch},
        {"the magnitude is compared", -1.0f, 2.5f, Verdict::Match},
        {"NaN shows as a mismatch", nanf_, 2.5f, Verdict::Mismatch},
        {"a zero tolerance matches nothing but identity", 0.01f, 0.0f, Verdict::Mismatch},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(verdictFor(c.delta_E, c.tolerance), c.expected);
    }
}

struct HighlightCase {
    const char *name;
    float dL, dC, dH;
    bool L, C, H;
};

TEST(Highlight, MarksEveryFieldReachingTheLargestMagnitude)
{
    const HighlightCase cases[] = {
        {"all zero: none", 0, 0, 0, false, false, false},
        {"lightness largest", -3, 1, 2, true, false, false},
        {"chroma largest by magnitude", 1, -4, 2, false, true, false},
        {"hue largest", 1, 1, 2, false, false, true},
        {"two tie", 2, -2, 1, true, true, false},
        {"three tie", 1, 1, 1, true, true, true},
        {"a NaN hue term is passed over", 1, 2, nanf_, false, true, false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        CmcDifferences d;
        d.delta_L = c.dL;
        d.delta_C = c.dC;
        d.delta_H = c.dH;
        const Highlight h = highlightFor(d);
        EXPECT_EQ(h.lightness, c.L);
        EXPECT_EQ(h.chroma, c.C);
        EXPECT_EQ(h.hue, c.H);
    }
}

TEST(CmcDifferences, AreStoredAsFloatsOfTheCmcTwoToOneTerms)
{
    // Worked independently (CMC equations with the polynomial hue of the LCh path):
    // reference (60, 20, 30), sample (62, 18, 35): ΔE 5.550024367, ΔL 0.8375025422,
    // ΔC 1.500566857, ΔH 5.277277620.
    const CmcDifferences d = computeCmcDifferences({60, 20, 30, 1}, {62, 18, 35, 1});
    EXPECT_EQ(d.delta_E, float(5.550024367490058));
    EXPECT_EQ(d.delta_L, float(0.8375025422005289));
    EXPECT_EQ(d.delta_C, float(1.5005668570249413));
    EXPECT_EQ(d.delta_H, float(5.2772776200555676));
    // Hue angles: atan2 gives 56.31° and 62.78°, so about 6.47°; the polynomial hue of each
    // is within 0.6° of the exact one, and their difference within 0.1° here.
    EXPECT_CLOSE(d.delta_H_deg, 62.7791 - 56.3099, 0.1);
}

TEST(CmcDifferences, IdenticalSamplesGiveZeros)
{
    const CmcDifferences d = computeCmcDifferences({45, -12, 33, 1}, {45, -12, 33, 1});
    EXPECT_EQ(d.delta_E, 0);
    EXPECT_EQ(d.delta_L, 0);
    EXPECT_EQ(d.delta_C, 0);
    EXPECT_EQ(d.delta_H, 0);
    EXPECT_EQ(d.delta_H_deg, 0);
}

TEST(CmcDifferences, SwappingTheSamplesChangesEveryValue)
{
    const LabColor p{45, 20, -30, 1}, q{52, 28, -22, 1};
    const CmcDifferences forward = computeCmcDifferences(p, q);
    const CmcDifferences backward = computeCmcDifferences(q, p);
    EXPECT_NE(forward.delta_E, backward.delta_E);
    EXPECT_NE(forward.delta_L, -backward.delta_L); // weighted by the other reference
    EXPECT_NE(forward.delta_C, -backward.delta_C);
    EXPECT_NE(forward.delta_H, backward.delta_H);
    EXPECT_EQ(forward.delta_H_deg, -backward.delta_H_deg); // the angle is just reversed
}

TEST(CmcDifferences, HueAngleDifferenceTakesTheShortWayRound)
{
    // Hues either side of 180°: 178.09° and −178.09°, so 2·atan(1/30) = 3.8184° apart the
    // short way (forward), not 356°. Each polynomial hue is within 0.582° of the exact one.
    const CmcDifferences d = computeCmcDifferences({50, -30, 1, 1}, {50, -30, -1, 1});
    EXPECT_CLOSE(d.delta_H_deg, 3.8184, 2 * 0.582);
}

} // namespace
