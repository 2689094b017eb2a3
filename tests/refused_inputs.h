// The table of refused inputs (testdata/refused_inputs.tsv), which the
// library's test and the command's test both run, as the package's does.
#pragma once

#include <array>
#include <cstddef>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace corvane {

struct RefusedInput {
  std::array<std::string, 5> material;  // t, E1, E2, G12, nu12 as written
  std::string layup;
  int code = 0;
  std::string reason;  // a piece of the reason given
  std::size_t position = 0;
};

inline std::vector<RefusedInput> refused_inputs(const std::string& path) {
  std::vector<RefusedInput> rows;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line.front() == '#') continue;
    std::istringstream fields(line);
    RefusedInput row;
    std::string code, position;
    for (std::string& value : row.material) std::getline(fields, value, '\t');
    std::getline(fields, row.layup, '\t');
    std::getline(fields, code, '\t');
    std::getline(fields, row.reason, '\t');
    std::getline(fields, position);
    row.code = std::stoi(code);
    row.position = std::stoul(position);
    rows.push_back(row);
  }
  return rows;
}

}  // namespace corvane
