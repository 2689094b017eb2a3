// Every entry point of both libraries, loaded by path as a host loads them,
// driven by the table of tests/support/entry_point_table.h: what the boundary
// owns for all of them (null pointers, refusals, untouched outputs, texts and
// hidden lengths). The digests (tests/) pin every entry point's numbers.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "laminates_stressed/ply_criteria.h"
#include "support/entry_point_table.h"
#include "util/fixed_width.h"

namespace corvane::testing {
namespace {

// The machine's own material files stay out of the results.
const bool kOnlyTheInstalledMaterials = [] {
  setenv("BASES_DATOS", "", 1);
  return setenv("PATH", "/nonexistent", 1) == 0;
}();

const std::string kBlankMessage(CORVANE_STRENGTH_MESSAGE_LENGTH, ' ');

Arguments called(const EntryPoint& e, Arguments a) {
  e.call(a);
  return a;
}
// The table's call of `name`.
Arguments called(std::string_view name) {
  return called(entry_point(name), entry_point(name).arguments());
}

TEST(EntryPoints, SucceedWritingEveryOutputAndNoInputWhateverTheHiddenLengths) {
  ::testing::internal::CaptureStdout();
  for (const EntryPoint& e : entry_points()) {
    const Arguments fresh = e.arguments();
    Arguments a = called(e, fresh);
    EXPECT_EQ(a.code(), 0) << e.name << a.said();
    if (a.has_message()) {
      EXPECT_EQ(a.said(), kBlankMessage) << e.name;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
      if (a.output(i)) {
        EXPECT_NE(a[i], Bytes(a[i].size(), kUnwritten)) << e.name << " " << i;
      } else {
        EXPECT_EQ(a[i], fresh[i]) << e.name << " " << i;
      }
    }
    for (const std::int64_t hidden :
         {std::int64_t{0}, std::int64_t{-1}, std::int64_t{1} << 40}) {
      Arguments b = fresh;
      b.hidden = hidden;
      EXPECT_EQ(called(e, b).all(), a.all()) << e.name << " " << hidden;
    }
  }
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
}

TEST(EntryPoints, ANullPointerWritesOnlyTheErrorCode) {
  for (const EntryPoint& e : entry_points()) {
    const Arguments fresh = e.arguments();
    for (std::size_t missing = 0; missing < fresh.size(); ++missing) {
      Arguments a = fresh;
      a.missing = static_cast<int>(missing);
      e.call(a);
      for (std::size_t i = 0; i + 1 < a.size(); ++i) {
        EXPECT_EQ(a[i], fresh[i]) << e.name << " " << missing;
      }
      EXPECT_EQ(a.code(), missing + 1 == a.size() ? fresh.code() : -1) << e.name;
    }
  }
}

TEST(EntryPoints, RefusalsWriteTheCodeAndReasonOnly) {
  for (const Refusal& r : refusals()) {
    const EntryPoint& e = entry_point(r.entry);
    Arguments before = e.arguments();
    r.change(before);
    const Arguments a = called(e, before);
    const std::string said = a.said();
    EXPECT_EQ(a.code(), r.code) << r.entry << " " << said;
    if (a.has_message() && r.code != 0) {
      EXPECT_EQ(said.rfind("Error! ", 0), 0u) << said;
      EXPECT_NE(said.find(r.reason), std::string::npos) << said;
      EXPECT_EQ(said.back(), ' ');
    }
    for (std::size_t i = 0; i + 1 < a.size(); ++i) {
      if (a.is_message(i)) continue;
      const auto set = std::find_if(r.sets.begin(), r.sets.end(),
                                    [i](const auto& s) { return s.first == i; });
      if (set == r.sets.end()) {
        EXPECT_EQ(a[i], before[i]) << r.entry << " " << r.code << " writes " << i;
        continue;
      }
      for (const float x : a.all_of<float>(i)) EXPECT_EQ(x, set->second) << r.entry << i;
    }
  }
}

// The stacking text is read as exactly 1000 characters whatever the hidden
// length says, and a C host's zero byte ends it early.
TEST(StiffnessEntries, TheLayupIsReadAsExactlyOneThousandCharacters) {
  const auto closed_at = [](std::size_t n) {
    std::string text = "(0/90";
    text.resize(n - 1, ' ');
    return text + ")";
  };
  const struct {
    std::string layup;
    std::int32_t ierr, plies;
  } cases[] = {
      {closed_at(1000), 0, 2},
      {closed_at(1001), 2, -1},
      {std::string("(0/90)S\0)junk", 13), 0, 4},
      {std::string("\0(0/90)S", 8), 2, -1},
  };
  const EntryPoint& e = entry_point("LAMINATE_STIFFNESS");
  for (const auto& c : cases) {
    Arguments a = e.arguments();
    a[7].assign(c.layup.begin(), c.layup.end());
    a[7].resize(std::max<std::size_t>(c.layup.size(), CORVANE_LAYUP_LENGTH), ' ');
    a.hidden = static_cast<std::int64_t>(c.layup.size());
    e.call(a);
    EXPECT_EQ(a.code(), c.ierr) << c.layup.size();
    if (c.plies > 0) {
      EXPECT_EQ(a.get<std::int32_t>(21), c.plies);
    }
  }
}

// One variable passed as an input and as an output: the plate's loads are
// zeroed before its dimensions are read, the shell's inputs are read first.
TEST(BucklingEntries, InputsSharedWithOutputs) {
  const float d[9] = {CORVANE_PANEL_D};
  float plate[3] = {500, 300, 7};
  std::int32_t ierr = 7;
  corvane_library().entry<decltype(LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS)>(
      "LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS")(d, &plate[0], &plate[1], &plate[2],
                                                &plate[0], &plate[1], &ierr);
  EXPECT_EQ(plate[0] + plate[1] + plate[2], 0.0f);
  const Arguments apart = called("LAMINATE_SHELL_BUCKLING_LOADS");
  float a[9] = {CORVANE_PANEL_A}, shell[4] = {600, 300, 1500, 2};
  corvane_library().entry<decltype(LAMINATE_SHELL_BUCKLING_LOADS)>(
      "LAMINATE_SHELL_BUCKLING_LOADS")(a, d, &shell[0], &shell[1], &shell[2], &shell[3],
                                       &shell[0], &shell[1], &shell[2], &ierr);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(shell[i], apart.get<float>(6 + i));
}

TEST(MaterialEntries, TheInstalledMaterialByNameAndTheList) {
  const Arguments a = called("MATERIAL_DATA");
  const LAMINA m = t300_5208();
  EXPECT_EQ(a.all_of<float>(3),
            (std::vector<float>{m.CPT, m.E1, m.E2, m.G12, m.v12, m.CTE1, m.CTE2, m.F1t,
                                m.F1c, m.F2t, m.F2c, m.F12, m.uetall, m.uecall}));
  EXPECT_EQ(a.get<std::int32_t>(4), 0);
  EXPECT_EQ(trim_trailing(a.text_of(5)), "T300/5208");
  EXPECT_EQ(std::filesystem::path(std::string(trim_trailing(a.text_of(6)))).filename(),
            "textbook_tapes.mat");
  EXPECT_EQ(a.get<std::int32_t>(7), 12);
  const Arguments list = called("MATERIAL_NAMES");
  EXPECT_EQ(list.get<std::int32_t>(2), 3);
  EXPECT_EQ(trim_trailing(list.text_of(3)), "B(4)/5505\nScotchply 1002\nT300/5208\n");
}

}  // namespace
}  // namespace corvane::testing
