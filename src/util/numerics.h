// Whole-number conversions of single-precision values as the hosts' compiled
// code performs them: rounding halves away from zero, and a NaN or an
// out-of-range value converting to -2147483648 (what the x86-64 conversion
// instruction yields) instead of the undefined behaviour of a C++ cast.
#pragma once

#include <cmath>
#include <cstdint>

namespace corvane {

inline constexpr std::int32_t kInt32Invalid = INT32_MIN;

// Truncation toward zero to int32; NaN and values outside int32 give INT32_MIN.
inline std::int32_t to_int32(float x) {
  // 2147483648.0f is exactly 2^31; every float below it in magnitude fits.
  if (!(x > -2147483648.5f && x < 2147483648.0f)) return kInt32Invalid;
  return static_cast<std::int32_t>(x);
}

// Nearest whole number, halves away from zero, to int32 (NaN and overflow as above).
inline std::int32_t nint(float x) { return to_int32(std::round(x)); }

}  // namespace corvane
