// Chromaticity diagrams and correlated colour temperature.
//
// References: [CIE015-2004] (xy, uv, u'v'), [Robertson1968] and its table, [McCamy1992],
// [HernandezAndres1999], [Kang2002], [Krystek1985]. Worked values were computed outside this
// code base from the published formulas in exact decimal arithmetic (Python `fractions` and
// `decimal`), with the intermediate steps given where they help.
#include "chromaticity.h"
#include "data/cie1931_spectral_locus_xy_1nm.h"
#include "data/robertson_isotemperature_lines.h"

#include "tolerance.h"

#include <cmath>
#include <limits>
#include <string>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// The D65 white as the examples use it.
constexpr double kD65x = 0.31271, kD65y = 0.32902;

// --- XYZ, xy and xyY ---------------------------------------------------------------------

TEST(Chromaticity, WorkedXYZAndxyYExamples)
{
    // 0.95047 / (0.95047 + 1 + 1.08883) = 0.95047 / 3.0393.
    const xyChromaticity xy = xy_from_XYZ(0.95047, 1, 1.08883);
    EXPECT_CLOSE(xy.x, 0.3127266146810121, kTolUlps);
    EXPECT_CLOSE(xy.y, 0.3290231303260619, kTolUlps);

    const xyYTriple xyY = xyY_from_XYZ(0.95047, 1, 1.08883);
    EXPECT_CLOSE(xyY.x, 0.3127266146810121, kTolUlps);
    EXPECT_CLOSE(xyY.y, 0.3290231303260619, kTolUlps);
    EXPECT_EQ(xyY.Y, 1);

    // 0.31271 · 0.5 / 0.32902 and 0.35827 · 0.5 / 0.32902.
    const XYZTriple XYZ = XYZ_from_xyY(kD65x, kD65y, 0.5);
    EXPECT_CLOSE(XYZ.X, 0.47521427268859034, kTolUlps);
    EXPECT_EQ(XYZ.Y, 0.5);
    EXPECT_CLOSE(XYZ.Z, 0.5444501853990639, kTolUlps);

    const XYZTriple white = XYZ_from_xy(kD65x, kD65y);
    EXPECT_CLOSE(white.X, 0.9504285453771807, kTolUlps);
    EXPECT_EQ(white.Y, 1);
    EXPECT_CLOSE(white.Z, 1.0889003707981277, kTolUlps);
}

TEST(Chromaticity, ZeroInputsGiveTheEqualEnergyPointAndZeroYGivesZeros)
{
    const xyChromaticity xy = xy_from_XYZ(0, 0, 0);
    EXPECT_EQ(xy.x, 0.3333333333333333);
    EXPECT_EQ(xy.y, 0.3333333333333333);
    const xyYTriple xyY = xyY_from_XYZ(0, 0, 0);
    EXPECT_EQ(xyY.x, 0.3333333333333333);
    EXPECT_EQ(xyY.y, 0.3333333333333333);
    EXPECT_EQ(xyY.Y, 0);

    for (const XYZTriple XYZ : {XYZ_from_xy(0.3, 0), XYZ_from_xyY(0.3, 0, 1)}) {
        EXPECT_EQ(XYZ.X, 0);
        EXPECT_EQ(XYZ.Y, 0);
        EXPECT_EQ(XYZ.Z, 0);
    }
    // A sum of zero from mixed signs is not the zero input: it divides by zero.
    EXPECT_EQ(xy_from_XYZ(1, -1, 0).x, kInf);
}

TEST(Chromaticity, xyYAndXYZRoundTripOverAGrid)
{
    for (double x = 0.05; x < 0.75; x += 0.05) {
        for (double y = 0.05; y < 0.85; y += 0.05) {
            for (double Y : {0.01, 1.0, 100.0}) {
                const XYZTriple XYZ = XYZ_from_xyY(x, y, Y);
                const xyYTriple back = xyY_from_XYZ(XYZ.X, XYZ.Y, XYZ.Z);
                SCOPED_TRACE("x " + std::to_string(x) + " y " + std::to_string(y));
                EXPECT_CLOSE(back.x, x, kTolRoundTrip);
                EXPECT_CLOSE(back.y, y, kTolRoundTrip);
                EXPECT_EQ(back.Y, Y);
            }
        }
    }
}

