#include "buckling/shell_buckling.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/test_support.h"

// The results digest pins every estimate bit for bit over random panels and
// cylinders; these tests pin the classical loads and what its cases never reach.
namespace corvane {
namespace {

using testing::kNaN;
using testing::orthotropic;

// A quasi-isotropic carbon layup, and a membrane stiffness without an inverse.
const Matrix3 kA = orthotropic(50000, 15000, 40000, 17000);
const Matrix3 kD = orthotropic(4000, 1200, 3500, 1400);
const Matrix3 kSingularA = orthotropic(1000, 1000, 1000, 300);

// A and D of an isotropic wall, thickness t, Poisson's ratio nu, E (1 - nu^2) = 1e5.
struct Wall {
  Matrix3 A, D;
};
Wall isotropic(float t, float nu) {
  return {orthotropic(1e5f * t, nu * 1e5f * t, 1e5f * t, (1 - nu) * 5e4f * t),
          orthotropic(1e5f / 12 * t * t * t, nu * 1e5f / 12 * t * t * t,
                      1e5f / 12 * t * t * t, (1 - nu) * 1e5f / 24 * t * t * t)};
}

TEST(ShellBuckling, ClassicalLoads) {
  // A long cylinder and a large curved panel reach the classical axial load
  // 2 sqrt(D11 (A11 A22 - A12^2)/A11)/R = E t^2/(R sqrt(3 (1 - nu^2))) of an
  // isotropic wall; a flat square 4 pi^2 D/b^2, and the shear 92 D/b^2 of the tables.
  const Wall w = isotropic(1, 0.3f);
  const double classical = 2 * std::sqrt(1e5 / 12 * 1e5 * 0.91) / 500;
  EXPECT_NEAR(cylinder_estimate(w.A, w.D, 5000, 500).nx, classical, 1e-4 * classical);
  EXPECT_NEAR(curved_panel_search(w.A, w.D, 1000, 1000, 500, -1, 0).load, classical,
              1e-4 * classical);
  const CriticalLoads flat = shell_buckling(w.A, w.D, 250, 250, 0, 1);
  const double pi2 = testing::kPiDouble * testing::kPiDouble;
  EXPECT_NEAR(flat.nycr, 4 * pi2 * w.D(1, 1) / (250 * 250), 1e-6 * flat.nycr);
  EXPECT_NEAR(flat.nxycr, 92 * w.D(1, 1) / (250 * 250), 1e-5 * flat.nxycr);
}

TEST(CylinderEstimate, LoadsAreLinearInTheStiffness) {
  // Membrane-bending coupling is taken as zero: a wall 2^30 times softer carries
  // loads exactly 2^30 times smaller, every term scaled by the same power of two;
  // a coupling term left nonzero would spoil that.
  const float s = std::ldexp(1.0f, -30);
  Matrix3 A = kA, D = kD;
  for (float& x : A.v) x *= s;
  for (float& x : D.v) x *= s;
  const CylinderEstimate stiff = cylinder_estimate(kA, kD, 600, 1500);
  const CylinderEstimate soft = cylinder_estimate(A, D, 600, 1500);
  EXPECT_EQ(soft.nx, stiff.nx * s);
  EXPECT_EQ(soft.ny, stiff.ny * s);
  // Without a radius nothing; without a length no mode: the search keeps its start.
  for (const float R : {0.0f, -100.0f, kNaN}) {
    const CylinderEstimate none = cylinder_estimate(kA, kD, 600, R);
    EXPECT_EQ(none.nx + none.ny + none.nxy, 0.0f) << R;
  }
  EXPECT_EQ(cylinder_estimate(kA, kD, 0, 1500).ny, 1.0e30f);
  EXPECT_EQ(cylinder_estimate(kA, kD, kNaN, 1500).nx, 1.0e30f);
}

TEST(CurvedPanelSearch, NoLoadOnTheEdgeOrWithoutPositiveTerms) {
  // A term or side at or below zero (A12 and D12 included) or an optimum on the edge
  // of the search (the best axial half-wave 178 times shorter than the panel is
  // wide): load 0. A singular A, or a NaN, which passes that check: 100000.
  const struct {
    Matrix3 A, D;
    float L, load;
    int m;
  } cases[] = {{orthotropic(50000, 0, 40000, 17000), kD, 600, 0, 0},
               {kA, orthotropic(4000, 0, 3500, 1400), 600, 0, 0},
               {kA, kD, 0, 0, 0},
               {kA, orthotropic(10, 5, 1e10f, 10), 300, 0, 100},
               {kSingularA, kD, 600, 100000, 0},
               {orthotropic(kNaN, 15000, 40000, 17000), kD, 600, 100000, 0}};
  for (const auto& c : cases) {
    const PanelSearch search = curved_panel_search(c.A, c.D, c.L, 300, 1500, -1, 0);
    EXPECT_EQ(search.load, c.load);
    EXPECT_EQ(search.m, c.m);
  }
}

}  // namespace
}  // namespace corvane
