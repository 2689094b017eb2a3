#include "cards/solver_deck.h"

#include <gtest/gtest.h>

#include <charconv>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/test_support.h"

// The deck read back by a reader written from the card formats: lines of at most
// 80 columns; a name field of 8; data fields of 8 (small field) or 16 (a name
// ending in "*"); columns 73-80 a continuation marker that the next line's first
// field repeats; reals with a point and an exponent after E, D or a bare sign.
namespace corvane {
namespace {

using Fields = std::vector<std::string>;
using Value = std::optional<float>;
constexpr Value kBlank;

std::string trimmed(const std::string& f) {
  const auto first = f.find_first_not_of(' ');
  return first == std::string::npos
             ? ""
             : f.substr(first, f.find_last_not_of(' ') - first + 1);
}

// Cards by their name field and id ("MAT2* 2001"), with their data fields.
std::map<std::string, Fields> read_deck(std::string_view text, std::string_view eol) {
  std::map<std::string, Fields> cards;
  Fields* card = nullptr;
  std::string marker;
  std::size_t width = 8;
  for (std::size_t at = 0, end = 0; at < text.size(); at = end + eol.size()) {
    end = std::min(text.find(eol, at), text.size());
    std::string line(text.substr(at, end - at));
    EXPECT_TRUE(line.size() <= 80 && line.find_first_of("\r\n") == std::string::npos);
    if (line.starts_with("$")) continue;
    line.resize(80, ' ');
    const std::string name = trimmed(line.substr(0, 8));
    if (name.starts_with("+") || name.starts_with("*")) {
      EXPECT_EQ(name, marker) << "a continuation without its parent";
    } else {
      width = name.ends_with("*") ? 16 : 8;
      card = &cards[name + " " + trimmed(line.substr(8, width))];
    }
    for (std::size_t c = 8; c < 72; c += width)
      card->push_back(trimmed(line.substr(c, width)));
    marker = trimmed(line.substr(72));
  }
  for (auto& [name, fields] : cards) {
    while (!fields.empty() && fields.back().empty()) fields.pop_back();
  }
  return cards;
}

// A real: sign, digits with a point, an exponent after E or D or a sign alone.
Value real(const Fields& card, std::size_t k) {
  std::string s = k < card.size() ? card[k] : "";
  if (s.empty()) return std::nullopt;
  EXPECT_NE(s.find('.'), std::string::npos) << s;
  if (const auto e = s.find_first_of("EeDd"); e != std::string::npos) {
    s[e] = 'e';
  } else if (const auto sign = s.find_first_of("+-", 1); sign != std::string::npos) {
    s.insert(sign, "e");
  }
  float x = 0.0f;
  const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), x);
  EXPECT_TRUE(ec == std::errc{} && end == s.data() + s.size()) << s;
  return x;
}

std::vector<Value> reals(const Fields& card, std::size_t first, std::size_t count) {
  std::vector<Value> values;
  for (std::size_t k = first; k < first + count; ++k) values.push_back(real(card, k));
  return values;
}

LAMINA tape(float t, bool strengths) {
  LAMINA m = new_lamina(t, 135000, 10000, 5000, 0.3f, 0, 0);
  m.CTE1 = -0.3e-6f;
  m.CTE2 = 28e-6f;
  if (strengths) m.set_strengths(1500, 1200, 70, 40, 246);
  return m;
}

TEST(SolverDeck, RealsAreTheShortestTextThatReadsBack) {
  const std::tuple<float, std::size_t, const char*> rows[] = {
      {-0.0f, 8, "0."},
      {135000, 8, "135000."},
      {1.5e-6f, 8, "1.5-6"},
      {-2.5e7f, 8, "-2.5+7"},
      {0.1234567f, 8, ".1234567"},
      {0.1234567f, 7, ""},
      {1.0f / 3, 16, "0.33333334"},
      {1.0e30f, 8, "1.0+30"},
      {testing::kInf, 16, ""}};
  for (const auto& [value, width, text] : rows)
    EXPECT_EQ(bulk_data_real(value, width), text);
}

