// PLANESTRESS: a two-dimensional stress state in an x-y frame with its
// principal stresses, principal direction and von Mises equivalent stress
// (Mohr's circle), turned to other frames by the stress transformation.
#pragma once

namespace corvane {

struct PLANESTRESS {
  float sx = 0.0f, sy = 0.0f, txy = 0.0f;  // components
  float s1 = 0.0f, s2 = 0.0f;              // major and minor principal stresses
  float theta_p = 0.0f;                    // principal direction, degrees
  float svm = 0.0f;                        // von Mises equivalent stress

  // Turns the components to a frame rotated by angle_deg (counter-clockwise)
  // and moves theta_p by -angle_deg. s1, s2 and svm keep their values.
  void rotate(float angle_deg);
  // The direct stress along the direction at angle_deg from x.
  float normal_at(float angle_deg) const;
};

// The state of components sx, sy, txy with its principal values. theta_p is
// 45 when |sx - sy| < 1e-6 whatever txy is, and lies in (45, 135] when sy > sx.
PLANESTRESS plane_stress(float sx, float sy, float txy);

}  // namespace corvane
