#include "plane_stresses_strains/plane_stress.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

// Principal values from Mohr's circle worked by hand: centre (sx+sy)/2, radius
// sqrt(((sx-sy)/2)^2 + txy^2), direction atan(2 txy / (sx - sy)) / 2 measured
// to the major principal stress.
struct MohrCase {
  float sx, sy, txy;
  float s1, s2, theta_p, svm;
};

class PlaneStressPrincipal : public ::testing::TestWithParam<MohrCase> {};

TEST_P(PlaneStressPrincipal, MatchesMohrsCircle) {
  const MohrCase& c = GetParam();
  const PLANESTRESS s = plane_stress(c.sx, c.sy, c.txy);
  EXPECT_EQ(s.sx, c.sx);
  EXPECT_EQ(s.sy, c.sy);
  EXPECT_EQ(s.txy, c.txy);
  EXPECT_NEAR(s.s1, c.s1, 1e-4f);
  EXPECT_NEAR(s.s2, c.s2, 1e-4f);
  EXPECT_NEAR(s.theta_p, c.theta_p, 1e-4f);
  EXPECT_NEAR(s.svm, c.svm, 1e-4f);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PlaneStressPrincipal,
    ::testing::Values(
        // Pure shear: principal axes at 45 degrees, svm = sqrt(3) * 10.
        MohrCase{0.0f, 0.0f, 10.0f, 10.0f, -10.0f, 45.0f, 17.320508f},
        // Equal normal stresses without shear still report 45 degrees.
        MohrCase{20.0f, 20.0f, 0.0f, 20.0f, 20.0f, 45.0f, 20.0f},
        // sy > sx without shear: the major stress lies along y.
        MohrCase{0.0f, 100.0f, 0.0f, 100.0f, 0.0f, 90.0f, 100.0f},
        // Centre 10, radius 50; 2 theta = atan(60/80) = 36.869898 degrees.
        MohrCase{50.0f, -30.0f, 30.0f, 60.0f, -40.0f, 18.434949f, 87.177979f},
        // The same circle with sx and sy exchanged: the major direction is
        // 90 - 18.434949 degrees.
        MohrCase{-30.0f, 50.0f, 30.0f, 60.0f, -40.0f, 71.565051f, 87.177979f},
        MohrCase{-30.0f, 50.0f, -30.0f, 60.0f, -40.0f, 108.434949f, 87.177979f}));

TEST(PlaneStress, RotatingToThePrincipalDirectionGivesThePrincipalStresses) {
  const struct {
    float sx, sy, txy;
  } cases[] = {{50.0f, -30.0f, 30.0f}, {-30.0f, 50.0f, 30.0f}, {10.0f, 70.0f, -25.0f}};
  for (const auto& c : cases) {
    PLANESTRESS s = plane_stress(c.sx, c.sy, c.txy);
    const PLANESTRESS before = s;
    s.rotate(before.theta_p);
    EXPECT_NEAR(s.sx, before.s1, 1e-3f) << c.sx << " " << c.sy << " " << c.txy;
    EXPECT_NEAR(s.sy, before.s2, 1e-3f);
    EXPECT_NEAR(s.txy, 0.0f, 1e-3f);
    EXPECT_NEAR(s.theta_p, 0.0f, 1e-5f);
    EXPECT_EQ(s.s1, before.s1);
    EXPECT_EQ(s.s2, before.s2);
    EXPECT_EQ(s.svm, before.svm);
  }
}

TEST(PlaneStress, RotationByThirtyDegrees) {
  // sx' = (sx+sy)/2 + (sx-sy)/2 cos 60 + txy sin 60, and so on.
  PLANESTRESS s = plane_stress(100.0f, 20.0f, 10.0f);
  s.rotate(30.0f);
  EXPECT_NEAR(s.sx, 60.0f + 20.0f + 8.6602540f, 1e-4f);
  EXPECT_NEAR(s.sy, 60.0f - 20.0f - 8.6602540f, 1e-4f);
  EXPECT_NEAR(s.txy, -34.641016f + 5.0f, 1e-4f);
  EXPECT_NEAR(s.theta_p, 7.0181217f - 30.0f, 1e-5f);
  s.rotate(-30.0f);
  EXPECT_NEAR(s.sx, 100.0f, 1e-4f);
  EXPECT_NEAR(s.sy, 20.0f, 1e-4f);
  EXPECT_NEAR(s.txy, 10.0f, 1e-4f);
  EXPECT_NEAR(s.theta_p, 7.0181217f, 1e-5f);
}

TEST(PlaneStress, NormalStressAlongADirection) {
  const PLANESTRESS s = plane_stress(100.0f, 20.0f, 10.0f);
  EXPECT_FLOAT_EQ(s.normal_at(0.0f), 100.0f);
  EXPECT_NEAR(s.normal_at(90.0f), 20.0f, 1e-4f);
  EXPECT_FLOAT_EQ(s.normal_at(45.0f), 70.0f);   // mean + txy
  EXPECT_FLOAT_EQ(s.normal_at(-45.0f), 50.0f);  // mean - txy
  // Agrees with the rotated frame's sx at any angle.
  PLANESTRESS r = s;
  r.rotate(-63.0f);
  EXPECT_NEAR(s.normal_at(-63.0f), r.sx, 1e-4f);
}

}  // namespace
}  // namespace corvane
