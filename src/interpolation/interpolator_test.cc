#include "interpolation/interpolator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>
#include <vector>

namespace corvane {
namespace {

using V = std::vector<float>;

const std::vector<float> kX = {0.0f, 1.0f, 2.0f};
const std::vector<float> kY = {0.0f, 10.0f, 40.0f};

struct ModeCase {
  std::int32_t mode;
  float query;
  float value;  // NaN: no result
};

void PrintTo(const ModeCase& c, std::ostream* os) {
  *os << "mode " << c.mode << " at " << c.query;
}

class InterpolatorModes : public testing::TestWithParam<ModeCase> {};

TEST_P(InterpolatorModes, OutsideAndInsideTheRange) {
  const ModeCase& c = GetParam();
  const INTERPOLATOR f(kX, kY, c.mode);
  ASSERT_TRUE(f.ready);
  if (std::isnan(c.value)) {
    EXPECT_TRUE(std::isnan(f.evaluate(c.query))) << f.evaluate(c.query);
  } else {
    EXPECT_FLOAT_EQ(f.evaluate(c.query), c.value);
  }
}

constexpr float kNaN = NAN;

INSTANTIATE_TEST_SUITE_P(
    Table, InterpolatorModes,
    testing::Values(
        // Mode 0 (and anything that is not 1 or 2): no result outside.
        ModeCase{0, -1.0f, kNaN}, ModeCase{0, 3.0f, kNaN}, ModeCase{7, 3.0f, kNaN},
        ModeCase{-1, -1.0f, kNaN}, ModeCase{0, 0.5f, 5.0f}, ModeCase{7, 1.5f, 25.0f},
        // The ends themselves are inside.
        ModeCase{0, 0.0f, 0.0f}, ModeCase{0, 2.0f, 40.0f},
        // Mode 1 holds the end values.
        ModeCase{1, -1.0f, 0.0f}, ModeCase{1, 3.0f, 40.0f}, ModeCase{1, 1.5f, 25.0f},
        // Mode 2 extends the first and last intervals.
        ModeCase{2, -1.0f, -10.0f}, ModeCase{2, 3.0f, 70.0f}, ModeCase{2, 1.5f, 25.0f}));

TEST(Interpolator, ModesOtherThanOneAndTwoBecomeZero) {
  EXPECT_EQ(INTERPOLATOR(kX, kY, 7).mode, 0);
  EXPECT_EQ(INTERPOLATOR(kX, kY, -2).mode, 0);
  EXPECT_EQ(INTERPOLATOR(kX, kY, 1).mode, 1);
  EXPECT_EQ(INTERPOLATOR(kX, kY, 2).mode, 2);
}

TEST(Interpolator, AnInteriorAbscissaStartsTheIntervalToItsRight) {
  // The slope changes at x = 1; the value there is y(1) from either side, but a
  // step in y shows which interval is used.
  const INTERPOLATOR f(V{0.0f, 1.0f, 1.0f, 2.0f}, V{0.0f, 10.0f, 20.0f, 30.0f}, 0);
  EXPECT_FLOAT_EQ(f.evaluate(1.0f), 20.0f);
  EXPECT_FLOAT_EQ(f.evaluate(0.5f), 5.0f);
  EXPECT_FLOAT_EQ(f.evaluate(1.5f), 25.0f);
}

TEST(Interpolator, AZeroWidthIntervalGivesTheMean) {
  // The last interval has zero width; its right end is a query inside the range.
  const INTERPOLATOR end(V{0.0f, 1.0f, 2.0f, 2.0f}, V{0.0f, 10.0f, 20.0f, 40.0f}, 0);
  EXPECT_FLOAT_EQ(end.evaluate(2.0f), 30.0f);
  // Two equal abscissae only: one zero-width interval serves every query.
  const INTERPOLATOR pair(V{1.0f, 1.0f}, V{4.0f, 8.0f}, 2);
  EXPECT_FLOAT_EQ(pair.evaluate(1.0f), 6.0f);
  EXPECT_FLOAT_EQ(pair.evaluate(-5.0f), 6.0f);
  EXPECT_FLOAT_EQ(pair.evaluate(5.0f), 6.0f);
}

TEST(Interpolator, UnusableTablesAreNotReadyAndGiveNaN) {
  const std::vector<INTERPOLATOR> unusable = {
      INTERPOLATOR(),
      INTERPOLATOR(V{1.0f}, V{2.0f}, 1),                          // one point
      INTERPOLATOR(V{}, V{}, 1),                                  // none
      INTERPOLATOR(V{0.0f, 2.0f, 1.0f}, V{1.0f, 2.0f, 3.0f}, 1),  // decreasing
      INTERPOLATOR(V{0.0f, 1.0f, 2.0f}, V{1.0f, 2.0f}, 1),        // values missing
  };
  for (const INTERPOLATOR& f : unusable) {
    EXPECT_FALSE(f.ready);
    EXPECT_TRUE(f.x.empty());
    EXPECT_TRUE(std::isnan(f.evaluate(0.5f)));
    EXPECT_TRUE(std::isnan(f.evaluate(0.0f)));
  }
}

TEST(Interpolator, ADecreasingTableIsRefusedSilently) {
  testing::internal::CaptureStdout();
  const INTERPOLATOR f(V{0.0f, 2.0f, 1.0f}, V{1.0f, 2.0f, 3.0f}, 0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_FALSE(f.ready);
}

TEST(Interpolator, ExtraValuesAreIgnored) {
  const INTERPOLATOR f(V{0.0f, 1.0f}, V{0.0f, 10.0f, 99.0f}, 2);
  ASSERT_TRUE(f.ready);
  EXPECT_EQ(f.y.size(), 2u);
  EXPECT_FLOAT_EQ(f.evaluate(2.0f), 20.0f);
}

TEST(Interpolator, RebuildingReplacesTheTable) {
  INTERPOLATOR f(kX, kY, 1);
  f = INTERPOLATOR(V{0.0f, 2.0f, 1.0f}, kY, 1);
  EXPECT_FALSE(f.ready);
  EXPECT_TRUE(std::isnan(f.evaluate(1.0f)));
}

}  // namespace
}  // namespace corvane
