#include "laminates_stressed/laminate_stressed.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "laminates_stressed/ply_criteria.h"

namespace corvane {
namespace {

using Angles = std::vector<float>;
using Loads = std::vector<float>;

// Kaw, Mechanics of Composite Materials, 2nd ed. (2006), Examples 2.19 to 2.22:
// a 60-degree T300/5208 lamina under (sx, sy, sxy) = (2, -3, 4) S; the ply
// stresses are 1.714, -2.714, -4.165 and S reaches 16.33 (maximum strain), 16.06
// (Tsai-Hill) and 22.39 MPa (Tsai-Wu). Here one ply of the laminate carries them.
TEST(LaminateStressed, TextbookLaminaStrengthRatios) {
  const LAMINATESTRESSED lam(t300_5208(), Angles{60});
  const float t = lam.h;
  const std::int32_t criteria[] = {11, 4, 5};
  const StrengthPlan plan = lam.strength_plan(criteria);
  LaminateState state;
  ASSERT_TRUE(plan.state({2 * t, -3 * t, 4 * t}, state).ok());
  const PlyStress expected_stress = {1.714f, -2.714f, -4.165f};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(state.surfaces[1].stress[i], expected_stress[i], 0.0005f);
  }
  std::vector<float> rf(3);
  ASSERT_TRUE(plan.evaluate(Loads{2 * t, -3 * t, 4 * t, 0, 0, 0, 0}, {.rf = rf}).ok());
  EXPECT_NEAR(rf[0], 16.33f, 0.005f);
  EXPECT_NEAR(rf[1], 16.06f, 0.005f);
  EXPECT_NEAR(rf[2], 22.39f, 0.005f);
  // The report cuts 22.3887 toward zero.
  std::string text;
  ASSERT_TRUE(lam.strength_report({2 * t, -3 * t, 4 * t}, criteria, {}, text).ok());
  EXPECT_NE(
      text.find("\n Ply Surface  Angle Material         sigma1     sigma2      tau12"
                " MAX_STRAIN_I TSAI_HILL TSAI_WU\n   1 bottom    60.0 T300/5208  "
                "   1.714E+00 -2.714E+00 -4.165E+00        16.32     16.06   22.38\n"),
      std::string::npos)
      << text;
  EXPECT_NE(text.find("\nTSAI_WU      22.38    1 bottom  -\n"), std::string::npos);
}

// Thermal residual stresses of a (0/90) T300/5208 laminate cooled by 100 K under
// Nx = 30, Mx = 0.5: stresses and the RF of the mechanical loads with the thermal
// stresses held, against an independent double-precision lamination-theory
// computation (RF by bisection on the criterion).
TEST(LaminateStressed, ThermalResidualStresses) {
  const LAMINATESTRESSED lam(t300_5208(), Angles{0, 90});
  const std::int32_t criteria[] = {5, 4, 11};
  const StrengthPlan plan = lam.strength_plan(criteria);
  const struct {
    std::size_t surface;  // ply by ply, bottom, middle, top
    float s1, s2, tsai_wu, tsai_hill, max_strain;
  } expected[] = {
      {0, -253.648f, 4.42344f, 6.70139f, 4.95297f, 4.95294f},
      {2, 576.197f, 26.025f, 1.62633f, 1.55561f, 2.4047f},
      {3, -95.7689f, 54.0029f, 0.601776f, 0.62481f, 0.588309f},
      {5, 65.3204f, 103.449f, 0.326411f, 0.320551f, 0.331563f},
  };
  LaminateState state;
  ASSERT_TRUE(plan.state({30, 0, 0, 0.5f, 0, 0, -100}, state).ok());
  std::vector<float> ply_rf(3 * 6);
  ASSERT_TRUE(plan.evaluate(Loads{30, 0, 0, 0.5f, 0, 0, -100}, {.ply_rf = ply_rf}).ok());
  for (const auto& e : expected) {
    const PlyStress& s = state.surfaces[e.surface].stress;
    EXPECT_NEAR(s[0], e.s1, 1e-4f * std::fabs(e.s1));
    EXPECT_NEAR(s[1], e.s2, 1e-4f * std::fabs(e.s2));
    const float rf[] = {e.tsai_wu, e.tsai_hill, e.max_strain};
    for (std::size_t j = 0; j < 3; ++j) {
      EXPECT_NEAR(ply_rf[j * 6 + e.surface], rf[j], 1e-4f * rf[j]) << e.surface;
    }
  }
}

LAMINA glass() {
  LAMINA m = new_lamina(0.2f, 38600, 8270, 4140, 0.26f, 1062, 610, "glass");
  m.set_strengths(1062, 610, 72, 31, 118);
  m.CTE1 = 8.6e-6f;
  m.CTE2 = 22.1e-6f;
  return m;
}

// Many load cases in one call give the bits of one case at a time and of the
// detailed state; the first-ply failure is the least RF of the ply table.
TEST(LaminateStressed, ManyLoadCasesAtOnce) {
  // 18 plies: more than one block of plies in evaluate().
  Angles angles;
  std::vector<std::int32_t> materials;
  for (int i = 0; i < 3; ++i) {
    angles.insert(angles.end(), {0, 45, -45, 90, 0, 45});
    materials.insert(materials.end(), {1, 2, 2, 1, 1, 2});
  }
  const LAMINATESTRESSED lam(t300_5208(), glass(), angles, materials);
  const std::int32_t criteria[] = {5, 9, 31};
  const StrengthPlan plan = lam.strength_plan(criteria);
  const Loads loads = {-500, 100, 30, 0, 0, 0, 0, 200, -50, 80, 1, -2, 0.5f, -120,
                       0,    0,   0,  0, 0, 0, 0, -80, 0,   0,  0, 5,  0,    60};
  const std::size_t n = 4, slots = n * 3, surfaces = 18 * 3;
  std::vector<float> rf(slots), ply_rf(slots * surfaces), stress(n * surfaces * 3);
  std::vector<std::int32_t> ply(slots), surface(slots), mode(slots);
  ASSERT_TRUE(plan.evaluate(loads, {rf, ply, surface, mode, ply_rf, stress, {}}).ok());
  for (std::size_t c = 0; c < n; ++c) {
    std::vector<float> one(3 * surfaces);
    const std::span<const float> row(loads.data() + 7 * c, 7);
    ASSERT_TRUE(plan.evaluate(row, {.ply_rf = one}).ok());
    EXPECT_TRUE(std::equal(one.begin(), one.end(), ply_rf.begin() + c * 3 * surfaces));
    LaminateState state;
    ASSERT_TRUE(
        plan.state({row[0], row[1], row[2], row[3], row[4], row[5], row[6]}, state).ok());
    for (std::size_t i = 0; i < surfaces * 3; ++i) {
      EXPECT_EQ(state.surfaces[i / 3].stress[i % 3], stress[c * surfaces * 3 + i]);
    }
    for (std::size_t j = 0; j < 3; ++j) {
      const auto table = one.begin() + static_cast<std::ptrdiff_t>(j * surfaces);
      const auto least = std::min_element(table, table + surfaces);
      EXPECT_EQ(rf[c * 3 + j], *least);
      EXPECT_EQ((ply[c * 3 + j] - 1) * 3 + surface[c * 3 + j] - 1, least - table);
    }
  }
  EXPECT_EQ(rf[6], kNoFailureRF);  // no load
}

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
  // (s, r); the fifth row's s2 changes sign on the way, the seventh's (s2, s12)
  // passes through zero stress.
  const float paths[][6] = {{300, 20, 30, 0, 0, 0},     {-400, -60, 20, 0, 0, 0},
                            {0, -50, 60, 0, 0, 0},      {0, -200, 10, 0, 0, 0},
                            {100, -30, 40, -20, 15, 0}, {-200, 50, -10, 30, -20, 5},
                            {5, -80, 0, 0, 10, 0},      {-900, 2, 1, 700, 1, 0}};
  for (std::int32_t code : kEvaluatedCriteria) {
    const PlyCriterion c = prepared(code, carbon());
    for (const auto& p : paths) {
      const PlyStress s = {p[0], p[1], p[2]}, r = {p[3], p[4], p[5]};
      const float rf = c.reserve_factor(s, r).rf;
      ASSERT_GT(rf, 0.0f) << code;
      ASSERT_LT(rf, kNoFailureRF) << code;
      const PlyStress x = {r[0] + rf * s[0], r[1] + rf * s[1], r[2] + rf * s[2]};
      EXPECT_NEAR(c.value(x).value, 1.0f, 2e-6f) << code << " at RF " << rf;
    }
  }
}

TEST(PlyCriteria, Refusals) {
  using enum StrengthError;
  LAMINA weak = carbon();
  weak.F2c = 0.0f;
  const struct {
    std::int32_t code;
    const LAMINA& m;
    StrengthOptions options;
    StrengthError error;
    const char* message;
  } cases[] = {
      {9, weak, {}, strength_missing, "Error! F2c missing (material 1, criterion PUCK)."},
      {7, weak, {}, none, ""},  // needs no F2c
      {8,
       carbon(),
       {},
       criterion_not_available,
       "Error! Criterion AOSL not available: no published definition."},
      {12, carbon(), {}, criterion_not_available, nullptr},
      {32, carbon(), {}, criterion_not_available, nullptr},
      {0, carbon(), {}, unknown_criterion, "Error! Unknown failure criterion (code 0)."},
      {5, carbon(), {-1.0f, {}}, bad_option, "Error! Option F12* out of range."},
      {9, carbon(), {-0.5f, {0.3f, 1.0f}}, bad_option, nullptr},
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
