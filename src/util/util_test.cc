#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "util/fixed_width.h"
#include "util/keywords.h"
#include "util/matrix3.h"
#include "util/number_reading.h"
#include "util/numerics.h"

namespace corvane {
namespace {

TEST(Matrix3, IsStoredColumnByColumn) {
  Matrix3 m;
  m(2, 1) = 21.0f;
  m(1, 2) = 12.0f;
  m(3, 3) = 33.0f;
  EXPECT_EQ(m.v[1], 21.0f);
  EXPECT_EQ(m.v[3], 12.0f);
  EXPECT_EQ(m.v[8], 33.0f);
}

TEST(Numerics, ConversionsToInt32) {
  EXPECT_EQ(nint(2.5f), 3);
  EXPECT_EQ(nint(-2.5f), -3);
  EXPECT_EQ(nint(-0.4f), 0);
  EXPECT_EQ(to_int32(-7.9f), -7);
  EXPECT_EQ(to_int32(std::numeric_limits<float>::quiet_NaN()), INT32_MIN);
  EXPECT_EQ(to_int32(3.0e9f), INT32_MIN);
  EXPECT_EQ(to_int32(-3.0e9f), INT32_MIN);
  EXPECT_EQ(to_int32(std::numeric_limits<float>::infinity()), INT32_MIN);
  EXPECT_EQ(to_int32(-2147483648.0f), INT32_MIN);
  EXPECT_EQ(to_int32(2147483520.0f), 2147483520);
}

// The hosts' MIN and MAX let a NaN through on one side only; fmin and fmax
// never let it hide a number. Rewriting one as the other changes results.
TEST(Numerics, MinAndMaxAsTheHostsEvaluateThem) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(floor_at(nan, 1.0f), 1.0f);
  EXPECT_TRUE(std::isnan(floor_at(2.0f, nan)));
  EXPECT_FALSE(std::signbit(floor_at(-0.0f, 0.0f)));
  EXPECT_EQ(min_of(nan, 1.0f), 1.0f);
  EXPECT_TRUE(std::isnan(min_of(1.0f, nan)));
  EXPECT_EQ(smallest_number({nan, 3.0f, -2.0f, nan}), -2.0f);
  EXPECT_TRUE(std::isnan(smallest_number({nan})));
  EXPECT_EQ(larger_number(nan, -1.0f), -1.0f);
  EXPECT_TRUE(any_not_positive({1.0f, nan, -0.0f}));
  EXPECT_FALSE(any_not_positive({1.0f, nan}));
  EXPECT_EQ(radians(180.0f), kPi);
}

struct RealCase {
  const char* text;
  int status;
  float value;
};

class ReadReal : public ::testing::TestWithParam<RealCase> {};

TEST_P(ReadReal, ReadsOneDecimalNumberOrRefuses) {
  const RealCase& c = GetParam();
  float value = -999.0f;
  EXPECT_EQ(read_real(c.text, value), c.status) << c.text;
  if (c.status == kReadOk) {
    EXPECT_EQ(value, c.value) << c.text;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Tokens, ReadReal,
    ::testing::Values(
        RealCase{"45", 0, 45.0f}, RealCase{"45.", 0, 45.0f}, RealCase{".5", 0, 0.5f},
        RealCase{"-22.5", 0, -22.5f}, RealCase{"  +90  ", 0, 90.0f},
        RealCase{"1E3", 0, 1000.0f}, RealCase{"1.5d-2", 0, 0.015f},
        RealCase{"2e+1", 0, 20.0f}, RealCase{"0.1", 0, 0.1f}, RealCase{"-0", 0, -0.0f},
        RealCase{"", kReadBadSyntax, 0}, RealCase{"   ", kReadBadSyntax, 0},
        RealCase{".", kReadBadSyntax, 0}, RealCase{"-", kReadBadSyntax, 0},
        RealCase{"abc", kReadBadSyntax, 0}, RealCase{"4 5", kReadBadSyntax, 0},
        RealCase{"4,5", kReadBadSyntax, 0}, RealCase{"0x10", kReadBadSyntax, 0},
        RealCase{"inf", kReadBadSyntax, 0}, RealCase{"nan", kReadBadSyntax, 0},
        RealCase{"1e", kReadBadSyntax, 0}, RealCase{"1e+", kReadBadSyntax, 0},
        RealCase{"--1", kReadBadSyntax, 0}, RealCase{"1.2.3", kReadBadSyntax, 0},
        RealCase{"1e39", kReadOutOfRange, 0}, RealCase{"1e-60", kReadOutOfRange, 0}));

TEST(ReadInteger, AcceptsOnlySignedDigitsThatFit) {
  std::int32_t v = 0;
  EXPECT_EQ(read_integer("2", v), kReadOk);
  EXPECT_EQ(v, 2);
  EXPECT_EQ(read_integer(" -12 ", v), kReadOk);
  EXPECT_EQ(v, -12);
  EXPECT_EQ(read_integer("101     ", v), kReadOk);
  EXPECT_EQ(v, 101);
  EXPECT_EQ(read_integer("-2147483648", v), kReadOk);
  EXPECT_EQ(v, INT32_MIN);
  EXPECT_EQ(read_integer("2147483648", v), kReadOutOfRange);
  EXPECT_EQ(read_integer("99999999999999999999", v), kReadOutOfRange);
  for (const char* bad : {"", " ", "+", "2S", "1.0", "1e3", "0x1", "1 2"}) {
    EXPECT_EQ(read_integer(bad, v), kReadBadSyntax) << bad;
  }
}

struct FieldCase {
  std::string (*format)(float, int, int);
  float x;
  int w;
  int d;
  const char* text;
};

class Format : public ::testing::TestWithParam<FieldCase> {};

TEST_P(Format, MatchesTheFieldLayout) {
  const FieldCase& c = GetParam();
  EXPECT_EQ(c.format(c.x, c.w, c.d), c.text);
}

const float kNaN = std::numeric_limits<float>::quiet_NaN();
const float kInf = std::numeric_limits<float>::infinity();

INSTANTIATE_TEST_SUITE_P(
    Fields, Format,
    ::testing::Values(FieldCase{format_fixed, 0.125f, 8, 2, "    0.12"},
                      FieldCase{format_fixed, 0.03125f, 8, 4, "  0.0312"},
                      FieldCase{format_fixed, -0.5f, 5, 3, "-.500"},
                      FieldCase{format_fixed, 0.5f, 4, 3, ".500"},
                      FieldCase{format_fixed, 12345.0f, 4, 1, "****"},
                      FieldCase{format_fixed, 1234.56f, 8, 1, "  1234.6"},
                      FieldCase{format_fixed, kNaN, 8, 2, "     NaN"},
                      FieldCase{format_fixed, -kInf, 8, 2, "    -Inf"},
                      FieldCase{format_exponent, 2.5e6f, 8, 1, " 2.5E+06"},
                      FieldCase{format_exponent, 0.005f, 8, 1, " 5.0E-03"},
                      FieldCase{format_exponent, -3.0e-20f, 8, 1, "-3.0E-20"},
                      FieldCase{format_exponent, -3.0e-20f, 7, 1, "*******"}));

TEST(Format, Integers) {
  EXPECT_EQ(format_integer(2001, 7), "   2001");
  EXPECT_EQ(format_integer(-999999, 7), "-999999");
  EXPECT_EQ(format_integer(-1000000, 7), "*******");
}

TEST(Text, MovesAndTrims) {
  EXPECT_EQ(move_left("  ab "), "ab   ");
  EXPECT_EQ(move_right("ab   "), "   ab");
  EXPECT_EQ(move_left("   "), "   ");
  EXPECT_EQ(trim_trailing("ab  "), "ab");
  EXPECT_EQ(trim_trailing("   "), "");
  EXPECT_EQ(pad_or_cut("abc", 5), "abc  ");
  EXPECT_EQ(pad_or_cut("abcdef", 4), "abcd");
}

TEST(Keywords, NormaliseAsciiOnly) {
  EXPECT_EQ(normalize_keyword("  tsai_wu  "), "TSAI_WU");
  EXPECT_EQ(normalize_keyword("Cte1"), "CTE1");
  EXPECT_EQ(normalize_keyword("   "), "");
  EXPECT_EQ(normalize_keyword("\xe9t\xe9"), "\xe9T\xe9");
}

}  // namespace
}  // namespace corvane
