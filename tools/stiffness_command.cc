// corvane stiffness: [A], [B], [D], [D*], the apparent constants and the bulk
// data cards of a laminate, in the established deck or the solver deck.
#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>
#include <ostream>

#include "laminates/stacking_sequence.h"
#include "laminates_stiffness/laminate_stiffness.h"
#include "reports/laminate_report.h"

#include "command_line.h"
#include "commands.h"
#include "number_text.h"

namespace corvane::cli {
namespace {

// The strengths the solver deck's MAT8 cards carry.
struct StrengthOption {
  std::string_view option, meaning;
  float MaterialStrengths::*value;
};
constexpr std::array<StrengthOption, 5> kStrengthOptions{{
    {"f1t", "tensile strength along the fibres", &MaterialStrengths::f1t},
    {"f1c", "compressive strength along the fibres", &MaterialStrengths::f1c},
    {"f2t", "tensile strength across the fibres", &MaterialStrengths::f2t},
    {"f2c", "compressive strength across the fibres", &MaterialStrengths::f2c},
    {"f12", "in-plane shear strength", &MaterialStrengths::f12},
}};

// The named material's record, or, when a value on the command line replaces
// one of it or no material is named, a material built from the seven values as
// the stiffness entry points build it (allowables of 1000).
LAMINA report_lamina(const PlyMaterial& m, const MaterialEntry* named, const char* name) {
  if (named) {
    const PlyMaterial own = ply_material(named->lamina);
    if (std::memcmp(&own, &m, sizeof m) == 0) return named->lamina;
  }
  LAMINA l = new_lamina(m.t, m.e1, m.e2, m.g12, m.nu12, 1000.0f, 1000.0f,
                        named ? std::string_view(named->lamina.Name) : name);
  l.CTE1 = m.cte1;
  l.CTE2 = m.cte2;
  return l;
}

// The laminate report and its summary line, from the core's laminate: the
// computation is the entry points' own, so the numbers are theirs.
std::string laminate_report_text(const LaminateOptions& options) {
  std::vector<float> angles;
  std::vector<std::int32_t> material_index;
  parse_stacking_sequence(options.layup(), angles, &material_index);
  const LAMINA m1 = report_lamina(options.material(), options.named(1), "material 1");
  const std::optional<PlyMaterial> second = options.second_material();
  const LAMINATESTIFFNESS laminate =
      second
          ? LAMINATESTIFFNESS(m1, report_lamina(*second, options.named(2), "material 2"),
                              angles, material_index, options.layup())
          : LAMINATESTIFFNESS(m1, angles, options.layup());
  return laminate_report(laminate) + "\n" + laminate_summary(laminate, true);
}

class StiffnessCommand : public Command {
 public:
  explicit StiffnessCommand(CLI::App& program) {
    app_ = program.add_subcommand(
        "stiffness",
        "[A], [B], [D], [D*], apparent constants and bulk data cards of a laminate");
    laminate_.add_to(*app_);
    app_->add_option("--cards", cards_file_,
                     "write the bulk data cards (MAT8, PCOMP, MAT2; CR LF line ends) to "
                     "FILE")
        ->type_name("FILE");
    app_->add_option("--deck", deck_,
                     "the deck --cards writes: established (the deck of the stiffness "
                     "entry points) or solver (the published NASTRAN bulk data card "
                     "formats, LF line ends; see docs/cards.md)")
        ->check(CLI::IsMember({"established", "solver"}))
        ->type_name("NAME");
    app_->add_flag("--crlf", crlf_, "with --deck solver, end the lines in CR LF");
    for (std::size_t k = 0; k < kStrengthOptions.size(); ++k) {
      const StrengthOption& f = kStrengthOptions[k];
      first_[k] = add_real_option(
          *app_, "--" + std::string(f.option), first_text_[k],
          std::string(f.meaning) + " (default the named material's, else none: blank)");
      first_[k]->group("Ply strengths for --deck solver");
      second_[k] = add_real_option(
          *app_, "--m2-" + std::string(f.option), second_text_[k],
          "material 2: " + std::string(f.meaning) + " (default the first's)");
      second_[k]->group("Ply strengths for --deck solver");
    }
    app_->add_flag("--report", report_,
                   "print the laminate report (materials, stacking, apparent constants, "
                   "matrices) and its summary line instead");
    app_->add_flag("--json", json_, "print the results as JSON");
    app_->footer(
        "Examples:\n"
        "  corvane stiffness\n"
        "  corvane stiffness \"(0/90)2S\" --e1 140000 --cards laminate.bdf\n"
        "  corvane stiffness \"(0/45/-45/90)2S\" --deck solver --cards laminate.bdf "
        "--f1t 1500 --f1c 1200 --f2t 40 --f2c 246 --f12 70\n"
        "  corvane stiffness \"(0/45/-45/90)S\" --material T300/5208 --report\n"
        "  corvane stiffness \"(0/45./-45./90)S\" --m2-t 0.2 --m2-e1 60000 --m2-e2 "
        "60000");
  }

  CLI::App& parser() override { return *app_; }

