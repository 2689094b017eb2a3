#include "cards/card_writer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cards/number_fields.h"

// The results digest pins whole decks bit for bit, continuation lines included.
namespace corvane {
namespace {

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
