#include "cards/solver_deck.h"

#include <gtest/gtest.h>

#include <map>
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

LAMINA tape(float t, bool strengths) {
  LAMINA m = new_lamina(t, 135000, 10000, 5000, 0.3f, 0, 0);
  m.CTE1 = -0.3e-6f;
  m.CTE2 = 28e-6f;
  if (strengths) m.set_strengths(1500, 1200, 70, 40, 246);
  return m;
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
