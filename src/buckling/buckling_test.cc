#include "buckling/plate_buckling.h"

#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "buckling/shell_buckling.h"
#include "support/test_support.h"

// The results digest pins every search and estimate bit for bit over random plates,
// panels and cylinders, refused and NaN terms and sides, a zero [A] and radii of
// zero and below among them; these tests hold them to the classical loads.
namespace corvane {
namespace {

using testing::orthotropic;
using Loads = std::vector<float>;

TEST(PlateBuckling, IsotropicPlatesReachTheClassicalLoads) {
  // D12 = 0.3 D, D66 = 0.35 D. A plate a = k b in compression buckles in k square
  // half-waves at 4 pi^2 D/b^2; the sweep bound 10 confirms one half-wave, 20 more.
  const double pi2 = testing::kPiDouble * testing::kPiDouble;
  for (const int k : {1, 2, 7}) {
    const HalfWaveSearch s =
        half_wave_search(orthotropic(80, 24, 80, 28), k * 5.0f, 5, -1, 0);
    EXPECT_NEAR(s.lambda, 4 * pi2 * 80 / 25, 1.0e-5 * s.lambda) << k;
    EXPECT_EQ(s.m * 100 + s.n, k * 100 + 1);
    EXPECT_EQ(s.bound, k == 1 ? 10 : 20);
  }
  // The tables for the square: Kc = 19.7 (against 2 pi^2) and the shear 92 D/(a b)
  // (against the textbook 9.34 pi^2 = 92.2). Half of each load: the reserve factor
  // of the parabola 0.5 RF + (0.5 RF)^2 = 1. Arrays of other sizes get none.
  float nxcr = 0, nycr = 0, nxycr = 0;
  Loads rf(1);
  ASSERT_EQ(closed_form_estimate(1, 0.3f, 1, 0.35f, 1, 1, Loads{-19.719606f}, Loads{0},
                                 Loads{46}, rf, nxcr, nycr, nxycr),
            0);
  EXPECT_NEAR(nxcr, 19.7 + 2 * pi2, 4.0e-5);
  EXPECT_NEAR(nxycr, 92.0, 1.0e-4);
  EXPECT_NEAR(rf[0], 1.2360680, 2.0e-6);
  EXPECT_NEAR(plate_buckling(orthotropic(1, 0.3f, 1, 0.35f), 1, 1, -2 * pi2, 0, 46),
              1.2360680, 2.0e-6);
  rf.assign(2, 9.0f);
  EXPECT_EQ(closed_form_estimate(1, 0.3f, 1, 0.35f, 1, 1, Loads{0}, Loads{0}, Loads{0},
                                 rf, nxcr, nycr, nxycr),
            2);
  EXPECT_EQ(rf, Loads(2, 0.0f));
  // y compression of a plate ten times as wide as long with D11 = (k/10)^4 D22 has
  // k half-waves across: the sweep at 80 must reach them for the one at 90 to agree.
  for (const float k : {80.0f, 81.0f}) {
    const float r4 = (k / 10) * (k / 10) * (k / 10) * (k / 10);
    const HalfWaveSearch s =
        half_wave_search(orthotropic(r4 * 1e-8f, 1e-10f, 1e-8f, 1e-10f), 1, 10, 0, -1);
    EXPECT_EQ(s.n * 1000 + s.bound * 10 + s.error, k == 80 ? 80900 : 1);
  }
}

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

}  // namespace
}  // namespace corvane
