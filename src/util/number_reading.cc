#include "util/number_reading.h"

#include <array>
#include <charconv>
#include <limits>
#include <system_error>

namespace corvane {
namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

std::string_view strip_blanks(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
  return s;
}

}  // namespace

int read_real(std::string_view token, float& value) {
  std::string_view s = strip_blanks(token);
  // The longest float literal worth reading is far below this; anything longer
  // is refused rather than copied.
  constexpr std::size_t kMaxLength = 128;
  if (s.empty() || s.size() > kMaxLength) return kReadBadSyntax;

  std::array<char, kMaxLength> buf{};
  std::size_t n = 0;
  std::size_t i = 0;
  bool negative = false;
  if (s[i] == '+' || s[i] == '-') {
    negative = s[i] == '-';
    ++i;
  }
  std::size_t digits = 0;
  while (i < s.size() && is_digit(s[i])) {
    buf[n++] = s[i++];
    ++digits;
  }
  if (i < s.size() && s[i] == '.') {
    buf[n++] = s[i++];
    while (i < s.size() && is_digit(s[i])) {
      buf[n++] = s[i++];
      ++digits;
    }
  }
  if (digits == 0) return kReadBadSyntax;
  if (i < s.size() && (s[i] == 'E' || s[i] == 'e' || s[i] == 'D' || s[i] == 'd')) {
    buf[n++] = 'e';
    ++i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) buf[n++] = s[i++];
    std::size_t exponent_digits = 0;
    while (i < s.size() && is_digit(s[i])) {
      buf[n++] = s[i++];
      ++exponent_digits;
    }
    if (exponent_digits == 0) return kReadBadSyntax;
  }
  if (i != s.size()) return kReadBadSyntax;

  float parsed = 0.0f;
  auto [end, ec] = std::from_chars(buf.data(), buf.data() + n, parsed);
  if (ec == std::errc::result_out_of_range) return kReadOutOfRange;
  if (ec != std::errc() || end != buf.data() + n) return kReadBadSyntax;
  value = negative ? -parsed : parsed;
  return kReadOk;
}

int read_integer(std::string_view token, std::int32_t& value) {
  std::string_view s = strip_blanks(token);
  if (s.empty()) return kReadBadSyntax;
  bool negative = false;
  if (s.front() == '+' || s.front() == '-') {
    negative = s.front() == '-';
    s.remove_prefix(1);
  }
  if (s.empty()) return kReadBadSyntax;
  std::int64_t magnitude = 0;
  for (char c : s) {
    if (!is_digit(c)) return kReadBadSyntax;
    magnitude = magnitude * 10 + (c - '0');
    if (magnitude > 2147483648LL) return kReadOutOfRange;
  }
  const std::int64_t signed_value = negative ? -magnitude : magnitude;
  if (signed_value > std::numeric_limits<std::int32_t>::max()) return kReadOutOfRange;
  value = static_cast<std::int32_t>(signed_value);
  return kReadOk;
}

}  // namespace corvane
