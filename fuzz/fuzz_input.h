// What the fuzz targets share: a byte string split into the arguments of an
// entry point, floats taken raw from the bytes (so NaN, infinities, subnormals,
// huge, negative and zero all occur) and a text laid into a buffer of exactly
// the size the entry point reads, on the heap so that AddressSanitizer sees a
// byte too far; and the checks of what every entry point promises.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace corvane::fuzz {

class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  float next_float() {
    float value = 0.0f;
    const std::size_t n = std::min(sizeof value, size_);
    std::memcpy(&value, data_, n);
    data_ += n;
    size_ -= n;
    return value;
  }
  std::vector<float> floats(std::size_t n) {
    std::vector<float> v(n);
    for (float& x : v) x = next_float();
    return v;
  }
  // The next four bytes as bits, to choose with.
  std::uint32_t next_bits() {
    const float x = next_float();
    std::uint32_t bits = 0;
    std::memcpy(&bits, &x, sizeof bits);
    return bits;
  }

  // The remaining bytes as a blank-padded text of exactly `length` characters.
  std::unique_ptr<char[]> rest_as_text(std::size_t length) {
    auto text = std::make_unique<char[]>(length);
    std::memset(text.get(), ' ', length);
    std::memcpy(text.get(), data_, std::min(length, size_));
    size_ = 0;
    return text;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

inline std::string padded(std::string text, std::size_t length) {
  text.resize(length, ' ');
  return text;
}

// Stops the run, keeping the input, when an entry point breaks a promise.
inline void require(bool kept) {
  if (!kept) std::abort();
}

// A refusal says why in an "Error! " line, and only a refusal does.
inline bool says_why(const std::string& message, std::int32_t ierr) {
  return (message.rfind("Error! ", 0) == 0) == (ierr != 0);
}

// The cylinder search takes round(L/s) x round(2 pi R/s) steps, which legal
// input can drive into the billions (docs/robustness.md): slow by design, not
// faulty, so the fuzzers skip inputs of more than a million steps.
inline bool cylinder_search_is_long(float length, float radius) {
  if (!(radius > 0.0f)) return false;
  const double l = std::fmin(length, 3.141593 * radius / 4.0);
  const double s = l / 10.0;
  const double steps = std::round(length / s) * std::round(6.283186 * radius / s);
  return !(steps < 1.0e6);  // NaN counts as long: the library handles it, skip it
}

}  // namespace corvane::fuzz
