#include "util/are_almost_equal.h"

#include <cmath>
#include <cstdint>

#include "util/messages.h"
#include "util/numerics.h"

namespace corvane {
namespace {

// The float nearest 10^n: std::pow of an integer exponent works in double, and
// one rounding to float keeps 10^n exact up to n = 10 and avoids the overflow a
// product of float squares would meet near the ends of the float range.
float power_of_ten(std::int64_t n) {
  return static_cast<float>(std::pow(10.0, static_cast<double>(n)));
}

struct Decimal {
  float m;         // mantissa, 1 <= |m| < 10 up to rounding (0 for zero)
  std::int64_t e;  // decimal exponent
};

Decimal split(float x) {
  if (x == 0.0f) return {0.0f, 0};
  // A NaN or an infinity converts to the invalid integer and carries on.
  std::int64_t e = to_int32(std::log10(std::fabs(x)));
  if (e > 0) e = e + 1;
  float m = x * power_of_ten(-e);
  if (std::fabs(m) < 1.0f) {
    e = e - 1;
    m = m * 10.0f;
  }
  return {m, e};
}

}  // namespace

bool are_almost_equal(float a, float b, std::int32_t d) {
  Decimal da = split(a);
  Decimal db = split(b);
  if (d < 1 || d > 6) {
    write_error_line("Error! are_almost_equal : d<1 or d>6 are not allowed!");
  }
  if (da.e - db.e > 1 || db.e - da.e > 1) return false;
  std::int64_t digits = d;
  if (db.e > da.e) {
    da.m = da.m / 10.0f;
    digits = digits + 1;
  } else if (db.e < da.e) {
    db.m = db.m / 10.0f;
    digits = digits + 1;
  }
  const float scale = power_of_ten(digits - 1);
  return nint(da.m * scale) == nint(db.m * scale);
}

}  // namespace corvane
