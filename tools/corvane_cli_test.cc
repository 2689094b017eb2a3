// Runs the corvane program: its results, as text and as JSON, against direct
// calls of the entry points; its options; its one line for each kind of fault.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "corvane/corvane.h"
#include "refused_inputs.h"

namespace {

// JSON whose reals are floats: the program's shortest forms read back exactly.
using Json = nlohmann::basic_json<std::map, std::vector, std::string, bool, std::int64_t,
                                  std::uint64_t, float>;
using Matrix = std::array<float, 9>;    // column order
using Material = std::array<float, 7>;  // t, E1, E2, G12, nu12, CTE1, CTE2
constexpr Material kTape = {0.125f, 135000.0f, 10000.0f, 5000.0f,
                            0.3f,   -0.3e-6f,  28.0e-6f};

std::string read_file(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

struct Outcome {
  int status;
  std::string out, err;
};

// `args` as a shell reads them; files of this process's own, for CTest runs
// several cases at a time.
Outcome corvane(const std::string& args) {
  const std::string out = testing::TempDir() + "corvane_" + std::to_string(getpid());
  const int status = std::system(
      ("'" CORVANE_CLI_PROGRAM "' " + args + " >" + out + " 2>" + out + "e").c_str());
  Outcome run{WIFEXITED(status) ? WEXITSTATUS(status) : -1, read_file(out),
              read_file(out + "e")};
  std::remove(out.c_str());
  std::remove((out + "e").c_str());
  return run;
}

Json rows(const Matrix& m) {
  return {{m[0], m[3], m[6]}, {m[1], m[4], m[7]}, {m[2], m[5], m[8]}};
}

// Values by their names in the JSON.
Json results(const std::string& names, const std::vector<float>& values) {
  std::istringstream words(names);
  Json j;
  for (std::string name; words >> name;) j[name] = values[j.size()];
  return j;
}

Json material(const Material& m) {
  return results("t e1 e2 g12 nu12 cte1 cte2", {m.begin(), m.end()});
}

// ------------------------------------------- the entry points' own results

Json stiffness(const std::string& layup, const Material& m = kTape) {
  std::string text = layup, cards(CORVANE_CARDS_LENGTH, ' ');
  text.resize(CORVANE_LAYUP_LENGTH, ' ');
  Matrix a, b, d, dstar;
  float s[8];
  std::int32_t symmetric, plies, ierr = -9;
  LAMINATE_STIFFNESS(&m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6], text.data(),
                     CORVANE_LAYUP_LENGTH, &symmetric, a.data(), b.data(), d.data(),
                     dstar.data(), &s[0], &s[1], &s[2], &s[3], &s[4], &s[5], &s[6], &s[7],
                     &plies, cards.data(), CORVANE_CARDS_LENGTH, &ierr);
  EXPECT_EQ(ierr, 0) << layup;
  Json j = {{"a_matrix", rows(a)},
            {"b_matrix", rows(b)},
            {"d_matrix", rows(d)},
            {"d_star_matrix", rows(dstar)}};
  j.update(results("thickness e_x e_y g_xy nu_xy alpha_x alpha_y alpha_xy", {s, s + 8}));
  j.update(Json{{"plies", plies}, {"symmetric", symmetric != 0}});
  j["cards"] = cards.substr(0, cards.find_last_not_of(' ') + 1);
  return j;
}

// -------------------------------------------------------------- commands

// Each command once, and the ways of giving it its input: the JSON's input and
// results hold what the entry points give (from direct calls, or as they give
// them for these inputs), the text shows each real of it in six significant
// digits, and --help shows the command's examples.
TEST(Commands, TextAndJsonHoldTheEntryPointsResults) {
  Material changed = kTape, m2 = kTape;
  changed[1] = m2[1] = 1500.0f;
  changed[4] = m2[4] = 0.27f;
  m2[2] = 70000.0f;
  const std::pair<std::string, Json> cases[] = {
      {"stiffness", stiffness("(0/45/-45/90)S")},
      {"stiffness --layup '(0/90)2S' --e1 1.5D3 --nu12 .27",
       stiffness("(0/90)2S", changed)},
      // Values of material 2 not given are those of material 1.
      {"stiffness '(45./0)' --e1 1500 --nu12 0.27 --m2-e2 7e4",
       {{"entry_points", {"BI_MATERIAL_LAMINATE_STIFFNESS"}},
        {"laminate",
         {{"layup", "(45./0)"}, {"materials", {material(changed), material(m2)}}}}}},
      {"strains '(0/90)2S' --nx -250 --nxy 40",
       results("eps_x eps_y gamma_xy eps_p45 eps_m45",
               {-0.0034311619f, 0.00014197911f, 0.008f, 0.0023554089f, -0.0056445915f})},
      {"strains --thickness 2 --ex 6e4 --ey 3e4 --gxy 1e4 --nuxy 0.2 --ny -120",
       {{"laminate_constants",
         results("thickness e_x e_y g_xy nu_xy", {2, 6e4, 3e4, 1e4, 0.2f})},
        {"loads", results("n_x n_y n_xy", {0, -120, 0})},
        {"eps_x", 0.0002f},
        {"eps_y", -0.002f}}},
      {"plate-buckling --D 8000,2500,70,6000,90,3000 --a 500 --b 200",
       results("n_x_cr n_y_cr n_xy_cr", {7.77108f, 2.2021065f, 10.782276f})},
      {"reserve-factor --a 500 --b 200 --nx -60 --nxy 40",
       results("n_x_cr n_y_cr n_xy_cr rf",
               {4.120561f, 0.89929104f, 4.9374146f, 0.0550275f})},
      {"reserve-factor --nxcr 120 --nycr 80 --nxycr 150 --ny -20", results("rf", {4})},
      {"shell-buckling --l 600 --b 300 --r 1500",
       results("thickness n_x_cr n_y_cr n_xy_cr",
               {1, 16.713335f, 1.3528872f, 7.706835f})},
  };
  for (const auto& [args, library] : cases) {
    const Outcome run = corvane(args + " --json"), text = corvane(args);
    EXPECT_EQ(run.status + text.status, 0) << args << run.err << text.err;
    Json j = Json::parse(run.out, nullptr, false).value("input", Json::object());
    j.update(Json::parse(run.out, nullptr, false).value("results", Json::object()));
    for (const auto& [key, value] : library.items()) {
      EXPECT_EQ(j.value(key, Json()), value) << args << ": " << key;
      if (!value.is_number_float()) continue;
      char shown[32];
      std::snprintf(shown, sizeof shown, " = %.6g", value.get<double>());
      EXPECT_NE(text.out.find(shown), std::string::npos) << shown << text.out;
    }
    const std::string command = args.substr(0, args.find(' '));
    const std::string help = corvane(command + " --help").out;
    EXPECT_NE(help.find("Examples:\n  corvane " + command), std::string::npos) << help;
  }
}

// --deck solver writes the solver deck to the file and the JSON alike, the
// strengths of material 2 those of material 1 unless given.
TEST(Commands, TheSolverDeckCarriesTheStrengthOptions) {
  const std::string file =
      testing::TempDir() + "corvane_solver_" + std::to_string(getpid());
  const Outcome run = corvane(
      "stiffness '(0/45.)' --deck solver --crlf --f1t 1500 --f12 70 "
      "--m2-f2c 246 --json --cards " +
      file);
  const std::string deck = read_file(file);
  std::remove(file.c_str());
  EXPECT_EQ(Json::parse(run.out)["results"].value("cards", ""), deck) << run.err;
  EXPECT_NE(deck.find("1500.                             70.\r\nMAT8         102"),
            std::string::npos)
      << deck;
  EXPECT_NE(deck.find("1500.                    246.     70.\r\n$"), std::string::npos);
}

// One line on standard error, "corvane COMMAND: " and the fault, and the exit
// status: 1 the library refused the input or found no result (its code, where
// it gave one, in the line and in the JSON), 2 a wrong command line, 3 a file
// not written; with --json the same status and message in the envelope. Last
// come the rows of the refused-input table, which the library and the package
// run too: the library's code, the core's reason and where it points.
TEST(Commands, OneLineNamesTheFault) {
  struct Case {
    std::string args;
    int status;
    std::string fault;
    int code = -1;
  };
  std::vector<Case> cases = {
      {"stiffness '(0/45.)' --m2-nu12 -0.1", 1,
       "stiffness: material 2: v12 = -0.1 is negative (library error code 1: invalid ply "
       "material)"},
      {"stiffness '(0/90)S' --nu12 0", 1,
       "(0/90)S was read, but the laminate is unusable"},
      {"plate-buckling '(0/90' --a 1 --b 1", 1,
       "the layup \"(0/90\" is refused: no \")\""},
      {"strains --h 1 --ex 1 --ey 1 --gxy 1e-7 --nuxy 0", 1, "Gxy = 1e-07 is below 1e-6"},
      {"plate-buckling --D 8,0,0,6,0,3 --a 5 --b 2", 1,
       "no critical load found for Nx, Ny, Nxy: D12 = 0 is not positive"},
      {"reserve-factor --nxcr 8 --nycr 0.5e-6 --nxycr 1", 1,
       "the critical Ny = 5e-07 is below 1e-6"},
      {"shell-buckling --A 5,1,0,4,0,2 --D 4,0,0,3,0,1 --h 1 --l 6 --b 3 --r 0", 1,
       "D12 = 0 is not positive, so the flat-panel shear estimate is 0"},
      {"stiffness --e1 abc", 2, "stiffness: --e1: \"abc\" is not a number (see --help)"},
      {"plate-buckling --D 1,2,3,4,5,6 --e1 5 --a 1 --b 1", 2,
       "--D replaces the material and layup: drop --e1"},
      {"strains --ex 5", 2, "give all of --thickness --ex --ey --gxy --nuxy, or none"},
      {"strains --h 1 --thickness 1", 2, "give --thickness once (--h is its old name)"},
      {"reserve-factor --nx -5", 2, "give the critical loads (--nxcr --nycr --nxycr) or"},
      {"stifness", 2,
       "corvane: unknown command \"stifness\"; the commands are stiffness, strains, "
       "plate-buckling, reserve-factor, shell-buckling, strength, notched, impact, "
       "crippling, "
       "materials"},
      {"", 2, "corvane: A subcommand is required (see --help)"},
      {"stiffness --deck solver --m2-f2c -5", 1,
       "material 2: F2c = -5 is negative (library error code 1"},
      {"stiffness --f12 70", 2, "--f12 goes with --deck solver"},
      {"stiffness --cards no/deck.bdf", 3,
       "stiffness: cannot write the cards to no/deck"},
  };
  const char* const options[] = {" --t=", " --e1=", " --e2=", " --g12=", " --nu12="};
  for (const corvane::RefusedInput& row :
       corvane::refused_inputs(CORVANE_REFUSED_INPUTS)) {
    std::string args = "stiffness '--layup=" + row.layup + "'";
    for (int k = 0; k < 5; ++k) args += options[k] + row.material[k];
    const std::string at = "at character " + std::to_string(row.position) + ": ";
    cases.push_back({args, 1, (row.position != 0 ? at : ": ") + row.reason, row.code});
  }
  for (const Case& c : cases) {
    const Outcome run = corvane(c.args);
    EXPECT_EQ(run.status, c.status) << c.args;
    EXPECT_EQ(run.err.rfind("corvane", 0), 0) << run.err;
    EXPECT_NE(run.err.find(c.fault), std::string::npos) << run.err;
    EXPECT_EQ(run.err.find('\n'), run.err.size() - 1) << run.err;
    const bool points = c.fault.find("at character") != std::string::npos;
    EXPECT_EQ(run.err.find("at character") != std::string::npos, points) << run.err;
    const Json error = Json::parse(corvane(c.args + " --json").out)["error"];
    EXPECT_EQ(error.value("code", -9), c.status) << c.args;
    const std::string line = error.value("message", "") +
                             (error.contains("library_code") ? " (library" : "\n");
    EXPECT_EQ(run.err.substr(run.err.find(": ") + 2).rfind(line, 0), 0u) << run.err;
    if (!error.contains("library_code")) continue;
    const int code = error["library_code"];
    EXPECT_NE(run.err.find("(library error code " + std::to_string(code) + ":"),
              std::string::npos)
        << run.err;
    EXPECT_TRUE(c.code < 0 || code == c.code) << c.args << ": code " << code;
  }
}

}  // namespace
