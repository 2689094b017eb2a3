// INTERPOLATOR: piecewise-linear interpolation in a table copied once and
// evaluated many times, with a choice of behaviour outside the table's range.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace corvane {

struct INTERPOLATOR {
  // Behaviour outside [x.front(), x.back()].
  static constexpr std::int32_t kNoResult = 0;     // NaN
  static constexpr std::int32_t kHoldEnd = 1;      // the nearer end value
  static constexpr std::int32_t kExtrapolate = 2;  // the first or last interval

  bool ready = false;  // a valid table is stored
  std::int32_t mode = kNoResult;
  std::vector<float> x;  // abscissae, non-decreasing
  std::vector<float> y;  // values

  // An object that is not ready: every evaluation gives NaN.
  INTERPOLATOR() = default;
  // Copies the abscissae and the first x_values.size() values. Modes other than
  // 1 and 2 become 0. The object stays not ready (and prints nothing) when there
  // are fewer than two abscissae, fewer values than abscissae, or a decrease.
  INTERPOLATOR(std::span<const float> x_values, std::span<const float> y_values,
               std::int32_t mode);

  // The interpolated value at xq; NaN when not ready, or outside the range in
  // mode 0. Inside, a point on an abscissa starts the interval to its right, and
  // a zero-width interval gives the mean of its two values.
  float evaluate(float xq) const;
};

}  // namespace corvane
