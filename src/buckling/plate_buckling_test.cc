#include "buckling/plate_buckling.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace corvane {
namespace {

constexpr double kPi2 = 9.869604401089358;  // pi^2 in double: an independent reference
const float kNaN = NAN;

Matrix3 orthotropic(float D11, float D12, float D22, float D66) {
  Matrix3 D;
  D(1, 1) = D11;
  D(1, 2) = D(2, 1) = D12;
  D(2, 2) = D22;
  D(3, 3) = D66;
  return D;
}

// D12 = nu D and D66 = (1 - nu) D/2, so that H = D12 + 2 D66 = D.
Matrix3 isotropic(float D, float nu) {
  return orthotropic(D, nu * D, D, (1.0f - nu) * D / 2.0f);
}

// Float rounding of a dozen operations stays well below this relative error; a
// wrong constant, power or mode does not.
#define EXPECT_CLOSE(actual, expected, tolerance) \
  EXPECT_NEAR(actual, expected, (tolerance)*std::fabs(expected))

TEST(HalfWaveSearch, IsotropicPlatesBuckleInSquareWaves) {
  // Simply supported isotropic plate a = k b in compression along a: k half-waves
  // and the classical 4 pi^2 D/b^2, whatever nu.
  const struct {
    float D, nu, b;
    int k, bound;  // half-waves, and the sweep bound that confirms them
  } cases[] = {{1000.0f, 0.3f, 200.0f, 1, 10},
               {5.5e4f, 0.25f, 350.0f, 1, 10},
               {2000.0f, 0.3f, 150.0f, 2, 20},
               {80.0f, 0.33f, 5.0f, 7, 20}};
  for (const auto& c : cases) {
    const HalfWaveSearch s = half_wave_search(
        isotropic(c.D, c.nu), static_cast<float>(c.k) * c.b, c.b, -1.0f, 0.0f);
    EXPECT_CLOSE(s.lambda, 4.0 * kPi2 * c.D / (c.b * c.b), 1.0e-5);
    EXPECT_EQ(s.m, c.k);
    EXPECT_EQ(s.n, 1);
    EXPECT_EQ(s.bound, c.bound);
  }
}

TEST(HalfWaveSearch, ExactFloatsAndTies) {
  // With dyadic data every step is exact but the constant: D = a = b = 1 gives
  // 4 pi^2 with pi^2 the float 9.869606.
  EXPECT_EQ(half_wave_search(orthotropic(1, 0.5f, 1, 0.25f), 1, 1, -1, 0).lambda,
            4.0f * 9.869606f);
  // D11 = 4 D22 on a = 2 b: one and two half-waves give exactly 7 pi^2 (b = 1);
  // the earlier pair is kept.
  const HalfWaveSearch tie =
      half_wave_search(orthotropic(4, 0.5f, 1, 0.25f), 2, 1, -1, 0);
  EXPECT_EQ(tie.lambda, 7.0f * 9.869606f);
  EXPECT_EQ(tie.m, 1);
}

TEST(HalfWaveSearch, LongPlatesTendToTheInfiniteStripLoad) {
  // With D11 = 16 D22 a buckle is half as long as the plate is wide: the optimum
  // of a plate a = k b has m* = k/2 half-waves. The strip load
  // 2 pi^2 (sqrt(D11 D22) + H)/b^2 is met exactly when m* is whole. Otherwise
  // the load exceeds it by sqrt(D11 D22) (x - 1/x)^2 pi^2/b^2 for x = m/m*, where
  // the whole m lies within 1/2 of m*: a relative excess of at most
  // sqrt(D11 D22)/(2(sqrt(D11 D22) + H)) (x - 1/x)^2, which shrinks like 1/k^2.
  const Matrix3 D = orthotropic(16.0f, 0.5f, 1.0f, 1.0f);
  const double root = 4.0, H = 2.5, b = 2.0;
  const double strip = 2.0 * kPi2 * (root + H) / (b * b);
  for (const float k : {4.0f, 6.0f, 10.0f, 20.0f}) {  // 20: taken as 10
    EXPECT_CLOSE(half_wave_search(D, k * 2.0f, 2.0f, -1.0f, 0.0f).lambda, strip, 1.0e-5)
        << k;
  }
  for (const float k : {3.0f, 5.0f, 9.0f}) {  // m* half way between whole numbers
    const double x = 1.0 - 1.0 / k;           // m = m* - 1/2, the worse side
    const double excess = root / (2.0 * (root + H)) * (x - 1.0 / x) * (x - 1.0 / x);
    const float lambda = half_wave_search(D, k * 2.0f, 2.0f, -1.0f, 0.0f).lambda;
    EXPECT_GT(lambda, strip) << k;
    EXPECT_LE(lambda, strip * (1.0 + excess)) << k;
  }
}

TEST(HalfWaveSearch, PlatesLongerThanTenWidthsAreTakenAsTenWidths) {
  const Matrix3 D = orthotropic(7.0f, 1.3f, 2.0f, 1.1f);
  const float ten = half_wave_search(D, 10.0f, 1.0f, -1.0f, 0.0f).lambda;
  EXPECT_EQ(half_wave_search(D, 20.0f, 1.0f, -1.0f, 0.0f).lambda, ten);
  EXPECT_EQ(half_wave_search(D, 10.5f, 1.0f, -1.0f, 0.0f).lambda, ten);
  EXPECT_NE(half_wave_search(D, 9.3f, 1.0f, -1.0f, 0.0f).lambda, ten);
  EXPECT_EQ(half_wave_search(D, 1.0f, 20.0f, 0.0f, -1.0f).lambda,
            half_wave_search(D, 1.0f, 10.0f, 0.0f, -1.0f).lambda);
}

TEST(HalfWaveSearch, TheOptimumMustSettleBeforeBound100) {
  // y compression of a plate ten times as wide as long, D11 = (k/10)^4 D22:
  // the optimum has k half-waves across. The sweep at 80 must already reach it
  // for the one at 90 to confirm it.
  for (const float k : {75.0f, 80.0f, 81.0f, 85.0f, 1000.0f}) {
    const float r = k / 10.0f;
    const Matrix3 D =
        orthotropic((r * r) * (r * r) * 1.0e-8f, 1.0e-10f, 1.0e-8f, 1.0e-10f);
    const HalfWaveSearch s = half_wave_search(D, 1.0f, 10.0f, 0.0f, -1.0f);
    EXPECT_EQ(s.error, k <= 80.0f ? 0 : 1) << k;
    EXPECT_EQ(s.n, k <= 80.0f ? static_cast<int>(k) : 0) << k;
    EXPECT_EQ(s.bound, k <= 80.0f ? 90 : 0) << k;
    EXPECT_EQ(s.lambda > 0.0f, k <= 80.0f) << k;
  }
}

// The search skips the pairs of earlier sweeps and forms a row of load factors
// before scanning it; it must give the very results of the plain sweeps, which
// visit every pair of every sweep with the formula written out.
HalfWaveSearch plain_sweeps(const Matrix3& D, float a, float b, float nx, float ny) {
  const float a_eff = b > 0.0f && a / b > 10.0f ? 10.0f * b : a;
  const float b_eff = a > 0.0f && b / a > 10.0f ? 10.0f * a : b;
  const float H = D(1, 2) + 2.0f * D(3, 3);
  float lambda_min = 100000.0f;
  int best_m = 0, best_n = 0, previous_m = -1, previous_n = 0, bound = 1, step = 0;
  for (;;) {
    for (int m = 1; m <= bound; ++m) {
      for (int n = 1; n <= bound; ++n) {
        const float p = static_cast<float>(m) / a_eff;
        const float q = static_cast<float>(n) / b_eff;
        const float pq = static_cast<float>(m * n) / (a_eff * b_eff);
        const float p2 = p * p, q2 = q * q;
        const float lambda =
            -9.869606f *
            (D(1, 1) * (p2 * p2) + 2.0f * H * (pq * pq) + D(2, 2) * (q2 * q2)) /
            (nx * p2 + ny * q2);
        if (lambda > 0.0f && lambda < lambda_min) {
          lambda_min = lambda;
          best_m = m;
          best_n = n;
        }
      }
    }
    if (best_m == previous_m && best_n == previous_n) {
      return {lambda_min, best_m, best_n, bound, 0};
    }
    previous_m = best_m;
    previous_n = best_n;
    step += 10;
    bound = std::min(step, 100);
    if (bound == 100) return {0.0f, 0, 0, 0, 1};
  }
}

TEST(HalfWaveSearch, MatchesThePlainSweepsBitForBit) {
  const Matrix3 plates[] = {
      orthotropic(4000, 1200, 3500, 1400), orthotropic(16.0f, 0.5f, 1.0f, 1.0f),
      orthotropic(1.0f, 0.3f, 40.0f, 0.2f), isotropic(1000.0f, 0.3f)};
  const float pairs[][2] = {{-1, 0}, {0, -1}, {-1, -1}, {-0.3f, 0.7f}, {2, -1}, {1, 1}};
  int compared = 0;
  for (const Matrix3& D : plates) {
    for (const float ratio : {0.07f, 0.4f, 1.0f, 1.7f, 3.3f, 9.0f, 25.0f}) {
      for (const auto& pair : pairs) {
        const float a = 300.0f * ratio, b = 300.0f;
        const HalfWaveSearch s = half_wave_search(D, a, b, pair[0], pair[1]);
        const HalfWaveSearch p = plain_sweeps(D, a, b, pair[0], pair[1]);
        EXPECT_EQ(s.lambda, p.lambda);
        EXPECT_EQ(s.m, p.m);
        EXPECT_EQ(s.n, p.n);
        EXPECT_EQ(s.bound, p.bound);
        EXPECT_EQ(s.error, p.error);
        compared += p.bound > 10 ? 1 : 0;
      }
    }
  }
  EXPECT_GT(compared, 20);  // many searches went past the second sweep
}

TEST(HalfWaveSearch, NoModeBelowTheStartingValueLeaves100000) {
  // A tensile pair, and a plate whose load 4 pi^2 D/b^2 = 3.9e7 exceeds 100000.
  for (const HalfWaveSearch& s :
       {half_wave_search(isotropic(10.0f, 0.3f), 3.0f, 1.0f, 1.0f, 1.0f),
        half_wave_search(isotropic(1.0e6f, 0.3f), 1.0f, 1.0f, -1.0f, 0.0f)}) {
    EXPECT_EQ(s.error, 0);
    EXPECT_EQ(s.lambda, 100000.0f);
    EXPECT_EQ(s.m, 0);
    EXPECT_EQ(s.bound, 10);
  }
}

TEST(PlateBuckling, NonPositiveTermsGiveZerosEverywhere) {
  const struct {
    Matrix3 D;
    float a, b;
  } cases[] = {
      {orthotropic(10.0f, 0.0f, 5.0f, 2.0f), 1.0f, 1.0f},  // D12 = 0 is legal, still 0
      {orthotropic(10.0f, -1.0f, 5.0f, 2.0f), 1.0f, 1.0f},
      {orthotropic(0.0f, 1.0f, 5.0f, 2.0f), 1.0f, 1.0f},
      {orthotropic(10.0f, 1.0f, -5.0f, 2.0f), 1.0f, 1.0f},
      {orthotropic(10.0f, 1.0f, 5.0f, 0.0f), 1.0f, 1.0f},
      {orthotropic(kNaN, -1.0f, 5.0f, 2.0f), 1.0f, 1.0f},  // a NaN does not hide it
      {orthotropic(10.0f, 1.0f, 5.0f, 2.0f), 0.0f, 1.0f},
      {orthotropic(10.0f, 1.0f, 5.0f, 2.0f), 1.0f, -1.0f}};
  for (const auto& c : cases) {
    const HalfWaveSearch s = half_wave_search(c.D, c.a, c.b, -1.0f, 0.0f);
    EXPECT_EQ(s.error, 1);
    EXPECT_EQ(s.lambda, 0.0f);
    CriticalLoads loads{9.0f, 9.0f, 9.0f};
    int error = 0;
    EXPECT_EQ(plate_buckling(c.D, c.a, c.b, 1.0f, 1.0f, 0.0f, &loads, &error), 0.0f);
    EXPECT_EQ(error, 1);
    EXPECT_EQ(loads.nxcr + loads.nycr + loads.nxycr, 0.0f);
    float rf[1] = {9.0f}, nxcr = 9.0f, nycr = 9.0f, nxycr = 9.0f;
    EXPECT_EQ(closed_form_estimate(c.D(1, 1), c.D(1, 2), c.D(2, 2), c.D(3, 3), c.a, c.b,
                                   rf, rf, rf, rf, nxcr, nycr, nxycr),
              1);
    EXPECT_EQ(rf[0] + nxcr + nycr + nxycr, 0.0f);
  }
}

TEST(PlateBuckling, ANaNTermIsNotNonPositive) {
  // Only a value at or below zero stops the routines. A NaN passes the check and
  // makes every load factor NaN, never a positive one: the search keeps its
  // starting value and the closed form carries the NaN into its loads.
  const struct {
    Matrix3 D;
    float a, b;
  } cases[] = {{orthotropic(kNaN, 1.0f, 5.0f, 2.0f), 1.0f, 1.0f},
               {orthotropic(10.0f, kNaN, 5.0f, 2.0f), 1.0f, 1.0f},
               {orthotropic(10.0f, 1.0f, kNaN, 2.0f), 1.0f, 1.0f},
               {orthotropic(10.0f, 1.0f, 5.0f, kNaN), 1.0f, 1.0f},
               {orthotropic(10.0f, 1.0f, 5.0f, 2.0f), kNaN, 1.0f},
               {orthotropic(10.0f, 1.0f, 5.0f, 2.0f), 1.0f, kNaN}};
  for (const auto& c : cases) {
    const HalfWaveSearch s = half_wave_search(c.D, c.a, c.b, -1.0f, 0.0f);
    EXPECT_EQ(s.error, 0);
    EXPECT_EQ(s.lambda, 100000.0f);
    EXPECT_EQ(s.m, 0);
    float nxcr = 0.0f, nycr = 0.0f, nxycr = 0.0f;
    EXPECT_EQ(closed_form_estimate(c.D(1, 1), c.D(1, 2), c.D(2, 2), c.D(3, 3), c.a, c.b,
                                   {}, {}, {}, {}, nxcr, nycr, nxycr),
              0);
    EXPECT_TRUE(std::isnan(nxcr) || std::isnan(nycr));  // a NaN a or b spoils only one
    CriticalLoads loads;
    int error = 7;
    plate_buckling(c.D, c.a, c.b, 1.0f, 1.0f, 0.0f, &loads, &error);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(loads.nxcr, 100000.0f);
    EXPECT_EQ(loads.nycr, 100000.0f);
  }
}

TEST(InteractionRf, LimitCasesAndTheParabola) {
  const struct {
    float rx, ry, rs, rf;
  } cases[] = {
      {1.0f, 0.0f, 0.0f, 1.0f},
      {0.5f, 0.25f, 0.0f, 4.0f / 3.0f},
      {-2.0f, 0.5f, 0.0f, 2.0f},  // tension does not relieve
      {0.0f, 0.0f, 0.5f, 2.0f},
      {0.0f, 0.0f, 2.0f, 0.5f},
      {0.5f, 0.0f, 0.5f, 1.2360680f},  // 0.5 RF + (0.5 RF)^2 = 1
      {-3.0f, -1.0f, 0.0f, 100000.0f},
      {0.0f, 0.0f, 0.0f, 100000.0f},
      {4.0e-6f, 0.0f, 0.0f, 100000.0f},
      {0.0f, 0.0f, 4.0e-6f, 100000.0f},
      {6.0e-6f, 0.0f, 0.0f, 1.0f / 6.0e-6f}};  // above the threshold, above the cap
  for (const auto& c : cases) {
    EXPECT_CLOSE(interaction_rf(c.rx, c.ry, c.rs), c.rf, 1.0e-6)
        << c.rx << " " << c.ry << " " << c.rs;
  }
}

TEST(ClosedFormEstimate, CriticalLoadsFromTheTables) {
  // Worked by hand: N = (Kc sqrt(D11 D22) + 2 pi^2 H)/b^2 (a^2 for y) with Kc
  // clamped to 100 below the ratio 0.3 and 19.7 above 3; the shear load is the
  // larger of the long-plate 52.8 (beta >= 1) or 32.5 + 20.3 beta times
  // (D11^3 D22)^1/4/a^2 ((D11 D22^3)^1/4/b^2 when b < a) and the finite-plate
  // K sqrt(D11 D22)/(a b), K bracketed in r and read at min(beta, 5).
  const float p = 19.739212f;  // 2 pi^2
  const struct {
    const char* what;
    float D11, D12, D22, D66, a, b, nxcr, nycr, nxycr;
  } cases[] = {
      // K = 92 against the textbook 9.34 pi^2 = 92.2 for the isotropic square.
      {"isotropic square", 1, 0.3f, 1, 0.35f, 1, 1, 19.7f + p, 19.7f + p, 92},
      {"rx 0.5 ry 2", 16, 1, 1, 1.5f, 1, 1, 42 * 4 + 4 * p, 19.7f * 4 + 4 * p, 129 * 4},
      {"r 0.1, a < b", 16, 1, 1, 1.5f, 1, 5, (400 + 4 * p) / 25, 19.7f * 4 + 4 * p,
       52.8f * 8},
      {"r 0.1, a = b", 1e4f, 40, 1, 30, 1, 1, 1e4f + 100 * p, 1970 + 100 * p,
       52.8f * 1e3f},
      {"r 0.1, b < a", 16, 1, 1, 1.5f, 20, 1, 19.7f * 4 + 4 * p, (400 + 4 * p) / 400,
       52.8f * 2},
      // beta = 3e-6, practically 0: N1 = 32.5/a^2 loses to N2 = K/(a b).
      {"r 0.1: 340", 1, 1e-6f, 1, 1e-6f, 1, 10, 1, 19.7f, 34},
      {"r 0.2: top of 0.1 .. 0.2", 1, 1e-6f, 1, 1e-6f, 1, 5, 4, 19.7f, 184 / 5.0f},
      {"r 0.15", 1, 1e-6f, 1, 1e-6f, 3, 20, 0.25f, 19.7f / 9, (340 + 184) / 2.0f / 60},
      {"r 0.95", 1, 1e-6f, 1, 1e-6f, 19, 20, 19.85f / 400,
       (19.7f + (20.0f / 19 - 1) * 3) / 361, 48.5f / 380},
      {"beta 0.5, r 0.25", 1, 0.1f, 1, 0.2f, 1, 4, (100 + 0.5f * p) / 16,
       19.7f + 0.5f * p, (238 + 155) / 2.0f / 4},
      {"beta 4.5", 1, 0.5f, 1, 2, 1, 1, 19.7f + 4.5f * p, 19.7f + 4.5f * p, 238.5f},
      {"beta 6 read at 5", 1, 2, 1, 2, 1, 1, 19.7f + 6 * p, 19.7f + 6 * p, 259}};
  float nxcr = 0.0f, nycr = 0.0f, nxycr = 0.0f;
  closed_form_estimate(1, 0.5f, 1, 0.25f, 1, 1, {}, {}, {}, {}, nxcr, nycr, nxycr);
  EXPECT_EQ(nxcr, 19.7f + 19.739212f);  // exact: H = 1
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    float nxcr = 0.0f, nycr = 0.0f, nxycr = 0.0f;
    ASSERT_EQ(closed_form_estimate(c.D11, c.D12, c.D22, c.D66, c.a, c.b, {}, {}, {}, {},
                                   nxcr, nycr, nxycr),
              0);
    EXPECT_CLOSE(nxcr, c.nxcr, 2.0e-5);
    EXPECT_CLOSE(nycr, c.nycr, 2.0e-5);
    EXPECT_CLOSE(nxycr, c.nxycr, 2.0e-5);
  }
}

