// Product of two 3x3 single-precision matrices, each element summed over k in
// increasing order, so chains of products round the same way every time.
#pragma once

#include "util/matrix3.h"

namespace corvane {

inline Matrix3 matrix_product(const Matrix3& a, const Matrix3& b) {
  Matrix3 c;
  for (int j = 1; j <= 3; ++j) {
    for (int i = 1; i <= 3; ++i) {
      c(i, j) = (a(i, 1) * b(1, j) + a(i, 2) * b(2, j)) + a(i, 3) * b(3, j);
    }
  }
  return c;
}

}  // namespace corvane
