// LAMINATE_STIFFNESS and BI_MATERIAL_LAMINATE_STIFFNESS called through the
// built shared library, with texts of exactly 1000 and 10000 bytes on the heap
// (a sanitizer then catches a byte too far) and every output pre-filled with a
// sentinel, to see what each call writes and what it leaves alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "cards/bulk_data_cards.h"
#include "corvane/corvane.h"
#include "interface/loaded_library.h"
#include "laminas/lamina.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/laminate_stressed.h"
#include "util/fixed_width.h"

namespace corvane {
namespace {

constexpr float kSentinel = -777.0f;
constexpr std::int32_t kIntSentinel = 7777;
constexpr char kCharSentinel = '\x7f';

struct Ply {
  float t, e1, e2, g12, nu12, cte1, cte2;
};
// Carbon/epoxy tape, mm and MPa; a negative CTE1 is accepted.
constexpr Ply kTape{0.125f, 140000.0f, 10000.0f, 5000.0f, 0.3f, -0.5e-6f, 30.0e-6f};
// Glass fabric, thicker.
constexpr Ply kFabric{0.25f, 25000.0f, 24000.0f, 4000.0f, 0.12f, 10.0e-6f, 11.0e-6f};

// Reduced ply stiffness Q11, Q22, Q12, Q66, in double.
struct Reduced {
  double q11, q22, q12, q66;
};
Reduced reduced(const Ply& p) {
  const double nu21 = double{p.nu12} * p.e2 / p.e1;
  const double den = 1.0 - p.nu12 * nu21;
  return {p.e1 / den, p.e2 / den, p.nu12 * p.e2 / den, p.g12};
}

std::vector<char> layup_buffer(std::string_view text,
                               std::size_t size = CORVANE_LAYUP_LENGTH) {
  std::vector<char> buffer(size, ' ');
  text.copy(buffer.data(), std::min(text.size(), size));
  return buffer;
}

// A layup of n listed plies and a symmetry mark: 2n plies with "S", 2n - 1
// with "$".
std::string long_layup(int tokens, std::string_view mark) {
  std::string text = "(";
  for (int i = 0; i < tokens; ++i)
    text += (i == 0 ? "" : "/") + std::to_string(i % 4 * 30);
  return text + ")" + std::string(mark);
}

// The fourteen results, the card text and the error code, all sentinels.
struct Outputs {
  std::int32_t symmetric = kIntSentinel;
  std::vector<float> a = matrix(), b = matrix(), d = matrix(), dstar = matrix();
  float h = kSentinel, ex = kSentinel, ey = kSentinel, gxy = kSentinel, nuxy = kSentinel;
  float alphax = kSentinel, alphay = kSentinel, alphaxy = kSentinel;
  std::int32_t plies = kIntSentinel;
  std::vector<char> cards = std::vector<char>(CORVANE_CARDS_LENGTH, kCharSentinel);
  std::int32_t ierr = kIntSentinel;

  static std::vector<float> matrix() { return std::vector<float>(9, kSentinel); }
  std::string card_text() const { return {cards.begin(), cards.end()}; }
};

bool all_equal(const std::vector<float>& m, float value) {
  return std::all_of(m.begin(), m.end(), [value](float x) { return x == value; });
}

// [A], [B], [D] and the eight constants after them are zero.
void expect_matrices_and_constants_zero(const Outputs& o) {
  EXPECT_TRUE(all_equal(o.a, 0.0f));
  EXPECT_TRUE(all_equal(o.b, 0.0f));
  EXPECT_TRUE(all_equal(o.d, 0.0f));
  for (const float x : {o.h, o.ex, o.ey, o.gxy, o.nuxy, o.alphax, o.alphay, o.alphaxy}) {
    EXPECT_EQ(x, 0.0f);
  }
}

bool cards_untouched(const Outputs& o) {
  return o.card_text() == std::string(CORVANE_CARDS_LENGTH, kCharSentinel);
}

// Nothing at all written; the error code as given.
void expect_nothing_written(const Outputs& o, std::int32_t ierr) {
  EXPECT_EQ(o.symmetric, kIntSentinel);
  for (const auto* m : {&o.a, &o.b, &o.d, &o.dstar})
    EXPECT_TRUE(all_equal(*m, kSentinel));
  for (const float x : {o.h, o.ex, o.ey, o.gxy, o.nuxy, o.alphax, o.alphay, o.alphaxy}) {
    EXPECT_EQ(x, kSentinel);
  }
  EXPECT_EQ(o.plies, kIntSentinel);
  EXPECT_TRUE(cards_untouched(o));
  EXPECT_EQ(o.ierr, ierr);
}

void expect_near_relative(double actual, double expected, const char* what) {
  EXPECT_NEAR(actual, expected, 2.0e-6 * std::fabs(expected) + 1.0e-12) << what;
}

// ---------------------------------------------------------------------------
// LAMINATE_STIFFNESS

struct StiffnessCall {
  Ply ply = kTape;
  std::vector<char> layup = layup_buffer("(0/45/-45/90)S");
  std::int64_t layup_length = CORVANE_LAYUP_LENGTH;
  std::int64_t cards_length = CORVANE_CARDS_LENGTH;
  Outputs out;

