#include "laminates_stressed/ply_criteria.h"

#include <gtest/gtest.h>

#include <cmath>

namespace corvane {
namespace {

PlyCriterion prepared(std::int32_t code, const LAMINA& m, const StrengthOptions& o = {}) {
  PlyCriterion c;
  EXPECT_TRUE(PlyCriterion::prepare(code, m, 1, o, c).ok()) << code;
  return c;
}

const LAMINA& carbon() {
  static const LAMINA m = t300_5208();
  return m;
}

// The defining property: the criterion at r + RF s is 1, for every criterion,
// with and without thermal stresses, across the sign and mode boundaries.
TEST(PlyCriteria, TheCriterionIsOneAtTheReserveFactor) {
  const struct {
    PlyStress s, r;
  } paths[] = {
      {{300, 20, 30}, {}},
      {{-400, -60, 20}, {}},
      {{0, -50, 60}, {}},
      {{0, -200, 10}, {}},
      {{100, -30, 40}, {-20, 15, 0}},  // s2 changes sign on the way
      {{-200, 50, -10}, {30, -20, 5}},
      {{5, -80, 0}, {0, 10, 0}},  // (s2, s12) passes through zero stress
      {{-900, 2, 1}, {700, 1, 0}},
  };
  for (std::int32_t code : kEvaluatedCriteria) {
    const PlyCriterion c = prepared(code, carbon());
    for (const auto& [s, r] : paths) {
      const float rf = c.reserve_factor(s, r).rf;
      ASSERT_GT(rf, 0.0f) << code;
      ASSERT_LT(rf, kNoFailureRF) << code;
      const PlyStress x = {r[0] + rf * s[0], r[1] + rf * s[1], r[2] + rf * s[2]};
      EXPECT_NEAR(c.value(x).value, 1.0f, 2e-6f) << code << " at RF " << rf;
    }
  }
}

// Loading along one axis up to the strength reaches every criterion at RF 1
// (Yamada-Sun leaves s2 out); each strength is used where it belongs.
TEST(PlyCriteria, UniaxialStrengthsGiveOne) {
  const float none = kNoFailureRF;
  const struct {
    PlyStress s;
    float tsai_hill, tsai_wu, hoffman, yamada_sun, puck, max_strain;
    FailureMode puck_mode, strain_mode;
  } cases[] = {
      {{1500, 0, 0},
       1,
       1,
       1,
       1,
       1,
       1,
       FailureMode::fibre_tension,
       FailureMode::fibre_tension},
      {{-1500, 0, 0},
       1,
       1,
       1,
       1,
       1,
       1,
       FailureMode::fibre_compression,
       FailureMode::fibre_compression},
      {{0, 40, 0}, 1, 1, 1, none, 1, 1, FailureMode::puck_a, FailureMode::matrix_tension},
      {{0, -246, 0},
       1,
       1,
       1,
       none,
       1,
       1,
       FailureMode::puck_c,
       FailureMode::matrix_compression},
      {{0, 0, -68}, 1, 1, 1, 1, 1, 1, FailureMode::puck_a, FailureMode::shear},
  };
  for (const auto& k : cases) {
    const float expected[] = {k.tsai_hill,  k.tsai_wu, k.hoffman,
                              k.yamada_sun, k.puck,    k.max_strain};
    for (std::size_t i = 0; i < 6; ++i) {
      const ReserveFactor f =
          prepared(kEvaluatedCriteria[i], carbon()).reserve_factor(k.s, {});
      EXPECT_NEAR(f.rf, expected[i], 2e-6f * expected[i]) << kEvaluatedCriteria[i];
    }
    EXPECT_EQ(prepared(9, carbon()).reserve_factor(k.s, {}).mode, k.puck_mode);
    EXPECT_EQ(prepared(11, carbon()).reserve_factor(k.s, {}).mode, k.strain_mode);
  }
  // The truncated maximum strain: fibre tension at uetall; in compression the
  // shear truncation through the tension point cuts uecall down to uetall.
  const LAMINA& m = carbon();
  const PlyCriterion mts = prepared(31, m);
  const ReserveFactor tension = mts.reserve_factor({m.uetall / m.S(1, 1), 0, 0}, {});
  EXPECT_NEAR(tension.rf, 1, 2e-6f);
  EXPECT_EQ(tension.mode, FailureMode::fibre_tension);
  const ReserveFactor compression = mts.reserve_factor({-m.uecall / m.S(1, 1), 0, 0}, {});
  EXPECT_NEAR(compression.rf, m.uetall / m.uecall, 2e-6f);
  EXPECT_EQ(compression.mode, FailureMode::shear);
}

TEST(PlyCriteria, PuckModesAndParameters) {
  const PlyCriterion puck = prepared(9, carbon());
  // Modes B and C meet on the envelope at (-RA, t21c), RA = R||/(2 p-)
  // (sqrt(1 + 2 p- Rc/R||) - 1), t21c = R|| sqrt(1 + 2 p- RA/R||).
  const float ra = 68 / (2 * 0.3f) * (std::sqrt(1 + 2 * 0.3f * 246 / 68) - 1);
  const float t21c = 68 * std::sqrt(1 + 2 * 0.3f * ra / 68);
  for (const float side : {0.999f, 1.001f}) {  // just into B, just into C
    EXPECT_NEAR(puck.reserve_factor({0, -ra * side, t21c}, {}).rf, 1, 2e-3f);
  }
  EXPECT_EQ(puck.reserve_factor({0, -50, 60}, {}).mode, FailureMode::puck_b);
  EXPECT_EQ(puck.reserve_factor({0, -200, 10}, {}).mode, FailureMode::puck_c);
  // Pure shear is independent of the inclinations; a smaller p- (glass) makes
  // mode B weaker.
  StrengthOptions glass;
  glass.puck = PuckParameters::glass();
  EXPECT_FLOAT_EQ(prepared(9, carbon(), glass).reserve_factor({0, 0, 34}, {}).rf, 2);
  EXPECT_LT(prepared(9, carbon(), glass).reserve_factor({0, -50, 60}, {}).rf,
            puck.reserve_factor({0, -50, 60}, {}).rf);
}

TEST(PlyCriteria, TsaiHillWithoutThermalStressIsTheLaminaOne) {
  const PlyCriterion c = prepared(4, carbon());
  for (const PlyStress& s : {PlyStress{1.7f, -2.7f, -4.2f}, PlyStress{-800, 30, 20}}) {
    EXPECT_EQ(c.reserve_factor(s, {}).rf, carbon().tsai_hill_rf(s[0], s[1], s[2]));
  }
}

TEST(PlyCriteria, ThermalStressesAloneOrNoLoad) {
  const PlyCriterion c = prepared(5, carbon());
  EXPECT_EQ(c.reserve_factor({10, 0, 0}, {0, 50, 0}).rf, 0.0f);  // beyond F2t already
  EXPECT_EQ(c.reserve_factor({0, 0, 0}, {0, 20, 0}).rf, kNoFailureRF);
  EXPECT_EQ(prepared(7, carbon()).reserve_factor({0, 30, 0}, {}).rf, kNoFailureRF);
  EXPECT_EQ(c.reserve_factor({3e38f, 3e38f, 0}, {}).rf, 0.0f);  // beyond the float range
}

TEST(PlyCriteria, Refusals) {
  LAMINA weak = carbon();
  weak.F2c = 0.0f;
  const struct {
    std::int32_t code;
    const LAMINA& m;
    StrengthOptions options;
    StrengthError error;
    const char* message;
  } cases[] = {
      {9,
       weak,
       {},
       StrengthError::strength_missing,
       "Error! F2c missing (material 1, criterion PUCK)."},
      {7, weak, {}, StrengthError::none, ""},  // needs no F2c
      {8,
       carbon(),
       {},
       StrengthError::criterion_not_available,
       "Error! Criterion AOSL not available: no published definition."},
      {12, carbon(), {}, StrengthError::criterion_not_available, nullptr},
      {32, carbon(), {}, StrengthError::criterion_not_available, nullptr},
      {0,
       carbon(),
       {},
       StrengthError::unknown_criterion,
       "Error! Unknown failure criterion (code 0)."},
      {5,
       carbon(),
       {-1.0f, {}},
       StrengthError::bad_option,
       "Error! Option F12* out of range."},
      {9, carbon(), {-0.5f, {0.3f, 1.0f}}, StrengthError::bad_option, nullptr},
  };
  for (const auto& k : cases) {
    PlyCriterion c;
    const StrengthStatus status = PlyCriterion::prepare(k.code, k.m, 1, k.options, c);
    EXPECT_EQ(status.error, k.error) << k.code;
    if (k.message) {
      EXPECT_EQ(status.message(), k.message);
    }
  }
}

}  // namespace
}  // namespace corvane
