#include "cards/solver_deck.h"

#include <gtest/gtest.h>

#include <charconv>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cards/bulk_data_cards.h"
#include "support/test_support.h"

// The deck is read back by a reader of its own, written from the card formats:
// 80 columns, a name field of 8, data fields of 8 (small) or 16 (large, name
// ending in "*"), columns 73-80 a continuation marker that the next line's first
// field repeats; reals with a point and an exponent after "E", "D" or a bare sign.
namespace corvane {
namespace {

using Fields = std::vector<std::string>;
using Value = std::optional<float>;  // nullopt: a blank field

struct Layout {
  std::size_t width, per_line;
};
constexpr Layout kSmallField{8, 8}, kLargeField{16, 4};

// Cards by name and id (their first data field), and the layout each came in.
struct Deck {
  std::map<std::string, Fields> cards;
  std::map<std::string, bool> large;
};

std::string trimmed(std::string_view f) {
  const auto first = f.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(f.substr(first, f.find_last_not_of(' ') - first + 1));
}

Deck read_deck(std::string_view text, std::string_view line_end) {
  Deck deck;
  std::string key, marker;
  Fields* card = nullptr;
  Layout layout{};
  while (!text.empty()) {
    const auto eol = text.find(line_end);
    std::string line(text.substr(0, eol));
    text.remove_prefix(eol == std::string_view::npos ? text.size()
                                                     : eol + line_end.size());
    EXPECT_EQ(line.find_first_of("\r\n\t"), std::string::npos) << line;
    EXPECT_LE(line.size(), 80u) << line;
    if (line.starts_with("$")) continue;
    line.resize(80, ' ');
    const std::string first = trimmed(line.substr(0, 8));
    if (first.starts_with("+") || first.starts_with("*")) {
      EXPECT_EQ(first, marker) << "continuation without its parent";
    } else {
      const bool large = first.ends_with("*");
      layout = large ? kLargeField : kSmallField;
      key = first.substr(0, first.size() - (large ? 1 : 0)) + " " +
            trimmed(line.substr(8, layout.width));
      card = &deck.cards[key];
      deck.large[key] = large;
    }
    for (std::size_t k = 0; k < layout.per_line; ++k) {
      card->push_back(trimmed(line.substr(8 + k * layout.width, layout.width)));
    }
    marker = trimmed(line.substr(72, 8));
  }
  for (auto& [name, fields] : deck.cards) {
    while (!fields.empty() && fields.back().empty()) fields.pop_back();
  }
  return deck;
}

// A real by the format: sign, digits with a point, then optionally an exponent
// after E or D, or after a sign alone ("1.5-3" is 1.5e-3).
Value real_field(std::string_view f) {
  if (f.empty()) return std::nullopt;
  EXPECT_NE(f.find('.'), std::string_view::npos) << f << " has no point";
  std::string s(f);
  const auto e = s.find_first_of("EeDd");
  if (e != std::string::npos) {
    s[e] = 'e';
  } else if (const auto sign = s.find_first_of("+-", 1); sign != std::string::npos) {
    s.insert(sign, "e");
  }
  float x = 0.0f;
  const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), x);
  EXPECT_TRUE(ec == std::errc{} && end == s.data() + s.size()) << f;
  return x;
}

std::vector<Value> reals(const Fields& fields, std::size_t first, std::size_t count) {
  std::vector<Value> values;
  for (std::size_t k = first; k < first + count; ++k) {
    values.push_back(k < fields.size() ? real_field(fields[k]) : std::nullopt);
  }
  return values;
}

LAMINA tape(float t = 0.125f) {
  LAMINA m = new_lamina(t, 135000, 10000, 5000, 0.3f, 0, 0);
  m.CTE1 = -0.3e-6f;
  m.CTE2 = 28e-6f;
  return m;
}

