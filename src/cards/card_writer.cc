#include "cards/card_writer.h"

#include <algorithm>

#include "cards/number_fields.h"

namespace corvane {
namespace {

constexpr std::size_t kWidth = 8;

// The text padded or cut to 8 characters, without its trailing blanks.
std::string_view cut(std::string_view text) {
  text = text.substr(0, kWidth);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

}  // namespace

CardWriter::Field CardWriter::data_field(std::string_view text) {
  text = cut(text);
  Field f;
  f.fill(' ');
  // Short values end in column 7 so that they never touch the next field.
  const std::size_t at = (text.size() > 6 ? kWidth : kWidth - 1) - text.size();
  std::copy(text.begin(), text.end(), f.begin() + static_cast<std::ptrdiff_t>(at));
  return f;
}

void CardWriter::field(std::string_view text) {
  if (column_ != 0) return laid(data_field(text));
  // The card name, moved left.
  text = cut(text);
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  Field f;
  f.fill(' ');
  std::copy(text.begin(), text.end(), f.begin());
  out_.append(f.data(), f.size());
  column_ = 1;
}

void CardWriter::laid(const Field& field) {
  // The break waits for a tenth field, so that a full last line gets no
  // empty continuation.
  if (column_ == 9) {
    out_ += "\r\n";
    out_.append(kWidth, ' ');  // the blank continuation field
    column_ = 1;
  }
  ++column_;
  out_.append(field.data(), field.size());
}

void CardWriter::real(float value) {
  Field text;
  real_to_field8(value, text);
  laid(data_field({text.data(), text.size()}));
}

}  // namespace corvane
