#include "adaptation.h"

#include "matrix3x3.h"

#include <cmath>

namespace {

const double *cone_matrix_for_method(unsigned method)
{
    switch (method) {
    case kAdaptationXYZScaling:
        return Linear_Matrix;
    case kAdaptationVonKries:
        return VonKries_Matrix;
    default: // 0 and 3: Bradford
        return Bradford_Matrix;
    }
}

} // namespace

int adapt_XYZ_to_XYZ(const XYZTriple *source, const XYZTriple *sourceWhite, XYZTriple *destination,
                     const XYZTriple *destinationWhite, unsigned method)
{
    if (method > kAdaptationBradfordToo)
        return -50; // paramErr
    const double *M = cone_matrix_for_method(method);
    double Minv[9];
    invert_3x3_matrix(Minv, M); // the cone matrices are all regular

    const double ws[3] = {sourceWhite->X, sourceWhite->Y, sourceWhite->Z};
    const double wd[3] = {destinationWhite->X, destinationWhite->Y, destinationWhite->Z};
    double S[3], D[3];
    multiply_3x3_by_3x1_matrix(S, M, ws);
    multiply_3x3_by_3x1_matrix(D, M, wd);

    // clang-format off
    const double scale[9] = {
        D[0] / S[0], 0, 0,
        0, D[1] / S[1], 0,
        0, 0, D[2] / S[2],
    };
    // clang-format on
    double MinvScale[9], T[9];
    multiply_3x3_by_3x3_matrix(MinvScale, Minv, scale);
    multiply_3x3_by_3x3_matrix(T, MinvScale, M);

    const double xyz[3] = {source->X, source->Y, source->Z}; // copied: may alias destination
    double adapted[3];
    multiply_3x3_by_3x1_matrix(adapted, T, xyz);
    *destination = {adapted[0], adapted[1], adapted[2]};
    return 0;
}

namespace {

// The ICC profile connection space white as the colorant tests compare it.
constexpr XYZTriple kD50 = {0.9642, 1.0, 0.8249};
constexpr double kD50Tolerance = 0.001;

bool within(double value, double target)
{
    return std::fabs(value - target) <= kD50Tolerance;
}

} // namespace

bool is_XYZ_D50(XYZTriple xyz)
{
    return within(xyz.X, kD50.X) && within(xyz.Y, kD50.Y) && within(xyz.Z, kD50.Z);
}

bool are_XYZs_Adapted_to_D50(XYZTriple red, XYZTriple green, XYZTriple blue)
{
    return is_XYZ_D50(
        {red.X + green.X + blue.X, red.Y + green.Y + blue.Y, red.Z + green.Z + blue.Z});
}
