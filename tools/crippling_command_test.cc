// Runs "corvane crippling": a hat section from a text file, a JSON file and
// --segment options against the core's CRIPPLINGSECTION, and bad input.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "crippling_sections/crippling_section.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/laminate_stressed.h"

namespace corvane {
namespace {

struct Outcome {
  int status;
  std::string out, err;
};

Outcome corvane(const std::string& args) {
  const std::string out = ::testing::TempDir() + "crippling_" + std::to_string(getpid());
  const int status = std::system(
      ("'" CORVANE_CLI_PROGRAM "' crippling " + args + " >" + out + " 2>" + out + "e")
          .c_str());
  std::stringstream o, e;
  o << std::ifstream(out).rdbuf();
  e << std::ifstream(out + "e").rdbuf();
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, o.str(), e.str()};
}

// A hat of the built-in tape and layup (t = 1): webs and crown NEF b = 30,
// flanges OEF b = 15, the left one with Fcu given.
TEST(CripplingCommand, FilesAndOptionsGiveTheCoresNumbers) {
  const std::string text = ::testing::TempDir() + "hat" + std::to_string(getpid()),
                    json = text + ".json";
  std::ofstream(text)
      << "# hat\nb=15, edge=OEF, y=-22.5, fcu=480\n"
         "b=30 edge=NEF y=-15 z=15 angle=90\nb=30,edge=NEF,z=30\n"
         "b=30,edge=NEF,y=15,z=15,angle=90\nb=15,edge=OEF,y=22.5  # flange\n";
  std::ofstream(json)
      << R"({"segments": [{"b": 15, "edge": "OEF", "y": -22.5, "fcu": 480},
      {"b": 30, "edge": "nef", "y": -15, "z": 15, "angle": 90}, {"b": 30, "edge": 2, "z": 30},
      {"b": 30, "edge": "NEF", "y": 15, "z": 15, "angle": 90, "layup": "(0/45/-45/90)S"},
      {"b": 15, "edge": "OEF", "y": 22.5}]})";
  LAMINA m = new_lamina(0.125f, 135000.0f, 10000.0f, 5000.0f, 0.3f, 1500.0f, 1500.0f);
  m.set_strengths(1500.0f, 1500.0f, 68.0f, 40.0f, 246.0f);
  std::vector<float> angles;
  parse_stacking_sequence("(0/45/-45/90)S", angles);
  const LAMINATESTRESSED lam(m, angles);
  const auto oef = EdgeCondition::one_edge_free, nef = EdgeCondition::no_edge_free;
  CRIPPLINGSECTION hat;
  hat.segments = {{15, -22.5f, 0, 0, oef, &lam, 480},
                  {30, -15, 15, 90, nef, &lam, 0},
                  {30, 0, 30, 0, nef, &lam, 0},
                  {30, 15, 15, 90, nef, &lam, 0},
                  {15, 22.5f, 0, 0, oef, &lam, 0}};
  hat.column = {600, 2};
  SectionCrippling r;
  ASSERT_TRUE(hat.analyse(r).ok());

  const Outcome a = corvane("--section " + text + " --length 600 --fixity 2 --json");
  ASSERT_EQ(a.status, 0) << a.err;
  EXPECT_EQ(a.out, corvane("--section " + json + " --length 600 --fixity 2 --json").out);
  const auto j = nlohmann::json::parse(a.out)["results"];
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(j["segments"][i]["fcc"].get<float>(), r.segments[i].fcc);
  }
  EXPECT_EQ(j["section"]["pcc"].get<float>(), r.pcc);
  EXPECT_EQ(j["section"]["rho"].get<float>(), r.rho);
  EXPECT_EQ(j["column"]["load"].get<float>(), r.column_load);
  const Outcome table = corvane(
      "--segment b=15,edge=OEF,y=-22.5,fcu=480 --segment "
      "b=30,edge=NEF,y=-15,z=15,angle=90 "
      "--segment b=30,edge=NEF,z=30 --segment b=30,edge=NEF,y=15,z=15,angle=90 "
      "--segment b=15,edge=OEF,y=22.5 --length 600 --fixity 2");
  std::ostringstream pcc;
  pcc << "\nPcc                = " << r.pcc << '\n';
  EXPECT_NE(table.out.find(pcc.str()), std::string::npos) << table.out;
}

TEST(CripplingCommand, BadInputNamesTheFault) {
  const std::string file = ::testing::TempDir() + "bad" + std::to_string(getpid());
  std::ofstream(file) << "b=20,edge=OEF\nb=20,edge=OEF,q=1\n";
  const struct {
    std::string args, err;
    int status;
  } rows[] = {
      {"--segment b=20", "--segment b=20: a segment needs b= and edge=", 2},
      {"--segment b=20,edge=OEF --fixity -1", "end fixity coefficient -1 is not a", 1},
      {"--segment 'b=20,edge=OEF,layup=(0/9x)'", "segment 1: the layup \"(0/9x)\" is", 1},
      {"--section " + file, file + " line 2: unknown key \"q\"", 1},
      {"--segment b=200,edge=OEF", "warning: segment 1: b/t above 4-30 (OEF", 0},
  };
  for (const auto& row : rows) {
    const Outcome run = corvane(row.args);
    EXPECT_EQ(run.status, row.status) << row.args << '\n' << run.err;
    EXPECT_NE(run.err.find("corvane crippling: " + row.err), std::string::npos)
        << run.err;
  }
}

}  // namespace
}  // namespace corvane
