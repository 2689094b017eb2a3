// corvane notched and corvane impact: reserve factors of a laminate with a hole
// (open and filled hole, tension and compression, bearing) and after impact
// (CAIH, CAIE, the damage model), under one load case or every case of a CSV
// file.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <ostream>
#include <vector>

#include "command_line.h"
#include "commands.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/impact_strength.h"
#include "laminates_stressed/laminate_stressed.h"
#include "laminates_stressed/notched_strength.h"
#include "load_cases.h"
#include "number_text.h"
#include "util/keywords.h"

namespace corvane::cli {
namespace {

// The strengths of the built-in material along the fibres, T300/5208's (S. W.
// Tsai and H. T. Hahn, Introduction to Composite Materials, 1980), as for
// corvane strength.
constexpr float kBuiltInF1t = 1500.0f, kBuiltInF1c = 1500.0f;

// What the two commands share: the material, its properties by key, the load
// case or file of them, and how results are written.
class KeyedLaminateCommand : public Command {
 public:
  CLI::App& parser() override { return *app_; }

 protected:
  KeyedLaminateCommand(CLI::App& program, const std::string& name,
                       const std::string& description) {
    app_ = program.add_subcommand(name, description);
    for (std::size_t k = 0; k < kLoadFields.size(); ++k) {
      load_[k] = add_real_option(*app_, std::string(kLoadFields[k].option), load_text_[k],
                                 std::string(kLoadFields[k].help));
      load_[k]->group("Load case (running loads and moments per width; default 0)");
    }
    app_->add_option("--property", properties_,
                     "material property KEY=VALUE, in order: OHT, OHC, FHT (notched "
                     "strengths of the quasi-isotropic laminate at a 6.35 hole), FHC, "
                     "A0OHT, A0OHC, A0FHT, KFHT, KFHC, FBR, CAIH, CAIE, ...; repeat it "
                     "or separate items with commas")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->type_name("KEY=VALUE");
    add_real_option(*app_, "--f1t", f1t_,
                    "tensile strength along the fibres (default 1500; below 1 a strain)");
    add_real_option(*app_, "--f1c", f1c_,
                    "compressive strength along the fibres (default 1500; below 1 a "
                    "strain)");
    add_load_file_options(*app_, loads_file_, out_file_);
    app_->add_flag("--json", json_, "print the results as JSON");
    laminate_.add_to(*app_);
  }

