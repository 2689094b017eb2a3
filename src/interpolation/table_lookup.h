// Piecewise-linear lookup in a fixed two-column table (abscissae ascending,
// values beside them), clamped to the end values outside the table.
#pragma once

#include <span>

namespace corvane {

// Status values of table_lookup.
inline constexpr int kLookupOk = 0;            // interpolated, or an exact row
inline constexpr int kLookupNotAscending = 1;  // the abscissae decrease somewhere
inline constexpr int kLookupBelow = 2;         // x below the first abscissa
inline constexpr int kLookupAbove = 3;         // x above the last abscissa

// Value of the table (x_column, y_column) at x. The table has as many rows as
// the shorter column. Equal neighbouring abscissae are allowed; a query on such a
// step takes the last of the equal rows. Outside the range the end value is
// returned with status 2 or 3. A table whose abscissae decrease anywhere gives
// 0.0 and status 1 and writes "Error! Table X-values not in ascending order."
// through write_error_line, on every call. An empty table gives 0.0, status 2.
float table_lookup(std::span<const float> x_column, std::span<const float> y_column,
                   float x, int* status = nullptr);

}  // namespace corvane
