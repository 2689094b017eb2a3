#include "material_files/material_file.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <system_error>

#include "cdt_models/cdt_model.h"
#include "util/keywords.h"
#include "util/lexical_sort.h"
#include "util/number_reading.h"

namespace corvane {
namespace {

// The construction values of new_lamina, in its argument order.
enum Construction { kCpt, kE1, kE2, kG12, kV12, kTension, kCompression, kConstruction };
constexpr std::string_view kConstructionKeys[kConstruction] = {
    "CPT", "E1", "E2", "G12", "V12", "TENSION", "COMPRESSION"};
constexpr int kRequired = kTension;  // CPT to V12 must be given

struct Block {
  std::string name;
  std::int32_t line = 0;
  std::string source;
  std::optional<bool> is_fabric;
  float unit_factor = 1.0f;
  std::vector<std::optional<float>> construction =
      std::vector<std::optional<float>>(kConstruction);
  std::vector<std::pair<std::string, float>> keyed;
  std::vector<std::string> damage;
  std::int32_t damage_line = 0;
  std::map<std::string, std::int32_t> seen;  // key, line
  bool faulty = false;
};

std::vector<std::string_view> tokens_of(std::string_view line) {
  std::vector<std::string_view> tokens;
  std::size_t k = 0;
  while (k < line.size()) {
    while (k < line.size() && (line[k] == ' ' || line[k] == '\t')) ++k;
    const std::size_t start = k;
    while (k < line.size() && line[k] != ' ' && line[k] != '\t') ++k;
    if (k > start) tokens.push_back(line.substr(start, k - start));
  }
  return tokens;
}

std::string_view trimmed(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
  return s;
}

// The rest of a line after its first token.
std::string_view rest_of(std::string_view line, std::string_view first) {
  return trimmed(line.substr(first.data() + first.size() - line.data()));
}

std::string damage_fault(int status, const CDTMODEL& model,
                         const std::vector<std::string>& tokens) {
  if (tokens.empty()) return "the damage model has no name";
  if (status == kCdtMissingToken) {
    return "the damage model " + tokens[0] + " lacks a coefficient (" +
           std::to_string(tokens.size()) + " tokens)";
  }
  if (status != 0)
    return "a coefficient of the damage model " + tokens[0] + " is no number";
  if (model.status != 0) {
    return "unknown damage model \"" + tokens[0] +
           "\" (CDTM-T03, CDTM-T04, CDTM-T05 or CDTM-T06)";
  }
  return {};
}

class Reader {
 public:
  explicit Reader(const std::string& file) : file_(file) {}

  void line(std::int32_t number, std::string_view text) {
    if (const std::size_t hash = text.find('#'); hash != std::string_view::npos) {
      text = text.substr(0, hash);
    }
    if (!text.empty() && text.back() == '\r') text.remove_suffix(1);
    const std::vector<std::string_view> tokens = tokens_of(text);
    if (tokens.empty()) return;
    const std::string key = normalize_keyword(tokens[0]);
    if (key == "MATERIAL") return begin(number, rest_of(text, tokens[0]));
    if (!block_)
      return fault(number,
                   "\"" + std::string(tokens[0]) + "\" outside a MATERIAL ... END block");
    if (key == "END") {
      if (tokens.size() > 1) fault(number, "END takes nothing after it");
      return end();
    }
    Block& b = *block_;
    if (const auto [it, first] = b.seen.emplace(key, number); !first) {
      return fault(number, std::string(tokens[0]) + " given twice (first on line " +
                               std::to_string(it->second) + ")");
    }
    if (key == "SOURCE") {
      b.source = std::string(rest_of(text, tokens[0]));
    } else if (key == "DAMAGE") {
      b.damage.assign(tokens.begin() + 1, tokens.end());
      b.damage_line = number;
    } else if (key == "TYPE") {
      const std::string type = tokens.size() == 2 ? normalize_keyword(tokens[1]) : "";
      if (type == "TAPE" || type == "FABRIC") {
        b.is_fabric = type == "FABRIC";
      } else {
        fault(number, "TYPE is TAPE or FABRIC");
      }
    } else if (const std::optional<float> v = value(number, tokens); !v) {
      // value() reported it.
    } else if (key == "UNIT_FACTOR") {
      b.unit_factor = *v;
    } else if (const auto c = construction_index(key)) {
      b.construction[*c] = *v;
    } else if (LAMINA::is_property_key(key)) {
      b.keyed.emplace_back(key, *v);
    } else {
      fault(number, "unknown key \"" + std::string(tokens[0]) + "\"");
    }
  }

  MaterialFileContents finish(std::int32_t last_line) {
    if (block_) {
      fault(block_->line, "material \"" + block_->name + "\" has no END");
      block_.reset();
    }
    (void)last_line;
    return std::move(contents_);
  }

