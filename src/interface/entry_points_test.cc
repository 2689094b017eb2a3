// Every entry point of both libraries, loaded by path as a host loads them,
// driven by the table of tests/support/entry_point_table.h: what the boundary
// owns for all of them (null pointers, refusals, untouched outputs, texts and
// hidden lengths), then one path to the core's results for each entry point of
// the strength library. The results digest pins the numbers of the other six.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "cards/bulk_data_cards.h"
#include "cards/solver_deck.h"
#include "crippling_sections/crippling_section.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/impact_strength.h"
#include "laminates_stressed/laminate_stressed.h"
#include "laminates_stressed/notched_strength.h"
#include "laminates_stressed/ply_criteria.h"
#include "support/entry_point_table.h"
#include "support/test_support.h"
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
// The table's call of `name`, changed first.
Arguments called(
    std::string_view name, void (*change)(Arguments&) = [](Arguments&) {}) {
  Arguments a = entry_point(name).arguments();
  change(a);
  return called(entry_point(name), a);
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

// The cards are the deck cut to exactly 10000 characters.
TEST(StiffnessEntries, CardsAreTheDeckCut) {
  std::string layup = "(0";
  for (int i = 1; i < 127; ++i) layup += "/" + std::to_string(i % 4 * 30);
  layup += ")$";
  const EntryPoint& bi = entry_point("BI_MATERIAL_LAMINATE_STIFFNESS");
  Arguments a = bi.arguments();
  bi.call(a.retext(14, layup));
  ASSERT_EQ(a.code(), 0);
  std::vector<float> angles;
  std::vector<std::int32_t> materials;
  parse_stacking_sequence(layup, angles, &materials);
  const LAMINATESTRESSED lam(lamina_of(kTape), lamina_of(kFabric), angles, materials);
  EXPECT_EQ(a.text_of(29), pad_or_cut(bulk_data_cards(lam), CORVANE_CARDS_LENGTH));
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

// A ply material of the strength entry points from its 14 values at `at`.
LAMINA ply(const std::vector<float>& v, std::size_t at = 0) {
  LAMINA m = new_lamina(v[at], v[at + 1], v[at + 2], v[at + 3], v[at + 4], v[at + 12],
                        v[at + 13]);
  m.CTE1 = v[at + 5];
  m.CTE2 = v[at + 6];
  m.set_strengths(v[at + 7], v[at + 8], v[at + 11], v[at + 9], v[at + 10]);
  return m;
}
std::vector<float> floats(const Arguments& a, std::size_t first, std::size_t n) {
  std::vector<float> v;
  for (std::size_t i = first; i < first + n; ++i) v.push_back(a.get<float>(i));
  return v;
}

TEST(StrengthEntries, GiveTheCoreResults) {
  // A C host's zero byte ends the keyword; blanks and letter case are ignored.
  const std::pair<std::string_view, std::int32_t> criteria[] = {
      {{"tsai_wu\0xyz", 11}, 5}, {"  MTS", 31}, {"Puck", 9}};
  std::vector<float> angles;
  std::vector<std::int32_t> materials;
  parse_stacking_sequence("(0/45./-45/90)S", angles, &materials);
  for (const bool two : {false, true}) {
    const EntryPoint& e =
        entry_point(two ? "BI_MATERIAL_LAMINATE_STRENGTH" : "LAMINATE_STRENGTH");
    const std::size_t n = two ? 28 : 14;
    for (const auto& [name, code] : criteria) {
      Arguments a = e.arguments();
      a[n + 1].assign(name.begin(), name.end());
      a[n + 1].resize(CORVANE_STRENGTH_CRITERION_LENGTH, ' ');
      e.call(a);
      ASSERT_EQ(a.code(), 0) << a.said();
      const std::vector<float> v = floats(a, 0, n), loads = a.all_of<float>(n + 4);
      const LAMINATESTRESSED lam =
          two ? LAMINATESTRESSED(ply(v), ply(v, 14), angles, materials)
              : LAMINATESTRESSED(ply(v), angles);
      const std::size_t cases = loads.size() / 7;
      std::vector<float> rf(cases);
      std::vector<std::int32_t> where(3 * cases);
      ASSERT_TRUE(lam.strength_plan({&code, 1})
                      .evaluate(loads, {rf, std::span(where).first(cases),
                                        std::span(where).subspan(cases, cases),
                                        std::span(where).last(cases)})
                      .ok());
      EXPECT_EQ(a.all_of<float>(n + 5), rf) << name;
      for (std::size_t k = 0; k < 3; ++k) {
        EXPECT_EQ(
            a.all_of<std::int32_t>(n + 6 + k),
            std::vector(where.begin() + k * cases, where.begin() + (k + 1) * cases));
      }
    }
  }
}

TEST(CripplingEntry, GivesTheCoreResults) {
  const Arguments a = called("SECTION_CRIPPLING");
  ASSERT_EQ(a.code(), 0) << a.said();
  const std::vector<float> m = a.all_of<float>(1);
  std::vector<float> flange, web;
  parse_stacking_sequence("(0/45/-45/90)2S", flange);
  parse_stacking_sequence("(45/-45/0/0/90)S", web);
  const LAMINATESTRESSED f(ply(m), flange), w(ply(m, 14), web);
  CRIPPLINGSECTION z;
  z.segments = {{20, 10, 20, 0, EdgeCondition::one_edge_free, &f, 500},
                {40, 0, 0, 90, EdgeCondition::no_edge_free, &w, 0},
                {20, -10, -20, 0, EdgeCondition::one_edge_free, &f, 500}};
  z.column = {300, 1};
  SectionCrippling r;
  ASSERT_TRUE(z.analyse(r).ok());
  for (std::size_t i = 0; i < 3; ++i) {
    const SegmentCrippling& c = r.segments[i];
    EXPECT_EQ((std::vector{a.get<float>(12, i), a.get<float>(13, i), a.get<float>(14, i),
                           a.get<float>(15, i)}),
              (std::vector{c.thickness, c.ex, c.fcu, c.fcc}));
  }
  EXPECT_EQ(floats(a, 17, 7), (std::vector{r.area, r.ea, r.fcc, r.pcc, r.rho,
                                           r.column_stress, r.column_load}));
  EXPECT_EQ(a.get<std::int32_t>(24), static_cast<std::int32_t>(r.column));
  const Arguments alone = called("SECTION_CRIPPLING", [](Arguments& s) {
    s.set(0, 0, 1).set(2, 0, 1);  // one segment of one material
  });
  EXPECT_EQ(alone.get<float>(15), r.segments[0].fcc) << alone.said();
  // A web of b/t 320: a warning.
  const Arguments wide =
      called("SECTION_CRIPPLING", [](Arguments& w) { w.set(3, 4, 400.0f); });
  EXPECT_EQ(wide.code(), 0);
  EXPECT_EQ(wide.get<std::int32_t>(16, 1), 2);
  EXPECT_EQ(wide.said().rfind("Warning! Segment 2: b/t = 320 above", 0), 0u)
      << wide.said();
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

TEST(SolverDeckEntries, TheCoreDeckBlankPaddedWithItsLength) {
  for (const bool two : {false, true}) {
    const Arguments a =
        called(two ? "BI_MATERIAL_LAMINATE_SOLVER_DECK" : "LAMINATE_SOLVER_DECK");
    const std::size_t n = two ? 24 : 12;
    std::vector<float> v = floats(a, 0, n);
    v.insert(v.begin() + 12, {1000, 1000});  // the allowables the deck is built with
    v.insert(v.end(), {1000, 1000});
    std::vector<float> angles;
    std::vector<std::int32_t> index;
    parse_stacking_sequence(trim_trailing(a.text_of(n)), angles, &index);
    const std::string expected =
        two ? solver_deck(LAMINATESTIFFNESS(ply(v), ply(v, 14), angles, index),
                          LineEnd::crlf)
                  .text
            : solver_deck(LAMINATESTIFFNESS(ply(v), angles)).text;
    ASSERT_EQ(a.get<std::int32_t>(n + 3), static_cast<std::int32_t>(expected.size()));
    EXPECT_EQ(a.text_of(n + 2), pad_or_cut(expected, CORVANE_SOLVER_DECK_LENGTH));
  }
}

TEST(NotchedEntries, GiveTheCoreResults) {
  LAMINA m = new_lamina(CORVANE_KEYED);
  ASSERT_EQ(set_properties(m, "OHT=450 OHC=300 A0FHT=1.2 FBR=900"), "");
  ASSERT_EQ(read_cdt_model_text("CDTM-T04 0.003 0.5 0.004 0.05 1", 1.0f, m.cdt_model), 0);
  std::vector<float> angles;
  parse_stacking_sequence("(0/45/-45/90)2S", angles);
  const LAMINATESTRESSED lam(m, angles);
  const NotchCheck all[] = {NotchCheck::oht, NotchCheck::ohc, NotchCheck::fht,
                            NotchCheck::fhc, NotchCheck::bearing};
  const Arguments a = called("NOTCHED_LAMINATE_STRENGTH");
  std::vector<float> rf(10);
  ASSERT_TRUE(
      NotchedPlan(lam, all).evaluate(a.all_of<float>(12), a.all_of<float>(13), rf).ok());
  EXPECT_EQ(a.all_of<float>(14), rf);
  float u;  // an unwritten float
  std::memset(&u, kUnwritten, sizeof u);
  // One check: a value per case, the rest unwritten.
  EXPECT_EQ(called("NOTCHED_LAMINATE_STRENGTH", [](Arguments& c) { c.retext(9, " fhc"); })
                .all_of<float>(14),
            (std::vector<float>{rf[3], rf[8], u, u, u, u, u, u, u, u}));

  const Arguments after = called("IMPACT_LAMINATE_STRENGTH");
  ASSERT_TRUE(ImpactPlan(lam, 30.0f, true)
                  .evaluate(after.all_of<float>(13), std::span(rf).first(6))
                  .ok());
  EXPECT_EQ(after.all_of<float>(14), std::vector<float>(rf.begin(), rf.begin() + 6));
  // No damage model: its column unwritten.
  EXPECT_EQ(called("IMPACT_LAMINATE_STRENGTH", [](Arguments& c) { c.retext(9, ""); })
                .all_of<float>(14),
            (std::vector<float>{rf[0], rf[1], u, rf[3], rf[4], u}));
}

// Each element of a many-element call is the one-element call on its values,
// its code that call's error code; the second element refused where one can be.
TEST(ManyEntries, EachElementIsTheOneElementCall) {
  const struct {
    const char *many, *one;
    void (*refuse_second)(Arguments&);
  } pairs[] = {{"PLATE_BUCKLING_LOADS_MANY", "LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS",
                [](Arguments& a) { a.set(2, 1, -1.0f); }},
               {"PLATE_BUCKLING_RF_MANY", "LAMINATE_RECTANGULAR_SS_BUCKLING_RF",
                [](Arguments& a) { a.set(5, 1, 5e-7f); }},
               {"SHELL_BUCKLING_LOADS_MANY", "LAMINATE_SHELL_BUCKLING_LOADS",
                [](Arguments& a) { a.set(2, 9 + 1, 0.0f).set(2, 9 + 3, 0.0f); }},
               {"STRAINS_IN_PLANE_MANY", "LAMINATE_STRAINS_IN_PLANE",
                [](Arguments& a) { a.set(2, 1, 1e-7f); }}};
  for (const auto& [many, one, refuse_second] : pairs) {
    const Arguments m = called(many, refuse_second);
    const bool codes = m.size() > entry_point(one).arguments().size() + 1;
    EXPECT_EQ(m.code(), codes ? 1 : 0) << many;
    for (std::size_t k = 0; k < 2; ++k) {
      Arguments s = entry_point(one).arguments();
      const auto element = [&](std::size_t i) {
        const std::size_t w = m[i].size() / 2;
        return Bytes(m[i].begin() + k * w, m[i].begin() + (k + 1) * w);
      };
      for (std::size_t i = 0; i + 1 < s.size(); ++i) {
        if (!s.output(i)) s[i] = element(i + 1);
      }
      entry_point(one).call(s);
      for (std::size_t i = 0; i + 1 < s.size(); ++i)
        EXPECT_EQ(s[i], element(i + 1)) << many;
      if (codes) {
        EXPECT_EQ(s.code(), m.get<std::int32_t>(s.size(), k)) << many;
      }
    }
  }
}

}  // namespace
}  // namespace corvane::testing
