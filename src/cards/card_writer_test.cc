#include "cards/card_writer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cards/number_fields.h"

namespace corvane {
namespace {

TEST(CardWriter, AppendsCardsAsAssembleCardLaysThemOut) {
  std::string deck = "$ comment\r\n";
  {
    CardWriter first(deck, 2);  // more fields than announced: the text grows
    first.field("PCOMP");
    first.field("1001");
    for (int i = 0; i < 9; ++i) first.real(0.125f * static_cast<float>(i));
    first.end();
  }
  {
    CardWriter second(deck, 3);
    second.field("MAT2");
    second.field("12345678901");  // cut to 8
    second.blank();
    second.end();
  }

  std::vector<std::string> fields = {"PCOMP", "1001"};
  for (int i = 0; i < 9; ++i)
    fields.push_back(real_to_field8(0.125f * static_cast<float>(i)));
  const std::vector<std::string> mat2 = {"MAT2", "12345678", ""};
  EXPECT_EQ(deck, "$ comment\r\n" + assemble_card(fields) + assemble_card(mat2));
}

TEST(CardWriter, LengthBoundHoldsAndIsReachedByFullLines) {
  for (std::size_t n = 1; n <= 41; ++n) {
    std::string card;
    {
      CardWriter writer(card, n);
      for (std::size_t i = 0; i < n; ++i) writer.field("12345678");
      writer.end();
    }
    EXPECT_LE(card.size(), CardWriter::length_bound(n)) << n << " fields";
    // Full lines: 9 fields, then 8 more per continuation.
    if (n >= 9 && n % 8 == 1) {
      EXPECT_EQ(card.size(), CardWriter::length_bound(n)) << n << " fields";
    }
  }
}

TEST(CardWriter, AWriterGoneBeforeItsEndLeavesOnlyItsFields) {
  std::string text = "$";
  {
    CardWriter card(text, 20);
    card.field("MAT8");
    card.field("101");
  }
  EXPECT_EQ(text, "$MAT8        101 ");
}

}  // namespace
}  // namespace corvane
