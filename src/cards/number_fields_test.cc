#include "cards/number_fields.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "util/fixed_width.h"
#include "util/numerics.h"

namespace corvane {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInf = std::numeric_limits<float>::infinity();

float below(float x) { return std::nextafter(x, 0.0f); }
float above(float x) { return std::nextafter(x, kInf); }

struct RealCase {
  float value;
  const char* text;
};

TEST(RealToField8, EveryBandAndItsEdges) {
  const RealCase cases[] = {
      // Zero and underflow, whatever the sign; the bound itself is still zero.
      {0.0f, "     0.0"},
      {-0.0f, "     0.0"},
      {1.0e-21f, "     0.0"},
      {1.0e-20f, "     0.0"},
      {-1.0e-20f, "     0.0"},
      {std::numeric_limits<float>::denorm_min(), "     0.0"},
      {above(1.0e-20f), " 1.0E-20"},
      // Small values in exponent form, up to just below 0.01.
      {0.005f, " 5.0E-03"},
      {-0.005f, "-5.0E-03"},
      {0.000123456f, " 1.2E-04"},
      {below(0.01f), " 1.0E-02"},
      // Four decimals from 0.01 to 10.
      {0.01f, "  0.0100"},
      {0.3f, "  0.3000"},
      {-0.3f, " -0.3000"},
      {9.99995f, " 10.0000"},
      {-9.99995f, "-10.0000"},
      {below(10.0f), " 10.0000"},
      // Three decimals from 10 to 100.
      {10.0f, "  10.000"},
      {12.3456f, "  12.346"},
      {99.9996f, " 100.000"},
      // Two decimals from 100 to 1000.
      {100.0f, "  100.00"},
      {123.456f, "  123.46"},
      {999.996f, " 1000.00"},
      {-999.996f, "-1000.00"},
      // One decimal from 1000 to 10000.
      {1000.0f, "  1000.0"},
      {1234.56f, "  1234.6"},
      {below(1.0e4f), " 10000.0"},
      {-1234.56f, " -1234.6"},
      // Whole numbers with a trailing point from 1e4 up to 1e6, halves away from zero.
      {1.0e4f, "  10000."},
      {12345.6f, "  12346."},
      {12345.5f, "  12346."},
      {-12345.5f, " -12346."},
      {-999999.0f, "-999999."},
      {999999.7f, "1000000."},
      {below(1.0e6f), "1000000."},
      {-999999.6f, "*******."},
      // Exponent form from 1e6.
      {1.0e6f, " 1.0E+06"},
      {2.5e6f, " 2.5E+06"},
      {-2.5e6f, "-2.5E+06"},
      {9.96e6f, " 1.0E+07"},
      {3.0e38f, " 3.0E+38"},
      // Not numbers.
      {kNaN, "     NaN"},
      {kInf, "     Inf"},
      {-kInf, "    -Inf"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "value " << c.value);
    EXPECT_EQ(real_to_field8(c.value), c.text);
  }
}

TEST(TextToInteger, RoundsTheRealItReads) {
  const struct {
    const char* text;
    std::int32_t value;
    std::int32_t flag;
  } cases[] = {
      {"2001", 2001, 0},
      {"  45.5  ", 46, 0},
      {"-45.5", -46, 0},
      {"0.49999997", 0, 0},
      {"-2.5", -3, 0},
      {"1.5E3", 1500, 0},
      {"2d1", 20, 0},
      {"+7.", 7, 0},
      // Read, but beyond int32: the conversion gives the sentinel, the read was good.
      {"3e9", std::numeric_limits<std::int32_t>::min(), 0},
      // Unreadable.
      {"", std::numeric_limits<std::int32_t>::min(), 1},
      {"        ", std::numeric_limits<std::int32_t>::min(), 1},
      {"abc", std::numeric_limits<std::int32_t>::min(), 1},
      {"1,5", std::numeric_limits<std::int32_t>::min(), 1},
      {"1 2", std::numeric_limits<std::int32_t>::min(), 1},
      {"nan", std::numeric_limits<std::int32_t>::min(), 1},
      {"0x10", std::numeric_limits<std::int32_t>::min(), 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    std::int32_t flag = -7;
    EXPECT_EQ(text_to_integer(c.text, &flag), c.value);
    EXPECT_EQ(flag, c.flag);
    EXPECT_EQ(text_to_integer(c.text), c.value);  // without a flag
  }
}

// Floats of every binade between lo and hi (both positive), either sign, with
// random significands: the fields are formed without printf, so they are
// compared with printf's text through the fixed-width formats.
std::vector<float> random_floats(float lo, float hi, int count) {
  std::mt19937 engine(12345);
  std::uniform_real_distribution<float> exponent(std::log2(lo), std::log2(hi));
  std::vector<float> values;
  for (int i = 0; i < count; ++i) {
    float x = std::exp2(exponent(engine));
    std::uint32_t bits = 0;
    std::memcpy(&bits, &x, sizeof bits);
    bits = (bits & 0xff800000u) | (engine() & 0x007fffffu);
    std::memcpy(&x, &bits, sizeof x);
    if (x >= lo && x < hi) values.push_back(engine() % 2 == 0 ? x : -x);
  }
  return values;
}

TEST(RealToField8, AgreesWithPrintfInEveryBand) {
  const struct {
    float lo, hi;
    int decimals;  // 0: exponent form, -1: whole number with a point
  } bands[] = {{2.0e-20f, 0.01f, 0}, {0.01f, 10.0f, 4},   {10.0f, 100.0f, 3},
               {100.0f, 1.0e3f, 2},  {1.0e3f, 1.0e4f, 1}, {1.0e4f, 1.0e6f, -1},
               {1.0e6f, 3.0e38f, 0}};
  for (const auto& band : bands) {
    for (float x : random_floats(band.lo, band.hi, 20000)) {
      std::string expected;
      if (band.decimals > 0) {
        expected = format_fixed(x, 8, band.decimals);
      } else if (band.decimals == 0) {
        expected = format_exponent(x, 8, 1);
      } else {
        expected = format_integer(nint(x), 7);
        expected = expected.substr(expected.find_first_not_of(' ')) + ".";
        expected = std::string(8 - expected.size(), ' ') + expected;
      }
      ASSERT_EQ(real_to_field8(x), expected) << std::hexfloat << x;
    }
  }
}

TEST(RealToText, AgreesWithPrintfForOneToEightDecimals) {
  for (int decimals = 1; decimals <= 8; ++decimals) {
    for (float x : random_floats(1.0e-6f, 2.0e9f, 5000)) {
      const std::string printed = format_fixed(x, 60, decimals);
      ASSERT_EQ(real_to_text(x, decimals), printed.substr(printed.find_first_not_of(' ')))
          << std::hexfloat << x << " with " << decimals;
    }
  }
}

TEST(RealToText, WholeNumbersAndFixedPoint) {
  const struct {
    float value;
    std::int32_t decimals;
    std::string text;
  } cases[] = {
      {45.0f, 0, "45"},
      {44.5f, 0, "45"},
      {-44.5f, 0, "-45"},
      {2.5f, -3, "3"},
      {0.4f, 0, "0"},
      {1.0e20f, 0, "-2147483648"},  // beyond int32
      {0.184f, 3, "0.184"},
      {0.125f, 3, "0.125"},
      {0.125f, 2, "0.12"},  // the exact binary value, ties to even
      {-0.3f, 1, "-0.3"},
      {1500.0f, 1, "1500.0"},
      {70.0f, 1, "70.0"},
      {kNaN, 2, "NaN"},
      // The 100-character buffer: the leading zero goes first, then everything.
      {0.5f, 99, "." + std::string("5") + std::string(98, '0')},
      {1.0f, 99, std::string(100, '*')},
      {1.0f, 1000000, std::string(100, '*')},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.value << " with " << c.decimals);
    EXPECT_EQ(real_to_text(c.value, c.decimals), c.text);
  }
}

TEST(IsValidCardId, WholeNumbersFromOneToSevenDigits) {
  const struct {
    const char* field;
    bool valid;
  } cases[] = {
      {"1", true},
      {"9999999", true},
      {"  101   ", true},
      {"1001    ", true},
      {"+5", true},
      {"0", false},
      {"-1", false},
      {"10000000", false},
      {"12345678", false},
      {"", false},
      {"        ", false},
      {"abc", false},
      {"1.0", false},
      {"101x", false},
      {"1 2", false},
      // Only the first 8 characters make the field.
      {"1001    x", true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.field);
    EXPECT_EQ(is_valid_card_id(c.field), c.valid);
  }
}

TEST(AssembleCard, FieldPlacement) {
  const struct {
    std::vector<std::string> fields;
    std::string card;
  } cases[] = {
      // The name moves left; short values end in column 7.
      {{"  MAT2", "2001", "1.0"}, "MAT2       2001     1.0 \r\n"},
      // Seven and eight characters end in column 8; more are cut.
      {{"X", "1234567", "12345678", "123456789"}, "X        12345671234567812345678\r\n"},
      // Leading blanks count in the length: "  12345" is 7 long.
      {{"X", "  12345", "  1.0"}, "X          12345    1.0 \r\n"},
      // Full real fields are kept as they are; blank fields stay blank.
      {{"X", "     0.0", "", " 2.5E+06"}, "X            0.0         2.5E+06\r\n"},
      {{}, "\r\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.card);
    EXPECT_EQ(assemble_card(c.fields), c.card);
  }
}

TEST(AssembleCard, ContinuationLines) {
  // Fields "1".."n" after the name "C".
  auto card_of = [](int n) {
    std::vector<std::string> fields{"C"};
    for (int i = 1; i <= n; ++i) fields.push_back(std::to_string(i));
    return assemble_card(fields);
  };
  const std::string line1 =
      "C             1       2       3       4       5       6       7       8 ";
  const std::string line2 =
      "              9      10      11      12      13      14      15      16 ";
  ASSERT_EQ(line1.size(), 72u);
  // A name and 8 data fields: exactly one line.
  EXPECT_EQ(card_of(8), line1 + "\r\n");
  // One field more opens a continuation line with a blank first field.
  EXPECT_EQ(card_of(9), line1 + "\r\n" + "              9 \r\n");
  EXPECT_EQ(card_of(16), line1 + "\r\n" + line2 + "\r\n");
  EXPECT_EQ(card_of(17), line1 + "\r\n" + line2 + "\r\n" + "             17 \r\n");
}

TEST(RealToText6, ReportTableReals) {
  const RealCase cases[] = {
      {1.0e5f, ">1E5"},
      {1.0e10f, ">1E5"},
      {-1.0e5f, "<-1E5"},
      {99999.4f, "99999"},
      {99999.6f, "100000"},
      {-99999.6f, "******"},  // -100000 does not fit 6 columns
      {1000.0f, "1000"},
      {1000.5f, "1001"},
      {-1234.5f, "-1235"},
      {999.94f, "999.9"},
      {999.96f, "1000.0"},
      {-999.96f, "******"},  // -1000.0 does not fit 6 columns either
      {12.34f, "12.3"},
      {0.35f, "0.3"},  // 0.349999994 as a float
      {-0.5f, "-0.5"},
      {1.0e-4f, "0.0"},
      {9.9e-5f, "0.0"},
      {-9.9e-5f, "0.0"},
      {0.0f, "0.0"},
      {kNaN, "NaN"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "value " << c.value);
    EXPECT_EQ(real_to_text6(c.value), c.text);
  }
}

TEST(ReserveFactorText5, CutTowardZero) {
  const RealCase cases[] = {
      {-0.001f, " <0  "}, {-1.0e10f, " <0  "}, {0.0f, "0.000"},   {-0.0f, "0.000"},
      {0.0009f, "0.000"}, {1.23456f, "1.234"}, {0.7f, "0.700"},   {9.9999f, "9.999"},
      {10.0f, "10.00"},   {99.999f, "99.99"},  {100.0f, "100.0"}, {999.99f, "999.9"},
      {1000.0f, ">1000"}, {1.0e10f, ">1000"},  {kInf, ">1000"},   {kNaN, "  NaN"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "value " << c.value);
    EXPECT_EQ(reserve_factor_text5(c.value), c.text);
  }
}

}  // namespace
}  // namespace corvane
