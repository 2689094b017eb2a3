// Runs "corvane strength" and checks its table, JSON and CSV results against
// the core's stressed laminate, and its answers to bad input.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "laminas/criterion_code.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/impact_strength.h"
#include "laminates_stressed/laminate_stressed.h"
#include "laminates_stressed/notched_strength.h"

namespace corvane {
namespace {

struct Outcome {
  int status;
  std::string out, err;
};

std::string scratch(const std::string& name) {
  return ::testing::TempDir() + "strength_test_" + std::to_string(getpid()) + name;
}

std::string read(const std::string& path) {
  std::stringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

// `args` as the shell reads them.
Outcome corvane(const std::string& args) {
  const std::string out = scratch("out"), err = scratch("err");
  const int status = std::system(
      ("'" CORVANE_CLI_PROGRAM "' strength " + args + " >" + out + " 2>" + err).c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read(out), read(err)};
}

// The command's built-in material: its moduli, T300/5208's strengths.
LAMINATESTRESSED laminate(const std::string& layup) {
  LAMINA m = new_lamina(0.125f, 135000.0f, 10000.0f, 5000.0f, 0.3f, 1500.0f, 1500.0f);
  m.CTE1 = -0.3e-6f;
  m.CTE2 = 28.0e-6f;
  m.set_strengths(1500.0f, 1500.0f, 68.0f, 40.0f, 246.0f);
  std::vector<float> angles;
  parse_stacking_sequence(layup, angles);
  return LAMINATESTRESSED(m, angles);
}

constexpr std::int32_t kAll[] = {4, 5, 6, 7, 9, 11, 31};

TEST(StrengthCommand, TableAndJsonAreTheCoresNumbers) {
  const LAMINATESTRESSED lam = laminate("(0/45/-45/90)2S");
  const LoadCase load{-500.0f, 20.0f, 0.0f, 0.0f, 0.0f, 3.0f, -100.0f};
  std::string report;
  ASSERT_TRUE(lam.strength_report(load, kAll, {}, report).ok());
  const std::string loads = "--nx -500 --ny 20 --mxy 3 --dt -100";
  const Outcome text = corvane("'(0/45/-45/90)2S' --criterion all " + loads);
  ASSERT_EQ(text.status, 0) << text.err;
  EXPECT_TRUE(text.out.ends_with("\n\n" + report)) << text.out;

  const Outcome json = corvane("'(0/45/-45/90)2S' --json " + loads);
  ASSERT_EQ(json.status, 0) << json.err;
  const auto j = nlohmann::json::parse(json.out)["results"];
  LaminateState state;
  ASSERT_TRUE(lam.strength_plan(kAll).state(load, state).ok());
  const std::size_t last = state.surfaces.size() - 1;
  EXPECT_EQ(j["surfaces"][last]["stress"][2].get<float>(),
            state.surfaces[last].stress[2]);
  std::vector<float> rf(7);
  std::vector<std::int32_t> ply(7), surface(7), mode(7);
  ASSERT_TRUE(lam.strength_plan(kAll)
                  .evaluate(std::span(&load.Nx, 7), {rf, ply, surface, mode})
                  .ok());
  for (std::size_t k = 0; k < 7; ++k) {
    const auto& first = j["first_ply_failure"][k];
    EXPECT_EQ(first["criterion"], criterion_keyword(kAll[k]));
    EXPECT_EQ(first["rf"].get<float>(), rf[k]);
    EXPECT_EQ(first["ply"], ply[k]);
    EXPECT_EQ(first["mode"], failure_mode_name(static_cast<FailureMode>(mode[k])));
  }
}

TEST(StrengthCommand, LoadFileOneRowPerCase) {
  const std::string csv = scratch(".csv"), results = scratch("_results.csv");
  // Columns in any order and letter case, Ny, Mx, My, Mxy left out.
  std::ofstream(csv) << "dT, nx ,NXY\r\n-100,-500,0\r\n\r\n0,300,40\r\n";
  const Outcome run =
      corvane("'(0/90)2S' --criterion puck,tsai_wu --loads " + csv + " --out " + results);
  ASSERT_EQ(run.status, 0) << run.err;
  const float loads[] = {-500, 0, 0, 0, 0, 0, -100, 300, 0, 40, 0, 0, 0, 0};
  const std::int32_t codes[] = {9, 5};
  std::vector<float> rf(4);
  std::vector<std::int32_t> ply(4), surface(4), mode(4);
  const LAMINATESTRESSED lam = laminate("(0/90)2S");
  ASSERT_TRUE(lam.strength_plan(codes).evaluate(loads, {rf, ply, surface, mode}).ok());
  std::istringstream lines(read(results));
  std::string line;
  std::getline(lines, line);
  EXPECT_EQ(line,
            "case,PUCK_rf,PUCK_ply,PUCK_surface,PUCK_mode,TSAI_WU_rf,TSAI_WU_ply,"
            "TSAI_WU_surface,TSAI_WU_mode");
  for (std::size_t n = 0; n < 2; ++n) {  // the RFs read back to the very floats
    std::getline(lines, line);
    std::vector<std::string> f;
    std::istringstream fields(line);
    for (std::string field; std::getline(fields, field, ',');) f.push_back(field);
    ASSERT_EQ(f.size(), 9u) << line;
    EXPECT_EQ(f[0], std::to_string(n + 1));
    for (std::size_t k = 0; k < 2; ++k) {
      const std::size_t at = n * 2 + k;
      EXPECT_EQ(std::strtof(f[1 + 4 * k].c_str(), nullptr), rf[at]);
      EXPECT_EQ(f[2 + 4 * k], std::to_string(ply[at]));
      EXPECT_EQ(f[3 + 4 * k], surface_name(static_cast<Surface>(surface[at])));
      EXPECT_EQ(f[4 + 4 * k], failure_mode_name(static_cast<FailureMode>(mode[at])));
    }
  }

  // A bad row: nothing written, the old results stay.
  std::ofstream(csv) << "Nx,Ny\n1,2\n3,x\n";
  const Outcome bad = corvane("--loads " + csv + " --out " + results);
  EXPECT_EQ(bad.status, 1);
  EXPECT_EQ(bad.err,
            "corvane strength: " + csv + " line 3: column Ny: \"x\" is not a number\n");
  EXPECT_TRUE(read(results).starts_with("case,PUCK_rf"));
  EXPECT_FALSE(std::ifstream(results + ".partial").good());
  std::remove(csv.c_str());
  std::remove(results.c_str());
}

TEST(StrengthCommand, BadInputNamesTheFault) {
  const std::string csv = scratch("_bad.csv");
  const struct {
    std::string file, args;
    int status;
    std::string message;
  } cases[] = {
      {"", "--criterion tsai_wu,foo", 1,
       "unknown criterion \"foo\"; the criteria are TSAI_HILL, TSAI_WU, HOFFMAN, "
       "YAMADA_SUN, PUCK, MAX_STRAIN_I, MTS, or all (library error code 2"},
      {"", "--criterion aosl", 1, "Criterion AOSL not available"},
      {"", "--f2c 0 --criterion puck", 1,
       "F2c missing (material 1, criterion PUCK): give --f2c (library error code 4"},
      {"", "--m2-uetall 0 --criterion mts '(0/90.)S'", 1, "give --m2-uetall"},
      {"", "--f2t -40", 1, "F2t = -40 is negative"},
      {"", "--f12-star 1 --criterion tsai_wu", 1, "(--f12-star)"},
      {"", "'(0//90)'", 1, "refused at character 4"},
      {"", "--nx nan", 2, "\"nan\" is not a number"},
      {"", "--out x.csv", 2, "--out goes with --loads"},
      {"Nx\n1\n", "--nx 1", 2, "drop --nx"},
      {"Nx,Nz\n", "", 1, " line 1: unknown column \"Nz\"; the columns are Nx, Ny,"},
      {"Nx,nx\n", "", 1, " line 1: column Nx named twice"},
      {"\nNx,Ny\n1,2\n1\n", "", 1,
       " line 4: the header names 2 columns, this line has 1"},
      {"", "--loads no_such_file.csv", 1,
       "cannot read the load cases from no_such_file.csv"},
      {"Mx\n1e39\n", "", 1, " line 2: column Mx: \"1e39\" is out of the range"},
      {"\n", "", 1, ": no header line"},
  };
  for (const auto& c : cases) {
    if (!c.file.empty()) std::ofstream(csv) << c.file;
    const Outcome run = corvane(c.args + (c.file.empty() ? "" : " --loads " + csv));
    EXPECT_EQ(run.status, c.status) << c.args;
    EXPECT_NE(run.err.find(c.message), std::string::npos) << c.args << "\n" << run.err;
    EXPECT_EQ(run.err.find('\n'), run.err.size() - 1) << run.err;
  }
  const Outcome json = corvane("--criterion mts2 --json");
  EXPECT_EQ(json.status, 1);
  EXPECT_EQ(nlohmann::json::parse(json.out)["error"]["library_code"], 3);
  std::remove(csv.c_str());
}

}  // namespace
}  // namespace corvane

namespace corvane {
namespace {

// "corvane notched" (JSON) and "corvane impact" (a CSV of cases) against the
// core's plans for the same keyed material, and their refusals.
Outcome command(const std::string& args) {
  const std::string out = scratch("out"), err = scratch("err");
  const int status = std::system(
      ("'" CORVANE_CLI_PROGRAM "' " + args + " >" + out + " 2>" + err).c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read(out), read(err)};
}

TEST(NotchedCommand, AreTheCoresNumbers) {
  LAMINA m = new_lamina(0.125f, 135000.0f, 10000.0f, 5000.0f, 0.3f, 1500.0f, 1500.0f);
  ASSERT_EQ(set_properties(m, "OHC=310 CAIH=0.005"), "");
  std::vector<float> angles;
  parse_stacking_sequence("(0/45/-45/90)S", angles);
  const LAMINATESTRESSED lam(m, angles);
  const NotchCheck ohc = NotchCheck::ohc;
  std::vector<float> rf(4);
  const std::vector<float> loads = {100, 0, 0, 0, 0, 0, 0, 20, -300, 0, 0, 0, 0, 0};
  ASSERT_TRUE(
      NotchedPlan(lam, {&ohc, 1}, 4.8f).evaluate(loads, {}, std::span(rf).first(2)).ok());
  const Outcome json = command(
      "notched --property OHC=310 --check ohc --hole-diameter 4.8 "
      "--nx 20 --ny -300 --json");
  ASSERT_EQ(json.status, 0) << json.err;
  EXPECT_EQ(nlohmann::json::parse(json.out)["results"]["checks"][0]["rf"].get<float>(),
            rf[1]);

  std::ofstream(scratch("cases.csv")) << "Ny,Nx\n0,100\n-300,20\n";
  const Outcome csv =
      command("impact --property CAIH=0.005 --loads " + scratch("cases.csv"));
  ASSERT_TRUE(ImpactPlan(lam, 0, false).evaluate(loads, rf).ok());
  std::string expected = "case,CAIH_rf,CAIE_rf\n";
  for (std::size_t i = 0; i < 4; ++i) {
    char digits[32];
    expected += i % 2 == 0 ? std::to_string(i / 2 + 1) + "," : ",";
    expected.append(digits, std::to_chars(digits, digits + 32, rf[i]).ptr);
    if (i % 2 == 1) expected += '\n';
  }
  EXPECT_EQ(csv.out, expected) << csv.err;
}

TEST(NotchedCommand, RefusalsSayWhy) {
  const std::pair<std::string, std::string> rows[] = {
      {"notched --nx 100 --check oht", "a0oht missing (material 1, criterion OHT)"},
      {"notched --property A0OHT=1 --hole-diameter -2", "out of range (--hole-diameter)"},
      {"impact --property OHT=100", "OHT=100 refused"},
      {"impact --model 'CDTM-T04 1 2'", "not usable"},
  };
  for (const auto& [args, says] : rows) {
    const Outcome o = command(args);
    EXPECT_EQ(o.status, 1) << args;
    EXPECT_NE(o.err.find(says), std::string::npos) << o.err;
  }
}

}  // namespace
}  // namespace corvane
