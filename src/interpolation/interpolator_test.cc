#include "interpolation/interpolator.h"

#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "interpolation/table_lookup.h"

namespace corvane {
namespace {

using V = std::vector<float>;
const float kNaN = NAN;

TEST(Interpolator, RangeModes) {
  const V x = {0.0f, 1.0f, 2.0f}, y = {0.0f, 10.0f, 40.0f};
  const struct {
    int mode;
    float query, value;  // NaN: no result
  } cases[] = {{0, 0.5f, 5.0f},  {0, 1.5f, 25.0f}, {0, 0.0f, 0.0f},    {0, 2.0f, 40.0f},
               {0, -1.0f, kNaN}, {0, 3.0f, kNaN},  {7, 3.0f, kNaN},    {-1, -1.0f, kNaN},
               {1, -1.0f, 0.0f}, {1, 3.0f, 40.0f}, {2, -1.0f, -10.0f}, {2, 3.0f, 70.0f}};
  for (const auto& c : cases) {
    const INTERPOLATOR f(x, y, c.mode);
    ASSERT_TRUE(f.ready);
    const float v = f.evaluate(c.query);
    EXPECT_TRUE(std::isnan(c.value) ? std::isnan(v) : v == c.value)
        << "mode " << c.mode << " at " << c.query << ": " << v;
  }
}

TEST(Interpolator, EqualAbscissae) {
  // An interior abscissa starts the interval to its right, even a repeated one.
  const INTERPOLATOR step(V{0.0f, 1.0f, 1.0f, 2.0f}, V{0.0f, 10.0f, 20.0f, 30.0f}, 0);
  EXPECT_FLOAT_EQ(step.evaluate(1.0f), 20.0f);
  EXPECT_FLOAT_EQ(step.evaluate(0.5f), 5.0f);
  // A zero-width interval gives the mean of its two values.
  const INTERPOLATOR end(V{0.0f, 1.0f, 2.0f, 2.0f}, V{0.0f, 10.0f, 20.0f, 40.0f}, 0);
  EXPECT_FLOAT_EQ(end.evaluate(2.0f), 30.0f);
  const INTERPOLATOR pair(V{1.0f, 1.0f}, V{4.0f, 8.0f, 99.0f}, 2);  // extra y ignored
  EXPECT_FLOAT_EQ(pair.evaluate(1.0f), 6.0f);
  EXPECT_FLOAT_EQ(pair.evaluate(-5.0f), 6.0f);
}

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
