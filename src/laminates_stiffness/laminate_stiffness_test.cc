#include "laminates_stiffness/laminate_stiffness.h"

#include <gtest/gtest.h>

#include <complex>
#include <vector>

// The results digest pins z1 and z2 bit for bit, and the check that refuses them
// (random plies without Poisson coupling or moduli); this test holds them to the
// equation they solve.
namespace corvane {
namespace {

LAMINA tape() { return new_lamina(0.125f, 140000, 9000, 4600, 0.3f, 1000, 1000, "tape"); }

using Angles = std::vector<float>;

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
    EXPECT_TRUE(s1.real() > 0 && s2.real() > 0) << lam.stacking_text();
  }
  EXPECT_EQ(cases[0].z1.imag(), 0.0f);  // c^2 > k: real parameters
  EXPECT_NE(cases[1].z1.imag(), 0.0f);  // c^2 < k: complex ones
}

}  // namespace
}  // namespace corvane
