#include "layup_text.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace corvane::cli {
namespace {

struct LayupCase {
  std::string layup;
  std::string problem;  // empty: nothing looks wrong
};

void PrintTo(const LayupCase& c, std::ostream* os) {
  *os << '"' << (c.layup.size() > 40 ? c.layup.substr(0, 40) + "..." : c.layup) << '"';
}

class LayupProblemTest : public testing::TestWithParam<LayupCase> {};

TEST_P(LayupProblemTest, NamesTheFault) {
  EXPECT_EQ(layup_problem(GetParam().layup), GetParam().problem) << GetParam().layup;
}

// n plies listed in one group, as "(0/0/.../0)".
std::string group_of(int n) {
  std::string text = "(0";
  for (int k = 1; k < n; ++k) text += "/0";
  return text + ")";
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LayupProblemTest,
    testing::Values(
        LayupCase{"(0/45/-45/90)S", ""}, LayupCase{"  (0/90)2S  ", ""},
        LayupCase{"(0/45/90)$", ""}, LayupCase{"(45.)", ""}, LayupCase{"(0/90)+3", ""},
        LayupCase{"(0/90/)", ""}, LayupCase{"( 0 / 22.5 )", ""},
        LayupCase{"()", "the layup \"()\" is too short"},
        LayupCase{"0/90", "the layup \"0/90\" does not open with \"(\""},
        LayupCase{"(0/90", "the layup \"(0/90\" has no closing \")\""},
        LayupCase{"(0/90)X",
                  "unreadable ending \"X\" after \")\": expected a repeat count, S or $"},
        LayupCase{
            "(0/90)S2",
            "unreadable ending \"S2\" after \")\": expected a repeat count, S or $"},
        LayupCase{"(0/90)0S", "the repeat count \"0\" must be at least 1"},
        LayupCase{"(0/90)-1", "the repeat count \"-1\" must be at least 1"},
        LayupCase{"(0//90)", "ply 2 of the layup, \"\", is not an angle"},
        LayupCase{"(0/4x5)S", "ply 2 of the layup, \"4x5\", is not an angle"},
        LayupCase{"(/)", "ply 1 of the layup, \"\", is not an angle"},
        // The ply limit after repetition and mirroring: 255 allowed.
        LayupCase{group_of(127) + "S", ""}, LayupCase{group_of(128) + "$", ""},
        LayupCase{group_of(128) + "S", "the layup makes 256 plies, more than 255"},
        LayupCase{"(0/90)128", "the layup makes 256 plies, more than 255"},
        LayupCase{"(0/90)99999999999S", "the layup makes 4000000 plies, more than 255"}));

TEST(UsesSecondMaterialTest, TrailingPointMarksMaterialTwo) {
  const std::pair<const char*, bool> cases[] = {
      {"(0/45/-45/90)S", false}, {"(0/45./-45./90)S", true}, {"(45.)", true},
      {"(45.0/0)", false},       {"(0/90. )2", true},        {"(0/90)S.", false},
  };
  for (const auto& [layup, expected] : cases) {
    EXPECT_EQ(uses_second_material(layup), expected) << layup;
  }
}

}  // namespace
}  // namespace corvane::cli
