#include "command_line.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <utility>

#include "corvane/corvane.h"
#include "number_text.h"

namespace corvane::cli {
namespace {

const CLI::Validator kReal(
    [](std::string& text) {
      float value = 0.0f;
      return parse_real(text, value);
    },
    "");

const CLI::Validator kMatrix(
    [](std::string& text) {
      Matrix value{};
      return parse_symmetric_matrix(text, value);
    },
    "");

std::string option_name(std::string_view prefix, const MaterialField& field) {
  return "--" + std::string(prefix) + std::string(field.option);
}

// Pretty JSON with arrays of numbers (matrix rows) kept on one line.
void write_json(std::ostream& out, const Json& value, int indent) {
  const std::string pad(indent + 2, ' ');
  const bool flat_array =
      value.is_array() && std::none_of(value.begin(), value.end(),
                                       [](const Json& v) { return v.is_structured(); });
  if (value.is_object() && !value.empty()) {
    out << "{\n";
    bool first = true;
    for (const auto& [key, item] : value.items()) {
      out << (first ? "" : ",\n") << pad << Json(key).dump() << ": ";
      write_json(out, item, indent + 2);
      first = false;
    }
    out << '\n' << std::string(indent, ' ') << '}';
  } else if (value.is_array() && !value.empty() && !flat_array) {
    out << "[\n";
    for (std::size_t k = 0; k < value.size(); ++k) {
      out << (k == 0 ? "" : ",\n") << pad;
      write_json(out, value[k], indent + 2);
    }
    out << '\n' << std::string(indent, ' ') << ']';
  } else if (flat_array) {
    out << '[';
    for (std::size_t k = 0; k < value.size(); ++k) {
      out << (k == 0 ? "" : ", ") << value[k].dump();
    }
    out << ']';
  } else {
    out << value.dump();
  }
}

}  // namespace

CLI::Option* add_real_option(CLI::App& app, const std::string& names, std::string& text,
                             const std::string& help) {
  return app.add_option(names, text, help)->check(kReal)->type_name("REAL");
}

float real_value(const std::string& text) {
  float value = 0.0f;
  parse_real(text, value);
  return value;
}

CLI::Option* add_matrix_option(CLI::App& app, const std::string& names, std::string& text,
                               const std::string& help) {
  return app.add_option(names, text, help)
      ->check(kMatrix)
      ->type_name("X11,X12,X16,X22,X26,X66");
}

Matrix matrix_value(const std::string& text) {
  Matrix value{};
  parse_symmetric_matrix(text, value);
  return value;
}

bool given(const CLI::Option* option) { return option != nullptr && option->count() > 0; }

void LaminateOptions::add_to(CLI::App& app) {
  for (std::size_t k = 0; k < kMaterialFields.size(); ++k) {
    const MaterialField& field = kMaterialFields[k];
    first_[k] = add_real_option(app, option_name("", field), first_text_[k],
                                std::string(field.meaning) + " (default " +
                                    format_general(kBuiltInTape.*field.value) + ")");
    first_[k]->group("Ply material (default: the built-in carbon/epoxy tape)");
  }
  for (std::size_t k = 0; k < kMaterialFields.size(); ++k) {
    const MaterialField& field = kMaterialFields[k];
    second_[k] = add_real_option(app, option_name("m2-", field), second_text_[k],
                                 "material 2: " + std::string(field.meaning));
    second_[k]->group(
        "Second ply material, for plies written with a trailing \".\" "
        "(each value defaults to the first material's)");
  }
  name_options_[0] =
      app.add_option("--material", names_[0],
                     "the ply material of that name in the material data files")
          ->type_name("NAME")
          ->group("Material data files");
  name_options_[1] =
      app.add_option("--material2", names_[1], "the second ply material, by name")
          ->type_name("NAME")
          ->group("Material data files");
  lookup_.add_to(app);
  layup_option_ =
      app.add_option("layup,--layup", layup_,
                     "stacking sequence (default " + std::string(kDefaultLayup) +
                         "); a ply written as \"45.\" is of material 2")
          ->type_name("LAYUP");
}

bool LaminateOptions::any_given() const { return !first_given().empty(); }

std::string LaminateOptions::first_given() const {
  if (given(name_options_[0])) return "--material";
  if (given(name_options_[1])) return "--material2";
  for (std::size_t k = 0; k < kMaterialFields.size(); ++k) {
    if (given(first_[k])) return option_name("", kMaterialFields[k]);
    if (given(second_[k])) return option_name("m2-", kMaterialFields[k]);
  }
  return given(layup_option_) ? "the layup " + layup_ : std::string();
}

const MaterialEntry* LaminateOptions::named(int material) const {
  const std::string& name = names_[material == 2 ? 1 : 0];
  return name.empty() ? nullptr : &lookup_.find(name);
}

PlyMaterial ply_material(const LAMINA& m) {
  return {m.CPT, m.E1, m.E2, m.G12, m.v12, m.CTE1, m.CTE2};
}

PlyMaterial LaminateOptions::material() const {
  const MaterialEntry* entry = named(1);
  PlyMaterial m = entry ? ply_material(entry->lamina) : kBuiltInTape;
  for (std::size_t k = 0; k < kMaterialFields.size(); ++k) {
    if (given(first_[k])) m.*kMaterialFields[k].value = real_value(first_text_[k]);
  }
  return m;
}

std::optional<PlyMaterial> LaminateOptions::second_material() const {
  const MaterialEntry* entry = named(2);
  bool wanted = entry != nullptr || uses_second_material(layup_);
  PlyMaterial m = entry ? ply_material(entry->lamina) : material();
  for (std::size_t k = 0; k < kMaterialFields.size(); ++k) {
    if (given(second_[k])) {
      m.*kMaterialFields[k].value = real_value(second_text_[k]);
      wanted = true;
    }
  }
  if (!wanted) return std::nullopt;
  return m;
}

StiffnessResult LaminateOptions::compute() const {
  if (layup_.size() > CORVANE_LAYUP_LENGTH) {
    throw UsageError{"the layup is longer than " + std::to_string(CORVANE_LAYUP_LENGTH) +
                     " characters"};
  }
  return laminate_stiffness(material(), second_material(), layup_);
}

Json LaminateOptions::describe() const {
  Json materials = Json::array({material_json(material())});
  if (const auto second = second_material()) materials.push_back(material_json(*second));
  for (int k = 0; k < 2 && k < static_cast<int>(materials.size()); ++k) {
    if (const MaterialEntry* entry = named(k + 1)) {
      materials[k]["name"] = entry->lamina.Name;
    }
  }
  return Json{{"layup", layup_}, {"materials", materials}};
}

std::string stiffness_failure(const StiffnessResult& result,
                              const LaminateOptions& options) {
  if (result.error_code == 1) {
    if (std::string what = material_problem(options.material()); !what.empty()) {
      return what;
    }
    if (const auto second = options.second_material()) {
      if (std::string what = material_problem(*second); !what.empty()) {
        return "material 2: " + what;
      }
    }
    return "a ply material was refused";
  }
  if (result.error_code == 2) {
    if (std::string what = layup_problem(options.layup()); !what.empty()) return what;
    return "the layup " + options.layup() +
           " was read, but the laminate is unusable: [A] is singular or one of Ex, Ey, "
           "Gxy, nu_xy is below 1e-10";
  }
  return "the stiffness could not be computed";
}

namespace {

Json envelope(const std::string& command) {
  return Json{{"command", command},
              {"schema_version", kSchemaVersion},
              {"corvane_version", CORVANE_VERSION},
              {"input", Json::object()}};
}

}  // namespace

Output::Output(std::string command, bool json, std::ostream& out, std::ostream& err)
    : command_(std::move(command)),
      json_(json),
      out_(out),
      err_(err),
      data_(envelope(command_)) {
  data_["results"] = Json::object();
}

void Output::entry_point(std::string_view name) {
  Json& names = results()["entry_points"];
  if (names.is_null()) names = Json::array();
  names.push_back(name);
}

int Output::fail(std::int32_t code, std::string_view meaning, const std::string& what) {
  err_ << "corvane " << command_ << ": " << what << " (library error code " << code
       << ": " << meaning << ")\n";
  return failed(kExitFailed, Json{{"code", kExitFailed},
                                  {"library_code", code},
                                  {"meaning", meaning},
                                  {"message", what}});
}

int Output::fail_plain(const std::string& what, int status) {
  err_ << "corvane " << command_ << ": " << what << '\n';
  return failed(status, Json{{"code", status}, {"message", what}});
}

int Output::failed(int status, Json error) {
  data_.erase("results");
  data_["error"] = std::move(error);
  if (json_) {
    write_json(out_, data_, 0);
    out_ << '\n';
  }
  return status;
}

void Output::warning(const std::string& what) {
  err_ << "corvane " << command_ << ": warning: " << what << '\n';
}

int Output::finish() {
  if (json_) {
    write_json(out_, data_, 0);
    out_ << '\n';
  }
  return kExitOk;
}

void print_failure_json(std::ostream& out, const std::string& command, int status,
                        const std::string& message) {
  Json data = envelope(command);
  data["error"] = Json{{"code", status}, {"message", message}};
  write_json(out, data, 0);
  out << '\n';
}

Json matrix_json(const Matrix& m) {
  Json rows = Json::array();
  for (int i = 0; i < 3; ++i) {
    rows.push_back(
        Json::array({json_real(m[i]), json_real(m[i + 3]), json_real(m[i + 6])}));
  }
  return rows;
}

void print_matrix(std::ostream& out, std::string_view title, const Matrix& m) {
  out << title << '\n';
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) out << std::setw(14) << format_general(m[i + 3 * j]);
    out << '\n';
  }
}

void print_value(std::ostream& out, std::string_view label, float value, int width) {
  out << std::left << std::setw(width) << label << std::right << " = "
      << format_general(value) << '\n';
}

Json material_json(const PlyMaterial& m) {
  Json j = Json::object();
  for (const MaterialField& field : kMaterialFields) {
    j[std::string(field.option)] = json_real(m.*field.value);
  }
  return j;
}

std::string material_line(const PlyMaterial& m) {
  std::string line;
  for (const MaterialField& field : kMaterialFields) {
    if (!line.empty()) line += "  ";
    line += std::string(field.label) + " = " + format_general(m.*field.value);
  }
  return line;
}

}  // namespace corvane::cli