  // The keyed laminate, or a failure already reported (the exit status).
  std::optional<int> build(Output& o, std::optional<LAMINATESTRESSED>& laminate) const {
    if (!loads_file_.empty()) {
      for (std::size_t k = 0; k < load_.size(); ++k) {
        if (given(load_[k])) {
          throw UsageError{"--loads replaces the load options: drop " +
                           std::string(kLoadFields[k].option)};
        }
      }
      if (json_) throw UsageError{"--json is for one load case, not --loads"};
    } else if (!out_file_.empty()) {
      throw UsageError{"--out goes with --loads"};
    }
    if (laminate_.second_material()) {
      throw UsageError{app_->get_name() +
                       " takes one ply material: drop the --m2- options "
                       "and the plies of material 2"};
    }
    o.input()["laminate"] = laminate_.describe();
    const StiffnessResult stiffness = laminate_.compute();
    o.entry_point(stiffness.entry_point);
    if (stiffness.error_code != 0) {
      return o.fail(stiffness.error_code, stiffness_error_meaning(stiffness.error_code),
                    stiffness_failure(stiffness, laminate_));
    }
    const PlyMaterial p = laminate_.material();
    const float f1t = f1t_.empty() ? kBuiltInF1t : real_value(f1t_);
    const float f1c = f1c_.empty() ? kBuiltInF1c : real_value(f1c_);
    // A named material comes whole, notch data and damage model included: its
    // own record, with --f1t and --f1c applied as its keys apply them.
    const MaterialEntry* named = laminate_.named(1);
    if (named) {
      const PlyMaterial own = ply_material(named->lamina);
      if (std::memcmp(&own, &p, sizeof p) != 0) {
        throw UsageError{
            "the named material's values stand with its notch data: drop the --t ... "
            "--cte2 options"};
      }
    }
    LAMINA m =
        named ? named->lamina : new_lamina(p.t, p.e1, p.e2, p.g12, p.nu12, f1t, f1c);
    if (named) {
      std::vector<std::pair<std::string_view, float>> keyed;
      if (!f1t_.empty()) keyed.emplace_back("F1T", f1t);
      if (!f1c_.empty()) keyed.emplace_back("F1C", f1c);
      m.set_by_key(keyed);
    }
    if (m.status != 0) {
      return o.fail(1, stiffness_error_meaning(1),
                    lamina_fault(p.t, p.e1, p.e2, p.g12, p.nu12, f1t, f1c));
    }
    m.CTE1 = p.cte1;
    m.CTE2 = p.cte2;
    std::string text;
    for (const std::string& item : properties_) text += item + " ";
    if (const std::string fault = set_properties(m, text); !fault.empty()) {
      return o.fail(1, stiffness_error_meaning(1), fault);
    }
    std::vector<float> angles;
    parse_stacking_sequence(laminate_.layup(), angles);
    laminate.emplace(m, angles);
    if (!properties_.empty()) o.input()["properties"] = properties_;
    // The material's data the checks use, as its properties left them.
    Json& material = o.results()["material_data"] = Json::object();
    for (const auto& [name, value] : {std::pair{"e1tu", m.e1tu},
                                      {"uecall", m.uecall},
                                      {"a0oht", m.a0oht},
                                      {"a0ohc", m.a0ohc},
                                      {"a0fht", m.a0fht},
                                      {"kfht", m.Kfht},
                                      {"kfhc", m.Kfhc},
                                      {"fbr", m.Fbr},
                                      {"caih", m.CAIH},
                                      {"caie", m.CAIE}}) {
      material[name] = json_real(value);
    }
    return std::nullopt;
  }

  // The single load case of the options, or every case of the file (nothing
  // and a reported failure when it cannot be read).
  std::optional<std::vector<float>> load_cases(Output& o) const {
    if (loads_file_.empty()) {
      std::vector<float> row(kLoadCaseValues, 0.0f);
      Json& loads = o.input()["loads"] = Json::object();
      for (std::size_t k = 0; k < kLoadFields.size(); ++k) {
        if (given(load_[k])) row[k] = real_value(load_text_[k]);
        loads[std::string(kLoadFields[k].key)] = json_real(row[k]);
      }
      return row;
    }
    try {
      return read_load_cases(loads_file_);
    } catch (const LoadFileError& e) {
      o.fail_plain(e.message);
      return std::nullopt;
    }
  }

  static int fail(Output& o, const StrengthStatus& status) {
    std::string what = status.message();
    if (what.starts_with("Error! ")) what.erase(0, 7);
    if (what.ends_with('.')) what.pop_back();
    const auto meaning = [](StrengthError error) {
      switch (error) {
        case StrengthError::laminate_in_error:
          return "laminate in error";
        case StrengthError::strength_missing:
          return "material data missing";
        case StrengthError::non_finite_load:
          return "load not finite";
        case StrengthError::bad_option:
          return "option out of range";
        case StrengthError::damage_model_unusable:
          return "damage model not usable";
        default:
          return "refused";
      }
    };
    if (status.name == "hole diameter") what += " (--hole-diameter)";
    if (status.name == "impact energy") what += " (--energy)";
    return o.fail(static_cast<std::int32_t>(status.error), meaning(status.error), what);
  }

