// Matrix3: a 3x3 single-precision matrix stored as nine floats, column by column
// (element (i,j) at index (i-1) + 3(j-1)), the layout the C interface copies to
// and from its callers. The 1-based accessor lets formulas read as written,
// A(1, 2) for A12; indices 1, 2, 3 stand for x, y and xy.
//
// The products below sum each element over k in increasing order, so chains of
// products round the same way every time.
#pragma once

#include <array>
#include <cmath>

#include "util/numerics.h"

namespace corvane {

struct Matrix3 {
  std::array<float, 9> v{};  // column order

  constexpr float& operator()(int i, int j) { return v[(i - 1) + 3 * (j - 1)]; }
  constexpr float operator()(int i, int j) const { return v[(i - 1) + 3 * (j - 1)]; }

  friend constexpr bool operator==(const Matrix3&, const Matrix3&) = default;
};

using Vector3 = std::array<float, 3>;  // x, y, xy

inline Matrix3 matrix_product(const Matrix3& a, const Matrix3& b) {
  Matrix3 c;
  for (int j = 1; j <= 3; ++j) {
    for (int i = 1; i <= 3; ++i) {
      c(i, j) = (a(i, 1) * b(1, j) + a(i, 2) * b(2, j)) + a(i, 3) * b(3, j);
    }
  }
  return c;
}

inline Vector3 matrix_vector_product(const Matrix3& m, const Vector3& x) {
  Vector3 y{};
  for (int i = 1; i <= 3; ++i) {
    y[i - 1] = (m(i, 1) * x[0] + m(i, 2) * x[1]) + m(i, 3) * x[2];
  }
  return y;
}

// The stress transformation T(theta) from laminate to ply axes for a ply at
// angle_deg, and its inverse T(-theta), both from the same cosine and sine.
struct StressTransformation {
  Matrix3 t, t_inv;
};

inline StressTransformation stress_transformation(float angle_deg) {
  const float theta = radians(angle_deg);
  const float m = std::cos(theta);
  const float n = std::sin(theta);
  const float mm = m * m, nn = n * n, mn = m * n;
  StressTransformation r;
  r.t(1, 1) = mm;
  r.t(1, 2) = nn;
  r.t(1, 3) = 2.0f * mn;
  r.t(2, 1) = nn;
  r.t(2, 2) = mm;
  r.t(2, 3) = -2.0f * mn;
  r.t(3, 1) = -mn;
  r.t(3, 2) = mn;
  r.t(3, 3) = mm - nn;
  r.t_inv(1, 1) = mm;
  r.t_inv(1, 2) = nn;
  r.t_inv(1, 3) = -2.0f * mn;
  r.t_inv(2, 1) = nn;
  r.t_inv(2, 2) = mm;
  r.t_inv(2, 3) = 2.0f * mn;
  r.t_inv(3, 1) = mn;
  r.t_inv(3, 2) = -mn;
  r.t_inv(3, 3) = mm - nn;
  return r;
}

}  // namespace corvane
