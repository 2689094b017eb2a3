// Pieces shared by the commands: options that take reals and matrices, the
// options that describe a laminate (ply materials and layup), and the way a
// command reports its results and failures (text, or JSON for scripts).
#pragma once

#include <CLI/CLI.hpp>
#include <array>
#include <cstdint>
#include <iosfwd>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "laminate_call.h"
#include "material_lookup.h"

namespace corvane::cli {

// Exit statuses of the program.
inline constexpr int kExitOk = 0;
inline constexpr int kExitFailed = 1;  // the library refused the input or found no result
inline constexpr int kExitUsage = 2;   // the command line is wrong
inline constexpr int kExitFile = 3;    // an output file could not be written

using Json = nlohmann::ordered_json;

// A mistake in the command line found after parsing (a missing or clashing
// option); main prints it like the parser's own errors.
struct UsageError {
  std::string message;
};

// "--name REAL": the text must read as a finite real. The value stays text
// until real_value() reads it.
CLI::Option* add_real_option(CLI::App& app, const std::string& names, std::string& text,
                             const std::string& help);
float real_value(const std::string& text);

// "--name X11,X12,X16,X22,X26,X66": a symmetric 3x3 matrix.
CLI::Option* add_matrix_option(CLI::App& app, const std::string& names, std::string& text,
                               const std::string& help);
Matrix matrix_value(const std::string& text);

bool given(const CLI::Option* option);

// The ply material options (--material NAME or --t ... --cte2 for the first
// material, --material2 NAME or --m2-t ... --m2-cte2 for the second; a value
// given overrides the named material's) and the layup, positional or --layup.
class LaminateOptions {
 public:
  void add_to(CLI::App& app);

  // True when any of these options or the layup was given.
  bool any_given() const;
  // The first of them that was given, as written on the command line.
  std::string first_given() const;

  const std::string& layup() const { return layup_; }
  // The named material 1 or 2 (--material, --material2), or null; throws
  // MaterialDataError for a faulty file or an unknown name.
  const MaterialEntry* named(int material) const;
  const MaterialLookup& lookup() const { return lookup_; }
  PlyMaterial material() const;
  // The second material, when the layup has a ply of it or a --m2- option was
  // given; values not given are those of the first material.
  std::optional<PlyMaterial> second_material() const;

  // Computes the stiffness; throws UsageError for a layup too long to pass.
  StiffnessResult compute() const;

  // The layup and materials, for JSON: {"layup", "materials": [...]}.
  Json describe() const;

 private:
  std::array<std::string, 7> first_text_, second_text_;
  std::array<CLI::Option*, 7> first_{}, second_{};
  std::string layup_{kDefaultLayup};
  CLI::Option* layup_option_ = nullptr;
  std::array<std::string, 2> names_;
  std::array<CLI::Option*, 2> name_options_{};
  MaterialLookup lookup_;
};

// A named material's seven values.
PlyMaterial ply_material(const LAMINA& m);

// What went wrong in a stiffness computation, in words (without the code).
std::string stiffness_failure(const StiffnessResult& result,
                              const LaminateOptions& options);

// The version of the JSON every command prints with --json; it changes when a
// key is renamed or removed or its meaning changes (docs/corvane-cli.schema.json).
inline constexpr int kSchemaVersion = 1;

// Where a command writes. With --json, standard output gets one JSON object,
// the same envelope for every command:
//   {"command", "schema_version", "corvane_version", "input": the inputs as
//    understood, "results"}                                     on success,
//   {"command", ..., "input", "error": {"code": the exit status,
//    "library_code" and "meaning" where the library gave a code, "message"}}
// on failure; every failure also writes its one line to standard error.
class Output {
 public:
  Output(std::string command, bool json, std::ostream& out, std::ostream& err);

  bool json() const { return json_; }
  Json& input() { return data_["input"]; }
  Json& results() { return data_["results"]; }
  // Records a call of one of the library's entry points in the results.
  void entry_point(std::string_view name);

  // The library refused the input or found no result: writes to standard
  // error
  //   corvane <command>: <what> (library error code <code>: <meaning>)
  // and, for --json, the envelope with the error; returns kExitFailed.
  int fail(std::int32_t code, std::string_view meaning, const std::string& what);
  // A failure with no library code (a faulty input file, say), or one of
  // another exit status (kExitFile): the same without the code.
  int fail_plain(const std::string& what, int status = kExitFailed);
  // A line "corvane <command>: warning: <what>" to standard error; the run
  // goes on.
  void warning(const std::string& what);
  // Prints the envelope for --json; returns kExitOk.
  int finish();

 private:
  int failed(int status, Json error);

  std::string command_;
  bool json_;
  std::ostream& out_;
  std::ostream& err_;
  Json data_;
};

// The envelope of a failure found before or outside a command's run (a wrong
// command line, faulty material data), for --json.
void print_failure_json(std::ostream& out, const std::string& command, int status,
                        const std::string& message);

// A 3x3 matrix as three JSON rows, and as three aligned text rows under a
// title such as "[A]".
Json matrix_json(const Matrix& m);
void print_matrix(std::ostream& out, std::string_view title, const Matrix& m);
// "label = value" lines with the labels padded to `width`.
void print_value(std::ostream& out, std::string_view label, float value, int width = 9);

// Material values for JSON and for one text line.
Json material_json(const PlyMaterial& m);
std::string material_line(const PlyMaterial& m);

}  // namespace corvane::cli
