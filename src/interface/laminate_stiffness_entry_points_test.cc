// LAMINATE_STIFFNESS and BI_MATERIAL_LAMINATE_STIFFNESS through the built shared
// library: what the boundary owns (the results digest pins the numbers). Texts
// of exactly 1000 and 10000 bytes on the heap, so that a sanitizer catches a
// byte too far, and every output pre-filled with a sentinel, to see what each
// call writes and what it leaves alone.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cards/bulk_data_cards.h"
#include "corvane/corvane.h"
#include "interface/loaded_library.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/laminate_stressed.h"
#include "support/test_support.h"
#include "util/fixed_width.h"

namespace corvane {
namespace {

using testing::kFabric;
using testing::kTape;
using testing::layup_buffer;
using testing::Ply;

constexpr float kSentinel = -777.0f;
constexpr std::int32_t kIntSentinel = 7777;

// A layup of n listed plies and a symmetry mark.
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
  std::string cards = std::string(CORVANE_CARDS_LENGTH, '\x7f');
  std::int32_t ierr = kIntSentinel;

  static std::vector<float> matrix() { return std::vector<float>(9, kSentinel); }
  // Every result as one list, for comparisons.
  std::vector<float> all() const {
    std::vector<float> v{static_cast<float>(symmetric),
                         static_cast<float>(plies),
                         h,
                         ex,
                         ey,
                         gxy,
                         nuxy,
                         alphax,
                         alphay,
                         alphaxy};
    for (const auto* m : {&a, &b, &d, &dstar}) v.insert(v.end(), m->begin(), m->end());
    return v;
  }
};

struct Call {
  Call(Ply first, Ply second, bool two, std::vector<char> layup,
       std::int64_t length = CORVANE_LAYUP_LENGTH)
      : first(first), second(second), two(two), layup(std::move(layup)), length(length) {}
  Ply first, second;
  bool two;  // BI_MATERIAL_LAMINATE_STIFFNESS
  std::vector<char> layup;
  std::int64_t length;
  Outputs out;
  int missing = -1;  // the pointer argument passed as null

