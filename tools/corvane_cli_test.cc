// Runs the corvane program and checks what it prints against direct calls of
// the entry points, its JSON against the same numbers, and its answers to bad
// input (exit status and the one line on standard error).
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "corvane/corvane.h"
#include "refused_inputs.h"

namespace {

using Json = nlohmann::json;
using Matrix = std::array<float, 9>;

struct Outcome {
  int status;
  std::string out, err;
};

std::string read_file(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

std::string shell_quoted(const std::string& arg) {
  std::string quoted = "'";
  for (const char c : arg) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

// A file name of this test process's own: CTest runs the cases of this
// program as separate processes, several at a time.
std::string scratch_path(const std::string& name) {
  return testing::TempDir() + "corvane_cli_test_" + std::to_string(getpid()) + "_" + name;
}

Outcome corvane(const std::vector<std::string>& args) {
  const std::string err_path = scratch_path("stderr.txt");
  std::string command = shell_quoted(CORVANE_CLI_PROGRAM);
  for (const std::string& arg : args) command += " " + shell_quoted(arg);
  command += " 2>" + shell_quoted(err_path);
  Outcome run{-1, "", ""};
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return run;
  char buffer[4096];
  for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) {
    run.out.append(buffer, n);
  }
  const int wait_status = pclose(pipe);
  run.status = WIFEXITED(wait_status) ? WEXITSTATUS(wait_status) : -1;
  run.err = read_file(err_path);
  std::remove(err_path.c_str());
  return run;
}

Json parsed(const Outcome& run) {
  Json j = Json::parse(run.out, nullptr, false);
  EXPECT_FALSE(j.is_discarded()) << "not JSON:\n" << run.out;
  return j;
}

Matrix matrix_of(const Json& rows) {
  Matrix m{};
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) m[i + 3 * j] = rows.at(i).at(j).get<float>();
  }
  return m;
}

// Six significant digits, as the program prints for people.
std::string g6(float v) {
  if (v == 0.0f) return "0";
  char text[32];
  std::snprintf(text, sizeof text, "%.6g", static_cast<double>(v));
  return text;
}

struct Material {
  float t = 0.125f, e1 = 135000.0f, e2 = 10000.0f, g12 = 5000.0f, nu12 = 0.3f,
        cte1 = -0.3e-6f, cte2 = 28.0e-6f;
};

struct Stiffness {
  std::int32_t symmetric = 0, plies = 0, ierr = -9;
  Matrix a{}, b{}, d{}, dstar{};
  float h = 0, ex = 0, ey = 0, gxy = 0, nuxy = 0, alphax = 0, alphay = 0, alphaxy = 0;
  std::string cards;
};

// The library's own answer, straight from the entry point.
Stiffness direct_stiffness(const Material& m, const Material* m2,
                           const std::string& layup) {
  Stiffness s;
  std::string text = layup;
  text.resize(CORVANE_LAYUP_LENGTH, ' ');
  std::string cards(CORVANE_CARDS_LENGTH, ' ');
  if (m2 == nullptr) {
    LAMINATE_STIFFNESS(&m.t, &m.e1, &m.e2, &m.g12, &m.nu12, &m.cte1, &m.cte2, text.data(),
                       CORVANE_LAYUP_LENGTH, &s.symmetric, s.a.data(), s.b.data(),
                       s.d.data(), s.dstar.data(), &s.h, &s.ex, &s.ey, &s.gxy, &s.nuxy,
                       &s.alphax, &s.alphay, &s.alphaxy, &s.plies, cards.data(),
                       CORVANE_CARDS_LENGTH, &s.ierr);
  } else {
    BI_MATERIAL_LAMINATE_STIFFNESS(
        &m.t, &m.e1, &m.e2, &m.g12, &m.nu12, &m.cte1, &m.cte2, &m2->t, &m2->e1, &m2->e2,
        &m2->g12, &m2->nu12, &m2->cte1, &m2->cte2, text.data(), CORVANE_LAYUP_LENGTH,
        &s.symmetric, s.a.data(), s.b.data(), s.d.data(), s.dstar.data(), &s.h, &s.ex,
        &s.ey, &s.gxy, &s.nuxy, &s.alphax, &s.alphay, &s.alphaxy, &s.plies, cards.data(),
        CORVANE_CARDS_LENGTH, &s.ierr);
  }
  s.cards = cards.substr(0, cards.find_last_not_of(' ') + 1);
  return s;
}

