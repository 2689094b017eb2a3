#include "laminas/notch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

#include "laminas/lamina.h"

namespace corvane {
namespace {

Matrix3 Symmetric(float a11, float a12, float a22, float a66) {
  Matrix3 a;
  a(1, 1) = a11;
  a(1, 2) = a(2, 1) = a12;
  a(2, 2) = a22;
  a(3, 3) = a66;
  return a;
}

TEST(StressConcentration, IsotropicPlateIsThree) {
  // An isotropic [A] per unit thickness: E/(1 - nu^2), nu E/(1 - nu^2), E/(2(1 + nu)).
  for (const float nu : {0.0f, 0.3f, 0.45f}) {
    const float e = 70000.0f, q = e / (1.0f - nu * nu);
    const Matrix3 a = Symmetric(q, nu * q, q, e / (2.0f * (1.0f + nu)));
    EXPECT_NEAR(orthotropic_stress_concentration(a), 3.0f, 2e-6f) << nu;
    EXPECT_NEAR(orthotropic_stress_concentration(a, true), 3.0f, 2e-6f) << nu;
  }
}

// Lekhnitskii's factor in engineering constants, 1 + sqrt(2 (sqrt(E1/E2) - nu12) +
// E1/G12), against the [A] form for a unidirectional ply of T300/5208 (Tsai and
// Hahn 1980): 6.7505 loaded along the fibres; across them E1 and E2 swap and
// nu12 becomes nu21.
TEST(StressConcentration, UnidirectionalPlyAgainstEngineeringConstants) {
  const double e1 = 181000, e2 = 10300, g12 = 7170, v12 = 0.28, v21 = v12 * e2 / e1;
  const LAMINA ply = new_lamina(1.0f, 181000, 10300, 7170, 0.28f, 1500, 1500);
  const double along = 1 + std::sqrt(2 * (std::sqrt(e1 / e2) - v12) + e1 / g12);
  const double across = 1 + std::sqrt(2 * (std::sqrt(e2 / e1) - v21) + e2 / g12);
  EXPECT_NEAR(along, 6.7505, 1e-4);
  EXPECT_NEAR(orthotropic_stress_concentration(ply.Q), along, 2e-6 * along);
  EXPECT_NEAR(orthotropic_stress_concentration(ply.Q, true), across, 2e-6 * across);
  EXPECT_TRUE(std::isnan(orthotropic_stress_concentration(Symmetric(1, 2, 1, 1))));
}

// Whitney and Nuismer (1974) found d0 = 0.04 in (1.016 mm) for quasi-isotropic
// T300/5208 in tension. Their ratio by hand, xi = R/(R + d0), 2/(2 + xi^2 + 3 xi^4):
// a 6.35 mm hole 0.56147; radii 0.1, 0.2, 0.5 in 0.60769, 0.48295, 0.39507.
TEST(PointStress, PublishedDistanceByHand) {
  const std::vector<std::pair<float, double>> cases = {
      {6.35f, 0.56147}, {5.08f, 0.60769}, {10.16f, 0.48295}, {25.4f, 0.39507}};
  for (const auto& [d, expected] : cases) {
    EXPECT_NEAR(point_stress_ratio(point_stress_xi(d, 1.016f), 3.0f), expected, 2e-5)
        << d;
  }
  // The limits: no distance leaves the elastic factor, a vanishing hole nothing.
  EXPECT_FLOAT_EQ(point_stress_ratio(1.0f, 6.75f), 1.0f / 6.75f);
  EXPECT_FLOAT_EQ(point_stress_ratio(0.0f, 6.75f), 1.0f);
  // Far orthotropy: the polynomial would turn negative (2/(3.21 - 47 0.185)).
  EXPECT_FLOAT_EQ(point_stress_ratio(0.7f, 50.0f), 1.0f / 50.0f);
}

TEST(PointStress, DistanceInvertsTheRatio) {
  for (const float d0 : {0.2f, 1.016f, 3.0f, 10.0f}) {
    const float ratio = point_stress_ratio(point_stress_xi(6.35f, d0), 3.0f);
    EXPECT_NEAR(point_stress_distance(ratio, 6.35f), d0, 1e-3f * d0) << d0;
  }
  // Refused: a ratio no distance gives, a diameter not positive, NaN.
  for (const auto& [ratio, d] : std::vector<std::pair<float, float>>{
           {0.3f, 6.35f}, {1.0f, 6.35f}, {0.5f, 0.0f}, {0.5f, -1.0f}, {NAN, 6.35f}}) {
    EXPECT_LT(point_stress_distance(ratio, d), 0.0f) << ratio << " " << d;
  }
}

// The keyed notched strengths: OHT 450 MPa against e1tu Eiso, by hand.
TEST(NotchedKeys, SetTheCharacteristicDistances) {
  LAMINA m = new_lamina(0.125f, 140000, 9000, 4600, 0.3f, 2500, 1500);
  const double ratio = 450.0 / m.Eiso / m.e1tu;
  const double x = (std::sqrt(24 / ratio - 23) - 1) / 6, xi = std::sqrt(x);
  const std::pair<std::string_view, float> keys[] = {{"OHT", 450}, {"OHC", 300}};
  m.set_by_key(keys);
  EXPECT_NEAR(m.a0oht, 3.175 * (1 - xi) / xi, 1e-4);
  EXPECT_FLOAT_EQ(m.OHT, 450);
  EXPECT_NEAR(point_stress_ratio(point_stress_xi(6.35f, m.a0ohc), 3),
              300 / m.Eiso / m.uecall, 1e-5);
  // A strength above the unnotched one fits no distance: a0fht stays, OHT is kept.
  EXPECT_EQ(m.set_fht(0.9f * m.e1tu * m.Eiso, 6.35f), 0);
  const float a0fht = m.a0fht;
  EXPECT_EQ(m.set_fht(2.0f * m.e1tu * m.Eiso, 6.35f), 1);
  EXPECT_EQ(m.a0fht, a0fht);
  EXPECT_EQ(m.set_oht(450, 0.0f), 1);
}

}  // namespace
}  // namespace corvane
