#include "material_lookup.h"

#include <cstdlib>
#include <system_error>

namespace corvane::cli {

std::filesystem::path installed_materials() {
  std::error_code error;
  const std::filesystem::path program =
      std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return {};
  return program.parent_path().parent_path() / "share" / "corvane" / "materials";
}

void MaterialLookup::add_to(CLI::App& app) {
  app.add_option("--materials", places_,
                 "a material data file, or a directory of *.mat files, searched before "
                 "BASES_DATOS, PATH and the installed materials (repeatable)")
      ->type_name("FILE|DIR")
      ->group("Material data files");
}

const MaterialCatalog& MaterialLookup::catalog() const {
  if (!catalog_) {
    const std::vector<std::filesystem::path> explicit_places(places_.begin(),
                                                             places_.end());
    const char* bases = std::getenv("BASES_DATOS");
    const char* path = std::getenv("PATH");
    auto catalog = std::make_shared<const MaterialCatalog>(material_search_places(
        explicit_places, bases ? bases : "", path ? path : "", installed_materials()));
    if (!catalog->faults().empty()) {
      std::string what = "faulty material data:";
      for (const MaterialFault& fault : catalog->faults())
        what += "\n  " + fault.message();
      throw MaterialDataError(what);
    }
    catalog_ = std::move(catalog);
  }
  return *catalog_;
}

const MaterialEntry& MaterialLookup::find(const std::string& name) const {
  const MaterialCatalog& all = catalog();
  if (const MaterialEntry* entry = all.find(name)) return *entry;
  std::string what = "no material \"" + name + "\"";
  const std::vector<std::string> near = all.nearest(name);
  for (std::size_t k = 0; k < near.size(); ++k) {
    what += (k == 0 ? "; nearest: " : ", ") + near[k];
  }
  if (near.empty()) what += " (corvane materials lists them)";
  throw MaterialDataError(what);
}

}  // namespace corvane::cli
