// For the command's tests: runs the built corvane program through the shell and
// keeps its exit status and both outputs.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace corvane::cli_testing {

struct Outcome {
  int status;
  std::string out, err;
};

inline std::string read_text(const std::string& path) {
  std::stringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

// `args` as a shell reads them, after an optional `environment` (NAME=value
// ...); the outputs go to files of this process's own, for CTest runs several
// tests at a time.
inline Outcome run_corvane(const std::string& args, const std::string& environment = "") {
  const std::string out = ::testing::TempDir() + "corvane_" + std::to_string(getpid());
  const int status = std::system((environment + " '" CORVANE_CLI_PROGRAM "' " + args +
                                  " >" + out + " 2>" + out + "e")
                                     .c_str());
  Outcome run{WIFEXITED(status) ? WEXITSTATUS(status) : -1, read_text(out),
              read_text(out + "e")};
  std::remove(out.c_str());
  std::remove((out + "e").c_str());
  return run;
}

}  // namespace corvane::cli_testing
