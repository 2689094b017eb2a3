// MATERIAL_DATA and MATERIAL_NAMES: ply materials by name from the material data
// files, for hosts. Adapters: they read the host's texts, read the catalog with
// the core, and write the material's values or the names back.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "corvane/corvane_strength.h"
#include "interface/host_texts.h"
#include "interface/null_arguments.h"
#include "material_files/material_file.h"

namespace corvane {
namespace {

enum Code : std::int32_t { kOk = 0, kFaultyData = 1, kNotFound = 2, kOutOfMemory = 3 };

std::string_view trimmed(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t' || s.front() == '\r')) {
    s.remove_prefix(1);
  }
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) {
    s.remove_suffix(1);
  }
  return s;
}

// The catalog of the host's places, the environment's and the installed ones.
MaterialCatalog catalog(const char* places, const char* installed) {
  std::vector<std::filesystem::path> first;
  std::string_view list = host_text(places, CORVANE_MATERIAL_PLACES_LENGTH);
  while (!list.empty()) {
    const std::size_t end = list.find('\n');
    if (const std::string_view place = trimmed(list.substr(0, end)); !place.empty()) {
      first.emplace_back(place);
    }
    list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
  }
  const char* bases = std::getenv("BASES_DATOS");
  const char* path = std::getenv("PATH");
  return MaterialCatalog(material_search_places(
      first, bases ? bases : "", path ? path : "",
      std::filesystem::path(
          trimmed(host_text(installed, CORVANE_MATERIAL_PATH_LENGTH)))));
}

// The first fault as a message, or an empty text.
std::string fault_message(const MaterialCatalog& c) {
  if (c.faults().empty()) return {};
  return "Error! " + c.faults()[0].message() + ".";
}

}  // namespace
}  // namespace corvane

extern "C" {

CORVANE_STRENGTH_API void MATERIAL_DATA(
    const char* name, int64_t /*name_length*/, const char* places,
    int64_t /*places_length*/, const char* installed, int64_t /*installed_length*/,
    float* values, int32_t* fabric, char* found_name, int64_t /*found_name_length*/,
    char* file, int64_t /*file_length*/, int32_t* line, char* message,
    int64_t /*message_length*/, int32_t* ierr) {
  using namespace corvane;
  if (null_argument(ierr, name, places, installed, values, fabric, found_name, file, line,
                    message)) {
    return;
  }
  try {
    const MaterialCatalog all = catalog(places, installed);
    if (std::string fault = fault_message(all); !fault.empty()) {
      write_text(fault, message, CORVANE_STRENGTH_MESSAGE_LENGTH);
      *ierr = kFaultyData;
      return;
    }
    const std::string_view wanted =
        trimmed(host_text(name, CORVANE_MATERIAL_NAME_LENGTH));
    const MaterialEntry* entry = all.find(wanted);
    if (entry == nullptr) {
      std::string what = "Error! No material \"" + std::string(wanted) + "\"";
      const std::vector<std::string> near = all.nearest(wanted);
      for (std::size_t k = 0; k < near.size(); ++k) {
        what += (k == 0 ? "; nearest: " : ", ") + near[k];
      }
      write_text(what + ".", message, CORVANE_STRENGTH_MESSAGE_LENGTH);
      *ierr = kNotFound;
      return;
    }
    const LAMINA& m = entry->lamina;
    const float v[CORVANE_MATERIAL_VALUES] = {m.CPT,  m.E1,   m.E2,     m.G12,   m.v12,
                                              m.CTE1, m.CTE2, m.F1t,    m.F1c,   m.F2t,
                                              m.F2c,  m.F12,  m.uetall, m.uecall};
    std::copy(std::begin(v), std::end(v), values);
    *fabric = m.is_fabric ? -1 : 0;
    write_text(m.Name, found_name, CORVANE_MATERIAL_NAME_LENGTH);
    write_text(entry->file, file, CORVANE_MATERIAL_PATH_LENGTH);
    *line = entry->line;
    write_text("", message, CORVANE_STRENGTH_MESSAGE_LENGTH);
    *ierr = kOk;
  } catch (...) {
    write_text("Error! Out of memory.", message, CORVANE_STRENGTH_MESSAGE_LENGTH);
    *ierr = kOutOfMemory;
  }
}

CORVANE_STRENGTH_API void MATERIAL_NAMES(const char* places, int64_t /*places_length*/,
                                         const char* installed,
                                         int64_t /*installed_length*/, int32_t* count,
                                         char* names, int64_t /*names_length*/,
                                         char* message, int64_t /*message_length*/,
                                         int32_t* ierr) {
  using namespace corvane;
  if (null_argument(ierr, places, installed, count, names, message)) return;
  try {
    const MaterialCatalog all = catalog(places, installed);
    if (std::string fault = fault_message(all); !fault.empty()) {
      write_text(fault, message, CORVANE_STRENGTH_MESSAGE_LENGTH);
      *ierr = kFaultyData;
      return;
    }
    const std::vector<const MaterialEntry*> sorted = all.sorted();
    std::string text;
    for (const MaterialEntry* entry : sorted) {
      if (text.size() + entry->lamina.Name.size() + 1 > CORVANE_MATERIAL_NAMES_LENGTH) {
        continue;
      }
      text += entry->lamina.Name + "\n";
    }
    write_text(text, names, CORVANE_MATERIAL_NAMES_LENGTH);
    *count = static_cast<std::int32_t>(sorted.size());
    write_text("", message, CORVANE_STRENGTH_MESSAGE_LENGTH);
    *ierr = kOk;
  } catch (...) {
    write_text("Error! Out of memory.", message, CORVANE_STRENGTH_MESSAGE_LENGTH);
    *ierr = kOutOfMemory;
  }
}

}  // extern "C"
