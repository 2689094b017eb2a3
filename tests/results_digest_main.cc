// Writes the results digest to standard output. Run it on the code before a
// change that must not alter any result, and keep its output as
// tests/testdata/results_digest.txt (here after a build with the dev preset):
//   build/dev/tests/results_digest > tests/testdata/results_digest.txt
#include <cstdio>

#include "results_digest.h"

int main() {
  for (const std::string& line : corvane::testing::results_digest()) {
    std::printf("%s\n", line.c_str());
  }
  return 0;
}
