// Keyword and property-key comparison: leading blanks removed, trailing blanks
// ignored, ASCII a-z folded to upper case and nothing else (no locale).
#pragma once

#include <string>
#include <string_view>

namespace corvane {

char ascii_upper(char c);
std::string normalize_keyword(std::string_view text);

}  // namespace corvane
