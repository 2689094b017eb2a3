#include "cards/bulk_data_cards.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// The results digest pins whole decks of random laminates bit for bit; these tests
// pin the rounding it cannot reach, and which cards are left out.
namespace corvane {
namespace {

using Angles = std::vector<float>;
using Fields = std::vector<std::string>;
using Indices = std::vector<std::int32_t>;

// Fields first .. last of a card, without blanks; a continuation line starts with
// a blank field, which counts: every line holds 9 fields of 8 characters and "\r\n".
Fields fields_of(const std::string& card, std::size_t first, std::size_t last) {
  Fields fields;
  for (std::size_t k = first; k <= last; ++k) {
    std::string f = card.substr(k / 9 * 74 + k % 9 * 8, 8);
    f.erase(0, f.find_first_not_of(' '));
    fields.push_back(f.erase(f.find_last_not_of(' ') + 1));
  }
  return fields;
}

LAMINA carbon(const char* name) {
  return new_lamina(0.125f, 135000, 10000, 5000, 0.3f, 1000, 1000, name);
}

TEST(BulkDataCards, Mat2RoundsToWholeNumbersFirst) {
  // MAT2 2001 carries [A]/t, 2004 -[B]/t^2 (t = 2 here), each of [A] and [B]
  // rounded to whole numbers first, halves away from zero; 1e10 is beyond int32
  // and comes back as -2^31.
  LAMINATESTIFFNESS laminate(carbon("1"), Angles{0, 90});
  laminate.h = 2.0f;
  laminate.A.v = {0.4f, 2.5f, -2.5f, 2.5f, 100000.6f, 7.5f, -2.5f, 7.5f, -0.5f};
  laminate.B.v = {4.0f, 0.4f, -6.5f, 0.4f, -0.4f, 2.0f, -6.5f, 2.0f, 1.0e10f};
  const std::string deck = bulk_data_cards(laminate);
  EXPECT_EQ(fields_of(deck.substr(deck.find("MAT2       2001")), 2, 7),
            (Fields{"0.0", "1.5000", "-1.5000", "50001.", "4.0000", "-0.5000"}));
  EXPECT_EQ(fields_of(deck.substr(deck.find("MAT2       2004")), 2, 7),
            (Fields{"-1.0000", "0.0", "1.7500", "0.0", "-0.5000", "5.4E+08"}));
}

TEST(BulkDataCards, CardsWithoutAValidIdAreLeftOutAndTheirCommentsStay) {
  // A bad id of the laminate or of a material a ply uses leaves the card out, of an
  // unused material not; so does an invalid material.
  const auto pcomp = [](const char* laminate, const char* first, const char* second) {
    return pcomp_card(
        LAMINATE(carbon(first), carbon(second), Angles{0, 90}, Indices{1, 2}, laminate));
  };
  EXPECT_NE(pcomp_card(LAMINATE(carbon("x"), carbon("2"), Angles{0}, Indices{2}, "1")),
            "");
  LAMINA invalid = carbon("7");
  invalid.status = -1;
  for (const auto& card :
       {pcomp("x", "101", "102"), pcomp("1", "x", "102"), pcomp("1", "101", "0"),
        mat8_card(carbon("x")), mat8_card(invalid)}) {
    EXPECT_EQ(card, "");
  }
  // In the deck, for a material that is not valid and a ply without a material:
  // only their comments and rulers.
  LAMINATESTIFFNESS laminate(carbon("1"), Angles{0, 90, 90, 0});
  laminate.materials[0].status = -1;
  laminate.material_index[1] = 2;
  const std::string ruler =
      "$--01--$$--02--$$--03--$$--04--$$--05--$$--06--$$--07--$$--08--$$--09--$\r\n";
  const std::string expected = "$ Ortotropic material as MAT8\r\n" + ruler +
                               "$ Laminate as PCOMP\r\n" + ruler + "$\r\n";
  EXPECT_EQ(bulk_data_cards(laminate).substr(0, expected.size()), expected);
}

}  // namespace
}  // namespace corvane
