// Single-precision arithmetic as the hosts' compiled code performs it: the
// constants they write, their MIN and MAX, and their whole-number conversions.
// Each rule lives here once so that every module rounds the same way.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <limits>

namespace corvane {

// Pi to seven figures, as the hosts write it: every angle and wave length is
// formed from this float, not from the one nearest pi. Pi^2 and 2 pi are
// written out as the hosts write them; in float they are its products.
inline constexpr float kPi = 3.141593f;
// Two units in the last place above the float nearest pi^2.
inline constexpr float kPiSquared = 9.869606f;
inline constexpr float kTwoPi = 6.283186f;
inline constexpr float kDegreesPerRadian = 57.295773f;
static_assert(kPi * kPi == kPiSquared && 2.0f * kPi == kTwoPi);

// Degrees to radians, multiplied by pi first and then divided by 180: two
// roundings, as written in the formulas (a single factor pi/180 rounds otherwise).
inline float radians(float degrees) { return degrees * kPi / 180.0f; }

// MAX(x, floor) as the hosts evaluate it: x only when it compares above the
// floor, so a NaN gives the floor and -0.0 against a floor of 0.0 gives +0.0.
inline float floor_at(float x, float floor) { return x > floor ? x : floor; }

// MIN(x, y) as the hosts evaluate it: x only when it compares below y, so a
// NaN on either side gives y.
inline float min_of(float x, float y) { return x < y ? x : y; }

// The smallest of the values and the larger of two, passing over a NaN (as fmin
// and fmax do): a NaN comes out only when nothing else is left, and never hides
// a number.
inline float smallest_number(std::initializer_list<float> values) {
  float result = std::numeric_limits<float>::quiet_NaN();
  for (const float v : values) result = std::fmin(result, v);
  return result;
}
inline float larger_number(float x, float y) { return std::fmax(x, y); }

// True when some value is at or below zero: smallest_number(values) <= 0, so a
// NaN alone does not count.
inline bool any_not_positive(std::initializer_list<float> values) {
  return std::any_of(values.begin(), values.end(), [](float v) { return v <= 0.0f; });
}

inline constexpr std::int32_t kInt32Invalid = INT32_MIN;

// Whole-number conversions: rounding halves away from zero, and a NaN or an
// out-of-range value converting to -2147483648 (what the x86-64 conversion
// instruction yields) instead of the undefined behaviour of a C++ cast.

// Truncation toward zero to int32; NaN and values outside int32 give INT32_MIN.
inline std::int32_t to_int32(float x) {
  // 2147483648.0f is exactly 2^31; every float below it in magnitude fits.
  if (!(x > -2147483648.5f && x < 2147483648.0f)) return kInt32Invalid;
  return static_cast<std::int32_t>(x);
}

// Nearest whole number, halves away from zero, to int32 (NaN and overflow as above).
inline std::int32_t nint(float x) { return to_int32(std::round(x)); }

}  // namespace corvane
