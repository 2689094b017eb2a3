#include "plane_stresses_strains/plane_stress.h"

#include <gtest/gtest.h>

#include "plane_stresses_strains/membrane_strains.h"
#include "plane_stresses_strains/plane_strain.h"

namespace corvane {
namespace {

// Principal values from Mohr's circle worked by hand: centre (sx+sy)/2, radius
// sqrt(((sx-sy)/2)^2 + txy^2), direction atan(2 txy / (sx - sy)) / 2 measured
// to the major principal stress.
TEST(PlaneStress, PrincipalValuesAsMohrsCircle) {
  const struct {
    float sx, sy, txy;
    float s1, s2, theta_p, svm;
  } cases[] = {
      // Pure shear: principal axes at 45 degrees, svm = sqrt(3) * 10; equal normal
      // stresses without shear still report 45 degrees; sy > sx: the major along y.
      {0, 0, 10, 10, -10, 45, 17.320508f},
      {20, 20, 0, 20, 20, 45, 20},
      {0, 100, 0, 100, 0, 90, 100},
      // Centre 10, radius 50; 2 theta = atan(60/80) = 36.869898 degrees; with sx
      // and sy exchanged the major direction is 90 - 18.434949 degrees.
      {50, -30, 30, 60, -40, 18.434949f, 87.177979f},
      {-30, 50, 30, 60, -40, 71.565051f, 87.177979f},
      {-30, 50, -30, 60, -40, 108.434949f, 87.177979f}};
  for (const auto& c : cases) {
    const PLANESTRESS s = plane_stress(c.sx, c.sy, c.txy);
    EXPECT_EQ(s.sx + s.sy + s.txy, c.sx + c.sy + c.txy);
    EXPECT_NEAR(s.s1, c.s1, 1e-4f) << c.sx << " " << c.sy << " " << c.txy;
    EXPECT_NEAR(s.s2, c.s2, 1e-4f);
    EXPECT_NEAR(s.theta_p, c.theta_p, 1e-4f);
    EXPECT_NEAR(s.svm, c.svm, 1e-4f);
    // Turned to the principal direction: the principal stresses, no shear.
    PLANESTRESS r = s;
    r.rotate(s.theta_p);
    EXPECT_NEAR(r.sx, s.s1, 1e-3f);
    EXPECT_NEAR(r.sy, s.s2, 1e-3f);
    EXPECT_NEAR(r.txy, 0.0f, 1e-3f);
    EXPECT_NEAR(r.theta_p, 0.0f, 1e-5f);
    EXPECT_TRUE(r.s1 == s.s1 && r.s2 == s.s2 && r.svm == s.svm);
  }
}

// Rotation is held by the turn to the principal axes above.
TEST(PlaneStress, NormalStress) {
  const PLANESTRESS s = plane_stress(100.0f, 20.0f, 10.0f);
  EXPECT_FLOAT_EQ(s.normal_at(0.0f), 100.0f);
  EXPECT_NEAR(s.normal_at(90.0f), 20.0f, 1e-4f);
  EXPECT_FLOAT_EQ(s.normal_at(45.0f), 70.0f);   // mean + txy
  EXPECT_FLOAT_EQ(s.normal_at(-45.0f), 50.0f);  // mean - txy
}

// Strains in microstrain scaled to units, so the hand values stay readable.
constexpr float kMicro = 1.0e-6f;

TEST(PlaneStrain, PrincipalStrainsUseHalfTheShearStrain) {
  const struct {
    float ex, ey, gxy, e1, e2, theta_p;
  } cases[] = {
      // Centre 100, radius sqrt(400^2 + 300^2) = 500; 2 theta = atan(600/800).
      {500, -300, 600, 600, -400, 18.434949f},
      {-300, 500, 600, 600, -400, 71.565051f},
      {0, 0, 400, 200, -200, 45},  // pure shear: +-gxy/2 at 45 degrees
      {0, 250, 0, 250, 0, 90},
      // |ex - ey| below 1e-6 counts as equal even when the shear strain dominates.
      {0.5f, 0, 1000, 500.25f, -499.75f, 45},
      {2, 0, 2, 2.4142137f, -0.41421354f, 22.5f}};
  for (const auto& c : cases) {
    const PLANESTRAIN e = plane_strain(c.ex * kMicro, c.ey * kMicro, c.gxy * kMicro);
    EXPECT_NEAR(e.e1 / kMicro, c.e1, 1e-3f) << c.ex << " " << c.ey << " " << c.gxy;
    EXPECT_NEAR(e.e2 / kMicro, c.e2, 1e-3f);
    EXPECT_NEAR(e.theta_p, c.theta_p, 1e-4f);
  }
}

TEST(PlaneStrain, RotationAndNormalStrain) {
  PLANESTRAIN e = plane_strain(500.0f * kMicro, -300.0f * kMicro, 600.0f * kMicro);
  EXPECT_NEAR(e.normal_at(90.0f) / kMicro, -300.0f, 1e-3f);
  EXPECT_NEAR(e.normal_at(45.0f) / kMicro, 400.0f, 1e-3f);  // mean + gxy/2
  EXPECT_NEAR(e.normal_at(-45.0f) / kMicro, -200.0f, 1e-3f);
  const PLANESTRAIN before = e;
  e.rotate(before.theta_p);  // to the principal axes: no shear left
  EXPECT_NEAR(e.ex / kMicro, 600.0f, 1e-3f);
  EXPECT_NEAR(e.ey / kMicro, -400.0f, 1e-3f);
  EXPECT_NEAR(e.gxy / kMicro, 0.0f, 1e-3f);
  EXPECT_NEAR(e.theta_p, 0.0f, 1e-5f);
  EXPECT_TRUE(e.e1 == before.e1 && e.e2 == before.e2);
}

// Each modulus is accepted from 1e-6 up and refused just below.
TEST(MembraneStrains, ModuliFromOneMillionthUp) {
  constexpr float kLow = 1.0e-6f, kBelow = 0.99e-6f;
  const struct {
    float ex, ey, gxy;
    int code;
  } cases[] = {
      {kLow, kLow, kLow, 0}, {kBelow, 1, 1, 1}, {1, kBelow, 1, 1}, {1, 1, kBelow, 1}};
  for (const auto& c : cases) {
    MembraneStrains e{};
    EXPECT_EQ(membrane_strains(1, c.ex, c.ey, c.gxy, 0.3f, 1, 1, 1, e), c.code) << c.ex;
  }
}

}  // namespace
}  // namespace corvane
