#include "laminas/criterion_code.h"

#include <cstdint>
#include <string_view>

#include <gtest/gtest.h>

namespace corvane {
namespace {

struct Case {
  std::string_view text;
  std::int32_t code;
};

class CriterionCode : public testing::TestWithParam<Case> {};

TEST_P(CriterionCode, Code) {
  EXPECT_EQ(criterion_code(GetParam().text), GetParam().code);
}

INSTANTIATE_TEST_SUITE_P(
    Keywords, CriterionCode,
    testing::Values(Case{"TSAI_HILL", 4}, Case{"TSAI_WU", 5}, Case{"HOFFMAN", 6},
                    Case{"YAMADA_SUN", 7}, Case{"AOSL", 8}, Case{"PUCK", 9},
                    Case{"MAX_STRAIN_I", 11}, Case{"MAX_STRAIN_II", 12},
                    Case{"MAX_TRUNCATED_STRAIN", 31}, Case{"MTS", 31}, Case{"MTS2", 32}));

INSTANTIATE_TEST_SUITE_P(Normalised, CriterionCode,
                         testing::Values(Case{"  tsai_wu", 5}, Case{"Tsai_Wu   ", 5},
                                         Case{"max_truncated_strain", 31},
                                         Case{" mts2 ", 32}, Case{"Max_Strain_ii", 12}));

INSTANTIATE_TEST_SUITE_P(NoCriterion, CriterionCode,
                         testing::Values(Case{"TSAI-WU", 0}, Case{"", 0}, Case{"    ", 0},
                                         Case{"MTS 2", 0}, Case{"MAX_STRAIN", 0},
                                         Case{"MAX_STRAIN_III", 0}, Case{"TSAI", 0},
                                         Case{"\tPUCK", 0}, Case{"PUCK\t", 0}));

TEST(CriterionKeyword, ShortestKeywordOfACode) {
  EXPECT_EQ(criterion_keyword(31), "MTS");
  EXPECT_EQ(criterion_keyword(12), "MAX_STRAIN_II");
  EXPECT_EQ(criterion_keyword(10), "");
}

}  // namespace
}  // namespace corvane
