// corvane stiffness: [A], [B], [D], [D*], the apparent constants and the bulk
// data cards of a laminate, in the established deck or the solver deck.
#include <algorithm>
#include <array>
#include <fstream>
#include <ostream>

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
      first_[k] = add_real_option(*app_, "--" + std::string(f.option), first_text_[k],
                                  std::string(f.meaning) + " (default none: blank)");
      first_[k]->group("Ply strengths for --deck solver");
      second_[k] = add_real_option(
          *app_, "--m2-" + std::string(f.option), second_text_[k],
          "material 2: " + std::string(f.meaning) + " (default the first's)");
      second_[k]->group("Ply strengths for --deck solver");
    }
    app_->add_flag("--json", json_, "print the results as JSON");
    app_->footer(
        "Examples:\n"
        "  corvane stiffness\n"
        "  corvane stiffness \"(0/90)2S\" --e1 140000 --cards laminate.bdf\n"
        "  corvane stiffness \"(0/45/-45/90)2S\" --deck solver --cards laminate.bdf "
        "--f1t 1500 --f1c 1200 --f2t 40 --f2c 246 --f12 70\n"
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
    const StiffnessResult r = laminate_.compute();
    Json& data = o.data();
    data.update(laminate_.describe());
    data["entry_point"] = r.entry_point;
    if (r.error_code != 0) {
      return o.fail(r.error_code, stiffness_error_meaning(r.error_code),
                    stiffness_failure(r, laminate_));
    }
    data["error_code"] = 0;
    data["plies"] = r.plies;
    data["symmetric"] = r.symmetric;
    data["h"] = json_real(r.h);
    data["A"] = matrix_json(r.a);
    data["B"] = matrix_json(r.b);
    data["D"] = matrix_json(r.d);
    data["Dstar"] = matrix_json(r.dstar);
    data["Ex"] = json_real(r.ex);
    data["Ey"] = json_real(r.ey);
    data["Gxy"] = json_real(r.gxy);
    data["nuxy"] = json_real(r.nuxy);
    data["alphax"] = json_real(r.alphax);
    data["alphay"] = json_real(r.alphay);
    data["alphaxy"] = json_real(r.alphaxy);
    data["deck"] = deck_;
    std::string cards = r.cards;
    if (solver) {
      const MaterialStrengths s1 = strengths(first_text_, MaterialStrengths{});
      // A --m2- strength asks for material 2 as a --m2- modulus does.
      std::optional<PlyMaterial> m2 = laminate_.second_material();
      if (!m2 && std::any_of(second_.begin(), second_.end(), given)) {
        m2 = laminate_.material();
      }
      const SolverDeckResult deck =
          solver_deck(laminate_.material(), s1, m2, strengths(second_text_, s1),
                      laminate_.layup(), crlf_);
      data["entry_point"] = deck.entry_point;
      if (deck.error_code != 0) {
        return o.fail(deck.error_code, solver_deck_error_meaning(deck.error_code),
                      deck.message);
      }
      cards = deck.deck;
    }
    data["cards"] = cards;

    if (!cards_file_.empty()) {
      std::ofstream file(cards_file_, std::ios::binary);
      file << cards;
      file.close();
      if (!file) {
        o.error_line("cannot write the cards to " + cards_file_);
        return kExitFile;
      }
    }
    if (o.json()) return o.finish();

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
