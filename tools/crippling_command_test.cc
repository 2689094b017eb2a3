// Runs "corvane crippling" and checks its table and JSON against the core's
// CRIPPLINGSECTION, the two file forms against each other, and its answers to
// bad input.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "crippling_sections/crippling_section.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/laminate_stressed.h"

namespace corvane {
namespace {

struct Outcome {
  int status;
  std::string out, err;
};

std::string scratch(const std::string& name) {
  return ::testing::TempDir() + "crippling_test_" + std::to_string(getpid()) + name;
}

std::string read(const std::string& path) {
  std::stringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

Outcome corvane(const std::string& args) {
  const std::string out = scratch("out"), err = scratch("err");
  const int status = std::system(
      ("'" CORVANE_CLI_PROGRAM "' crippling " + args + " >" + out + " 2>" + err).c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read(out), read(err)};
}

// A hat of the command's built-in tape and layup (t = 1): crown and webs NEF
// b = 30, flanges OEF b = 15 (the left one with Fcu given).
constexpr const char* kHat =
    "# hat stiffener\n"
    "b=15, edge=OEF, y=-22.5, z=0, fcu=480\n"
    "b=30 edge=NEF y=-15 z=15 angle=90\n"
    "b=30,edge=NEF,y=0,z=30\n"
    "b=30,edge=NEF,y=15,z=15,angle=90\n"
    "b=15,edge=OEF,y=22.5,z=0   # right flange\n";
constexpr const char* kHatJson =
    R"({"segments": [{"b": 15, "edge": "OEF", "y": -22.5, "z": 0, "fcu": 480},
      {"b": 30, "edge": "nef", "y": -15, "z": 15, "angle": 90},
      {"b": 30, "edge": "NEF", "y": 0, "z": 30},
      {"b": 30, "edge": 2, "y": 15, "z": 15, "angle": 90},
      {"b": 15, "edge": "OEF", "y": 22.5, "z": 0, "layup": "(0/45/-45/90)S"}]})";

TEST(CripplingCommand, TextAndJsonFilesGiveTheCoresNumbers) {
  LAMINA m = new_lamina(0.125f, 135000.0f, 10000.0f, 5000.0f, 0.3f, 1500.0f, 1500.0f);
  m.CTE1 = -0.3e-6f;
  m.CTE2 = 28.0e-6f;
  m.set_strengths(1500.0f, 1500.0f, 68.0f, 40.0f, 246.0f);
  std::vector<float> angles;
  parse_stacking_sequence("(0/45/-45/90)S", angles);
  const LAMINATESTRESSED lam(m, angles);
  CRIPPLINGSECTION hat;
  const auto oef = EdgeCondition::one_edge_free, nef = EdgeCondition::no_edge_free;
  hat.segments = {{15, -22.5f, 0, 0, oef, &lam, 480},
                  {30, -15, 15, 90, nef, &lam, 0},
                  {30, 0, 30, 0, nef, &lam, 0},
                  {30, 15, 15, 90, nef, &lam, 0},
                  {15, 22.5f, 0, 0, oef, &lam, 0}};
  hat.column = {600, 2};
  SectionCrippling r;
  ASSERT_TRUE(hat.analyse(r).ok());

  const std::string text = scratch(".txt"), json = scratch(".json");
  std::ofstream(text) << kHat;
  std::ofstream(json) << kHatJson;
  const Outcome from_text =
      corvane("--section " + text + " --length 600 --fixity 2 --json");
  const Outcome from_json =
      corvane("--section " + json + " --length 600 --fixity 2 --json");
  ASSERT_EQ(from_text.status, 0) << from_text.err;
  EXPECT_EQ(from_text.out, from_json.out);
  EXPECT_EQ(from_text.err, "");
  const auto j = nlohmann::json::parse(from_text.out);
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(j["segments"][i]["Fcc"].get<float>(), r.segments[i].fcc);
    EXPECT_EQ(j["segments"][i]["Fcu"].get<float>(), r.segments[i].fcu);
  }
  EXPECT_EQ(j["section"]["Pcc"].get<float>(), r.pcc);
  EXPECT_EQ(j["section"]["EA"].get<float>(), r.ea);
  EXPECT_EQ(j["section"]["rho"].get<float>(), r.rho);
  EXPECT_EQ(j["column"]["P"].get<float>(), r.column_load);
  EXPECT_EQ(j["column"]["mode"], column_mode_name(r.column));

  // The same section from --segment options, as a table.
  const Outcome table = corvane(
      "--segment b=15,edge=OEF,y=-22.5,fcu=480 --segment "
      "b=30,edge=NEF,y=-15,z=15,angle=90 "
      "--segment b=30,edge=NEF,z=30 --segment b=30,edge=NEF,y=15,z=15,angle=90 "
      "--segment b=15,edge=OEF,y=22.5 --length 600 --fixity 2");
  ASSERT_EQ(table.status, 0) << table.err;
  std::ostringstream pcc;
  pcc << "\nPcc                = " << r.pcc << '\n';
  EXPECT_NE(table.out.find(pcc.str()), std::string::npos) << table.out;
  EXPECT_NE(
      table.out.find("   1 OEF        15    -22.5        0        0 (0/45/-45/90)S "),
      std::string::npos)
      << table.out;
  std::remove(text.c_str());
  std::remove(json.c_str());
}

TEST(CripplingCommand, BadInputNamesTheFault) {
  const std::string file = scratch("_bad.txt");
  std::ofstream(file) << "b=20,edge=OEF\nb=20,edge=OEF,q=1\n";
  const struct {
    std::string args;
    int status;
    std::string err;
  } rows[] = {
      {"--segment b=20", 2, "--segment b=20: a segment needs b= and edge="},
      {"--segment b=20,edge=OEF --fixity -1", 1,
       "end fixity coefficient -1 is not a positive number (library error code 10"},
      {"--segment b=20,edge=NEF --segment b=0,edge=OEF", 1,
       "segment 2: width 0 is not a positive number (library error code 6"},
      {"--segment 'b=20,edge=OEF,layup=(0/9x)'", 1, "segment 1: the layup \"(0/9x)\" is"},
      {"--segment b=20,edge=OEF --criterion nope", 1, "unknown criterion \"nope\""},
      {"--section " + file, 1, file + " line 2: unknown key \"q\""},
      {"--segment b=200,edge=OEF", 0,
       "warning: segment 1: b/t above 4-30 (OEF crippling relation fitted there)"},
  };
  for (const auto& row : rows) {
    const Outcome run = corvane(row.args);
    EXPECT_EQ(run.status, row.status) << row.args << '\n' << run.err;
    EXPECT_NE(run.err.find("corvane crippling: " + row.err), std::string::npos)
        << run.err;
  }
  std::remove(file.c_str());
}

}  // namespace
}  // namespace corvane
