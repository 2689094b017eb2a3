#include "cards/bulk_data_cards.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace corvane {
namespace {

using Angles = std::vector<float>;
using Indices = std::vector<std::int32_t>;
using Lines = std::vector<std::string>;

const std::string kRuler =
    "$--01--$$--02--$$--03--$$--04--$$--05--$$--06--$$--07--$$--08--$$--09--$";

// The carbon tape the stiffness entry point would build: allowables of 1000 read
// as strengths, so Xt = 0.8 * 1000 / E1 and Xc = 1000 / E1.
LAMINA carbon() {
  LAMINA m = new_lamina(0.125f, 135000, 10000, 5000, 0.3f, 1000, 1000);
  m.CTE1 = -0.3e-6f;
  m.CTE2 = 28e-6f;
  return m;
}

// A glass tape, thicker, with no expansion across the fibres.
LAMINA glass() {
  LAMINA m = new_lamina(0.2f, 60000, 8000, 4000, 0.28f, 1000, 1000);
  m.CTE1 = 6e-6f;
  return m;
}

// The card text split at its line ends; every line must end in "\r\n" and no
// other line break may appear.
Lines lines_of(const std::string& text) {
  Lines lines;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = text.find("\r\n", start);
    if (end == std::string::npos) {
      ADD_FAILURE() << "text does not end in CR LF: " << text.substr(start);
      break;
    }
    lines.push_back(text.substr(start, end - start));
    EXPECT_EQ(lines.back().find_first_of("\r\n"), std::string::npos) << lines.back();
    start = end + 2;
  }
  return lines;
}

// The matrices in the expected MAT2 lines were computed apart from the library
// with the closed-form transformed ply stiffness in double precision, rounded to
// whole numbers by hand, then scaled by the float factors 1/t, 12/t^3 and
// -1/t^2 and written into fields by hand; no rounded entry lay within 0.005 of
// a half.
TEST(BulkDataCards, OneMaterialQuasiIsotropicLaminate) {
  // (0/45/-45/90)S of the carbon tape: t = 1, so the factors are 1, 12 and -1.
  // A = [57995 18012 0; 18012 57995 0; 0 0 19992] (from 57994.97, 18011.75,
  // 19991.61), D = [8017 1267 492; 1267 2118 492; 492 492 1432] (from 8016.508,
  // 1266.73, 491.56, 2117.81, 1431.72), B = 0.
  const LAMINATESTIFFNESS laminate(carbon(), Angles{0, 45, -45, 90, 90, -45, 45, 0});
  ASSERT_FALSE(laminate.error);
  const Lines expected = {
      "$ Ortotropic material as MAT8",
      kRuler,
      "MAT8        101  135000.  10000.  0.3000  5000.0                 1.5E-06",
      "        -3.0E-07 2.8E-05         5.9E-03 7.4E-03    1.0     1.0     1.0 ",
      "                           STRN ",
      "$ Laminate as PCOMP",
      kRuler,
      "PCOMP      1001                    STRN      20                         ",
      "            101   0.125      0.     YES     101   0.125     45.     YES ",
      "            101   0.125    -45.     YES     101   0.125     90.     YES ",
      "            101   0.125     90.     YES     101   0.125    -45.     YES ",
      "            101   0.125     45.     YES     101   0.125      0.     YES ",
      "$",
      "$ Laminate stiffnesses for PSHELL as MAT2: membrane, bending & coupling",
      kRuler,
      "MAT2       2001   57995.  18012.     0.0  57995.     0.0  19992.",
      "MAT2       2002   96204.  15204.  5904.0  25416.  5904.0  17184.",
      "$ Remark: Transverse shear stiffness (MID3 in PSHELL) not reported",
      "MAT2       2004      0.0     0.0     0.0     0.0     0.0     0.0",
  };
  const Lines deck = lines_of(bulk_data_cards(laminate));
  ASSERT_EQ(deck.size(), expected.size());
  for (std::size_t i = 0; i < deck.size(); ++i) EXPECT_EQ(deck[i], expected[i]) << i;
}

