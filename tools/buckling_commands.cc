// corvane plate-buckling, reserve-factor and shell-buckling: critical running
// loads of flat plates and curved panels, and the reserve factor of applied
// loads.
#include <optional>
#include <ostream>

#include "command_line.h"
#include "commands.h"
#include "corvane/corvane.h"
#include "number_text.h"

namespace corvane::cli {
namespace {

constexpr std::string_view kLaminateNote =
    "[D] comes from a ply material and layup (the built-in tape and (0/45/-45/90)S by\n"
    "default) or is given with --D as six terms X11,X12,X16,X22,X26,X66 (the upper\n"
    "triangle, row by row).\n";

// Where a command's [D], and for shells [A] and the thickness, come from:
// given directly, or computed from a material and layup.
class StiffnessSource {
 public:
  struct Values {
    Matrix a{}, d{};
    float h = 0.0f;
  };

  void add_to(CLI::App& app, bool shell) {
    shell_ = shell;
    const std::string group = shell
                                  ? "Stiffness given directly (--A, --D and --h together)"
                                  : "Stiffness given directly";
    d_ = add_matrix_option(app, "--D", d_text_, "bending stiffness [D]")->group(group);
    if (shell) {
      a_ = add_matrix_option(app, "--A", a_text_, "membrane stiffness [A]")->group(group);
      h_ = add_real_option(app, "--thickness", h_text_, "wall thickness")->group(group);
      // The thickness was --h, which read like -h for help; the old spelling
      // stays, hidden, for one version.
      old_h_ = add_real_option(app, "--h", old_h_text_, "")->group("");
    }
    laminate_.add_to(app);
  }

  bool any_given() const { return direct() || laminate_.any_given(); }
  std::string first_given() const {
    if (given(d_)) return "--D";
    if (given(a_)) return "--A";
    if (given(h_)) return "--thickness";
    if (given(old_h_)) return "--h";
    return laminate_.first_given();
  }

  // The matrices; nothing after a failed stiffness computation, which has
  // then been reported through `o`.
  std::optional<Values> get(Output& o) const {
    Values v;
    if (given(h_) && given(old_h_)) {
      throw UsageError{"give --thickness once (--h is its old name)"};
    }
    const bool thickness = given(h_) || given(old_h_);
    if (direct()) {
      if (shell_ && !(given(d_) && given(a_) && thickness)) {
        throw UsageError{"give all of --A, --D and --thickness, or none"};
      }
      if (laminate_.any_given()) {
        throw UsageError{
            std::string(shell_ ? "--A, --D and --h replace" : "--D replaces") +
            " the material and layup: drop " + laminate_.first_given()};
      }
      v.d = matrix_value(d_text_);
      if (shell_) {
        v.a = matrix_value(a_text_);
        v.h = real_value(given(h_) ? h_text_ : old_h_text_);
        o.input()["a_matrix"] = matrix_json(v.a);
        o.input()["thickness"] = json_real(v.h);
      }
      o.input()["d_matrix"] = matrix_json(v.d);
    } else {
      o.input()["laminate"] = laminate_.describe();
      const StiffnessResult r = laminate_.compute();
      o.entry_point(r.entry_point);
      if (r.error_code != 0) {
        o.fail(r.error_code, stiffness_error_meaning(r.error_code),
               stiffness_failure(r, laminate_));
        return std::nullopt;
      }
      v.a = r.a;
      v.d = r.d;
      v.h = r.h;
    }
    if (shell_) {
      o.results()["a_matrix"] = matrix_json(v.a);
      o.results()["thickness"] = json_real(v.h);
    }
    o.results()["d_matrix"] = matrix_json(v.d);
    return v;
  }

  // One line saying where the matrices came from.
  std::string origin() const {
    if (given(d_)) return "given";
    return "of " + laminate_.layup();
  }

 private:
  bool direct() const { return given(d_) || given(a_) || given(h_) || given(old_h_); }

  bool shell_ = false;
  std::string d_text_, a_text_, h_text_, old_h_text_;
  CLI::Option *d_ = nullptr, *a_ = nullptr, *h_ = nullptr, *old_h_ = nullptr;
  LaminateOptions laminate_;
};

std::string not_positive(std::string_view name, float value) {
  return std::string(name) + " = " + format_general(value) + " is not positive";
}

// Why the plate's critical loads are zero.
std::string no_plate_load_reason(const Matrix& d, float a, float b) {
  const std::pair<std::string_view, float> inputs[] = {{"plate length a (--a)", a},
                                                       {"plate width b (--b)", b},
                                                       {"D11", d[0]},
                                                       {"D12", d[3]},
                                                       {"D22", d[4]},
                                                       {"D66", d[8]}};
  for (const auto& [name, value] : inputs) {
    if (!(value > 0.0f)) return not_positive(name, value);
  }
  return "the half-wave search did not converge";
}

void critical_loads_json(Json& j, const float loads[3]) {
  j["n_x_cr"] = json_real(loads[0]);
  j["n_y_cr"] = json_real(loads[1]);
  j["n_xy_cr"] = json_real(loads[2]);
}

// The plate's dimensions and critical loads.
struct Plate {
  std::string a_text, b_text;
  CLI::Option *a = nullptr, *b = nullptr;

