#include "cards/number_fields.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <system_error>

#include "cards/card_writer.h"
#include "util/fixed_width.h"
#include "util/number_reading.h"
#include "util/numerics.h"

namespace corvane {
namespace {

constexpr std::size_t kFieldWidth = 8;

// Moved left with the trailing blanks dropped: the text without blanks around it.
std::string trimmed(std::string_view s) {
  return std::string(trim_trailing(move_left(s)));
}

// Sign, up to 10 digits, the point and up to 8 decimals.
using FixedText = std::array<char, 24>;

// The text of printf's "%.*f" for x with 1 to 8 decimals, without a call to it:
// the length written, or 0 when x is not finite, |x| >= 1e9 or the count of
// decimals is out of range (the caller then prints). Below 1e9 a float times
// 10^decimals needs at most 24 + 27 bits, so the product in double is exact, and
// rounding it to a whole number, ties to even, is the rounding printf makes of
// the exact binary value.
// Stays: to_chars with a precision, same text, took 2.7x as long (24-ply deck +20 %).
std::size_t exact_fixed(float x, int decimals, FixedText& text) {
  static constexpr std::array<double, 9> kScale = {1e0, 1e1, 1e2, 1e3, 1e4,
                                                   1e5, 1e6, 1e7, 1e8};
  static constexpr std::array<std::uint64_t, 9> kPower = {
      1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
  if (decimals < 1 || decimals > 8 || !(std::fabs(x) < 1.0e9f)) return 0;
  const auto d = static_cast<std::size_t>(decimals);
  const auto scaled = static_cast<std::uint64_t>(
      std::nearbyint(std::fabs(static_cast<double>(x)) * kScale[d]));
  char* p = text.data();
  if (std::signbit(x)) *p++ = '-';  // printf keeps the sign of -0.0 and of -0.0001
  p = std::to_chars(p, text.data() + text.size(), scaled / kPower[d]).ptr;
  *p++ = '.';
  std::uint64_t fraction = scaled % kPower[d];
  for (std::size_t i = d; i > 0; --i) {
    p[i - 1] = static_cast<char>('0' + fraction % 10);
    fraction /= 10;
  }
  return static_cast<std::size_t>(p + d - text.data());
}

// The two significant digits of printf's "%.1E" for x and its decimal exponent,
// taken from x scaled into [10, 100) by an exact power of ten, for 1e-21 < |x|
// < 1e23: one rounding, at most 7.2e-15 off the exact scaled value, which can
// only change the nearest whole number when that value lies within it of a
// half. Such values (exact ties among them) are left to the caller: false.
bool two_digits(float x, int& digits, int& exponent) {
  static constexpr std::array<double, 23> kPower = {
      1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
      1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  const double v = std::fabs(static_cast<double>(x));
  if (!(v > 1.0e-21 && v < 1.0e23)) return false;
  // A first guess from the binary exponent, at most one off; the loop puts it right.
  int e = static_cast<int>(std::floor(std::ilogb(v) * 0.30102999566398));
  double scaled = 0.0;
  for (int attempt = 0; attempt < 3; ++attempt) {
    const int k = 1 - e;  // scaled = v * 10^k
    if (k < -22 || k > 22) return false;
    scaled = k >= 0 ? v * kPower[static_cast<std::size_t>(k)]
                    : v / kPower[static_cast<std::size_t>(-k)];
    if (scaled < 10.0) {
      --e;
    } else if (scaled >= 100.0) {
      ++e;
    } else {
      break;
    }
  }
  if (!(scaled >= 10.0 && scaled < 100.0)) return false;
  const double whole = std::floor(scaled);
  if (std::fabs(scaled - whole - 0.5) < 1.0e-13) return false;
  digits = static_cast<int>(whole) + (scaled - whole > 0.5 ? 1 : 0);
  if (digits == 100) {
    digits = 10;
    ++e;
  }
  exponent = e;
  return true;
}

// The text of printf's "%.1E" for a finite x, without a call to it: from
// two_digits, or else to_chars with a precision, which converts as printf does,
// from the exact binary value. The length written, or 0 when x is not finite
// (the caller then prints).
std::size_t exact_exponent(float x, FixedText& text) {
  if (!std::isfinite(x)) return 0;
  int digits = 0;
  int exponent = 0;
  if (two_digits(x, digits, exponent)) {
    char* p = text.data();
    if (std::signbit(x)) *p++ = '-';
    *p++ = static_cast<char>('0' + digits / 10);
    *p++ = '.';
    *p++ = static_cast<char>('0' + digits % 10);
    *p++ = 'E';
    *p++ = exponent < 0 ? '-' : '+';
    const int magnitude = exponent < 0 ? -exponent : exponent;  // below 100
    *p++ = static_cast<char>('0' + magnitude / 10);
    *p++ = static_cast<char>('0' + magnitude % 10);
    return static_cast<std::size_t>(p - text.data());
  }
  const auto result = std::to_chars(text.data(), text.data() + text.size(), x,
                                    std::chars_format::scientific, 1);
  if (result.ec != std::errc{}) return 0;
  std::replace(text.data(), result.ptr, 'e', 'E');
  return static_cast<std::size_t>(result.ptr - text.data());
}

// format_exponent(x, 8, 1) without printf where the text fits.
std::string exponent_field8(float x) {
  FixedText text;
  const std::size_t length = exact_exponent(x, text);
  if (length == 0 || length > kFieldWidth) return format_exponent(x, 8, 1);
  std::string field(kFieldWidth - length, ' ');
  field.append(text.data(), length);
  return field;
}

}  // namespace

void real_to_field8(float value, std::span<char, 8> field) {
  const auto put = [&field](std::string_view text) {  // right-justified
    std::fill(field.begin(), field.end(), ' ');
    std::copy(text.begin(), text.end(),
              field.end() - static_cast<std::ptrdiff_t>(text.size()));
  };
  const float a = std::fabs(value);
  if (a <= 1.0e-20f) return put("0.0");
  if (a >= 1.0e6f) return put(exponent_field8(value));
  if (a >= 1.0e4f) {
    // Seven columns for the digits, so that a value rounding to -1000000 turns
    // into asterisks while 1000000 still fits; the point makes the eighth.
    std::array<char, 16> digits;
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), nint(value)).ptr;
    auto length = static_cast<std::size_t>(end - digits.data());
    if (length > 7) {
      length = 7;
      std::fill_n(digits.begin(), length, '*');
    }
    digits[length++] = '.';
    return put({digits.data(), length});
  }
  int decimals = 0;
  if (a >= 1.0e3f) {
    decimals = 1;
  } else if (a >= 1.0e2f) {
    decimals = 2;
  } else if (a >= 10.0f) {
    decimals = 3;
  } else if (a >= 0.01f) {
    decimals = 4;
  } else {
    return put(exponent_field8(value));
  }
  FixedText text;
  const std::size_t length = exact_fixed(value, decimals, text);
  if (length == 0 || length > kFieldWidth) return put(format_fixed(value, 8, decimals));
  put({text.data(), length});
}

std::string real_to_field8(float value) {
  std::array<char, 8> field;
  real_to_field8(value, field);
  return {field.data(), field.size()};
}

std::string integer_to_text(std::int32_t value) { return std::to_string(value); }

std::int32_t text_to_integer(std::string_view text, std::int32_t* error_flag) {
  float x = 0.0f;
  const bool failed = read_real(text, x) != kReadOk || std::isnan(x);
  if (error_flag != nullptr) *error_flag = failed ? 1 : 0;
  return failed ? kInt32Invalid : nint(x);
}

std::string real_to_text(float value, std::int32_t decimals) {
  // The text is laid out in a 100-character buffer. Past 100 decimals nothing
  // fits it any more, so larger counts give the same asterisks as 101.
  constexpr int kBuffer = 100;
  if (decimals <= 0) return std::to_string(nint(value));  // at most 11 characters
  FixedText text;
  const std::size_t length = exact_fixed(value, decimals, text);
  if (length > 0) return {text.data(), length};  // at most 20 characters
  return trimmed(format_fixed(value, kBuffer, std::min(decimals, kBuffer + 1)));
}

bool is_valid_card_id(std::string_view field) {
  std::int32_t id = 0;
  return read_integer(pad_or_cut(field, kFieldWidth), id) == kReadOk && id >= 1 &&
         id <= 9999999;
}

std::string assemble_card(std::span<const std::string> fields) {
  std::string card;
  {
    CardWriter writer(card, fields.size());
    for (const std::string& f : fields) writer.field(f);
    writer.end();
  }
  return card;
}

std::string real_to_text6(float value) {
  std::string field;
  if (value >= 1.0e5f) {
    field = ">1E5";
  } else if (value <= -1.0e5f) {
    field = "<-1E5";
  } else if (std::fabs(value) < 1.0e-4f) {
    field = "0.0";
  } else if (std::fabs(value) >= 1000.0f) {
    field = format_integer(nint(value), 6);
  } else {
    field = format_fixed(value, 6, 1);
  }
  return trimmed(field);
}

std::string reserve_factor_text5(float value) {
  // Cut toward zero so that a printed reserve factor never exceeds the computed one.
  if (value < 0.0f) return " <0  ";
  if (value >= 1000.0f) return ">1000";
  if (value >= 100.0f) return format_fixed(std::trunc(value * 10.0f) / 10.0f, 5, 1);
  if (value >= 10.0f) return format_fixed(std::trunc(value * 100.0f) / 100.0f, 5, 2);
  // Adding zero turns -0.0 into 0.0, which is written without a sign.
  return format_fixed(std::trunc(value * 1000.0f) / 1000.0f + 0.0f, 5, 3);
}

}  // namespace corvane
