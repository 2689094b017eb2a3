// Matrix3: a 3x3 single-precision matrix stored as nine floats, column by column
// (element (i,j) at index (i-1) + 3(j-1)), the layout the C interface copies to
// and from its callers. The 1-based accessor lets formulas read as written,
// A(1, 2) for A12; indices 1, 2, 3 stand for x, y and xy.
#pragma once

#include <array>

namespace corvane {

struct Matrix3 {
  std::array<float, 9> v{};  // column order

  constexpr float& operator()(int i, int j) { return v[(i - 1) + 3 * (j - 1)]; }
  constexpr float operator()(int i, int j) const { return v[(i - 1) + 3 * (j - 1)]; }

  friend constexpr bool operator==(const Matrix3&, const Matrix3&) = default;
};

}  // namespace corvane
