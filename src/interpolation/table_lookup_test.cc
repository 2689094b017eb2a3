#include "interpolation/table_lookup.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace corvane {
namespace {

TEST(TableLookup, ValuesAndStatuses) {
  using V = std::vector<float>;
  const V x = {1.0f, 2.0f, 4.0f}, y = {10.0f, 20.0f, 0.0f};
  const V step_x = {1.0f, 2.0f, 2.0f, 3.0f}, step_y = {0.0f, 10.0f, 20.0f, 40.0f};
  const V down_x = {1.0f, 3.0f, 2.0f}, one = {2.0f}, seven = {7.0f};
  const struct {
    const V &x, &y;
    float query, value;
    int status;
  } cases[] = {
      {x, y, 1.5f, 15.0f, kLookupOk},
      {x, y, 3.0f, 10.0f, kLookupOk},
      {x, y, 1.0f, 10.0f, kLookupOk},  // the end abscissae are inside
      {x, y, 4.0f, 0.0f, kLookupOk},
      {x, y, 0.5f, 10.0f, kLookupBelow},
      {x, y, 4.5f, 0.0f, kLookupAbove},
      // On a step the last of the equal rows is read.
      {step_x, step_y, 2.0f, 20.0f, kLookupOk},
      {step_x, step_y, 1.5f, 5.0f, kLookupOk},
      {step_x, step_y, 2.5f, 30.0f, kLookupOk},
      {one, seven, 2.0f, 7.0f, kLookupOk},
      {one, seven, 1.0f, 7.0f, kLookupBelow},
      {one, seven, 3.0f, 7.0f, kLookupAbove},
      {x, seven, 3.0f, 7.0f, kLookupAbove},  // the shorter column bounds the table
      {x, V{}, 3.0f, 0.0f, kLookupBelow},
      {x, y, NAN, 10.0f, kLookupOk},  // no row at or below it: the first
      // Descending abscissae fail before any range test.
      {down_x, y, 2.5f, 0.0f, kLookupNotAscending},
      {down_x, y, -9.0f, 0.0f, kLookupNotAscending}};
  testing::internal::CaptureStdout();
  for (const auto& c : cases) {
    int status = -99;
    EXPECT_FLOAT_EQ(table_lookup(c.x, c.y, c.query, &status), c.value) << c.query;
    EXPECT_EQ(status, c.status) << c.query;
  }
  const std::string message = "Error! Table X-values not in ascending order.\n";
  EXPECT_EQ(testing::internal::GetCapturedStdout(), message + message);
}

}  // namespace
}  // namespace corvane