  void run() {
    static auto* const entry =
        library_under_test().entry<decltype(LAMINATE_STIFFNESS)>("LAMINATE_STIFFNESS");
    Outputs& o = out;
    entry(&ply.t, &ply.e1, &ply.e2, &ply.g12, &ply.nu12, &ply.cte1, &ply.cte2,
          layup.data(), layup_length, &o.symmetric, o.a.data(), o.b.data(), o.d.data(),
          o.dstar.data(), &o.h, &o.ex, &o.ey, &o.gxy, &o.nuxy, &o.alphax, &o.alphay,
          &o.alphaxy, &o.plies, o.cards.data(), cards_length, &o.ierr);
  }
};

TEST(LaminateStiffnessEntry, SinglePlyGivesThePlyStiffnessAndConstants) {
  StiffnessCall call;
  call.layup = layup_buffer("(0)");
  call.run();
  const Outputs& o = call.out;
  ASSERT_EQ(o.ierr, 0);
  const Reduced q = reduced(kTape);
  const double t = kTape.t, t3 = t * t * t / 12.0;
  const double expected_a[9] = {t * q.q11, t * q.q12, 0, t * q.q12, t * q.q22,
                                0,         0,         0, t * q.q66};
  for (int i = 0; i < 9; ++i) {
    expect_near_relative(o.a[i], expected_a[i], "A");
    EXPECT_EQ(o.b[i], 0.0f);
    expect_near_relative(o.d[i], expected_a[i] / t * t3, "D");
    EXPECT_EQ(o.dstar[i], o.d[i]);
  }
  EXPECT_EQ(o.symmetric, -1);
  EXPECT_EQ(o.plies, 1);
  EXPECT_EQ(o.h, kTape.t);
  // One ply at 0 degrees: the laminate's constants are the ply's.
  expect_near_relative(o.ex, kTape.e1, "Ex");
  expect_near_relative(o.ey, kTape.e2, "Ey");
  expect_near_relative(o.gxy, kTape.g12, "Gxy");
  expect_near_relative(o.nuxy, kTape.nu12, "nuxy");
  expect_near_relative(o.alphax, kTape.cte1, "alphax");
  expect_near_relative(o.alphay, kTape.cte2, "alphay");
  EXPECT_NEAR(o.alphaxy, 0.0f, 1.0e-12f);
}

TEST(LaminateStiffnessEntry, UnsymmetricCrossPlyHasCouplingAndReducedBending) {
  StiffnessCall call;
  call.layup = layup_buffer("(0/90)");
  call.run();
  const Outputs& o = call.out;
  ASSERT_EQ(o.ierr, 0);
  EXPECT_EQ(o.symmetric, 0);
  EXPECT_EQ(o.plies, 2);
  EXPECT_EQ(o.h, 2.0f * kTape.t);
  // Plies at z in [-t, 0] and [0, t].
  const Reduced q = reduced(kTape);
  const double t = kTape.t;
  expect_near_relative(o.a[0], t * (q.q11 + q.q22), "A11");
  expect_near_relative(o.b[0], 0.5 * t * t * (q.q22 - q.q11), "B11");
  expect_near_relative(o.b[4], -o.b[0], "B22");

  // [D*] = [D] - [B][A]^-1[B], here with [A] and [B] diagonal but for the 12 terms.
  const auto at = [](const std::vector<float>& m, int i, int j) {
    return double{m[static_cast<std::size_t>(i + 3 * j)]};
  };
  const double det = at(o.a, 0, 0) * at(o.a, 1, 1) - at(o.a, 0, 1) * at(o.a, 1, 0);
  const double inv[2][2] = {{at(o.a, 1, 1) / det, -at(o.a, 0, 1) / det},
                            {-at(o.a, 1, 0) / det, at(o.a, 0, 0) / det}};
  for (int i = 0; i < 2; ++i) {
    for (int j = 0; j < 2; ++j) {
      double bab = 0.0;
      for (int k = 0; k < 2; ++k) {
        for (int l = 0; l < 2; ++l) bab += at(o.b, i, k) * inv[k][l] * at(o.b, l, j);
      }
      EXPECT_NEAR(at(o.dstar, i, j), at(o.d, i, j) - bab, 1.0e-4 * at(o.d, 0, 0));
    }
  }
  EXPECT_LT(o.dstar[0], 0.9f * o.d[0]);
}

TEST(LaminateStiffnessEntry, QuasiIsotropicLaminateHasIsotropicMembraneStiffness) {
  StiffnessCall call;  // (0/45/-45/90)S
  call.run();
  const Outputs& o = call.out;
  ASSERT_EQ(o.ierr, 0);
  EXPECT_EQ(o.symmetric, -1);
  EXPECT_EQ(o.plies, 8);
  // Stiffness invariants: A11 = h U1, A12 = h U4, A66 = (A11 - A12) / 2.
  const Reduced q = reduced(kTape);
  const double h = 8.0 * kTape.t;
  const double u1 = (3 * q.q11 + 3 * q.q22 + 2 * q.q12 + 4 * q.q66) / 8;
  const double u4 = (q.q11 + q.q22 + 6 * q.q12 - 4 * q.q66) / 8;
  expect_near_relative(o.a[0], h * u1, "A11");
  expect_near_relative(o.a[4], h * u1, "A22");
  expect_near_relative(o.a[3], h * u4, "A12");
  expect_near_relative(o.a[8], h * (u1 - u4) / 2, "A66");
  expect_near_relative(o.gxy, (u1 - u4) / 2, "Gxy");
  expect_near_relative(o.ex, o.ey, "Ex = Ey");
  expect_near_relative(o.nuxy, u4 / u1, "nuxy");
  for (const float bij : o.b) EXPECT_NEAR(bij, 0.0f, 1.0e-3f);
}

TEST(LaminateStiffnessEntry, ErrorsZeroMatricesAndConstantsAndKeepTheRest) {
  const struct {
    const char* what;
    Ply ply;
    std::string layup;
    std::int32_t ierr;
  } cases[] = {
      {"t = 0", {0.0f, 140000, 10000, 5000, 0.3f, 0, 0}, "(0/90)S", 1},
      {"t just below 1e-5", {0.99e-5f, 140000, 10000, 5000, 0.3f, 0, 0}, "(0/90)S", 1},
      {"negative E1", {0.125f, -1, 10000, 5000, 0.3f, 0, 0}, "(0/90)S", 1},
      {"negative E2", {0.125f, 140000, -1, 5000, 0.3f, 0, 0}, "(0/90)S", 1},
      {"negative G12", {0.125f, 140000, 10000, -1, 0.3f, 0, 0}, "(0/90)S", 1},
      {"negative nu12", {0.125f, 140000, 10000, 5000, -0.1f, 0, 0}, "(0/90)S", 1},
      {"invalid material, bad layup", {0.0f, 140000, 10000, 5000, 0.3f, 0, 0}, "0/90", 1},
      {"no parentheses", kTape, "0/90", 2},
      {"unknown mark", kTape, "(0/90)X", 2},
      {"empty ply", kTape, "(0//90)", 2},
      {"unreadable repeat", kTape, "(0/90)S2", 2},
      {"blank layup", kTape, "", 2},
      {"256 plies", kTape, long_layup(128, "S"), 2},
      {"cross-ply without Poisson coupling",
       {0.125f, 140000, 10000, 5000, 0, 0, 0},
       "(0/90)S",
       2},
      {"singular [A]", {0.125f, 0, 0, 0, 0, 0, 0}, "(0/90)S", 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    StiffnessCall call;
    call.ply = c.ply;
    call.layup = layup_buffer(c.layup);
    call.run();
    const Outputs& o = call.out;
    EXPECT_EQ(o.ierr, c.ierr);
    expect_matrices_and_constants_zero(o);
    EXPECT_EQ(o.symmetric, kIntSentinel);
    EXPECT_TRUE(all_equal(o.dstar, kSentinel));
    EXPECT_EQ(o.plies, kIntSentinel);
    EXPECT_TRUE(cards_untouched(o));
  }
}

TEST(LaminateStiffnessEntry, TheLimitsOfTheMaterialAreAccepted) {
  // Thickness exactly 1e-5, zero Poisson's ratio on a laminate that still has
  // Poisson coupling, negative thermal expansion.
  StiffnessCall call;
  call.ply = {1.0e-5f, 140000, 10000, 5000, 0.0f, -1.0e-6f, -2.0e-6f};
  call.layup = layup_buffer("(45/-45)S");
  call.run();
  EXPECT_EQ(call.out.ierr, 0);
  EXPECT_FLOAT_EQ(call.out.h, 4.0e-5f);
}

TEST(LaminateStiffnessEntry, CardsAreTheDeckCutOrPaddedToTenThousand) {
  const struct {
    const char* what;
    std::string layup;
  } cases[] = {{"short deck", "(0/45/-45/90)S"},
               {"deck beyond 10000", long_layup(127, "$")}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    StiffnessCall call;
    call.layup = layup_buffer(c.layup);
    call.run();
    ASSERT_EQ(call.out.ierr, 0);

    LAMINA tape =
        new_lamina(kTape.t, kTape.e1, kTape.e2, kTape.g12, kTape.nu12, 1000, 1000);
    tape.CTE1 = kTape.cte1;
    tape.CTE2 = kTape.cte2;
    std::vector<float> angles;
    ASSERT_EQ(parse_stacking_sequence(c.layup, angles), 0);
    const std::string deck = bulk_data_cards(LAMINATESTRESSED(tape, angles));
    EXPECT_EQ(call.out.card_text(), pad_or_cut(deck, CORVANE_CARDS_LENGTH));
  }
  StiffnessCall call;
  call.layup = layup_buffer(long_layup(127, "$"));
  call.run();
  EXPECT_EQ(call.out.plies, 253);
}

TEST(LaminateStiffnessEntry, ShortDeckEndsInBlanks) {
  StiffnessCall call;
  call.run();
  ASSERT_EQ(call.out.ierr, 0);
  const std::string text = call.out.card_text();
  const std::size_t end = text.rfind("\r\n");
  ASSERT_NE(end, std::string::npos);
  EXPECT_EQ(text.find_first_not_of(' ', end + 2), std::string::npos);
  for (const char* card : {"MAT8", "PCOMP", "MAT2"}) {
    EXPECT_NE(text.find(card), std::string::npos) << card;
  }
}

TEST(LaminateStiffnessEntry, TheLayupIsReadAsExactlyOneThousandCharacters) {
  // "(0/90", blanks, and ")" as the last of n characters.
  const auto closed_at = [](std::size_t n) {
    std::string text = "(0/90";
    text.resize(n - 1, ' ');
    return text + ")";
  };
  const struct {
    const char* what;
    std::vector<char> layup;
    std::int32_t ierr;
  } cases[] = {
      {"closed at character 1000", layup_buffer(closed_at(1000)), 0},
      // The buffer is longer than 1000 and the host says so: still refused.
      {"closed at character 1001", layup_buffer(closed_at(1001), 1001), 2},
      {"closed far beyond", layup_buffer(closed_at(5000), 5000), 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    StiffnessCall call;
    call.layup = c.layup;
    call.layup_length = static_cast<std::int64_t>(c.layup.size());
    call.run();
    EXPECT_EQ(call.out.ierr, c.ierr);
    if (c.ierr == 0) {
      EXPECT_EQ(call.out.plies, 2);
    }
  }
}

TEST(LaminateStiffnessEntry, AZeroByteEndsTheLayup) {
  // What follows the zero byte would be refused if it were read.
  std::vector<char> layup = layup_buffer(std::string("(0/90)S\0)junk", 13));
  StiffnessCall call;
  call.layup = layup;
  call.run();
  EXPECT_EQ(call.out.ierr, 0);
  EXPECT_EQ(call.out.plies, 4);

  // A C host's text: zero padded.
  StiffnessCall zero_padded;
  zero_padded.layup.assign(CORVANE_LAYUP_LENGTH, '\0');
  std::string_view("(0/90)S").copy(zero_padded.layup.data(), 7);
  zero_padded.run();
  EXPECT_EQ(zero_padded.out.ierr, 0);
  EXPECT_EQ(zero_padded.out.plies, 4);

  // A zero byte first: an empty text.
  StiffnessCall empty;
  empty.layup[0] = '\0';
  empty.run();
  EXPECT_EQ(empty.out.ierr, 2);
}

TEST(LaminateStiffnessEntry, HiddenLengthsAreIgnored) {
  StiffnessCall reference;
  reference.run();
  ASSERT_EQ(reference.out.ierr, 0);
  for (const std::int64_t length :
       {std::int64_t{0}, std::int64_t{3}, std::int64_t{-1}, std::int64_t{1} << 40}) {
    StiffnessCall call;
    call.layup_length = length;
    call.cards_length = length;
    call.run();
    EXPECT_EQ(call.out.ierr, 0) << length;
    EXPECT_EQ(call.out.plies, reference.out.plies) << length;
    EXPECT_EQ(call.out.a, reference.out.a) << length;
    EXPECT_EQ(call.out.card_text(), reference.out.card_text()) << length;
  }
}

TEST(LaminateStiffnessEntry, NullPointerWritesOnlyTheErrorCode) {
  static auto* const entry =
      library_under_test().entry<decltype(LAMINATE_STIFFNESS)>("LAMINATE_STIFFNESS");
  constexpr int kPointers = 24;  // the 26 arguments less the two hidden lengths
  for (int missing = 0; missing < kPointers; ++missing) {
    SCOPED_TRACE(missing);
    StiffnessCall call;
    Ply& p = call.ply;
    Outputs& o = call.out;
    const auto given = [missing](int position, auto* pointer) {
      return position == missing ? nullptr : pointer;
    };
    entry(given(0, &p.t), given(1, &p.e1), given(2, &p.e2), given(3, &p.g12),
          given(4, &p.nu12), given(5, &p.cte1), given(6, &p.cte2),
          given(7, call.layup.data()), CORVANE_LAYUP_LENGTH, given(8, &o.symmetric),
          given(9, o.a.data()), given(10, o.b.data()), given(11, o.d.data()),
          given(12, o.dstar.data()), given(13, &o.h), given(14, &o.ex), given(15, &o.ey),
          given(16, &o.gxy), given(17, &o.nuxy), given(18, &o.alphax),
          given(19, &o.alphay), given(20, &o.alphaxy), given(21, &o.plies),
          given(22, o.cards.data()), CORVANE_CARDS_LENGTH, given(23, &o.ierr));
    expect_nothing_written(o, missing == kPointers - 1 ? kIntSentinel : -1);
  }
}

// ---------------------------------------------------------------------------
// BI_MATERIAL_LAMINATE_STIFFNESS

struct BiMaterialCall {
  Ply first = kTape, second = kFabric;
  std::vector<char> layup = layup_buffer("(0/45./-45./90)S");
  Outputs out;

  void run() {
    static auto* const entry =
        library_under_test().entry<decltype(BI_MATERIAL_LAMINATE_STIFFNESS)>(
            "BI_MATERIAL_LAMINATE_STIFFNESS");
    Ply& p = first;
    Ply& q = second;
    Outputs& o = out;
    entry(&p.t, &p.e1, &p.e2, &p.g12, &p.nu12, &p.cte1, &p.cte2, &q.t, &q.e1, &q.e2,
          &q.g12, &q.nu12, &q.cte1, &q.cte2, layup.data(), CORVANE_LAYUP_LENGTH,
          &o.symmetric, o.a.data(), o.b.data(), o.d.data(), o.dstar.data(), &o.h, &o.ex,
          &o.ey, &o.gxy, &o.nuxy, &o.alphax, &o.alphay, &o.alphaxy, &o.plies,
          o.cards.data(), CORVANE_CARDS_LENGTH, &o.ierr);
  }
};

TEST(BiMaterialStiffnessEntry, OneMaterialTwiceGivesTheSingleMaterialResults) {
  BiMaterialCall two;
  two.second = kTape;
  two.run();
  StiffnessCall one;  // (0/45/-45/90)S
  one.run();
  ASSERT_EQ(two.out.ierr, 0);
  ASSERT_EQ(one.out.ierr, 0);
  const Outputs &x = two.out, &y = one.out;
  EXPECT_EQ(x.symmetric, y.symmetric);
  EXPECT_EQ(x.a, y.a);
  EXPECT_EQ(x.b, y.b);
  EXPECT_EQ(x.d, y.d);
  EXPECT_EQ(x.dstar, y.dstar);
  EXPECT_EQ(x.plies, y.plies);
  const float xs[] = {x.h, x.ex, x.ey, x.gxy, x.nuxy, x.alphax, x.alphay, x.alphaxy};
  const float ys[] = {y.h, y.ex, y.ey, y.gxy, y.nuxy, y.alphax, y.alphay, y.alphaxy};
  for (int i = 0; i < 8; ++i) EXPECT_EQ(xs[i], ys[i]) << i;
}

TEST(BiMaterialStiffnessEntry, PliesWithATrailingPointAreOfTheSecondMaterial) {
  const Reduced tape = reduced(kTape), fabric = reduced(kFabric);
  const double t1 = kTape.t, t2 = kFabric.t;
  const struct {
    const char* what;
    std::string layup;
    double h, a11, a22;
    std::int32_t plies, symmetric;
  } cases[] = {
      {"tape at 0, fabric at 90", "(0/90.)", t1 + t2, t1 * tape.q11 + t2 * fabric.q22,
       t1 * tape.q22 + t2 * fabric.q11, 2, 0},
      // The mirrored plies keep their material.
      {"fabric at 0, tape at 90, mirrored", "(0./90)S", 2 * (t1 + t2),
       2 * (t2 * fabric.q11 + t1 * tape.q22), 2 * (t2 * fabric.q22 + t1 * tape.q11), 4,
       -1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    BiMaterialCall call;
    call.layup = layup_buffer(c.layup);
    call.run();
    const Outputs& o = call.out;
    ASSERT_EQ(o.ierr, 0);
    expect_near_relative(o.h, c.h, "h");
    expect_near_relative(o.a[0], c.a11, "A11");
    expect_near_relative(o.a[4], c.a22, "A22");
    EXPECT_EQ(o.plies, c.plies);
    EXPECT_EQ(o.symmetric, c.symmetric);
  }
}

TEST(BiMaterialStiffnessEntry, CardsCarryBothMaterials) {
  BiMaterialCall call;
  call.run();
  ASSERT_EQ(call.out.ierr, 0);

  LAMINA m1 = new_lamina(kTape.t, kTape.e1, kTape.e2, kTape.g12, kTape.nu12, 1000, 1000);
  m1.CTE1 = kTape.cte1;
  m1.CTE2 = kTape.cte2;
  LAMINA m2 = new_lamina(kFabric.t, kFabric.e1, kFabric.e2, kFabric.g12, kFabric.nu12,
                         1000, 1000);
  m2.CTE1 = kFabric.cte1;
  m2.CTE2 = kFabric.cte2;
  std::vector<float> angles;
  std::vector<std::int32_t> materials;
  ASSERT_EQ(parse_stacking_sequence("(0/45./-45./90)S", angles, &materials), 0);
  const std::string deck = bulk_data_cards(LAMINATESTRESSED(m1, m2, angles, materials));
  EXPECT_EQ(call.out.card_text(), pad_or_cut(deck, CORVANE_CARDS_LENGTH));
  const std::string text = call.out.card_text();
  EXPECT_NE(text.find("MAT8"), text.rfind("MAT8"));  // two MAT8 cards
}

TEST(BiMaterialStiffnessEntry, ErrorsZeroEveryResultAndKeepTheCards) {
  const Ply no_thickness{0.0f, 140000, 10000, 5000, 0.3f, 0, 0};
  const Ply negative_nu{0.125f, 140000, 10000, 5000, -0.3f, 0, 0};
  const Ply no_coupling{0.125f, 140000, 10000, 5000, 0.0f, 0, 0};
  const struct {
    const char* what;
    Ply first, second;
    std::string layup;
    std::int32_t ierr;
  } cases[] = {
      {"material 1 without thickness", no_thickness, kFabric, "(0/90.)S", 1},
      {"material 2 unused but invalid", kTape, no_thickness, "(0/90)S", 1},
      {"material 2 negative nu12", kTape, negative_nu, "(0/90.)S", 1},
      {"both invalid", negative_nu, no_thickness, "(0/90)S", 1},
      {"layup refused", kTape, kFabric, "(0/90.", 2},
      {"layup of 256 plies", kTape, kFabric, long_layup(128, "S"), 2},
      {"cross-ply without Poisson coupling", no_coupling, no_coupling, "(0/90.)S", 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    BiMaterialCall call;
    call.first = c.first;
    call.second = c.second;
    call.layup = layup_buffer(c.layup);
    call.run();
    const Outputs& o = call.out;
    EXPECT_EQ(o.ierr, c.ierr);
    expect_matrices_and_constants_zero(o);
    EXPECT_EQ(o.symmetric, 0);
    EXPECT_TRUE(all_equal(o.dstar, 0.0f));
    EXPECT_EQ(o.plies, 0);
    EXPECT_TRUE(cards_untouched(o));
  }
}

TEST(BiMaterialStiffnessEntry, NullPointerWritesOnlyTheErrorCode) {
  static auto* const entry =
      library_under_test().entry<decltype(BI_MATERIAL_LAMINATE_STIFFNESS)>(
          "BI_MATERIAL_LAMINATE_STIFFNESS");
  constexpr int kPointers = 31;  // the 33 arguments less the two hidden lengths
  for (int missing = 0; missing < kPointers; ++missing) {
    SCOPED_TRACE(missing);
    BiMaterialCall call;
    Ply& p = call.first;
    Ply& q = call.second;
    Outputs& o = call.out;
    const auto given = [missing](int position, auto* pointer) {
      return position == missing ? nullptr : pointer;
    };
    entry(given(0, &p.t), given(1, &p.e1), given(2, &p.e2), given(3, &p.g12),
          given(4, &p.nu12), given(5, &p.cte1), given(6, &p.cte2), given(7, &q.t),
          given(8, &q.e1), given(9, &q.e2), given(10, &q.g12), given(11, &q.nu12),
          given(12, &q.cte1), given(13, &q.cte2), given(14, call.layup.data()),
          CORVANE_LAYUP_LENGTH, given(15, &o.symmetric), given(16, o.a.data()),
          given(17, o.b.data()), given(18, o.d.data()), given(19, o.dstar.data()),
          given(20, &o.h), given(21, &o.ex), given(22, &o.ey), given(23, &o.gxy),
          given(24, &o.nuxy), given(25, &o.alphax), given(26, &o.alphay),
          given(27, &o.alphaxy), given(28, &o.plies), given(29, o.cards.data()),
          CORVANE_CARDS_LENGTH, given(30, &o.ierr));
    expect_nothing_written(o, missing == kPointers - 1 ? kIntSentinel : -1);
  }
}

}  // namespace
}  // namespace corvane
