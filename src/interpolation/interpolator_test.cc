#include "interpolation/interpolator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

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

TEST(Interpolator, UnusableTablesGiveNaNSilently) {
  testing::internal::CaptureStdout();
  const INTERPOLATOR unusable[] = {
      INTERPOLATOR(), INTERPOLATOR(V{1.0f}, V{2.0f}, 1),
      INTERPOLATOR(V{0.0f, 2.0f, 1.0f}, V{1.0f, 2.0f, 3.0f}, 1),  // decreasing
      INTERPOLATOR(V{0.0f, 1.0f, 2.0f}, V{1.0f, 2.0f}, 1)};       // values missing
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  for (const INTERPOLATOR& f : unusable) {
    EXPECT_FALSE(f.ready);
    EXPECT_TRUE(std::isnan(f.evaluate(0.5f)));
  }
}

}  // namespace
}  // namespace corvane