// ---------------------------------------------------------------- stiffness

struct StiffnessCase {
  std::string name;
  std::vector<std::string> args;
  Material m1;
  bool two_materials;
  Material m2;
  std::string layup;
};

void PrintTo(const StiffnessCase& c, std::ostream* os) { *os << c.name; }

Material with(Material m, float Material::*field, float value) {
  m.*field = value;
  return m;
}

class StiffnessCommandTest : public testing::TestWithParam<StiffnessCase> {};

TEST_P(StiffnessCommandTest, JsonHoldsTheEntryPointResults) {
  const StiffnessCase& c = GetParam();
  std::vector<std::string> args = {"stiffness", "--json"};
  args.insert(args.end(), c.args.begin(), c.args.end());
  const Outcome run = corvane(args);
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  const Json j = parsed(run);
  const Stiffness s = direct_stiffness(c.m1, c.two_materials ? &c.m2 : nullptr, c.layup);
  ASSERT_EQ(s.ierr, 0);
  EXPECT_EQ(j.at("error_code"), 0);
  EXPECT_EQ(j.at("entry_point"),
            c.two_materials ? "BI_MATERIAL_LAMINATE_STIFFNESS" : "LAMINATE_STIFFNESS");
  EXPECT_EQ(j.at("layup"), c.layup);
  EXPECT_EQ(j.at("materials").size(), c.two_materials ? 2u : 1u);
  EXPECT_EQ(j.at("materials").at(0).at("E1").get<float>(), c.m1.e1);
  EXPECT_EQ(j.at("materials").at(0).at("CTE1").get<float>(), c.m1.cte1);
  if (c.two_materials) {
    EXPECT_EQ(j.at("materials").at(1).at("t").get<float>(), c.m2.t);
    EXPECT_EQ(j.at("materials").at(1).at("E2").get<float>(), c.m2.e2);
  }
  EXPECT_EQ(j.at("symmetric").get<bool>(), s.symmetric != 0);
  EXPECT_EQ(j.at("plies").get<int>(), s.plies);
  EXPECT_EQ(matrix_of(j.at("A")), s.a);
  EXPECT_EQ(matrix_of(j.at("B")), s.b);
  EXPECT_EQ(matrix_of(j.at("D")), s.d);
  EXPECT_EQ(matrix_of(j.at("Dstar")), s.dstar);
  EXPECT_EQ(j.at("h").get<float>(), s.h);
  EXPECT_EQ(j.at("Ex").get<float>(), s.ex);
  EXPECT_EQ(j.at("Ey").get<float>(), s.ey);
  EXPECT_EQ(j.at("Gxy").get<float>(), s.gxy);
  EXPECT_EQ(j.at("nuxy").get<float>(), s.nuxy);
  EXPECT_EQ(j.at("alphax").get<float>(), s.alphax);
  EXPECT_EQ(j.at("alphay").get<float>(), s.alphay);
  EXPECT_EQ(j.at("alphaxy").get<float>(), s.alphaxy);
  EXPECT_EQ(j.at("cards").get<std::string>(), s.cards);
}

const Material kTape;
const Material kGlass{0.2f, 45000.0f, 12000.0f, 4500.0f, 0.28f, 7.0e-6f, 30.0e-6f};

INSTANTIATE_TEST_SUITE_P(
    Laminates, StiffnessCommandTest,
    testing::Values(
        StiffnessCase{"DefaultTapeAndLayup", {}, kTape, false, {}, "(0/45/-45/90)S"},
        StiffnessCase{"LayupAndTwoValues",
                      {"(0/90)2S", "--e1", "140000", "--nu12", "0.27"},
                      with(with(kTape, &Material::e1, 140000.0f), &Material::nu12, 0.27f),
                      false,
                      {},
                      "(0/90)2S"},
        StiffnessCase{"UnsymmetricByOption",
                      {"--layup", "(0/45)", "--t", "0.25"},
                      with(kTape, &Material::t, 0.25f),
                      false,
                      {},
                      "(0/45)"},
        StiffnessCase{"SecondMaterialPlies",
                      {"(0/45./-45./90)S", "--m2-t", "0.2", "--m2-e1", "45000", "--m2-e2",
                       "12000", "--m2-g12", "4500", "--m2-nu12", "0.28", "--m2-cte1",
                       "7e-6", "--m2-cte2", "30e-6"},
                      kTape,
                      true,
                      kGlass,
                      "(0/45./-45./90)S"},
        // Values of material 2 not given are those of material 1.
        StiffnessCase{"SecondMaterialTakesTheFirstOnesValues",
                      {"(45./0)", "--e2", "9000", "--m2-e1", "70000"},
                      with(kTape, &Material::e2, 9000.0f),
                      true,
                      with(with(kTape, &Material::e2, 9000.0f), &Material::e1, 70000.0f),
                      "(45./0)"},
        // A --m2- option alone asks for the two-material entry point too.
        StiffnessCase{"SecondMaterialOptionWithoutItsPlies",
                      {"(0/90)S", "--m2-t", "0.3"},
                      kTape,
                      true,
                      with(kTape, &Material::t, 0.3f),
                      "(0/90)S"}),
    [](const testing::TestParamInfo<StiffnessCase>& info) { return info.param.name; });

