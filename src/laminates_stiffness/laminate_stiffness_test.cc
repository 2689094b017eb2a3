#include "laminates_stiffness/laminate_stiffness.h"

#include <gtest/gtest.h>

#include <complex>
#include <vector>

namespace corvane {
namespace {

LAMINA tape(float v12 = 0.3f) {
  return new_lamina(0.125f, 140000, 9000, 4600, v12, 1000, 1000, "tape");
}

using Angles = std::vector<float>;

TEST(LaminateStiffness, UnusableApparentConstantsSetTheErrorFlag) {
  const struct {
    const char* what;
    LAMINA material;
    Angles angles;
  } cases[] = {
      // No Poisson coupling: nuxy comes out (practically) zero.
      {"cross-ply, v12 = 0", tape(0.0f), {0, 90, 90, 0}},
      // Negative Q12 at 45 degrees: nuxy clamped to 0.
      {"clamped nuxy", new_lamina(0.125f, 1000, 1000, 1000, 0, 1000, 1000), {45}},
      // Singular [A]: the constants are never computed.
      {"singular", new_lamina(0.125f, 0, 0, 0, 0, 1000, 1000), {0, 90}},
  };
  for (const auto& c : cases) {
    const LAMINATESTIFFNESS lam(c.material, c.angles);
    EXPECT_TRUE(lam.error) << c.what;
    EXPECT_EQ(lam.z1, std::complex<float>(0.0f)) << c.what;
    EXPECT_EQ(lam.z2, std::complex<float>(0.0f)) << c.what;
  }
}

TEST(LaminateStiffness, IsotropicLaminateHasZeroParameters) {
  // Quasi-isotropic: Ex = Ey and Gxy = Ex / (2 (1 + nuxy)), so k = c = 1 and
  // s1 = s2 = 1. The float rounding of c^2 - k leaves |d| of order 1e-3 at most.
  const LAMINATESTIFFNESS lam(tape(), Angles{0, 45, -45, 90, 90, -45, 45, 0});
  EXPECT_FALSE(lam.error);
  EXPECT_LT(std::abs(lam.z1), 1e-3f);
  EXPECT_LT(std::abs(lam.z2), 1e-3f);
}

TEST(LaminateStiffness, ParametersSolveTheCharacteristicEquation) {
  // s = (1 + z) / (1 - z) recovers the roots; s1^2 and s2^2 must be the roots of
  // S^2 - 2 c S + k = 0: sum 2c, product k. Cross-ply has real roots, the angle-ply
  // c^2 < k and a complex pair.
  const LAMINA soft = new_lamina(0.25f, 9000, 9000, 3000, 0.3f, 1000, 1000);
  const LAMINATESTIFFNESS cases[] = {
      LAMINATESTIFFNESS(tape(), Angles{0, 90, 90, 0}),
      LAMINATESTIFFNESS(tape(), Angles{45, -45, -45, 45}),
      LAMINATESTIFFNESS(tape(), soft, Angles{0, 45, 0},
                        std::vector<std::int32_t>{1, 2, 1}),
  };
  for (const LAMINATESTIFFNESS& lam : cases) {
    ASSERT_FALSE(lam.error) << lam.stacking_text();
    const double k = static_cast<double>(lam.Ey) / lam.Ex;
    const double c = lam.Ey / (2.0 * lam.Gxy) - lam.nuyx;
    using C = std::complex<double>;
    const C z1(lam.z1), z2(lam.z2);
    const C s1 = (1.0 + z1) / (1.0 - z1), s2 = (1.0 + z2) / (1.0 - z2);
    EXPECT_NEAR(std::abs(s1 * s1 + s2 * s2 - 2 * c), 0, 1e-4 * std::abs(c))
        << lam.stacking_text();
    EXPECT_NEAR(std::abs(s1 * s1 * s2 * s2 - k), 0, 1e-4 * k) << lam.stacking_text();
    // Principal square roots: both roots in the right half-plane.
    EXPECT_GT(s1.real(), 0);
    EXPECT_GT(s2.real(), 0);
  }
  EXPECT_EQ(cases[0].z1.imag(), 0.0f);  // c^2 > k: real parameters
  EXPECT_NE(cases[1].z1.imag(), 0.0f);  // c^2 < k: complex ones
}

}  // namespace
}  // namespace corvane
