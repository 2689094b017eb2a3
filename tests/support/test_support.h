// What many test files need: orthotropic 3x3 matrices and the special floats.
#pragma once

#include <limits>

#include "util/matrix3.h"

namespace corvane::testing {

inline constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
inline constexpr float kInf = std::numeric_limits<float>::infinity();
inline constexpr double kPiDouble = 3.14159265358979323846;  // independent of kPi

// A symmetric matrix with no 16 and 26 terms.
inline Matrix3 orthotropic(float x11, float x12, float x22, float x66) {
  Matrix3 m;
  m(1, 1) = x11;
  m(1, 2) = m(2, 1) = x12;
  m(2, 2) = x22;
  m(3, 3) = x66;
  return m;
}

}  // namespace corvane::testing
