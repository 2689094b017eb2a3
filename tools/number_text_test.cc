#include "number_text.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace corvane::cli {
namespace {

// The grammar itself is the core's; here only what the command adds to it.
TEST(ParseRealTest, ReadsAsTheLibraryAndNamesTheFault) {
  float value = -7.0f;
  EXPECT_EQ(parse_real(" 1.5D3 ", value), "");
  EXPECT_EQ(value, 1500.0f);
  EXPECT_EQ(parse_real("x1", value), "\"x1\" is not a number");
  EXPECT_EQ(parse_real("-1e40", value), "\"-1e40\" is out of the range of a 32-bit real");
  EXPECT_EQ(parse_real(" ", value), "an empty text is not a number");
  EXPECT_EQ(value, 1500.0f) << "a refused text must leave the value alone";
}

TEST(ParseSymmetricMatrixTest, FillsBothTrianglesInColumnOrder) {
  std::array<float, 9> m{};
  ASSERT_EQ(parse_symmetric_matrix("11,12,13,22,23,33", m), "");
  // Element (i,j) at (i-1) + 3(j-1).
  const std::array<float, 9> expected = {11, 12, 13, 12, 22, 23, 13, 23, 33};
  EXPECT_EQ(m, expected);
}

TEST(ParseSymmetricMatrixTest, RefusesWrongCountsAndBadTerms) {
  struct Case {
    const char* text;
    const char* why;
  };
  const Case cases[] = {
      {"1,2,3,4,5", "expected six numbers X11,X12,X16,X22,X26,X66, got 5"},
      {"1,2,3,4,5,6,7", "expected six numbers X11,X12,X16,X22,X26,X66, got more"},
      {"1,2,x,4,5,6", "term 3: \"x\" is not a number"},
      {"1,2,3,4,5,", "term 6: an empty text is not a number"},
      {"", "term 1: an empty text is not a number"},
  };
  for (const Case& c : cases) {
    std::array<float, 9> m{};
    EXPECT_EQ(parse_symmetric_matrix(c.text, m), c.why) << c.text;
  }
}

TEST(FormatGeneralTest, SixSignificantDigits) {
  EXPECT_EQ(format_general(58430.117f), "58430.1");
  EXPECT_EQ(format_general(-0.0f), "0");
  EXPECT_EQ(format_general(1.0e20f), "1e+20");
  EXPECT_EQ(format_general(-3.0e-7f), "-3e-07");
  EXPECT_EQ(format_general(0.125f), "0.125");
}

TEST(JsonRealTest, ShortestFormThatReadsBackExactly) {
  const float values[] = {0.3f,       -0.3e-6f, 28.0e-6f, 1.0f / 3.0f,
                          52345.679f, 1.0e20f,  1.0e-38f};
  for (const float v : values) {
    const std::string text = nlohmann::json(json_real(v)).dump();
    float back = 0.0f;
    ASSERT_EQ(parse_real(text, back), "") << text;
    EXPECT_EQ(back, v) << text;
  }
  EXPECT_EQ(nlohmann::json(json_real(0.3f)).dump(), "0.3");
  EXPECT_EQ(nlohmann::json(json_real(-0.0f)).dump(), "0.0");
}

}  // namespace
}  // namespace corvane::cli
