#include "plane_stresses_strains/plane_stress.h"

#include <cmath>

#include "util/numerics.h"

namespace corvane {

PLANESTRESS plane_stress(float sx, float sy, float txy) {
  PLANESTRESS s;
  s.sx = sx;
  s.sy = sy;
  s.txy = txy;
  const float m = (sx + sy) * 0.5f;
  const float half_difference = (sx - sy) * 0.5f;
  const float r = std::sqrt(half_difference * half_difference + txy * txy);
  s.s1 = m + r;
  s.s2 = m - r;
  s.svm = std::sqrt(sx * sx - sx * sy + sy * sy + 3.0f * (txy * txy));
  // Below this difference the direction is taken as 45 degrees, shear or not.
  if (std::fabs(sx - sy) >= 1.0e-6f) {
    s.theta_p = kDegreesPerRadian * std::atan(2.0f * txy / (sx - sy)) * 0.5f;
  } else {
    s.theta_p = 45.0f;
  }
  // atan alone gives the direction of s2 when sy is the larger normal stress.
  if (sy > sx) s.theta_p = (2.0f * s.theta_p + 180.0f) * 0.5f;
  return s;
}

void PLANESTRESS::rotate(float angle_deg) {
  const float angle = radians(angle_deg);
  const float cs = std::cos(angle);
  const float sn = std::sin(angle);
  const float x = sx, y = sy, t = txy;
  sx = cs * cs * x + sn * sn * y + 2.0f * sn * cs * t;
  sy = sn * sn * x + cs * cs * y - 2.0f * sn * cs * t;
  txy = (y - x) * sn * cs + t * (cs * cs - sn * sn);
  theta_p = theta_p - angle_deg;
}

float PLANESTRESS::normal_at(float angle_deg) const {
  const float two_angle = radians(2.0f * angle_deg);
  return (sx + sy) * 0.5f + (sx - sy) * 0.5f * std::cos(two_angle) +
         txy * std::sin(two_angle);
}

}  // namespace corvane
