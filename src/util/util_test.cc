#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "util/are_almost_equal.h"
#include "util/fixed_width.h"
#include "util/keywords.h"
#include "util/lexical_sort.h"
#include "util/number_reading.h"
#include "util/numerics.h"

namespace corvane {
namespace {

const float kNaN = std::numeric_limits<float>::quiet_NaN();

// The hosts' MIN and MAX let a NaN through on one side only; fmin and fmax
// never let it hide a number. Rewriting one as the other changes results.
TEST(Numerics, MinAndMaxAsTheHostsEvaluateThem) {
  EXPECT_EQ(floor_at(kNaN, 1.0f), 1.0f);
  EXPECT_TRUE(std::isnan(floor_at(2.0f, kNaN)));
  EXPECT_FALSE(std::signbit(floor_at(-0.0f, 0.0f)));
  EXPECT_EQ(min_of(kNaN, 1.0f), 1.0f);
  EXPECT_TRUE(std::isnan(min_of(1.0f, kNaN)));
  EXPECT_EQ(smallest_number({kNaN, 3.0f, -2.0f, kNaN}), -2.0f);
  EXPECT_TRUE(std::isnan(smallest_number({kNaN})));
  EXPECT_EQ(larger_number(kNaN, -1.0f), -1.0f);
  EXPECT_TRUE(any_not_positive({1.0f, kNaN, -0.0f}));
  EXPECT_FALSE(any_not_positive({1.0f, kNaN}));
  EXPECT_EQ(radians(180.0f), kPi);
}

TEST(ReadReal, ReadsOneDecimalNumberOrRefuses) {
  const struct {
    const char* text;
    float value;
  } numbers[] = {{"45", 45},      {"45.", 45},   {".5", 0.5f},       {"-22.5", -22.5f},
                 {"  +90  ", 90}, {"1E3", 1000}, {"1.5d-2", 0.015f}, {"2e+1", 20},
                 {"0.1", 0.1f},   {"-0", -0.0f}};
  for (const auto& [text, expected] : numbers) {
    float value = -999.0f;
    EXPECT_EQ(read_real(text, value), kReadOk) << text;
    EXPECT_EQ(value, expected) << text;
  }
  for (const char* text : {"", "   ", ".", "-", "abc", "4 5", "4,5", "0x10", "inf", "nan",
                           "1e", "1e+", "--1", "1.2.3"}) {
    float value = 0.0f;
    EXPECT_EQ(read_real(text, value), kReadBadSyntax) << text;
  }
  for (const char* text : {"1e39", "1e-60"}) {
    float value = 0.0f;
    EXPECT_EQ(read_real(text, value), kReadOutOfRange) << text;
  }
}

TEST(ReadInteger, AcceptsOnlySignedDigitsThatFit) {
  std::int32_t v = 0;
  for (const auto& [text, expected] : {std::pair{"2", 2},
                                       {" -12 ", -12},
                                       {"101     ", 101},
                                       {"-2147483648", INT32_MIN}}) {
    EXPECT_EQ(read_integer(text, v), kReadOk) << text;
    EXPECT_EQ(v, expected);
  }
  EXPECT_EQ(read_integer("2147483648", v), kReadOutOfRange);
  EXPECT_EQ(read_integer("99999999999999999999", v), kReadOutOfRange);
  for (const char* bad : {"", " ", "+", "2S", "1.0", "1e3", "0x1", "1 2"}) {
    EXPECT_EQ(read_integer(bad, v), kReadBadSyntax) << bad;
  }
}

TEST(Text, MovesTrimsAndKeywords) {
  EXPECT_EQ(move_left("  ab "), "ab   ");
  EXPECT_EQ(move_right("ab   "), "   ab");
  EXPECT_EQ(move_left("   "), "   ");
  EXPECT_EQ(trim_trailing("ab  "), "ab");
  EXPECT_EQ(trim_trailing("   "), "");
  EXPECT_EQ(pad_or_cut("abc", 5), "abc  ");
  EXPECT_EQ(pad_or_cut("abcdef", 4), "abcd");
  EXPECT_EQ(normalize_keyword("  tsai_wu  "), "TSAI_WU");
  EXPECT_EQ(normalize_keyword("Cte1"), "CTE1");
  EXPECT_EQ(normalize_keyword("   "), "");
  EXPECT_EQ(normalize_keyword("\xe9t\xe9"), "\xe9T\xe9");  // ASCII only
}

TEST(AreAlmostEqual, ComparesSignificantDigits) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float inf = std::numeric_limits<float>::infinity();
  // 1234.5 and 1234.9 both round to 1235, 1235.6 does not. Scaled to the larger
  // exponent with one more digit: 999 against 1000, but 999.9 rounds to 1000, in
  // either order. Exponents two or more apart never agree. Opposite signs differ
  // unless both round to zero (only with d below 1, which also prints the range
  // message); d = 7 prints it and still compares. Non-finite values agree only
  // with non-finite values.
  const struct {
    float a, b;
    int d;
    bool equal;
  } cases[] = {{1.2345f, 1.2349f, 4, true},
               {1.2345f, 1.2356f, 4, false},
               {9.99f, 10.0f, 3, false},
               {10.0f, 9.99f, 3, false},
               {9.999f, 10.0f, 3, true},
               {99.0f, 100.0f, 1, true},
               {1.0f, 100.0f, 1, false},
               {0.0f, 1.0e-5f, 3, false},
               {0.0f, -0.0f, 6, true},
               {123456.0f, 123457.0f, 5, true},
               {123456.0f, 123457.0f, 6, false},
               {1.0e-5f, 1.00004e-5f, 5, true},
               {1.0e-5f, 1.00004e-5f, 6, false},
               {3.0e38f, 1.0e38f, 1, false},
               {1.5f, -1.5f, 2, false},
               {2.0f, -2.0f, 0, true},
               {1.234567f, 1.234568f, 7, false},
               {1.234567f, 1.234568f, 6, true},
               {nan, nan, 3, true},
               {nan, 1.0f, 3, false},
               {inf, 3.0e38f, 3, false}};
  for (const auto& c : cases) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(are_almost_equal(c.a, c.b, c.d), c.equal)
        << c.a << " " << c.b << " " << c.d;
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              c.d >= 1 && c.d <= 6
                  ? ""
                  : "Error! are_almost_equal : d<1 or d>6 are not allowed!\n");
  }
}

