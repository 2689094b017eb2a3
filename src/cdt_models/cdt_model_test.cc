#include "cdt_models/cdt_model.h"

#include <cmath>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace corvane {
namespace {

constexpr double kRel = 2.0e-6;

void ExpectNear(double expected, float actual) {
  EXPECT_NEAR(actual, expected, kRel * std::abs(expected) + 1.0e-30);
}

CDTMODEL Form(int form) {
  CDTMODEL m;
  m.model = form;
  m.scale = 1.25f;  // F = 1.25 * 0.83
  m.a0 = 2.0f, m.a1 = 300.0f, m.b0 = 40.0f, m.b1 = 50.0f, m.c0 = 0.5f, m.c1 = 1.5f;
  m.k0 = 250.0f, m.k1 = 0.2f, m.k2 = 80.0f, m.k3 = 0.5f;
  return m;
}

constexpr double kF = 1.25 * 0.83;

TEST(CdtModel, ZeroDamageGivesTheUndamagedTerms) {
  // p3 = 2, p4 = 8: r = 4 for form 3, r = 0.25 for forms 4 to 6.
  ExpectNear(kF * ((2.0 * 4 + 300) + (40.0 * 4 + 50)), Form(3).allowable_t03(0, 2, 2, 8));
  ExpectNear(kF * (80.0 / std::pow(0.25, 0.5) + 250),
             Form(4).allowable_t04_t06(0, 2, 2, 8));
  ExpectNear(kF * 250, Form(5).allowable_t04_t06(0, 2, 2, 8));
  ExpectNear(kF * ((1 - (0.25 - 1) * 0.5) * 80 + 250),
             Form(6).allowable_t04_t06(0, 2, 2, 8));
  ExpectNear(kF * 250, Form(9).allowable_t04_t06(0, 2, 2, 8));
  EXPECT_EQ(Form(3).simple_allowable(0, 2), 0.0f);
}

TEST(CdtModel, DecayWithDamage) {
  const double p1 = 30, p2 = 2, p3 = 2, p4 = 8;
  const double r3 = p4 / p3;
  ExpectNear(kF * ((2 * r3 + 300) + (40 * r3 + 50) * std::exp(-(0.5 * r3 + 1.5) * p1 /
                                                              (p2 * p2 * p2 * p3))),
             Form(3).allowable_t03(p1, p2, p3, p4));
  const double r = p3 / p4;
  ExpectNear(kF * (80 / std::sqrt(r) + 250 * std::exp(-0.2 * p1 / (p2 * p2))),
             Form(4).allowable_t04_t06(p1, p2, p3, p4));
  // g = 1.5: ratio 2.
  ExpectNear(kF * (80 * std::sqrt(2.0) + 250 * std::exp(-0.2 * p1 / (p2 * p2))),
             Form(4).allowable_by_ratio(p1, p2, 1.5f));
  ExpectNear(p2 * p2 * 100 * (1 - std::exp(-100 * 0.01 / p2)),
             Form(3).simple_allowable(0.01f, 2));
}

TEST(CdtModel, DispatchByForm) {
  const float p[] = {30, 2, 2, 8};
  EXPECT_EQ(Form(3).allowable(p[0], p[1], p[2], p[3]),
            Form(3).allowable_t03(p[0], p[1], p[2], p[3]));
  for (int form : {4, 6}) {
    EXPECT_EQ(Form(form).allowable(p[0], p[1], p[2], p[3]),
              Form(form).allowable_t04_t06(p[0], p[1], p[2], p[3]));
  }
  for (int form : {5, 0, 7}) {
    EXPECT_EQ(Form(form).allowable(p[0], p[1], p[2], p[3]), 0.0f) << form;
  }
}

TEST(CdtModel, ZeroThicknessPropagatesWithoutTrapping) {
  EXPECT_TRUE(std::isnan(Form(3).allowable_t03(0, 2, 0, 0)));
  EXPECT_TRUE(std::isinf(Form(4).allowable_t04_t06(0, 2, 0, 8)));
}

using Tokens = std::vector<std::string_view>;

TEST(ReadCdtModel, FormsFourToSixScaleTheirForceCoefficients) {
  const Tokens line = {"CDTM-T06", "x",   "x",   "x",   "x",   "x",  "x",
                       "80",       "0.5", "250", "0.2", "1.1", "0.9"};
  CDTMODEL m;
  ASSERT_EQ(read_cdt_model(line, 2.0f, true, 3.0f, m), 0);
  EXPECT_EQ(m.status, 0);
  EXPECT_EQ(m.model, 6);
  EXPECT_EQ(m.name, "CDTM-T06");
  EXPECT_FLOAT_EQ(m.k2, 160.0f);
  EXPECT_FLOAT_EQ(m.k3, 0.5f);
  EXPECT_FLOAT_EQ(m.k0, 500.0f);
  EXPECT_FLOAT_EQ(m.k1, 0.2f);
  EXPECT_FLOAT_EQ(m.scale, 1.1f);
  EXPECT_FLOAT_EQ(m.factor, 0.9f);
  EXPECT_FLOAT_EQ(m.d[4], 6.0f);
  EXPECT_FLOAT_EQ(m.d[0], 35.0f);
}

TEST(ReadCdtModel, FormThreeAndTheFactorOverride) {
  const Tokens line = {"cdtm-t03", "x", "x", "x", "x", "x",   "x",  "1",
                       "2",        "3", "4", "5", "6", "1.2", "0.7"};
  CDTMODEL m;
  ASSERT_EQ(read_cdt_model(line, 10.0f, false, 1.0f, m), 0);
  EXPECT_EQ(m.model, 3);
  const float scaled[] = {m.a0, m.a1, m.b0, m.b1};
  for (int i = 0; i < 4; ++i) EXPECT_FLOAT_EQ(scaled[i], 10.0f * (i + 1));
  EXPECT_FLOAT_EQ(m.c0, 5.0f);
  EXPECT_FLOAT_EQ(m.c1, 6.0f);
  EXPECT_FLOAT_EQ(m.scale, 1.2f);
  EXPECT_FLOAT_EQ(m.factor, 0.83f);  // override not allowed

  ASSERT_EQ(read_cdt_model(line, 10.0f, true, 1.0f, m), 0);
  EXPECT_FLOAT_EQ(m.factor, 0.7f);
  // Without the fifteenth token the default stays, override or not.
  ASSERT_EQ(read_cdt_model(Tokens(line.begin(), line.end() - 1), 10.0f, true, 1.0f, m),
            0);
  EXPECT_FLOAT_EQ(m.factor, 0.83f);
}

TEST(ReadCdtModel, RefusedLines) {
  const Tokens misspelt = {"CDTM-T05X", "x",  "x",   "x",   "x",   "x",
                           "x",         "80", "0.5", "250", "0.2", "1.1"};
  CDTMODEL m;
  EXPECT_EQ(read_cdt_model(misspelt, 1.0f, true, 1.0f, m), 0);
  EXPECT_EQ(m.status, -1);
  EXPECT_EQ(m.k2, 0.0f);  // nothing else read

  Tokens short_line = misspelt;
  short_line[0] = "CDTM-T05";
  short_line.pop_back();
  EXPECT_EQ(read_cdt_model(short_line, 1.0f, true, 1.0f, m), kCdtMissingToken);
  EXPECT_EQ(m.status, -1);

  Tokens bad_number = misspelt;
  bad_number[0] = "CDTM-T05";
  bad_number[9] = "25O";
  EXPECT_NE(read_cdt_model(bad_number, 1.0f, true, 1.0f, m), 0);
  EXPECT_EQ(m.status, -1);

  EXPECT_EQ(read_cdt_model({}, 1.0f, true, 1.0f, m), kCdtMissingToken);
  EXPECT_EQ(m.status, -1);
}

TEST(ReadCdtModel, FifthCoefficientOnlyWhenPositive) {
  const Tokens name_only = {"CDTM-T09"};
  CDTMODEL m;
  read_cdt_model(name_only, 2.0f, false, -4.0f, m);
  EXPECT_EQ(m.d[4], 0.0f);
  read_cdt_model(name_only, 2.0f, false, 4.0f, m);
  EXPECT_EQ(m.d[4], 8.0f);
}

}  // namespace
}  // namespace corvane
