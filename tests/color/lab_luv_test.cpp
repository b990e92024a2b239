// CIELAB and CIELUV against LittleCMS, hand-worked values and round trips.
//
// [CIE015-2004] §8.2.1 (CIELAB) and §8.2.2 (CIELUV), for the fixed D65 white
// Xn = 0.31271/0.32902, Yn = 1, Zn = (1 − 0.31271 − 0.32902)/0.32902, ε = 216/24389,
// κ = 24389/27. The worked values below were computed outside this code base (Python, exact
// fractions for everything but the cube root):
//   XYZ (0.2, 0.3, 0.4): fy = ∛0.3 = 0.66943295, L = 116 fy − 16 = 61.654222209532,
//     a = −37.317012694195, b = −9.349990383482;
//     d = 0.2 + 4.5 + 1.2 = 5.9, u' = 0.8/5.9 = 0.13559322, v' = 2.7/5.9 = 0.45762712,
//     u = 13 L (u' − u'n) = −49.882641942546, v = −8.580149586282.
//   XYZ (0.05, 0.005, 0.002), below ε in Y: L = κ·0.005 = 4.516481481481,
//     a = 98.916811585160, b = 4.926522982357; u = 78.024680884048, v = −7.328755989342.
//   Lab (50, 20, −30) → XYZ (0.214633533580, 0.184186518512, 0.404680548469).
//   Lab (5, 10, 60) (fz below the break) → (0.007701943405, 0.005535282299, −0.035923130852).
// LittleCMS's cmsXYZ2Lab and cmsLab2XYZ, given the same white, are an independent peer.
#include "lab_luv.h"

#include "tolerance.h"

#include <lcms2.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double kXn = 0.31271 / 0.32902;
constexpr double kZn = (1 - 0.31271 - 0.32902) / 0.32902;
// Hand-worked figures given to twelve decimals.
constexpr double kTolWorked12 = 1e-11;
// The polynomial arctangent's worst error, as in hue_test.cpp.
constexpr double kTolFastAtan = 1.02e-2;

const double nan = std::numeric_limits<double>::quiet_NaN();
const double inf = std::numeric_limits<double>::infinity();

TEST(LabFromXYZ, WorkedValuesAndWhite)
{
    const struct {
        XYZColor xyz;
        LabColor lab;
    } rows[] = {
        {{0.2, 0.3, 0.4, 1}, {61.654222209532, -37.317012694195, -9.349990383482, 1}},
        {{0.05, 0.005, 0.002, 1}, {4.516481481481, 98.916811585160, 4.926522982357, 1}},
    };
    for (const auto &row : rows) {
        const LabColor lab = Lab_from_XYZ(row.xyz);
        EXPECT_CLOSE(lab.L, row.lab.L, kTolWorked12);
        EXPECT_CLOSE(lab.a, row.lab.a, kTolWorked12);
        EXPECT_CLOSE(lab.b, row.lab.b, kTolWorked12);
    }
    const LabColor white = Lab_from_XYZ({kXn, 1, kZn, 0.25});
    EXPECT_CLOSE(white.L, 100, 1e-13);
    EXPECT_CLOSE(white.a, 0, 1e-13);
    EXPECT_CLOSE(white.b, 0, 1e-13);
    EXPECT_EQ(white.alpha, 0.25);
}

TEST(LabFromXYZ, BlackIsExactlyZeroAndTheBranchesMeetAtEpsilon)
{
    const LabColor black = Lab_from_XYZ({0, 0, 0, 0.5});
    EXPECT_EQ(black.L, 0);
    EXPECT_EQ(black.a, 0);
    EXPECT_EQ(black.b, 0);
    EXPECT_EQ(black.alpha, 0.5);
    // At Y = ε (linear branch: the test is strictly greater) both branches give L = 8 exactly:
    // κ ε = 8 and 116 ∛ε − 16 = 116 · 6/29 − 16 = 8.
    EXPECT_EQ(Lab_from_XYZ({0, 0.008856451679035631, 0, 1}).L, 8);
    EXPECT_CLOSE(Lab_from_XYZ({0, std::nextafter(0.008856451679035631, 1.0), 0, 1}).L, 8, 1e-13);
}

TEST(LabFromXYZ, AgreesWithLittleCMS)
{
    const cmsCIEXYZ white = {kXn, 1, kZn};
    std::mt19937 random(1976);
    std::uniform_real_distribution<double> unit(0, 1.1);
    for (int i = 0; i < 2000; ++i) {
        const cmsCIEXYZ xyz = {unit(random), unit(random), unit(random)};
        cmsCIELab peer;
        cmsXYZ2Lab(&white, &peer, &xyz);
        const LabColor lab = Lab_from_XYZ({xyz.X, xyz.Y, xyz.Z, 1});
        EXPECT_CLOSE(lab.L, peer.L, kTolReference);
        EXPECT_CLOSE(lab.a, peer.a, kTolReference);
        EXPECT_CLOSE(lab.b, peer.b, kTolReference);
    }
}

