// MATERIAL_DATA and MATERIAL_NAMES through the built strength library: what a
// host gets for the installed materials, a name not found and a faulty file,
// and that a refusal writes only its code and message.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "corvane/corvane_strength.h"
#include "interface/loaded_library.h"
#include "laminates_stressed/ply_criteria.h"
#include "support/test_support.h"

namespace corvane {
namespace {

using testing::layup_buffer;

struct MaterialCall {
  std::vector<char> name = layup_buffer("t300/5208", CORVANE_MATERIAL_NAME_LENGTH),
                    places = layup_buffer("", CORVANE_MATERIAL_PLACES_LENGTH),
                    installed =
                        layup_buffer(CORVANE_MATERIALS_DIR, CORVANE_MATERIAL_PATH_LENGTH);
  std::vector<float> values = std::vector<float>(CORVANE_MATERIAL_VALUES, -7.0f);
  std::int32_t fabric = 7, line = 7, count = 7, ierr = 7777;
  std::vector<char> found = layup_buffer("x", CORVANE_MATERIAL_NAME_LENGTH),
                    file = layup_buffer("x", CORVANE_MATERIAL_PATH_LENGTH),
                    names = layup_buffer("x", CORVANE_MATERIAL_NAMES_LENGTH),
                    message = layup_buffer("x", CORVANE_STRENGTH_MESSAGE_LENGTH);

  MaterialCall() {
    // The machine's own material files stay out of the results.
    setenv("BASES_DATOS", "", 1);
    setenv("PATH", "/nonexistent", 1);
  }
  // MATERIAL_DATA, its pointer argument `missing` (0-based) null.
  MaterialCall& data(int missing = -1) {
    static auto* const f =
        library_under_test().entry<decltype(MATERIAL_DATA)>("MATERIAL_DATA");
    const auto g = [missing](int i, auto* p) { return i == missing ? nullptr : p; };
    f(g(0, name.data()), 1, g(1, places.data()), 2, g(2, installed.data()), 3,
      g(3, values.data()), g(4, &fabric), g(5, found.data()), 4, g(6, file.data()), 5,
      g(7, &line), g(8, message.data()), 6, g(9, &ierr));
    return *this;
  }
  MaterialCall& list(int missing = -1) {
    static auto* const f =
        library_under_test().entry<decltype(MATERIAL_NAMES)>("MATERIAL_NAMES");
    const auto g = [missing](int i, auto* p) { return i == missing ? nullptr : p; };
    f(g(0, places.data()), 1, g(1, installed.data()), 2, g(2, &count), g(3, names.data()),
      3, g(4, message.data()), 4, g(5, &ierr));
    return *this;
  }
  static std::string text(const std::vector<char>& t) {
    return std::string(t.begin(), t.end())
        .erase(std::string(t.begin(), t.end()).find_last_not_of(' ') + 1);
  }
  bool results_untouched() const {
    return values == std::vector<float>(CORVANE_MATERIAL_VALUES, -7.0f) && fabric == 7 &&
           line == 7 && count == 7 && text(found) == "x" && text(file) == "x" &&
           text(names) == "x";
  }
};

TEST(MaterialEntry, InstalledMaterialByNameAndTheList) {
  MaterialCall call;
  call.data();
  ASSERT_EQ(call.ierr, 0) << MaterialCall::text(call.message);
  const LAMINA m = t300_5208();
  EXPECT_EQ(call.values,
            (std::vector<float>{m.CPT, m.E1, m.E2, m.G12, m.v12, m.CTE1, m.CTE2, m.F1t,
                                m.F1c, m.F2t, m.F2c, m.F12, m.uetall, m.uecall}));
  EXPECT_EQ(call.fabric, 0);
  EXPECT_EQ(MaterialCall::text(call.found), "T300/5208");
  EXPECT_EQ(std::filesystem::path(MaterialCall::text(call.file)).filename(),
            "textbook_tapes.mat");
  EXPECT_EQ(call.line, 12);
  EXPECT_EQ(MaterialCall::text(call.message), "");

  call.list();
  EXPECT_EQ(call.count, 3);
  EXPECT_EQ(MaterialCall::text(call.names), "B(4)/5505\nScotchply 1002\nT300/5208\n");
}

TEST(MaterialEntry, RefusalsWriteOnlyCodeAndMessage) {
  const std::string bad = ::testing::TempDir() + "entry_bad.mat";
  std::ofstream(bad) << "MATERIAL X\n  CPT 0.1\n  E1 1e5\n  E2 1e4 5\nEND\n";
  const struct {
    std::string name, places;
    std::int32_t code;
    std::string message;
  } rows[] = {
      {"T300/5280", "", 2, "Error! No material \"T300/5280\"; nearest: T300/5208."},
      {"T300/5208", bad, 1, "Error! " + bad + ":4: E2 takes one number."},
      {"T300/5208", "/no/such.mat", 1, "Error! /no/such.mat: no such file or directory."},
  };
  for (const auto& row : rows) {
    MaterialCall call;
    call.name = layup_buffer(row.name, CORVANE_MATERIAL_NAME_LENGTH);
    call.places = layup_buffer(row.places, CORVANE_MATERIAL_PLACES_LENGTH);
    call.data();
    EXPECT_EQ(call.ierr, row.code) << row.name;
    EXPECT_EQ(MaterialCall::text(call.message), row.message);
    EXPECT_TRUE(call.results_untouched());
    if (row.code == 1) {
      call.list();
      EXPECT_EQ(call.ierr, 1);
      EXPECT_TRUE(call.results_untouched());
    }
  }
  std::remove(bad.c_str());
}

TEST(MaterialEntry, NullPointerWritesOnlyTheErrorCode) {
  for (int missing = 0; missing < 10; ++missing) {
    MaterialCall call;
    call.data(missing);
    EXPECT_EQ(call.ierr, missing == 9 ? 7777 : -1) << missing;
    EXPECT_TRUE(call.results_untouched() && MaterialCall::text(call.message) == "x");
  }
  for (int missing = 0; missing < 6; ++missing) {
    MaterialCall call;
    call.list(missing);
    EXPECT_EQ(call.ierr, missing == 5 ? 7777 : -1) << missing;
    EXPECT_TRUE(call.results_untouched() && MaterialCall::text(call.message) == "x");
  }
}

}  // namespace
}  // namespace corvane
