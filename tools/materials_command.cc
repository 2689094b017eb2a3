// corvane materials: the ply materials of the material data files, listed,
// shown in full, or traced to the file they come from.
#include <ostream>

#include "command_line.h"
#include "commands.h"
#include "number_text.h"

namespace corvane::cli {
namespace {

Json entry_json(const MaterialEntry& e) {
  const LAMINA& m = e.lamina;
  Json j = {{"name", m.Name},
            {"file", e.file},
            {"line", e.line},
            {"source", e.source},
            {"fabric", m.is_fabric}};
  const std::pair<const char*, float> values[] = {
      {"t", m.CPT},    {"e1", m.E1},         {"e2", m.E2},         {"g12", m.G12},
      {"nu12", m.v12}, {"cte1", m.CTE1},     {"cte2", m.CTE2},     {"kbm", m.KBM},
      {"f1t", m.F1t},  {"f1c", m.F1c},       {"f2t", m.F2t},       {"f2c", m.F2c},
      {"f12", m.F12},  {"uetall", m.uetall}, {"uecall", m.uecall}, {"density", m.DENSITY},
  };
  for (const auto& [label, value] : values) j[label] = json_real(value);
  return j;
}

class MaterialsCommand : public Command {
 public:
  explicit MaterialsCommand(CLI::App& program) {
    app_ = program.add_subcommand(
        "materials", "the ply materials of the material data files: list, show, where");
    app_->add_option("action", words_,
                     "nothing to list every material, or \"show NAME\" for one in full")
        ->type_name("[show NAME]")
        ->expected(0, 2);
    app_->add_option("--where", where_, "say which file the material NAME comes from")
        ->type_name("NAME");
    lookup_.add_to(*app_);
    app_->add_flag("--json", json_, "print the results as JSON");
    app_->footer(
        "Materials are read from the --materials files and directories, then every\n"
        "*.mat file of the directory BASES_DATOS names, of each directory on PATH,\n"
        "and of the installed materials; a name found twice is taken from the first.\n"
        "Examples:\n"
        "  corvane materials\n"
        "  corvane materials show T300/5208\n"
        "  corvane materials --where T300/5208 --materials my_materials.mat\n"
        "  corvane stiffness \"(0/45/-45/90)S\" --material T300/5208");
  }

  CLI::App& parser() override { return *app_; }

  int run(std::ostream& out, std::ostream& err) override {
    const bool show = !words_.empty();
    if (show && (words_.size() != 2 || words_[0] != "show")) {
      throw UsageError{"expected nothing, or \"show NAME\""};
    }
    if (show && !where_.empty())
      throw UsageError{"give either show NAME or --where NAME"};
    Output o("materials", json_, out, err);
    if (!lookup_.places().empty()) o.input()["places"] = lookup_.places();
    if (!where_.empty()) o.input()["where"] = where_;
    if (show) o.input()["show"] = words_[1];
    Json& data = o.results();
    if (!where_.empty()) {
      const MaterialEntry& e = lookup_.find(where_);
      data["material"] = entry_json(e);
      if (!o.json()) out << e.file << ':' << e.line << '\n';
    } else if (show) {
      const MaterialEntry& e = lookup_.find(words_[1]);
      data["material"] = entry_json(e);
      if (!o.json()) {
        out << e.lamina.print_full();
        if (!e.source.empty()) out << "Source: " << e.source << '\n';
        out << "File:   " << e.file << ':' << e.line << '\n';
      }
    } else {
      Json& list = data["materials"] = Json::array();
      const std::vector<const MaterialEntry*> sorted = lookup_.catalog().sorted();
      for (const MaterialEntry* e : sorted) list.push_back(entry_json(*e));
      if (!o.json()) {
        out << LAMINA::kShortHeader << '\n';
        for (const MaterialEntry* e : sorted) out << e->lamina.print_short();
      }
    }
    return o.finish();
  }

 private:
  CLI::App* app_ = nullptr;
  std::vector<std::string> words_;
  std::string where_;
  MaterialLookup lookup_;
  bool json_ = false;
};

}  // namespace

std::unique_ptr<Command> add_materials_command(CLI::App& program) {
  return std::make_unique<MaterialsCommand>(program);
}

}  // namespace corvane::cli
