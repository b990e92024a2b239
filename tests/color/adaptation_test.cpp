// Chromatic adaptation and the D50 tests.
//
// [Lindbloom] publishes the Bradford D50→D65 matrix, to seven decimals, for the whites
// D50 (0.96422, 1, 0.82521) and D65 (0.95047, 1, 1.08883):
//   0.9555766 −0.0230393 0.0631636 / −0.0282895 1.0099416 0.0210077 /
//   0.0122982 −0.0204830 1.3299098
// The von Kries figures below were worked out outside this code base with exact rational
// arithmetic (Python fractions) from the same definition, for the whites of XYZ_from_xy.
#include "adaptation.h"

#include "tolerance.h"

#include <cmath>
#include <limits>

namespace {

// A matrix printed to seven decimals.
constexpr double kTolPublished7 = 5e-8 + 1e-12;

constexpr XYZTriple kD50 = {0.9642119944211994, 1, 0.8251882845188288};
constexpr XYZTriple kD65 = {0.9504285453771807, 1, 1.0889003707981277};

// The adaptation matrix T, column by column, by adapting the unit vectors.
void adaptationMatrix(XYZTriple from, XYZTriple to, unsigned method, double *T)
{
    const XYZTriple units[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    for (int column = 0; column < 3; ++column) {
        XYZTriple adapted{};
        ASSERT_EQ(adapt_XYZ_to_XYZ(&units[column], &from, &adapted, &to, method), 0);
        T[column] = adapted.X;
        T[3 + column] = adapted.Y;
        T[6 + column] = adapted.Z;
    }
}

TEST(AdaptXYZ, BradfordMatchesLindbloomsPublishedMatrix)
{
    const double published[9] = {0.9555766, -0.0230393, 0.0631636,  -0.0282895, 1.0099416,
                                 0.0210077, 0.0122982,  -0.0204830, 1.3299098};
    for (unsigned method : {0u, 3u}) { // both numbers select Bradford
        double T[9];
        adaptationMatrix({0.96422, 1, 0.82521}, {0.95047, 1, 1.08883}, method, T);
        for (int i = 0; i < 9; ++i) {
            SCOPED_TRACE(i);
            EXPECT_CLOSE(T[i], published[i], kTolPublished7);
        }
    }
}

TEST(AdaptXYZ, VonKriesAndXYZScaling)
{
    // von Kries, D50 → D65 (exact rational arithmetic, nine decimals):
    const double vonKries[9] = {0.984488166, -0.054658243, 0.067659092, -0.006003820,
                                1.004790135, 0.001210415,  0,           0,
                                1.319578078};
    double T[9];
    adaptationMatrix(kD50, kD65, kAdaptationVonKries, T);
    for (int i = 0; i < 9; ++i)
        EXPECT_CLOSE(T[i], vonKries[i], 5e-10);

    // XYZ scaling: diag(Xd/Xs, Yd/Ys, Zd/Zs).
    adaptationMatrix(kD50, kD65, kAdaptationXYZScaling, T);
    const double scaling[9] = {kD65.X / kD50.X, 0, 0, 0, 1, 0, 0, 0, kD65.Z / kD50.Z};
    for (int i = 0; i < 9; ++i)
        EXPECT_CLOSE(T[i], scaling[i], kTolUlps);
}

TEST(AdaptXYZ, WhiteGoesToWhiteAndEqualWhitesChangeNothing)
{
    for (unsigned method = 0; method <= 3; ++method) {
        SCOPED_TRACE(method);
        XYZTriple white = kD50;
        ASSERT_EQ(adapt_XYZ_to_XYZ(&white, &kD50, &white, &kD65, method), 0); // in place
        EXPECT_CLOSE(white.X, kD65.X, kTolUlps);
        EXPECT_CLOSE(white.Y, kD65.Y, kTolUlps);
        EXPECT_CLOSE(white.Z, kD65.Z, 4 * kTolUlps);

        const XYZTriple colour = {0.2, 0.3, 0.4};
        XYZTriple same{};
        ASSERT_EQ(adapt_XYZ_to_XYZ(&colour, &kD65, &same, &kD65, method), 0);
        EXPECT_CLOSE(same.X, 0.2, kTolUlps);
        EXPECT_CLOSE(same.Y, 0.3, kTolUlps);
        EXPECT_CLOSE(same.Z, 0.4, kTolUlps);
    }
}

TEST(AdaptXYZ, UnknownMethodReturnsMinus50AndWritesNothing)
{
    const XYZTriple colour = {0.2, 0.3, 0.4};
    for (unsigned method : {4u, 100u, ~0u}) {
        XYZTriple destination = {-7, -7, -7};
        EXPECT_EQ(adapt_XYZ_to_XYZ(&colour, &kD50, &destination, &kD65, method), -50);
        EXPECT_EQ(destination.X, -7);
        EXPECT_EQ(destination.Y, -7);
        EXPECT_EQ(destination.Z, -7);
    }
}

TEST(AdaptXYZ, DegenerateWhitesDoNotCrash)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (double v : {-1.0, 0.0, 1.0, inf, -inf, nan}) {
        const XYZTriple odd = {v, v, v};
        XYZTriple out{};
        EXPECT_EQ(adapt_XYZ_to_XYZ(&kD50, &odd, &out, &kD65, 0), 0);
        EXPECT_EQ(adapt_XYZ_to_XYZ(&odd, &kD50, &out, &odd, 2), 0);
    }
}

TEST(ConeMatrices, RowsNormaliseTheirReferenceWhite)
{
    // A transcription check: the CAT matrices map the equal-energy white (1, 1, 1) to
    // (1, 1, 1), and von Kries (normalised to D65) maps D65 there, to their printed digits.
    const double *equalEnergy[] = {Linear_Matrix,   Bradford_Matrix, CMCCAT2000_Matrix,
                                   CIECAT02_Matrix, HPE_Matrix,      Sharp_Matrix};
    for (const double *M : equalEnergy)
        for (int row = 0; row < 3; ++row)
            EXPECT_CLOSE(M[3 * row] + M[3 * row + 1] + M[3 * row + 2], 1, 1.5e-4);
    const double d65[3] = {0.95047, 1, 1.08883};
    for (int row = 0; row < 3; ++row)
        EXPECT_CLOSE(VonKries_Matrix[3 * row] * d65[0] + VonKries_Matrix[3 * row + 1] * d65[1] +
                         VonKries_Matrix[3 * row + 2] * d65[2],
                     1, 3e-4);
}

TEST(IsXYZD50, AcceptsWithinOneThousandth)
{
    EXPECT_TRUE(is_XYZ_D50({0.9642, 1.0, 0.8249}));
    EXPECT_TRUE(is_XYZ_D50({0.9651, 1.0009, 0.8240}));
    EXPECT_TRUE(is_XYZ_D50(kD50));
    EXPECT_FALSE(is_XYZ_D50({0.9653, 1, 0.8249}));
    EXPECT_FALSE(is_XYZ_D50({0.9642, 0.9989, 0.8249}));
    EXPECT_FALSE(is_XYZ_D50({0.9642, 1, 0.8261}));
    EXPECT_FALSE(is_XYZ_D50(kD65));
    EXPECT_FALSE(is_XYZ_D50({std::nan(""), 1, 0.8249}));
}

TEST(AreXYZsAdaptedToD50, SumsTheColorants)
{
    // The sRGB colorants adapted to D50 as LittleCMS's built-in sRGB profile stores them
    // (six decimals): they sum to the PCS white.
    EXPECT_TRUE(are_XYZs_Adapted_to_D50({0.436041, 0.222485, 0.013920},
                                        {0.385113, 0.716905, 0.097067},
                                        {0.143046, 0.060610, 0.713913}));
    // The D65 sRGB primaries sum to D65 instead.
    EXPECT_FALSE(are_XYZs_Adapted_to_D50({0.4124564, 0.2126729, 0.0193339},
                                         {0.3575761, 0.7151522, 0.119192},
                                         {0.1804375, 0.072175, 0.9503041}));
}

} // namespace
