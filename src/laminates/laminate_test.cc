#include "laminates/laminate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "laminates/stacking_sequence.h"

namespace corvane {
namespace {

// Carbon/epoxy tape, textbook values.
constexpr double kE1 = 140000, kE2 = 9000, kG12 = 4600, kV12 = 0.3, kT = 0.125;

LAMINA tape(float v12 = kV12) {
  LAMINA m = new_lamina(kT, kE1, kE2, kG12, v12, 1000.0f, 1000.0f, "tape");
  m.CTE1 = -0.5e-6f;
  m.CTE2 = 30.0e-6f;
  return m;
}

// Reduced stiffness in ply axes, in double: Q11, Q22, Q12, Q66.
struct Q {
  double q11, q22, q12, q66;
};
Q reduced(double v12 = kV12) {
  const double v21 = v12 * kE2 / kE1, den = 1.0 - v12 * v21;
  return {kE1 / den, kE2 / den, v12 * kE2 / den, kG12};
}

// The float results carry the rounding of a few dozen single-precision
// operations, and cos(90 deg) in float is -4.4e-8 rather than 0, which leaves
// terms of about 1e-7 of the largest entry where the exact value is zero. So an
// entry is compared relative to the largest entry of its matrix.
void expect_matrix_near(const Matrix3& actual, const double (&expected)[3][3],
                        double rel = 2e-6) {
  double scale = 0;
  for (const auto& row : expected)
    for (double x : row) scale = std::max(scale, std::fabs(x));
  for (int i = 1; i <= 3; ++i)
    for (int j = 1; j <= 3; ++j)
      EXPECT_NEAR(actual(i, j), expected[i - 1][j - 1], rel * scale) << i << "," << j;
}

TEST(Laminate, SinglePlyAtZeroDegrees) {
  const Q q = reduced();
  const double t3 = kT * kT * kT / 12;
  const LAMINATE lam(tape(), std::vector<float>{0.0f}, "one");
  ASSERT_FALSE(lam.error);
  EXPECT_EQ(lam.name, "one");
  EXPECT_EQ(lam.nplies, 1);
  EXPECT_FLOAT_EQ(lam.h, kT);
  expect_matrix_near(
      lam.A,
      {{kT * q.q11, kT * q.q12, 0}, {kT * q.q12, kT * q.q22, 0}, {0, 0, kT * q.q66}});
  EXPECT_EQ(lam.B, Matrix3{});  // z^2 is the same on both faces: exactly zero
  expect_matrix_near(
      lam.D,
      {{t3 * q.q11, t3 * q.q12, 0}, {t3 * q.q12, t3 * q.q22, 0}, {0, 0, t3 * q.q66}});
  EXPECT_EQ(lam.Dstar, lam.D);
  // One ply: the apparent constants are the ply's own.
  EXPECT_FLOAT_EQ(lam.Ex, kE1);
  EXPECT_FLOAT_EQ(lam.Ey, kE2);
  EXPECT_FLOAT_EQ(lam.Gxy, kG12);
  EXPECT_FLOAT_EQ(lam.nuxy, kV12);
  EXPECT_FLOAT_EQ(lam.nuyx, kV12 * kE2 / kE1);
  EXPECT_FLOAT_EQ(lam.alphax, -0.5e-6f);
  EXPECT_FLOAT_EQ(lam.alphay, 30.0e-6f);
  EXPECT_NEAR(lam.alphaxy, 0.0, 1e-12);
  EXPECT_TRUE(lam.symmetric);
  // The knocked-down ply moduli scale every stiffness by 0.85.
  for (int e = 0; e < 9; ++e) {
    EXPECT_FLOAT_EQ(lam.A_B.v[e], 0.85f * lam.A.v[e]);
    EXPECT_FLOAT_EQ(lam.Dstar_B.v[e], 0.85f * lam.D.v[e]);
  }
  // Without Poisson coupling, Ex is E1 also through the compliance.
  EXPECT_FLOAT_EQ(LAMINATE(tape(0.0f), std::vector<float>{0.0f}).Ex, kE1);
}

TEST(Laminate, SinglePlyOffAxis) {
  // Off-axis modulus, shear stiffness and expansion of a ply at 30 degrees
  // (Jones, Mechanics of Composite Materials): 1/Ex = m^4/E1 + (1/G12 - 2 v12/E1) m^2 n^2
  // + n^4/E2, alpha_x = a1 m^2 + a2 n^2, alpha_y = a1 n^2 + a2 m^2, alpha_xy = 2 (a1 -
  // a2) m n.
  const double m = std::cos(std::numbers::pi / 6), n = std::sin(std::numbers::pi / 6);
  const double a1 = -0.5e-6, a2 = 30.0e-6;
  const double ex =
      1.0 / (std::pow(m, 4) / kE1 + (1 / kG12 - 2 * kV12 / kE1) * m * m * n * n +
             std::pow(n, 4) / kE2);
  const LAMINATE lam(tape(), std::vector<float>{30.0f});
  ASSERT_FALSE(lam.error);
  EXPECT_NEAR(lam.Ex, ex, 1e-5 * ex);
  // Gxy is A66/h = Q66 at 30 degrees, not the reciprocal of the shear compliance.
  const Q q = reduced();
  const double q66 = (q.q11 + q.q22 - 2 * q.q12 - 2 * q.q66) * m * m * n * n +
                     q.q66 * (std::pow(m, 4) + std::pow(n, 4));
  EXPECT_NEAR(lam.Gxy, q66, 1e-5 * q66);
  EXPECT_NEAR(lam.alphax, a1 * m * m + a2 * n * n, 1e-5 * a2);
  EXPECT_NEAR(lam.alphay, a1 * n * n + a2 * m * m, 1e-5 * a2);
  EXPECT_NEAR(lam.alphaxy, 2 * (a1 - a2) * m * n, 1e-5 * a2);
}

TEST(Laminate, CrossPlySymmetricAndNot) {
  const Q q = reduced();
  const double t = kT, t2 = t * t;
  // (0/90)S: plies at z in [-2t,-t], [-t,0], [0,t], [t,2t].
  const double outer = 14 * t2 * t / 3, inner = 2 * t2 * t / 3;
  const LAMINATE sym(tape(), std::vector<float>{0, 90, 90, 0});
  ASSERT_FALSE(sym.error);
  EXPECT_TRUE(sym.symmetric);
  EXPECT_FLOAT_EQ(sym.h, 4 * t);
  const double a11 = 2 * t * (q.q11 + q.q22), a12 = 4 * t * q.q12, a66 = 4 * t * q.q66;
  expect_matrix_near(sym.A, {{a11, a12, 0}, {a12, a11, 0}, {0, 0, a66}});
  expect_matrix_near(sym.D, {{q.q11 * outer + q.q22 * inner, q.q12 * (outer + inner), 0},
                             {q.q12 * (outer + inner), q.q22 * outer + q.q11 * inner, 0},
                             {0, 0, q.q66 * (outer + inner)}});
  for (float x : sym.B.v) EXPECT_NEAR(x, 0.0, 1e-6 * a11 * t);
  EXPECT_NEAR(sym.Ex, (a11 * a11 - a12 * a12) / (a11 * 4 * t), 1e-5 * kE1);
  EXPECT_NEAR(sym.Ey, sym.Ex, 1e-5 * kE1);
  EXPECT_NEAR(sym.Gxy, kG12, 1e-5 * kG12);
  EXPECT_NEAR(sym.nuxy, a12 / a11, 1e-6);

  // (0/90): half the membrane stiffness, and coupling of opposite signs,
  // B11 = t^2/2 (Q22 - Q11) = -B22.
  const LAMINATE unsym(tape(), std::vector<float>{0, 90});
  ASSERT_FALSE(unsym.error);
  EXPECT_FALSE(unsym.symmetric);
  const double b11 = t2 / 2 * (q.q22 - q.q11);
  expect_matrix_near(unsym.B, {{b11, 0, 0}, {0, -b11, 0}, {0, 0, 0}});
  for (int e = 0; e < 9; ++e) EXPECT_NEAR(unsym.A.v[e], sym.A.v[e] / 2, 1e-6 * a11);

  // The blocks invert [[A, B], [B, D]]: multiplied back in double.
  const Matrix3* k[2][2] = {{&unsym.A, &unsym.B}, {&unsym.B, &unsym.D}};
  const Matrix3* inv[2][2] = {{&unsym.a, &unsym.b}, {&unsym.c, &unsym.d}};
  for (int r = 0; r < 6; ++r) {
    for (int col = 0; col < 6; ++col) {
      double sum = 0;
      for (int m = 0; m < 6; ++m) {
        sum += double{(*k[r / 3][m / 3])(r % 3 + 1, m % 3 + 1)} *
               (*inv[m / 3][col / 3])(m % 3 + 1, col % 3 + 1);
      }
      EXPECT_NEAR(sum, r == col ? 1.0 : 0.0, 1e-5) << r << "," << col;
    }
  }
  // Diagonal [B]: D*11 = D11 - B11^2 (A^-1)11, (A^-1)11 = A11 / (A11^2 - A12^2).
  const double a11u = a11 / 2, a12u = a12 / 2;
  EXPECT_NEAR(unsym.Dstar(1, 1),
              unsym.D(1, 1) - b11 * b11 * a11u / (a11u * a11u - a12u * a12u),
              1e-5 * unsym.D(1, 1));
}

TEST(Laminate, QuasiIsotropicFromInvariants) {
  // (0/45/-45/90)S: [A] = h [[U1, U4, 0], [U4, U1, 0], [0, 0, U5]] with the
  // stiffness invariants (Tsai and Pagano).
  const Q q = reduced();
  const double u1 = (3 * q.q11 + 3 * q.q22 + 2 * q.q12 + 4 * q.q66) / 8;
  const double u4 = (q.q11 + q.q22 + 6 * q.q12 - 4 * q.q66) / 8;
  const double u5 = (q.q11 + q.q22 - 2 * q.q12 + 4 * q.q66) / 8;
  std::vector<float> angles;
  ASSERT_EQ(parse_stacking_sequence("(0/45/-45/90)S", angles), kStackingOk);
  const LAMINATE lam(tape(), angles);
  ASSERT_FALSE(lam.error);
  const double h = 8 * kT;
  expect_matrix_near(lam.A, {{h * u1, h * u4, 0}, {h * u4, h * u1, 0}, {0, 0, h * u5}});
  const double e = (u1 * u1 - u4 * u4) / u1;
  EXPECT_NEAR(lam.Ex, e, 1e-5 * e);
  EXPECT_NEAR(lam.Ey, e, 1e-5 * e);
  EXPECT_NEAR(lam.Gxy, u5, 1e-5 * u5);
  EXPECT_NEAR(lam.nuxy, u4 / u1, 1e-5);
  EXPECT_NEAR(lam.nuyx, u4 / u1, 1e-5);
  EXPECT_TRUE(lam.symmetric);
}

TEST(Laminate, TwoMaterials) {
  // Mirrored angles count as symmetric even when the materials differ, though
  // [B] is then not zero.
  const LAMINA stiff = tape(),
               soft = new_lamina(0.25f, 9000, 9000, 3000, 0.3f, 1000, 1000);
  const LAMINATE lam(stiff, soft, std::vector<float>{0, 0},
                     std::vector<std::int32_t>{1, 2});
  ASSERT_FALSE(lam.error);
  EXPECT_TRUE(lam.symmetric);
  EXPECT_FLOAT_EQ(lam.h, 0.375f);
  // z = -0.1875, -0.0625, 0.1875.
  const double q11s = kE1 / (1 - kV12 * kV12 * kE2 / kE1), q11f = 9000 / (1 - 0.09);
  EXPECT_NEAR(lam.A(1, 1), q11s * 0.125 + q11f * 0.25, 1e-6 * lam.A(1, 1));
  EXPECT_NEAR(lam.B(1, 1),
              0.5 * q11s * (0.0625 * 0.0625 - 0.1875 * 0.1875) +
                  0.5 * q11f * (0.1875 * 0.1875 - 0.0625 * 0.0625),
              1e-5 * std::fabs(lam.B(1, 1)));
  // An index outside the materials, or lists of different lengths, are refused.
  EXPECT_TRUE(
      LAMINATE(stiff, soft, std::vector<float>{0, 0}, std::vector<std::int32_t>{1, 3})
          .error);
  EXPECT_TRUE(
      LAMINATE(stiff, soft, std::vector<float>{0, 0}, std::vector<std::int32_t>{1})
          .error);
}

TEST(Laminate, StopsWithErrorFlag) {
  // All moduli zero gives a zero [A]; no plies gives no laminate at all.
  const LAMINA empty = new_lamina(0.125f, 0, 0, 0, 0, 1000, 1000);
  ASSERT_EQ(empty.status, 0);
  for (const LAMINATE& lam : {LAMINATE(empty, std::vector<float>{0, 90}),
                              LAMINATE(tape(), std::vector<float>{})}) {
    EXPECT_TRUE(lam.error);
    EXPECT_EQ(lam.Ex, 0.0f);
    EXPECT_EQ(lam.Dstar_B, Matrix3{});
  }
}

TEST(Laminate, NegativePoissonRatioClampedToZero) {
  // A ply with 4 G12 > E1 + E2 has a negative Q12 at 45 degrees.
  const LAMINA odd = new_lamina(0.125f, 1000, 1000, 1000, 0, 1000, 1000);
  const LAMINATE lam(odd, std::vector<float>{45});
  EXPECT_FALSE(lam.error);
  EXPECT_LT(lam.A(1, 2), 0.0f);
  EXPECT_EQ(lam.nuxy, 0.0f);
  EXPECT_EQ(lam.nuyx, 0.0f);
}

TEST(Laminate, KnockDownFactorAndPlateTerm) {
  const LAMINATE lam(tape(), std::vector<float>{0, 90, 90, 0});
  const double r = static_cast<double>(lam.A(1, 2)) / lam.A(1, 1);
  const double s = lam.A(1, 1) / (3.0 * lam.A(2, 2) + lam.A(1, 1));
  const struct {
    float x;
    int kind;
    double expected;
  } cases[] = {{-0.01f, 1, 1.0},
               {1.01f, 2, 1.0},
               {0.25f, 1, 0.5},
               {0.0f, 1, 0.0},
               {1.0f, 1, 1.0},
               {0.5f, 3, 0.0},
               {1.0f, 2, 1.0},
               {0.0f, 2, 1 / (2 * (r + 1) * s + 1)},
               {0.4f, 2, 1 / (2 * (r + 1) * 0.6 * s + 1)}};
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
  const LAMINATE singular(new_lamina(0.125f, 0, 0, 0, 0, 1000, 1000),
                          std::vector<float>{0});
  EXPECT_EQ(singular.plate_term(100.0f, 2.0f), 0.0f);
}

TEST(Laminate, RotateAndStackingText) {
  const LAMINA soft = new_lamina(0.25f, 9000, 9000, 3000, 0.3f, 1000, 1000);
  const LAMINATE lam(tape(), soft, std::vector<float>{0, 22.5f, -45},
                     std::vector<std::int32_t>{1, 2, 1}, "L");
  EXPECT_EQ(lam.stacking_text(), "(0/22.5/-45)");
  const LAMINATE turned = lam.rotate(90.0f);
  EXPECT_EQ(turned.stacking_text(), "(90/112.5/45)");
  EXPECT_EQ(turned.material_index, lam.material_index);
  EXPECT_EQ(turned.name, "L");
  EXPECT_FALSE(turned.error);
  EXPECT_NEAR(turned.A(1, 1), lam.A(2, 2), 1e-6 * lam.A(2, 2));
  EXPECT_NEAR(turned.A(2, 2), lam.A(1, 1), 1e-6 * lam.A(1, 1));
  EXPECT_NEAR(turned.A(3, 3), lam.A(3, 3), 1e-6 * lam.A(1, 1));
  char out[16];
  lam.stacking_text(out);
  EXPECT_EQ(std::string(out, 16), "(0/22.5/-45)    ");
  char short_out[5];
  lam.stacking_text(short_out);
  EXPECT_EQ(std::string(short_out, 5), "(0/22");
}

}  // namespace
}  // namespace corvane
