#include "number_text.h"

#include <charconv>
#include <cstdio>

#include "util/number_reading.h"

namespace corvane::cli {

std::string parse_real(std::string_view text, float& value) {
  const std::string quoted = "\"" + std::string(text) + "\"";
  float read = 0.0f;
  switch (read_real(text, read)) {
    case kReadOk:
      value = read;
      return {};
    case kReadOutOfRange:
      return quoted + " is out of the range of a 32-bit real";
    default:
      return text.find_first_not_of(" \t") == std::string_view::npos
                 ? "an empty text is not a number"
                 : quoted + " is not a number";
  }
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
