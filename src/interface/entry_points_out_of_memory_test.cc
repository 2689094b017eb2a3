// Every entry point when memory runs out: each allocation a call makes is
// failed in turn, and the call must still return, with its code and message
// for an exhausted memory and no result written; those that allocate nothing
// meet no failure. A program of its own, because it replaces the global
// allocation functions, which the loaded libraries then use too.
#include <gtest/gtest.h>

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
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }

namespace corvane::testing {
namespace {

// The code of an exhausted memory, or 0 for an entry point that allocates
// nothing, and so has no catch: an allocation would reach this test.
std::int32_t out_of_memory_code(const std::string& name) {
  if (name.find("STIFFNESS") != std::string::npos) return 2;
  if (name.rfind("MATERIAL_", 0) == 0) return 3;  // not run: see below
  if (name.find("_MANY") != std::string::npos || name.rfind("LAMINATE_R", 0) == 0 ||
      name == "LAMINATE_STRAINS_IN_PLANE" || name == "LAMINATE_SHELL_BUCKLING_LOADS") {
    return 0;
  }
  return 8;
}

TEST(EntryPointsOutOfMemory, EachFailedAllocationIsReportedAndWritesNoResult) {
  setenv("BASES_DATOS", "", 1);  // the machine's own material files stay out
  for (const EntryPoint& e : entry_points()) {
    // Left out until fixed: an allocation failing inside the material search's
    // directory listing (std::filesystem, noexcept) ends the process.
    if (e.name.rfind("MATERIAL_", 0) == 0) continue;
    const Arguments fresh = e.arguments();
    const std::int32_t code = out_of_memory_code(e.name);
    for (long n = 1;; ++n) {
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
      // Unwritten, or zeroed on entry as LAMINATE_STIFFNESS's [A] is.
      for (std::size_t i = 0; i + 1 < a.size(); ++i) {
        if (a.is_message(i) || a[i] == fresh[i]) continue;
        EXPECT_TRUE(code == 2 && a[i] == Bytes(a[i].size(), 0) && a[i].size() < 100) << i;
      }
    }
  }
}

}  // namespace
}  // namespace corvane::testing
