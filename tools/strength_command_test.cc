// "corvane strength", "notched", "impact" and "crippling" against the core's
// plans and section for the same material: the table, the JSON and the CSV.
// Every command's statuses and messages: cli_json_test.py.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <vector>

#include "crippling_sections/crippling_section.h"
#include "laminas/criterion_code.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/impact_strength.h"
#include "laminates_stressed/laminate_stressed.h"
#include "laminates_stressed/notched_strength.h"

namespace corvane {
namespace {

std::string read_text(const std::string& path) {
  std::stringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

// A file name of this process's own, for CTest runs several tests at a time.
std::string scratch(const std::string& name) {
  return ::testing::TempDir() + "corvane_" + std::to_string(getpid()) + name;
}

// The program's standard output for `args` as a shell reads them.
std::string corvane(const std::string& args, std::string* err = nullptr) {
  const std::string out = scratch("out"), errors = scratch("err");
  const int status = std::system(
      ("'" CORVANE_CLI_PROGRAM "' " + args + " >" + out + " 2>" + errors).c_str());
  EXPECT_TRUE(WIFEXITED(status)) << args;
  if (err != nullptr) *err = read_text(errors);
  return read_text(out);
}

std::string shortest(float value) {
  char digits[32];
  return {digits, std::to_chars(digits, digits + 32, value).ptr};
}

// The commands' built-in material (T300/5208's strengths), with `keyed` values.
LAMINATESTRESSED laminate(const std::string& layup, const std::string& keyed = "") {
  LAMINA m = new_lamina(0.125f, 135000.0f, 10000.0f, 5000.0f, 0.3f, 1500.0f, 1500.0f);
  m.CTE1 = -0.3e-6f;
  m.CTE2 = 28.0e-6f;
  m.set_strengths(1500.0f, 1500.0f, 68.0f, 40.0f, 246.0f);
  EXPECT_EQ(set_properties(m, keyed), "");
  std::vector<float> angles;
  parse_stacking_sequence(layup, angles);
  return LAMINATESTRESSED(m, angles);
}

// The core's first-ply failure of each case under each criterion, as
// "rf,ply,surface,mode".
std::vector<std::string> failures(const std::string& layup,
                                  std::span<const std::int32_t> criteria,
                                  std::span<const float> loads) {
  const std::size_t n = criteria.size() * loads.size() / 7;
  std::vector<float> rf(n);
  std::vector<std::int32_t> ply(n), surface(n), mode(n);
  EXPECT_TRUE(laminate(layup)
                  .strength_plan(criteria)
                  .evaluate(loads, {rf, ply, surface, mode})
                  .ok());
  std::vector<std::string> rows;
  for (std::size_t k = 0; k < n; ++k) {
    rows.push_back(shortest(rf[k]) + "," + std::to_string(ply[k]) + ",");
    rows.back().append(surface_name(static_cast<Surface>(surface[k]))).append(",");
    rows.back().append(failure_mode_name(static_cast<FailureMode>(mode[k])));
  }
  return rows;
}

TEST(StrengthCommand, TableAndJsonAreTheCoresNumbers) {
  const std::int32_t all[] = {4, 5, 6, 7, 9, 11, 31};
  const LoadCase load{-500.0f, 20.0f, 0.0f, 0.0f, 0.0f, 3.0f, -100.0f};
  std::string report, err;
  ASSERT_TRUE(laminate("(0/45/-45/90)2S").strength_report(load, all, {}, report).ok());
  const std::string args =
      "strength '(0/45/-45/90)2S' --nx -500 --ny 20 --mxy 3 --dt -100";
  EXPECT_TRUE(corvane(args + " --criterion all", &err).ends_with("\n\n" + report)) << err;
  const auto j = nlohmann::json::parse(corvane(args + " --json"))["results"];
  const auto core = failures("(0/45/-45/90)2S", all, std::span(&load.Nx, 7));
  for (std::size_t k = 0; k < 7; ++k) {
    const auto& f = j["first_ply_failure"][k];
    EXPECT_EQ(f["criterion"], criterion_keyword(all[k]));
    EXPECT_EQ(shortest(f["rf"]) + "," + to_string(f["ply"]) + "," +
                  f["surface"].get<std::string>() + "," + f["mode"].get<std::string>(),
              core[k]);
  }
}

// Columns in any order and letter case, the ones left out zero; a row per case
// whose RFs read back to the very floats; a bad row writes nothing.
TEST(StrengthCommand, LoadFileOneRowPerCase) {
  const std::string csv = scratch(".csv"), results = scratch("_results.csv");
  std::ofstream(csv) << "dT, nx ,NXY\r\n-100,-500,0\r\n\r\n0,300,40\r\n";
  std::string err;
  corvane("strength '(0/90)2S' --criterion puck,tsai_wu --loads " + csv + " --out " +
          results);
  const float loads[] = {-500, 0, 0, 0, 0, 0, -100, 300, 0, 40, 0, 0, 0, 0};
  const std::int32_t codes[] = {9, 5};
  const auto core = failures("(0/90)2S", codes, loads);
  const std::string expected =
      "case,PUCK_rf,PUCK_ply,PUCK_surface,PUCK_mode,TSAI_WU_rf,TSAI_WU_ply,TSAI_WU_"
      "surface,"
      "TSAI_WU_mode\n1," +
      core[0] + "," + core[1] + "\n2," + core[2] + "," + core[3] + "\n";
  EXPECT_EQ(read_text(results), expected);

  std::ofstream(csv) << "Nx,Ny\n1,2\n3,x\n";
  corvane("strength --loads " + csv + " --out " + results, &err);
  EXPECT_EQ(err,
            "corvane strength: " + csv + " line 3: column Ny: \"x\" is not a number\n");
  EXPECT_EQ(read_text(results), expected);
  EXPECT_FALSE(std::ifstream(results + ".partial").good());
  std::remove(csv.c_str());
  std::remove(results.c_str());
}

// "notched" (JSON) and "impact" (a CSV of cases) for the same keyed material.
TEST(NotchedCommand, AreTheCoresNumbers) {
  const LAMINATESTRESSED lam = laminate("(0/45/-45/90)S", "OHC=310 CAIH=0.005");
  const NotchCheck ohc = NotchCheck::ohc;
  std::vector<float> rf(4);
  const std::vector<float> loads = {100, 0, 0, 0, 0, 0, 0, 20, -300, 0, 0, 0, 0, 0};
  ASSERT_TRUE(
      NotchedPlan(lam, {&ohc, 1}, 4.8f).evaluate(loads, {}, std::span(rf).first(2)).ok());
  const auto json =
      nlohmann::json::parse(corvane("notched --property OHC=310 --check ohc "
                                    "--hole-diameter 4.8 --nx 20 --ny -300 --json"));
  EXPECT_EQ(json["results"]["checks"][0]["rf"].get<float>(), rf[1]);

  std::ofstream(scratch(".csv")) << "Ny,Nx\n0,100\n-300,20\n";
  const std::string csv =
      corvane("impact --property CAIH=0.005 --loads " + scratch(".csv"));
  ASSERT_TRUE(ImpactPlan(lam, 0, false).evaluate(loads, rf).ok());
  EXPECT_EQ(csv, "case,CAIH_rf,CAIE_rf\n1," + shortest(rf[0]) + "," + shortest(rf[1]) +
                     "\n2," + shortest(rf[2]) + "," + shortest(rf[3]) + "\n");
  std::remove(scratch(".csv").c_str());
}

// A hat of the built-in tape and layup (t = 1) from a text file, a JSON file
// and --segment options: webs and crown NEF b = 30, flanges OEF b = 15, the
// left one with Fcu given.
TEST(CripplingCommand, FilesAndOptionsGiveTheCoresNumbers) {
  const std::string text = scratch("hat"), json = scratch("hat.json");
  std::ofstream(text)
      << "# hat\nb=15, edge=OEF, y=-22.5, fcu=480\n"
         "b=30 edge=NEF y=-15 z=15 angle=90\nb=30,edge=NEF,z=30\n"
         "b=30,edge=NEF,y=15,z=15,angle=90\nb=15,edge=OEF,y=22.5  # flange\n";
  std::ofstream(json)
      << R"({"segments": [{"b": 15, "edge": "OEF", "y": -22.5, "fcu": 480},
      {"b": 30, "edge": "nef", "y": -15, "z": 15, "angle": 90}, {"b": 30, "edge": 2, "z": 30},
      {"b": 30, "edge": "NEF", "y": 15, "z": 15, "angle": 90, "layup": "(0/45/-45/90)S"},
      {"b": 15, "edge": "OEF", "y": 22.5}]})";
  const LAMINATESTRESSED lam = laminate("(0/45/-45/90)S");
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

  const std::string column = " --length 600 --fixity 2 --json",
                    out = corvane("crippling --section " + text + column);
  EXPECT_EQ(out, corvane("crippling --section " + json + column));
  EXPECT_EQ(out, corvane("crippling --segment b=15,edge=OEF,y=-22.5,fcu=480 --segment "
                         "b=30,edge=NEF,y=-15,z=15,angle=90 --segment b=30,edge=NEF,z=30 "
                         "--segment b=30,edge=NEF,y=15,z=15,angle=90 --segment "
                         "b=15,edge=OEF,y=22.5" +
                         column));
  std::remove(text.c_str());
  std::remove(json.c_str());
  const auto j = nlohmann::json::parse(out)["results"];
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(j["segments"][i]["fcc"].get<float>(), r.segments[i].fcc);
  }
  EXPECT_EQ(j["section"]["pcc"].get<float>(), r.pcc);
  EXPECT_EQ(j["section"]["rho"].get<float>(), r.rho);
  EXPECT_EQ(j["column"]["load"].get<float>(), r.column_load);
}

}  // namespace
}  // namespace corvane
