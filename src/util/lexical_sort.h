// LexicalSort: an index sort of texts by quicksort. The texts stay where they
// are; the sorter builds the 1-based index order in which they ascend, by
// character code, case-sensitive or case-blind (ASCII letters only).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

struct LexicalSort {
  std::vector<std::string> keys;    // the texts to order
  bool case_sensitive = true;       // false: a-z compare as A-Z
  std::vector<std::int32_t> index;  // after sort(): 1-based, keys[index[i]-1] ascend

  // Fills index with 1..n and permutes it so that the keys, taken in index
  // order, ascend; returns it. Texts of different lengths compare as if the
  // shorter were padded with blanks. Equal keys come out in an order fixed by
  // the partition scheme, not necessarily their original one. Throws
  // std::bad_alloc when the index array cannot be allocated, and
  // std::length_error when there are more keys than an int32 index can count.
  const std::vector<std::int32_t>& sort();

  // Whether key x orders before key y under this sorter's comparison.
  bool less(const std::string& x, const std::string& y) const;
};

}  // namespace corvane