  // Results of every case: one line each, "case" and the named columns, to
  // --out (through a temporary file renamed at the end, so a failure leaves no
  // half-written results) or to standard output.
  int write_many(Output& o, std::ostream& standard_out,
                 const std::vector<std::string>& columns,
                 std::span<const float> rf) const {
    std::string text = "case";
    for (const std::string& c : columns) text += "," + c;
    text += '\n';
    const std::size_t n = columns.size();
    char number[32];
    for (std::size_t i = 0; n > 0 && i < rf.size() / n; ++i) {
      text.append(number, std::to_chars(number, number + sizeof number, i + 1).ptr);
      for (std::size_t c = 0; c < n; ++c) {
        text += ',';
        text.append(number,
                    std::to_chars(number, number + sizeof number, rf[i * n + c]).ptr);
      }
      text += '\n';
    }
    if (out_file_.empty()) {
      standard_out << text << std::flush;
      if (standard_out) return kExitOk;
      return o.fail_plain("cannot write the results to standard output", kExitFile);
    }
    const std::string temporary = out_file_ + ".partial";
    std::ofstream file(temporary, std::ios::binary | std::ios::trunc);
    file << text;
    file.close();
    std::error_code renamed;
    if (file) std::filesystem::rename(temporary, out_file_, renamed);
    if (!file || renamed) {
      std::error_code ignored;
      std::filesystem::remove(temporary, ignored);
      return o.fail_plain("cannot write the results to " + out_file_, kExitFile);
    }
    return kExitOk;
  }

  bool many() const { return !loads_file_.empty(); }
  bool json() const { return json_; }
  const std::string& layup() const { return laminate_.layup(); }

  CLI::App* app_ = nullptr;

 private:
  LaminateOptions laminate_;
  std::array<std::string, kLoadCaseValues> load_text_;
  std::array<CLI::Option*, kLoadCaseValues> load_{};
  std::vector<std::string> properties_;
  std::string f1t_, f1c_, loads_file_, out_file_;
  bool json_ = false;
};

class NotchedCommand : public KeyedLaminateCommand {
 public:
  explicit NotchedCommand(CLI::App& program)
      : KeyedLaminateCommand(program, "notched",
                             "Reserve factors at a hole: open and filled hole, tension "
                             "and compression, and bearing") {
    app_->add_option("--check", check_names_,
                     "OHT, OHC, FHT, FHC, BEARING or all (default all); repeat it or "
                     "separate names with commas")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->type_name("NAME");
    add_real_option(*app_, "--hole-diameter", diameter_, "hole diameter (default 6.35)");
    add_real_option(*app_, "--fastener-load", fastener_,
                    "fastener load in the hole for BEARING (default 0; with --loads, "
                    "the same for every case)");
    app_->footer(
        "Open holes and FHT with A0FHT: the point-stress criterion (Whitney and "
        "Nuismer 1974)\nwith the laminate's orthotropic stress concentration; FHC and "
        "FHT without A0FHT:\nthe filled-hole factors KFHC, KFHT. See docs/strength.md.\n"
        "Examples:\n"
        "  corvane notched \"(0/45/-45/90)2S\" --property OHT=420,OHC=310 --nx 300\n"
        "  corvane notched \"(0/45/-45/90)2S\" --property A0OHC=1.5 --check ohc "
        "--hole-diameter 4.8 --loads cases.csv");
  }

