#include "interpolation/interpolator.h"

#include <cstddef>
#include <limits>

namespace corvane {

INTERPOLATOR::INTERPOLATOR(std::span<const float> x_values,
                           std::span<const float> y_values, std::int32_t mode_in)
    : mode(mode_in == kHoldEnd || mode_in == kExtrapolate ? mode_in : kNoResult) {
  const std::size_t n = x_values.size();
  if (n < 2 || y_values.size() < n) return;
  for (std::size_t i = 1; i < n; ++i) {
    if (x_values[i - 1] > x_values[i]) return;
  }
  x.assign(x_values.begin(), x_values.end());
  y.assign(y_values.begin(), y_values.begin() + static_cast<std::ptrdiff_t>(n));
  ready = true;
}

float INTERPOLATOR::evaluate(float xq) const {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  if (!ready) return kNaN;
  const std::size_t n = x.size();
  if (mode == kNoResult && (xq < x.front() || xq > x.back())) return kNaN;
  if (mode == kHoldEnd) {
    if (xq < x.front()) return y.front();
    if (xq > x.back()) return y.back();
  }
  // Interval [lo, lo + 1], 0-based: the first interior abscissa above xq closes
  // it; points beyond either end use the first or the last interval.
  std::size_t lo = n - 2;
  for (std::size_t j = 1; j + 1 < n; ++j) {
    if (x[j] > xq) {
      lo = j - 1;
      break;
    }
  }
  const std::size_t hi = lo + 1;
  if (x[hi] == x[lo]) return (y[lo] + y[hi]) / 2.0f;
  return y[lo] + (xq - x[lo]) * (y[hi] - y[lo]) / (x[hi] - x[lo]);
}

}  // namespace corvane
