// Splits a fuzzer's byte string into the arguments of an entry point: floats
// taken raw from the bytes (so NaN, infinities, subnormals, huge, negative and
// zero all occur) and a text laid into a buffer of exactly the size the entry
// point reads, on the heap so that AddressSanitizer sees a byte too far.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

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

}  // namespace corvane::fuzz