TEST(StiffnessCommandText, PrintsMatricesAndConstantsOfTheDefaultLaminate) {
  const Outcome run = corvane({"stiffness"});
  ASSERT_EQ(run.status, 0) << run.err;
  const Stiffness s = direct_stiffness(kTape, nullptr, "(0/45/-45/90)S");
  // Eight plies of 0.125: 1.0 thick, symmetric, so no coupling.
  EXPECT_EQ(s.plies, 8);
  EXPECT_EQ(s.h, 1.0f);
  EXPECT_NE(run.out.find("Laminate (0/45/-45/90)S: 8 plies, symmetric\n"),
            std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find("t = 0.125  E1 = 135000  E2 = 10000  G12 = 5000  nu12 = 0.3  "
                         "CTE1 = -3e-07  CTE2 = 2.8e-05"),
            std::string::npos);
  const std::pair<std::string, float> lines[] = {
      {"h         = ", s.h},      {"Ex        = ", s.ex},      {"Ey        = ", s.ey},
      {"Gxy       = ", s.gxy},    {"nu_xy     = ", s.nuxy},    {"alpha_x   = ", s.alphax},
      {"alpha_y   = ", s.alphay}, {"alpha_xy  = ", s.alphaxy},
  };
  for (const auto& [label, value] : lines) {
    EXPECT_NE(run.out.find("\n" + label + g6(value) + "\n"), std::string::npos)
        << label << g6(value) << "\n"
        << run.out;
  }
  // Each matrix: its title, then three rows of three right-aligned columns.
  const std::pair<std::string, Matrix> matrices[] = {
      {"[A]", s.a}, {"[B]", s.b}, {"[D]", s.d}, {"[D*]", s.dstar}};
  for (const auto& [title, m] : matrices) {
    std::string block = "\n" + title + "\n";
    for (int i = 0; i < 3; ++i) {
      for (int j = 0; j < 3; ++j) {
        const std::string v = g6(m[i + 3 * j]);
        block += std::string(14 - v.size(), ' ') + v;
      }
      block += "\n";
    }
    EXPECT_NE(run.out.find(block), std::string::npos) << block << "\n" << run.out;
  }
}

TEST(StiffnessCommandText, CardsFileHoldsTheDeckWithoutPadding) {
  const std::string path = scratch_path("cards.bdf");
  std::remove(path.c_str());
  const Outcome run = corvane({"stiffness", "(0/90)S", "--cards", path});
  ASSERT_EQ(run.status, 0) << run.err;
  const std::string cards = read_file(path);
  EXPECT_EQ(cards, direct_stiffness(kTape, nullptr, "(0/90)S").cards);
  ASSERT_FALSE(cards.empty());
  EXPECT_NE(cards.back(), ' ');
  EXPECT_NE(cards.find("\r\n"), std::string::npos);
  EXPECT_NE(run.out.find("Cards written to " + path), std::string::npos);
}

// ------------------------------------------------------------------ strains

