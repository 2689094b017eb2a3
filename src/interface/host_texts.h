// Texts at the C boundary: a host's text read at its fixed length, and a
// result written at its fixed length, whatever the hidden lengths say.
#pragma once

#include <algorithm>
#include <cstddef>
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

}  // namespace corvane
