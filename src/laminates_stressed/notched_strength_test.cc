#include "laminates_stressed/notched_strength.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "laminates_stressed/impact_strength.h"
#include "laminates_stressed/laminate_stressed.h"

namespace corvane {
namespace {

using Angles = std::vector<float>;
using Loads = std::vector<float>;
using Keys = std::vector<std::pair<std::string_view, float>>;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

LAMINA Tape(const Keys& keys = {}) {
  LAMINA m = new_lamina(0.125f, 140000, 9000, 4600, 0.3f, 2500, 1500);
  m.set_by_key(keys);
  return m;
}

// (0/45/-45/90)2S: 16 plies, 2 mm, quasi-isotropic.
LAMINATESTRESSED QuasiIsotropic(const LAMINA& m) {
  return LAMINATESTRESSED(
      m, Angles{0, 45, -45, 90, 0, 45, -45, 90, 90, -45, 45, 0, 90, -45, 45, 0});
}

TEST(Notched, QuasiIsotropicLaminateConcentratesThree) {
  const LAMINATESTRESSED lam = QuasiIsotropic(Tape({{"A0OHT", 1.0f}}));
  const NotchCheck oht[] = {NotchCheck::oht};
  const NotchedPlan plan(lam, oht);
  ASSERT_TRUE(plan.status().ok());
  EXPECT_NEAR(plan.kt(false), 3.0f, 1e-4f);
  EXPECT_NEAR(plan.kt(true), 3.0f, 1e-4f);
}

// A material keyed with its measured notched strengths of the quasi-isotropic
// laminate at 6.35 mm: that laminate, loaded to the strength along x or y, is
// at RF 1. Open holes and filled-hole tension through the characteristic
// distances, filled-hole compression through Kfhc and set_fhc's constant.
struct RoundTrip {
  std::string_view key;
  float strength;
  NotchCheck check;
  float nx, ny;  // the running load per unit of strength
};

class NotchedRoundTrip : public testing::TestWithParam<RoundTrip> {};

TEST_P(NotchedRoundTrip, MeasuredStrengthIsReserveFactorOne) {
  const RoundTrip& c = GetParam();
  const LAMINATESTRESSED lam = QuasiIsotropic(Tape({{c.key, c.strength}}));
  const NotchCheck checks[] = {c.check};
  const NotchedPlan plan(lam, checks, 6.35f);
  ASSERT_TRUE(plan.status().ok()) << plan.status().message();
  const float n = c.strength * lam.h;
  std::vector<float> rf(1);
  ASSERT_TRUE(plan.evaluate(Loads{c.nx * n, c.ny * n, 0, 0, 0, 0, 0}, {}, rf).ok());
  EXPECT_NEAR(rf[0], 1.0f, 2e-4f);
}

INSTANTIATE_TEST_SUITE_P(, NotchedRoundTrip,
                         testing::Values(RoundTrip{"OHT", 450, NotchCheck::oht, 1, 0},
                                         RoundTrip{"OHT", 450, NotchCheck::oht, 0, 1},
                                         RoundTrip{"OHC", 300, NotchCheck::ohc, -1, 0},
                                         RoundTrip{"FHT", 420, NotchCheck::fht, 1, 0},
                                         RoundTrip{"FHC", 320, NotchCheck::fhc, 0, -1}));

// A [0]8 tape laminate, 1 mm: K_T = 7.1419 along the fibres (Lekhnitskii's
// engineering-constant form, by hand), so with the default Kfhc = 0.6 the
// filled-hole compression strain is uecall/(0.6 3.1401 7.1419/3) = 0.0023888,
// and Kfht = 0.7 gives e1tu/(0.7 3.1401 7.1419/3). Bearing: the default
// Fbr = 0.5 F1c = 750 against 1000 N in a 6.35 mm hole, 1000/6.35 MPa: 4.7625.
TEST(Notched, FilledHoleFactorsAndBearingByHand) {
  const LAMINATESTRESSED lam(Tape(), Angles(8, 0.0f));
  const NotchCheck checks[] = {NotchCheck::fhc, NotchCheck::fht, NotchCheck::bearing};
  const NotchedPlan plan(lam, checks);
  ASSERT_TRUE(plan.status().ok()) << plan.status().message();
  EXPECT_NEAR(plan.kt(false), 7.141896f, 2e-5f);
  EXPECT_NEAR(plan.allowable(0, false), 0.00238878f, 1e-8f);
  EXPECT_NEAR(plan.allowable(1, false), (2500.0 / 140000) / (0.7 * 3.1401 * 7.141896 / 3),
              1e-8);
  // 1000 N/mm of compression: strain 1000/140000; 1000 N of fastener load.
  std::vector<float> rf(3);
  ASSERT_TRUE(plan.evaluate(Loads{-1000, 0, 0, 0, 0, 0, 0}, Loads{-1000}, rf).ok());
  EXPECT_NEAR(rf[0], 0.00238878f * 140, 1e-5f);
  EXPECT_NEAR(rf[2], 4.7625f, 1e-5f);
  // The Poisson strain along y is tensile: the FHT check meets it there.
  EXPECT_LT(rf[1], kNoFailureRF);
}

TEST(Notched, LargerHolesAreWeakerAndUnloadedChecksDoNotFail) {
  const LAMINATESTRESSED lam = QuasiIsotropic(Tape({{"A0OHT", 1.016f}, {"A0OHC", 1.5f}}));
  const NotchCheck checks[] = {NotchCheck::oht, NotchCheck::ohc};
  float previous = 1.0f;
  for (const float d : {2.0f, 6.35f, 12.7f, 25.4f}) {
    const NotchedPlan plan(lam, checks, d);
    ASSERT_TRUE(plan.status().ok());
    EXPECT_LT(plan.allowable(0, false), previous) << d;
    previous = plan.allowable(0, false);
  }
  // Pure shear loads no hole here (but for rounding in [a]); nor does dT.
  const NotchedPlan plan(lam, checks);
  std::vector<float> rf(4);
  ASSERT_TRUE(
      plan.evaluate(Loads{0, 0, 500, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 90}, {}, rf).ok());
  for (const float x : rf) EXPECT_GT(x, 1e6f);
  EXPECT_EQ(rf[3], kNoFailureRF);
}

struct NotchedRefusal {
  Keys keys;
  std::vector<NotchCheck> checks;
  float diameter;
  Loads loads;
  Loads fastener;
  std::size_t rf;
  std::string message;
};

class NotchedRefusals : public testing::TestWithParam<NotchedRefusal> {};

TEST_P(NotchedRefusals, NothingWritten) {
  const NotchedRefusal& c = GetParam();
  const LAMINATESTRESSED lam = QuasiIsotropic(Tape(c.keys));
  const NotchedPlan plan(lam, c.checks, c.diameter);
  std::vector<float> rf(c.rf, -7.0f);
  const StrengthStatus status = plan.evaluate(c.loads, c.fastener, rf);
  EXPECT_EQ(status.message(), c.message);
  for (const float x : rf) EXPECT_EQ(x, -7.0f);
}

const Loads kOneCase = {100, 0, 0, 0, 0, 0, 0};

INSTANTIATE_TEST_SUITE_P(
    , NotchedRefusals,
    testing::Values(NotchedRefusal{{},
                                   {NotchCheck::oht},
                                   6.35f,
                                   kOneCase,
                                   {},
                                   1,
                                   "Error! a0oht missing (material 1, criterion OHT)."},
                    NotchedRefusal{{{"A0OHT", 1}},
                                   {NotchCheck::oht, NotchCheck::ohc},
                                   6.35f,
                                   kOneCase,
                                   {},
                                   2,
                                   "Error! a0ohc missing (material 1, criterion OHC)."},
                    NotchedRefusal{{{"KFHC", 0}},
                                   {NotchCheck::fhc},
                                   6.35f,
                                   kOneCase,
                                   {},
                                   1,
                                   "Error! Kfhc missing (material 1, criterion FHC)."},
                    NotchedRefusal{{},
                                   {NotchCheck::fhc},
                                   0.0f,
                                   kOneCase,
                                   {},
                                   1,
                                   "Error! Option hole diameter out of range."},
                    NotchedRefusal{{},
                                   {NotchCheck::fhc},
                                   kNaN,
                                   kOneCase,
                                   {},
                                   1,
                                   "Error! Option hole diameter out of range."},
                    NotchedRefusal{{},
                                   {NotchCheck::fhc},
                                   6.35f,
                                   {100, 0, 0, 0, 0, 0, kNaN},
                                   {},
                                   1,
                                   "Error! Load case 1 is not finite."},
                    NotchedRefusal{{},
                                   {NotchCheck::bearing},
                                   6.35f,
                                   kOneCase,
                                   {kNaN},
                                   1,
                                   "Error! Load case 1 is not finite."},
                    NotchedRefusal{{},
                                   {NotchCheck::bearing},
                                   6.35f,
                                   kOneCase,
                                   {},
                                   1,
                                   "Error! Array fastener loads of the wrong size."},
                    NotchedRefusal{{},
                                   {NotchCheck::fhc},
                                   6.35f,
                                   kOneCase,
                                   {},
                                   2,
                                   "Error! Array rf of the wrong size."}));

// After impact. A [0]8 tape laminate, 1 mm: Ex = E1 = 140000, Eiso = 53414.43,
// CAIH = 2 uecall/3 = 0.0071429, so 1000 N/mm of compression is at RF 1 against
// CAIH and 0.5 against CAIE. Each model form worked by hand for 10 J, F = 0.83:
//  T03 a0, a1, b0, b1 = 0.001, 0.002, 0.001, 0.003, c0 = c1 = 5000, r = Eiso/Ex:
//      0.83 (a0 r + a1 + (b0 r + b1) exp(-(c0 r + c1) 10/(1 * 140000))) = 0.0036903
//  T04 k2, k3, k0, k1 = 0.003, 0.5, 0.004, 0.2, r = Ex/Eiso:
//      0.83 (k2/r^k3 + k0 exp(-2)) = 0.0019873
//  T05 0.83 k0 exp(-2) = 0.00044931
//  T06 0.83 ((1 - (r - 1) k3) k2 + k0 exp(-2)) = 0.00092115
//  T04 with k2 = 300, k0 = 200 gives a stress, 176.27 MPa: strain 0.0012591.
struct ModelCase {
  std::int32_t form;
  std::array<float, 6> coefficients;  // a0 a1 b0 b1 c0 c1, or k2 k3 k0 k1
  double allowable;
};

class ImpactModels : public testing::TestWithParam<ModelCase> {};

TEST_P(ImpactModels, AllowableByHand) {
  const ModelCase& c = GetParam();
  LAMINA m = Tape();
  CDTMODEL& model = m.cdt_model;
  model.name = "CDTM-T0" + std::to_string(c.form);
  model.model = c.form;
  const auto& k = c.coefficients;
  if (c.form == 3) {
    model.a0 = k[0], model.a1 = k[1], model.b0 = k[2], model.b1 = k[3];
    model.c0 = k[4], model.c1 = k[5];
  } else {
    model.k2 = k[0], model.k3 = k[1], model.k0 = k[2], model.k1 = k[3];
  }
  const LAMINATESTRESSED lam(m, Angles(8, 0.0f));
  const ImpactPlan plan(lam, 10.0f, true);
  ASSERT_TRUE(plan.status().ok()) << plan.status().message();
  EXPECT_NEAR(plan.allowable(0, ImpactCheck::model), c.allowable, 2e-6 * c.allowable);
  std::vector<float> rf(3);
  ASSERT_TRUE(plan.evaluate(Loads{-1000, 0, 0, 0, 0, 0, 0}, rf).ok());
  EXPECT_NEAR(rf[0], 1.0f, 2e-6f);
  EXPECT_NEAR(rf[1], 0.5f, 2e-6f);
  EXPECT_NEAR(rf[2], c.allowable * 140, 4e-6 * c.allowable * 140);
}

INSTANTIATE_TEST_SUITE_P(
    , ImpactModels,
    testing::Values(
        ModelCase{3, {0.001f, 0.002f, 0.001f, 0.003f, 5000, 5000}, 0.0036902689},
        ModelCase{4, {0.003f, 0.5f, 0.004f, 0.2f}, 0.0019873425},
        ModelCase{5, {0.003f, 0.5f, 0.004f, 0.2f}, 0.00044931314},
        ModelCase{6, {0.003f, 0.5f, 0.004f, 0.2f}, 0.00092114987},
        ModelCase{4, {300, 0.5f, 200, 0.2f}, 0.0012590614}));

TEST(Impact, PrincipalStrainGoverns) {
  // Pure shear of a quasi-isotropic laminate: principal strains +-gxy/2.
  const LAMINATESTRESSED lam = QuasiIsotropic(Tape());
  const ImpactPlan plan(lam, 0.0f, false);
  ASSERT_TRUE(plan.status().ok());
  std::vector<float> rf(4);
  ASSERT_TRUE(plan.evaluate(Loads{0, 0, 200, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 50}, rf).ok());
  const float gxy = 200 * lam.a(3, 3);
  EXPECT_NEAR(rf[0], lam.materials[0].CAIH / (0.5f * gxy), 1e-4f);
  EXPECT_EQ(rf[2], kNoFailureRF);  // a temperature change alone
}

TEST(Impact, Refusals) {
  LAMINA unknown = Tape();
  unknown.cdt_model.name = "CDTM-T05X";
  unknown.cdt_model.status = -1;
  const std::vector<std::pair<ImpactPlan, std::string>> cases = {
      {ImpactPlan(QuasiIsotropic(Tape()), 10, true),
       "Error! Damage model of material 1 not usable: no model given."},
      {ImpactPlan(QuasiIsotropic(unknown), 10, true),
       "Error! Damage model of material 1 not usable: unknown model name or unreadable "
       "coefficients."},
      {ImpactPlan(QuasiIsotropic(Tape()), -1, false),
       "Error! Option impact energy out of range."},
      {ImpactPlan(QuasiIsotropic(Tape()), kNaN, false),
       "Error! Option impact energy out of range."},
  };
  for (const auto& [plan, message] : cases) EXPECT_EQ(plan.status().message(), message);
  LAMINA no_cai = Tape();
  no_cai.CAIE = 0;
  EXPECT_EQ(ImpactPlan(QuasiIsotropic(no_cai), 10, false).status().message(),
            "Error! CAIE missing (material 1, criterion CAI).");
  const ImpactPlan plan(QuasiIsotropic(Tape()), 10, false);
  std::vector<float> rf(2, -7.0f);
  EXPECT_EQ(plan.evaluate(Loads{kNaN, 0, 0, 0, 0, 0, 0}, rf).message(),
            "Error! Load case 1 is not finite.");
  EXPECT_EQ(plan.evaluate(Loads{0, 0, 0, 0, 0, 0, 0}, std::span(rf).first(1)).message(),
            "Error! Array rf of the wrong size.");
  EXPECT_EQ(rf, (std::vector<float>{-7.0f, -7.0f}));
}

}  // namespace
}  // namespace corvane
