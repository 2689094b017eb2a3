// Fixed-width number fields as report and card formats lay them out:
//   Fw.d   fixed point, d decimals, right-justified in w
//   ESw.d  one digit 1-9 before the point, d after, E, sign, two digits
//   Iw     integer right-justified in w
// Rounding is to nearest on the exact binary value of the float, ties to even
// (the float widened to double and printed). A text too wide for its field
// first loses an optional leading zero (-0.500 becomes -.500 in F5.3); if it
// still does not fit, the field is w asterisks. NaN and infinities are written
// right-justified as NaN, Inf and -Inf.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

std::string format_fixed(float x, int w, int d);
std::string format_exponent(float x, int w, int d);
std::string format_integer(std::int32_t n, int w);

// Leading blanks removed and as many appended: the same length, moved left.
std::string move_left(std::string_view s);
// Trailing blanks removed and as many prepended: the same length, moved right.
std::string move_right(std::string_view s);
// Trailing blanks dropped.
std::string_view trim_trailing(std::string_view s);
// Padded with blanks or cut to exactly n characters.
std::string pad_or_cut(std::string_view s, std::size_t n);

// The shortest text that reads back as the same float ("0.3", "-1e-07"), for
// messages that name a value.
std::string shortest_text(float x);

}  // namespace corvane
