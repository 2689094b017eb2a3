// A digest of the core's results over many random cases: one line per case, its
// name and a 64-bit FNV-1a hash of the bit patterns of every result (every float
// of the laminate, the deck text, the buckling loads, modes and status codes).
// The cases come from a fixed seed and an integer-only mapping to floats, so
// they are the same on every platform. A stored copy of the lines
// (tests/testdata/results_digest.txt) lets a change of the code prove that it
// left every bit of every result as it was.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "util/matrix3.h"

namespace corvane::testing {

// "L0001 0123456789abcdef" for laminate cases (stiffness and deck), "S0001 ..."
// for the stiffness and strain entry points, "P0001 ..." for flat plates
// (searches, closed-form estimate, reserve factors), "C0001 ..." for curved
// panels and cylinders.
std::vector<std::string> results_digest();

// FNV-1a over the exact bytes of every value, so that any flipped bit shows.
class Digest {
 public:
  void bytes(const void* data, std::size_t size) {
    const auto* p = static_cast<const unsigned char*>(data);
    for (std::size_t i = 0; i < size; ++i) {
      hash_ = (hash_ ^ p[i]) * 1099511628211ull;
    }
  }
  // Every NaN counts as one value: the sign of a NaN from arithmetic is left
  // open by IEEE 754 and differs between compilers and optimisation levels.
  void add(float x) {
    if (std::isnan(x)) x = std::numeric_limits<float>::quiet_NaN();
    std::uint32_t bits = 0;
    std::memcpy(&bits, &x, sizeof bits);
    bytes(&bits, sizeof bits);
  }
  void add(std::int32_t n) { bytes(&n, sizeof n); }
  void add(bool flag) { add(static_cast<std::int32_t>(flag ? 1 : 0)); }
  void add(const Matrix3& m) {
    for (float x : m.v) add(x);
  }
  void add(std::string_view text) {
    add(static_cast<std::int32_t>(text.size()));
    bytes(text.data(), text.size());
  }
  std::uint64_t value() const { return hash_; }
  std::string line(char kind, int index) const {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%c%04d %016llx", kind, index,
                  static_cast<unsigned long long>(hash_));
    return buf;
  }

 private:
  std::uint64_t hash_ = 14695981039346656037ull;
};

// Floats from the fixed Mersenne twister through integer steps only: the
// standard distributions may differ between standard libraries.
class Cases {
 public:
  explicit Cases(std::uint32_t seed = 20240611u) : engine_(seed) {}
  float unit() { return static_cast<float>(engine_() >> 8) * 0x1p-24f; }
  float uniform(float lo, float hi) { return lo + (hi - lo) * unit(); }
  int integer(int lo, int hi) {  // lo .. hi inclusive
    return lo + static_cast<int>(engine_() % static_cast<std::uint32_t>(hi - lo + 1));
  }
  bool chance(int percent) { return integer(1, 100) <= percent; }

 private:
  std::mt19937 engine_;
};

}  // namespace corvane::testing
