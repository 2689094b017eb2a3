// LAMINATE_STIFFNESS_PACKED of the strength library against the entry points
// of corvane.h it packs, both libraries loaded by path: every output byte the
// same, on success and on each kind of refusal, from outputs that start alike.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>

#include "support/entry_point_table.h"
#include "support/test_support.h"

namespace corvane::testing {
namespace {

TEST(PackedStiffness, GivesTheBytesOfTheEntryPointItPacks) {
  const Ply bad{kTape.t, -1.0f, kTape.e2, kTape.g12, kTape.nu12, 0.0f, 0.0f};
  const struct {
    std::int32_t materials;
    Ply p, q;
    const char* layup;
    std::int32_t code;
  } cases[] = {
      {1, kTape, kTape, "(0/45/-45/90)S", 0},
      {1, kTape, kFabric, "(0/45/90)", 0},
      {2, kTape, kFabric, "(45./0/-45.)S", 0},
      {2, kFabric, kTape, "(0)", 0},
      {1, bad, kTape, "(0)", 1},
      {2, kTape, bad, "(0)", 1},
      {1, kTape, kTape, "(0/45", 2},
      {2, kTape, kFabric, "(0/x)", 2},
  };
  for (const auto& c : cases) {
    const bool two = c.materials == 2;
    const EntryPoint& e =
        entry_point(two ? "BI_MATERIAL_LAMINATE_STIFFNESS" : "LAMINATE_STIFFNESS");
    const std::size_t layup = two ? 14 : 7;
    Arguments packed = entry_point("LAMINATE_STIFFNESS_PACKED").arguments(),
              one = e.arguments();
    const auto p = std::bit_cast<std::array<float, 7>>(c.p),
               q = std::bit_cast<std::array<float, 7>>(c.q);
    packed.set(0, 0, c.materials).retext(2, c.layup);
    one.retext(layup, c.layup);
    for (std::size_t k = 0; k < 7; ++k) {
      packed.set(1, k, p[k]).set(1, 7 + k, q[k]);
      one.set(k, 0, p[k]);
      if (two) one.set(7 + k, 0, q[k]);
    }
    entry_point("LAMINATE_STIFFNESS_PACKED").call(packed);
    e.call(one);
    EXPECT_EQ(packed.code(), c.code) << c.layup;
    // The packed outputs in the order of the call they pack: the symmetry
    // flag, the 44 results, the ply count, the cards and the code.
    const Bytes& counts = packed[4];
    Bytes got(counts.begin(), counts.begin() + 4), expected;
    got.insert(got.end(), packed[3].begin(), packed[3].end());
    got.insert(got.end(), counts.begin() + 4, counts.end());
    for (const std::size_t i : {5, 6})
      got.insert(got.end(), packed[i].begin(), packed[i].end());
    for (std::size_t i = layup + 1; i < one.size(); ++i)
      expected.insert(expected.end(), one[i].begin(), one[i].end());
    EXPECT_EQ(got, expected) << c.layup;
  }
}

}  // namespace
}  // namespace corvane::testing