 private:
  static std::optional<int> construction_index(const std::string& key) {
    if (key == "NU12") return kV12;
    for (int c = 0; c < kConstruction; ++c) {
      if (key == kConstructionKeys[c]) return c;
    }
    return std::nullopt;
  }

  std::optional<float> value(std::int32_t number,
                             const std::vector<std::string_view>& tokens) {
    if (tokens.size() != 2) {
      fault(number, std::string(tokens[0]) + " takes one number");
      return std::nullopt;
    }
    float v = 0.0f;
    if (read_real(tokens[1], v) != kReadOk) {
      fault(number, std::string(tokens[0]) + " = \"" + std::string(tokens[1]) +
                        "\" is no number");
      return std::nullopt;
    }
    return v;
  }

  void fault(std::int32_t number, std::string what) {
    contents_.faults.push_back({file_, number, std::move(what)});
    if (block_) block_->faulty = true;
  }

  void begin(std::int32_t number, std::string_view name) {
    if (block_) {
      fault(number, "MATERIAL before the END of \"" + block_->name + "\" (line " +
                        std::to_string(block_->line) + ")");
      block_.reset();
    }
    block_.emplace();
    block_->name = std::string(name);
    block_->line = number;
    if (name.empty()) fault(number, "MATERIAL without a name");
    const std::string key = normalize_keyword(name);
    if (const auto [it, first] = names_.emplace(key, number); !first && !name.empty()) {
      fault(number, "material \"" + std::string(name) +
                        "\" is defined twice (first on line " +
                        std::to_string(it->second) + ")");
    }
  }

  void end() {
    Block b = std::move(*block_);
    block_.reset();
    for (int c = 0; c < kRequired; ++c) {
      if (!b.construction[c]) {
        b.faulty = true;
        contents_.faults.push_back(
            {file_, b.line,
             "material \"" + b.name + "\" lacks " + std::string(kConstructionKeys[c])});
      }
    }
    if (b.faulty) return;
    float v[kConstruction];
    for (int c = 0; c < kConstruction; ++c) v[c] = b.construction[c].value_or(0.0f);
    if (std::string why = lamina_fault(v[kCpt], v[kE1], v[kE2], v[kG12], v[kV12],
                                       v[kTension], v[kCompression]);
        !why.empty()) {
      contents_.faults.push_back({file_, b.line, "material \"" + b.name + "\": " + why});
      return;
    }
    MaterialEntry entry{new_lamina(v[kCpt], v[kE1], v[kE2], v[kG12], v[kV12], v[kTension],
                                   v[kCompression], b.name, b.is_fabric),
                        std::move(b.source), file_, b.line};
    std::vector<std::pair<std::string_view, float>> pairs(b.keyed.begin(), b.keyed.end());
    entry.lamina.set_by_key(pairs);
    if (!b.damage.empty() || b.damage_line != 0) {
      const std::vector<std::string_view> tokens(b.damage.begin(), b.damage.end());
      const int status =
          read_cdt_model(tokens, b.unit_factor, true, 0.0f, entry.lamina.cdt_model);
      if (std::string why = damage_fault(status, entry.lamina.cdt_model, b.damage);
          !why.empty()) {
        contents_.faults.push_back({file_, b.damage_line, why});
        return;
      }
    }
    contents_.materials.push_back(std::move(entry));
  }

  std::string file_;
  std::optional<Block> block_;
  std::map<std::string, std::int32_t> names_;
  MaterialFileContents contents_;
};

bool is_material_file(const std::filesystem::path& path) {
  return normalize_keyword(path.extension().string()) == ".MAT";
}

// Edit distance of two names, letter case ignored.
std::size_t distance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t up = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] != b[j - 1])});
      diagonal = up;
    }
  }
  return row[b.size()];
}

}  // namespace

std::string MaterialFault::message() const {
  return line > 0 ? file + ":" + std::to_string(line) + ": " + what : file + ": " + what;
}

