// corvane strength: ply stresses, reserve factors of failure criteria and the
// first-ply failure of a laminate under one load case, or under every load
// case of a CSV file.
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <limits>
#include <optional>
#include <ostream>
#include <sstream>
#include <vector>

#include "command_line.h"
#include "commands.h"
#include "laminas/criterion_code.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/laminate_stressed.h"
#include "load_cases.h"
#include "number_text.h"
#include "ply_strengths.h"
#include "util/keywords.h"
#include "util/number_reading.h"

namespace corvane::cli {

namespace {

std::string error_meaning(StrengthError error) {
  switch (error) {
    case StrengthError::none:
      return "success";
    case StrengthError::laminate_in_error:
      return "laminate in error";
    case StrengthError::unknown_criterion:
      return "unknown criterion";
    case StrengthError::criterion_not_available:
      return "criterion not available";
    case StrengthError::strength_missing:
      return "strength missing";
    case StrengthError::non_finite_load:
      return "load not finite";
    case StrengthError::bad_option:
      return "option out of range";
    case StrengthError::wrong_size:
      return "array of the wrong size";
    case StrengthError::damage_model_unusable:
      return "damage model not usable";
  }
  return "unknown error";
}

// The core's words without "Error! " and the full stop, with the option that
// gives a missing strength or an option out of range.
std::string failure_words(const StrengthStatus& status) {
  std::string what = status.message();
  if (what.starts_with("Error! ")) what.erase(0, 7);
  if (what.ends_with('.')) what.pop_back();
  if (status.error == StrengthError::strength_missing) {
    std::string option = normalize_keyword(status.name);
    std::transform(option.begin(), option.end(), option.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
    what += ": give --" + std::string(status.material == 2 ? "m2-" : "") + option;
  } else if (status.error == StrengthError::bad_option) {
    const std::string_view name = status.name;
    what += name == "F12*" ? " (--f12-star)"
            : name == "p+" ? " (--puck-p-plus)"
            : name == "p-" ? " (--puck-p-minus)"
                           : "";
  }
  return what;
}

// The codes of the criteria named, each once, in the order first named; "all"
// is every criterion with an evaluation, and so is no name at all. Returns the
// first name that is no criterion keyword, or nothing.
std::optional<std::string> criterion_codes(const std::vector<std::string>& names,
                                           std::vector<std::int32_t>& codes) {
  const auto add = [&codes](std::int32_t code) {
    if (std::find(codes.begin(), codes.end(), code) == codes.end()) codes.push_back(code);
  };
  for (const std::string& name : names) {
    if (normalize_keyword(name) == "ALL") {
      for (std::int32_t code : kEvaluatedCriteria) add(code);
    } else if (const std::int32_t code = criterion_code(name); code != kNoCriterion) {
      add(code);
    } else {
      return name;
    }
  }
  if (names.empty()) codes.assign(kEvaluatedCriteria.begin(), kEvaluatedCriteria.end());
  return std::nullopt;
}

std::string known_criteria() {
  std::string list;
  for (std::int32_t code : kEvaluatedCriteria) {
    list += std::string(criterion_keyword(code)) + ", ";
  }
  return list + "or all";
}

void append_real(std::string& text, float value) {
  char buffer[32];
  const auto written = std::to_chars(buffer, buffer + sizeof buffer, value);
  text.append(buffer, written.ptr);
}

// A bar on standard error while a long file is worked through, only when
// standard error is a terminal; wiped when done.
class Progress {
 public:
  Progress(std::ostream& err, std::size_t total)
      : err_(err), total_(total), shown_(total >= 100000 && isatty(STDERR_FILENO) != 0) {}
  ~Progress() {
    if (shown_ && percent_ >= 0)
      err_ << '\r' << std::string(72, ' ') << '\r' << std::flush;
  }
  void update(std::size_t done) {
    const int percent = static_cast<int>(done * 100 / std::max<std::size_t>(total_, 1));
    if (!shown_ || percent == percent_) return;
    percent_ = percent;
    const auto filled = static_cast<std::size_t>(percent / 4);
    err_ << "\rcorvane strength: [" << std::string(filled, '#')
         << std::string(25 - filled, ' ') << "] " << percent << "% of " << total_
         << " load cases" << std::flush;
  }

 private:
  std::ostream& err_;
  std::size_t total_;
  bool shown_;
  int percent_ = -1;
};

class StrengthCommand : public Command {
 public:
  explicit StrengthCommand(CLI::App& program) {
    app_ = program.add_subcommand(
        "strength",
        "Ply stresses, reserve factors of failure criteria and first-ply failure");
    const std::string loads =
        "Load case (running loads and moments per width; default 0)";
    for (std::size_t k = 0; k < kLoadFields.size(); ++k) {
      load_[k] = add_real_option(*app_, std::string(kLoadFields[k].option), load_text_[k],
                                 std::string(kLoadFields[k].help));
      load_[k]->group(loads);
    }
    app_->add_option("--criterion", criterion_names_,
                     "failure criterion: " + known_criteria() +
                         " (default all); repeat it or separate names with commas")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->type_name("NAME");
    add_real_option(*app_, "--f12-star", f12_star_,
                    "Tsai-Wu interaction term F12*, in (-1, 1) (default -0.5)");
    add_real_option(*app_, "--puck-p-plus", p_plus_,
                    "Puck's inclination p+ in [0, 1) (default 0.35, carbon)");
    add_real_option(*app_, "--puck-p-minus", p_minus_,
                    "Puck's inclination p- in [0, 1) (default 0.30, carbon)");
    add_load_file_options(*app_, loads_file_, out_file_);
    app_->add_flag("--json", json_, "print the results as JSON");
    laminate_.add_to(*app_);
    const PlyStrengths built_in = built_in_strengths();
    for (std::size_t k = 0; k < kStrengthFields.size(); ++k) {
      const StrengthField& f = kStrengthFields[k];
      const float value = built_in.*f.value;
      first_[k] = add_real_option(
          *app_, "--" + std::string(f.option), first_text_[k],
          std::string(f.meaning) + (std::isnan(value)
                                        ? " (default from F1t, F1c and E1)"
                                        : " (default " + format_general(value) + ")"));
      first_[k]->group("Ply strengths (default: T300/5208, Tsai and Hahn 1980)");
      second_[k] =
          add_real_option(*app_, "--m2-" + std::string(f.option), second_text_[k],
                          "material 2: " + std::string(f.meaning));
      second_[k]->group("Second ply material's strengths (default the first's)");
    }
    app_->footer(
        "RFs in the table are cut toward zero; --json and the --loads results hold the "
        "exact\nvalues. With --loads, one line of results a load case: the case number "
        "and, per\ncriterion, the least RF, its ply, surface and failure mode.\n"
        "Examples:\n"
        "  corvane strength \"(0/45/-45/90)2S\" --nx -500 --criterion all\n"
        "  corvane strength \"(0/90)S\" --nx 100 --dt -100 --criterion tsai_wu,puck "
        "--json\n"
        "  corvane strength \"(0/45/-45/90)3S\" --criterion puck --loads cases.csv --out "
        "results.csv");
  }

  CLI::App& parser() override { return *app_; }

  int run(std::ostream& out, std::ostream& err) override {
    const bool many = !loads_file_.empty();
    for (std::size_t k = 0; k < load_.size(); ++k) {
      if (many && given(load_[k])) {
        throw UsageError{"--loads replaces the load options: drop " +
                         std::string(kLoadFields[k].option)};
      }
    }
    if (many && json_) throw UsageError{"--json is for one load case, not --loads"};
    if (!many && !out_file_.empty()) throw UsageError{"--out goes with --loads"};

    Output o("strength", json_, out, err);
    o.input()["laminate"] = {{"layup", laminate_.layup()}};
    std::vector<std::int32_t> codes;
    if (const auto unknown = criterion_codes(criterion_names_, codes)) {
      return o.fail(
          static_cast<std::int32_t>(StrengthError::unknown_criterion),
          error_meaning(StrengthError::unknown_criterion),
          "unknown criterion \"" + *unknown + "\"; the criteria are " + known_criteria());
    }
    Json& names = o.input()["criteria"] = Json::array();
    for (std::int32_t code : codes) names.push_back(criterion_keyword(code));

    const StiffnessResult stiffness = laminate_.compute();
    o.entry_point(stiffness.entry_point);
    if (stiffness.error_code != 0) {
      return o.fail(stiffness.error_code, stiffness_error_meaning(stiffness.error_code),
                    stiffness_failure(stiffness, laminate_));
    }
    // A named material brings its strengths and allowable strains; options
    // given replace them.
    const auto named_strengths = [this](int material, PlyStrengths otherwise) {
      const MaterialEntry* e = laminate_.named(material);
      if (!e) return otherwise;
      const LAMINA& m = e->lamina;
      return PlyStrengths{m.F1t, m.F1c, m.F2t, m.F2c, m.F12, m.uetall, m.uecall};
    };
    const PlyStrengths s1 =
        strengths(first_text_, first_, named_strengths(1, built_in_strengths()));
    // A --m2- strength asks for material 2 as a --m2- modulus does.
    std::optional<PlyMaterial> m2 = laminate_.second_material();
    if (!m2 && std::any_of(second_.begin(), second_.end(), given)) {
      m2 = laminate_.material();
    }
    const PlyStrengths s2 = strengths(second_text_, second_, named_strengths(2, s1));
    for (const auto& [prefix, s] : {std::pair{"", s1}, std::pair{"material 2: ", s2}}) {
      if (std::string what = negative_strength(s); !what.empty()) {
        return o.fail(1, stiffness_error_meaning(1), prefix + what);
      }
      if (!m2) break;
    }
    std::vector<float> angles;
    std::vector<std::int32_t> material_index;
    parse_stacking_sequence(laminate_.layup(), angles, &material_index);
    const LAMINA l1 = lamina(laminate_.material(), s1);
    const LAMINATESTRESSED laminate =
        m2 ? LAMINATESTRESSED(l1, lamina(*m2, s2), angles, material_index)
           : LAMINATESTRESSED(l1, angles);
    Json& materials = o.input()["laminate"]["materials"] = Json::array();
    for (std::size_t m = 0; m < laminate.materials.size(); ++m) {
      materials.push_back(material_json(m == 0 ? laminate_.material() : *m2));
      if (const MaterialEntry* e = laminate_.named(static_cast<int>(m) + 1)) {
        materials.back()["name"] = e->lamina.Name;
      }
      for (const StrengthField& f : kStrengthFields) {
        materials.back()[std::string(f.option)] =
            json_real(laminate.materials[m].*f.member);
      }
    }
    StrengthOptions options;
    if (!f12_star_.empty()) options.tsai_wu_f12_star = real_value(f12_star_);
    if (!p_plus_.empty()) options.puck.p_plus = real_value(p_plus_);
    if (!p_minus_.empty()) options.puck.p_minus = real_value(p_minus_);
    o.input()["options"] = {{"f12_star", json_real(options.tsai_wu_f12_star)},
                            {"puck_p_plus", json_real(options.puck.p_plus)},
                            {"puck_p_minus", json_real(options.puck.p_minus)}};
    const StrengthPlan plan = laminate.strength_plan(codes, options);
    if (!plan.status().ok()) return strength_fail(o, plan.status());
    if (many) return run_many(o, plan, codes, out, err);

    LoadCase load;
    float* row = &load.Nx;  // LoadCase is kLoadCaseValues floats in a row
    static_assert(sizeof(LoadCase) == kLoadCaseValues * sizeof(float));
    Json& loads = o.input()["loads"] = Json::object();
    for (std::size_t k = 0; k < kLoadFields.size(); ++k) {
      if (given(load_[k])) row[k] = real_value(load_text_[k]);
      loads[std::string(kLoadFields[k].key)] = json_real(row[k]);
    }
    if (!o.json()) {
      std::string report;
      const StrengthStatus status =
          laminate.strength_report(load, codes, options, report);
      if (!status.ok()) return strength_fail(o, status);
      out << "Laminate " << laminate_.layup() << ": " << laminate.nplies << " plies, "
          << (laminate.symmetric ? "symmetric" : "not symmetric") << '\n';
      for (std::size_t m = 0; m < laminate.materials.size(); ++m) {
        const std::string n = m2 ? " " + std::to_string(m + 1) + ":" : ":";
        const int width = m2 ? 13 : 12;
        out << std::left << std::setw(width) << "Material" + n
            << material_line(m == 0 ? laminate_.material() : *m2) << '\n'
            << std::setw(width) << "Strengths" + n << std::right
            << strength_line(laminate.materials[m]) << '\n';
      }
      out << '\n' << report;
      return kExitOk;
    }
    return single_json(o, laminate, plan, load, codes);
  }

 private:
  static PlyStrengths strengths(const std::array<std::string, 7>& text,
                                const std::array<CLI::Option*, 7>& options,
                                PlyStrengths s) {
    for (std::size_t k = 0; k < kStrengthFields.size(); ++k) {
      if (given(options[k])) s.*kStrengthFields[k].value = real_value(text[k]);
    }
    return s;
  }

  static int strength_fail(Output& o, const StrengthStatus& status) {
    return o.fail(static_cast<std::int32_t>(status.error), error_meaning(status.error),
                  failure_words(status));
  }

  static int single_json(Output& o, const LAMINATESTRESSED& laminate,
                         const StrengthPlan& plan, const LoadCase& load,
                         const std::vector<std::int32_t>& codes) {
    LaminateState state;
    StrengthStatus status = plan.state(load, state);
    const std::size_t nc = codes.size(), ns = state.surfaces.size();
    std::vector<float> rf(nc), ply_rf(nc * ns);
    std::vector<std::int32_t> ply(nc), surface(nc), mode(nc);
    if (status.ok()) {
      status = plan.evaluate(std::span(&load.Nx, kLoadCaseValues),
                             {rf, ply, surface, mode, ply_rf, {}, {}});
    }
    if (!status.ok()) return strength_fail(o, status);
    Json& data = o.results();
    data["plies"] = laminate.nplies;
    data["symmetric"] = laminate.symmetric;
    Json& midplane = data["midplane"] = Json::array();
    for (float x : state.midplane) midplane.push_back(json_real(x));
    Json& surfaces = data["surfaces"] = Json::array();
    for (std::size_t i = 0; i < ns; ++i) {
      const PlySurfaceState& p = state.surfaces[i];
      const auto k = static_cast<std::size_t>(p.ply - 1);
      Json rfs = Json::array();
      for (std::size_t j = 0; j < nc; ++j) rfs.push_back(json_real(ply_rf[j * ns + i]));
      surfaces.push_back(
          {{"ply", p.ply},
           {"surface", surface_name(p.surface)},
           {"angle", json_real(laminate.angles[k])},
           {"material", laminate.material_index[k]},
           {"stress",
            {json_real(p.stress[0]), json_real(p.stress[1]), json_real(p.stress[2])}},
           {"rf", rfs}});
    }
    Json& first = data["first_ply_failure"] = Json::array();
    for (std::size_t j = 0; j < nc; ++j) {
      first.push_back({{"criterion", criterion_keyword(codes[j])},
                       {"code", codes[j]},
                       {"rf", json_real(rf[j])},
                       {"ply", ply[j]},
                       {"surface", surface_name(static_cast<Surface>(surface[j]))},
                       {"mode", failure_mode_name(static_cast<FailureMode>(mode[j]))}});
    }
    return o.finish();
  }

  // Every load case of the file, in blocks, to --out (through a temporary
  // file renamed at the end, so a failure leaves no half-written results) or
  // to standard output.
  int run_many(Output& o, const StrengthPlan& plan,
               const std::vector<std::int32_t>& codes, std::ostream& standard_out,
               std::ostream& err) const {
    std::vector<float> loads;
    try {
      loads = read_load_cases(loads_file_);
    } catch (const LoadFileError& e) {
      return o.fail_plain(e.message);
    }
    const std::string temporary = out_file_ + ".partial";
    std::ofstream file;
    if (!out_file_.empty()) file.open(temporary, std::ios::binary | std::ios::trunc);
    std::ostream& out = out_file_.empty() ? standard_out : file;
    const auto cannot_write = [&] {
      file.close();
      std::error_code ignored;
      std::filesystem::remove(temporary, ignored);
      return o.fail_plain("cannot write the results to " + out_file_, kExitFile);
    };
    if (!out) return cannot_write();

    const std::size_t nc = codes.size(), ncases = loads.size() / kLoadCaseValues;
    constexpr std::size_t kBlock = 2048;
    std::vector<float> rf(kBlock * nc);
    std::vector<std::int32_t> ply(kBlock * nc), surface(kBlock * nc), mode(kBlock * nc);
    std::string text = "case";
    for (std::int32_t code : codes) {
      const std::string k(criterion_keyword(code));
      text += "," + k + "_rf," + k + "_ply," + k + "_surface," + k + "_mode";
    }
    text += '\n';
    Progress progress(err, ncases);
    for (std::size_t start = 0; start < ncases; start += kBlock) {
      const std::size_t n = std::min(kBlock, ncases - start);
      StrengthStatus status = plan.evaluate(
          std::span(loads).subspan(start * kLoadCaseValues, n * kLoadCaseValues),
          {std::span(rf).first(n * nc), std::span(ply).first(n * nc),
           std::span(surface).first(n * nc), std::span(mode).first(n * nc)});
      if (!status.ok()) {  // not expected: every load was read as a finite real
        status.load_case += static_cast<std::int64_t>(start);
        file.close();
        std::error_code ignored;
        std::filesystem::remove(temporary, ignored);
        return strength_fail(o, status);
      }
      char number[24];
      for (std::size_t c = 0; c < n; ++c) {
        text.append(number,
                    std::to_chars(number, number + sizeof number, start + c + 1).ptr);
        for (std::size_t j = 0; j < nc; ++j) {
          const std::size_t at = c * nc + j;
          text += ',';
          append_real(text, rf[at]);
          text += ',';
          text.append(number, std::to_chars(number, number + sizeof number, ply[at]).ptr);
          text += ',';
          text += surface_name(static_cast<Surface>(surface[at]));
          text += ',';
          text += failure_mode_name(static_cast<FailureMode>(mode[at]));
        }
        text += '\n';
      }
      out.write(text.data(), static_cast<std::streamsize>(text.size()));
      text.clear();
      progress.update(start + n);
    }
    if (ncases == 0) out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.flush();
    if (out_file_.empty()) {
      if (out) return kExitOk;
      return o.fail_plain("cannot write the results to standard output", kExitFile);
    }
    file.close();
    std::error_code renamed;
    if (file) std::filesystem::rename(temporary, out_file_, renamed);
    if (!file || renamed) return cannot_write();
    return kExitOk;
  }

  CLI::App* app_ = nullptr;
  LaminateOptions laminate_;
  std::array<std::string, kLoadCaseValues> load_text_;
  std::array<CLI::Option*, kLoadCaseValues> load_{};
  std::array<std::string, 7> first_text_, second_text_;
  std::array<CLI::Option*, 7> first_{}, second_{};
  std::vector<std::string> criterion_names_;
  std::string f12_star_, p_plus_, p_minus_;
  std::string loads_file_, out_file_;
  bool json_ = false;
};

}  // namespace

std::unique_ptr<Command> add_strength_command(CLI::App& program) {
  return std::make_unique<StrengthCommand>(program);
}

}  // namespace corvane::cli
