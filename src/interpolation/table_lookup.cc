#include "interpolation/table_lookup.h"

#include <algorithm>
#include <cstddef>

#include "util/messages.h"

namespace corvane {

float table_lookup(std::span<const float> x_column, std::span<const float> y_column,
                   float x, int* status) {
  auto report = [status](int value) {
    if (status != nullptr) *status = value;
  };
  const std::size_t n = std::min(x_column.size(), y_column.size());
  if (n == 0) {
    report(kLookupBelow);
    return 0.0f;
  }
  const auto X = [x_column](std::size_t i) { return x_column[i - 1]; };  // 1-based
  const auto Y = [y_column](std::size_t i) { return y_column[i - 1]; };

  for (std::size_t i = 2; i <= n; ++i) {
    if (X(i) < X(i - 1)) {
      write_error_line("Error! Table X-values not in ascending order.");
      report(kLookupNotAscending);
      return 0.0f;
    }
  }
  if (x < X(1)) {
    report(kLookupBelow);
    return Y(1);
  }
  if (x > X(n)) {
    report(kLookupAbove);
    return Y(n);
  }
  // Full forward scan: the last row at or below x wins, so a step in the table
  // (equal abscissae) is read from its upper side.
  std::size_t lo = 1;
  std::size_t hi = 1;
  for (std::size_t i = 1; i <= n; ++i) {
    if (X(i) <= x) {
      lo = i;
      hi = (i == n) ? n : i + 1;
    }
  }
  report(kLookupOk);
  if (hi != 1 && lo != n) {
    return Y(lo) + (x - X(lo)) * (Y(hi) - Y(lo)) / (X(hi) - X(lo));
  }
  return Y(lo);
}

}  // namespace corvane
