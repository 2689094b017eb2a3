// Number fields of finite-element bulk data in the small-field layout, where
// every field is 8 characters: reals and identifiers turned into fields, short
// texts for report tables, and a list of fields joined into card lines with
// their continuations. Lines end in "\r\n". Nothing here keeps state or prints.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace corvane {

// A real in 8 characters, choosing the form by magnitude: 0.0 for |x| <= 1e-20,
// exponent form below 0.01 and from 1e6, fixed point with 4 to 1 decimals up to
// 1e4, and a whole number with a trailing point from 1e4 to 1e6.
std::string real_to_field8(float value);
// The same written into the 8 characters of field.
void real_to_field8(float value, std::span<char, 8> field);

// The decimal integer without blanks: 2001, -5.
std::string integer_to_text(std::int32_t value);

// A real read from the text, rounded to the nearest whole number (halves away
// from zero). An unreadable text or a NaN gives -2147483648 and sets
// *error_flag to 1; otherwise *error_flag is 0. error_flag may be null.
std::int32_t text_to_integer(std::string_view text, std::int32_t* error_flag = nullptr);

// decimals <= 0: the value rounded to a whole number, without a point.
// Otherwise fixed point with that many decimals and a zero before the point
// below 1 (0.184). No blanks on either side.
std::string real_to_text(float value, std::int32_t decimals);

// True when the field (its first 8 characters) reads as a whole number in
// 1..9999999. Blank or non-numeric fields are not identifiers.
bool is_valid_card_id(std::string_view field);

// Lays out a card: fields[0] is the card name, moved left; the data fields are
// right-justified, those of at most 6 characters one column short of the
// field's end so that they never touch the next field. After 8 data fields a
// line ends and a continuation line starts with 8 blanks.
std::string assemble_card(std::span<const std::string> fields);

// A short real for report tables: ">1E5", "<-1E5", "0.0", a whole number from
// 1000 up, otherwise one decimal. No blanks on either side.
std::string real_to_text6(float value);

// A reserve factor in exactly 5 characters, cut toward zero (never rounded up)
// to 3, 2 or 1 decimals by magnitude; " <0  " below zero, ">1000" from 1000.
std::string reserve_factor_text5(float value);

}  // namespace corvane
