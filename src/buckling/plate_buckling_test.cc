#include "buckling/plate_buckling.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/test_support.h"

// The results digest pins the searches and estimates bit for bit over random plates;
// these tests pin the textbook values and what its cases never reach.
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
}

TEST(HalfWaveSearch, TiesKeepTheFirstModeAndTheOptimumSettlesBeforeBound100) {
  // D11 = 4 D22 on a = 2 b: one and two half-waves give exactly 7 pi^2.
  EXPECT_EQ(half_wave_search(orthotropic(4, 0.5f, 1, 0.25f), 2, 1, -1, 0).m, 1);
  // y compression of a plate ten times as wide as long with D11 = (k/10)^4 D22 has
  // k half-waves across: the sweep at 80 must reach them for the one at 90 to agree.
  for (const float k : {80.0f, 81.0f}) {
    const float r4 = (k / 10) * (k / 10) * (k / 10) * (k / 10);
    const HalfWaveSearch s =
        half_wave_search(orthotropic(r4 * 1e-8f, 1e-10f, 1e-8f, 1e-10f), 1, 10, 0, -1);
    EXPECT_EQ(s.error, k == 80 ? 0 : 1);
    EXPECT_EQ(s.n * 100 + s.bound, k == 80 ? 8090 : 0);
  }
}

TEST(PlateBuckling, NonPositiveInputIsRefusedAndANaNPasses) {
  // A term or side at or below zero: error 1 and zero loads. A NaN is not below
  // zero: the search keeps its start of 100000.
  const struct {
    Matrix3 D;
    float b;
    int error;
  } cases[] = {{orthotropic(10, 0, 5, 2), 1, 1},
               {orthotropic(10, 1, 5, -2), 1, 1},
               {orthotropic(10, 1, 5, 2), 0, 1},
               {orthotropic(testing::kNaN, 1, 5, 2), 1, 0}};
  for (const auto& c : cases) {
    CriticalLoads loads{9, 9, 9};
    int error = 7;
    EXPECT_EQ(plate_buckling(c.D, 1, c.b, 1, 1, 0, &loads, &error) == 0, c.error == 1);
    EXPECT_EQ(error, c.error);
    EXPECT_EQ(loads.nycr, c.error ? 0.0f : 100000.0f);
  }
}

}  // namespace
}  // namespace corvane
