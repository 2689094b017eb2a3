// NOTCHED_LAMINATE_STRENGTH and IMPACT_LAMINATE_STRENGTH called through the
// built strength library: the core's results for the same keyed material,
// refusals that write the code and message only, and null pointers.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "corvane/corvane_strength.h"
#include "interface/loaded_library.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/impact_strength.h"
#include "laminates_stressed/laminate_stressed.h"
#include "laminates_stressed/notched_strength.h"
#include "support/test_support.h"

namespace corvane {
namespace {

using testing::layup_buffer;

constexpr std::string_view kLayup = "(0/45/-45/90)2S";

struct KeyedCall {
  bool impact = false;
  std::vector<float> v = {0.125f, 140000, 9000, 4600, 0.3f, 2500, 1500};
  std::vector<char> properties = layup_buffer("oht=450, OHC=300;A0FHT=1.2 fbr=900",
                                              CORVANE_STRENGTH_PROPERTIES_LENGTH);
  std::vector<char> layup = layup_buffer(kLayup);
  std::vector<char> text = layup_buffer("all", CORVANE_STRENGTH_CRITERION_LENGTH);
  std::vector<char> model =
      layup_buffer("CDTM-T04 0.003 0.5 0.004 0.05 1", CORVANE_STRENGTH_MODEL_LENGTH);
  float diameter = 6.35f, u = 1.0f, energy = 30.0f;
  std::int32_t ncases = 2, ierr = 7777;
  std::vector<float> loads = {300, -100, 20, 0, 0, 0, 0, -800, 50, 0, 0, 0, 0, 20};
  std::vector<float> fastener = {2000, -500};
  std::vector<float> rf = std::vector<float>(10, -7.0f);
  std::vector<char> message = std::vector<char>(CORVANE_STRENGTH_MESSAGE_LENGTH, '\x7f');