TEST(SolverDeck, EveryValueReadsBackWhereTheFormatsPutIt) {
  LAMINA carbon = tape(0.125f, true);
  carbon.F13 = 95;
  carbon.G13 = 5000;
  const LAMINA glass = tape(0.13333334f, false);  // 8 digits: large field
  const LAMINATESTIFFNESS laminate(carbon, glass, std::vector<float>{0, 22.5f, -45},
                                   std::vector<int>{1, 2, 2});
  const auto deck = read_deck(solver_deck(laminate).text, "\n");
  ASSERT_EQ(deck.size(), 7u);
  // MAT8: MID E1 E2 NU12 G12 G1Z G2Z RHO / A1 A2 TREF Xt Xc Yt Yc S / GE F12 STRN.
  EXPECT_EQ(reals(deck.at("MAT8 101"), 1, 18),
            (std::vector<Value>{135000, 10000, 0.3f, 5000, 5000, kBlank, 1.5e-6f,
                                -0.3e-6f, 28e-6f, kBlank, 1500, 1200, 40, 246, 70, kBlank,
                                kBlank, kBlank}));
  EXPECT_EQ(reals(deck.at("MAT8 102"), 11, 8), std::vector<Value>(8));
  // PCOMP: PID Z0 NSM SB FT TREF GE LAM / MIDi Ti THETAi SOUTi; no FT, as 102
  // has no strengths.
  const Fields& pcomp = deck.at("PCOMP* 1001");
  EXPECT_EQ(reals(pcomp, 1, 7), (std::vector<Value>{-0.5f * laminate.h, kBlank, 95,
                                                    kBlank, 20, kBlank, kBlank}));
  EXPECT_EQ(Fields(pcomp.begin() + 8, pcomp.end()),
            (Fields{"101", "0.125", "0.", "YES", "102", "0.13333334", "22.5", "YES",
                    "102", "0.13333334", "-45.", "YES"}));
  // PSHELL: PID MID1 T MID2 12I/T^3 MID3 TS/T NSM / Z1 Z2 MID4; MAT2 unrounded.
  const Fields& shell = deck.at("PSHELL* 1002");  // T has 8 digits too
  EXPECT_EQ(shell[1] + shell[3] + shell[10], "200120022004");
  EXPECT_EQ(real(shell, 2), laminate.h);
  const float t = laminate.h;
  const std::tuple<const char*, Matrix3, float> mat2[] = {
      {"MAT2* 2001", laminate.A, 1.0f / t},
      {"MAT2* 2002", laminate.D, 12.0f / ((t * t) * t)},
      {"MAT2* 2004", laminate.B, -1.0f / (t * t)}};
  for (const auto& [card, m, f] : mat2) {
    EXPECT_EQ(reals(deck.at(card), 1, 6),
              (std::vector<Value>{m(1, 1) * f, m(1, 2) * f, m(1, 3) * f, m(2, 2) * f,
                                  m(2, 3) * f, m(3, 3) * f}));
  }
}

TEST(SolverDeck, SymmetricStacksCrLfAndRefusals) {
  // Maximum strain theory with all strengths; no MID4 for round-off coupling.
  const LAMINATESTIFFNESS symmetric(tape(0.05f, true),
                                    std::vector<float>{45, -45, -45, 45});
  const auto deck = read_deck(solver_deck(symmetric, LineEnd::crlf).text, "\r\n");
  EXPECT_EQ(deck.at("PCOMP 1001")[4], "STRN");
  EXPECT_EQ(deck.at("PSHELL 1002").size(), 4u);
  // Any strength missing: no failure theory.
  for (float LAMINA::*f :
       {&LAMINA::F1t, &LAMINA::F1c, &LAMINA::F2t, &LAMINA::F2c, &LAMINA::F12}) {
    LAMINATESTIFFNESS missing = symmetric;
    missing.materials[0].*f = 0;
    EXPECT_EQ(read_deck(solver_deck(missing).text, "\n").at("PCOMP 1001")[4], "");
  }
  LAMINATESTIFFNESS in_error = symmetric, infinite = symmetric, orphan = symmetric;
  in_error.error = true;
  infinite.D(2, 2) = testing::kInf;
  orphan.material_index[1] = 2;
  for (const auto* laminate : {&in_error, &infinite, &orphan}) {
    const SolverDeck refused = solver_deck(*laminate);
    EXPECT_TRUE(refused.text.empty() && !refused.fault.empty());
  }
}

}  // namespace
}  // namespace corvane