MaterialFileContents read_material_text(std::string_view text, const std::string& file) {
  Reader reader(file);
  std::int32_t number = 0;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    reader.line(++number, text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return reader.finish(number);
}

MaterialFileContents read_material_file(const std::filesystem::path& path) {
  // Read into a string of the file's size rather than through a string
  // stream, which would swallow an exhausted memory and hand on a cut text.
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  const std::streamoff size = file ? static_cast<std::streamoff>(file.tellg()) : -1;
  if (size < 0) return {{}, {{path.string(), 0, "cannot be read"}}};
  std::string text(static_cast<std::size_t>(size), '\0');
  file.seekg(0);
  if (!file.read(text.data(), size)) {
    return {{}, {{path.string(), 0, "cannot be read"}}};
  }
  return read_material_text(text, path.string());
}

std::vector<MaterialPlace> material_search_places(
    std::span<const std::filesystem::path> explicit_places, std::string_view bases_datos,
    std::string_view path_variable, const std::filesystem::path& installed) {
  std::vector<MaterialPlace> places;
  for (const auto& place : explicit_places) places.push_back({place, true});
  if (!bases_datos.empty()) places.push_back({std::filesystem::path(bases_datos), true});
#ifdef _WIN32
  constexpr char kSeparator = ';';
#else
  constexpr char kSeparator = ':';
#endif
  while (!path_variable.empty()) {
    const std::size_t end = path_variable.find(kSeparator);
    const std::string_view dir = path_variable.substr(0, end);
    if (!dir.empty()) places.push_back({std::filesystem::path(dir), false});
    path_variable.remove_prefix(end == std::string_view::npos ? path_variable.size()
                                                              : end + 1);
  }
  if (!installed.empty()) places.push_back({installed, false});
  return places;
}

namespace {

// The material files of a directory, by opendir and readdir rather than
// std::filesystem's directory_iterator, which builds each entry inside a
// noexcept function of the standard library: an exhausted memory there would
// end the host's process instead of reaching it as an error code. A directory
// that cannot be listed is a fault of its own, never an exception.
bool list_material_files(const std::filesystem::path& directory,
                         std::vector<std::filesystem::path>& files) {
  DIR* listing = opendir(directory.string().c_str());
  if (listing == nullptr) return false;
  const std::unique_ptr<DIR, int (*)(DIR*)> closer(listing, closedir);
  errno = 0;
  while (const dirent* item = readdir(listing)) {
    std::filesystem::path file = directory / item->d_name;
    std::error_code error;
    if (is_material_file(file) && std::filesystem::is_regular_file(file, error)) {
      files.push_back(std::move(file));
    }
    errno = 0;
  }
  return errno == 0;
}

}  // namespace

MaterialCatalog::MaterialCatalog(std::span<const MaterialPlace> places) {
  const auto add = [this](MaterialFileContents contents) {
    std::move(contents.materials.begin(), contents.materials.end(),
              std::back_inserter(entries_));
    std::move(contents.faults.begin(), contents.faults.end(),
              std::back_inserter(faults_));
  };
  for (const MaterialPlace& place : places) {
    std::error_code error;
    if (std::filesystem::is_directory(place.path, error)) {
      std::vector<std::filesystem::path> files;
      if (!list_material_files(place.path, files)) {
        faults_.push_back({place.path.string(), 0, "cannot be listed"});
        continue;
      }
      std::sort(files.begin(), files.end());
      for (const auto& file : files) add(read_material_file(file));
    } else if (std::filesystem::exists(place.path, error)) {
      add(read_material_file(place.path));
    } else if (place.required) {
      faults_.push_back({place.path.string(), 0, "no such file or directory"});
    }
  }
}

const MaterialEntry* MaterialCatalog::find(std::string_view name) const {
  const std::string key = normalize_keyword(name);
  for (const MaterialEntry& entry : entries_) {
    if (normalize_keyword(entry.lamina.Name) == key) return &entry;
  }
  return nullptr;
}

std::vector<const MaterialEntry*> MaterialCatalog::sorted() const {
  std::vector<const MaterialEntry*> firsts;
  for (const MaterialEntry& entry : entries_) {
    if (find(entry.lamina.Name) == &entry) firsts.push_back(&entry);
  }
  LexicalSort sort;
  sort.case_sensitive = false;
  for (const MaterialEntry* entry : firsts) sort.keys.push_back(entry->lamina.Name);
  std::vector<const MaterialEntry*> result;
  for (const std::int32_t k : sort.sort()) result.push_back(firsts[k - 1]);
  return result;
}

std::vector<std::string> MaterialCatalog::nearest(std::string_view name,
                                                  std::size_t count) const {
  const std::string key = normalize_keyword(name);
  std::vector<std::pair<std::size_t, std::string>> ranked;
  for (const MaterialEntry* entry : sorted()) {
    const std::string other = normalize_keyword(entry->lamina.Name);
    const std::size_t d = distance(key, other);
    const bool contains = !key.empty() && other.find(key) != std::string::npos;
    if (contains || d <= std::max<std::size_t>(2, key.size() / 2)) {
      ranked.emplace_back(contains ? 0 : d, entry->lamina.Name);
    }
  }
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto& x, const auto& y) { return x.first < y.first; });
  std::vector<std::string> names;
  for (std::size_t k = 0; k < ranked.size() && k < count; ++k) {
    names.push_back(ranked[k].second);
  }
  return names;
}

}  // namespace corvane
