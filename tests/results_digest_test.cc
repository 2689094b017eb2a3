// Every result of the random cases of results_digest.h must hash as it did when
// tests/testdata/results_digest.txt was written: the speed work on the core
// (ply stiffness once per ply, the deck in one pass, the searches) was made
// under this check. A change meant to alter results regenerates the file with
// the results_digest program and says so in its commit.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "results_digest.h"

namespace {

TEST(ResultsDigest, EveryCaseBitIdenticalToTheStoredDigest) {
  std::ifstream file(CORVANE_RESULTS_DIGEST_FILE);
  ASSERT_TRUE(file.good()) << "cannot read " << CORVANE_RESULTS_DIGEST_FILE;
  std::vector<std::string> stored;
  for (std::string line; std::getline(file, line);) stored.push_back(line);

  const std::vector<std::string> now = corvane::testing::results_digest();
  ASSERT_EQ(now.size(), stored.size());
  int differing = 0;
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (now[i] != stored[i] && ++differing <= 10) {
      ADD_FAILURE() << "stored " << stored[i] << ", now " << now[i];
    }
  }
  EXPECT_EQ(differing, 0)
      << "cases whose results changed; when that is meant, write the digest again "
         "with the results_digest program and say so in the commit";
}

}  // namespace