TEST(StrainsCommand, DirectConstantsGiveTheEntryPointStrains) {
  const float h = 2.0f, ex = 60000.0f, ey = 30000.0f, gxy = 12000.0f, nuxy = 0.25f;
  const float nx = 300.0f, ny = -120.0f, nxy = 45.0f;
  float strains[5];
  std::int32_t ierr = -9;
  LAMINATE_STRAINS_IN_PLANE(&h, &ex, &ey, &gxy, &nuxy, &nx, &ny, &nxy, &strains[0],
                            &strains[1], &strains[2], &strains[3], &strains[4], &ierr);
  ASSERT_EQ(ierr, 0);
  const Outcome run =
      corvane({"strains", "--json", "--h", "2", "--ex", "60000", "--ey", "30000", "--gxy",
               "12000", "--nuxy", "0.25", "--nx", "300", "--ny", "-120", "--nxy", "45"});
  ASSERT_EQ(run.status, 0) << run.err;
  const Json j = parsed(run);
  EXPECT_EQ(j.at("error_code"), 0);
  const char* keys[5] = {"eps_x", "eps_y", "gamma_xy", "eps_p45", "eps_m45"};
  for (int k = 0; k < 5; ++k)
    EXPECT_EQ(j.at(keys[k]).get<float>(), strains[k]) << keys[k];
  // Pure numbers of the inputs: eps_x = (Nx - nuxy Ny) / (Ex h).
  EXPECT_FLOAT_EQ(j.at("eps_x").get<float>(), (300.0f + 0.25f * 120.0f) / 120000.0f);
}

TEST(StrainsCommand, LayupConstantsComeFromTheStiffness) {
  const Stiffness s = direct_stiffness(kTape, nullptr, "(0/90)2S");
  ASSERT_EQ(s.ierr, 0);
  const float nx = -250.0f, ny = 0.0f, nxy = 0.0f;
  float strains[5];
  std::int32_t ierr = -9;
  LAMINATE_STRAINS_IN_PLANE(&s.h, &s.ex, &s.ey, &s.gxy, &s.nuxy, &nx, &ny, &nxy,
                            &strains[0], &strains[1], &strains[2], &strains[3],
                            &strains[4], &ierr);
  const Outcome text = corvane({"strains", "(0/90)2S", "--nx", "-250"});
  ASSERT_EQ(text.status, 0) << text.err;
  EXPECT_NE(text.out.find("\neps_x     = " + g6(strains[0]) + "\n"), std::string::npos)
      << text.out;
  EXPECT_NE(text.out.find("\neps_-45   = " + g6(strains[4]) + "\n"), std::string::npos);
  const Json j = parsed(corvane({"strains", "(0/90)2S", "--nx", "-250", "--json"}));
  EXPECT_EQ(j.at("Ex").get<float>(), s.ex);
  EXPECT_EQ(j.at("eps_y").get<float>(), strains[1]);
  EXPECT_EQ(j.at("laminate").at("entry_point"), "LAMINATE_STIFFNESS");
}

// ------------------------------------------------------------------ buckling

std::array<float, 3> direct_plate_loads(const Matrix& d, float a, float b) {
  std::array<float, 3> loads{};
  std::int32_t ierr = -9;
  LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS(d.data(), &a, &b, &loads[0], &loads[1],
                                         &loads[2], &ierr);
  EXPECT_EQ(ierr, 0);
  return loads;
}

void expect_loads(const Json& j, const std::array<float, 3>& loads) {
  EXPECT_EQ(j.at("Nxcr").get<float>(), loads[0]);
  EXPECT_EQ(j.at("Nycr").get<float>(), loads[1]);
  EXPECT_EQ(j.at("Nxycr").get<float>(), loads[2]);
}

