#include "cdt_models/cdt_model.h"

#include <cmath>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

// The four damage-model forms are checked by hand through the impact strength
// (laminates_stressed/notched_strength_test.cc); here, what only this layer has:
// the dispatch, the two short forms and the reading of a model line.
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

using Tokens = std::vector<std::string_view>;

TEST(ReadCdtModel, CoefficientsWithUnitsAreScaled) {
  const Tokens t06 = {"CDTM-T06", "x",   "x",   "x",   "x",   "x",  "x",
                      "80",       "0.5", "250", "0.2", "1.1", "0.9"};
  CDTMODEL m;
  ASSERT_EQ(read_cdt_model(t06, 2.0f, true, 3.0f, m), 0);
  EXPECT_EQ(m.status, 0);
  EXPECT_EQ(m.model, 6);
  EXPECT_EQ(m.name, "CDTM-T06");
  const float t06_read[] = {m.k2, m.k3, m.k0, m.k1, m.scale, m.factor, m.d[4], m.d[0]};
  const float t06_expected[] = {160, 0.5f, 500, 0.2f, 1.1f, 0.9f, 6, 35};
  for (int i = 0; i < 8; ++i) EXPECT_FLOAT_EQ(t06_read[i], t06_expected[i]) << i;

  const Tokens t03 = {"cdtm-t03", "x", "x", "x", "x", "x",   "x",  "1",
                      "2",        "3", "4", "5", "6", "1.2", "0.7"};
  ASSERT_EQ(read_cdt_model(t03, 10.0f, false, 1.0f, m), 0);
  EXPECT_EQ(m.model, 3);
  const float t03_read[] = {m.a0, m.a1, m.b0, m.b1, m.c0, m.c1, m.scale, m.factor};
  const float t03_expected[] = {10, 20, 30, 40, 5, 6, 1.2f, 0.83f};  // no override
  for (int i = 0; i < 8; ++i) EXPECT_FLOAT_EQ(t03_read[i], t03_expected[i]) << i;
  ASSERT_EQ(read_cdt_model(t03, 10.0f, true, 1.0f, m), 0);
  EXPECT_FLOAT_EQ(m.factor, 0.7f);
  // Without the fifteenth token the default stays, override or not.
  ASSERT_EQ(read_cdt_model(Tokens(t03.begin(), t03.end() - 1), 10.0f, true, 1.0f, m), 0);
  EXPECT_FLOAT_EQ(m.factor, 0.83f);
  // The fifth coefficient only when positive.
  read_cdt_model(Tokens{"CDTM-T09"}, 2.0f, false, -4.0f, m);
  EXPECT_EQ(m.d[4], 0.0f);
  read_cdt_model(Tokens{"CDTM-T09"}, 2.0f, false, 4.0f, m);
  EXPECT_EQ(m.d[4], 8.0f);
}

TEST(ReadCdtModel, RefusedLines) {
  const Tokens misspelt = {"CDTM-T05X", "x",  "x",   "x",   "x",   "x",
                           "x",         "80", "0.5", "250", "0.2", "1.1"};
  CDTMODEL m;
  EXPECT_EQ(read_cdt_model(misspelt, 1.0f, true, 1.0f, m), 0);
  EXPECT_EQ(m.status, -1);
  EXPECT_EQ(m.k2, 0.0f);  // nothing else read
  Tokens short_line = misspelt, bad_number = misspelt;
  short_line[0] = bad_number[0] = "CDTM-T05";
  short_line.pop_back();
  bad_number[9] = "25O";
  EXPECT_EQ(read_cdt_model(short_line, 1.0f, true, 1.0f, m), kCdtMissingToken);
  EXPECT_EQ(m.status, -1);
  EXPECT_NE(read_cdt_model(bad_number, 1.0f, true, 1.0f, m), 0);
  EXPECT_EQ(m.status, -1);
  EXPECT_EQ(read_cdt_model({}, 1.0f, true, 1.0f, m), kCdtMissingToken);
  EXPECT_EQ(m.status, -1);
}

}  // namespace
}  // namespace corvane