  int run(std::ostream& out, std::ostream& err) override {
    const bool solver = deck_ == "solver";
    if (!solver) {
      for (const auto* options : {&first_, &second_}) {
        for (const CLI::Option* option : *options) {
          if (given(option)) {
            throw UsageError{option->get_name() + " goes with --deck solver"};
          }
        }
      }
      if (crlf_) throw UsageError{"--crlf goes with --deck solver"};
    }
    Output o("stiffness", json_, out, err);
    o.input()["laminate"] = laminate_.describe();
    o.input()["deck"] = deck_;
    if (!cards_file_.empty()) o.input()["cards_file"] = cards_file_;
    const StiffnessResult r = laminate_.compute();
    o.entry_point(r.entry_point);
    if (r.error_code != 0) {
      return o.fail(r.error_code, stiffness_error_meaning(r.error_code),
                    stiffness_failure(r, laminate_));
    }
    Json& results = o.results();
    results["plies"] = r.plies;
    results["symmetric"] = r.symmetric;
    results["thickness"] = json_real(r.h);
    results["a_matrix"] = matrix_json(r.a);
    results["b_matrix"] = matrix_json(r.b);
    results["d_matrix"] = matrix_json(r.d);
    results["d_star_matrix"] = matrix_json(r.dstar);
    results["e_x"] = json_real(r.ex);
    results["e_y"] = json_real(r.ey);
    results["g_xy"] = json_real(r.gxy);
    results["nu_xy"] = json_real(r.nuxy);
    results["alpha_x"] = json_real(r.alphax);
    results["alpha_y"] = json_real(r.alphay);
    results["alpha_xy"] = json_real(r.alphaxy);
    std::string cards = r.cards;
    if (solver) {
      // A named material brings its strengths; options given replace them.
      const auto named = [this](int material, const MaterialStrengths& otherwise) {
        const MaterialEntry* e = laminate_.named(material);
        if (!e) return otherwise;
        const LAMINA& m = e->lamina;
        return MaterialStrengths{m.F1t, m.F1c, m.F2t, m.F2c, m.F12};
      };
      const MaterialStrengths s1 = strengths(first_text_, named(1, MaterialStrengths{}));
      // A --m2- strength asks for material 2 as a --m2- modulus does.
      std::optional<PlyMaterial> m2 = laminate_.second_material();
      if (!m2 && std::any_of(second_.begin(), second_.end(), given)) {
        m2 = laminate_.material();
      }
      const SolverDeckResult deck =
          solver_deck(laminate_.material(), s1, m2, strengths(second_text_, named(2, s1)),
                      laminate_.layup(), crlf_);
      o.entry_point(deck.entry_point);
      if (deck.error_code != 0) {
        return o.fail(deck.error_code, solver_deck_error_meaning(deck.error_code),
                      deck.message);
      }
      cards = deck.deck;
    }
    results["cards"] = cards;

    if (!cards_file_.empty()) {
      std::ofstream file(cards_file_, std::ios::binary);
      file << cards;
      file.close();
      if (!file)
        return o.fail_plain("cannot write the cards to " + cards_file_, kExitFile);
    }
    if (o.json()) return o.finish();
    if (report_) {
      out << laminate_report_text(laminate_);
      if (!cards_file_.empty()) out << "\nCards written to " << cards_file_ << '\n';
      return kExitOk;
    }

    out << "Laminate " << laminate_.layup() << ": " << r.plies << " plies, "
        << (r.symmetric ? "symmetric" : "not symmetric") << '\n';
    const std::optional<PlyMaterial> second = laminate_.second_material();
    out << (second ? "Material 1: " : "Material:   ")
        << material_line(laminate_.material()) << '\n';
    if (second) out << "Material 2: " << material_line(*second) << '\n';
    out << '\n';
    print_matrix(out, "[A]", r.a);
    print_matrix(out, "[B]", r.b);
    print_matrix(out, "[D]", r.d);
    print_matrix(out, "[D*]", r.dstar);
    out << '\n';
    print_value(out, "h", r.h);
    print_value(out, "Ex", r.ex);
    print_value(out, "Ey", r.ey);
    print_value(out, "Gxy", r.gxy);
    print_value(out, "nu_xy", r.nuxy);
    print_value(out, "alpha_x", r.alphax);
    print_value(out, "alpha_y", r.alphay);
    print_value(out, "alpha_xy", r.alphaxy);
    if (!cards_file_.empty()) out << "\nCards written to " << cards_file_ << '\n';
    return kExitOk;
  }

 private:
  // The given strengths, the others those of `defaults`.
  static MaterialStrengths strengths(const std::array<std::string, 5>& texts,
                                     const MaterialStrengths& defaults) {
    MaterialStrengths s = defaults;
    for (std::size_t k = 0; k < texts.size(); ++k) {
      if (!texts[k].empty()) s.*kStrengthOptions[k].value = real_value(texts[k]);
    }
    return s;
  }

  CLI::App* app_ = nullptr;
  LaminateOptions laminate_;
  std::string cards_file_;
  bool report_ = false;
  std::string deck_ = "established";
  bool crlf_ = false;
  std::array<std::string, 5> first_text_, second_text_;
  std::array<CLI::Option*, 5> first_{}, second_{};
  bool json_ = false;
};

}  // namespace

std::unique_ptr<Command> add_stiffness_command(CLI::App& program) {
  return std::make_unique<StiffnessCommand>(program);
}

}  // namespace corvane::cli
