// Reading numbers from text tokens, strictly: one decimal number, blanks around
// it allowed, nothing else. Hexadecimal forms, "inf", "nan", commas and second
// numbers are refused, and the result never depends on the locale.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvane {

// Status values of the readers: 0 the token held one number.
inline constexpr int kReadOk = 0;
inline constexpr int kReadBadSyntax = 5010;   // not a single number
inline constexpr int kReadOutOfRange = 5011;  // too large for its type

// A real: optional sign, digits with an optional point (45, 45., .5, -22.5),
// an optional exponent introduced by E, e, D or d with an optional sign.
// The value is rounded correctly to float; a value that overflows a float, or
// is so small that it would read as zero, is refused with kReadOutOfRange.
int read_real(std::string_view token, float& value);

// A whole number: optional sign followed by decimal digits, which must fit int32.
int read_integer(std::string_view token, std::int32_t& value);

}  // namespace corvane
