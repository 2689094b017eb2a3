// Inverse of a 3x3 single-precision matrix by the adjugate: the determinant by
// the rule of Sarrus, each element of the inverse the cofactor of the transposed
// matrix over that determinant. Used for the laminate compliance and by the
// shell buckling code.
#pragma once

#include "util/matrix3.h"

namespace corvane {

// Status values of inverse3x3.
inline constexpr int kInverseOk = 0;
inline constexpr int kInverseSingular = 1;

// Returns the inverse of m. When |det| is not strictly above the tolerance the
// matrix counts as singular: every element of the result is a quiet NaN and the
// status is kInverseSingular. Never prints.
Matrix3 inverse3x3(const Matrix3& m, float tolerance = 1.0e-20f, int* status = nullptr);

}  // namespace corvane
