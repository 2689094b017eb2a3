// The corvane command: laminate stiffness, strains, buckling loads, ply strength
// and section crippling from a terminal, through the library's entry points
// (strength and crippling through the core).
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "command_line.h"
#include "commands.h"

#ifndef CORVANE_VERSION
#define CORVANE_VERSION "unknown"
#endif

int main(int argc, char** argv) {
  using namespace corvane::cli;
  CLI::App program(
      "corvane: stiffness, strains, buckling loads, ply strength and section crippling\n"
      "of fibre-reinforced laminates. Units are any consistent set; the built-in\n"
      "material is in mm, MPa and 1/K: a carbon/epoxy tape with t = 0.125,\n"
      "E1 = 135000, E2 = 10000, G12 = 5000, nu12 = 0.3, CTE1 = -0.3e-6, CTE2 = 28e-6\n"
      "and the strengths of T300/5208 (Tsai and Hahn 1980), F1t = F1c = 1500,\n"
      "F2t = 40, F2c = 246, F12 = 68;\n"
      "the default layup is (0/45/-45/90)S.",
      "corvane");
  program.set_version_flag("--version", std::string("corvane ") + CORVANE_VERSION);
  program.require_subcommand(1);

  std::vector<std::unique_ptr<Command>> commands;
  commands.push_back(add_stiffness_command(program));
  commands.push_back(add_strains_command(program));
  commands.push_back(add_plate_buckling_command(program));
  commands.push_back(add_reserve_factor_command(program));
  commands.push_back(add_shell_buckling_command(program));
  commands.push_back(add_strength_command(program));
  commands.push_back(add_notched_command(program));
  commands.push_back(add_impact_command(program));
  commands.push_back(add_crippling_command(program));
  commands.push_back(add_materials_command(program));
  program.footer(
      "Run \"corvane COMMAND --help\" for a command's options and examples.\n"
      "Exit status: 0 success, 1 the library refused the input or found no result\n"
      "(or a load-case file is faulty), 2 a wrong command line, 3 an output file could\n"
      "not be written.");

  // The name of the chosen command, for error lines.
  const auto command_name = [&]() -> std::string {
    for (const auto& command : commands) {
      if (command->parser().parsed()) return "corvane " + command->parser().get_name();
    }
    return "corvane";
  };
  // A failure outside a command's own run, on standard error and, when JSON
  // was asked for, as the JSON envelope on standard output.
  const bool json = std::any_of(argv + 1, argv + argc, [](const char* a) {
    return std::string_view(a) == "--json";
  });
  const auto failure = [&](const std::string& message, int status) {
    std::cerr << command_name() << ": " << message << '\n';
    if (json) {
      const std::string name = command_name();
      print_failure_json(std::cout, name == "corvane" ? name : name.substr(8), status,
                         message);
    }
    return status;
  };

  // Without this the parser would only say that a command is required.
  if (argc > 1 && argv[1][0] != '-') {
    const std::string name = argv[1];
    bool known = false;
    std::string names;
    for (const auto& command : commands) {
      known = known || command->parser().get_name() == name;
      names += (names.empty() ? "" : ", ") + command->parser().get_name();
    }
    if (!known) {
      return failure("unknown command \"" + name + "\"; the commands are " + names,
                     kExitUsage);
    }
  }

  try {
    program.parse(argc, argv);
  } catch (const CLI::CallForHelp& e) {
    return program.exit(e);
  } catch (const CLI::CallForAllHelp& e) {
    return program.exit(e);
  } catch (const CLI::CallForVersion& e) {
    std::cout << e.what() << '\n';
    return kExitOk;
  } catch (const CLI::ParseError& e) {
    return failure(std::string(e.what()) + " (see --help)", kExitUsage);
  }

  for (const auto& command : commands) {
    if (!command->parser().parsed()) continue;
    try {
      return command->run(std::cout, std::cerr);
    } catch (const UsageError& e) {
      return failure(e.message + " (see --help)", kExitUsage);
    } catch (const std::exception& e) {
      return failure(e.what(), kExitFailed);
    }
  }
  return kExitUsage;
}
