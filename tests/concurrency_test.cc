// Every entry point of both libraries called from eight threads at once, on the
// calls of the table (good, refused and degenerate), must write the very bytes
// of the same calls made one after another: nothing is shared between calls.
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <thread>
#include <vector>

#include "support/entry_point_table.h"

namespace corvane::testing {
namespace {

struct Case {
  const EntryPoint* entry;
  Arguments arguments;
};

std::vector<Case> mixed_calls() {
  std::vector<Case> calls;
  const auto add = [&](const char* name, void (*change)(Arguments&)) {
    const EntryPoint& e = entry_point(name);
    calls.push_back({&e, e.arguments()});
    change(calls.back().arguments);
  };
  for (const EntryPoint& e : entry_points()) add(e.name.c_str(), [](Arguments&) {});
  for (const Refusal& r : refusals()) add(r.entry, r.change);
  // Elements refused among good ones, and NaN.
  add("STRAINS_IN_PLANE_MANY", [](Arguments& a) { a.set(2, 1, 1e-7f); });
  add("PLATE_BUCKLING_RF_MANY", [](Arguments& a) { a.set(5, 0, 5e-7f); });
  add("SHELL_BUCKLING_LOADS_MANY", [](Arguments& a) { a.set(4, 1, -1.0f); });
  add("LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS",
      [](Arguments& a) { a.set(1, 0, std::numeric_limits<float>::quiet_NaN()); });
  add("LAMINATE_STRENGTH",
      [](Arguments& a) { a.set(18, 0, std::numeric_limits<float>::quiet_NaN()); });
  return calls;
}

TEST(Concurrency, EightThreadsGiveTheSerialResultsBitForBit) {
  setenv("BASES_DATOS", "", 1);  // the machine's own material files stay out
  std::vector<Case> calls = mixed_calls();
  std::vector<Bytes> serial;
  for (Case c : calls) {
    c.entry->call(c.arguments);
    serial.push_back(c.arguments.all());
  }
  constexpr int kThreads = 8, kRounds = 10;
  std::vector<int> mismatches(kThreads, 0);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (int round = 0; round < kRounds; ++round) {
        // Each thread starts elsewhere, so that different entry points overlap.
        for (std::size_t k = 0; k < calls.size(); ++k) {
          const std::size_t i = (k + static_cast<std::size_t>(t) * 5) % calls.size();
          Arguments a = calls[i].arguments;
          calls[i].entry->call(a);
          if (a.all() != serial[i]) ++mismatches[t];
        }
      }
    });
  }
  for (auto& thread : threads) thread.join();
  for (int t = 0; t < kThreads; ++t) EXPECT_EQ(mismatches[t], 0) << "thread " << t;
}

}  // namespace
}  // namespace corvane::testing
