#pragma once
// 3x3 matrix helpers. A matrix is nine doubles in row-major order (m0 m1 m2 / m3 m4 m5 /
// m6 m7 m8) applied to column vectors; a triple ("1x3 matrix") is three doubles. All
// arguments are plain pointers to caller-owned storage; nothing allocates or reports.

// Copies nine doubles from source to destination.
void copy_3x3_matrix(double *destination, const double *source);

// Inverse by the adjugate: writes the adjugate (transposed cofactors) of source into
// destination, then det = m0 (m4 m8 − m5 m7) + m1 (m5 m6 − m3 m8) + m2 (m3 m7 − m4 m6).
// When |det| ≤ 1e-8 it returns false and leaves the unscaled adjugate in destination
// (kept on purpose: callers go on with it); otherwise scales by 1/det and returns true.
// A NaN determinant fails the threshold test, so NaN input is "inverted" into NaN.
// destination must not alias source.
// Example: diag(2, 4, 8) → diag(0.5, 0.25, 0.125), true; diag(1e-8, 1, 1) → false with
// diag(1, 1e-8, 1e-8) in destination.
bool invert_3x3_matrix(double *destination, const double *source);

// destination[i] = Σk m[i][k] · v[k] (matrix times column vector). destination must not
// alias v. Example: the identity times (1, 2, 3) is (1, 2, 3).
void multiply_3x3_by_3x1_matrix(double *destination, const double *m, const double *v);

// destination = A × B. destination must not alias A or B.
void multiply_3x3_by_3x3_matrix(double *destination, const double *A, const double *B);

// destination[j] = Σk v[k] · m[k][j] (row vector times matrix). destination must not alias v.
void multiply_1x3_by_3x3_matrix(double *destination, const double *v, const double *m);

// destination[i][j] = source[j][i]. destination must not alias source.
void transpose_3x3_matrix(double *destination, const double *source);

// Diagnostics on standard error:
//   log_1x3_matrix: "Matrix |label|: 1.000000, 2.000000, 3.000000\n"
//   log_3x3_matrix: "Matrix |label|:\n" then " %f, %f, %f\n" for each row.
void log_1x3_matrix(const double *v, const char *label);
void log_3x3_matrix(const double *m, const char *label);
