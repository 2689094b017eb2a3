#include "number_text.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <system_error>

namespace corvane::cli {
namespace {

// Optional sign, digits with an optional point (at least one digit), and an
// optional exponent: E or e, optional sign, digits.
bool is_plain_decimal(std::string_view token) {
  std::size_t k = 0;
  const auto digits = [&] {
    const std::size_t start = k;
    while (k < token.size() && token[k] >= '0' && token[k] <= '9') ++k;
    return k - start;
  };
  if (k < token.size() && (token[k] == '+' || token[k] == '-')) ++k;
  std::size_t mantissa = digits();
  if (k < token.size() && token[k] == '.') {
    ++k;
    mantissa += digits();
  }
  if (mantissa == 0) return false;
  if (k < token.size() && (token[k] == 'e' || token[k] == 'E')) {
    ++k;
    if (k < token.size() && (token[k] == '+' || token[k] == '-')) ++k;
    if (digits() == 0) return false;
  }
  return k == token.size();
}

}  // namespace

std::string_view trim_blanks(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  const auto last = text.find_last_not_of(" \t");
  return text.substr(first, last - first + 1);
}

std::string parse_real(std::string_view text, float& value) {
  std::string_view token = trim_blanks(text);
  const std::string quoted = "\"" + std::string(text) + "\"";
  if (token.empty()) return "an empty text is not a number";
  // from_chars alone would also take "inf", "nan" and hexadecimal digits.
  if (!is_plain_decimal(token)) return quoted + " is not a number";
  if (token.front() == '+') token.remove_prefix(1);
  float read = 0.0f;
  const auto [end, error] =
      std::from_chars(token.data(), token.data() + token.size(), read);
  if (error == std::errc::result_out_of_range) {
    return quoted + " is out of the range of a 32-bit real";
  }
  if (error != std::errc{} || end != token.data() + token.size() ||
      !std::isfinite(read)) {
    return quoted + " is not a number";
  }
  value = read;
  return {};
}

std::string parse_symmetric_matrix(std::string_view text, std::array<float, 9>& matrix) {
  // Positions of X11, X12, X16, X22, X26, X66 and of their mirror images.
  static constexpr int kPosition[6] = {0, 3, 6, 4, 7, 8};
  static constexpr int kMirror[6] = {0, 1, 2, 4, 5, 8};
  std::array<float, 6> terms{};
  std::size_t count = 0;
  std::string_view rest = text;
  while (true) {
    const auto comma = rest.find(',');
    const std::string_view item = rest.substr(0, comma);
    if (count == terms.size()) {
      return "expected six numbers X11,X12,X16,X22,X26,X66, got more";
    }
    float value = 0.0f;
    if (std::string why = parse_real(item, value); !why.empty()) {
      return "term " + std::to_string(count + 1) + ": " + why;
    }
    terms[count++] = value;
    if (comma == std::string_view::npos) break;
    rest.remove_prefix(comma + 1);
  }
  if (count != terms.size()) {
    return "expected six numbers X11,X12,X16,X22,X26,X66, got " + std::to_string(count);
  }
  for (std::size_t k = 0; k < terms.size(); ++k) {
    matrix[kPosition[k]] = terms[k];
    matrix[kMirror[k]] = terms[k];
  }
  return {};
}

std::string format_general(float value) {
  if (value == 0.0f) return "0";
  char text[32];
  std::snprintf(text, sizeof text, "%.6g", static_cast<double>(value));
  return text;
}

double json_real(float value) {
  if (value == 0.0f) return 0.0;
  char text[32];
  const auto written = std::to_chars(text, text + sizeof text, value);
  double widened = static_cast<double>(value);
  std::from_chars(text, written.ptr, widened);
  return widened;
}

}  // namespace corvane::cli
