#include "laminates/laminate.h"

#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "laminates/inverse3x3.h"
#include "laminates/stacking_sequence.h"

// The results digest pins every matrix and constant of random laminates bit for
// bit; these tests hold the method to published closed forms.
namespace corvane {
namespace {

using Angles = std::vector<float>;
using Indices = std::vector<std::int32_t>;

// Carbon/epoxy tape, textbook values.
constexpr double kE1 = 140000, kE2 = 9000, kG12 = 4600, kV12 = 0.3, kT = 0.125;

LAMINA tape() {
  LAMINA m = new_lamina(kT, kE1, kE2, kG12, kV12, 1000.0f, 1000.0f, "tape");
  m.CTE1 = -0.5e-6f;
  m.CTE2 = 30.0e-6f;
  return m;
}
const LAMINA kSoft = new_lamina(0.25f, 9000, 9000, 3000, 0.3f, 1000, 1000);
const LAMINA kEmpty = new_lamina(0.125f, 0, 0, 0, 0, 1000, 1000);

TEST(Laminate, QuasiIsotropicFromInvariants) {
  // (0/45/-45/90)S: [A] = h [[U1, U4, 0], [U4, U1, 0], [0, 0, U5]] with the
  // stiffness invariants (Tsai and Pagano).
  const double v21 = kV12 * kE2 / kE1, den = 1.0 - kV12 * v21;
  const double q11 = kE1 / den, q22 = kE2 / den, q12 = kV12 * kE2 / den, q66 = kG12;
  const double u1 = (3 * q11 + 3 * q22 + 2 * q12 + 4 * q66) / 8;
  const double u4 = (q11 + q22 + 6 * q12 - 4 * q66) / 8;
  const double u5 = (q11 + q22 - 2 * q12 + 4 * q66) / 8;
  Angles angles;
  ASSERT_EQ(parse_stacking_sequence("(0/45/-45/90)S", angles), kStackingOk);
  const LAMINATE lam(tape(), angles);
  ASSERT_FALSE(lam.error);
  const double h = 8 * kT,
               expected[] = {h * u1, h * u4, 0, h * u4, h * u1, 0, 0, 0, h * u5};
  for (int e = 0; e < 9; ++e) EXPECT_NEAR(lam.A.v[e], expected[e], 2e-6 * h * u1) << e;
  const double ex = (u1 * u1 - u4 * u4) / u1;
  EXPECT_NEAR(lam.Ex, ex, 1e-5 * ex);
  EXPECT_NEAR(lam.Ey, ex, 1e-5 * ex);
  EXPECT_NEAR(lam.Gxy, u5, 1e-5 * u5);
  EXPECT_NEAR(lam.nuxy, u4 / u1, 1e-5);
  EXPECT_NEAR(lam.nuyx, u4 / u1, 1e-5);
  EXPECT_TRUE(lam.symmetric);
}

// Kind 2 by hand for the balanced cross-ply: A11 = A22, so A11/(3 A22 + A11) =
// 1/4, and A12/A11 = 2 v12 E2/(E1 + E2) = 5400/149000.
TEST(Laminate, KnockDownFactorAndPlateTerm) {
  const LAMINATE lam(tape(), Angles{0, 90, 90, 0});
  const struct {
    float x;
    int kind;
    double expected;
  } cases[] = {{-0.01f, 1, 1.0}, {1.01f, 2, 1.0},       {0.25f, 1, 0.5},
               {0.0f, 1, 0.0},   {1.0f, 1, 1.0},        {0.5f, 3, 0.0},
               {1.0f, 2, 1.0},   {0.0f, 2, 0.65870911}, {0.4f, 2, 0.76285071}};
  for (const auto& c : cases) {
    EXPECT_NEAR(lam.knock_down_factor(c.x, c.kind), c.expected, 1e-6)
        << c.x << " " << c.kind;
  }
  // [D*]_B = [D]_B here, with D16 = D26 = 0: g = D22 / (D11 D22 - D12^2).
  const double d11 = lam.D_B(1, 1), d22 = lam.D_B(2, 2), d12 = lam.D_B(1, 2);
  const double g = d22 / (d11 * d22 - d12 * d12);
  EXPECT_NEAR(lam.plate_term(100.0f, 2.0f), 2 * 9.869606 / (1e4 * g), 1e-5 / (1e4 * g));
  EXPECT_EQ(lam.plate_term(100.0f, 1.49f), 0.0f);
  EXPECT_EQ(lam.plate_term(100.0f, 4.01f), 0.0f);
  EXPECT_EQ(LAMINATE(kEmpty, Angles{0}).plate_term(100.0f, 2.0f), 0.0f);
}

TEST(Laminate, RotateAndStackingText) {
  const LAMINATE lam(tape(), kSoft, Angles{0, 22.5f, -45}, Indices{1, 2, 1}, "L");
  EXPECT_EQ(lam.stacking_text(), "(0/22.5/-45)");
  const LAMINATE turned = lam.rotate(90.0f);
  EXPECT_EQ(turned.stacking_text(), "(90/112.5/45)");
  EXPECT_EQ(turned.material_index, lam.material_index);
  EXPECT_EQ(turned.name, "L");
  EXPECT_FALSE(turned.error);
  EXPECT_NEAR(turned.A(1, 1), lam.A(2, 2), 1e-6 * lam.A(2, 2));
  EXPECT_NEAR(turned.A(2, 2), lam.A(1, 1), 1e-6 * lam.A(1, 1));
  char out[16];
  lam.stacking_text(out);
  EXPECT_EQ(std::string(out, 16), "(0/22.5/-45)    ");
  char short_out[5];
  lam.stacking_text(short_out);
  EXPECT_EQ(std::string(short_out, 5), "(0/22");
}

// A determinant equal to the tolerance counts as singular.
TEST(Inverse3x3, TheToleranceIsStrict) {
  Matrix3 half;
  half(1, 1) = half(2, 2) = 1, half(3, 3) = 0.5f;
  EXPECT_EQ(inverse3x3(half, 0.4999f)(3, 3), 2.0f);
  EXPECT_TRUE(std::isnan(inverse3x3(half, 0.5f)(3, 3)));
}

}  // namespace
}  // namespace corvane
