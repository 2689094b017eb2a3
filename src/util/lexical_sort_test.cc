#include "util/lexical_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <string>
#include <vector>

namespace corvane {
namespace {

using Index = std::vector<std::int32_t>;

Index sorted(std::vector<std::string> keys, bool case_sensitive) {
  LexicalSort sorter{std::move(keys), case_sensitive, {}};
  return sorter.sort();
}

TEST(LexicalSort, CaseBlindPutsBothCasesBeforeTheNextLetter) {
  const Index index = sorted({"b", "A", "a"}, false);
  ASSERT_EQ(index.size(), 3u);
  EXPECT_EQ(index[2], 1);  // "b" last; "A" and "a" in either order before it
}

TEST(LexicalSort, FoldsLowerCaseToUpperCase) {
  // '_' (95) lies between 'Z' (90) and 'a' (97), so the fold's direction shows.
  EXPECT_EQ(sorted({"_x", "a", "B"}, true), (Index{3, 1, 2}));   // B _x a
  EXPECT_EQ(sorted({"_x", "a", "B"}, false), (Index{2, 3, 1}));  // a B _x
}

TEST(LexicalSort, ShorterTextsArePaddedWithBlanks) {
  // '\t' (9) < ' ' (32) < '!' (33) < 'c': "ab" equals "ab  ".
  const std::vector<std::string> keys = {"abc", "ab!", "ab", "ab\t", "ab  "};
  for (const bool case_sensitive : {true, false}) {
    const Index index = sorted(keys, case_sensitive);
    EXPECT_EQ(index[0], 4);
    EXPECT_TRUE((index[1] == 3 && index[2] == 5) || (index[1] == 5 && index[2] == 3));
    EXPECT_EQ(index[3], 2);
    EXPECT_EQ(index[4], 1);
  }
}

TEST(LexicalSort, EqualKeysFollowThePartitionScheme) {
  // The middle pivot moves to the front and nothing is below it: 2 1 3.
  EXPECT_EQ(sorted({"x", "x", "x"}, true), (Index{2, 1, 3}));
  EXPECT_EQ(sorted({"b", "A", "a"}, false), (Index{2, 3, 1}));
}

TEST(LexicalSort, EmptyAndSingleKey) {
  EXPECT_TRUE(sorted({}, true).empty());
  EXPECT_EQ(sorted({"only"}, false), (Index{1}));
}

// Reference orders built independently of the sorter: pad to a common length,
// fold with the standard library, compare as unsigned bytes.
std::string padded(std::string s, std::size_t length, bool fold) {
  s.resize(length, ' ');
  if (fold) {
    for (char& c : s) {
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    }
  }
  return s;
}

TEST(LexicalSort, ManyKeysComeOutAscendingAsAPermutation) {
  std::vector<std::string> keys;
  std::uint32_t state = 12345u;
  const std::string alphabet = "aAbBzZ_ 09~";
  for (int i = 0; i < 300; ++i) {
    std::string key;
    state = state * 1664525u + 1013904223u;
    const std::uint32_t length = (state >> 24) % 5;
    for (std::uint32_t k = 0; k < length; ++k) {
      state = state * 1664525u + 1013904223u;
      key += alphabet[(state >> 16) % alphabet.size()];
    }
    keys.push_back(key);
  }
  for (const bool case_sensitive : {true, false}) {
    LexicalSort sorter{keys, case_sensitive, {}};
    sorter.sort();
    const Index first = sorter.index;
    sorter.sort();  // sorting again starts afresh from 1..n
    EXPECT_EQ(sorter.index, first);

    Index seen = first;
    std::sort(seen.begin(), seen.end());
    Index all(keys.size());
    std::iota(all.begin(), all.end(), 1);
    ASSERT_EQ(seen, all);
    for (std::size_t i = 1; i < first.size(); ++i) {
      const std::string& x = keys[first[i - 1] - 1];
      const std::string& y = keys[first[i] - 1];
      const std::size_t length = std::max(x.size(), y.size());
      const std::string px = padded(x, length, !case_sensitive);
      const std::string py = padded(y, length, !case_sensitive);
      EXPECT_LE(px.compare(py), 0) << '"' << x << "\" before \"" << y << '"';
    }
  }
}

}  // namespace
}  // namespace corvane
