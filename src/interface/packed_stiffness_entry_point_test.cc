// LAMINATE_STIFFNESS_PACKED of the strength library against the entry points
// of corvane.h it packs, both libraries loaded by path: every output byte the
// same, on success and on each kind of refusal, from outputs that start alike.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

#include "corvane/corvane.h"
#include "corvane/corvane_strength.h"
#include "support/entry_point_table.h"
#include "support/test_support.h"

namespace corvane::testing {
namespace {

struct Outputs {
  std::array<float, 44> results;
  std::array<std::int32_t, 2> counts = {5, 5};
  std::vector<char> cards = std::vector<char>(CORVANE_CARDS_LENGTH, '?');
  std::int32_t ierr = 77;
  Outputs() { results.fill(-7.0f); }
  bool operator==(const Outputs& o) const {
    return std::memcmp(results.data(), o.results.data(), sizeof results) == 0 &&
           counts == o.counts && cards == o.cards && ierr == o.ierr;
  }
};

// The call of corvane.h, its results spread to the packed layout.
Outputs reference(int materials, const Ply& p, const Ply& q,
                  const std::vector<char>& layup) {
  Outputs o;
  float* r = o.results.data();
  std::int32_t* c = o.counts.data();
  if (materials == 1) {
    corvane_library().entry<decltype(LAMINATE_STIFFNESS)>("LAMINATE_STIFFNESS")(
        &p.t, &p.e1, &p.e2, &p.g12, &p.nu12, &p.cte1, &p.cte2, layup.data(), 0, c, r,
        r + 9, r + 18, r + 27, r + 36, r + 37, r + 38, r + 39, r + 40, r + 41, r + 42,
        r + 43, c + 1, o.cards.data(), 0, &o.ierr);
  } else {
    corvane_library().entry<decltype(BI_MATERIAL_LAMINATE_STIFFNESS)>(
        "BI_MATERIAL_LAMINATE_STIFFNESS")(
        &p.t, &p.e1, &p.e2, &p.g12, &p.nu12, &p.cte1, &p.cte2, &q.t, &q.e1, &q.e2, &q.g12,
        &q.nu12, &q.cte1, &q.cte2, layup.data(), 0, c, r, r + 9, r + 18, r + 27, r + 36,
        r + 37, r + 38, r + 39, r + 40, r + 41, r + 42, r + 43, c + 1, o.cards.data(), 0,
        &o.ierr);
  }
  return o;
}

Outputs packed(std::int32_t materials, const Ply& p, const Ply& q,
               const std::vector<char>& layup) {
  const std::array<float, 14> constants = {p.t,    p.e1,   p.e2,   p.g12, p.nu12,
                                           p.cte1, p.cte2, q.t,    q.e1,  q.e2,
                                           q.g12,  q.nu12, q.cte1, q.cte2};
  Outputs o;
  strength_library().entry<decltype(LAMINATE_STIFFNESS_PACKED)>(
      "LAMINATE_STIFFNESS_PACKED")(&materials, constants.data(), layup.data(), 0,
                                   o.results.data(), o.counts.data(), o.cards.data(), 0,
                                   &o.ierr);
  return o;
}

TEST(PackedStiffness, GivesTheBytesOfTheEntryPointItPacks) {
  const Ply bad{kTape.t, -1.0f, kTape.e2, kTape.g12, kTape.nu12, 0.0f, 0.0f};
  struct Case {
    int materials;
    Ply p, q;
    const char* layup;
    std::int32_t code;
  };
  const Case cases[] = {
      {1, kTape, kTape, "(0/45/-45/90)S", 0},
      {1, kTape, kFabric, "(0/45/90)", 0},
      {2, kTape, kFabric, "(45./0/-45.)S", 0},
      {2, kFabric, kTape, "(0)", 0},
      {1, bad, kTape, "(0)", 1},
      {2, kTape, bad, "(0)", 1},
      {1, kTape, kTape, "(0/45", 2},
      {2, kTape, kFabric, "(0/x)", 2},
  };
  for (const Case& c : cases) {
    const auto layup = layup_buffer(c.layup);
    const Outputs got = packed(c.materials, c.p, c.q, layup);
    EXPECT_EQ(got.ierr, c.code) << c.layup;
    EXPECT_TRUE(got == reference(c.materials, c.p, c.q, layup)) << c.layup;
  }
}

TEST(PackedStiffness, RefusesAMaterialCountOtherThanOneOrTwo) {
  const auto layup = layup_buffer("(0)");
  for (const std::int32_t n : {0, 3, -1}) {
    Outputs untouched;
    untouched.ierr = 3;
    EXPECT_TRUE(packed(n, kTape, kTape, layup) == untouched) << n;
  }
}

}  // namespace
}  // namespace corvane::testing
