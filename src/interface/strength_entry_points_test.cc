// LAMINATE_STRENGTH and BI_MATERIAL_LAMINATE_STRENGTH called through the built
// strength library, texts of exactly their lengths on the heap and every output
// pre-filled with a sentinel, to see what each call writes and what it leaves
// alone.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "corvane/corvane_strength.h"
#include "crippling_sections/crippling_section.h"
#include "interface/loaded_library.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/laminate_stressed.h"
#include "support/test_support.h"

namespace corvane {
namespace {

using testing::layup_buffer;

struct StrengthCall {
  bool two = false;  // BI_MATERIAL_LAMINATE_STRENGTH, material 2 first a copy of 1
  LAMINA m = t300_5208();
  std::vector<float> v = {m.CPT, m.E1,  m.E2,  m.G12, m.v12, m.CTE1,   m.CTE2,
                          m.F1t, m.F1c, m.F2t, m.F2c, m.F12, m.uetall, m.uecall,
                          m.CPT, m.E1,  m.E2,  m.G12, m.v12, m.CTE1,   m.CTE2,
                          m.F1t, m.F1c, m.F2t, m.F2c, m.F12, m.uetall, m.uecall};
  std::vector<char> layup = layup_buffer("(0/45./-45/90)S"),
                    criterion = layup_buffer("", 32);
  std::vector<float> options = {-0.5f, 0.35f, 0.30f};
  std::int32_t ncases = 3, ierr = 7777;
  std::vector<float> loads = {-500, 0,  40, 0, 0, 0, 0, 100, 200, -30, 5,
                              -20,  10, 0,  0, 0, 0, 0, 0,   0,   -100};
  std::vector<float> rf = {-7, -7, -7};
  std::vector<std::int32_t> ply = {7, 7, 7}, surface = ply, mode = ply;
  std::vector<char> message = std::vector<char>(CORVANE_STRENGTH_MESSAGE_LENGTH, '\x7f');

