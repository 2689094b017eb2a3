// Every entry point of the table on 1000 random variants of its good call, all
// bytes of every call hashed, must hash as tests/testdata/entry_point_digest.txt
// stores: the results digest's guard, for the strength half and the refusals'
// codes and reasons too. A change meant to alter results writes the file again
// (CORVANE_WRITE_DIGEST=1) and says so in its commit.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "results_digest.h"
#include "support/entry_point_table.h"

namespace corvane::testing {
namespace {

constexpr int kVariants = 1000;

// A text of the good call starting so is replaced by one of these; "(" marks a
// layup (the section's three in one argument stay): 255 plies make decks longer
// than the cards' 10000 characters, "(0/0.)" mirrors angles but not materials.
const std::pair<std::string_view, std::vector<const char*>> kTexts[] = {
    {"(",
     {"(0/45/-45/90)S", "(0/90)2S", "(45/-45)3", "(0/45./-45./90)S", "(30/-60/10)2$",
      "(0.)", "(15/-75/90.)S", "(0/45/-45/90)32$", "(0/0.)"}},
    {"PUCK ",
     {"TSAI_HILL", "TSAI_WU", "HOFFMAN", "PUCK", "YAMADA_SUN", "MAX_STRAIN_I", "MTS"}},
    {"all ", {"OHT", "OHC", "FHT", "FHC", "BEARING", "all"}},
    {"CDTM-",
     {"CDTM-T03 0.003 0.5 0.004 0.05 0.1 0.2 1", "CDTM-T04 0.003 0.5 0.004 0.05 1",
      "CDTM-T05 0.003 0.5 0.004 0.05 1 0.9", "CDTM-T06 0.003 0.5 0.004 0.05 1", ""}},
};

void vary(Arguments& a, Cases& r) {
  std::vector<std::pair<std::size_t, std::size_t>> reals;  // argument, element
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a.kind(i) == Arguments::Kind::real) {
      for (std::size_t k = 0; k < a[i].size() / 4; ++k) {
        const float x = a.get<float>(i, k);
        a.set(i, k,
              x != 0.0f      ? x * r.uniform(0.6f, 1.4f)
              : r.chance(12) ? r.uniform(-200.0f, 200.0f)
                             : 0.0f);
        reals.push_back({i, k});
      }
    } else if (a.kind(i) == Arguments::Kind::text && a[i].size() <= 1000) {
      for (const auto& [start, texts] : kTexts) {
        if (a.text_of(i).rfind(start, 0) == 0)
          a.retext(i, texts[r.integer(0, static_cast<int>(texts.size()) - 1)]);
      }
    }
  }
  if (reals.empty() || !r.chance(30)) return;
  const auto [i, k] =
      reals[static_cast<std::size_t>(r.integer(0, static_cast<int>(reals.size()) - 1))];
  const float x = a.get<float>(i, k);
  const float odd[] = {0.0f, -x, 1e30f, 1e-30f, kInfinity, std::nanf("")};
  a.set(i, k, odd[r.integer(0, 5)]);
}

// Every byte of every argument, four at a time as a float (each NaN as one;
// no text has a NaN's bytes).
void add(const Arguments& a, Digest& digest) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t k = 0; k < a[i].size() / 4; ++k) digest.add(a.get<float>(i, k));
    digest.bytes(a[i].data() + a[i].size() / 4 * 4, a[i].size() % 4);
  }
}

std::vector<std::string> digest() {
  std::vector<std::string> lines;
  for (const EntryPoint& e : entry_points()) {
    // Where the material files are is this machine's; their reading has its tests.
    if (e.name.rfind("MATERIAL_", 0) == 0) continue;
    Cases r(20261124u);
    Digest digest;
    int succeeded = 0;
    for (int v = 0; v < kVariants; ++v) {
      Arguments a = e.arguments();
      vary(a, r);
      e.call(a);
      succeeded += a.code() == 0;
      add(a, digest);
    }
    char line[120];
    std::snprintf(line, sizeof line, "%s %d of %d succeed %016llx", e.name.c_str(),
                  succeeded, kVariants, static_cast<unsigned long long>(digest.value()));
    lines.push_back(line);
  }
  return lines;
}

TEST(EntryPointDigest, EveryCallOfEveryEntryPointHashesAsStored) {
  const std::vector<std::string> now = digest();
  if (std::getenv("CORVANE_WRITE_DIGEST") != nullptr) {
    std::ofstream out(CORVANE_ENTRY_POINT_DIGEST_FILE);
    for (const std::string& line : now) out << line << '\n';
  }
  std::ifstream file(CORVANE_ENTRY_POINT_DIGEST_FILE);
  std::vector<std::string> stored;
  for (std::string line; std::getline(file, line);) stored.push_back(line);
  EXPECT_EQ(now, stored) << "results changed; when that is meant, run this test with "
                            "CORVANE_WRITE_DIGEST=1 and say so in the commit";
}

}  // namespace
}  // namespace corvane::testing
