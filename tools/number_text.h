// Numbers between the command line and the entry points: reals and six-term
// matrices read by the library's own number grammar, and the two ways results
// are written (six significant digits for people, shortest exact form for JSON).
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace corvane::cli {

// Reads one real as the library reads numbers from text (D exponents
// included), rounded correctly to float; blanks around it are allowed.
// Returns an empty text on success, else why the text is not a number.
std::string parse_real(std::string_view text, float& value);

// Reads the six distinct terms of a symmetric 3x3 matrix written as
// "X11,X12,X16,X22,X26,X66" into the column-ordered nine floats the entry
// points take (element (i,j) at (i-1) + 3(j-1), the mirror terms repeated).
// Returns an empty text on success, else what is wrong.
std::string parse_symmetric_matrix(std::string_view text, std::array<float, 9>& matrix);

// Six significant digits, as printed for people; -0 prints as 0.
std::string format_general(float value);

// The double whose shortest decimal form is the shortest form of `value`, so
// that JSON shows 0.3 for 0.3f and reading it back as float gives `value`.
double json_real(float value);

}  // namespace corvane::cli
