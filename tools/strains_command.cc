// corvane strains: membrane strains of a laminate under running loads.
#include <ostream>

#include "command_line.h"
#include "commands.h"
#include "corvane/corvane.h"
#include "number_text.h"

namespace corvane::cli {
namespace {

class StrainsCommand : public Command {
 public:
  explicit StrainsCommand(CLI::App& program) {
    app_ = program.add_subcommand(
        "strains", "Membrane strains of a laminate under running loads Nx, Ny, Nxy");
    const std::string loads = "Running loads (force per width; default 0)";
    add_real_option(*app_, "--nx", nx_, "running load in x")->group(loads);
    add_real_option(*app_, "--ny", ny_, "running load in y")->group(loads);
    add_real_option(*app_, "--nxy", nxy_, "running shear load")->group(loads);
    const std::string direct =
        "Laminate constants, all five together, in place of a material and layup";
    for (std::size_t k = 0; k < kConstants.size(); ++k) {
      constants_[k] = add_real_option(*app_, std::string(kConstants[k].option),
                                      constant_text_[k], std::string(kConstants[k].help));
      constants_[k]->group(direct);
    }
    // The thickness was --h, which read like -h for help; the old spelling
    // stays, hidden, for one version.
    old_h_ = add_real_option(*app_, "--h", old_h_text_, "")->group("");
    laminate_.add_to(*app_);
    app_->add_flag("--json", json_, "print the results as JSON");
    app_->footer(
        "The laminate constants come from a ply material and layup (the built-in tape "
        "and\n"
        "(0/45/-45/90)S by default) or are given with --thickness --ex --ey --gxy "
        "--nuxy.\n"
        "Examples:\n"
        "  corvane strains --nx 100 --nxy 20\n"
        "  corvane strains \"(0/90)2S\" --nx -250\n"
        "  corvane strains --thickness 1 --ex 52000 --ey 52000 --gxy 20000 --nuxy 0.3 "
        "--nx 100");
  }

  CLI::App& parser() override { return *app_; }

  int run(std::ostream& out, std::ostream& err) override {
    Output o("strains", json_, out, err);
    if (given(old_h_)) {
      if (given(constants_[0]))
        throw UsageError{"give --thickness once (--h is its old name)"};
      constant_text_[0] = old_h_text_;
    }
    float c[5];  // h, Ex, Ey, Gxy, nuxy
    const float loads[3] = {value_or_zero(nx_), value_or_zero(ny_), value_or_zero(nxy_)};
    const std::size_t direct = count_direct();
    if (direct > 0) {
      if (direct < kConstants.size()) {
        throw UsageError{"give all of --thickness --ex --ey --gxy --nuxy, or none"};
      }
      if (laminate_.any_given()) {
        throw UsageError{
            "--thickness --ex --ey --gxy --nuxy replace the material and layup: drop " +
            laminate_.first_given()};
      }
      for (std::size_t k = 0; k < kConstants.size(); ++k) {
        c[k] = real_value(constant_text_[k]);
      }
      o.input()["laminate_constants"] = constants_json(c);
    } else {
      o.input()["laminate"] = laminate_.describe();
    }
    o.input()["loads"] = {{"n_x", json_real(loads[0])},
                          {"n_y", json_real(loads[1])},
                          {"n_xy", json_real(loads[2])}};
    if (direct == 0) {
      const StiffnessResult r = laminate_.compute();
      o.entry_point(r.entry_point);
      if (r.error_code != 0) {
        return o.fail(r.error_code, stiffness_error_meaning(r.error_code),
                      stiffness_failure(r, laminate_));
      }
      c[0] = r.h;
      c[1] = r.ex;
      c[2] = r.ey;
      c[3] = r.gxy;
      c[4] = r.nuxy;
    }
    float strains[5] = {0.0f, 0.0f, 0.0f, 0.0f, 0.0f};
    std::int32_t ierr = 0;
    LAMINATE_STRAINS_IN_PLANE(&c[0], &c[1], &c[2], &c[3], &c[4], &loads[0], &loads[1],
                              &loads[2], &strains[0], &strains[1], &strains[2],
                              &strains[3], &strains[4], &ierr);
    o.entry_point("LAMINATE_STRAINS_IN_PLANE");
    if (ierr != 0) {
      std::string what = "the strains could not be computed";
      for (std::size_t k = 1; k <= 3; ++k) {
        if (c[k] < 1.0e-6f) {
          what = std::string(kConstants[k].label) + " = " + format_general(c[k]) +
                 " is below 1e-6";
          break;
        }
      }
      return o.fail(ierr, ierr == 1 ? "Ex, Ey or Gxy below 1e-6" : "unknown error", what);
    }
    Json& results = o.results();
    results["laminate_constants"] = constants_json(c);
    for (std::size_t k = 0; k < kStrains.size(); ++k) {
      results[std::string(kStrains[k].key)] = json_real(strains[k]);
    }
    if (o.json()) return o.finish();

    out << "Laminate:";
    if (direct == 0) out << ' ' << laminate_.layup() << ',';
    for (std::size_t k = 0; k < kConstants.size(); ++k) {
      out << (k == 0 ? " " : ", ") << kConstants[k].label << " = "
          << format_general(c[k]);
    }
    out << "\nLoads:    Nx = " << format_general(loads[0])
        << ", Ny = " << format_general(loads[1]) << ", Nxy = " << format_general(loads[2])
        << "\n\n";
    for (std::size_t k = 0; k < kStrains.size(); ++k) {
      print_value(out, kStrains[k].label, strains[k]);
    }
    return kExitOk;
  }

 private:
  struct Name {
    std::string_view option, key, label, help;
  };
  static constexpr std::array<Name, 5> kConstants{{
      {"--thickness", "thickness", "h", "laminate thickness"},
      {"--ex", "e_x", "Ex", "apparent membrane modulus in x"},
      {"--ey", "e_y", "Ey", "apparent membrane modulus in y"},
      {"--gxy", "g_xy", "Gxy", "apparent membrane shear modulus"},
      {"--nuxy", "nu_xy", "nu_xy", "apparent membrane Poisson's ratio"},
  }};
  static constexpr std::array<Name, 5> kStrains{{
      {"", "eps_x", "eps_x", ""},
      {"", "eps_y", "eps_y", ""},
      {"", "gamma_xy", "gamma_xy", ""},
      {"", "eps_p45", "eps_+45", ""},
      {"", "eps_m45", "eps_-45", ""},
  }};

  static Json constants_json(const float c[5]) {
    Json j = Json::object();
    for (std::size_t k = 0; k < kConstants.size(); ++k) {
      j[std::string(kConstants[k].key)] = json_real(c[k]);
    }
    return j;
  }

  std::size_t count_direct() const {
    std::size_t n = given(old_h_) ? 1 : 0;
    for (const CLI::Option* option : constants_) n += given(option) ? 1 : 0;
    return n;
  }

  static float value_or_zero(const std::string& text) {
    return text.empty() ? 0.0f : real_value(text);
  }

  CLI::App* app_ = nullptr;
  LaminateOptions laminate_;
  std::array<std::string, 5> constant_text_;
  std::array<CLI::Option*, 5> constants_{};
  std::string old_h_text_;
  CLI::Option* old_h_ = nullptr;
  std::string nx_, ny_, nxy_;
  bool json_ = false;
};

}  // namespace

std::unique_ptr<Command> add_strains_command(CLI::App& program) {
  return std::make_unique<StrainsCommand>(program);
}

}  // namespace corvane::cli
