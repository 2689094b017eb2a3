#include "interpolation/table_lookup.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace corvane {
namespace {

struct LookupCase {
  std::vector<float> x, y;
  float query;
  float value;
  int status;
};

void PrintTo(const LookupCase& c, std::ostream* os) {
  *os << "x=" << c.query << " in " << c.x.size() << " rows";
}

class TableLookup : public testing::TestWithParam<LookupCase> {};

TEST_P(TableLookup, ValueAndStatus) {
  const LookupCase& c = GetParam();
  int status = -99;
  EXPECT_FLOAT_EQ(table_lookup(c.x, c.y, c.query, &status), c.value);
  EXPECT_EQ(status, c.status);
}

const std::vector<float> kX = {1.0f, 2.0f, 4.0f};
const std::vector<float> kY = {10.0f, 20.0f, 0.0f};
// A step at x = 2: the rows (2, 10) and (2, 20).
const std::vector<float> kStepX = {1.0f, 2.0f, 2.0f, 3.0f};
const std::vector<float> kStepY = {0.0f, 10.0f, 20.0f, 40.0f};

INSTANTIATE_TEST_SUITE_P(
    Examples, TableLookup,
    testing::Values(
        // Interior points, both slopes.
        LookupCase{kX, kY, 1.5f, 15.0f, kLookupOk},
        LookupCase{kX, kY, 3.0f, 10.0f, kLookupOk},
        LookupCase{kX, kY, 2.0f, 20.0f, kLookupOk},
        // The end abscissae are inside the table.
        LookupCase{kX, kY, 1.0f, 10.0f, kLookupOk},
        LookupCase{kX, kY, 4.0f, 0.0f, kLookupOk},
        // Clamped outside.
        LookupCase{kX, kY, 0.5f, 10.0f, kLookupBelow},
        LookupCase{kX, kY, 4.5f, 0.0f, kLookupAbove},
        // On a step the last of the equal rows is read; either side interpolates.
        LookupCase{kStepX, kStepY, 2.0f, 20.0f, kLookupOk},
        LookupCase{kStepX, kStepY, 1.5f, 5.0f, kLookupOk},
        LookupCase{kStepX, kStepY, 2.5f, 30.0f, kLookupOk},
        // One row.
        LookupCase{{2.0f}, {7.0f}, 2.0f, 7.0f, kLookupOk},
        LookupCase{{2.0f}, {7.0f}, 1.0f, 7.0f, kLookupBelow},
        LookupCase{{2.0f}, {7.0f}, 3.0f, 7.0f, kLookupAbove},
        // The shorter column bounds the table.
        LookupCase{{1.0f, 2.0f, 3.0f}, {5.0f, 6.0f}, 3.0f, 6.0f, kLookupAbove},
        LookupCase{{}, {}, 1.0f, 0.0f, kLookupBelow},
        // Descending abscissae fail before any range test.
        LookupCase{
            {1.0f, 3.0f, 2.0f}, {1.0f, 2.0f, 3.0f}, 2.5f, 0.0f, kLookupNotAscending},
        LookupCase{
            {1.0f, 3.0f, 2.0f}, {1.0f, 2.0f, 3.0f}, -9.0f, 0.0f, kLookupNotAscending}));

TEST(TableLookupMessage, WrittenOnEveryCallWithADescendingTable) {
  const std::vector<float> x = {3.0f, 2.0f};
  const std::vector<float> y = {1.0f, 2.0f};
  testing::internal::CaptureStdout();
  const float first = table_lookup(x, y, 2.5f);  // no status wanted
  const float second = table_lookup(x, y, 9.0f);
  const std::string out = testing::internal::GetCapturedStdout();
  EXPECT_EQ(first, 0.0f);
  EXPECT_EQ(second, 0.0f);
  EXPECT_EQ(out,
            "Error! Table X-values not in ascending order.\n"
            "Error! Table X-values not in ascending order.\n");
}

TEST(TableLookupMessage, SilentForAscendingTables) {
  testing::internal::CaptureStdout();
  table_lookup(kStepX, kStepY, 9.0f);
  table_lookup(kX, kY, -9.0f);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(TableLookupColumns, ReadsColumnsOfAColumnOrderedMatrix) {
  // Three rows, three columns stored column by column: abscissae, then two value
  // columns sharing them.
  const float table[3][3] = {
      {0.0f, 1.0f, 2.0f}, {0.0f, 10.0f, 20.0f}, {5.0f, 3.0f, 1.0f}};
  EXPECT_FLOAT_EQ(table_lookup(table[0], table[1], 1.5f), 15.0f);
  EXPECT_FLOAT_EQ(table_lookup(table[0], table[2], 1.5f), 2.0f);
}

}  // namespace
}  // namespace corvane
