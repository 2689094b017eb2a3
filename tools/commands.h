// The subcommands of the corvane program. Each adds itself, with its options,
// to the top-level parser and runs once the command line has been parsed.
#pragma once

#include <CLI/CLI.hpp>
#include <iosfwd>
#include <memory>

namespace corvane::cli {

class Command {
 public:
  virtual ~Command() = default;
  // The subcommand's parser: parsed() tells whether it was chosen.
  virtual CLI::App& parser() = 0;
  // Returns the exit status; throws UsageError for a wrong combination of
  // options.
  virtual int run(std::ostream& out, std::ostream& err) = 0;
};

std::unique_ptr<Command> add_stiffness_command(CLI::App& program);
std::unique_ptr<Command> add_strains_command(CLI::App& program);
std::unique_ptr<Command> add_plate_buckling_command(CLI::App& program);
std::unique_ptr<Command> add_reserve_factor_command(CLI::App& program);
std::unique_ptr<Command> add_shell_buckling_command(CLI::App& program);
std::unique_ptr<Command> add_strength_command(CLI::App& program);
std::unique_ptr<Command> add_crippling_command(CLI::App& program);
std::unique_ptr<Command> add_materials_command(CLI::App& program);
std::unique_ptr<Command> add_notched_command(CLI::App& program);
std::unique_ptr<Command> add_impact_command(CLI::App& program);

}  // namespace corvane::cli