TEST(XYZFromLab, WorkedValuesLittleCMSAndRoundTrip)
{
    const struct {
        LabColor lab;
        XYZColor xyz;
    } rows[] = {
        {{50, 20, -30, 1}, {0.214633533580, 0.184186518512, 0.404680548469, 1}},
        {{5, 10, 60, 1}, {0.007701943405, 0.005535282299, -0.035923130852, 1}}, // unclamped
    };
    for (const auto &row : rows) {
        const XYZColor xyz = XYZ_from_Lab(row.lab);
        EXPECT_CLOSE(xyz.X, row.xyz.X, kTolWorked12);
        EXPECT_CLOSE(xyz.Y, row.xyz.Y, kTolWorked12);
        EXPECT_CLOSE(xyz.Z, row.xyz.Z, kTolWorked12);
    }

    const cmsCIEXYZ white = {kXn, 1, kZn};
    for (double L = 0; L <= 100; L += 2.5)
        for (double a = -120; a <= 120; a += 15)
            for (double b = -120; b <= 120; b += 15) {
                const LabColor lab = {L, a, b, 0.75};
                const XYZColor xyz = XYZ_from_Lab(lab);
                cmsCIEXYZ peer;
                const cmsCIELab in = {L, a, b};
                cmsLab2XYZ(&white, &peer, &in);
                EXPECT_CLOSE(xyz.X, peer.X, kTolReference);
                EXPECT_CLOSE(xyz.Y, peer.Y, kTolReference);
                EXPECT_CLOSE(xyz.Z, peer.Z, kTolReference);

                const LabColor back = Lab_from_XYZ(xyz);
                if (L == 0 && a == 0 && b == 0)
                    continue;
                EXPECT_CLOSE(back.L, L, kTolRoundTrip);
                EXPECT_CLOSE(back.a, a, kTolRoundTrip);
                EXPECT_CLOSE(back.b, b, kTolRoundTrip);
                EXPECT_EQ(back.alpha, 0.75);
            }
}

TEST(XYZFromLab, LightnessBreakAtEight)
{
    // L = 8 takes L/κ, L = 8.0001 the cube ((24.0001/116)³); the curves meet at 8.
    EXPECT_EQ(XYZ_from_Lab({8, 0, 0, 1}).Y, 8 / 903.2962962962963);
    EXPECT_CLOSE(XYZ_from_Lab({8.0001, 0, 0, 1}).Y, std::pow(24.0001 / 116, 3), kTolUlps);
    EXPECT_CLOSE(XYZ_from_Lab({7.9999, 0, 0, 1}).Y, 7.9999 * 27 / 24389, kTolUlps);
}

TEST(LuvFromXYZ, WorkedValuesWhiteAndBlack)
{
    const struct {
        XYZColor xyz;
        LuvColor luv;
    } rows[] = {
        {{0.2, 0.3, 0.4, 1}, {61.654222209532, -49.882641942546, -8.580149586282, 1}},
        {{0.05, 0.005, 0.002, 1}, {4.516481481481, 78.024680884048, -7.328755989342, 1}},
    };
    for (const auto &row : rows) {
        const LuvColor luv = Luv_from_XYZ(row.xyz);
        EXPECT_CLOSE(luv.L, row.luv.L, kTolWorked12);
        EXPECT_CLOSE(luv.u, row.luv.u, kTolWorked12);
        EXPECT_CLOSE(luv.v, row.luv.v, kTolWorked12);
    }
    // u'n = 4 Xn / (Xn + 15 + 3 Zn) and v'n = 9 / (…) of the same white: the white is neutral.
    const LuvColor white = Luv_from_XYZ({kXn, 1, kZn, 1});
    EXPECT_CLOSE(white.L, 100, 1e-13);
    EXPECT_CLOSE(white.u, 0, 1e-13);
    EXPECT_CLOSE(white.v, 0, 1e-13);

    const LuvColor black = Luv_from_XYZ({0, 0, 0, 0.5});
    EXPECT_EQ(black.L, 0);
    EXPECT_EQ(black.u, 0);
    EXPECT_EQ(black.v, 0);
    EXPECT_EQ(black.alpha, 0.5);
}

TEST(XYZFromLuv, BothInversionsRoundTrip)
{
    for (double X = 0.05; X <= 1; X += 0.1)
        for (double Y = 0.001; Y <= 1; Y += 0.0999)
            for (double Z = 0.05; Z <= 1.1; Z += 0.1) {
                const LuvColor luv = Luv_from_XYZ({X, Y, Z, 0.5});
                for (const XYZColor back : {XYZ_from_Luv(luv), XYZ_from_Luv_Bruce(luv)}) {
                    EXPECT_CLOSE(back.X, X, kTolRoundTrip);
                    EXPECT_CLOSE(back.Y, Y, kTolRoundTrip);
                    EXPECT_CLOSE(back.Z, Z, kTolRoundTrip);
                    EXPECT_EQ(back.alpha, 0.5);
                }
            }
}

