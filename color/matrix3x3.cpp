#include "matrix3x3.h"

#include <cmath>
#include <cstdio>

void copy_3x3_matrix(double *destination, const double *source)
{
    for (int i = 0; i < 9; ++i)
        destination[i] = source[i];
}

// Cofactor expansion [Wyszecki1982]: inverse = adj(M) / det(M), adj(M)[i][j] = C[j][i].
bool invert_3x3_matrix(double *destination, const double *m)
{
    destination[0] = m[4] * m[8] - m[5] * m[7];
    destination[1] = m[2] * m[7] - m[1] * m[8];
    destination[2] = m[1] * m[5] - m[2] * m[4];
    destination[3] = m[5] * m[6] - m[3] * m[8];
    destination[4] = m[0] * m[8] - m[2] * m[6];
    destination[5] = m[2] * m[3] - m[0] * m[5];
    destination[6] = m[3] * m[7] - m[4] * m[6];
    destination[7] = m[1] * m[6] - m[0] * m[7];
    destination[8] = m[0] * m[4] - m[1] * m[3];

    const double det = m[0] * destination[0] + m[1] * destination[3] + m[2] * destination[6];
    // Kept on purpose: a failed inversion leaves the unscaled adjugate, not the source or zeros.
    if (std::fabs(det) <= 1e-8)
        return false;
    const double scale = 1.0 / det;
    for (int i = 0; i < 9; ++i)
        destination[i] *= scale;
    return true;
}

void multiply_3x3_by_3x1_matrix(double *destination, const double *m, const double *v)
{
    for (int i = 0; i < 3; ++i)
        destination[i] = m[3 * i] * v[0] + m[3 * i + 1] * v[1] + m[3 * i + 2] * v[2];
}

void multiply_3x3_by_3x3_matrix(double *destination, const double *A, const double *B)
{
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            destination[3 * i + j] =
                A[3 * i] * B[j] + A[3 * i + 1] * B[3 + j] + A[3 * i + 2] * B[6 + j];
}

void multiply_1x3_by_3x3_matrix(double *destination, const double *v, const double *m)
{
    for (int j = 0; j < 3; ++j)
        destination[j] = v[0] * m[j] + v[1] * m[3 + j] + v[2] * m[6 + j];
}

void transpose_3x3_matrix(double *destination, const double *source)
{
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            destination[3 * i + j] = source[3 * j + i];
}

namespace {

// printf's %s with a null pointer is undefined; a missing label prints as "(null)".
const char *printable(const char *label)
{
    return label ? label : "(null)";
}

} // namespace

void log_1x3_matrix(const double *v, const char *label)
{
    std::fprintf(stderr, "Matrix |%s|: %f, %f, %f\n", printable(label), v[0], v[1], v[2]);
}

void log_3x3_matrix(const double *m, const char *label)
{
    std::fprintf(stderr, "Matrix |%s|:\n", printable(label));
    for (int i = 0; i < 3; ++i)
        std::fprintf(stderr, " %f, %f, %f\n", m[3 * i], m[3 * i + 1], m[3 * i + 2]);
}