TEST(ClosedFormEstimate, ReserveFactorsOfEachLoadCase) {
  // Isotropic square: Nx,cr = 39.439212, Nxy,cr = 92.
  const std::vector<float> nx = {-39.439212f, 0, 0, 10, -19.719606f};
  const std::vector<float> ny = {0, 0, 0, 10, 0};
  const std::vector<float> nxy = {0, 92, -46, 0, 46};
  std::vector<float> rf(5, -1.0f);
  float nxcr, nycr, nxycr;
  ASSERT_EQ(
      closed_form_estimate(1, 0.3f, 1, 0.35f, 1, 1, nx, ny, nxy, rf, nxcr, nycr, nxycr),
      0);
  EXPECT_EQ(rf, (std::vector<float>{1.0f, 1.0f, 2.0f, 100000.0f, 1.2360680f}));
  // Arrays of different sizes: the critical loads, but no reserve factor.
  std::vector<float> rf3(3, -1.0f);
  EXPECT_EQ(
      closed_form_estimate(1, 0.3f, 1, 0.35f, 1, 1, nx, ny, nxy, rf3, nxcr, nycr, nxycr),
      2);
  EXPECT_EQ(rf3, std::vector<float>(3, 0.0f));
  EXPECT_GT(nxycr, 0.0f);
}

TEST(PlateBuckling, CombinedReserveFactor) {
  // Isotropic square, D = 1, a = b = 1: Ncr = 4 pi^2 and Nxy,cr = 92.
  const Matrix3 D = isotropic(1.0f, 0.3f);
  const float half = static_cast<float>(2.0 * kPi2);
  int error = 7;
  // Half the critical compression: RF 2 (a zero shear counts as the ratio 1e-5).
  EXPECT_CLOSE(plate_buckling(D, 1, 1, -half, 0, 0, nullptr, &error), 2.0, 1.0e-4);
  EXPECT_EQ(error, 0);
  // Half the critical shear: no compression mode (factor 100000), RF 2.
  EXPECT_CLOSE(plate_buckling(D, 1, 1, 0, 0, -46), 2.0, 1.0e-4);
  EXPECT_CLOSE(plate_buckling(D, 1, 1, -half, 0, 46), 1.2360680, 1.0e-5);
}

}  // namespace
}  // namespace corvane
