// corvane materials and --material: the installed library, the search order
// as a user meets it, bit-for-bit equality with typed values, faults.
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "program_run.h"

namespace corvane::cli_testing {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

constexpr const char* kT300Typed =
    "--t 0.125 --e1 181000 --e2 10300 --g12 7170 --nu12 0.28 --cte1 0.02e-6 "
    "--cte2 22.5e-6";

TEST(MaterialsCommand, ListsTheInstalledLibrarySortedCaseBlind) {
  const Outcome run = run_corvane("materials", "BASES_DATOS= PATH=/nonexistent");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.substr(0, 7), "Name   ");
  const std::size_t b = run.out.find("\nB(4)/5505 "),
                    s = run.out.find("\nScotchply 1002 "),
                    t = run.out.find("\nT300/5208 ");
  EXPECT_TRUE(b < s && s < t && t != std::string::npos) << run.out;
}

TEST(MaterialsCommand, NamedMaterialGivesWhatTypedValuesGive) {
  for (const std::string command :
       {"stiffness", "strength --nx -100", "crippling --segment b=20,edge=OEF"}) {
    Json named = Json::parse(run_corvane(command + " --material t300/5208 --json").out);
    const Json typed = Json::parse(
        run_corvane(command + " " + kT300Typed +
                    (command == "stiffness" ? "" : " --f2t 40 --f2c 246 --f12 68") +
                    " --json")
            .out);
    Json& input = named["input"];
    Json& material = input.contains("material") ? input["material"]
                                                : input["laminate"]["materials"][0];
    EXPECT_EQ(material["name"], "T300/5208");
    material.erase("name");
    EXPECT_EQ(named, typed) << command;
  }
}

TEST(MaterialsCommand, SearchOrderAndFaults) {
  const fs::path dir =
      fs::path(::testing::TempDir()) / ("materials_" + std::to_string(getpid()));
  fs::create_directories(dir / "bases");
  const std::string tape =
      " CPT 0.2\n E1 140000\n E2 9000\n G12 4600\n V12 0.3\n TENSION 2000\n COMPRESSION "
      "1400\n"
      "END\n";
  std::ofstream(dir / "bases" / "office.mat") << "MATERIAL T300/5208\n" << tape;
  std::ofstream(dir / "bad.mat") << "MATERIAL X\n E9 3\n" << tape;
  const std::string bases = "BASES_DATOS='" + (dir / "bases").string() + "'";

  const Outcome where = run_corvane("materials --where T300/5208", bases);
  EXPECT_EQ(where.out, (dir / "bases" / "office.mat").string() + ":1\n");
  const Outcome thick = run_corvane("stiffness --material T300/5208 --json", bases);
  EXPECT_FLOAT_EQ(Json::parse(thick.out)["results"]["thickness"].get<float>(), 1.6f);

  const struct {
    std::string args, err;
  } faults[] = {
      {"stiffness --material T300/5280",
       "corvane stiffness: no material \"T300/5280\"; nearest: T300/5208\n"},
      {"materials show X --materials '" + (dir / "bad.mat").string() + "'",
       "corvane materials: faulty material data:\n  " + (dir / "bad.mat").string() +
           ":2: unknown key \"E9\"\n"},
      {"materials --where X --materials '" + (dir / "none").string() + "'",
       "corvane materials: faulty material data:\n  " + (dir / "none").string() +
           ": no such file or directory\n"},
  };
  for (const auto& f : faults) {
    const Outcome run = run_corvane(f.args);
    EXPECT_EQ(run.status, 1) << f.args;
    EXPECT_EQ(run.err, f.err);
    EXPECT_EQ(run.out, "");
  }
  fs::remove_all(dir);
}

}  // namespace
}  // namespace corvane::cli_testing
