// Texts at the C boundary: a host's text read at its fixed length, and a
// result written at its fixed length, whatever the hidden lengths say.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace corvane {

// A text of the host read at its fixed length, ended early by a C host's zero
// byte.
inline std::string_view host_text(const char* buffer, std::size_t length) {
  const std::string_view text(buffer, length);
  return text.substr(0, text.find('\0'));
}

// Exactly `length` characters: the text cut or blank padded.
inline void write_text(std::string_view text, char* buffer, std::size_t length) {
  const std::size_t n = std::min(text.size(), length);
  std::memcpy(buffer, text.data(), n);
  std::memset(buffer + n, ' ', length - n);
}

// Runs an adapter's work, which returns its outcome (`code`, `message`), and
// writes the code and the message of `message_length` characters. No exception
// leaves: one can only be an exhausted memory, met before any result was
// written, and its message is written from a literal, as nothing more can be
// allocated.
template <typename Work>
void write_outcome(Work work, char* message, std::size_t message_length,
                   std::int32_t* ierr, std::int32_t out_of_memory) {
  try {
    const auto outcome = work();
    write_text(outcome.message, message, message_length);
    *ierr = outcome.code;
  } catch (...) {
    write_text("Error! Out of memory.", message, message_length);
    *ierr = out_of_memory;
  }
}

}  // namespace corvane
