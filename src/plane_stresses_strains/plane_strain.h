// PLANESTRAIN: a two-dimensional strain state in an x-y frame (engineering
// shear strain) with its principal strains and principal direction, turned to
// other frames by the strain transformation.
#pragma once

namespace corvane {

struct PLANESTRAIN {
  float ex = 0.0f, ey = 0.0f;
  float gxy = 0.0f;            // engineering shear strain
  float e1 = 0.0f, e2 = 0.0f;  // principal strains
  float theta_p = 0.0f;        // principal direction, degrees

  // Turns the components to a frame rotated by angle_deg (counter-clockwise)
  // and moves theta_p by -angle_deg. e1 and e2 keep their values.
  void rotate(float angle_deg);
  // The direct strain along the direction at angle_deg from x.
  float normal_at(float angle_deg) const;
};

// The state of components ex, ey, gxy with its principal values; theta_p as
// for plane_stress, with half the engineering shear strain in place of txy.
PLANESTRAIN plane_strain(float ex, float ey, float gxy);

}  // namespace corvane
