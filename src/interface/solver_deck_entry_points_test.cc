// LAMINATE_SOLVER_DECK and BI_MATERIAL_LAMINATE_SOLVER_DECK called through the
// built strength library, buffers of exactly their lengths and every output
// pre-filled, to see what each call writes and what it leaves alone.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cards/solver_deck.h"
#include "corvane/corvane_strength.h"
#include "interface/loaded_library.h"
#include "laminates/stacking_sequence.h"
#include "support/test_support.h"

namespace corvane {
namespace {

using testing::layup_buffer;

struct DeckCall {
  bool two = false;  // BI_MATERIAL_LAMINATE_SOLVER_DECK, material 2 a copy of 1
  std::vector<float> v = {0.125f, 135000,   10000,  5000, 0.3f,   -0.3e-6f, 28e-6f, 1500,
                          1200,   40,       246,    70,   0.125f, 135000,   10000,  5000,
                          0.3f,   -0.3e-6f, 28e-6f, 1500, 1200,   40,       246,    70};
  std::vector<char> layup = layup_buffer("(0/45./-45/90)S");
  std::int32_t crlf = 0, length = -7, ierr = 7777;
  std::vector<char> deck = std::vector<char>(CORVANE_SOLVER_DECK_LENGTH, '\x7f');
  std::vector<char> message = std::vector<char>(CORVANE_STRENGTH_MESSAGE_LENGTH, '\x7f');

  // The call, its pointer argument `missing` (0-based, hidden lengths not
  // counted) null.
  DeckCall& run(int missing = -1) {
    static auto* const one = library_under_test().entry<decltype(LAMINATE_SOLVER_DECK)>(
        "LAMINATE_SOLVER_DECK");
    static auto* const bi =
        library_under_test().entry<decltype(BI_MATERIAL_LAMINATE_SOLVER_DECK)>(
            "BI_MATERIAL_LAMINATE_SOLVER_DECK");
    const auto g = [missing](int i, auto* p) { return i == missing ? nullptr : p; };
    const int n = two ? 24 : 12;
    std::vector<float*> x(24);
    for (int i = 0; i < 24; ++i) x[i] = g(i, v.data() + i);
    const auto rest = [&](auto entry, auto... materials) {
      entry(materials..., g(n, layup.data()), 1, g(n + 1, &crlf), g(n + 2, deck.data()),
            2, g(n + 3, &length), g(n + 4, message.data()), 3, g(n + 5, &ierr));
    };
    if (two) {
      rest(bi, x[0], x[1], x[2], x[3], x[4], x[5], x[6], x[7], x[8], x[9], x[10], x[11],
           x[12], x[13], x[14], x[15], x[16], x[17], x[18], x[19], x[20], x[21], x[22],
           x[23]);
    } else {
      rest(one, x[0], x[1], x[2], x[3], x[4], x[5], x[6], x[7], x[8], x[9], x[10], x[11]);
    }
    return *this;
  }
  std::string text() const { return {message.begin(), message.end()}; }
  bool untouched() const { return deck == DeckCall().deck && length == -7; }
};

LAMINA material(const std::vector<float>& v, std::size_t at) {
  LAMINA m = new_lamina(v[at], v[at + 1], v[at + 2], v[at + 3], v[at + 4], 1000, 1000);
  m.CTE1 = v[at + 5];
  m.CTE2 = v[at + 6];
  m.set_strengths(v[at + 7], v[at + 8], v[at + 11], v[at + 9], v[at + 10]);
  return m;
}

TEST(SolverDeckEntry, TheCoreDeckBlankPaddedWithItsLength) {
  for (const bool two : {false, true}) {
    DeckCall call{two};
    call.v[12 + 1] = 2 * call.v[1];  // material 2 stiffer
    call.crlf = two ? -1 : 0;
    call.run();
    ASSERT_EQ(call.ierr, 0) << call.text();
    EXPECT_EQ(call.text(), std::string(CORVANE_STRENGTH_MESSAGE_LENGTH, ' '));
    std::vector<float> angles;
    std::vector<std::int32_t> index;
    parse_stacking_sequence("(0/45./-45/90)S", angles, &index);
    const std::string expected =
        two ? solver_deck(LAMINATESTIFFNESS(material(call.v, 0), material(call.v, 12),
                                            angles, index),
                          LineEnd::crlf)
                  .text
            : solver_deck(LAMINATESTIFFNESS(material(call.v, 0), angles)).text;
    ASSERT_EQ(call.length, static_cast<std::int32_t>(expected.size()));
    EXPECT_EQ(std::string(call.deck.begin(), call.deck.begin() + call.length), expected);
    EXPECT_EQ(call.deck.back(), ' ');
  }
}

TEST(SolverDeckEntry, RefusalsWriteTheCodeAndReasonOnly) {
  const struct {
    void (*change)(DeckCall&);  // of a call of BI_MATERIAL_LAMINATE_SOLVER_DECK
    std::int32_t code;
    const char* reason;
  } rows[] = {
      {[](DeckCall& c) { c.v[12 + 9] = -1; }, 1, "material 2: F2t = -1 is negative"},
      {[](DeckCall& c) { c.layup = layup_buffer("(0/4x5)S"); }, 2,
       "at character 4: unreadable ply angle"},
      {[](DeckCall& c) { c.v[7] = testing::kInf; }, 3, "not finite"},
  };
  for (const auto& row : rows) {
    DeckCall call{true};
    row.change(call);
    const std::string text = call.run().text();
    EXPECT_EQ(call.ierr, row.code) << text;
    EXPECT_EQ(text.rfind("Error! ", 0), 0u) << text;
    EXPECT_NE(text.find(row.reason), std::string::npos) << text;
    EXPECT_TRUE(call.untouched()) << text;
  }
}

TEST(SolverDeckEntry, NullPointerWritesOnlyTheErrorCode) {
  for (const bool two : {false, true}) {
    const int pointers = two ? 30 : 18;
    for (int missing = 0; missing < pointers; ++missing) {
      DeckCall call{two};
      call.run(missing);
      EXPECT_EQ(call.ierr, missing == pointers - 1 ? 7777 : -1) << missing;
      EXPECT_TRUE(call.untouched() && call.text() == DeckCall().text()) << missing;
    }
  }
}

}  // namespace
}  // namespace corvane
