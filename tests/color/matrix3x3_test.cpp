// 3x3 matrix helpers: inversion threshold and adjugate, products, transpose, log formats.
// Expected values are worked by hand in the comments.
#include "matrix3x3.h"

#include "tolerance.h"

#include <cmath>
#include <limits>
#include <string>

namespace {

void expectMatrix(const double *actual, const double (&expected)[9], double tolerance)
{
    for (int i = 0; i < 9; ++i) {
        SCOPED_TRACE(i);
        EXPECT_CLOSE(actual[i], expected[i], tolerance);
    }
}

TEST(Invert3x3, DeterminantThresholdIsInclusive)
{
    // diag(d, 1, 1): det = d exactly, adjugate diag(1, d, d).
    const double atThreshold[9] = {1e-8, 0, 0, 0, 1, 0, 0, 0, 1};
    double inverse[9];
    EXPECT_FALSE(invert_3x3_matrix(inverse, atThreshold));
    expectMatrix(inverse, {1, 0, 0, 0, 1e-8, 0, 0, 0, 1e-8}, 0); // unscaled adjugate kept

    const double aboveThreshold[9] = {1.0000001e-8, 0, 0, 0, 1, 0, 0, 0, 1};
    EXPECT_TRUE(invert_3x3_matrix(inverse, aboveThreshold));
    expectMatrix(inverse, {1 / 1.0000001e-8, 0, 0, 0, 1, 0, 0, 0, 1}, 1e-7);

    const double negative[9] = {-1e-8, 0, 0, 0, 1, 0, 0, 0, 1}; // |det| is compared
    EXPECT_FALSE(invert_3x3_matrix(inverse, negative));
}

TEST(Invert3x3, SingularMatrixLeavesItsAdjugate)
{
    // Rows 1, 2, 3 / 4, 5, 6 / 7, 8, 9: det 0; cofactors worked by hand,
    // adj = (−3, 6, −3 / 6, −12, 6 / −3, 6, −3).
    const double singular[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    double inverse[9];
    EXPECT_FALSE(invert_3x3_matrix(inverse, singular));
    expectMatrix(inverse, {-3, 6, -3, 6, -12, 6, -3, 6, -3}, 0);
}

TEST(Invert3x3, GeneralMatrixTimesItsInverseIsTheIdentity)
{
    // (2, 0, 1 / 1, 3, 2 / 1, 1, 2): det = 2·(6 − 2) − 0 + 1·(1 − 3) = 6;
    // adjugate by cofactors (4, 1, −3 / 0, 3, −3 / −2, −2, 6), divided by 6.
    const double m[9] = {2, 0, 1, 1, 3, 2, 1, 1, 2};
    double inverse[9], product[9];
    ASSERT_TRUE(invert_3x3_matrix(inverse, m));
    expectMatrix(inverse, {4. / 6, 1. / 6, -3. / 6, 0, 3. / 6, -3. / 6, -2. / 6, -2. / 6, 1},
                 kTolUlps);
    multiply_3x3_by_3x3_matrix(product, m, inverse);
    expectMatrix(product, {1, 0, 0, 0, 1, 0, 0, 0, 1}, kTolUlps);
}

TEST(Invert3x3, NaNAndInfinityDoNotCrash)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (double bad : {nan, inf, -inf}) {
        const double m[9] = {bad, 0, 0, 0, 1, 0, 0, 0, 1};
        double inverse[9];
        invert_3x3_matrix(inverse, m); // the outcome is IEEE arithmetic; it must just return
        EXPECT_TRUE(std::isnan(inverse[0]) || std::isinf(inverse[0]) || inverse[0] == 0);
    }
}

TEST(Multiply3x3, ColumnRowAndMatrixProducts)
{
    const double m[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    const double v[3] = {1, 0, -1};
    double out[3];
    multiply_3x3_by_3x1_matrix(out, m, v); // (1 − 3, 4 − 6, 7 − 9)
    EXPECT_EQ(out[0], -2);
    EXPECT_EQ(out[1], -2);
    EXPECT_EQ(out[2], -2);
    multiply_1x3_by_3x3_matrix(out, v, m); // row 1 − row 3
    EXPECT_EQ(out[0], -6);
    EXPECT_EQ(out[1], -6);
    EXPECT_EQ(out[2], -6);

    const double swapXY[9] = {0, 1, 0, 1, 0, 0, 0, 0, 1};
    double product[9];
    multiply_3x3_by_3x3_matrix(product, swapXY, m); // swaps rows 1 and 2 of m
    expectMatrix(product, {4, 5, 6, 1, 2, 3, 7, 8, 9}, 0);
    multiply_3x3_by_3x3_matrix(product, m, swapXY); // swaps columns 1 and 2 of m
    expectMatrix(product, {2, 1, 3, 5, 4, 6, 8, 7, 9}, 0);
}

TEST(LogMatrix, ExactFormatsOnStandardError)
{
    const double v[3] = {1, -0.5, 1.0 / 3};
    testing::internal::CaptureStderr();
    log_1x3_matrix(v, "white");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Matrix |white|: 1.000000, -0.500000, 0.333333\n");

    const double m[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9.5};
    testing::internal::CaptureStderr();
    log_3x3_matrix(m, "M");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Matrix |M|:\n 1.000000, 2.000000, 3.000000\n 4.000000, 5.000000, 6.000000\n"
              " 7.000000, 8.000000, 9.500000\n");

    testing::internal::CaptureStderr();
    log_1x3_matrix(v, nullptr); // a missing label must not crash
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Matrix |(null)|: 1.000000, -0.500000, 0.333333\n");
}

} // namespace