// --- The uniform chromaticity scales -----------------------------------------------------

TEST(UniformChromaticityScales, WorkedExamples)
{
    // D = −2·0.31271 + 12·0.32902 + 3 = 6.32282; u = 1.25084 / D, v = 1.97412 / D,
    // v' = 2.96118 / D.
    const uvChromaticity uv = CIE_1960_uv_from_1931_xy(kD65x, kD65y);
    EXPECT_CLOSE(uv.u, 0.19782944951777845, kTolUlps);
    EXPECT_CLOSE(uv.v, 0.3122214454942573, kTolUlps);
    const upvpChromaticity upvp = CIE_1976_upvp_from_1931_xy(kD65x, kD65y);
    EXPECT_CLOSE(upvp.up, 0.19782944951777845, kTolUlps);
    EXPECT_CLOSE(upvp.vp, 0.46833216824138596, kTolUlps);
    // Rounded to four decimals these are the D65 u', v' of [CIE015-2004], 0.1978, 0.4683.
    EXPECT_CLOSE(upvp.up, 0.1978, kTolPublished4);
    EXPECT_CLOSE(upvp.vp, 0.4683, kTolPublished4);

    // E = 2·0.19783 − 8·0.31222 + 4 = 1.90790; F = 6·0.19783 − 16·0.46833 + 12 = 5.72370.
    const xyChromaticity fromUV = CIE_1931_xy_from_1960_uv(0.19783, 0.31222);
    EXPECT_CLOSE(fromUV.x, 0.3127087833921703, kTolUlps);
    EXPECT_CLOSE(fromUV.y, 0.32901628115285314, kTolUlps);
    const xyChromaticity fromUpVp = CIE_1931_xy_from_1976_upvp(0.19783, 0.46833);
    EXPECT_CLOSE(fromUpVp.x, 0.3127087833921703, kTolUlps);
    EXPECT_CLOSE(fromUpVp.y, 0.32901628115285314, kTolUlps);

    const upvpChromaticity scaledUp = CIE_1976_upvp_from_1960_uv(0.19783, 0.31222);
    EXPECT_EQ(scaledUp.up, 0.19783);
    EXPECT_CLOSE(scaledUp.vp, 0.46833, kTolUlps);
    const uvChromaticity scaledDown = CIE_1960_uv_from_1976_upvp(0.19783, 0.46833);
    EXPECT_EQ(scaledDown.u, 0.19783);
    EXPECT_CLOSE(scaledDown.v, 0.31222, kTolUlps);
}

TEST(UniformChromaticityScales, OldUvToUpVpAppliesTheTwoThirdsScaling)
{
    // Kept on purpose: despite its name it scales v by 2/3, as CIE_1960_uv_from_1976_upvp does.
    double up = 0, vp = 0;
    uv_1960_to_upvp_1976(0.19783, 0.46833, &up, &vp);
    EXPECT_EQ(up, 0.19783);
    EXPECT_CLOSE(vp, 0.31222, kTolUlps);
    EXPECT_EQ(vp, CIE_1960_uv_from_1976_upvp(0.19783, 0.46833).v);
    EXPECT_NE(vp, CIE_1976_upvp_from_1960_uv(0.19783, 0.46833).vp);
}

TEST(UniformChromaticityScales, RoundTripsOverAGrid)
{
    for (double x = 0.05; x < 0.75; x += 0.05) {
        for (double y = 0.05; y < 0.85; y += 0.05) {
            SCOPED_TRACE("x " + std::to_string(x) + " y " + std::to_string(y));
            const uvChromaticity uv = CIE_1960_uv_from_1931_xy(x, y);
            const xyChromaticity viaUV = CIE_1931_xy_from_1960_uv(uv.u, uv.v);
            EXPECT_CLOSE(viaUV.x, x, kTolRoundTrip);
            EXPECT_CLOSE(viaUV.y, y, kTolRoundTrip);

            const upvpChromaticity upvp = CIE_1976_upvp_from_1931_xy(x, y);
            const xyChromaticity viaUpVp = CIE_1931_xy_from_1976_upvp(upvp.up, upvp.vp);
            EXPECT_CLOSE(viaUpVp.x, x, kTolRoundTrip);
            EXPECT_CLOSE(viaUpVp.y, y, kTolRoundTrip);

            // The two diagrams share u and differ by 1.5 in v.
            const upvpChromaticity fromUV = CIE_1976_upvp_from_1960_uv(uv.u, uv.v);
            EXPECT_CLOSE(fromUV.up, upvp.up, kTolRoundTrip);
            EXPECT_CLOSE(fromUV.vp, upvp.vp, kTolRoundTrip);
            const uvChromaticity back = CIE_1960_uv_from_1976_upvp(upvp.up, upvp.vp);
            EXPECT_CLOSE(back.v, uv.v, kTolRoundTrip);
        }
    }
}