  // The call, its pointer argument `missing` (0-based, hidden lengths not
  // counted) null.
  StrengthCall& run(std::string_view name, int missing = -1) {
    static auto* const one =
        library_under_test().entry<decltype(LAMINATE_STRENGTH)>("LAMINATE_STRENGTH");
    static auto* const bi =
        library_under_test().entry<decltype(BI_MATERIAL_LAMINATE_STRENGTH)>(
            "BI_MATERIAL_LAMINATE_STRENGTH");
    name.copy(criterion.data(), name.size());
    const auto g = [missing](int i, auto* p) { return i == missing ? nullptr : p; };
    float* x = v.data();
    if (two) {
      bi(g(0, x), g(1, x + 1), g(2, x + 2), g(3, x + 3), g(4, x + 4), g(5, x + 5),
         g(6, x + 6), g(7, x + 7), g(8, x + 8), g(9, x + 9), g(10, x + 10), g(11, x + 11),
         g(12, x + 12), g(13, x + 13), g(14, x + 14), g(15, x + 15), g(16, x + 16),
         g(17, x + 17), g(18, x + 18), g(19, x + 19), g(20, x + 20), g(21, x + 21),
         g(22, x + 22), g(23, x + 23), g(24, x + 24), g(25, x + 25), g(26, x + 26),
         g(27, x + 27), g(28, layup.data()), 1, g(29, criterion.data()), 0,
         g(30, options.data()), g(31, &ncases), g(32, loads.data()), g(33, rf.data()),
         g(34, ply.data()), g(35, surface.data()), g(36, mode.data()),
         g(37, message.data()), 3, g(38, &ierr));
    } else {
      one(g(0, x), g(1, x + 1), g(2, x + 2), g(3, x + 3), g(4, x + 4), g(5, x + 5),
          g(6, x + 6), g(7, x + 7), g(8, x + 8), g(9, x + 9), g(10, x + 10),
          g(11, x + 11), g(12, x + 12), g(13, x + 13), g(14, layup.data()), 1,
          g(15, criterion.data()), 0, g(16, options.data()), g(17, &ncases),
          g(18, loads.data()), g(19, rf.data()), g(20, ply.data()), g(21, surface.data()),
          g(22, mode.data()), g(23, message.data()), 3, g(24, &ierr));
    }
    return *this;
  }
  std::string text() const { return {message.begin(), message.end()}; }
  bool untouched() const {
    return rf == StrengthCall().rf && ply == StrengthCall().ply && surface == ply &&
           mode == ply;
  }
};

TEST(StrengthEntry, ManyCasesGiveTheCoreResults) {
  // A C host's zero byte ends the keyword; blanks and letter case are ignored.
  const std::pair<std::string_view, std::int32_t> criteria[] = {
      {{"tsai_wu\0xyz", 11}, 5}, {"  MTS", 31}, {"Puck", 9}};
  for (const auto& [name, code] : criteria) {
    const StrengthCall call = StrengthCall().run(name);
    StrengthCall two{true};
    two.v[14 + 1] = 2 * call.v[1];  // a stiffer material 2: other results
    two.run(name);
    ASSERT_EQ(call.ierr, 0) << call.text();
    EXPECT_EQ(call.text(), std::string(CORVANE_STRENGTH_MESSAGE_LENGTH, ' '));
    std::vector<float> angles, rf(3);
    std::vector<std::int32_t> ply(3), surface(3), mode(3), materials;
    parse_stacking_sequence("(0/45./-45/90)S", angles, &materials);
    ASSERT_TRUE(LAMINATESTRESSED(call.m, angles)
                    .strength_plan({&code, 1})
                    .evaluate(call.loads, {rf, ply, surface, mode})
                    .ok());
    EXPECT_TRUE(call.rf == rf && call.ply == ply && call.surface == surface &&
                call.mode == mode);
    LAMINA stiffer = call.m;
    stiffer = new_lamina(stiffer.CPT, 2 * stiffer.E1, stiffer.E2, stiffer.G12,
                         stiffer.v12, stiffer.uetall, stiffer.uecall);
    stiffer.CTE1 = call.m.CTE1;
    stiffer.CTE2 = call.m.CTE2;
    stiffer.set_strengths(call.m.F1t, call.m.F1c, call.m.F12, call.m.F2t, call.m.F2c);
    ASSERT_TRUE(LAMINATESTRESSED(call.m, stiffer, angles, materials)
                    .strength_plan({&code, 1})
                    .evaluate(call.loads, {rf, ply, surface, mode})
                    .ok());
    EXPECT_EQ(two.ierr, 0) << two.text();
    EXPECT_TRUE(two.rf == rf && two.ply == ply && two.surface == surface &&
                two.mode == mode);
    EXPECT_NE(two.rf, call.rf);
  }
}

TEST(StrengthEntry, RefusalsWriteTheCodeAndReasonOnly) {
  const struct {
    void (*change)(StrengthCall&);  // of a call of BI_MATERIAL_LAMINATE_STRENGTH
    const char* criterion;
    std::int32_t code;
    const char* reason;
  } rows[] = {
      {[](StrengthCall& c) { c.v[2] = -10000; }, "PUCK", 1, "E2 = -10000 is negative"},
      {[](StrengthCall& c) { c.v[10] = -1; }, "PUCK", 1, "F2c = -1 is negative"},
      {[](StrengthCall& c) {
         c.v[1] = c.v[2] = c.v[3] = c.v[15] = c.v[16] = c.v[17] = 0;
       },
       "PUCK", 2, "Laminate in error"},
      {[](StrengthCall& c) { c.layup = layup_buffer("(0/4x5)S"); }, "PUCK", 2,
       "at character 4: unreadable ply angle"},
      {[](StrengthCall&) {}, " Xsai_wu", 3, "criterion \"Xsai_wu\"."},
      {[](StrengthCall&) {}, "AOSL", 4, "not available"},
      {[](StrengthCall& c) { c.v[9] = 0; }, "PUCK", 5, "F2t missing (material 1"},
      {[](StrengthCall& c) { c.loads[17] = testing::kInf; }, "PUCK", 6, "Load case 3 "},
      {[](StrengthCall& c) { c.ncases = -1; }, "PUCK", 7, "-1 is negative"},
      {[](StrengthCall& c) { c.options[0] = 1; }, "TSAI_WU", 9, "Option F12* out"},
      {[](StrengthCall& c) { c.options[2] = -0.1f; }, "PUCK", 9, "Option p- out"},
      {[](StrengthCall& c) { c.v[14 + 4] = -0.3f; }, "PUCK", 1, "material 2: v12 = -0.3"},
      {[](StrengthCall& c) { c.v[14 + 11] = 0; }, "PUCK", 5, "F12 missing (material 2"},
  };
  for (const auto& row : rows) {
    StrengthCall call{true};
    row.change(call);
    const std::string text = call.run(row.criterion).text();
    EXPECT_EQ(call.ierr, row.code) << text;
    EXPECT_EQ(text.rfind("Error! ", 0), 0u) << text;
    EXPECT_NE(text.find(row.reason), std::string::npos) << text;
    EXPECT_EQ(text.back(), ' ');
    EXPECT_TRUE(call.untouched()) << text;
  }
}

TEST(StrengthEntry, NullPointerWritesOnlyTheErrorCode) {
  for (const bool two : {false, true}) {
    const int pointers = two ? 39 : 25;
    for (int missing = 0; missing < pointers; ++missing) {
      StrengthCall call{two};
      call.run("PUCK", missing);
      EXPECT_EQ(call.ierr, missing == pointers - 1 ? 7777 : -1) << missing;
      EXPECT_TRUE(call.untouched() && call.text() == StrengthCall().text()) << missing;
    }
  }
}

// SECTION_CRIPPLING: a Z section of two materials (web of material 2, weaker
// F1c), the flanges' strength given, the web's from first-ply failure.
struct CripplingCall {
  LAMINA m = t300_5208();
  std::int32_t nmaterials = 2, nsegments = 3, ierr = 7777, column_mode = 7;
  std::vector<float> materials = {m.CPT, m.E1,  m.E2,  m.G12, m.v12, m.CTE1,   m.CTE2,
                                  m.F1t, m.F1c, m.F2t, m.F2c, m.F12, m.uetall, m.uecall,
                                  m.CPT, m.E1,  m.E2,  m.G12, m.v12, m.CTE1,   m.CTE2,
                                  m.F1t, 900,   m.F2t, m.F2c, m.F12, m.uetall, m.uecall};
  std::vector<float> geometry = {20, 10, 20, 0, 40, 0, 0, 90, 20, -10, -20, 0};
  std::vector<std::int32_t> edge = {1, 2, 1}, material = {1, 2, 1}, warning = {7, 7, 7};
  std::vector<float> fcu = {500, 0, 500}, options = {-0.5f, 0.35f, 0.30f};
  std::vector<char> layups = layup_buffer("(0/45/-45/90)2S", 3000),
                    criterion = layup_buffer("PUCK", 32),
                    message = std::vector<char>(CORVANE_STRENGTH_MESSAGE_LENGTH, '\x7f');
  float length = 300, fixity = 1;
  std::array<std::vector<float>, 4> out;  // thickness, ex, fcu used, fcc
  std::array<float, 7> section = {-7, -7, -7, -7, -7, -7, -7};

