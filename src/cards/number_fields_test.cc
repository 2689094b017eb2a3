#include "cards/number_fields.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "cards/card_writer.h"
#include "support/test_support.h"
#include "util/fixed_width.h"

namespace corvane {
namespace {

using testing::kInf;
using testing::kNaN;

// Floats spread evenly over the bit patterns from lo up to hi, so over every
// binade alike, either sign.
std::vector<float> floats(float lo, float hi, int count) {
  std::mt19937 engine(12345);
  std::uniform_int_distribution<std::uint32_t> bits(std::bit_cast<std::uint32_t>(lo),
                                                    std::bit_cast<std::uint32_t>(hi) - 1);
  std::vector<float> values(static_cast<std::size_t>(count));
  for (float& x : values) {
    x = std::bit_cast<float>(bits(engine) | static_cast<std::uint32_t>(engine() % 2)
                                                << 31);
  }
  return values;
}

struct Text {
  float value;
  const char* text;
};

TEST(RealToField8, BandEdgesAndPrintfWithinTheBands) {
  // Each band from its lower edge, and the values that round up to the next band's
  // size: they keep the decimals of their own band, or turn into asterisks. An
  // exact tie rounds to even.
  const float tiny = std::nextafter(1.0e-20f, 1.0f);
  const Text edges[] = {
      {-1.0e-20f, "     0.0"}, {tiny, " 1.0E-20"},      {0.00999999f, " 1.0E-02"},
      {0.01f, "  0.0100"},     {-9.99995f, "-10.0000"}, {10.0f, "  10.000"},
      {99.9996f, " 100.000"},  {100.0f, "  100.00"},    {-999.996f, "-1000.00"},
      {1000.0f, "  1000.0"},   {9999.99f, " 10000.0"},  {1.0e4f, "  10000."},
      {-12345.5f, " -12346."}, {999999.9f, "1000000."}, {-999999.6f, "*******."},
      {1.0e6f, " 1.0E+06"},    {-9.96e6f, "-1.0E+07"},  {kNaN, "     NaN"},
      {-kInf, "    -Inf"},     {1.25e7f, " 1.2E+07"}};
  for (const auto& c : edges) EXPECT_EQ(real_to_field8(c.value), c.text) << c.value;
  // Short texts are formed without printf: random floats against printf's text,
  // for 1 to 8 decimals. (The results digest holds the fields of many decks.)
  for (int decimals = 1; decimals <= 8; ++decimals) {
    for (const float x : floats(1.0e-6f, 2.0e9f, 5000)) {
      const std::string printed = format_fixed(x, 60, decimals);
      ASSERT_EQ(real_to_text(x, decimals), printed.substr(printed.find_first_not_of(' ')))
          << std::hexfloat << x << " with " << decimals;
    }
  }
}

TEST(NumberFields, ShortTextsIntegersAndCardIds) {
  // Whole numbers for no decimals, halves away from zero and -2^31 beyond int32.
  // The 100-character buffer takes the leading zero first, then everything.
  EXPECT_EQ(real_to_text(-44.5f, 0) + real_to_text(2.5f, -3), "-453");
  EXPECT_EQ(real_to_text(1.0e20f, 0) + real_to_text(kNaN, 2), "-2147483648NaN");
  EXPECT_EQ(real_to_text(0.5f, 99), ".5" + std::string(98, '0'));
  EXPECT_EQ(real_to_text(1, 99), std::string(100, '*'));
  EXPECT_EQ(real_to_text(1, 1000000), std::string(100, '*'));
  const Text text6[] = {{1.0e5f, ">1E5"},      {-1.0e5f, "<-1E5"}, {99999.6f, "100000"},
                        {-99999.6f, "******"}, {1000.5f, "1001"},  {999.94f, "999.9"},
                        {-999.96f, "******"},  {-9.9e-5f, "0.0"},  {1.0e-4f, "0.0"}};
  for (const auto& c : text6) EXPECT_EQ(real_to_text6(c.value), c.text) << c.value;
  // Reserve factors are cut toward zero, never rounded up.
  const Text text5[] = {{-0.001f, " <0  "}, {-0.0f, "0.000"},   {9.9999f, "9.999"},
                        {10.0f, "10.00"},   {99.999f, "99.99"}, {100.0f, "100.0"},
                        {999.99f, "999.9"}, {1000.0f, ">1000"}, {kNaN, "  NaN"}};
  for (const auto& c : text5) EXPECT_EQ(reserve_factor_text5(c.value), c.text) << c.value;
  // A real read and rounded; the sentinel beyond int32 and, flagged, for what is
  // not a number.
  constexpr std::int32_t kInvalid = std::numeric_limits<std::int32_t>::min();
  for (const auto& [text, value] : {std::pair{" 45.5 ", 46},
                                    {"0.49999997", 0},
                                    {"3e9", kInvalid},
                                    {"abc", kInvalid}}) {
    std::int32_t flag = -7;
    EXPECT_EQ(text_to_integer(text, &flag), value) << text;
    EXPECT_EQ(text_to_integer(text), value) << text;
    EXPECT_EQ(flag, text[0] > '9' ? 1 : 0) << text;
  }
  // Card ids: whole numbers 1 .. 9999999 in the first 8 characters.
  for (const char* id : {"1", "9999999", " 101 ", "+5", "1001    x"}) {
    EXPECT_TRUE(is_valid_card_id(id)) << id;
  }
  for (const char* id : {"0", "-1", "10000000", "", "abc", "1.0", "1 2"}) {
    EXPECT_FALSE(is_valid_card_id(id)) << id;
  }
}

// The results digest pins whole decks bit for bit, continuation lines included.

TEST(CardWriter, FieldsTheBoundAndAWriterGoneBeforeItsEnd) {
  // The name moves left; data of up to 6 characters end in column 7, of 7 and 8 in
  // column 8 (leading blanks count); more are cut, a blank field stays blank.
  EXPECT_EQ(
      assemble_card(std::vector<std::string>{" MAT2", "  12345", "1.0", "123456789", ""}),
      "MAT2       12345    1.0 12345678        \r\n");
  // Full lines reach the bound: 9 fields, then 8 more per continuation line.
  for (std::size_t n = 1; n <= 41; ++n) {
    std::string card = "$";
    {
      CardWriter writer(card, n);
      for (std::size_t i = 0; i < n; ++i) writer.field("12345678");
      writer.end();
    }
    EXPECT_LE(card.size(), CardWriter::length_bound(n) + 1) << n;
    EXPECT_TRUE(n % 8 != 1 || n == 1 || card.size() == CardWriter::length_bound(n) + 1)
        << n;
  }
  // More fields than announced grow the text; a writer gone before its end leaves
  // its fields without a line end.
  std::string text = "$";
  {
    CardWriter card(text, 2);
    card.field("MAT8");
    for (int i = 0; i < 9; ++i) card.real(0.5f);
  }
  std::string expected = "$MAT8    ";
  for (int i = 0; i < 8; ++i) expected += "  0.5000";
  EXPECT_EQ(text, expected + "\r\n          0.5000");
}

}  // namespace
}  // namespace corvane