// --- Spectrum locus ----------------------------------------------------------------------

TEST(SpectrumLocus, InsideAndOutside)
{
    struct Case {
        const char *name;
        double x, y;
        bool inside;
    };
    const Case cases[] = {
        {"D65 (published check)", 0.3127, 0.329, true},
        {"deep blue-violet below the locus (published check)", 0.1, 0.01, false},
        {"equal-energy point", 1.0 / 3, 1.0 / 3, true},
        {"sRGB red primary", 0.64, 0.33, true},
        {"sRGB green primary", 0.30, 0.60, true},
        {"sRGB blue primary", 0.15, 0.06, true},
        {"top-left corner of the bounding box", 0.01, 0.8, false},
        {"bottom-right corner of the bounding box", 0.7, 0.01, false},
        {"left of the green side, inside the bounds", 0.005, 0.5, false},
        {"just below the line of purples", 0.45, 0.13, false},
        {"just above the line of purples", 0.45, 0.17, true},
        {"left of the x bound", 0.003, 0.3, false},
        {"above the y bound", 0.1, 0.84, false},
        {"NaN", kNaN, 0.3, false},
        {"infinity", 0.3, kInf, false},
    };
    for (const Case &c : cases)
        EXPECT_EQ(xy_inside_CIE1931_locus(c.x, c.y), c.inside) << c.name;
}

TEST(SpectrumLocus, PointsJustInsideAndOutsideEachLocusPointFrom400To680nm)
{
    // Moving 1% of the way towards the white is inside; 1% away from it is outside.
    for (size_t i = 40; i <= 320; i += 10) {
        const LocusChromaticity &p = gCIE1931_nm_xy[i];
        const double dx = p.x - 1.0 / 3, dy = p.y - 1.0 / 3;
        SCOPED_TRACE(std::to_string(p.wavelength) + " nm");
        EXPECT_TRUE(xy_inside_CIE1931_locus(p.x - 0.01 * dx, p.y - 0.01 * dy));
        EXPECT_FALSE(xy_inside_CIE1931_locus(p.x + 0.01 * dx, p.y + 0.01 * dy));
    }
}

// --- Planckian locus from a temperature --------------------------------------------------

// Robertson's table row i as a temperature and CIE 1931 xy (published locus points).
double kelvinOf(const IsoTemperatureLine &line)
{
    return 1e6 / line.mired;
}
xyChromaticity xyOf(const IsoTemperatureLine &line)
{
    return CIE_1931_xy_from_1960_uv(line.u, line.v);
}

TEST(PlanckianLocus, SplineBranchesAndTheirInclusiveEnds)
{
    struct Case {
        double T, x, y;
    };
    // Worked from [Kang2002] with the coefficient 234358. At 2000 K:
    // x = −2.661239e8/8e9 − 234358/4e6 + 877.6956/2000 + 0.17991
    //   = −0.0332654875 − 0.0585895 + 0.4388478 + 0.17991 = 0.5269028125
    // (the paper's 0.2343589e6 would give 0.5269025875).
    const Case cases[] = {
        {2000, 0.5269028125, 0.4132648495295301},            // low x, T ≤ 2222 y
        {2222, 0.5031877153242192, 0.4152509310091007},      // 2222 still takes the first y
        {2222.001, 0.5031876130312196, 0.415256027183885},   // then the second y
        {4000, 0.3805283390625, 0.3767335664381282},         // 4000 takes the low-range x
        {4000.001, 0.38045964163705065, 0.3766853145988678}, // high range
        {1666.9, 0, 0},
        {25000.1, 0, 0},
        {kNaN, 0, 0},
        {kInf, 0, 0},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE("T " + std::to_string(c.T));
        const xyChromaticity xy = CIE_1931_xy_from_CCT(c.T);
        EXPECT_CLOSE(xy.x, c.x, 1e-14);
        EXPECT_CLOSE(xy.y, c.y, 1e-14);
    }
    EXPECT_GT(CIE_1931_xy_from_CCT(1667).x, 0);
    EXPECT_GT(CIE_1931_xy_from_CCT(25000).x, 0);
}

