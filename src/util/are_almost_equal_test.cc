#include "util/are_almost_equal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace corvane {
namespace {

const std::string kRangeMessage =
    "Error! are_almost_equal : d<1 or d>6 are not allowed!\n";

struct DigitsCase {
  float a, b;
  int d;
  bool equal;
};

class AreAlmostEqual : public ::testing::TestWithParam<DigitsCase> {};

TEST_P(AreAlmostEqual, ComparesSignificantDigits) {
  const DigitsCase& c = GetParam();
  testing::internal::CaptureStdout();
  const bool equal = are_almost_equal(c.a, c.b, c.d);
  const std::string printed = testing::internal::GetCapturedStdout();
  EXPECT_EQ(equal, c.equal) << c.a << " " << c.b << " d=" << c.d;
  EXPECT_EQ(printed, c.d >= 1 && c.d <= 6 ? "" : kRangeMessage);
}

const float kNaN = std::numeric_limits<float>::quiet_NaN();
const float kInf = std::numeric_limits<float>::infinity();

INSTANTIATE_TEST_SUITE_P(
    Digits, AreAlmostEqual,
    ::testing::Values(
        // 1234.5 and 1234.9 both round to 1235; 1235.6 does not.
        DigitsCase{1.2345f, 1.2349f, 4, true}, DigitsCase{1.2345f, 1.2356f, 4, false},
        // Scaled to the larger exponent with one more digit: 999 against 1000,
        // but 999.9 rounds to 1000, in either argument order.
        DigitsCase{9.99f, 10.0f, 3, false}, DigitsCase{10.0f, 9.99f, 3, false},
        DigitsCase{9.999f, 10.0f, 3, true}, DigitsCase{10.0f, 9.999f, 3, true},
        DigitsCase{99.0f, 100.0f, 1, true},
        // Exponents two or more apart never agree.
        DigitsCase{1.0f, 100.0f, 1, false}, DigitsCase{0.0f, 1.0e-5f, 3, false},
        DigitsCase{0.0f, 0.0f, 3, true}, DigitsCase{0.0f, -0.0f, 6, true},
        // Large and small magnitudes through their decimal exponents.
        DigitsCase{123456.0f, 123457.0f, 5, true},
        DigitsCase{123456.0f, 123457.0f, 6, false},
        DigitsCase{1.0e-5f, 1.00004e-5f, 5, true},
        DigitsCase{1.0e-5f, 1.00004e-5f, 6, false},
        DigitsCase{-0.0314159f, -0.0314160f, 5, true},
        DigitsCase{3.0e38f, 1.0e38f, 1, false},
        // Opposite signs differ unless both round to zero (only possible
        // with d below 1, which also prints the range message).
        DigitsCase{1.5f, -1.5f, 2, false}, DigitsCase{2.0f, -2.0f, 0, true},
        // d = 7 prints the message and still compares seven digits.
        DigitsCase{1.234567f, 1.234568f, 7, false},
        DigitsCase{1.234567f, 1.234568f, 6, true},
        // Non-finite values agree only with non-finite values.
        DigitsCase{kNaN, kNaN, 3, true}, DigitsCase{kNaN, 1.0f, 3, false},
        DigitsCase{kInf, 3.0e38f, 3, false}));

}  // namespace
}  // namespace corvane
