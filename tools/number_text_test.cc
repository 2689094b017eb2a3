#include "number_text.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace corvane::cli {
namespace {

// The number grammar is the core's, and the command's text and JSON show the
// reals it prints; here the rest: its words for a refused text, the six terms
// of a symmetric matrix, zero for people and the shortest form for JSON.
TEST(NumberText, WhatTheCommandAddsToTheCoresNumbers) {
  float value = -7.0f;
  EXPECT_EQ(parse_real("x1", value), "\"x1\" is not a number");
  EXPECT_EQ(parse_real("-1e40", value), "\"-1e40\" is out of the range of a 32-bit real");
  EXPECT_EQ(parse_real(" ", value), "an empty text is not a number");
  EXPECT_EQ(value, -7.0f) << "a refused text leaves the value alone";
  std::array<float, 9> m{};
  ASSERT_EQ(parse_symmetric_matrix("11,12,13,22,23,33", m), "");
  EXPECT_EQ(m, (std::array<float, 9>{11, 12, 13, 12, 22, 23, 13, 23, 33}));
  const std::string six = "expected six numbers X11,X12,X16,X22,X26,X66, got ";
  EXPECT_EQ(parse_symmetric_matrix("1,2,3,4,5", m), six + "5");
  EXPECT_EQ(parse_symmetric_matrix("1,2,3,4,5,6,7", m), six + "more");
  EXPECT_EQ(parse_symmetric_matrix("1,2,x,4,5,6", m), "term 3: \"x\" is not a number");
  EXPECT_EQ(format_general(-0.0f), "0");
  EXPECT_EQ(nlohmann::json(json_real(0.3f)).dump(), "0.3");
  EXPECT_EQ(nlohmann::json(json_real(-0.0f)).dump(), "0.0");
}

}  // namespace
}  // namespace corvane::cli