TEST(PlanckianLocus, SplineFollowsRobertsonsTable)
{
    // Over its range, 1667 to 25000 K (575 to 40 mired; 600 mired is 1666.7 K, just below),
    // the spline stays within 6e-4 of the published locus points; the largest gap, 5.6e-4 in
    // x, is near 2667 K.
    for (const IsoTemperatureLine &line : gIsoTempData) {
        if (line.mired < 40 || line.mired > 575)
            continue;
        SCOPED_TRACE(std::to_string(line.mired) + " mired");
        const xyChromaticity xy = CIE_1931_xy_from_CCT(kelvinOf(line));
        EXPECT_CLOSE(xy.x, xyOf(line).x, 6e-4);
        EXPECT_CLOSE(xy.y, xyOf(line).y, 6e-4);
    }
}

TEST(PlanckianLocus, RationalFitFollowsRobertsonsTableWithoutARangeCheck)
{
    // Krystek's fit holds for 1000 to 15000 K; over the table's rows in that range it stays
    // within 1.2e-4 (largest gap 1.11e-4 in v at 5000 K).
    for (const IsoTemperatureLine &line : gIsoTempData) {
        if (line.mired < 1e6 / 15000)
            continue;
        SCOPED_TRACE(std::to_string(line.mired) + " mired");
        const uvChromaticity uv = CIE_1960_uv_from_CCT(kelvinOf(line));
        EXPECT_CLOSE(uv.u, line.u, 1.2e-4);
        EXPECT_CLOSE(uv.v, line.v, 1.2e-4);
    }
    const uvChromaticity at6500 = CIE_1960_uv_from_CCT(6500);
    EXPECT_CLOSE(at6500.u, 0.20049470391815155, 1e-15);
    EXPECT_CLOSE(at6500.v, 0.31032361997499536, 1e-15);
    // No range check: 0 K gives the constant terms.
    EXPECT_EQ(CIE_1960_uv_from_CCT(0).u, 0.860117757);
    EXPECT_EQ(CIE_1960_uv_from_CCT(0).v, 0.317398726);
}

TEST(PlanckianLocus, TemperatureValidity)
{
    struct Case {
        double T;
        bool valid;
    };
    const Case cases[] = {{1666.7, true}, {1666.69, false}, {6500, true},
                          {999999, true}, {1e6, false},     {0, false},
                          {-1, false},    {kInf, false},    {kNaN, false}};
    for (const Case &c : cases)
        EXPECT_EQ(is_temp_valid(c.T), c.valid) << c.T;
}

// --- Correlated colour temperature -------------------------------------------------------

TEST(CorrelatedColourTemperature, RobertsonOnTheD65White)
{
    // u = 0.19782945, v = 0.31222145; d changes sign between 150 mired (d 0.00174963) and
    // 175 mired (d −0.01054868); divided by √(1 + t²): 0.00143018 and −0.00804138, so
    // f = 0.15099717, 153.774929 mired, 6503.0106 K.
    EXPECT_CLOSE(CCT_from_xy(kCCTMethodRobertson, kD65x, kD65y), 6503.0106, 1e-4);
    EXPECT_CLOSE(CCT_from_XYZ(0.9504285453771807, 1, 1.0889003707981277), 6503.0106, 1e-4);
    // Scale does not matter.
    EXPECT_CLOSE(CCT_from_XYZ(95.04285453771807, 100, 108.89003707981277),
                 CCT_from_XYZ(0.9504285453771807, 1, 1.0889003707981277), 1e-9);
}

