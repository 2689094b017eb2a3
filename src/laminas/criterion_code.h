// Ply failure criterion codes chosen by keyword. The codes are fixed values,
// not consecutive, and travel through the system as 32-bit integers.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvane {

inline constexpr std::int32_t kNoCriterion = 0;

// The code of a criterion keyword (leading and trailing blanks and letter case
// ignored); 0 for an unknown or empty name.
std::int32_t criterion_code(std::string_view name);

// The shortest keyword of a code ("MTS" for 31); empty for a code no keyword has.
std::string_view criterion_keyword(std::int32_t code);

}  // namespace corvane
