// What one element of the plate, shell and strain entry points computes, shared
// by the one-element adapters of corvane.h and the many-element ones of
// corvane_strength.h, so that both give the same bits for the same inputs.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "buckling/plate_buckling.h"
#include "buckling/shell_buckling.h"
#include "plane_stresses_strains/membrane_strains.h"
#include "util/matrix3.h"

namespace corvane {

// Critical loads of a simply supported plate of bending stiffness d (nine
// floats, column order); a load it cannot find is 0.
inline CriticalLoads plate_critical_loads(const float* d, float a, float b) {
  Matrix3 D;
  std::copy_n(d, 9, D.v.begin());
  // A tensile load vector: only the critical loads are wanted, and failures
  // show as zero loads, not through the error code.
  CriticalLoads critical;
  plate_buckling(D, a, b, 1.0f, 1.0f, 0.0f, &critical);
  return critical;
}

// The buckling reserve factor into *rf and its error code: 1 (with rf 0) when a
// critical load is below 1e-6. A NaN critical load is not below 1e-6: it passes,
// and its NaN reaches rf.
inline std::int32_t plate_rf(float nx, float ny, float nxy, float nxcr, float nycr,
                             float nxycr, float* rf) {
  if (nxcr < 1.0e-6f || nycr < 1.0e-6f || nxycr < 1.0e-6f) {
    *rf = 0.0f;
    return 1;
  }
  *rf = interaction_rf(-nx / nxcr, -ny / nycr, std::fabs(nxy / nxycr));
  return 0;
}

// Critical loads of a curved panel or cylinder from [A] and [D] (nine floats
// each, column order), with the shell routine's error code in *error.
inline CriticalLoads shell_critical_loads(const float* a, const float* d, float l,
                                          float b, float r, float t, int* error) {
  Matrix3 A;
  Matrix3 D;
  std::copy_n(a, 9, A.v.begin());
  std::copy_n(d, 9, D.v.begin());
  *error = 0;
  return shell_buckling(A, D, l, b, r, t, error);
}

}  // namespace corvane
