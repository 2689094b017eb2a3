// Material data files: ply materials kept in plain-text files and referred to
// by name. A file holds any number of blocks such as
//
//   MATERIAL T300/5208            # the name: the rest of the line
//     SOURCE Tsai and Hahn 1980   # free text, kept with the material
//     TYPE TAPE                   # or FABRIC; without it, E1 and E2 decide
//     CPT 0.125                   # cured ply thickness
//     E1 181000                   # the construction values of new_lamina:
//     E2 10300                    #   CPT, E1, E2, G12, V12 (or NU12) needed,
//     G12 7170                    #   TENSION and COMPRESSION allowables
//     V12 0.28                    #   (a strain below 1, a strength from 1 up)
//     TENSION 1500
//     COMPRESSION 1500
//     F2T 40                      # any key of LAMINA::set_by_key, in order
//     CTE1 0.02e-6
//     UNIT_FACTOR 1               # u of the damage-model line (default 1)
//     DAMAGE CDTM-T04 ...         # tokens as read_cdt_model reads them
//   END
//
// Comments run from "#" to the end of a line; keys are read as the record's
// keys are (letter case and surrounding blanks ignored). A block is built only
// when every line of it is good: construction first (new_lamina), then the
// set_by_key pairs in the order written, then the damage model with its
// `factor` override allowed. Everything found wrong is reported with its file
// and line, and the block is left out.
//
// Materials are looked for in a list of places, files or directories (every
// "*.mat" file of a directory, by file name); a name found in two places is
// taken from the first, and names compare as keys do.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "laminas/lamina.h"

namespace corvane {

struct MaterialEntry {
  LAMINA lamina;  // its Name is the block's name
  std::string source;
  std::string file;
  std::int32_t line = 0;  // of the MATERIAL line
};

struct MaterialFault {
  std::string file;
  std::int32_t line = 0;  // 0 for the file as a whole
  std::string what;
  // "file:line: what", or "file: what" for the file as a whole.
  std::string message() const;
};

struct MaterialFileContents {
  std::vector<MaterialEntry> materials;
  std::vector<MaterialFault> faults;
};

// Reads the text of one file; `file` names it in entries and faults.
MaterialFileContents read_material_text(std::string_view text, const std::string& file);
MaterialFileContents read_material_file(const std::filesystem::path& path);

// A place to look: a file or a directory. A required place that does not
// exist is a fault; any other is passed over.
struct MaterialPlace {
  std::filesystem::path path;
  bool required = false;
};

// The places in the order they are searched: the explicit ones (required),
// the directory of BASES_DATOS (required when set), each directory of the
// PATH variable (separated by ':', or ';' on Windows), then the installed
// materials. Empty texts and paths add nothing.
std::vector<MaterialPlace> material_search_places(
    std::span<const std::filesystem::path> explicit_places, std::string_view bases_datos,
    std::string_view path_variable, const std::filesystem::path& installed);

// Every material of a list of places.
class MaterialCatalog {
 public:
  explicit MaterialCatalog(std::span<const MaterialPlace> places);

  // Every material read, in search order (a name may come more than once).
  const std::vector<MaterialEntry>& entries() const { return entries_; }
  const std::vector<MaterialFault>& faults() const { return faults_; }

  // The first material of that name, or null.
  const MaterialEntry* find(std::string_view name) const;
  // The first of each name, sorted case-blind by LexicalSort.
  std::vector<const MaterialEntry*> sorted() const;
  // Up to `count` names closest to a name not found, closest first.
  std::vector<std::string> nearest(std::string_view name, std::size_t count = 3) const;

 private:
  std::vector<MaterialEntry> entries_;
  std::vector<MaterialFault> faults_;
};

}  // namespace corvane