  void add_to(CLI::App& app, bool required) {
    const std::string group = "Plate (simply supported on all edges)";
    a = add_real_option(app, "--a,--length", a_text, "plate length along x")
            ->group(group);
    b = add_real_option(app, "--b,--width", b_text, "plate width along y")->group(group);
    if (required) {
      a->required();
      b->required();
    }
  }

  // Calls the loads entry point and records inputs and results.
  void critical_loads(Output& o, const Matrix& d, float loads[3],
                      std::int32_t& ierr) const {
    const float length = real_value(a_text), width = real_value(b_text);
    loads[0] = loads[1] = loads[2] = 0.0f;
    LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS(d.data(), &length, &width, &loads[0],
                                           &loads[1], &loads[2], &ierr);
    o.input()["plate"] = {{"length", json_real(length)}, {"width", json_real(width)}};
    o.entry_point("LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS");
    critical_loads_json(o.results(), loads);
  }

  // The loads that came out zero and why, or an empty text.
  std::string zero_loads(const Matrix& d, const float loads[3]) const {
    static constexpr std::string_view kNames[3] = {"Nx", "Ny", "Nxy"};
    std::string names;
    for (int k = 0; k < 3; ++k) {
      if (loads[k] == 0.0f) names += (names.empty() ? "" : ", ") + std::string(kNames[k]);
    }
    if (names.empty()) return {};
    return "no critical load found for " + names + ": " +
           no_plate_load_reason(d, real_value(a_text), real_value(b_text));
  }
};

void print_critical_loads(std::ostream& out, const float loads[3]) {
  print_value(out, "Nx,cr", loads[0], 6);
  print_value(out, "Ny,cr", loads[1], 6);
  print_value(out, "Nxy,cr", loads[2], 6);
}

class PlateBucklingCommand : public Command {
 public:
  explicit PlateBucklingCommand(CLI::App& program) {
    app_ = program.add_subcommand(
        "plate-buckling", "Critical loads of a simply supported flat rectangular plate");
    plate_.add_to(*app_, true);
    stiffness_.add_to(*app_, false);
    app_->add_flag("--json", json_, "print the results as JSON");
    app_->footer(
        "Critical compression in x and y and critical shear, as positive magnitudes, of "
        "a\n"
        "plate simply supported on all edges; the plate is taken as specially "
        "orthotropic\n"
        "(only D11, D12, D22 and D66 count). A load of 0 means none was found.\n" +
        std::string(kLaminateNote) +
        "Examples:\n"
        "  corvane plate-buckling --a 500 --b 200\n"
        "  corvane plate-buckling \"(45/-45/0/90)2S\" --a 600 --b 150\n"
        "  corvane plate-buckling --D 8000,2500,0,6000,0,3000 --a 500 --b 200");
  }

  CLI::App& parser() override { return *app_; }

  int run(std::ostream& out, std::ostream& err) override {
    Output o("plate-buckling", json_, out, err);
    const auto stiffness = stiffness_.get(o);
    if (!stiffness) return kExitFailed;
    float loads[3];
    std::int32_t ierr = 0;
    plate_.critical_loads(o, stiffness->d, loads, ierr);
    if (!o.json()) {
      out << "Plate a = " << plate_.a_text << ", b = " << plate_.b_text << ", [D] "
          << stiffness_.origin() << "\n\n";
      print_matrix(out, "[D]", stiffness->d);
      out << '\n';
      print_critical_loads(out, loads);
    }
    // The loads entry point reports nothing of its own: a load of 0 is one not
    // found.
    if (const std::string what = plate_.zero_loads(stiffness->d, loads); !what.empty()) {
      return o.fail_plain(what);
    }
    return o.finish();
  }

