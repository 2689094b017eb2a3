#include "cards/number_fields.h"

#include <algorithm>
#include <cmath>

#include "util/fixed_width.h"
#include "util/number_reading.h"
#include "util/numerics.h"

namespace corvane {
namespace {

constexpr std::size_t kFieldWidth = 8;

// Moved left with the trailing blanks dropped: the text without blanks around it.
std::string trimmed(std::string_view s) {
  return std::string(trim_trailing(move_left(s)));
}

}  // namespace

std::string real_to_field8(float value) {
  const float a = std::fabs(value);
  if (a <= 1.0e-20f) return "     0.0";
  if (a >= 1.0e6f) return format_exponent(value, 8, 1);
  if (a >= 1.0e4f) {
    // Seven columns for the digits, so that a value rounding to -1000000 turns
    // into asterisks while 1000000 still fits; the point makes the eighth.
    const std::string digits = trimmed(format_integer(nint(value), 7));
    return move_right(pad_or_cut(digits + ".", kFieldWidth));
  }
  if (a >= 1.0e3f) return format_fixed(value, 8, 1);
  if (a >= 1.0e2f) return format_fixed(value, 8, 2);
  if (a >= 10.0f) return format_fixed(value, 8, 3);
  if (a >= 0.01f) return format_fixed(value, 8, 4);
  return format_exponent(value, 8, 1);
}

std::string integer_to_text(std::int32_t value) { return std::to_string(value); }

std::int32_t text_to_integer(std::string_view text, std::int32_t* error_flag) {
  float x = 0.0f;
  const bool failed = read_real(text, x) != kReadOk || std::isnan(x);
  if (error_flag != nullptr) *error_flag = failed ? 1 : 0;
  return failed ? kInt32Invalid : nint(x);
}

std::string real_to_text(float value, std::int32_t decimals) {
  // The text is laid out in a 100-character buffer. Past 100 decimals nothing
  // fits it any more, so larger counts give the same asterisks as 101.
  constexpr int kBuffer = 100;
  if (decimals <= 0) return trimmed(format_integer(nint(value), kBuffer));
  return trimmed(format_fixed(value, kBuffer, std::min(decimals, kBuffer + 1)));
}

bool is_valid_card_id(std::string_view field) {
  std::int32_t id = 0;
  return read_integer(pad_or_cut(field, kFieldWidth), id) == kReadOk && id >= 1 &&
         id <= 9999999;
}

std::string assemble_card(std::span<const std::string> fields) {
  std::string card;
  int column = 0;  // field position on the current line, 1 for the name
  for (std::size_t i = 0; i < fields.size(); ++i) {
    ++column;
    std::string field = pad_or_cut(fields[i], kFieldWidth);
    const std::size_t length = trim_trailing(field).size();
    if (column == 1) {
      field = move_left(field);
    } else if (length > 6) {
      field = move_right(field);
    } else {
      // Short values end in column 7 so that they never touch the next field.
      field = move_right(field).substr(1) + ' ';
    }
    card += field;
    if (column == 9 && i + 1 < fields.size()) {
      card += "\r\n";
      card.append(kFieldWidth, ' ');  // the blank continuation field
      column = 1;
    }
  }
  card += "\r\n";
  return card;
}

std::string real_to_text6(float value) {
  std::string field;
  if (value >= 1.0e5f) {
    field = ">1E5";
  } else if (value <= -1.0e5f) {
    field = "<-1E5";
  } else if (std::fabs(value) < 1.0e-4f) {
    field = "0.0";
  } else if (std::fabs(value) >= 1000.0f) {
    field = format_integer(nint(value), 6);
  } else {
    field = format_fixed(value, 6, 1);
  }
  return trimmed(field);
}

std::string reserve_factor_text5(float value) {
  // Cut toward zero so that a printed reserve factor never exceeds the computed one.
  if (value < 0.0f) return " <0  ";
  if (value >= 1000.0f) return ">1000";
  if (value >= 100.0f) return format_fixed(std::trunc(value * 10.0f) / 10.0f, 5, 1);
  if (value >= 10.0f) return format_fixed(std::trunc(value * 100.0f) / 100.0f, 5, 2);
  // Adding zero turns -0.0 into 0.0, which is written without a sign.
  return format_fixed(std::trunc(value * 1000.0f) / 1000.0f + 0.0f, 5, 3);
}

}  // namespace corvane
