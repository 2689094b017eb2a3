#include "laminas/lamina.h"

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "util/numerics.h"

namespace corvane {
namespace {

// A carbon tape: CPT, E1, E2, G12, v12, tension and compression strengths.
constexpr double kE1 = 140000, kE2 = 9000, kG12 = 4600, kV12 = 0.3;
LAMINA Tape() {
  return new_lamina(0.125f, 140000, 9000, 4600, 0.3f, 2500, 1500, "IM7/8552");
}

// Reduced stiffness in ply axes, in double: Q11, Q12, Q22, Q66.
std::array<double, 4> ReducedStiffness(double e1, double e2, double g12, double v12) {
  const double d = 1 - v12 * v12 * e2 / e1;
  return {e1 / d, v12 * e2 / d, e2 / d, g12};
}

// Transformed reduced stiffness by the textbook closed form.
std::array<std::array<double, 3>, 3> ClosedForm(const std::array<double, 4>& q,
                                                double deg) {
  const double t = deg * kPi / 180, m = std::cos(t), n = std::sin(t);
  const double m2 = m * m, n2 = n * n, m4 = m2 * m2, n4 = n2 * n2;
  const auto [q11, q12, q22, q66] = q;
  const double b11 = q11 * m4 + 2 * (q12 + 2 * q66) * m2 * n2 + q22 * n4;
  const double b22 = q11 * n4 + 2 * (q12 + 2 * q66) * m2 * n2 + q22 * m4;
  const double b12 = (q11 + q22 - 4 * q66) * m2 * n2 + q12 * (m4 + n4);
  const double b66 = (q11 + q22 - 2 * q12 - 2 * q66) * m2 * n2 + q66 * (m4 + n4);
  const double b16 =
      (q11 - q12 - 2 * q66) * m2 * m * n + (q12 - q22 + 2 * q66) * m * n2 * n;
  const double b26 =
      (q11 - q12 - 2 * q66) * m * n2 * n + (q12 - q22 + 2 * q66) * m2 * m * n;
  return {{{b11, b12, b16}, {b12, b22, b26}, {b16, b26, b66}}};
}

// Every element within 1e-6 of the largest stiffness.
void ExpectMatrixNear(const std::array<std::array<double, 3>, 3>& expected,
                      const Matrix3& actual, double scale) {
  for (int i = 1; i <= 3; ++i) {
    for (int j = 1; j <= 3; ++j) {
      EXPECT_NEAR(actual(i, j), expected[i - 1][j - 1], 1.0e-6 * scale) << i << j;
    }
  }
}

// What the bit-exact cases below do not pin: the allowables and defaults.
TEST(NewLamina, TapeAllowablesAndDefaults) {
  const LAMINA m = Tape();
  ASSERT_EQ(m.status, 0);
  EXPECT_EQ(m.Name, "IM7/8552");
  EXPECT_FALSE(m.is_fabric);
  EXPECT_NEAR(m.S(1, 2), -kV12 / kE1, 1e-6 * kV12 / kE1);
  const float expected[] = {2500 / 140000.0f,
                            1500 / 140000.0f,
                            0.8f * 2500 / 140000 / 3,
                            1500 / 140000.0f / 3,
                            1500 / 140000.0f / 3,
                            750,
                            1.5e-6f,
                            0.7f,
                            0.6f,
                            0.85f};
  const float actual[] = {m.e1tu, m.uecall,  m.uetall_third, m.uecall_third, m.CAIE,
                          m.Fbr,  m.DENSITY, m.Kfht,         m.Kfhc,         m.KBM};
  for (int i = 0; i < 10; ++i) EXPECT_FLOAT_EQ(actual[i], expected[i]) << i;
  EXPECT_NEAR(m.Qb(1, 2), 0.85 * m.Q(1, 2), 1e-6 * m.Q(1, 2));
  EXPECT_EQ(m.selector, 2);
}

TEST(NewLamina, AllowablesBelowOneAreStrains) {
  const LAMINA m = new_lamina(0.2f, 70000, 5000, 3000, 0.3f, 0.01f, 0.008f);
  ASSERT_EQ(m.status, 0);
  EXPECT_EQ(m.Name, "");
  EXPECT_EQ(m.e1tu, 0.01f);
  EXPECT_EQ(m.uetall, 0.01f);
  EXPECT_NEAR(m.F1t, 700.0, 1e-3);
  EXPECT_EQ(m.uecall, 0.008f);
  EXPECT_NEAR(m.F1c, 560.0, 1e-3);
  // Exactly 1.0 is a stress.
  const LAMINA one = new_lamina(0.2f, 70000, 5000, 3000, 0.3f, 1.0f, 1.0f);
  EXPECT_EQ(one.F1t, 1.0f);
  EXPECT_EQ(one.F1c, 1.0f);
}

// Float values worked out step by step in single precision, rounding after each
// operation in the order the formulas are written. A regrouped sum or product
// (3 (Q11 + Q22) in U1, U1 - U1 nuiso^2 for Eiso, v12 (E2 / D) for Q12, the
// degree factor folded into one constant, the rotation chain associated from
// the right) moves at least one of them by a unit in the last place.
struct ExactCase {
  float e1, e2, g12, v12;
  std::array<float, 9> derived;  // nu21, Q11, Q12, Q22, U1, U4, U5, Eiso, CAIH
  float uetall;
  std::array<float, 6> at_minus_60;  // Q11, Q12, Q22, Q13, Q23, Q33 at -60 degrees
};

TEST(NewLamina, SinglePrecisionValuesToTheLastBit) {
  const ExactCase cases[] = {
      {125000,
       9300,
       4600,
       0.28f,
       {0.0208320003f, 125733.398f, 2619.27808f, 9354.56445f, 53612.8047f, 16550.4551f,
        18531.1758f, 48503.6211f, 0.00800000038f},
       0.0160000008f,
       {17552.5078f, 23516.041f, 75741.9375f, -13132.0039f, -37261.5117f, 25496.7617f}},
      {140000,
       8800,
       5000,
       0.3f,
       {0.018857142f, 140796.5f, 2655.01978f, 8850.06641f, 59281.2148f, 18197.0859f,
        20542.0645f, 53695.3984f, 0.00714285718f},
       0.0142857153f,
       {18523.5742f, 25968.1191f, 84496.8047f, -15107.416f, -42027.0703f, 28313.0977f}},
  };
  for (const ExactCase& c : cases) {
    const LAMINA m = new_lamina(0.125f, c.e1, c.e2, c.g12, c.v12, 2500, 1500);
    const std::array<float, 9> derived{m.nu21,       m.Q(1, 1),    m.Q(1, 2),
                                       m.Q(2, 2),    m.Qiso(1, 1), m.Qiso(1, 2),
                                       m.Qiso(3, 3), m.Eiso,       m.CAIH};
    EXPECT_EQ(derived, c.derived) << c.e1;
    EXPECT_EQ(m.uetall, c.uetall) << c.e1;
    const Matrix3 q = m.stiffness_at_angle(-60);
    const std::array<float, 6> at{q(1, 1), q(1, 2), q(2, 2), q(1, 3), q(2, 3), q(3, 3)};
    EXPECT_EQ(at, c.at_minus_60) << c.e1;
  }
}

struct InvalidCase {
  const char* what;
  std::array<float, 7> args;  // CPT, E1, E2, G12, v12, tension, compression
};

class InvalidLamina : public testing::TestWithParam<InvalidCase> {};

TEST_P(InvalidLamina, StaysInvalidWithNothingSet) {
  const auto& a = GetParam().args;
  const LAMINA m = new_lamina(a[0], a[1], a[2], a[3], a[4], a[5], a[6], "bad");
  EXPECT_EQ(m.status, -1);
  // The reason names the refused input, the first of them when several are.
  EXPECT_EQ(lamina_fault(a[0], a[1], a[2], a[3], a[4], a[5], a[6])
                .rfind(std::string(GetParam().what) + " = ", 0),
            0u);
  EXPECT_EQ(m.Name, "bad");
  for (float f : {m.F1t, m.F1c, m.e1tu, m.uetall, m.uecall, m.DENSITY, m.CPT, m.E1}) {
    EXPECT_EQ(f, 0.0f);
  }
  EXPECT_FALSE(m.is_fabric);
  EXPECT_EQ(m.print_short(), "Error! Not valid lamina material.\n");
  EXPECT_EQ(m.print_full(), "Error! Not valid lamina material.\n");
}

INSTANTIATE_TEST_SUITE_P(
    , InvalidLamina,
    testing::Values(
        InvalidCase{"CPT", {0.99e-5f, -1, 70000, 5000, 0.1f, 500, 500}},
        InvalidCase{"E1", {0.2f, -1, 70000, 5000, 0.1f, 500, 500}},
        InvalidCase{"E2", {0.2f, 70000, -1, 5000, 0.1f, 500, 500}},
        InvalidCase{"G12", {0.2f, 70000, 70000, -1, 0.1f, 500, 500}},
        InvalidCase{"v12", {0.2f, 70000, 70000, 5000, -0.1f, 500, 500}},
        InvalidCase{"tension_allowable", {0.2f, 70000, 70000, 5000, 0.1f, -0.01f, 500}},
        InvalidCase{"compression_allowable", {0.2f, 70000, 70000, 5000, 0.1f, 500, -1}}),
    [](const auto& info) { return std::string(info.param.what); });

TEST(NewLamina, ThinnestValidPlyAndZeroInputs) {
  EXPECT_EQ(new_lamina(1.0e-5f, 0, 0, 0, 0, 0, 0).status, 0);
  EXPECT_EQ(lamina_fault(1.0e-5f, 0, 0, 0, 0), "");
}

struct FabricCase {
  float e1, e2;
  std::optional<bool> given;
  bool fabric;
};

class FabricDetection : public testing::TestWithParam<FabricCase> {};

TEST_P(FabricDetection, DecidesBearingStrength) {
  const FabricCase& c = GetParam();
  const LAMINA m = new_lamina(0.2f, c.e1, c.e2, 4000, 0.05f, 600, 500, {}, c.given);
  EXPECT_EQ(m.is_fabric, c.fabric);
  EXPECT_EQ(m.Fbr, c.fabric ? 500.0f : 250.0f);
}

INSTANTIATE_TEST_SUITE_P(, FabricDetection,
                         testing::Values(FabricCase{70000.5f, 70000, {}, true},
                                         FabricCase{70000, 70000.5f, {}, true},
                                         FabricCase{70001, 70000, {}, false},
                                         FabricCase{140000, 9000, {}, false},
                                         FabricCase{1.0f, 1.5f, {}, false},
                                         FabricCase{70000, 70000, false, false},
                                         FabricCase{140000, 9000, true, true}));

class StiffnessClosedForm : public testing::TestWithParam<float> {};

TEST_P(StiffnessClosedForm, MatchesTheTextbookFormulas) {
  const LAMINA m = Tape();
  const double angle = GetParam();
  const auto q = ReducedStiffness(kE1, kE2, kG12, kV12);
  ExpectMatrixNear(ClosedForm(q, angle), m.stiffness_at_angle(GetParam()), q[0]);
  const auto qb = ReducedStiffness(0.85 * kE1, 0.85 * kE2, 0.85 * kG12, kV12);
  ExpectMatrixNear(ClosedForm(qb, angle), m.stiffness_at_angle(GetParam(), 1), q[0]);
}

INSTANTIATE_TEST_SUITE_P(, StiffnessClosedForm, testing::Values(30.0f, 112.0f));

TEST(SetKbm, OnlyFactorsInZeroToOneAreTaken) {
  const LAMINA base = Tape();
  for (float k : {1.5f, 0.0f, -0.2f, std::numeric_limits<float>::quiet_NaN()}) {
    LAMINA m = base;
    m.set_kbm(k);
    EXPECT_EQ(m.KBM, 0.85f) << k;
    EXPECT_EQ(m.Qb, base.Qb) << k;
  }
  LAMINA m = base;
  m.set_kbm(1.0f);
  EXPECT_EQ(m.Qb, m.Q);
  m.set_kbm(0.5f);
  EXPECT_EQ(m.E1b, 70000.0f);
  EXPECT_NEAR(m.Qb(2, 2), 0.5 * m.Q(2, 2), 1e-6 * m.Q(2, 2));
  EXPECT_EQ(m.Qb(3, 3), 2300.0f);
}

TEST(TsaiHill, ReserveFactors) {
  LAMINA m = Tape();
  m.set_strengths(2000, 1500, 100, 50, 200);
  ASSERT_EQ(m.status, 0);
  struct Case {
    float s1, s2, t12;
    double rf;
  };
  const Case cases[] = {
      {1000, 0, 0, 2.0},
      {-750, 0, 0, 2.0},  // compression strength
      {0, 25, 0, 2.0},    // zero fibre stress counts as tension
      {0, -50, 0, 4.0},
      {0, 0, -50, 2.0},
      {1000, 25, 50, 1 / std::sqrt(0.75 - 1000.0 * 25 / (2000.0 * 2000))},
      {-600, -100, 30, 1 / std::sqrt(0.16 - 60000.0 / (1500.0 * 1500) + 0.25 + 0.09)},
      {4e-6f, -4e-6f, 1e-6f, 1.0e10},
      {0, 0, 0, 1.0e10},
  };
  for (const Case& c : cases) {
    EXPECT_NEAR(m.tsai_hill_rf(c.s1, c.s2, c.t12), c.rf, 1e-6 * c.rf)
        << c.s1 << " " << c.s2 << " " << c.t12;
  }
}

TEST(TsaiHill, MissingStrengthOfTheLoadedSenseGivesZero) {
  LAMINA m = Tape();
  m.set_strengths(0, 1500, 100, 50, 200);
  EXPECT_EQ(m.tsai_hill_rf(0, 10, 0), 0.0f);
  EXPECT_GT(m.tsai_hill_rf(-10, 10, 0), 0.0f);
  m.set_strengths(2000, 1500, 0, 50, 200);
  EXPECT_EQ(m.tsai_hill_rf(0, 0, 0), 0.0f);  // before the zero-stress test
  // A NaN strength beside a zero one: the zero one still decides.
  m.set_strengths(std::numeric_limits<float>::quiet_NaN(), 1500, 100, 0, 200);
  EXPECT_EQ(m.tsai_hill_rf(10, 10, 0), 0.0f);
}

TEST(SetStrengths, NegativeMakesTheMaterialInvalid) {
  for (int i = 0; i < 5; ++i) {
    std::array<float, 5> f{2000, 1500, 100, 50, 200};
    f[i] = -1;
    LAMINA m = Tape();
    m.set_strengths(f[0], f[1], f[2], f[3], f[4]);
    EXPECT_EQ(m.status, -1) << i;
  }
  LAMINA m = Tape();
  m.set_strengths(2000, 1500, 100, 50, 0);
  EXPECT_EQ(m.status, 0);
  EXPECT_EQ(m.F1c, 1500.0f);
  EXPECT_EQ(m.F12, 100.0f);
  EXPECT_EQ(m.F2t, 50.0f);
}

TEST(PlyStressStrain, StiffnessAndComplianceProducts) {
  const LAMINA m = Tape();
  const auto [q11, q12, q22, q66] = ReducedStiffness(kE1, kE2, kG12, kV12);
  const std::array<float, 3> strain{0.001f, -0.0005f, 0.002f};
  const auto stress = m.stress_from_strain(strain);
  EXPECT_NEAR(stress[0], q11 * 0.001 - q12 * 0.0005, 1e-6 * q11 * 0.001);
  EXPECT_NEAR(stress[1], q12 * 0.001 - q22 * 0.0005, 1e-6 * q11 * 0.001);
  EXPECT_NEAR(stress[2], q66 * 0.002, 1e-6 * q66 * 0.002);
  const auto e = m.strain_from_stress({100, 10, 5});
  EXPECT_NEAR(e[0], 100 / kE1 - kV12 * 10 / kE1, 1e-11);
  EXPECT_NEAR(e[1], -kV12 * 100 / kE1 + 10 / kE2, 1e-10);
  EXPECT_NEAR(e[2], 5 / kG12, 1e-10);
}

TEST(SetFhc, KeepsItsOwnConstant) {
  LAMINA m = Tape();
  m.set_fhc(300);
  const double expected = double(m.uecall) / (3.1401 * 300 / double(m.Eiso));
  EXPECT_NEAR(m.Kfhc, expected, 1e-6 * expected);
}

using Pairs = std::vector<std::pair<std::string_view, float>>;

struct KeyCase {
  Pairs pairs;
  float LAMINA::*field;
  float expected;
};

class SetByKeyTable : public testing::TestWithParam<KeyCase> {};

TEST_P(SetByKeyTable, StoresOrIgnores) {
  LAMINA m = Tape();
  m.set_by_key(GetParam().pairs);
  EXPECT_FLOAT_EQ(m.*(GetParam().field), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    , SetByKeyTable,
    testing::Values(
        // Positive only.
        KeyCase{{{"DENSITY", 1.0e-7f}}, &LAMINA::DENSITY, 1.0e-7f},
        KeyCase{{{"DENSITY", 0}}, &LAMINA::DENSITY, 1.5e-6f},
        // Notch data take 0 but no negative; keys in any case.
        KeyCase{{{"KFHT", 0}}, &LAMINA::Kfht, 0},
        KeyCase{{{"a0ohc", 1.1f}, {"A0OHC", -1}}, &LAMINA::a0ohc, 1.1f},
        // Any sign; trailing blanks ignored.
        KeyCase{{{"cte2   ", -3e-5f}}, &LAMINA::CTE2, -3e-5f},
        // Through the setters, positive only.
        KeyCase{{{"KBM", 0.9f}}, &LAMINA::E2b, 8100},
        KeyCase{{{"OHT", 450}}, &LAMINA::OHT, 450},
        KeyCase{{{"FHC", -1}}, &LAMINA::Kfhc, 0.6f},
        // No key but a whole one.
        KeyCase{{{"F2CX", 200}, {"F2", 200}}, &LAMINA::F2c, 0},
        // F1T: the strength needs a positive value, the ultimate strain follows any.
        KeyCase{{{"F1T", 2200}}, &LAMINA::F1t, 2200},
        KeyCase{{{"F1T", 0}}, &LAMINA::F1t, 2500},
        KeyCase{{{"F1T", -140}}, &LAMINA::e1tu, -0.001f},
        KeyCase{{{"F2T", 60}}, &LAMINA::e1tu, 2500.0f / 140000.0f}));  // tape

TEST(SetByKey, FabricUltimateStrain) {
  LAMINA m = new_lamina(0.2f, 70000, 70000, 5000, 0.05f, 700, 600);
  ASSERT_TRUE(m.is_fabric);
  const Pairs f1t = {{"F1T", 840}};
  m.set_by_key(f1t);
  EXPECT_FLOAT_EQ(m.e1tu, 840.0f / 70000 * 1.2f);
  const Pairs f2t = {{"F2T", 700}};
  m.set_by_key(f2t);
  EXPECT_FLOAT_EQ(m.e1tu, 700.0f / 70000);
  // The lesser tension strength passes over a NaN one.
  m.set_strengths(std::numeric_limits<float>::quiet_NaN(), 600, 100, 700, 600);
  m.set_by_key(f2t);
  EXPECT_FLOAT_EQ(m.e1tu, 700.0f / 70000);
}

TEST(Print, ShortLineStandsUnderItsHeader) {
  EXPECT_EQ(
      Tape().print_short(),
      "IM7/8552             0.125  140000    9000    4600 0.300 0.850 0.01429 0.01071\n");
  EXPECT_EQ(Tape().print_short().size(), LAMINA::kShortHeader.size() + 1);
  const LAMINA longer = new_lamina(0.125f, 140000, 9000, 4600, 0.3f, 2500, 1500,
                                   "A name longer than twenty characters");
  EXPECT_EQ(longer.print_short().substr(0, 21), "A name longer than t ");
}

TEST(Print, FullTable) {
  const std::string expected =
      "Name                     CPT      E1      E2     G12     v12     KBM     E1b     "
      "E2b    G12b\n"
      "                     ------- ------- ------- ------- ------- ------- ------- "
      "------- "
      "-------\n"
      "IM7/8552              0.1250  140000    9000    4600  0.3000  0.8500  119000    "
      "7650 "
      "   3910\n"
      " uetall  uecall     F1t     F1c\n"
      " ------- ------- ------- -------\n"
      " 0.01429 0.01071  2500.0  1500.0\n"
      "     F2t     F2c     F12     F13\n"
      " ------- ------- ------- -------\n"
      "     0.0     0.0     0.0     0.0\n"
      "   a0oht   a0ohc   a0fht    Kfhc     Fbr\n"
      " ------- ------- ------- ------- -------\n"
      "   0.000   0.000   0.000   0.600   750.0\n"
      "    --------------------\n";
  EXPECT_EQ(Tape().print_full(), expected);
}

TEST(Print, IllConditionedMaterialIsReported) {
  const std::string ill = "Error! Material is ill conditioned.\n";
  const std::string text = new_lamina(0.2f, 1000, 1000, 300, 1.2f, 10, 10).print_full();
  ASSERT_GE(text.size(), ill.size());
  EXPECT_EQ(text.substr(text.size() - ill.size()), ill);
  EXPECT_EQ(Tape().print_full().find("Error!"), std::string::npos);
}

}  // namespace
}  // namespace corvane