TEST(XYZFromLuv, GuardsAndClamps)
{
    for (double L : {0.0, -1.0, -inf}) {
        const XYZColor xyz = XYZ_from_Luv({L, 10, 10, 0.5});
        EXPECT_EQ(xyz.X, 0);
        EXPECT_EQ(xyz.Y, 0);
        EXPECT_EQ(xyz.Z, 0);
        EXPECT_EQ(xyz.alpha, 0.5);
    }
    // (50, −100, −400): u' = −100/650 + 0.19783 = 0.04398, v' = −400/650 + 0.46833 = −0.14705,
    // so X = 9 Y u'/(4 v') and Z = Y (12 − 3u' − 20v')/(4 v') are negative: both clamp at 0,
    // while Y = (66/116)³ is kept.
    const XYZColor clamped = XYZ_from_Luv({50, -100, -400, 1});
    EXPECT_EQ(clamped.X, 0);
    EXPECT_EQ(clamped.Z, 0);
    EXPECT_CLOSE(clamped.Y, std::pow(66.0 / 116, 3), kTolUlps);
    // The other inversion has neither guard nor clamp.
    EXPECT_TRUE(std::isnan(XYZ_from_Luv_Bruce({0, 0, 0, 1}).X));
    EXPECT_LT(XYZ_from_Luv_Bruce({50, -100, -400, 1}).X, 0);
}

TEST(LuvCylindrical, ChromaSaturationAndHue)
{
    const LuvColor luv = {50, 3, 4, 0.5};
    EXPECT_EQ(chroma_Luv(luv), 5);
    EXPECT_EQ(saturationCorrelate_Luv(luv), 0.1);
    EXPECT_EQ(saturationCorrelate_LCH({50, 25, 1, 1}), 0.5);

    const LChColor lch = LCHuv_from_Luv({50, 0, -5, 0.5});
    EXPECT_EQ(lch.C, 5);
    EXPECT_CLOSE(lch.h, -1.5707963267948966, kTolUlps); // the exact arctangent
    EXPECT_EQ(lch.alpha, 0.5);

    const LChColor lsh = LSHuv_from_Luv(luv);
    EXPECT_EQ(lsh.C, 0.1);
    EXPECT_CLOSE(lsh.h, std::atan2(4.0, 3.0), kTolFastAtan); // the polynomial arctangent
    EXPECT_NE(lsh.h, std::atan2(4.0, 3.0));

    for (double u = -150; u <= 150; u += 25)
        for (double v = -150; v <= 150; v += 25) {
            const LuvColor back = Luv_from_LCHuv(LCHuv_from_Luv({60, u, v, 1}));
            EXPECT_CLOSE(back.u, u, 1e-12);
            EXPECT_CLOSE(back.v, v, 1e-12);
            const LuvColor backS = Luv_from_LSHuv(LSHuv_from_Luv({60, u, v, 1}));
            const double C = std::hypot(u, v);
            EXPECT_CLOSE(backS.u, u, C * kTolFastAtan + 1e-12);
            EXPECT_CLOSE(backS.v, v, C * kTolFastAtan + 1e-12);
        }
}

TEST(LabLuv, DegenerateSweepNeverCrashes)
{
    const double values[] = {-1, 0, 1, inf, -inf, nan};
    for (double p : values)
        for (double q : values)
            for (double r : values) {
                Lab_from_XYZ({p, q, r, 1});
                XYZ_from_Lab({p, q, r, 1});
                Luv_from_XYZ({p, q, r, 1});
                XYZ_from_Luv({p, q, r, 1});
                XYZ_from_Luv_Bruce({p, q, r, 1});
                LCHuv_from_Luv({p, q, r, 1});
                Luv_from_LCHuv({p, q, r, 1});
                LSHuv_from_Luv({p, q, r, 1});
                Luv_from_LSHuv({p, q, r, 1});
            }
    // Division by L = 0 as the behaviour calls for: infinity or NaN, no report.
    EXPECT_TRUE(std::isinf(saturationCorrelate_Luv({0, 3, 4, 1})));
    EXPECT_TRUE(std::isnan(saturationCorrelate_Luv({0, 0, 0, 1})));
    EXPECT_TRUE(std::isinf(LSHuv_from_Luv({0, 3, 4, 1}).C));
    EXPECT_TRUE(std::isinf(saturationCorrelate_LCH({0, 1, 0, 1})));
    EXPECT_TRUE(std::isnan(Lab_from_XYZ({nan, 0.5, 0.5, 1}).a));
}

} // namespace