  CripplingCall() {
    out.fill({-7, -7, -7});
    std::string_view("(45/-45/0/0/90)S").copy(&layups[1000], 16);
    std::copy_n(layups.begin(), 1000, layups.begin() + 2000);
  }
  CripplingCall& run(int missing = -1) {
    static auto* const entry =
        library_under_test().entry<decltype(SECTION_CRIPPLING)>("SECTION_CRIPPLING");
    const auto g = [missing](int i, auto* p) { return i == missing ? nullptr : p; };
    float* s = section.data();
    entry(g(0, &nmaterials), g(1, materials.data()), g(2, &nsegments),
          g(3, geometry.data()), g(4, edge.data()), g(5, material.data()),
          g(6, fcu.data()), g(7, layups.data()), 0, g(8, criterion.data()), 0,
          g(9, options.data()), g(10, &length), g(11, &fixity), g(12, out[0].data()),
          g(13, out[1].data()), g(14, out[2].data()), g(15, out[3].data()),
          g(16, warning.data()), g(17, s), g(18, s + 1), g(19, s + 2), g(20, s + 3),
          g(21, s + 4), g(22, s + 5), g(23, s + 6), g(24, &column_mode),
          g(25, message.data()), 0, g(26, &ierr));
    return *this;
  }
  std::string text() const { return {message.begin(), message.end()}; }
  bool untouched() const {
    const CripplingCall fresh;
    return out == fresh.out && warning == fresh.warning && section == fresh.section &&
           column_mode == fresh.column_mode;
  }
};

TEST(CripplingEntry, GivesTheCoreResults) {
  CripplingCall call;
  ASSERT_EQ(call.run().ierr, 0) << call.text();
  EXPECT_EQ(call.text(), std::string(CORVANE_STRENGTH_MESSAGE_LENGTH, ' '));
  LAMINA weak = call.m;
  weak.F1c = 900;
  std::vector<float> flange, web;
  parse_stacking_sequence("(0/45/-45/90)2S", flange);
  parse_stacking_sequence("(45/-45/0/0/90)S", web);
  const LAMINATESTRESSED f(call.m, flange), w(weak, web);
  CRIPPLINGSECTION z;
  z.segments = {{20, 10, 20, 0, EdgeCondition::one_edge_free, &f, 500},
                {40, 0, 0, 90, EdgeCondition::no_edge_free, &w, 0},
                {20, -10, -20, 0, EdgeCondition::one_edge_free, &f, 500}};
  z.column = {300, 1};
  SectionCrippling r;
  ASSERT_TRUE(z.analyse(r).ok());
  for (std::size_t i = 0; i < 3; ++i) {
    const SegmentCrippling& c = r.segments[i];
    EXPECT_EQ(
        (std::array{call.out[0][i], call.out[1][i], call.out[2][i], call.out[3][i]}),
        (std::array{c.thickness, c.ex, c.fcu, c.fcc}));
  }
  EXPECT_EQ(call.section, (std::array{r.area, r.ea, r.fcc, r.pcc, r.rho, r.column_stress,
                                      r.column_load}));
  EXPECT_EQ(call.column_mode, static_cast<std::int32_t>(r.column));
  EXPECT_NE(call.out[2][1], call.out[2][0]);  // the web's own strength
  call.geometry[4] = 400;  // a web of b/t 320: results, and a warning line
  EXPECT_EQ(call.run().ierr, 0);
  EXPECT_EQ(call.warning[1], 2);
  EXPECT_EQ(call.text().rfind("Warning! Segment 2: b/t = 320 above", 0), 0u)
      << call.text();
}

TEST(CripplingEntry, RefusalsWriteTheCodeAndReasonOnly) {
  using C = CripplingCall;  // the host's own checks, and the core's codes through
  const struct {
    void (*change)(C&);
    std::int32_t code;
    const char* reason;
  } rows[] = {
      {[](C& c) { c.materials[14 + 2] = -1; }, 1, "ply material 2: E2 = -1"},
      {[](C& c) { c.layups[1000 + 3] = 'x'; }, 2, "Segment 2: layup refused at"},
      {[](C& c) { c.criterion[1] = 'X'; }, 3, "criterion \"PXCK\"."},
      {[](C& c) { c.materials[14 + 10] = 0; }, 5, "Segment 2: F2c missing (criterion"},
      {[](C& c) { c.edge[0] = 0; }, 6, "Segment 1: edge condition 0"},
      {[](C& c) { c.material[2] = 3; }, 6, "Segment 3: material 3 is not one of 1 to 2"},
      {[](C& c) { c.nsegments = 0; }, 7, "segments 0 is below 1"},
      {[](C& c) { c.nmaterials = -1; }, 7, "materials -1 is below 1"},
      {[](C& c) { c.fixity = 0; }, 10, "fixity coefficient 0"},
      {[](C& c) { c.geometry[0] = 1e30f; }, 12, "single precision"},
  };
  for (const auto& row : rows) {
    CripplingCall call;
    row.change(call);
    const std::string text = call.run().text();
    EXPECT_EQ(call.ierr, row.code) << text;
    EXPECT_EQ(text.rfind("Error! ", 0), 0u) << text;
    EXPECT_NE(text.find(row.reason), std::string::npos) << text;
    EXPECT_TRUE(call.untouched()) << text;
  }
  for (int missing = 0; missing < 27; ++missing) {  // null pointers: -1 alone
    CripplingCall call;
    call.run(missing);
    EXPECT_EQ(call.ierr, missing == 26 ? 7777 : -1) << missing;
    EXPECT_TRUE(call.untouched() && call.text() == CripplingCall().text()) << missing;
  }
}

}  // namespace
}  // namespace corvane
