// Every entry point when memory runs out: each allocation a call makes is
// failed in turn, and the call must still return, with its code and message
// for an exhausted memory and no result written; those that allocate nothing
// meet no failure. A program of its own, because it replaces the global
// allocation functions, which the loaded libraries then use too.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <string>

#include "support/entry_point_table.h"

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
// The operator new above allocates with malloc, so free is the match; GCC sees
// only the new-expressions of the headers and warns.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
#pragma GCC diagnostic pop

namespace corvane::testing {
namespace {

// The code of an exhausted memory, or 0 for an entry point that allocates
// nothing, and so has no catch: an allocation would reach this test.
std::int32_t out_of_memory_code(const std::string& name) {
  if (name.find("STIFFNESS") != std::string::npos) return 2;
  if (name.rfind("MATERIAL_", 0) == 0) return 3;
  if (name.find("_MANY") != std::string::npos || name.rfind("LAMINATE_R", 0) == 0 ||
      name == "LAMINATE_STRAINS_IN_PLANE" || name == "LAMINATE_SHELL_BUCKLING_LOADS") {
    return 0;
  }
  return 8;
}

bool zeroed_or_kept(const Bytes& now, const Bytes& before) {
  for (std::size_t k = 0; k + 4 <= now.size(); k += 4) {
    const bool kept = std::equal(&now[k], &now[k] + 4, &before[k]);
    if (!kept &&
        !std::all_of(&now[k], &now[k] + 4, [](unsigned char b) { return b == 0; })) {
      return false;
    }
  }
  return true;
}

TEST(EntryPointsOutOfMemory, EachFailedAllocationIsReportedAndWritesNoResult) {
  setenv("BASES_DATOS", "", 1);  // the machine's own material files stay out
  for (const EntryPoint& e : entry_points()) {
    const Arguments fresh = e.arguments();
    const std::int32_t code = out_of_memory_code(e.name);
    // Every allocation of the first 64, then one in about 64 after: the
    // material search makes some ten thousand.
    for (long n = 1;; n += 1 + n / 64) {
      Arguments a = fresh;
      allocations_before_failure = n;
      e.call(a);
      const bool failed = allocations_before_failure == 0;
      allocations_before_failure = 0;
      if (!failed) {
        EXPECT_EQ(a.code(), 0) << e.name;
        EXPECT_EQ(n > 1, code != 0) << e.name << " allocates " << n - 1 << " times";
        break;
      }
      SCOPED_TRACE(e.name + " allocation " + std::to_string(n));
      ASSERT_EQ(a.code(), code);
      if (a.has_message()) {
        EXPECT_EQ(a.said().rfind("Error! Out of memory.  ", 0), 0u);
      }
      // Unwritten, or zeroed on entry as LAMINATE_STIFFNESS's [A] is (word by
      // word: the packed results hold zeroed and kept values side by side).
      for (std::size_t i = 0; i + 1 < a.size(); ++i) {
        if (a.is_message(i) || a[i] == fresh[i]) continue;
        EXPECT_TRUE(code == 2 && a[i].size() != CORVANE_CARDS_LENGTH &&
                    zeroed_or_kept(a[i], fresh[i]))
            << i;
      }
    }
  }
}

}  // namespace
}  // namespace corvane::testing
