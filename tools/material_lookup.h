// Materials by name for the commands: the places searched (--materials, then
// BASES_DATOS, PATH and the materials installed beside the program), the
// catalog read from them once, and lookup with the nearest names offered.
#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "material_files/material_file.h"

namespace corvane::cli {

// A faulty material file or a name not found; main prints the message and
// exits with status 1.
struct MaterialDataError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The installed materials: share/corvane/materials beside the program's bin/.
std::filesystem::path installed_materials();

class MaterialLookup {
 public:
  // Adds --materials FILE|DIR (repeatable) to a command.
  void add_to(CLI::App& app);
  const std::vector<std::string>& places() const { return places_; }

  // Every place, in search order, and what was read there. Throws
  // MaterialDataError naming every fault of the files read.
  const MaterialCatalog& catalog() const;
  // The material of that name; throws MaterialDataError with the nearest names
  // when there is none.
  const MaterialEntry& find(const std::string& name) const;

 private:
  std::vector<std::string> places_;
  mutable std::shared_ptr<const MaterialCatalog> catalog_;
};

}  // namespace corvane::cli
