// Load cases for the commands: the options and CSV columns of a load case,
// and the CSV file of many.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include <CLI/CLI.hpp>

#include "laminates_stressed/laminate_stressed.h"

namespace corvane::cli {

struct LoadField {
  std::string_view option, label, key, help;
};
// In the order of a LoadCase row; the labels are also the CSV column names,
// the keys those of the JSON.
inline constexpr std::array<LoadField, kLoadCaseValues> kLoadFields{{
    {"--nx", "Nx", "n_x", "running load in x"},
    {"--ny", "Ny", "n_y", "running load in y"},
    {"--nxy", "Nxy", "n_xy", "running shear load"},
    {"--mx", "Mx", "m_x", "running bending moment in x"},
    {"--my", "My", "m_y", "running bending moment in y"},
    {"--mxy", "Mxy", "m_xy", "running twisting moment"},
    {"--dt", "dT", "dt", "temperature change"},
}};

// A bad line of a load-case file: the file, the line and the fault.
struct LoadFileError {
  std::string message;
};

// Reads a CSV file of load cases: a header naming some of the columns Nx, Ny,
// Nxy, Mx, My, Mxy, dT (letter case ignored; those not named are 0), then one
// case a line; blank lines are skipped. Every value is read before any result
// is computed. Throws LoadFileError.
std::vector<float> read_load_cases(const std::string& path);

// The --loads FILE and --out FILE options of a command that takes many cases.
void add_load_file_options(CLI::App& app, std::string& loads_file, std::string& out_file);

}  // namespace corvane::cli
