#include "cards/card_writer.h"

#include <algorithm>
#include <cstring>

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

CardWriter::CardWriter(std::string& out, std::size_t fields)
    : out_(out), size_(out.size()) {
  out_.resize(size_ + length_bound(fields));
}

void CardWriter::grow(std::size_t n) {
  out_.resize(std::max(size_ + n, 2 * out_.size()));
}

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
  char* p = room(kWidth);
  std::fill_n(std::copy(text.begin(), text.end(), p), kWidth - text.size(), ' ');
  column_ = 1;
}

void CardWriter::laid(const Field& field) {
  // The break waits for a tenth field, so that a full last line gets no
  // empty continuation.
  if (column_ == 9) {
    // The line end and the blank continuation field.
    std::memcpy(room(2 + kWidth), "\r\n        ", 2 + kWidth);
    column_ = 1;
  }
  ++column_;
  std::memcpy(room(kWidth), field.data(), kWidth);
}

void CardWriter::end() {
  std::memcpy(room(2), "\r\n", 2);
  out_.resize(size_);
}

void CardWriter::real(float value) {
  // A real field fills its 8 characters, right-justified: it is laid out as
  // it stands.
  Field text;
  real_to_field8(value, text);
  laid(text);
}

}  // namespace corvane