 private:
  CLI::App* app_ = nullptr;
  Plate plate_;
  StiffnessSource stiffness_;
  bool json_ = false;
};

class ReserveFactorCommand : public Command {
 public:
  explicit ReserveFactorCommand(CLI::App& program) {
    app_ = program.add_subcommand(
        "reserve-factor",
        "Buckling reserve factor of running loads on a simply supported plate");
    const std::string applied = "Applied running loads (compression negative; default 0)";
    add_real_option(*app_, "--nx", applied_text_[0], "applied Nx")->group(applied);
    add_real_option(*app_, "--ny", applied_text_[1], "applied Ny")->group(applied);
    add_real_option(*app_, "--nxy", applied_text_[2], "applied Nxy")->group(applied);
    const std::string critical =
        "Critical loads, all three together, in place of a plate";
    critical_[0] = add_real_option(*app_, "--nxcr", critical_text_[0], "critical Nx");
    critical_[1] = add_real_option(*app_, "--nycr", critical_text_[1], "critical Ny");
    critical_[2] = add_real_option(*app_, "--nxycr", critical_text_[2], "critical Nxy");
    for (CLI::Option* option : critical_) option->group(critical);
    plate_.add_to(*app_, false);
    stiffness_.add_to(*app_, false);
    app_->add_flag("--json", json_, "print the results as JSON");
    app_->footer(
        "The critical loads are given (--nxcr --nycr --nxycr) or computed for a plate\n"
        "(--a --b, with --D or a material and layup) as plate-buckling does.\n" +
        std::string(kLaminateNote) +
        "Examples:\n"
        "  corvane reserve-factor --a 500 --b 200 --nx -30 --nxy 10\n"
        "  corvane reserve-factor --nxcr 120 --nycr 80 --nxycr 150 --nx -60");
  }

  CLI::App& parser() override { return *app_; }

  int run(std::ostream& out, std::ostream& err) override {
    Output o("reserve-factor", json_, out, err);
    float applied[3], critical[3];
    for (int k = 0; k < 3; ++k) {
      applied[k] = applied_text_[k].empty() ? 0.0f : real_value(applied_text_[k]);
    }
    o.input()["loads"] = {{"n_x", json_real(applied[0])},
                          {"n_y", json_real(applied[1])},
                          {"n_xy", json_real(applied[2])}};
    std::optional<StiffnessSource::Values> stiffness;
    int critical_given = 0;
    for (const CLI::Option* option : critical_) critical_given += given(option) ? 1 : 0;
    if (critical_given > 0) {
      if (critical_given < 3)
        throw UsageError{"give all of --nxcr --nycr --nxycr, or none"};
      if (given(plate_.a) || given(plate_.b) || stiffness_.any_given()) {
        const std::string clash = given(plate_.a)   ? "--a"
                                  : given(plate_.b) ? "--b"
                                                    : stiffness_.first_given();
        throw UsageError{"the critical loads replace the plate: drop " + clash};
      }
      for (int k = 0; k < 3; ++k) critical[k] = real_value(critical_text_[k]);
      critical_loads_json(o.input()["critical_loads"], critical);
    } else {
      if (!given(plate_.a) || !given(plate_.b)) {
        throw UsageError{
            "give the critical loads (--nxcr --nycr --nxycr) or the plate (--a and --b)"};
      }
      stiffness = stiffness_.get(o);
      if (!stiffness) return kExitFailed;
      std::int32_t loads_error = 0;
      plate_.critical_loads(o, stiffness->d, critical, loads_error);
    }

    float rf = 0.0f;
    std::int32_t ierr = 0;
    LAMINATE_RECTANGULAR_SS_BUCKLING_RF(&applied[0], &applied[1], &applied[2],
                                        &critical[0], &critical[1], &critical[2], &rf,
                                        &ierr);
    critical_loads_json(o.results(), critical);
    o.entry_point("LAMINATE_RECTANGULAR_SS_BUCKLING_RF");
    if (ierr != 0) {
      static constexpr std::string_view kNames[3] = {"Nx", "Ny", "Nxy"};
      std::string what = "the reserve factor could not be computed";
      for (int k = 0; k < 3; ++k) {
        if (critical[k] < 1.0e-6f) {
          what = "the critical " + std::string(kNames[k]) + " = " +
                 format_general(critical[k]) + " is below 1e-6";
          if (stiffness) {
            what += "; " + plate_.zero_loads(stiffness->d, critical);
          }
          break;
        }
      }
      return o.fail(ierr, ierr == 1 ? "a critical load is below 1e-6" : "unknown error",
                    what);
    }
    o.results()["rf"] = json_real(rf);
    if (o.json()) return o.finish();

    out << "Applied loads:  Nx = " << format_general(applied[0])
        << ", Ny = " << format_general(applied[1])
        << ", Nxy = " << format_general(applied[2]) << '\n';
    out << "Critical loads: Nx,cr = " << format_general(critical[0])
        << ", Ny,cr = " << format_general(critical[1])
        << ", Nxy,cr = " << format_general(critical[2]);
    if (stiffness) {
      out << " (plate a = " << plate_.a_text << ", b = " << plate_.b_text << ", [D] "
          << stiffness_.origin() << ")";
    }
    out << "\n\n";
    print_value(out, "RF", rf, 2);
    if (rf == 100000.0f) out << "(the cap: nothing compresses or shears the plate)\n";
    return kExitOk;
  }