  KeyedCall& run(int missing = -1) {
    static auto* const notched =
        library_under_test().entry<decltype(NOTCHED_LAMINATE_STRENGTH)>(
            "NOTCHED_LAMINATE_STRENGTH");
    static auto* const after_impact =
        library_under_test().entry<decltype(IMPACT_LAMINATE_STRENGTH)>(
            "IMPACT_LAMINATE_STRENGTH");
    const auto g = [missing](int i, auto* p) { return i == missing ? nullptr : p; };
    float* x = v.data();
    if (impact) {
      after_impact(g(0, x), g(1, x + 1), g(2, x + 2), g(3, x + 3), g(4, x + 4),
                   g(5, x + 5), g(6, x + 6), g(7, properties.data()), 0,
                   g(8, layup.data()), 0, g(9, model.data()), 0, g(10, &u),
                   g(11, &energy), g(12, &ncases), g(13, loads.data()), g(14, rf.data()),
                   g(15, message.data()), 0, g(16, &ierr));
    } else {
      notched(g(0, x), g(1, x + 1), g(2, x + 2), g(3, x + 3), g(4, x + 4), g(5, x + 5),
              g(6, x + 6), g(7, properties.data()), 0, g(8, layup.data()), 0,
              g(9, text.data()), 0, g(10, &diameter), g(11, &ncases), g(12, loads.data()),
              g(13, fastener.data()), g(14, rf.data()), g(15, message.data()), 0,
              g(16, &ierr));
    }
    return *this;
  }
  std::string said() const { return {message.begin(), message.end()}; }
  bool untouched() const { return rf == std::vector<float>(10, -7.0f); }
};

// The core's plans for the same keyed material and layup.
TEST(NotchedEntry, GiveTheCoreResults) {
  LAMINA m = new_lamina(0.125f, 140000, 9000, 4600, 0.3f, 2500, 1500);
  ASSERT_EQ(set_properties(m, "OHT=450 OHC=300 A0FHT=1.2 FBR=900"), "");
  ASSERT_EQ(read_cdt_model_text("CDTM-T04 0.003 0.5 0.004 0.05 1", 1.0f, m.cdt_model), 0);
  std::vector<float> angles;
  parse_stacking_sequence(kLayup, angles);
  const LAMINATESTRESSED lam(m, angles);
  const NotchCheck all[] = {NotchCheck::oht, NotchCheck::ohc, NotchCheck::fht,
                            NotchCheck::fhc, NotchCheck::bearing};
  const KeyedCall call = KeyedCall().run();
  std::vector<float> rf(10);
  ASSERT_TRUE(NotchedPlan(lam, all).evaluate(call.loads, call.fastener, rf).ok());
  EXPECT_EQ(call.ierr, 0);
  EXPECT_EQ(call.said(), std::string(CORVANE_STRENGTH_MESSAGE_LENGTH, ' '));
  EXPECT_EQ(call.rf, rf);
  KeyedCall one;  // one check: ncases values, the rest untouched
  one.text = layup_buffer(" fhc", CORVANE_STRENGTH_CRITERION_LENGTH);
  EXPECT_EQ(one.run().rf,
            (std::vector<float>{rf[3], rf[8], -7, -7, -7, -7, -7, -7, -7, -7}));

  const KeyedCall impact = KeyedCall{true}.run();
  ASSERT_TRUE(
      ImpactPlan(lam, 30.0f, true).evaluate(impact.loads, std::span(rf).first(6)).ok());
  EXPECT_EQ(std::vector<float>(impact.rf.begin(), impact.rf.begin() + 6),
            std::vector<float>(rf.begin(), rf.begin() + 6));
  KeyedCall none{true};  // no model: its column untouched
  none.model = layup_buffer("", CORVANE_STRENGTH_MODEL_LENGTH);
  EXPECT_EQ(none.run().rf,
            (std::vector<float>{rf[0], rf[1], -7, rf[3], rf[4], -7, -7, -7, -7, -7}));
}

TEST(NotchedEntry, RefusalsWriteTheCodeAndReasonOnly) {
  const struct {
    bool impact;
    void (*change)(KeyedCall&);
    std::int32_t code;
    const char* reason;
  } rows[] = {
      {false, [](KeyedCall& c) { c.v[4] = -0.3f; }, 1, "v12 = -0.3 is negative"},
      {true, [](KeyedCall& c) { c.layup = layup_buffer("(0/4x5)S"); }, 2, "character 4"},
      {false, [](KeyedCall& c) { c.text = layup_buffer("OHX", 32); }, 3, "check \"OHX\""},
      {false, [](KeyedCall& c) { c.properties = layup_buffer("", 1000); }, 5,
       "a0oht missing (material 1, criterion OHT)"},
      {true, [](KeyedCall& c) { c.properties = layup_buffer("CAIH=0 KFHC", 1000); }, 10,
       "\"KFHC\""},  // CAIH=0 is ignored, as by key
      {false, [](KeyedCall& c) { c.fastener[1] = testing::kInf; }, 6, "Load case 2 "},
      {false, [](KeyedCall& c) { c.ncases = -1; }, 7, "-1 is negative"},
      {false, [](KeyedCall& c) { c.diameter = 0; }, 9, "hole diameter out"},
      {true, [](KeyedCall& c) { c.u = 0; }, 9, "unit factor out"},
      {true, [](KeyedCall& c) { c.model = layup_buffer("CDTM-T05X 1 2 3 4 5", 200); }, 11,
       "\"CDTM-T05X 1 2 3 4 5\" not usable"},
  };
  for (const auto& row : rows) {
    KeyedCall call{row.impact};
    row.change(call);
    const std::string text = call.run().said();
    EXPECT_EQ(call.ierr, row.code) << text;
    EXPECT_EQ(text.rfind("Error! ", 0), 0u) << text;
    EXPECT_NE(text.find(row.reason), std::string::npos) << text;
    EXPECT_TRUE(call.untouched()) << text;
  }
}

TEST(NotchedEntry, NullPointerWritesOnlyTheErrorCode) {
  for (const bool impact : {false, true}) {
    for (int missing = 0; missing < 17; ++missing) {
      KeyedCall call{impact};
      call.run(missing);
      EXPECT_EQ(call.ierr, missing == 16 ? 7777 : -1) << missing;
      EXPECT_TRUE(call.untouched() && call.said() == KeyedCall().said()) << missing;
    }
  }
}

}  // namespace
}  // namespace corvane