TEST(PlateBucklingCommand, GivenAndComputedBendingStiffness) {
  const Matrix d = {8000, 2500, 0, 2500, 6000, 0, 0, 0, 3000};
  const auto given = direct_plate_loads(d, 500.0f, 200.0f);
  // Closed form, two half-waves along a/b = 2.5: pi^2/b^2 (D11 (mb/a)^2 + 2(D12 + 2 D66)
  // + D22 (a/mb)^2) = pi^2 (5120 + 17000 + 9375) / 40000.
  EXPECT_NEAR(given[0], 7.77108f, 1.0e-4f);
  const Json j = parsed(corvane({"plate-buckling", "--D", "8000,2500,0,6000,0,3000",
                                 "--a", "500", "--b", "200", "--json"}));
  EXPECT_EQ(j.at("error_code"), 0);
  EXPECT_EQ(matrix_of(j.at("D")), d);
  expect_loads(j, given);

  const Stiffness s = direct_stiffness(kTape, nullptr, "(45/-45/0/90)2S");
  const auto computed = direct_plate_loads(s.d, 600.0f, 150.0f);
  const Outcome run =
      corvane({"plate-buckling", "(45/-45/0/90)2S", "--a", "600", "--b", "150"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("\nNx,cr  = " + g6(computed[0]) + "\n"), std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find("\nNy,cr  = " + g6(computed[1]) + "\n"), std::string::npos);
  EXPECT_NE(run.out.find("\nNxy,cr = " + g6(computed[2]) + "\n"), std::string::npos);
}

TEST(ReserveFactorCommand, GivenAndComputedCriticalLoads) {
  const float nx = -60.0f, ny = 0.0f, nxy = 40.0f;
  float crit[3] = {120.0f, 80.0f, 150.0f}, rf = 0.0f;
  std::int32_t ierr = -9;
  LAMINATE_RECTANGULAR_SS_BUCKLING_RF(&nx, &ny, &nxy, &crit[0], &crit[1], &crit[2], &rf,
                                      &ierr);
  ASSERT_EQ(ierr, 0);
  const Outcome run = corvane({"reserve-factor", "--nxcr", "120", "--nycr", "80",
                               "--nxycr", "150", "--nx", "-60", "--nxy", "40"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("\nRF = " + g6(rf) + "\n"), std::string::npos) << run.out;
  // Pure compression at the critical load: RF 1 by definition.
  const Json at_critical =
      parsed(corvane({"reserve-factor", "--json", "--nxcr", "120", "--nycr", "80",
                      "--nxycr", "150", "--nx", "-120"}));
  EXPECT_EQ(at_critical.at("RF").get<float>(), 1.0f);

  const Stiffness s = direct_stiffness(kTape, nullptr, "(0/45/-45/90)S");
  auto loads = direct_plate_loads(s.d, 500.0f, 200.0f);
  LAMINATE_RECTANGULAR_SS_BUCKLING_RF(&nx, &ny, &nxy, &loads[0], &loads[1], &loads[2],
                                      &rf, &ierr);
  const Json j = parsed(corvane({"reserve-factor", "--a", "500", "--b", "200", "--nx",
                                 "-60", "--nxy", "40", "--json"}));
  EXPECT_EQ(j.at("error_code"), 0);
  expect_loads(j, loads);
  EXPECT_EQ(j.at("RF").get<float>(), rf);
}

TEST(ShellBucklingCommand, GivenAndComputedStiffness) {
  const Stiffness s = direct_stiffness(kTape, nullptr, "(45/-45/0/90)2S");
  const float l = 600.0f, b = 300.0f, r = 1500.0f;
  std::array<float, 3> loads{};
  std::int32_t ierr = -9;
  LAMINATE_SHELL_BUCKLING_LOADS(s.a.data(), s.d.data(), &l, &b, &r, &s.h, &loads[0],
                                &loads[1], &loads[2], &ierr);
  ASSERT_EQ(ierr, 0);
  const Outcome run = corvane(
      {"shell-buckling", "(45/-45/0/90)2S", "--l", "600", "--b", "300", "--r", "1500"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("\nNxy,cr = " + g6(loads[2]) + "\n"), std::string::npos)
      << run.out;
  const Json j = parsed(corvane({"shell-buckling", "(45/-45/0/90)2S", "--l", "600", "--b",
                                 "300", "--r", "1500", "--json"}));
  EXPECT_EQ(j.at("error_code"), 0);
  EXPECT_EQ(j.at("h").get<float>(), 2.0f);  // sixteen plies of 0.125
  expect_loads(j, loads);

  const Matrix a = {50000, 15000, 0, 15000, 40000, 0, 0, 0, 17000};
  const Matrix d = {4000, 1200, 0, 1200, 3500, 0, 0, 0, 1400};
  const float t = 1.5f, flat = 0.0f;
  LAMINATE_SHELL_BUCKLING_LOADS(a.data(), d.data(), &l, &b, &flat, &t, &loads[0],
                                &loads[1], &loads[2], &ierr);
  const Json given =
      parsed(corvane({"shell-buckling", "--A", "50000,15000,0,40000,0,17000", "--D",
                      "4000,1200,0,3500,0,1400", "--h", "1.5", "--l", "600", "--b", "300",
                      "--r", "0", "--json"}));
  EXPECT_EQ(given.at("error_code"), ierr);
  expect_loads(given, loads);
}

TEST(EveryCommand, HelpShowsAnExample) {
  for (const char* command : {"stiffness", "strains", "plate-buckling", "reserve-factor",
                              "shell-buckling", "strength"}) {
    const Outcome run = corvane({command, "--help"});
    EXPECT_EQ(run.status, 0) << command;
    EXPECT_NE(run.out.find("Examples:\n  corvane " + std::string(command)),
              std::string::npos)
        << run.out;
  }
  const Outcome top = corvane({"--help"});
  EXPECT_EQ(top.status, 0);
  EXPECT_NE(top.out.find("E1 = 135000, E2 = 10000"), std::string::npos);
}

// ---------------------------------------------------------------- bad input

struct BadInput {
  std::string name;
  std::vector<std::string> args;
  int status;
  std::string message;  // the line on standard error, less its end
};

void PrintTo(const BadInput& c, std::ostream* os) { *os << c.name; }

class BadInputTest : public testing::TestWithParam<BadInput> {};

TEST_P(BadInputTest, OneLineNamesTheFaultAndTheStatusIsNonZero) {
  const BadInput& c = GetParam();
  const Outcome run = corvane(c.args);
  EXPECT_EQ(run.status, c.status);
  EXPECT_EQ(run.err, c.message + "\n");
}

const std::string kMaterialError = " (library error code 1: invalid ply material)";
const std::string kLayupError =
    " (library error code 2: stacking sequence refused or laminate unusable)";

// Input the library refuses, or for which it finds no result (more refused
// input in the table below).
const BadInput kLibraryFailures[] = {
    BadInput{"NegativePoissonOfMaterialTwo",
             {"stiffness", "(0/45.)", "--m2-nu12", "-0.1"},
             1,
             "corvane stiffness: material 2: v12 = -0.1 is negative" + kMaterialError},
    BadInput{"UnusableLaminate",
             {"stiffness", "(0/90)S", "--nu12", "0"},
             1,
             "corvane stiffness: the layup (0/90)S was read, but the laminate is "
             "unusable: [A] is singular or one of Ex, Ey, Gxy, nu_xy is below 1e-10" +
                 kLayupError},
    BadInput{
        "LayupErrorInABucklingCommand",
        {"plate-buckling", "(0/90", "--a", "1", "--b", "1"},
        1,
        "corvane plate-buckling: the layup \"(0/90\" is refused: no \")\"" + kLayupError},
    BadInput{"ModulusBelowLimit",
             {"strains", "--h", "1", "--ex", "1e-7", "--ey", "1", "--gxy", "1", "--nuxy",
              "0.3"},
             1,
             "corvane strains: Ex = 1e-07 is below 1e-6 (library error code 1: Ex, Ey or "
             "Gxy below 1e-6)"},
    BadInput{
        "PlateWithoutD12",
        {"plate-buckling", "--D", "8000,0,0,6000,0,3000", "--a", "500", "--b", "200"},
        1,
        "corvane plate-buckling: no critical load found for Nx, Ny, Nxy: D12 = 0 is not "
        "positive (library error code 0: the loads entry point reports none; a load of 0 "
        "was not found)"},
    BadInput{"PlateOfNegativeLength",
             {"plate-buckling", "--a", "-5", "--b", "200"},
             1,
             "corvane plate-buckling: no critical load found for Nx, Ny, Nxy: plate "
             "length a (--a) = -5 is not positive (library error code 0: the loads entry "
             "point reports none; a load of 0 was not found)"},
    BadInput{"ZeroCriticalLoad",
             {"reserve-factor", "--nxcr", "0.5e-6", "--nycr", "80", "--nxycr", "150",
              "--nx", "-10"},
             1,
             "corvane reserve-factor: the critical Nx = 5e-07 is below 1e-6 (library "
             "error code 1: a critical load is below 1e-6)"},
    BadInput{
        "ShellWithoutD12",
        {"shell-buckling", "--A", "50000,15000,0,40000,0,17000", "--D",
         "4000,0,0,3500,0,1400", "--h", "1.5", "--l", "600", "--b", "300", "--r", "0"},
        1,
        "corvane shell-buckling: D12 = 0 is not positive, so the flat-panel shear "
        "estimate is 0 (library error code 1: non-positive input to the flat-panel shear "
        "estimate)"},
};

// Mistakes the program finds itself, before or without calling the library.
const BadInput kCommandLineErrors[] = {
    BadInput{"NotANumber",
             {"stiffness", "--e1", "abc"},
             2,
             "corvane stiffness: --e1: \"abc\" is not a number (see --help)"},
    BadInput{"MatrixOfFiveTerms",
             {"plate-buckling", "--D", "1,2,3,4,5", "--a", "1", "--b", "1"},
             2,
             "corvane plate-buckling: --D: expected six numbers X11,X12,X16,X22,X26,X66, "
             "got 5 (see --help)"},
    BadInput{
        "MatrixAndMaterial",
        {"plate-buckling", "--D", "1,2,3,4,5,6", "--e1", "5", "--a", "1", "--b", "1"},
        2,
        "corvane plate-buckling: --D replaces the material and layup: drop --e1 (see "
        "--help)"},
    BadInput{
        "PartOfTheConstants",
        {"strains", "--ex", "50000"},
        2,
        "corvane strains: give all of --h --ex --ey --gxy --nuxy, or none (see --help)"},
    BadInput{"NoPlateForTheReserveFactor",
             {"reserve-factor", "--nx", "-5"},
             2,
             "corvane reserve-factor: give the critical loads (--nxcr --nycr --nxycr) or "
             "the plate (--a and --b) (see --help)"},
    BadInput{"MissingRadius",
             {"shell-buckling", "--l", "1", "--b", "1"},
             2,
             "corvane shell-buckling: --r is required (see --help)"},
    BadInput{
        "UnknownOption",
        {"stiffness", "--e3", "5"},
        2,
        "corvane stiffness: The following argument was not expected: --e3 (see --help)"},
    BadInput{"UnknownCommand",
             {"stifness"},
             2,
             "corvane: unknown command \"stifness\"; the commands are stiffness, "
             "strains, plate-buckling, reserve-factor, shell-buckling, strength"},
    BadInput{"CardsFileInAMissingFolder",
             {"stiffness", "--cards", "no-such-folder/deck.bdf"},
             3,
             "corvane stiffness: cannot write the cards to no-such-folder/deck.bdf"},
};

std::string case_name(const testing::TestParamInfo<BadInput>& info) {
  return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(LibraryFailures, BadInputTest,
                         testing::ValuesIn(kLibraryFailures), case_name);
INSTANTIATE_TEST_SUITE_P(CommandLineErrors, BadInputTest,
                         testing::ValuesIn(kCommandLineErrors), case_name);

// The library's failures through --json: the output still parses and carries
// the library's error code.
class FailureJsonTest : public testing::TestWithParam<BadInput> {};

TEST_P(FailureJsonTest, JsonCarriesTheErrorCode) {
  const BadInput& c = GetParam();
  std::vector<std::string> args = c.args;
  args.push_back("--json");
  const Outcome run = corvane(args);
  EXPECT_EQ(run.status, 1);
  const Json j = parsed(run);
  const auto code = c.message.find("library error code ");
  ASSERT_NE(code, std::string::npos);
  EXPECT_EQ(j.at("error_code").get<int>(), std::stoi(c.message.substr(code + 19)));
  EXPECT_FALSE(j.at("error").get<std::string>().empty());
}

INSTANTIATE_TEST_SUITE_P(LibraryFailures, FailureJsonTest,
                         testing::ValuesIn(kLibraryFailures), case_name);

// The table of refused inputs that the library and the package run too: the
// same error code, and the core's reason with its position in the layup.
TEST(RefusedInputs, TheCommandAgreesWithTheLibrary) {
  const std::vector<corvane::RefusedInput> rows =
      corvane::refused_inputs(CORVANE_REFUSED_INPUTS);
  ASSERT_FALSE(rows.empty());
  const char* const options[] = {"--t=", "--e1=", "--e2=", "--g12=", "--nu12="};
  for (const corvane::RefusedInput& row : rows) {
    std::vector<std::string> args = {"stiffness", "--json", "--layup=" + row.layup};
    for (int k = 0; k < 5; ++k) args.push_back(options[k] + row.material[k]);
    const Outcome run = corvane(args);
    EXPECT_EQ(run.status, 1) << row.layup;
    const Json j = parsed(run);
    EXPECT_EQ(j.value("error_code", -9), row.code) << row.layup;
    const std::string error = j.value("error", "");
    EXPECT_NE(error.find(row.reason), std::string::npos) << error;
    const std::string at = "at character " + std::to_string(row.position) + ":";
    EXPECT_EQ(error.find(at) != std::string::npos, row.position != 0) << error;
  }
}

}  // namespace
