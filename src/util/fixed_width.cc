#include "util/fixed_width.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace corvane {
namespace {

// Right-justifies text in w columns, dropping an optional leading zero and
// then falling back to asterisks when it is still too wide.
std::string fit(std::string s, int w) {
  const auto width = static_cast<std::size_t>(w);
  if (s.size() > width) {
    if (s.rfind("0.", 0) == 0) {
      s.erase(0, 1);
    } else if (s.rfind("-0.", 0) == 0) {
      s.erase(1, 1);
    }
  }
  if (s.size() > width) return std::string(width, '*');
  return std::string(width - s.size(), ' ') + s;
}

bool special(float x, int w, std::string& out) {
  if (std::isnan(x)) {
    out = fit("NaN", w);
    return true;
  }
  if (std::isinf(x)) {
    out = fit(x > 0 ? "Inf" : "-Inf", w);
    return true;
  }
  return false;
}

}  // namespace

std::string format_fixed(float x, int w, int d) {
  std::string out;
  if (special(x, w, out)) return out;
  // The largest float printed in full is under 50 characters.
  char buf[128];
  std::snprintf(buf, sizeof buf, "%.*f", d, static_cast<double>(x));
  return fit(buf, w);
}

std::string format_exponent(float x, int w, int d) {
  std::string out;
  if (special(x, w, out)) return out;
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.*E", d, static_cast<double>(x));
  return fit(buf, w);
}

std::string format_integer(std::int32_t n, int w) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%d", n);
  return fit(buf, w);
}

std::string move_left(std::string_view s) {
  const std::size_t first = s.find_first_not_of(' ');
  if (first == std::string_view::npos) return std::string(s.size(), ' ');
  std::string out(s.substr(first));
  out.append(first, ' ');
  return out;
}

std::string move_right(std::string_view s) {
  const std::string_view body = trim_trailing(s);
  return std::string(s.size() - body.size(), ' ') + std::string(body);
}

std::string_view trim_trailing(std::string_view s) {
  const std::size_t last = s.find_last_not_of(' ');
  return last == std::string_view::npos ? s.substr(0, 0) : s.substr(0, last + 1);
}

std::string pad_or_cut(std::string_view s, std::size_t n) {
  std::string out(s.substr(0, n));
  out.resize(n, ' ');
  return out;
}

std::string shortest_text(float x) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), x).ptr;
  return std::string(digits.data(), end);
}

}  // namespace corvane
