#include "util/lexical_sort.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <utility>

#include "util/keywords.h"

namespace corvane {

bool LexicalSort::less(const std::string& x, const std::string& y) const {
  const std::size_t length = std::max(x.size(), y.size());
  for (std::size_t i = 0; i < length; ++i) {
    char cx = i < x.size() ? x[i] : ' ';
    char cy = i < y.size() ? y[i] : ' ';
    if (!case_sensitive) {
      cx = ascii_upper(cx);
      cy = ascii_upper(cy);
    }
    if (cx != cy) return static_cast<unsigned char>(cx) < static_cast<unsigned char>(cy);
  }
  return false;
}

const std::vector<std::int32_t>& LexicalSort::sort() {
  if (keys.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
    throw std::length_error("LexicalSort::sort: too many keys for an int32 index");
  }
  const auto n = static_cast<std::int32_t>(keys.size());
  index.resize(keys.size());
  for (std::int32_t i = 0; i < n; ++i) index[i] = i + 1;

  const auto key = [this](std::ptrdiff_t position) -> const std::string& {
    return keys[index[position] - 1];
  };
  // Middle element as pivot (counted from 1, the element (lo + hi) / 2), moved
  // to lo; keys below it gathered after lo; the pivot then swapped to the end
  // of that run. Returns its position.
  const auto partition = [&](std::ptrdiff_t lo, std::ptrdiff_t hi) {
    std::swap(index[lo], index[lo + (hi - lo) / 2]);
    std::ptrdiff_t s = lo;
    for (std::ptrdiff_t j = lo + 1; j <= hi; ++j) {
      if (less(key(j), key(lo))) {
        ++s;
        std::swap(index[s], index[j]);
      }
    }
    std::swap(index[lo], index[s]);
    return s;
  };
  // Recursing into the shorter side and looping on the longer one bounds the
  // stack depth by log2(n); the two sides are disjoint, so the order in which
  // they are sorted does not change the result.
  const auto quicksort = [&](auto& self, std::ptrdiff_t lo, std::ptrdiff_t hi) -> void {
    while (lo < hi) {
      const std::ptrdiff_t p = partition(lo, hi);
      if (p - lo < hi - p) {
        self(self, lo, p - 1);
        lo = p + 1;
      } else {
        self(self, p + 1, hi);
        hi = p - 1;
      }
    }
  };
  quicksort(quicksort, 0, static_cast<std::ptrdiff_t>(n) - 1);
  return index;
}

}  // namespace corvane
