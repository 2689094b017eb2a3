#include "plane_stresses_strains/plane_strain.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

// Strains in microstrain scaled to units, so the hand values stay readable.
constexpr float kMicro = 1.0e-6f;

TEST(PlaneStrain, PrincipalStrainsUseHalfTheShearStrain) {
  const struct {
    float ex, ey, gxy, e1, e2, theta_p;
  } cases[] = {
      // Centre 100, radius sqrt(400^2 + 300^2) = 500; 2 theta = atan(600/800).
      {500.0f, -300.0f, 600.0f, 600.0f, -400.0f, 18.434949f},
      {-300.0f, 500.0f, 600.0f, 600.0f, -400.0f, 71.565051f},
      // Pure shear strain gxy: principal strains +-gxy/2 at 45 degrees.
      {0.0f, 0.0f, 400.0f, 200.0f, -200.0f, 45.0f},
      {0.0f, 250.0f, 0.0f, 250.0f, 0.0f, 90.0f},
  };
  for (const auto& c : cases) {
    const PLANESTRAIN e = plane_strain(c.ex * kMicro, c.ey * kMicro, c.gxy * kMicro);
    EXPECT_NEAR(e.e1 / kMicro, c.e1, 1e-3f) << c.ex << " " << c.ey << " " << c.gxy;
    EXPECT_NEAR(e.e2 / kMicro, c.e2, 1e-3f);
    EXPECT_NEAR(e.theta_p, c.theta_p, 1e-4f);
  }
}

TEST(PlaneStrain, DifferencesBelowTheThresholdGiveFortyFiveDegrees) {
  // |ex - ey| below 1e-6 counts as equal even when the shear strain dominates.
  EXPECT_EQ(plane_strain(5.0e-7f, 0.0f, 1.0e-3f).theta_p, 45.0f);
  EXPECT_NEAR(plane_strain(2.0e-6f, 0.0f, 2.0e-6f).theta_p, 22.5f, 1e-4f);
}

TEST(PlaneStrain, RotationAndNormalStrain) {
  PLANESTRAIN e = plane_strain(500.0f * kMicro, -300.0f * kMicro, 600.0f * kMicro);
  EXPECT_NEAR(e.normal_at(0.0f) / kMicro, 500.0f, 1e-3f);
  EXPECT_NEAR(e.normal_at(90.0f) / kMicro, -300.0f, 1e-3f);
  EXPECT_NEAR(e.normal_at(45.0f) / kMicro, 400.0f, 1e-3f);  // mean + gxy/2
  EXPECT_NEAR(e.normal_at(-45.0f) / kMicro, -200.0f, 1e-3f);

  const PLANESTRAIN before = e;
  e.rotate(before.theta_p);  // to the principal axes: no shear left
  EXPECT_NEAR(e.ex / kMicro, 600.0f, 1e-3f);
  EXPECT_NEAR(e.ey / kMicro, -400.0f, 1e-3f);
  EXPECT_NEAR(e.gxy / kMicro, 0.0f, 1e-3f);
  EXPECT_EQ(e.e1, before.e1);
  EXPECT_EQ(e.e2, before.e2);

  e = before;
  e.rotate(30.0f);
  // ex' = 100 + 400 cos 60 + 300 sin 60; gxy' = -800 sin 60 + 600 cos 60.
  EXPECT_NEAR(e.ex / kMicro, 300.0f + 259.80762f, 1e-3f);
  EXPECT_NEAR(e.ey / kMicro, -100.0f - 259.80762f, 1e-3f);
  EXPECT_NEAR(e.gxy / kMicro, -692.82032f + 300.0f, 1e-3f);
  e.rotate(-30.0f);
  EXPECT_NEAR(e.ex / kMicro, 500.0f, 1e-3f);
  EXPECT_NEAR(e.ey / kMicro, -300.0f, 1e-3f);
  EXPECT_NEAR(e.gxy / kMicro, 600.0f, 1e-3f);
  EXPECT_FLOAT_EQ(e.theta_p, before.theta_p);
}

}  // namespace
}  // namespace corvane
