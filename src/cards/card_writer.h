// CardWriter: lays out the fields of a bulk data card in the small-field layout
// and appends them to a text as they come, so that a whole deck is written in one
// pass without a list of fields or a text per card. The name in the first field is
// moved left; data fields are right-justified, those of at most 6 characters one
// column short of the field's end so that they never touch the next field. After
// 8 data fields a line ends, and a continuation line starting with 8 blanks opens
// when a further field follows. Lines end in "\r\n".
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

class CardWriter {
 public:
  // A field as it stands on the card.
  using Field = std::array<char, 8>;

  // Appends a card of `fields` fields to `out`, which keeps what it holds. Room
  // for them is made at once; a card with more fields grows the text as they
  // come. The text holds the card once end() has been called, or what has been
  // written of it (without its line end) once the writer is gone.
  CardWriter(std::string& out, std::size_t fields);
  ~CardWriter() { out_.resize(size_); }
  CardWriter(const CardWriter&) = delete;
  CardWriter& operator=(const CardWriter&) = delete;

  // The next field: the text padded or cut to 8 characters, then laid out.
  void field(std::string_view text);
  // A blank field.
  void blank() { field({}); }
  // real_to_field8 of the value as the next field.
  void real(float value);
  // A data field laid out before by data_field: a card repeats some texts.
  void laid(const Field& field);
  // Ends the card's last line.
  void end();

  // The layout of the text in any field but the first: the same wherever the
  // field stands, continuation lines included.
  static Field data_field(std::string_view text);

  // Most characters a card of that many fields takes, line ends included.
  static constexpr std::size_t length_bound(std::size_t fields) {
    constexpr std::size_t kLine = 9 * 8 + 2;
    return kLine * (fields <= 9 ? 1 : 1 + (fields - 9 + 7) / 8);
  }

 private:
  // n characters more at the end of the card.
  char* room(std::size_t n) {
    if (size_ + n > out_.size()) grow(n);
    char* p = out_.data() + size_;
    size_ += n;
    return p;
  }
  void grow(std::size_t n);

  std::string& out_;
  std::size_t size_;  // the length of out_ written so far
  int column_ = 0;    // position of the last field on its line, 1 for the name
};

}  // namespace corvane
