#include "laminas/notch.h"

#include <cmath>
#include <limits>

namespace corvane {

float orthotropic_stress_concentration(const Matrix3& A, bool along_y) {
  const float a11 = along_y ? A(2, 2) : A(1, 1);
  const float a22 = along_y ? A(1, 1) : A(2, 2);
  const float a12 = A(1, 2), a66 = A(3, 3);
  const float det = a11 * a22 - a12 * a12;
  if (!(a11 > 0.0f && a22 > 0.0f && a66 > 0.0f && det > 0.0f)) {
    return std::numeric_limits<float>::quiet_NaN();
  }
  const float inner = (std::sqrt(a11 * a22) - a12) + det / (2.0f * a66);
  return 1.0f + std::sqrt((2.0f / a22) * inner);
}

float point_stress_xi(float hole_diameter, float d0) {
  const float r = 0.5f * hole_diameter;
  return r / (r + d0);
}

float point_stress_ratio(float xi, float kt) {
  const float x2 = xi * xi;
  const float x4 = x2 * x2;
  const float x6 = x4 * x2;
  const float x8 = x4 * x4;
  const float ratio =
      2.0f / (((2.0f + x2) + 3.0f * x4) - (kt - 3.0f) * (5.0f * x6 - 7.0f * x8));
  // The stress ahead of the hole never exceeds the peak at its edge.
  return ratio >= 1.0f / kt ? ratio : 1.0f / kt;
}

float point_stress_distance(float ratio, float hole_diameter) {
  if (!(hole_diameter > 0.0f) || !(ratio > 1.0f / 3.0f && ratio < 1.0f)) return -1.0f;
  const float x = (std::sqrt(24.0f / ratio - 23.0f) - 1.0f) / 6.0f;
  const float xi = std::sqrt(x);
  if (!(xi > 0.0f)) return -1.0f;  // a ratio so near 1 that no hole size tells it
  const float r = 0.5f * hole_diameter;
  return r * (1.0f - xi) / xi;
}

}  // namespace corvane
