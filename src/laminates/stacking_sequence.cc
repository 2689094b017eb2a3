#include "laminates/stacking_sequence.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>

#include "util/number_reading.h"

namespace corvane {
namespace {

std::string_view trim_blanks(std::string_view s) {
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  // A host's text is mostly trailing blanks: drop them eight at a time first.
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  const auto ends_in_eight_blanks = [&s] {
    std::uint64_t tail = 0;
    std::memcpy(&tail, s.data() + s.size() - kWord, kWord);
    return tail == 0x2020202020202020u;
  };
  while (s.size() >= kWord && ends_in_eight_blanks()) s.remove_suffix(kWord);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  return s;
}

// Fills the caller's refusal, if asked for one, and passes the status on.
// Positions are 1-based in the caller's text; the parse works on that text
// without the blanks around it, which starts at `start`.
struct Refusals {
  StackingRefusal* out;
  std::size_t start = 0;
  // Once the group is repeated: "(" in the trimmed text, and the length of one
  // copy of the group with its "/" in the expansion.
  std::size_t open = 0, copy_length = 0;

  std::size_t in_trimmed(std::size_t offset) const { return start + offset + 1; }
  // A character of the text being parsed, the expansion included: every copy
  // of the group stands for the group as written (a mark ")" leaves the last
  // copy's last ply unreadable).
  std::size_t in_parsed(std::size_t offset) const {
    if (copy_length == 0) return in_trimmed(offset);
    return in_trimmed(open + (offset == 0 ? 0 : 1 + (offset - 1) % copy_length));
  }
  int refuse(int status, const char* reason, std::size_t position) const {
    if (out != nullptr) *out = {status, reason, position};
    return status;
  }
};

// Expands "(group)<suffix>" into "(group/group/...)<mark>". Returns 0 or a
// non-zero parser status. The copies stop once the text holds kMaxPlies + 1
// separators: it then has more tokens than plies allowed, and its first
// kMaxPlies + 1 tokens, all the token loop ever reads of it, are the same as in
// the complete expansion, so a huge count costs no memory and changes no result.
int expand_repeat(std::string_view text, std::size_t close, std::string& expanded,
                  Refusals& why) {
  const std::string_view suffix = text.substr(close + 1);
  std::int32_t count = 0;
  std::string_view mark;
  if (read_integer(suffix, count) != kReadOk) {
    if (suffix.size() == 1) {
      count = 1;
      mark = suffix;
    } else {
      const int status = read_integer(suffix.substr(0, suffix.size() - 1), count);
      if (status != kReadOk) {
        return why.refuse(status,
                          status == kReadOutOfRange
                              ? "repeat count out of range"
                              : "unreadable ending: expected a repeat count, S or $",
                          why.in_trimmed(close + 1));
      }
      mark = suffix.substr(suffix.size() - 1);
    }
  }
  const std::size_t open = text.find('(');
  // No group at all: the text cannot begin with "(", nor can its expansion.
  if (open == std::string_view::npos || open > close) {
    return why.refuse(kStackingSyntax, "does not begin with \"(\"", why.in_trimmed(0));
  }
  // No copy leaves "()" and the mark, which the checks of the ending refuse;
  // only a mark ")" makes "())", whose ")" then fails as a ply angle.
  if (count < 1 && mark != ")") {
    return why.refuse(kStackingSyntax, "repeat count below 1", why.in_trimmed(close + 1));
  }
  const std::string_view group = text.substr(open + 1, close - open - 1);
  const auto group_separators =
      static_cast<std::size_t>(std::count(group.begin(), group.end(), '/'));

  expanded.assign(1, '(');
  std::size_t separators = 0;
  for (std::int32_t copy = 1; copy <= count; ++copy) {
    if (copy > 1) {
      expanded += '/';
      ++separators;
    }
    expanded += group;
    separators += group_separators;
    if (separators > static_cast<std::size_t>(kMaxPlies)) break;
  }
  expanded += ')';
  expanded += mark;
  why.open = open;
  why.copy_length = group.size() + 1;
  return kStackingOk;
}

}  // namespace

int parse_stacking_sequence(std::string_view text, std::vector<float>& angles,
                            std::vector<std::int32_t>* material_indices,
                            StackingRefusal* refusal) {
  angles.clear();
  if (material_indices != nullptr) material_indices->clear();

  Refusals why{refusal};
  const char* const given = text.data();
  text = trim_blanks(text.substr(0, text.find('\0')));
  why.start = static_cast<std::size_t>(text.data() - given);
  const std::size_t trimmed_length = text.size();
  if (text.size() < 3) return why.refuse(kStackingSyntax, "shorter than 3 characters", 0);
  const std::size_t close = text.find(')');
  if (close == std::string_view::npos) return why.refuse(kStackingSyntax, "no \")\"", 0);

  std::string expanded;
  if (close + 1 < text.size()) {
    const int status = expand_repeat(text, close, expanded, why);
    if (status != kStackingOk) return status;
    text = expanded;
  }

  // 0: none; 1: "S", mirror plane between two plies; 2: "$", about the last ply.
  int symmetry = 0;
  if (text.size() < 3) return why.refuse(kStackingSyntax, "no ply listed", 0);
  if (text.front() != '(') {
    return why.refuse(kStackingSyntax, "does not begin with \"(\"", why.in_trimmed(0));
  }
  if (text.back() != ')') {
    // Only an expansion ends in a mark, and its mark is the text's last character.
    const std::size_t mark = why.in_trimmed(trimmed_length - 1);
    if (text.size() < 4 || text[text.size() - 2] != ')') {
      return why.refuse(kStackingSyntax, "no ply listed", mark);
    }
    if (text.back() == 'S') {
      symmetry = 1;
    } else if (text.back() == '$') {
      symmetry = 2;
    } else {
      return why.refuse(kStackingSyntax,
                        "unreadable ending: expected a repeat count, S or $", mark);
    }
  }

  // Working tables: locals, so that parses never share state.
  std::array<float, kMaxPlies> table_angles{};
  std::array<std::int32_t, kMaxPlies> table_materials{};
  int k = 0;
  std::string_view rest = text.substr(1, text.size() - (symmetry == 0 ? 2 : 3));
  while (!rest.empty()) {
    // A further token would not fit: the laminate has too many plies anyway.
    if (k == kMaxPlies) {
      return why.refuse(kStackingTooManyPlies, "more than 255 plies", 0);
    }
    const std::size_t slash = rest.find('/');
    const std::string_view token = rest.substr(0, slash);
    const int status = read_real(token, table_angles[k]);
    const std::string_view written = trim_blanks(token);
    if (status != kReadOk) {
      return why.refuse(
          status,
          written.empty()             ? "empty ply angle"
          : status == kReadOutOfRange ? "ply angle out of range"
                                      : "unreadable ply angle",
          why.in_parsed(static_cast<std::size_t>(token.data() - text.data())));
    }
    table_materials[k] = !written.empty() && written.back() == '.' ? 2 : 1;
    ++k;
    rest = slash == std::string_view::npos ? std::string_view{} : rest.substr(slash + 1);
    while (!rest.empty() && rest.front() == ' ') rest.remove_prefix(1);
  }

  const int plies = symmetry == 0 ? k : symmetry == 1 ? 2 * k : 2 * k - 1;
  if (plies > kMaxPlies)
    return why.refuse(kStackingTooManyPlies, "more than 255 plies", 0);
  for (int j = 1; symmetry != 0 && j <= k; ++j) {
    table_angles[plies - j] = table_angles[j - 1];
    table_materials[plies - j] = table_materials[j - 1];
  }

  angles.assign(table_angles.begin(), table_angles.begin() + plies);
  if (material_indices != nullptr) {
    material_indices->assign(table_materials.begin(), table_materials.begin() + plies);
  }
  return kStackingOk;
}

}  // namespace corvane