  int run(std::ostream& out, std::ostream& err) override {
    Output o("notched", json(), out, err);
    std::vector<NotchCheck> checks;
    for (const std::string& name : check_names_) {
      std::vector<NotchCheck> named;
      if (normalize_keyword(name) == "ALL") {
        for (std::int32_t c = 1; c <= static_cast<std::int32_t>(kNotchChecks); ++c) {
          named.push_back(static_cast<NotchCheck>(c));
        }
      } else if (const auto one = notch_check(name)) {
        named.push_back(*one);
      } else {
        throw UsageError{"unknown check \"" + name +
                         "\"; the checks are OHT, OHC, FHT, FHC, BEARING or all"};
      }
      for (NotchCheck c : named) {
        if (std::find(checks.begin(), checks.end(), c) == checks.end())
          checks.push_back(c);
      }
    }
    if (checks.empty()) {
      for (std::int32_t c = 1; c <= static_cast<std::int32_t>(kNotchChecks); ++c) {
        checks.push_back(static_cast<NotchCheck>(c));
      }
    }
    std::optional<LAMINATESTRESSED> laminate;
    if (const auto failed = build(o, laminate)) return *failed;
    const float d = diameter_.empty() ? kDefaultHoleDiameter : real_value(diameter_);
    const float p = fastener_.empty() ? 0.0f : real_value(fastener_);
    o.input()["hole_diameter"] = json_real(d);
    o.input()["fastener_load"] = json_real(p);
    const NotchedPlan plan(*laminate, checks, d);
    if (!plan.status().ok()) return fail(o, plan.status());
    const auto loads = load_cases(o);
    if (!loads) return kExitFailed;
    const std::size_t ncases = loads->size() / kLoadCaseValues, n = checks.size();
    std::vector<float> fastener(ncases, p), rf(ncases * n);
    const StrengthStatus status = plan.evaluate(*loads, fastener, rf);
    if (!status.ok()) return fail(o, status);
    std::vector<std::string> columns;
    for (NotchCheck c : checks)
      columns.push_back(std::string(notch_check_name(c)) + "_rf");
    if (many()) return write_many(o, out, columns, rf);

    Json& data = o.results();
    data["kt"] = {json_real(plan.kt(false)), json_real(plan.kt(true))};
    Json& results = data["checks"] = Json::array();
    for (std::size_t c = 0; c < n; ++c) {
      const bool bearing = checks[c] == NotchCheck::bearing;
      results.push_back({{"check", notch_check_name(checks[c])},
                         {bearing ? "bearing_strength" : "allowable_strain",
                          bearing ? Json(json_real(plan.allowable(c, false)))
                                  : Json::array({json_real(plan.allowable(c, false)),
                                                 json_real(plan.allowable(c, true))})},
                         {"rf", json_real(rf[c])}});
    }
    if (json()) return o.finish();
    out << "Laminate " << layup() << ", hole diameter " << format_general(d)
        << ": K_T = " << format_general(plan.kt(false)) << " along x, "
        << format_general(plan.kt(true)) << " along y\n\n"
        << "check      allowable x  allowable y           RF\n";
    for (std::size_t c = 0; c < n; ++c) {
      const bool bearing = checks[c] == NotchCheck::bearing;
      std::string line(notch_check_name(checks[c]));
      line.resize(9, ' ');
      const auto field = [](const std::string& s) {
        return std::string(s.size() < 13 ? 13 - s.size() : 0, ' ') + s;
      };
      line += field(format_general(plan.allowable(c, false)));
      line += field(bearing ? "-" : format_general(plan.allowable(c, true)));
      line += field(format_general(rf[c]));
      out << line << '\n';
    }
    return kExitOk;
  }

 private:
  std::vector<std::string> check_names_;
  std::string diameter_, fastener_;
};

class ImpactCommand : public KeyedLaminateCommand {
 public:
  explicit ImpactCommand(CLI::App& program)
      : KeyedLaminateCommand(program, "impact",
                             "Reserve factors after impact: CAIH, CAIE and the damage "
                             "model") {
    add_real_option(*app_, "--energy", energy_, "impact energy (default 0)");
    app_->add_option("--model", model_,
                     "damage model: CDTM-T03 a0 a1 b0 b1 c0 c1 scale [factor], or "
                     "CDTM-T04, -T05, -T06 k2 k3 k0 k1 scale [factor]")
        ->type_name("TEXT");
    add_real_option(*app_, "--unit-factor", unit_factor_,
                    "factor on the model's coefficients that carry the allowable's unit "
                    "(default 1)");
    app_->footer(
        "The largest principal membrane strain of the mechanical loads against the "
        "after-impact\nstrains CAIH, CAIE and the model's allowable (p1 energy, p2 "
        "thickness, p3 Ex,\np4 Eiso). See docs/strength.md.\n"
        "Examples:\n"
        "  corvane impact \"(0/45/-45/90)2S\" --nx -400 --property CAIH=0.005\n"
        "  corvane impact \"(0/45/-45/90)3S\" --energy 30 --model \"CDTM-T04 0.003 0.5 "
        "0.004 0.05 1\" --loads cases.csv");
  }

