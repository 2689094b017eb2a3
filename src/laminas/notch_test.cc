#include "laminas/notch.h"

#include <gtest/gtest.h>

#include <cmath>

#include "laminas/lamina.h"

namespace corvane {
namespace {

// Lekhnitskii's factor in engineering constants, 1 + sqrt(2 (sqrt(E1/E2) - nu12) +
// E1/G12), against the [A] form: an isotropic plate gives 3; a unidirectional
// T300/5208 ply (Tsai and Hahn 1980) 6.7505 along the fibres, and across them
// the same with E1, E2 swapped and nu21 for nu12.
TEST(StressConcentration, AgainstEngineeringConstants) {
  Matrix3 iso;
  iso(1, 1) = iso(2, 2) = 1.0f / (1 - 0.09f);
  iso(1, 2) = iso(2, 1) = 0.3f / (1 - 0.09f);
  iso(3, 3) = 1.0f / 2.6f;
  EXPECT_NEAR(orthotropic_stress_concentration(iso), 3.0f, 2e-6f);
  const double e1 = 181000, e2 = 10300, g12 = 7170, v12 = 0.28, v21 = v12 * e2 / e1;
  const LAMINA ply = new_lamina(1.0f, 181000, 10300, 7170, 0.28f, 1500, 1500);
  const double along = 1 + std::sqrt(2 * (std::sqrt(e1 / e2) - v12) + e1 / g12);
  const double across = 1 + std::sqrt(2 * (std::sqrt(e2 / e1) - v21) + e2 / g12);
  EXPECT_NEAR(along, 6.7505, 1e-4);
  EXPECT_NEAR(orthotropic_stress_concentration(ply.Q), along, 2e-6 * along);
  EXPECT_NEAR(orthotropic_stress_concentration(ply.Q, true), across, 2e-6 * across);
  iso(1, 2) = 2;  // not positive definite
  EXPECT_TRUE(std::isnan(orthotropic_stress_concentration(iso)));
}

// Whitney and Nuismer (1974): d0 = 0.04 in (1.016 mm) for quasi-isotropic
// T300/5208 in tension. By hand, xi = R/(R + d0), 2/(2 + xi^2 + 3 xi^4): a 6.35 mm
// hole 0.56147, a 0.2 in radius 0.48295. Without a distance 1/K_T, whatever
// the polynomial says (at K_T = 50 it would be 2/(3.21 - 47 * 0.185) < 0).
TEST(PointStress, PublishedDistanceByHandAndItsInverse) {
  EXPECT_NEAR(point_stress_ratio(point_stress_xi(6.35f, 1.016f), 3), 0.56147, 2e-5);
  EXPECT_NEAR(point_stress_ratio(point_stress_xi(10.16f, 1.016f), 3), 0.48295, 2e-5);
  EXPECT_FLOAT_EQ(point_stress_ratio(1.0f, 6.75f), 1.0f / 6.75f);
  EXPECT_FLOAT_EQ(point_stress_ratio(0.7f, 50.0f), 1.0f / 50.0f);
  for (const float d0 : {0.2f, 1.016f, 10.0f}) {
    const float ratio = point_stress_ratio(point_stress_xi(6.35f, d0), 3.0f);
    EXPECT_NEAR(point_stress_distance(ratio, 6.35f), d0, 1e-3f * d0) << d0;
  }
  // No distance gives 0.3 or 1; no diameter 0.
  EXPECT_LT(point_stress_distance(0.3f, 6.35f), 0.0f);
  EXPECT_LT(point_stress_distance(1.0f, 6.35f), 0.0f);
  EXPECT_LT(point_stress_distance(0.5f, 0.0f), 0.0f);
}

// Keyed OHT = 450 MPa against e1tu Eiso, inverted by hand; a strength above the
// unnotched one is refused and changes no distance.
TEST(NotchedKeys, SetTheCharacteristicDistances) {
  LAMINA m = new_lamina(0.125f, 140000, 9000, 4600, 0.3f, 2500, 1500);
  const double r = 450.0 / m.Eiso / m.e1tu,
               xi = std::sqrt((std::sqrt(24 / r - 23) - 1) / 6);
  EXPECT_EQ(set_properties(m, "OHT=450, fht=400"), "");
  EXPECT_NEAR(m.a0oht, 3.175 * (1 - xi) / xi, 1e-4);
  const float a0fht = m.a0fht;
  EXPECT_TRUE(a0fht > 0 && a0fht < m.a0oht);  // a weaker FHT: a shorter distance
  EXPECT_EQ(m.set_fht(2.0f * m.e1tu * m.Eiso, 6.35f), 1);
  EXPECT_EQ(m.a0fht, a0fht);
  EXPECT_EQ(m.set_oht(450, 0.0f), 1);
  EXPECT_EQ(set_properties(m, "OHC=1e9"),
            "property OHC=1e9 refused: no characteristic distance gives it (its strain "
            "over the unnotched one must lie between 1/3 and 1)");
}

}  // namespace
}  // namespace corvane
