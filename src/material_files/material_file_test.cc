#include "material_files/material_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace corvane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kTape =
    "MATERIAL Tape\n CPT 0.125\n E1 140000\n E2 9000\n G12 4600\n V12 0.3\n"
    " TENSION 2000\n COMPRESSION 1400\n";

MaterialEntry only(const std::string& text) {
  MaterialFileContents c = read_material_text(text, "m.mat");
  for (const auto& f : c.faults) ADD_FAILURE() << f.message();
  EXPECT_EQ(c.materials.size(), 1u);
  return c.materials.empty() ? MaterialEntry{} : c.materials[0];
}

// Keys reach the record through set_by_key, which owns their rules (F2T needs a
// value above 0, CTE1 takes any); the damage line gets the unit factor and may
// override the factor.
TEST(MaterialFile, KeysAndDamageLineReachTheRecord) {
  const LAMINA m = only(std::string(kTape) +
                        " F2T -5\n CTE1 -1e-6\n KBM 0.9\n UNIT_FACTOR 10\n"
                        " DAMAGE CDTM-T04 a b c d e f 2 3 4 5 6 0.9\nEND\n")
                       .lamina;
  EXPECT_EQ(m.F2t, 0.0f);
  EXPECT_EQ(m.CTE1, -1e-6f);
  EXPECT_EQ(m.E1b, 0.9f * 140000.0f);
  const CDTMODEL& d = m.cdt_model;
  EXPECT_EQ(d.status, 0);
  EXPECT_EQ(d.model, 4);
  EXPECT_EQ(d.k2, 20.0f);
  EXPECT_EQ(d.factor, 0.9f);
}

TEST(MaterialFile, EveryFaultNamesItsLineAndLeavesTheBlockOut) {
  const std::string tape(kTape);
  const struct {
    std::string text;
    std::int32_t line;
    std::string what;
    std::size_t loaded = 0;  // good blocks before the faulty one
  } cases[] = {
      {tape + " F9T 3\nEND", 9, "unknown key \"F9T\""},
      {tape + " F2T 4O\nEND", 9, "F2T = \"4O\" is no number"},
      {tape + " F2T 4 5\nEND", 9, "F2T takes one number"},
      {tape + " e1 3\nEND", 9, "e1 given twice (first on line 3)"},
      {"MATERIAL Tape\n CPT 0.125\n E1 140000\n E2 -9000\n G12 4600\n V12 0.3\nEND", 1,
       "material \"Tape\": E2 = -9000 is negative"},
      {"MATERIAL Tape\n E1 140000\n E2 9000\n G12 4600\n V12 0.3\nEND", 1,
       "material \"Tape\" lacks CPT"},
      {tape + "END\n" + tape + "END", 10,
       "material \"Tape\" is defined twice (first on line 1)", 1},
      {tape + " DAMAGE CDTM-T07 1 2 3 4 5 6 7 8 9 10 11\nEND", 9,
       "unknown damage model \"CDTM-T07\" (CDTM-T03, CDTM-T04, CDTM-T05 or CDTM-T06)"},
      {tape + " DAMAGE CDTM-T03 1 2 3 4 5 6 7 8 9\nEND", 9,
       "the damage model CDTM-T03 lacks a coefficient (10 tokens)"},
      {tape + " DAMAGE\nEND", 9, "the damage model has no name"},
      {tape + " TYPE WOVEN\nEND", 9, "TYPE is TAPE or FABRIC"},
      {tape, 1, "material \"Tape\" has no END"},
      {"E1 3\n", 1, "\"E1\" outside a MATERIAL ... END block"},
      {tape + tape + "END", 9, "MATERIAL before the END of \"Tape\" (line 1)"},
  };
  for (const auto& c : cases) {
    const MaterialFileContents contents = read_material_text(c.text, "m.mat");
    ASSERT_FALSE(contents.faults.empty()) << c.what;
    EXPECT_EQ(contents.faults[0].message(),
              "m.mat:" + std::to_string(c.line) + ": " + c.what);
    EXPECT_EQ(contents.materials.size(), c.loaded) << c.what;
  }
}

struct TempDir {
  fs::path path = fs::temp_directory_path() /
                  ("corvane_materials_" +
                   std::to_string(::testing::UnitTest::GetInstance()->random_seed()));
  TempDir() { fs::create_directories(path); }
  ~TempDir() { fs::remove_all(path); }
  fs::path write(const std::string& name, const std::string& materials) {
    fs::create_directories((path / name).parent_path());
    std::string text;
    for (const char c : materials) {  // one tape per letter, its CPT telling the place
      text += std::string("MATERIAL ") + c + "\n CPT " +
              std::to_string(text.size() % 7 + 1) + "e-2\n" +
              std::string(kTape.substr(kTape.find(" E1"))) + "END\n";
    }
    std::ofstream(path / name) << text;
    return path / name;
  }
};

TEST(MaterialCatalog, SearchOrderFirstPlaceWins) {
  TempDir dir;
  const fs::path explicit_file = dir.write("explicit.mat", "a");
  dir.write("bases/x.mat", "ab");
  dir.write("bin1/y.mat", "bc");
  dir.write("bin1/ignored.txt", "e");
  dir.write("bin2/z.mat", "cd");
  dir.write("share/w.mat", "dE");
  const std::string path_variable = (dir.path / "missing").string() + ":" +
                                    (dir.path / "bin1").string() +
                                    "::" + (dir.path / "bin2").string();
  const std::vector<fs::path> explicit_places{explicit_file};
  const MaterialCatalog catalog(material_search_places(
      explicit_places, (dir.path / "bases").string(), path_variable, dir.path / "share"));
  EXPECT_TRUE(catalog.faults().empty());
  const std::pair<std::string, std::string> where[] = {{"a", "explicit.mat"},
                                                       {"B", "x.mat"},
                                                       {"c", "y.mat"},
                                                       {"d", "z.mat"},
                                                       {"e", "w.mat"}};
  for (const auto& [name, file] : where) {
    const MaterialEntry* m = catalog.find(name);
    ASSERT_NE(m, nullptr) << name;
    EXPECT_EQ(fs::path(m->file).filename(), file) << name;
  }
  std::string order;
  for (const MaterialEntry* m : catalog.sorted()) order += m->lamina.Name;
  EXPECT_EQ(order, "abcdE");
  EXPECT_EQ(catalog.find("f"), nullptr);

  const std::vector<fs::path> missing{dir.path / "none.mat"};
  const MaterialCatalog bad(material_search_places(missing, "", "", {}));
  ASSERT_EQ(bad.faults().size(), 1u);
  EXPECT_EQ(bad.faults()[0].what, "no such file or directory");
}

TEST(MaterialCatalog, NearestNames) {
  const MaterialCatalog catalog(
      std::vector<MaterialPlace>{{CORVANE_MATERIALS_DIR, true}});
  EXPECT_EQ(catalog.nearest("T300/5280"), std::vector<std::string>{"T300/5208"});
  EXPECT_EQ(catalog.nearest("scotchply"), std::vector<std::string>{"Scotchply 1002"});
  EXPECT_TRUE(catalog.nearest("IM7/8552").empty());
}

}  // namespace
}  // namespace corvane
