// The many-element entry points through the built strength library: a null
// pointer or a negative count writes nothing but the error code. Each element
// against the one-element call, and refused elements, are checked from Python
// over both libraries (python/tests/test_arrays.py).
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <functional>

#include "corvane/corvane_strength.h"
#include "interface/loaded_library.h"

namespace corvane {
namespace {

// Two elements' worth of every argument: f[k - 1] is argument k (the count is
// argument 0), then the codes and ierr. Everything starts as a sentinel.
struct Arrays {
  std::array<std::array<float, 18>, 13> f;
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
    return codes == std::array<std::int32_t, 2>{7, 7};
  }
  // Argument k, or null when it is the one `missing`.
  float* p(int k, int missing) { return k == missing ? nullptr : f[k - 1].data(); }
};

template <typename T>
T* unless(int missing, int i, T* p) {
  return i == missing ? nullptr : p;
}

// Each entry point's name, number of pointer arguments and call with count n
// and argument `missing` null.
struct Entry {
  const char* name;
  int pointers;
  std::function<void(Arrays&, const std::int32_t*, int)> call;
};

std::array<Entry, 4> entries() {
  const auto& lib = library_under_test();
  auto* loads =
      lib.entry<decltype(PLATE_BUCKLING_LOADS_MANY)>("PLATE_BUCKLING_LOADS_MANY");
  auto* rf = lib.entry<decltype(PLATE_BUCKLING_RF_MANY)>("PLATE_BUCKLING_RF_MANY");
  auto* shell =
      lib.entry<decltype(SHELL_BUCKLING_LOADS_MANY)>("SHELL_BUCKLING_LOADS_MANY");
  auto* strains = lib.entry<decltype(STRAINS_IN_PLANE_MANY)>("STRAINS_IN_PLANE_MANY");
  return {{
      {"PLATE_BUCKLING_LOADS_MANY", 8,
       [=](Arrays& x, const std::int32_t* n, int m) {
         loads(unless(m, 0, n), x.p(1, m), x.p(2, m), x.p(3, m), x.p(4, m), x.p(5, m),
               x.p(6, m), unless(m, 7, &x.ierr));
       }},
      {"PLATE_BUCKLING_RF_MANY", 10,
       [=](Arrays& x, const std::int32_t* n, int m) {
         rf(unless(m, 0, n), x.p(1, m), x.p(2, m), x.p(3, m), x.p(4, m), x.p(5, m),
            x.p(6, m), x.p(7, m), unless(m, 8, x.codes.data()), unless(m, 9, &x.ierr));
       }},
      {"SHELL_BUCKLING_LOADS_MANY", 12,
       [=](Arrays& x, const std::int32_t* n, int m) {
         shell(unless(m, 0, n), x.p(1, m), x.p(2, m), x.p(3, m), x.p(4, m), x.p(5, m),
               x.p(6, m), x.p(7, m), x.p(8, m), x.p(9, m), unless(m, 10, x.codes.data()),
               unless(m, 11, &x.ierr));
       }},
      {"STRAINS_IN_PLANE_MANY", 16,
       [=](Arrays& x, const std::int32_t* n, int m) {
         strains(unless(m, 0, n), x.p(1, m), x.p(2, m), x.p(3, m), x.p(4, m), x.p(5, m),
                 x.p(6, m), x.p(7, m), x.p(8, m), x.p(9, m), x.p(10, m), x.p(11, m),
                 x.p(12, m), x.p(13, m), unless(m, 14, x.codes.data()),
                 unless(m, 15, &x.ierr));
       }},
  }};
}

TEST(ManyEntries, NullPointerOrNegativeCountWritesOnlyTheErrorCode) {
  const std::int32_t two = 2;
  for (const Entry& entry : entries()) {
    for (int missing = 0; missing < entry.pointers; ++missing) {
      Arrays x;
      entry.call(x, &two, missing);
      EXPECT_EQ(x.ierr, missing == entry.pointers - 1 ? 7777 : -1)
          << entry.name << " " << missing;
      EXPECT_TRUE(x.untouched()) << entry.name << " " << missing;
    }
    for (const auto& [n, code] : {std::pair{-1, 2}, {INT32_MIN, 2}, {0, 0}}) {
      Arrays x;
      entry.call(x, &n, -1);
      EXPECT_EQ(x.ierr, code) << entry.name << " " << n;
      EXPECT_TRUE(x.untouched()) << entry.name << " " << n;
    }
  }
}

}  // namespace
}  // namespace corvane