TEST(CorrelatedColourTemperature, RobertsonReturnsEachTablePointsOwnTemperature)
{
    // A point on the locus at row i lies on isotherm i (d = 0 up to rounding), so the
    // interpolation lands on that row's temperature.
    for (size_t i = 1; i + 1 < gNumIsoTempData; ++i) {
        const IsoTemperatureLine &line = gIsoTempData[i];
        const xyChromaticity xy = xyOf(line);
        const XYZTriple XYZ = XYZ_from_xy(xy.x, xy.y);
        SCOPED_TRACE(std::to_string(line.mired) + " mired");
        EXPECT_CLOSE(CCT_from_XYZ(XYZ.X, XYZ.Y, XYZ.Z), kelvinOf(line), 1e-9 * kelvinOf(line));
    }
}

TEST(CorrelatedColourTemperature, RobertsonGivesZeroWhereNoIsothermIsCrossed)
{
    struct Case {
        const char *name;
        double X, Y, Z;
    };
    const XYZTriple red = XYZ_from_xy(0.6, 0.38); // warmer than 600 mired
    const XYZTriple blue = XYZ_from_xy(0.2, 0.2); // beyond the 0 mired isotherm
    const Case cases[] = {
        {"zero", 0, 0, 0},
        {"all below 1e-20", 1e-21, 1e-21, 1e-21},
        {"negative", -1, -1, -1},
        {"warmer than the table", red.X, red.Y, red.Z},
        {"bluer than the table", blue.X, blue.Y, blue.Z},
        {"NaN", kNaN, 1, 1},
    };
    for (const Case &c : cases)
        EXPECT_EQ(CCT_from_XYZ(c.X, c.Y, c.Z), 0) << c.name;
    EXPECT_EQ(CCT_from_xy(kCCTMethodRobertson, 0.3, 0), 0) << "y = 0";
}

TEST(CorrelatedColourTemperature, McCamyKeepsItsReversedCubicTerm)
{
    // n = (0.31271 − 0.332) / (0.32902 − 0.1858) = −0.13468789275240888,
    // 449 n³ = −1.0970641, 3525 n² = 63.9464203, −6823.3 n = 919.0158986,
    // T = −1.0970641 + 63.9464203 + 919.0158986 + 5520.33 = 6502.1952548.
    // [McCamy1992]'s cubic in this n is −449 n³ + ..., 6504.3893830: 2.1941283 K more.
    const double T = CCT_from_xy(kCCTMethodMcCamy, kD65x, kD65y);
    EXPECT_CLOSE(T, 6502.195254787348, 1e-9);
    EXPECT_CLOSE(6504.38938304897 - T, 2.194128261622683, 1e-9);
}

TEST(CorrelatedColourTemperature, ExponentialFitInBothRanges)
{
    // [HernandezAndres1999] on D65: n = (0.31271 − 0.3366) / (0.32902 − 0.1735)
    // = −0.15361368; e^(−n/0.92159) = 1.18138009, e^(−n/0.20039) = 2.15237869,
    // e^(−n/0.07125) = 8.63636276; T = −949.86315 + 7388.15437 + 61.78601 + 0.00035
    // = 6500.0421533.
    EXPECT_CLOSE(CCT_from_xy(kCCTMethodExponential, kD65x, kD65y), 6500.042153336582, 1e-8);
    // Any value other than 0 and 2 is the exponential fit.
    EXPECT_EQ(CCT_from_xy(7, kD65x, kD65y), CCT_from_xy(kCCTMethodExponential, kD65x, kD65y));
    EXPECT_EQ(CCT_from_xy(-1, kD65x, kD65y), CCT_from_xy(kCCTMethodExponential, kD65x, kD65y));

    // (0.245, 0.235): the first range gives 126989.48 K, so the second applies:
    // n = (0.245 − 0.3356) / (0.235 − 0.1691) = −1.37481032,
    // T = 36284.48953 + 0.00228 e^(17.48900) + 5.4535e-36 e^(89.10046) = 128797.14019.
    EXPECT_CLOSE(CCT_from_xy(kCCTMethodExponential, 0.245, 0.235), 128797.14019350492, 1e-6);
}

} // namespace
