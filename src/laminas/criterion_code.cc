#include "laminas/criterion_code.h"

#include <string>

#include "util/keywords.h"

namespace corvane {
namespace {

struct Criterion {
  std::string_view keyword;
  std::int32_t code;
};

// Compared in this order; the first whole-word match wins.
constexpr Criterion kCriteria[] = {
    {"MAX_STRAIN_I", 11}, {"MAX_STRAIN_II", 12},
    {"PUCK", 9},          {"MAX_TRUNCATED_STRAIN", 31},
    {"MTS", 31},          {"MTS2", 32},
    {"TSAI_HILL", 4},     {"TSAI_WU", 5},
    {"HOFFMAN", 6},       {"YAMADA_SUN", 7},
    {"AOSL", 8},
};

}  // namespace

std::int32_t criterion_code(std::string_view name) {
  const std::string key = normalize_keyword(name);
  for (const Criterion& c : kCriteria) {
    if (key == c.keyword) return c.code;
  }
  return kNoCriterion;
}

std::string_view criterion_keyword(std::int32_t code) {
  std::string_view shortest;
  for (const Criterion& c : kCriteria) {
    if (c.code == code && (shortest.empty() || c.keyword.size() < shortest.size())) {
      shortest = c.keyword;
    }
  }
  return shortest;
}

}  // namespace corvane
