// The entry points when memory runs out: every allocation a stiffness call
// makes is failed in turn, and each call must still return with error code 2,
// having copied nothing of the laminate; the other four allocate nothing. A
// program of its own, because it replaces the global allocation functions.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <string_view>
#include <vector>

#include "corvane/corvane.h"

namespace {

// Counts down the allocations; the one that reaches zero fails. Zero: nothing
// fails. Set only around a single call.
long allocations_before_failure = 0;

}  // namespace

void* operator new(std::size_t size) {
  if (allocations_before_failure > 0 && --allocations_before_failure == 0) {
    throw std::bad_alloc();
  }
  if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
  throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }

namespace {

constexpr float kSentinel = -777.0f;

struct Outputs {
  std::int32_t symmetric = 7777, plies = 7777, ierr = 7777;
  float a[9], b[9], d[9], dstar[9];
  float h, ex, ey, gxy, nuxy, ax, ay, axy;
  std::vector<char> cards = std::vector<char>(CORVANE_CARDS_LENGTH, '\x7f');
  Outputs() { std::fill_n(dstar, 9, kSentinel); }
};

std::vector<char> layup(std::string_view text) {
  std::vector<char> buffer(CORVANE_LAYUP_LENGTH, ' ');
  text.copy(buffer.data(), text.size());
  return buffer;
}

// Calls `call` with the n-th allocation failing, n = 1, 2, ... until a call
// gets through with no failure. The failed ones must report error code 2 and
// leave the host's copy-only results alone.
template <typename Call>
void fail_each_allocation(Call call, bool bi_material) {
  for (long n = 1;; ++n) {
    Outputs o;
    allocations_before_failure = n;
    call(o);
    const bool failed = allocations_before_failure == 0;
    allocations_before_failure = 0;
    if (!failed) {
      EXPECT_EQ(o.ierr, 0);
      EXPECT_GT(n, 3) << "the call should allocate";
      return;
    }
    SCOPED_TRACE(n);
    ASSERT_EQ(o.ierr, 2);
    EXPECT_EQ(o.a[0], 0.0f);
    EXPECT_EQ(o.plies, bi_material ? 0 : 7777);
    EXPECT_EQ(o.dstar[0], bi_material ? 0.0f : kSentinel);
    EXPECT_TRUE(
        std::all_of(o.cards.begin(), o.cards.end(), [](char c) { return c == '\x7f'; }));
  }
}

const float t = 0.125f, e1 = 140000.0f, e2 = 10000.0f, g12 = 5000.0f, nu12 = 0.3f;
const float cte1 = -0.5e-6f, cte2 = 30.0e-6f;

TEST(EntryPointsOutOfMemory, LaminateStiffness) {
  const std::vector<char> text = layup("(0/45/-45/90)S");
  fail_each_allocation(
      [&](Outputs& o) {
        LAMINATE_STIFFNESS(&t, &e1, &e2, &g12, &nu12, &cte1, &cte2, text.data(),
                           CORVANE_LAYUP_LENGTH, &o.symmetric, o.a, o.b, o.d, o.dstar,
                           &o.h, &o.ex, &o.ey, &o.gxy, &o.nuxy, &o.ax, &o.ay, &o.axy,
                           &o.plies, o.cards.data(), CORVANE_CARDS_LENGTH, &o.ierr);
      },
      false);
}

TEST(EntryPointsOutOfMemory, BiMaterialLaminateStiffness) {
  const std::vector<char> text = layup("(0/45./-45./90)S");
  fail_each_allocation(
      [&](Outputs& o) {
        BI_MATERIAL_LAMINATE_STIFFNESS(
            &t, &e1, &e2, &g12, &nu12, &cte1, &cte2, &t, &e2, &e2, &g12, &nu12, &cte2,
            &cte2, text.data(), CORVANE_LAYUP_LENGTH, &o.symmetric, o.a, o.b, o.d,
            o.dstar, &o.h, &o.ex, &o.ey, &o.gxy, &o.nuxy, &o.ax, &o.ay, &o.axy, &o.plies,
            o.cards.data(), CORVANE_CARDS_LENGTH, &o.ierr);
      },
      true);
}

// Nothing can throw in the other four, so they have no catch: the first
// allocation would fail and its exception reach this test.
TEST(EntryPointsOutOfMemory, OtherEntryPointsAllocateNothing) {
  const float a[9] = {50000, 15000, 0, 15000, 40000, 0, 0, 0, 17000};
  const float d[9] = {4000, 1200, 0, 1200, 3500, 0, 0, 0, 1400};
  const float l = 600.0f, b = 300.0f, r = 1500.0f, n = -100.0f;
  float out[5];
  std::int32_t ierr = 7;
  allocations_before_failure = 1;
  LAMINATE_STRAINS_IN_PLANE(&t, &e1, &e2, &g12, &nu12, &n, &n, &n, &out[0], &out[1],
                            &out[2], &out[3], &out[4], &ierr);
  LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS(d, &l, &b, &out[0], &out[1], &out[2], &ierr);
  LAMINATE_RECTANGULAR_SS_BUCKLING_RF(&n, &n, &n, &out[0], &out[1], &out[2], &out[3],
                                      &ierr);
  LAMINATE_SHELL_BUCKLING_LOADS(a, d, &l, &b, &r, &t, &out[0], &out[1], &out[2], &ierr);
  EXPECT_EQ(allocations_before_failure, 1);
  allocations_before_failure = 0;
}

}  // namespace
