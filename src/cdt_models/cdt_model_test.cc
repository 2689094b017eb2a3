#include "cdt_models/cdt_model.h"

#include <cmath>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

// The damage-model forms and their dispatch by hand; the reading of a model line
// is held by the entry-point digest and refusal table (tests/support/).
namespace corvane {
namespace {

CDTMODEL Form(int form) {
  CDTMODEL m;
  m.model = form;
  m.scale = 1.25f;  // F = 1.25 * 0.83
  m.a0 = 2.0f, m.a1 = 300.0f, m.b0 = 40.0f, m.b1 = 50.0f, m.c0 = 0.5f, m.c1 = 1.5f;
  m.k0 = 250.0f, m.k1 = 0.2f, m.k2 = 80.0f, m.k3 = 0.5f;
  return m;
}

// By hand, in double, for damage 30, thickness 2 and p3, p4 = 2, 8.
TEST(CdtModel, FormsByHand) {
  const struct {
    float actual;
    double expected;
  } cases[] = {
      {Form(3).allowable(30, 2, 2, 8), 319.85771585},
      {Form(4).allowable(30, 2, 2, 8), 223.87438529},
      {Form(6).allowable(30, 2, 2, 8), 171.99938529},
      {Form(9).allowable_t04_t06(0, 2, 2, 8), 1.25 * 0.83 * 250},  // neither 4 nor 6
      {Form(4).allowable_by_ratio(30, 2, 1.5f), 175.25411097},     // ratio 3/g = 2
      {Form(3).simple_allowable(0.01f, 2), 157.38773611},
      {Form(3).simple_allowable(0, 2), 0},
  };
  for (const auto& c : cases) EXPECT_NEAR(c.actual, c.expected, 2e-6 * c.expected);
  for (int form : {5, 0, 7}) EXPECT_EQ(Form(form).allowable(30, 2, 2, 8), 0.0f) << form;
  // A zero thickness propagates without trapping.
  EXPECT_TRUE(std::isnan(Form(3).allowable_t03(0, 2, 0, 0)));
  EXPECT_TRUE(std::isinf(Form(4).allowable_t04_t06(0, 2, 0, 8)));
}

// A text short of a coefficient, blank, or of an unknown model leaves it invalid.
TEST(ReadCdtModel, RefusedTextsLeaveTheModelInvalid) {
  const std::pair<const char*, int> cases[] = {
      {"CDTM-T05 80 0.5 250 0.2", kCdtMissingToken},
      {"", kCdtMissingToken},
      {"CDTM-T05X 80 0.5 250 0.2 1", 0}};
  for (const auto& [text, returned] : cases) {
    CDTMODEL m;
    EXPECT_EQ(read_cdt_model_text(text, 1.0f, m), returned) << text;
    EXPECT_EQ(m.status, -1) << text;
  }
}

}  // namespace
}  // namespace corvane
