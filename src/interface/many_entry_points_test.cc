// The many-element entry points through the built strength library: a null
// pointer or a negative count writes nothing but the error code, and no count
// writes nothing else either. That each element is the one-element call bit for
// bit is checked from Python, against both libraries (python/tests).
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "corvane/corvane_strength.h"
#include "interface/loaded_library.h"

namespace corvane {
namespace {

// Two elements' worth of every argument, outputs pre-filled with a sentinel.
struct Arrays {
  std::array<std::array<float, 18>, 16> f{};
  std::array<std::int32_t, 2> codes = {7, 7};
  std::int32_t ierr = 7777;
  Arrays() {
    for (auto& a : f) a.fill(-7.0f);
  }
  bool untouched() const {
    for (const auto& a : f) {
      for (const float x : a) {
        if (x != -7.0f) return false;
      }
    }
    return codes[0] == 7 && codes[1] == 7;
  }
};

// An entry point called with count n and its pointer argument `missing`
// (0-based, the count first) null; the number of its pointer arguments.
struct Entry {
  std::string name;
  int pointers;
  std::function<void(Arrays&, const std::int32_t*, int)> call;
};

template <typename T>
T* unless(int missing, int i, T* p) {
  return i == missing ? nullptr : p;
}

std::array<Entry, 4> entries() {
  const auto& lib = library_under_test();
  auto* loads =
      lib.entry<decltype(PLATE_BUCKLING_LOADS_MANY)>("PLATE_BUCKLING_LOADS_MANY");
  auto* rf = lib.entry<decltype(PLATE_BUCKLING_RF_MANY)>("PLATE_BUCKLING_RF_MANY");
  auto* shell =
      lib.entry<decltype(SHELL_BUCKLING_LOADS_MANY)>("SHELL_BUCKLING_LOADS_MANY");
  auto* strains = lib.entry<decltype(STRAINS_IN_PLANE_MANY)>("STRAINS_IN_PLANE_MANY");
  // Argument k (after the count) is f[k - 1]; the codes and ierr come last.
  return {{
      {"PLATE_BUCKLING_LOADS_MANY", 8,
       [=](Arrays& x, const std::int32_t* n, int m) {
         const auto p = [&](int k) { return unless(m, k, x.f[k - 1].data()); };
         loads(unless(m, 0, n), p(1), p(2), p(3), p(4), p(5), p(6),
               unless(m, 7, &x.ierr));
       }},
      {"PLATE_BUCKLING_RF_MANY", 10,
       [=](Arrays& x, const std::int32_t* n, int m) {
         const auto p = [&](int k) { return unless(m, k, x.f[k - 1].data()); };
         rf(unless(m, 0, n), p(1), p(2), p(3), p(4), p(5), p(6), p(7),
            unless(m, 8, x.codes.data()), unless(m, 9, &x.ierr));
       }},
      {"SHELL_BUCKLING_LOADS_MANY", 12,
       [=](Arrays& x, const std::int32_t* n, int m) {
         const auto p = [&](int k) { return unless(m, k, x.f[k - 1].data()); };
         shell(unless(m, 0, n), p(1), p(2), p(3), p(4), p(5), p(6), p(7), p(8), p(9),
               unless(m, 10, x.codes.data()), unless(m, 11, &x.ierr));
       }},
      {"STRAINS_IN_PLANE_MANY", 16,
       [=](Arrays& x, const std::int32_t* n, int m) {
         const auto p = [&](int k) { return unless(m, k, x.f[k - 1].data()); };
         strains(unless(m, 0, n), p(1), p(2), p(3), p(4), p(5), p(6), p(7), p(8), p(9),
                 p(10), p(11), p(12), p(13), unless(m, 14, x.codes.data()),
                 unless(m, 15, &x.ierr));
       }},
  }};
}

TEST(ManyEntries, NullPointerWritesOnlyTheErrorCode) {
  const std::int32_t two = 2;
  for (const Entry& entry : entries()) {
    for (int missing = 0; missing < entry.pointers; ++missing) {
      Arrays x;
      entry.call(x, &two, missing);
      EXPECT_EQ(x.ierr, missing == entry.pointers - 1 ? 7777 : -1)
          << entry.name << " " << missing;
      EXPECT_TRUE(x.untouched()) << entry.name << " " << missing;
    }
  }
}

TEST(ManyEntries, ANegativeCountIsRefusedAndNoCountWritesNothing) {
  for (const Entry& entry : entries()) {
    for (const auto& [n, code] : {std::pair{-1, 2}, {INT32_MIN, 2}, {0, 0}}) {
      Arrays x;
      entry.call(x, &n, -1);
      EXPECT_EQ(x.ierr, code) << entry.name << " " << n;
      EXPECT_TRUE(x.untouched()) << entry.name << " " << n;
    }
  }
}

TEST(ManyEntries, EveryElementIsWrittenThoughOneIsRefused) {
  // Critical loads of the second element below 1e-6: code 1 there, and the
  // first element's reserve factor all the same.
  Arrays x;
  x.f[0] = {-10, -10};
  x.f[1] = x.f[2] = {0, 0};
  x.f[3] = x.f[4] = x.f[5] = {100, 1e-7f};
  const std::int32_t two = 2;
  entries()[1].call(x, &two, -1);
  EXPECT_EQ(x.ierr, 1);
  EXPECT_EQ(x.codes[0], 0);
  EXPECT_EQ(x.codes[1], 1);
  EXPECT_FLOAT_EQ(x.f[6][0], 10.0f);
  EXPECT_EQ(x.f[6][1], 0.0f);
  EXPECT_EQ(x.f[6][2], -7.0f);  // nothing past the count
}

}  // namespace
}  // namespace corvane
