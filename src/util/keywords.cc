#include "util/keywords.h"

namespace corvane {

char ascii_upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }

std::string normalize_keyword(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const std::size_t last = text.find_last_not_of(' ');
  std::string out(text.substr(first, last - first + 1));
  for (char& c : out) c = ascii_upper(c);
  return out;
}

}  // namespace corvane