  template <typename T>
  T* given(int position, T* pointer) const {
    return position == missing ? nullptr : pointer;
  }
  void run() {
    static auto* const one =
        library_under_test().entry<decltype(LAMINATE_STIFFNESS)>("LAMINATE_STIFFNESS");
    static auto* const bi =
        library_under_test().entry<decltype(BI_MATERIAL_LAMINATE_STIFFNESS)>(
            "BI_MATERIAL_LAMINATE_STIFFNESS");
    Ply &p = first, &q = second;
    Outputs& o = out;
    if (two) {
      bi(given(0, &p.t), given(1, &p.e1), given(2, &p.e2), given(3, &p.g12),
         given(4, &p.nu12), given(5, &p.cte1), given(6, &p.cte2), given(7, &q.t),
         given(8, &q.e1), given(9, &q.e2), given(10, &q.g12), given(11, &q.nu12),
         given(12, &q.cte1), given(13, &q.cte2), given(14, layup.data()), length,
         given(15, &o.symmetric), given(16, o.a.data()), given(17, o.b.data()),
         given(18, o.d.data()), given(19, o.dstar.data()), given(20, &o.h),
         given(21, &o.ex), given(22, &o.ey), given(23, &o.gxy), given(24, &o.nuxy),
         given(25, &o.alphax), given(26, &o.alphay), given(27, &o.alphaxy),
         given(28, &o.plies), given(29, o.cards.data()), length, given(30, &o.ierr));
      return;
    }
    one(given(0, &p.t), given(1, &p.e1), given(2, &p.e2), given(3, &p.g12),
        given(4, &p.nu12), given(5, &p.cte1), given(6, &p.cte2), given(7, layup.data()),
        length, given(8, &o.symmetric), given(9, o.a.data()), given(10, o.b.data()),
        given(11, o.d.data()), given(12, o.dstar.data()), given(13, &o.h),
        given(14, &o.ex), given(15, &o.ey), given(16, &o.gxy), given(17, &o.nuxy),
        given(18, &o.alphax), given(19, &o.alphay), given(20, &o.alphaxy),
        given(21, &o.plies), given(22, o.cards.data()), length, given(23, &o.ierr));
  }
};

Call run(std::string_view layup, bool two = false, Ply first = kTape,
         Ply second = kFabric) {
  Call call(first, second, two, layup_buffer(layup));
  call.run();
  return call;
}

// A refusal zeroes [A], [B], [D] and the constants; the single-material call
// keeps [D*], the symmetry flag, the ply count and the cards as they were, the
// two-material call zeroes them but the cards.
TEST(StiffnessEntries, RefusalsZeroWhatTheyShouldAndKeepTheRest) {
  const Ply no_coupling{0.125f, 140000, 10000, 5000, 0, 0, 0};
  const struct {
    std::string layup;
    bool two;
    Ply first, second;
    std::int32_t ierr;
  } cases[] = {
      {"(0/90)S", false, {0.99e-5f, 140000, 10000, 5000, 0.3f, 0, 0}, kFabric, 1},
      {"(0/90)S", false, {0.125f, 140000, 10000, 5000, -0.1f, 0, 0}, kFabric, 1},
      {"0/90", false, {0.0f, 140000, 10000, 5000, 0.3f, 0, 0}, kFabric, 1},
      {"(0/90)S2", false, kTape, kFabric, 2},
      {long_layup(128, "S"), false, kTape, kFabric, 2},
      {"(0/90)S", false, no_coupling, kFabric, 2},
      {"(0/90)S", false, {0.125f, 0, 0, 0, 0, 0, 0}, kFabric, 2},
      {"(0/90)S", true, kTape, {0.0f, 1, 1, 1, 0.3f, 0, 0}, 1},  // unused but invalid
      {"(0/90.", true, kTape, kFabric, 2},
      {"(0/90.)S", true, no_coupling, no_coupling, 2},
  };
  for (const auto& c : cases) {
    const Outputs o = run(c.layup, c.two, c.first, c.second).out;
    EXPECT_EQ(o.ierr, c.ierr) << c.layup;
    const std::vector<float> all = o.all();
    for (std::size_t i = 2; i < 10 + 27; ++i) EXPECT_EQ(all[i], 0.0f) << c.layup << i;
    const float kept = c.two ? 0.0f : kSentinel;
    for (std::size_t i = 10 + 27; i < all.size(); ++i) EXPECT_EQ(all[i], kept) << i;
    EXPECT_EQ(o.symmetric, c.two ? 0 : kIntSentinel);
    EXPECT_EQ(o.plies, c.two ? 0 : kIntSentinel);
    EXPECT_EQ(o.cards, std::string(CORVANE_CARDS_LENGTH, '\x7f')) << c.layup;
  }
  // The least thickness, a zero Poisson's ratio with coupling left, a negative
  // expansion: accepted.
  EXPECT_EQ(
      run("(45/-45)S", false, {1.0e-5f, 140000, 10000, 5000, 0, -1e-6f, -2e-6f}).out.ierr,
      0);
}

// The cards are the deck cut or blank padded to exactly 10000 characters.
TEST(StiffnessEntries, CardsAreTheDeckCutOrPadded) {
  for (const std::string& layup :
       {std::string("(0/45./-45./90)S"), long_layup(127, "$")}) {
    const Outputs o = run(layup, true).out;
    ASSERT_EQ(o.ierr, 0);
    std::vector<float> angles;
    std::vector<std::int32_t> materials;
    parse_stacking_sequence(layup, angles, &materials);
    const LAMINATESTRESSED lam(testing::lamina_of(kTape), testing::lamina_of(kFabric),
                               angles, materials);
    EXPECT_EQ(o.cards, pad_or_cut(bulk_data_cards(lam), CORVANE_CARDS_LENGTH));
  }
  // One material given twice is the single-material call, bit for bit.
  EXPECT_EQ(run("(0/45/-45/90)S", true, kTape, kTape).out.all(),
            run("(0/45/-45/90)S").out.all());
}

// The layup is read as exactly 1000 characters whatever the hidden length
// says, and a C host's zero byte ends it early.
TEST(StiffnessEntries, TheLayupIsReadAsExactlyOneThousandCharacters) {
  const auto closed_at = [](std::size_t n) {
    std::string text = "(0/90";
    text.resize(n - 1, ' ');
    return text + ")";
  };
  const struct {
    std::vector<char> layup;
    std::int64_t length;
    std::int32_t ierr, plies;
  } cases[] = {
      {layup_buffer(closed_at(1000)), 0, 0, 2},
      {layup_buffer(closed_at(1001), 1001), 1001, 2, kIntSentinel},
      {layup_buffer(closed_at(5000), 5000), std::int64_t{1} << 40, 2, kIntSentinel},
      {layup_buffer(std::string("(0/90)S\0)junk", 13)), -1, 0, 4},
      {layup_buffer(std::string("\0(0/90)S", 8)), 3, 2, kIntSentinel},
  };
  for (const auto& c : cases) {
    Call call(kTape, kFabric, false, c.layup, c.length);
    call.run();
    EXPECT_EQ(call.out.ierr, c.ierr) << c.length;
    EXPECT_EQ(call.out.plies, c.plies) << c.length;
  }
}

// A null pointer anywhere: only the error code is written (-1), or nothing at
// all when it is the error code that is missing.
TEST(StiffnessEntries, NullPointerWritesOnlyTheErrorCode) {
  const std::vector<float> untouched = Outputs().all();
  for (const bool two : {false, true}) {
    const int pointers = two ? 31 : 24;
    for (int missing = 0; missing < pointers; ++missing) {
      Call call(kTape, kFabric, two, layup_buffer("(0/45./-45./90)S"));
      call.missing = missing;
      call.run();
      EXPECT_EQ(call.out.all(), untouched) << two << missing;
      EXPECT_EQ(call.out.cards, Outputs().cards);
      EXPECT_EQ(call.out.ierr, missing == pointers - 1 ? kIntSentinel : -1) << missing;
    }
  }
}

}  // namespace
}  // namespace corvane