 private:
  CLI::App* app_ = nullptr;
  std::array<std::string, 3> applied_text_, critical_text_;
  std::array<CLI::Option*, 3> critical_{};
  Plate plate_;
  StiffnessSource stiffness_;
  bool json_ = false;
};

// corvane.h documents one shell error code besides 0.
std::string shell_error_meaning(std::int32_t code) {
  switch (code) {
    case 0:
      return "success";
    case 1:
      return "non-positive input to the flat-panel shear estimate";
    default:
      return "undocumented error code";
  }
}

class ShellBucklingCommand : public Command {
 public:
  explicit ShellBucklingCommand(CLI::App& program) {
    app_ = program.add_subcommand("shell-buckling",
                                  "Critical loads of a curved panel or cylinder");
    const std::string group = "Panel";
    add_real_option(*app_, "--l,--length", l_text_, "axial length")
        ->group(group)
        ->required();
    add_real_option(*app_, "--b,--width", b_text_, "circumferential panel width (arc)")
        ->group(group)
        ->required();
    add_real_option(*app_, "--r,--radius", r_text_, "radius (0 or less: flat panel)")
        ->group(group)
        ->required();
    stiffness_.add_to(*app_, true);
    app_->add_flag("--json", json_, "print the results as JSON");
    app_->footer(
        "Critical axial and circumferential compression and critical shear, as positive\n"
        "magnitudes, each the larger of a whole-cylinder and a curved-panel estimate.\n"
        "[A], [D] and the wall thickness come from a ply material and layup (the "
        "built-in\n"
        "tape and (0/45/-45/90)S by default) or are given with --A, --D (six terms\n"
        "X11,X12,X16,X22,X26,X66 each) and --thickness.\n"
        "Examples:\n"
        "  corvane shell-buckling --l 600 --b 300 --r 1500\n"
        "  corvane shell-buckling \"(45/-45/0/90)2S\" --l 600 --b 300 --r 1500 --json");
  }

  CLI::App& parser() override { return *app_; }

  int run(std::ostream& out, std::ostream& err) override {
    Output o("shell-buckling", json_, out, err);
    const float l = real_value(l_text_), b = real_value(b_text_), r = real_value(r_text_);
    o.input()["panel"] = {
        {"length", json_real(l)}, {"width", json_real(b)}, {"radius", json_real(r)}};
    const auto stiffness = stiffness_.get(o);
    if (!stiffness) return kExitFailed;
    float loads[3] = {0.0f, 0.0f, 0.0f};
    std::int32_t ierr = 0;
    LAMINATE_SHELL_BUCKLING_LOADS(stiffness->a.data(), stiffness->d.data(), &l, &b, &r,
                                  &stiffness->h, &loads[0], &loads[1], &loads[2], &ierr);
    o.entry_point("LAMINATE_SHELL_BUCKLING_LOADS");
    critical_loads_json(o.results(), loads);
    if (!o.json()) {
      out << "Panel L = " << l_text_ << ", b = " << b_text_ << ", R = " << r_text_
          << ", t = " << format_general(stiffness->h) << ", [A] and [D] "
          << stiffness_.origin() << "\n\n";
      print_matrix(out, "[A]", stiffness->a);
      print_matrix(out, "[D]", stiffness->d);
      out << '\n';
      print_critical_loads(out, loads);
    }
    if (ierr != 0) {
      std::string what = "the library reported an error";
      if (ierr == 1) {
        const Matrix& d = stiffness->d;
        const std::pair<std::string_view, float> inputs[] = {{"axial length L (--l)", l},
                                                             {"panel width b (--b)", b},
                                                             {"D11", d[0]},
                                                             {"D12", d[3]},
                                                             {"D22", d[4]},
                                                             {"D66", d[8]}};
        for (const auto& [name, value] : inputs) {
          if (!(value > 0.0f)) {
            what = not_positive(name, value) + ", so the flat-panel shear estimate is 0";
            break;
          }
        }
      }
      return o.fail(ierr, shell_error_meaning(ierr), what);
    }
    return o.finish();
  }

 private:
  CLI::App* app_ = nullptr;
  std::string l_text_, b_text_, r_text_;
  StiffnessSource stiffness_;
  bool json_ = false;
};

}  // namespace

std::unique_ptr<Command> add_plate_buckling_command(CLI::App& program) {
  return std::make_unique<PlateBucklingCommand>(program);
}
std::unique_ptr<Command> add_reserve_factor_command(CLI::App& program) {
  return std::make_unique<ReserveFactorCommand>(program);
}
std::unique_ptr<Command> add_shell_buckling_command(CLI::App& program) {
  return std::make_unique<ShellBucklingCommand>(program);
}

}  // namespace corvane::cli