  int run(std::ostream& out, std::ostream& err) override {
    Output o("impact", json(), out, err);
    std::optional<LAMINATESTRESSED> laminate;
    if (const auto failed = build(o, laminate)) return *failed;
    const float energy = energy_.empty() ? 0.0f : real_value(energy_);
    const float u = unit_factor_.empty() ? 1.0f : real_value(unit_factor_);
    const bool with_model = model_.find_first_not_of(" \t") != std::string::npos;
    o.input()["energy"] = json_real(energy);
    if (with_model) {
      if (!(u > 0.0f)) throw UsageError{"--unit-factor must be positive"};
      CDTMODEL& model = laminate->materials[0].cdt_model;
      if (read_cdt_model_text(model_, u, model) != 0 || model.status != 0) {
        return o.fail(static_cast<std::int32_t>(StrengthError::damage_model_unusable),
                      "damage model not usable",
                      "damage model \"" + model_ +
                          "\" not usable: CDTM-T03 to CDTM-T06 with all their "
                          "coefficients");
      }
      o.input()["model"] = model_;
    }
    // A material from a file may bring its damage model.
    const CDTMODEL& filed = laminate->materials[0].cdt_model;
    const bool filed_model = !with_model && !filed.name.empty() && filed.status == 0;
    if (filed_model) o.input()["model"] = filed.name + " (from the material data file)";
    const ImpactPlan plan(*laminate, energy, with_model || filed_model);
    if (!plan.status().ok()) return fail(o, plan.status());
    const auto loads = load_cases(o);
    if (!loads) return kExitFailed;
    const std::size_t ncases = loads->size() / kLoadCaseValues, n = plan.checks();
    std::vector<float> rf(ncases * n);
    const StrengthStatus status = plan.evaluate(*loads, rf);
    if (!status.ok()) return fail(o, status);
    const std::vector<std::string> names = {"CAIH", "CAIE", "MODEL"};
    std::vector<std::string> columns;
    for (std::size_t c = 0; c < n; ++c) columns.push_back(names[c] + "_rf");
    if (many()) return write_many(o, out, columns, rf);

    Json& data = o.results();
    data["thickness"] = json_real(laminate->h);
    Json& results = data["checks"] = Json::array();
    for (std::size_t c = 0; c < n; ++c) {
      results.push_back({{"check", names[c]},
                         {"allowable_strain",
                          json_real(plan.allowable(0, static_cast<ImpactCheck>(c)))},
                         {"rf", json_real(rf[c])}});
    }
    if (json()) return o.finish();
    out << "Laminate " << layup() << ", thickness " << format_general(laminate->h)
        << ", impact energy " << format_general(energy)
        << "\n\ncheck    allowable strain           RF\n";
    for (std::size_t c = 0; c < n; ++c) {
      std::string line = names[c];
      line.resize(9, ' ');
      const std::string a =
          format_general(plan.allowable(0, static_cast<ImpactCheck>(c)));
      const std::string r = format_general(rf[c]);
      line += std::string(a.size() < 16 ? 16 - a.size() : 0, ' ') + a;
      line += std::string(r.size() < 13 ? 13 - r.size() : 0, ' ') + r;
      out << line << '\n';
    }
    return kExitOk;
  }

 private:
  std::string energy_, model_, unit_factor_;
};

}  // namespace

std::unique_ptr<Command> add_notched_command(CLI::App& program) {
  return std::make_unique<NotchedCommand>(program);
}
std::unique_ptr<Command> add_impact_command(CLI::App& program) {
  return std::make_unique<ImpactCommand>(program);
}

}  // namespace corvane::cli
