#include "plane_stresses_strains/plane_strain.h"

#include <cmath>

#include "util/numerics.h"

namespace corvane {

PLANESTRAIN plane_strain(float ex, float ey, float gxy) {
  PLANESTRAIN e;
  e.ex = ex;
  e.ey = ey;
  e.gxy = gxy;
  const float m = (ex + ey) * 0.5f;
  const float half_difference = (ex - ey) * 0.5f;
  const float half_shear = gxy * 0.5f;
  const float r = std::sqrt(half_difference * half_difference + half_shear * half_shear);
  e.e1 = m + r;
  e.e2 = m - r;
  if (std::fabs(ex - ey) >= 1.0e-6f) {
    e.theta_p = kDegreesPerRadian * std::atan(gxy / (ex - ey)) * 0.5f;
  } else {
    e.theta_p = 45.0f;
  }
  if (ey > ex) e.theta_p = (2.0f * e.theta_p + 180.0f) * 0.5f;
  return e;
}

void PLANESTRAIN::rotate(float angle_deg) {
  const float angle = radians(angle_deg);
  const float cs = std::cos(angle);
  const float sn = std::sin(angle);
  const float x = ex, y = ey, g = gxy;
  ex = cs * cs * x + sn * sn * y + g * sn * cs;
  ey = sn * sn * x + cs * cs * y - g * sn * cs;
  gxy = 2.0f * ((y - x) * sn * cs + 0.5f * g * (cs * cs - sn * sn));
  theta_p = theta_p - angle_deg;
}

float PLANESTRAIN::normal_at(float angle_deg) const {
  const float two_angle = radians(2.0f * angle_deg);
  return (ex + ey) * 0.5f + (ex - ey) * 0.5f * std::cos(two_angle) +
         gxy * 0.5f * std::sin(two_angle);
}

}  // namespace corvane