TEST(BulkDataCards, TwoMaterialUnsymmetricLaminate) {
  // Plies 22.5 glass / 0 carbon / 60 carbon / -45 glass, t = 0.65 (as a float
  // 0.64999998), factors 1.5384616, 43.695953 and -2.3668642. The carbon tape
  // carries the keyed G13, G23, F13 and density.
  // A = [33213 8086 2218; . 17917 3054; . . 9275],
  // B = [-2020 447 -1169; . 1127 -424; . . 447],
  // D = [848 262 33; . 406 -80; . . 303] (D33 from 302.507).
  LAMINA m1 = carbon();
  const std::pair<std::string_view, float> keyed[] = {
      {"G13", 5000.0f}, {"G23", 3500.0f}, {"F13", 95.0f}, {"DENSITY", 1.6e-6f}};
  m1.set_by_key(keyed);
  const LAMINATESTIFFNESS laminate(m1, glass(), Angles{22.5f, 0, 60, -45},
                                   Indices{2, 1, 1, 2});
  ASSERT_FALSE(laminate.error);
  const Lines expected = {
      "$ Ortotropic material as MAT8",
      kRuler,
      "MAT8        101  135000.  10000.  0.3000  5000.0  5000.0  3500.0 1.6E-06",
      "        -3.0E-07 2.8E-05         5.9E-03 7.4E-03    1.0     1.0     1.0 ",
      "                           STRN ",
      "$ Ortotropic material as MAT8",
      kRuler,
      "MAT8        102   60000.  8000.0  0.2800  4000.0                 1.5E-06",
      "         6.0E-06                  0.0133  0.0167    1.0     1.0     1.0 ",
      "                           STRN ",
      "$ Laminate as PCOMP",
      kRuler,
      "PCOMP      1001            95.0    STRN      20                         ",
      "            102   0.200     23.     YES     101   0.125      0.     YES ",
      "            101   0.125     60.     YES     102   0.200    -45.     YES ",
      "$",
      "$ Laminate stiffnesses for PSHELL as MAT2: membrane, bending & coupling",
      kRuler,
      "MAT2       2001   51097.  12440.  3412.3  27565.  4698.5  14269.",
      "MAT2       2002   37054.  11448.  1442.0  17741. -3495.7  13240.",
      "$ Remark: Transverse shear stiffness (MID3 in PSHELL) not reported",
      "MAT2       2004   4781.1 -1058.0  2766.9 -2667.5  1003.6 -1058.0",
  };
  const Lines deck = lines_of(bulk_data_cards(laminate));
  ASSERT_EQ(deck.size(), expected.size());
  for (std::size_t i = 0; i < deck.size(); ++i) EXPECT_EQ(deck[i], expected[i]) << i;
}

TEST(BulkDataCards, StiffnessIsRoundedBeforeScaling) {
  // t = 2: factors 0.5, 1.5 and -0.25, all exact. Rounding after scaling would
  // give other fields for 0.4 (0.2), 2.5 (1.25), 100000.6 (50000.), 1.4 (2.1) ...
  LAMINATESTIFFNESS laminate(carbon(), Angles{0, 90});
  laminate.h = 2.0f;
  laminate.A.v = {0.4f, 2.5f, -2.5f, 2.5f, 100000.6f, 7.5f, -2.5f, 7.5f, -0.5f};
  laminate.D.v = {1.4f, -0.5f, 3.0f, -0.5f, 2.6f, 0.5f, 3.0f, 0.5f, -1000.5f};
  laminate.B.v = {4.0f, 0.4f, -6.5f, 0.4f, -0.4f, 2.0f, -6.5f, 2.0f, 1.0e10f};
  const Lines deck = lines_of(bulk_data_cards(laminate));
  ASSERT_GE(deck.size(), 4u);
  EXPECT_EQ(deck[deck.size() - 4],
            "MAT2       2001      0.0  1.5000 -1.5000  50001.  4.0000 -0.5000");
  EXPECT_EQ(deck[deck.size() - 3],
            "MAT2       2002   1.5000 -1.5000  4.5000  4.5000  1.5000 -1501.5");
  // Coupling: the sign reversed; 1e10 is beyond int32 and comes back as -2^31.
  EXPECT_EQ(deck[deck.size() - 1],
            "MAT2       2004  -1.0000     0.0  1.7500     0.0 -0.5000 5.4E+08");
}

TEST(BulkDataCards, ScaleFactorsAreFormedFirst) {
  // t = 0.3 (0.30000001 as a float): 1/t = 3.3333333, t^3 = 0.027000003,
  // 12/t^3 = 444.44440, -1/t^2 = -11.111111. Each entry times its factor
  // lands on a field edge that the quotient formed another way misses:
  //   30 * (1/t)   = 100.0       but 30/t         = 99.999992
  //   300 * (1/t)  = 1000.0      but 300/t        = 999.99994
  //   3e5 * (1/t)  = 1000000.0   but 3e5/t        = 999999.94
  //   1835 * 12/t3 = 815555.44   but (1835*12)/t3 = 815555.5
  //   9 * (-1/t^2) = -100.0      but -(9/t^2)     = -99.999992
  LAMINATESTIFFNESS laminate(carbon(), Angles{0, 90});
  laminate.h = 0.3f;
  laminate.A.v = {30.0f, 300.0f, 300000.0f, 300.0f, 0.0f, 0.0f, 300000.0f, 0.0f, 0.0f};
  laminate.D.v = {1835.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f};
  laminate.B.v = {9.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f};
  const Lines deck = lines_of(bulk_data_cards(laminate));
  ASSERT_GE(deck.size(), 4u);
  EXPECT_EQ(deck[deck.size() - 4],
            "MAT2       2001   100.00  1000.0 1.0E+06     0.0     0.0     0.0");
  EXPECT_EQ(deck[deck.size() - 3],
            "MAT2       2002  815555.     0.0     0.0     0.0     0.0     0.0");
  EXPECT_EQ(deck[deck.size() - 1],
            "MAT2       2004  -100.00     0.0     0.0     0.0     0.0     0.0");
}

