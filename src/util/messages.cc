#include "util/messages.h"

#include <cstdio>

namespace corvane {

void write_error_line(std::string_view line) {
  std::fwrite(line.data(), 1, line.size(), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

}  // namespace corvane