using Index = std::vector<std::int32_t>;

// Against an order built independently of the sorter: texts padded with blanks to a
// common length ('\t' sorts before the padding, '!' after), folded to upper case
// when case-blind, compared as unsigned bytes.
TEST(LexicalSort, ManyKeysComeOutAscendingAsAPermutation) {
  std::vector<std::string> keys;
  std::uint32_t state = 12345u;
  const std::string alphabet = "aAbBzZ_ 09~\t!";
  for (int i = 0; i < 300; ++i) {
    std::string key;
    state = state * 1664525u + 1013904223u;
    const std::uint32_t length = (state >> 24) % 5;
    for (std::uint32_t k = 0; k < length; ++k) {
      state = state * 1664525u + 1013904223u;
      key += alphabet[(state >> 16) % alphabet.size()];
    }
    keys.push_back(key);
  }
  for (const bool case_sensitive : {true, false}) {
    LexicalSort sorter{keys, case_sensitive, {}};
    sorter.sort();
    const Index first = sorter.index;
    sorter.sort();  // sorting again starts afresh from 1..n
    EXPECT_EQ(sorter.index, first);
    Index seen = first, all(keys.size());
    std::sort(seen.begin(), seen.end());
    std::iota(all.begin(), all.end(), 1);
    ASSERT_EQ(seen, all);
    for (std::size_t i = 1; i < first.size(); ++i) {
      std::string x = keys[first[i - 1] - 1], y = keys[first[i] - 1];
      const std::size_t length = std::max(x.size(), y.size());
      x.resize(length, ' ');
      y.resize(length, ' ');
      for (std::string* s : {&x, &y}) {
        for (char& c : *s) {
          if (!case_sensitive && c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
        }
      }
      EXPECT_LE(x.compare(y), 0) << '"' << x << "\" before \"" << y << '"';
    }
  }
}

}  // namespace
}  // namespace corvane
