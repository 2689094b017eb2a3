#include "layup_text.h"

#include <cstdint>
#include <vector>

#include "number_text.h"

namespace corvane::cli {
namespace {

// The ply tokens of the group between "(" and the first ")"; a "/" at the
// very end opens no further ply.
std::vector<std::string_view> group_tokens(std::string_view layup) {
  std::vector<std::string_view> tokens;
  const auto open = layup.find('(');
  const auto close = layup.find(')');
  if (open == std::string_view::npos || close == std::string_view::npos || close < open) {
    return tokens;
  }
  std::string_view rest = layup.substr(open + 1, close - open - 1);
  while (!rest.empty()) {
    const auto slash = rest.find('/');
    tokens.push_back(rest.substr(0, slash));
    if (slash == std::string_view::npos) break;
    rest.remove_prefix(slash + 1);
  }
  return tokens;
}

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

}  // namespace

std::string layup_problem(std::string_view layup) {
  const std::string_view text = trim_blanks(layup);
  if (text.size() < 3) return "the layup " + quoted(text) + " is too short";
  if (text.front() != '(') {
    return "the layup " + quoted(text) + " does not open with \"(\"";
  }
  const auto close = text.find(')');
  if (close == std::string_view::npos) {
    return "the layup " + quoted(text) + " has no closing \")\"";
  }

  // Behind ")": an optional repeat count, then an optional S or $.
  std::string_view suffix = text.substr(close + 1);
  int mirror = 0;  // 0 none, 1 "S" (mirror all plies), 2 "$" (middle ply once)
  if (!suffix.empty() && (suffix.back() == 'S' || suffix.back() == '$')) {
    mirror = suffix.back() == 'S' ? 1 : 2;
    suffix.remove_suffix(1);
  }
  std::int64_t repeat = 1;
  if (!suffix.empty()) {
    std::string_view digits = suffix;
    if (digits.front() == '+' || digits.front() == '-') digits.remove_prefix(1);
    const bool all_digits = !digits.empty() && digits.find_first_not_of("0123456789") ==
                                                   std::string_view::npos;
    if (!all_digits) {
      return "unreadable ending " + quoted(text.substr(close + 1)) +
             " after \")\": expected a repeat count, S or $";
    }
    if (suffix.front() == '-' ||
        digits.find_first_not_of('0') == std::string_view::npos) {
      return "the repeat count " + quoted(suffix) + " must be at least 1";
    }
    repeat = digits.size() > 6 ? 1000000 : std::stoll(std::string(digits));
  }

  const std::vector<std::string_view> tokens = group_tokens(text);
  if (tokens.empty()) return "the layup " + quoted(text) + " lists no ply";
  for (std::size_t k = 0; k < tokens.size(); ++k) {
    float angle = 0.0f;
    if (!parse_real(tokens[k], angle).empty()) {
      return "ply " + std::to_string(k + 1) + " of the layup, " + quoted(tokens[k]) +
             ", is not an angle";
    }
  }
  const std::int64_t listed = static_cast<std::int64_t>(tokens.size()) * repeat;
  const std::int64_t plies = mirror == 0   ? listed
                             : mirror == 1 ? 2 * listed
                                           : 2 * listed - 1;
  if (plies > kMaxPlies) {
    return "the layup makes " + std::to_string(plies) + " plies, more than " +
           std::to_string(kMaxPlies);
  }
  return {};
}

bool uses_second_material(std::string_view layup) {
  for (const std::string_view token : group_tokens(layup)) {
    const std::string_view ply = trim_blanks(token);
    if (!ply.empty() && ply.back() == '.') return true;
  }
  return false;
}

}  // namespace corvane::cli