TEST(SolverDeck, RealsAreTheShortestTextThatReadsBack) {
  const struct {
    float value;
    std::size_t width;
    const char* text;
  } rows[] = {
      {0.0f, 8, "0."},
      {-0.0f, 8, "0."},
      {135000, 8, "135000."},
      {0.3f, 8, "0.3"},
      {-22.5f, 8, "-22.5"},
      {1.5e-6f, 8, "1.5-6"},
      {0.001f, 8, "0.001"},
      {-2.5e7f, 8, "-2.5+7"},
      {0.1234567f, 8, ".1234567"},
      {0.1234567f, 6, ""},
      {1.0f / 3, 16, "0.33333334"},
      {123456.79f, 8, ""},
      {123456.79f, 16, "123456.79"},
      {-1.1754944e-38f, 16, "-1.1754944-38"},
      {1.0e30f, 8, "1.0+30"},
      {testing::kInf, 16, ""},
      {testing::kNaN, 16, ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(bulk_data_real(row.value, row.width), row.text) << row.value;
  }
}

TEST(SolverDeck, EveryValueReadsBackWhereTheFormatsPutIt) {
  LAMINA carbon = tape();
  carbon.set_strengths(1500, 1200, 70, 40, 246);
  carbon.F13 = 95;
  carbon.G13 = 5000;
  const LAMINA glass = tape(0.13333334f);  // no strengths; 8 characters too few
  const std::vector<float> angles = {0, 22.5f, -45, 90};
  const LAMINATESTIFFNESS laminate(carbon, glass, angles, std::vector<int>{1, 2, 2, 1});
  const SolverDeck solver = solver_deck(laminate);
  ASSERT_EQ(solver.fault, "");
  EXPECT_EQ(solver.text.find("GRID"), std::string::npos);
  const Deck deck = read_deck(solver.text, "\n");
  ASSERT_EQ(deck.cards.size(), 7u);

  // MAT8: MID E1 E2 NU12 G12 G1Z G2Z RHO / A1 A2 TREF Xt Xc Yt Yc S / GE F12 STRN.
  const Fields& m101 = deck.cards.at("MAT8 101");
  EXPECT_EQ(reals(m101, 1, 18), (std::vector<Value>{135000,
                                                    10000,
                                                    0.3f,
                                                    5000,
                                                    5000,
                                                    {},
                                                    1.5e-6f,
                                                    -0.3e-6f,
                                                    28e-6f,
                                                    {},
                                                    1500,
                                                    1200,
                                                    40,
                                                    246,
                                                    70,
                                                    {},
                                                    {},
                                                    {}}));
  EXPECT_EQ(reals(deck.cards.at("MAT8 102"), 11, 8), std::vector<Value>(8));

  // PCOMP: PID Z0 NSM SB FT TREF GE LAM / MIDi Ti THETAi SOUTi; a thickness of
  // 8 digits takes the card to large field.
  const Fields& p = deck.cards.at("PCOMP 1001");
  EXPECT_TRUE(deck.large.at("PCOMP 1001"));
  EXPECT_EQ(reals(p, 1, 7),
            (std::vector<Value>{-0.5f * laminate.h, {}, 95, {}, 20, {}, {}}));
  EXPECT_EQ(p[4], "");  // FT: material 102 has no strengths
  const Fields plies(p.begin() + 8, p.end());
  EXPECT_EQ(plies,
            (Fields{"101", "0.125", "0.", "YES", "102", "0.13333334", "22.5", "YES",
                    "102", "0.13333334", "-45.", "YES", "101", "0.125", "90.", "YES"}));

  // PSHELL: PID MID1 T MID2 12I/T^3 MID3 TS/T NSM / Z1 Z2 MID4; the MAT2 terms
  // unrounded, G11 G12 G13 G22 G23 G33.
  const Fields& shell = deck.cards.at("PSHELL 1002");
  ASSERT_EQ(shell.size(), 11u);
  EXPECT_EQ(shell[1] + shell[3] + shell[10], "200120022004");
  EXPECT_EQ(real_field(shell[2]), laminate.h);
  const float t = laminate.h;
  const struct {
    const char* card;
    const Matrix3& m;
    float factor;
  } mat2[] = {{"MAT2 2001", laminate.A, 1.0f / t},
              {"MAT2 2002", laminate.D, 12.0f / ((t * t) * t)},
              {"MAT2 2004", laminate.B, -1.0f / (t * t)}};
  for (const auto& [card, m, factor] : mat2) {
    const std::vector<Value> expected = {m(1, 1) * factor, m(1, 2) * factor,
                                         m(1, 3) * factor, m(2, 2) * factor,
                                         m(2, 3) * factor, m(3, 3) * factor};
    EXPECT_EQ(reals(deck.cards.at(card), 1, 6), expected) << card;
  }
}

TEST(SolverDeck, ThinLaminatesKeepTheBendingStiffnessTheEstablishedDeckRounds) {
  // 4 plies of 0.05 mm: [D] has terms of a few N mm; a symmetric stack needs no
  // MID4, and CR LF line ends are there on request.
  LAMINA thin = tape(0.05f);
  thin.set_strengths(1500, 1200, 70, 40, 246);
  const LAMINATESTIFFNESS laminate(thin, std::vector<float>{45, -45, -45, 45});
  const SolverDeck solver = solver_deck(laminate, LineEnd::crlf);
  const Deck deck = read_deck(solver.text, "\r\n");
  EXPECT_EQ(deck.cards.at("PCOMP 1001")[4], "STRN");
  EXPECT_EQ(deck.cards.at("PSHELL 1002").size(), 4u);
  const float t = laminate.h;
  const float d66 = laminate.D(3, 3) * (12.0f / ((t * t) * t));
  EXPECT_EQ(real_field(deck.cards.at("MAT2 2002")[6]), d66);
  const std::string established = bulk_data_cards(laminate);
  const std::string row = established.substr(established.find("MAT2       2002"), 72);
  EXPECT_GT(std::fabs(std::stof(row.substr(56, 8)) / d66 - 1.0f), 0.01f) << row;
}

TEST(SolverDeck, UnusableLaminatesAndValuesGiveAFaultAndNoDeck) {
  LAMINATESTIFFNESS in_error(tape(), std::vector<float>{0, 90});
  in_error.error = true;
  LAMINATESTIFFNESS huge(tape(), std::vector<float>{0, 90});
  huge.A(1, 1) = testing::kInf;
  LAMINATESTIFFNESS orphan(tape(), std::vector<float>{0, 90});
  orphan.material_index[1] = 2;
  for (const auto* laminate : {&in_error, &huge, &orphan}) {
    const SolverDeck solver = solver_deck(*laminate);
    EXPECT_EQ(solver.text, "");
    EXPECT_NE(solver.fault, "");
  }
}

}  // namespace
}  // namespace corvane