TEST(Mat8Card, IdentifierMustBeAWholeNumberUpTo7Digits) {
  const struct {
    const char* name;
    const char* card_start;  // the first 24 characters; empty: no card
  } cases[] = {
      {"1", "MAT8          1  135000."},
      {"  42", "MAT8         42  135000."},
      {"9999999", "MAT8     9999999 135000."},
      {"", ""},
      {"10000000", ""},
      {"12345678x", ""},  // cut to 8 characters first
      {"CARBON", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    LAMINA m = carbon();
    m.Name = c.name;
    const std::string card = mat8_card(m);
    EXPECT_EQ(card.substr(0, 24), c.card_start);
  }
}

TEST(Mat8Card, InvalidMaterialWritesNothing) {
  LAMINA m = new_lamina(0.99e-5f, 135000, 10000, 5000, 0.3f, 1000, 1000, "7");
  ASSERT_NE(m.status, 0);
  EXPECT_EQ(mat8_card(m), "");
  m = carbon();
  m.Name = "7";
  m.status = -1;
  EXPECT_EQ(mat8_card(m), "");
}

TEST(Mat8Card, OptionalFields) {
  // G1Z, G2Z and RHO need a positive value; A1 and A2 are left blank only for
  // an exact zero, so a tiny expansion still shows as 0.0.
  LAMINA m = carbon();
  m.Name = "5";
  m.G13 = -1.0f;
  m.G23 = 0.0f;
  m.DENSITY = 0.0f;
  m.CTE1 = 1.0e-30f;
  m.CTE2 = -0.0f;
  const Lines card = lines_of(mat8_card(m));
  ASSERT_EQ(card.size(), 3u);
  EXPECT_EQ(card[0],
            "MAT8          5  135000.  10000.  0.3000  5000.0                        ");
  EXPECT_EQ(card[1],
            "             0.0                 5.9E-03 7.4E-03    1.0     1.0     1.0 ");
}

TEST(PcompCard, OnePlyGivesThirteenFields) {
  LAMINATE laminate(carbon(), Angles{-22.5f}, "12");
  laminate.materials[0].Name = "101";
  EXPECT_EQ(pcomp_card(laminate),
            "PCOMP        12                    STRN      20                         \r\n"
            "            101   0.125    -23.     YES \r\n");
}

TEST(PcompCard, AnyBadIdentifierSuppressesTheCard) {
  // Only the second ply uses material 2.
  const auto card_for = [](const char* laminate_name, const char* name1,
                           const char* name2) {
    LAMINA m1 = carbon(), m2 = glass();
    m1.Name = name1;
    m2.Name = name2;
    return pcomp_card(
        LAMINATE(m1, m2, Angles{0, 90, 0}, Indices{1, 2, 1}, laminate_name));
  };
  EXPECT_NE(card_for("1001", "101", "102"), "");
  EXPECT_EQ(card_for("", "101", "102"), "");
  EXPECT_EQ(card_for("10000000", "101", "102"), "");
  EXPECT_EQ(card_for("1001", "x", "102"), "");
  EXPECT_EQ(card_for("1001", "101", "0"), "");
  // A material that no ply uses is not looked at.
  LAMINA unused = carbon(), used = glass();
  unused.Name = "x";
  used.Name = "102";
  EXPECT_NE(pcomp_card(LAMINATE(unused, used, Angles{0}, Indices{2}, "1")), "");
}

TEST(BulkDataCards, SuppressedCardsKeepTheirCommentLines) {
  LAMINATESTIFFNESS laminate(carbon(), Angles{0, 90, 90, 0});
  ASSERT_FALSE(laminate.error);
  laminate.materials[0].status = -1;  // no MAT8
  laminate.material_index[1] = 2;     // a ply without a material: no PCOMP
  const Lines deck = lines_of(bulk_data_cards(laminate));
  ASSERT_EQ(deck.size(), 11u);
  EXPECT_EQ(deck[0], "$ Ortotropic material as MAT8");
  EXPECT_EQ(deck[1], kRuler);
  EXPECT_EQ(deck[2], "$ Laminate as PCOMP");
  EXPECT_EQ(deck[3], kRuler);
  EXPECT_EQ(deck[4], "$");
  EXPECT_EQ(deck[7].substr(0, 16), "MAT2       2001 ");
}

TEST(BulkDataCards, OneMat8PerListedMaterial) {
  // Two materials listed, every ply of the first: both MAT8 cards are written.
  const LAMINATESTIFFNESS laminate(carbon(), glass(), Angles{0, 90, 90, 0},
                                   Indices{1, 1, 1, 1});
  const std::string deck = bulk_data_cards(laminate);
  EXPECT_NE(deck.find("MAT8        101 "), std::string::npos);
  EXPECT_NE(deck.find("MAT8        102 "), std::string::npos);
  EXPECT_EQ(deck.find("0.200"), std::string::npos);  // no ply of it
}

}  // namespace
}  // namespace corvane
