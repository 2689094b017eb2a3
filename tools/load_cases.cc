// The load-case file of the commands that take many load cases.
#include "load_cases.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "number_text.h"
#include "util/keywords.h"
#include "util/number_reading.h"

namespace corvane::cli {

namespace {

std::string_view trimmed(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) {
    s.remove_suffix(1);
  }
  return s;
}

}  // namespace

std::vector<float> read_load_cases(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::stringstream buffer;
  buffer << file.rdbuf();
  if (!file) throw LoadFileError{"cannot read the load cases from " + path};
  const std::string text = buffer.str();
  std::string_view rest = text;
  if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);  // a spreadsheet's mark

  std::vector<std::size_t> column;  // the LoadCase value of each column
  std::vector<std::string_view> fields;
  std::vector<float> loads;
  loads.reserve(kLoadCaseValues *
                static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')));
  std::size_t line = 0;
  const auto fault = [&](const std::string& what) {
    return LoadFileError{path + " line " + std::to_string(line) + ": " + what};
  };
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    const std::string_view row = trimmed(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    ++line;
    if (row.empty()) continue;
    fields.clear();
    for (std::size_t at = 0; at <= row.size();) {
      const std::size_t comma = std::min(row.find(',', at), row.size());
      fields.push_back(trimmed(row.substr(at, comma - at)));
      at = comma + 1;
    }
    if (column.empty()) {  // the header
      for (const std::string_view name : fields) {
        const auto named =
            std::find_if(kLoadFields.begin(), kLoadFields.end(), [&](const LoadField& f) {
              return normalize_keyword(f.label) == normalize_keyword(name);
            });
        if (named == kLoadFields.end()) {
          std::string names;
          for (const LoadField& f : kLoadFields) names += ", " + std::string(f.label);
          throw fault("unknown column \"" + std::string(name) + "\"; the columns are " +
                      names.substr(2));
        }
        const auto index = static_cast<std::size_t>(named - kLoadFields.begin());
        if (std::find(column.begin(), column.end(), index) != column.end()) {
          throw fault("column " + std::string(named->label) + " named twice");
        }
        column.push_back(index);
      }
      continue;
    }
    if (fields.size() != column.size()) {
      throw fault("the header names " + std::to_string(column.size()) +
                  " columns, this line has " + std::to_string(fields.size()));
    }
    const std::size_t first = loads.size();
    loads.resize(first + kLoadCaseValues, 0.0f);
    for (std::size_t k = 0; k < fields.size(); ++k) {
      float& value = loads[first + column[k]];
      if (read_real(fields[k], value) != kReadOk) {
        throw fault("column " + std::string(kLoadFields[column[k]].label) + ": " +
                    parse_real(fields[k], value));
      }
    }
  }
  if (column.empty()) throw LoadFileError{path + ": no header line"};
  return loads;
}

void add_load_file_options(CLI::App& app, std::string& loads_file,
                           std::string& out_file) {
  app.add_option("--loads", loads_file,
                 "read the load cases from a CSV file: a header naming columns among "
                 "Nx, Ny, Nxy, Mx, My, Mxy, dT, then one case a line")
      ->type_name("FILE");
  app.add_option("--out", out_file,
                 "with --loads, write the results to FILE (default standard output)")
      ->type_name("FILE");
}

}  // namespace corvane::cli
