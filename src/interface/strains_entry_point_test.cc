// LAMINATE_STRAINS_IN_PLANE called through the built shared library: strains
// checked against values worked out by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "corvane/corvane.h"
#include "interface/loaded_library.h"

namespace corvane {
namespace {

constexpr float kSentinel = -777.0f;

struct StrainsCall {
  // t, Ex, Ey, Gxy, nuxy: a laminate 2 thick.
  float t = 2.0f, ex = 50000.0f, ey = 25000.0f, gxy = 10000.0f, nuxy = 0.3f;
  float nx = 0.0f, ny = 0.0f, nxy = 0.0f;
  float eps_x = kSentinel, eps_y = kSentinel, gamma_xy = kSentinel;
  float eps_p45 = kSentinel, eps_m45 = kSentinel;
  std::int32_t ierr = 7777;

  void run() {
    static auto* const entry =
        library_under_test().entry<decltype(LAMINATE_STRAINS_IN_PLANE)>(
            "LAMINATE_STRAINS_IN_PLANE");
    entry(&t, &ex, &ey, &gxy, &nuxy, &nx, &ny, &nxy, &eps_x, &eps_y, &gamma_xy, &eps_p45,
          &eps_m45, &ierr);
  }
};

TEST(StrainsEntry, StrainsOfRunningLoads) {
  const struct {
    const char* what;
    float nx, ny, nxy;
    double eps_x, eps_y, gamma_xy, eps_p45, eps_m45;
  } cases[] = {
      // Nx / (Ex t) and the Poisson contraction nuyx Nx / (Ey t), nuyx = 0.15.
      {"tension in x", 100, 0, 0, 1.0e-3, -3.0e-4, 0, 3.5e-4, 3.5e-4},
      {"tension in y", 0, 100, 0, -3.0e-4, 2.0e-3, 0, 8.5e-4, 8.5e-4},
      // Pure shear: the +45 and -45 directions stretch and shorten by gamma / 2.
      {"pure shear", 0, 0, 50, 0, 0, 2.5e-3, 1.25e-3, -1.25e-3},
      {"combined", -200, 100, -40, -2.3e-3, 2.6e-3, -2.0e-3, -8.5e-4, 1.15e-3},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    StrainsCall call;
    call.nx = c.nx;
    call.ny = c.ny;
    call.nxy = c.nxy;
    call.run();
    EXPECT_EQ(call.ierr, 0);
    const float got[] = {call.eps_x, call.eps_y, call.gamma_xy, call.eps_p45,
                         call.eps_m45};
    const double want[] = {c.eps_x, c.eps_y, c.gamma_xy, c.eps_p45, c.eps_m45};
    for (int i = 0; i < 5; ++i) {
      EXPECT_NEAR(got[i], want[i], 1.0e-6 * std::fabs(want[i]) + 1.0e-12) << i;
    }
  }
}

TEST(StrainsEntry, ModulusBelowTheLimitGivesFlagOneAndLeavesTheShearStrain) {
  const struct {
    const char* what;
    float ex, ey, gxy;
  } cases[] = {
      {"Ex = 1e-7", 1.0e-7f, 25000, 10000},   {"Ey = 1e-7", 50000, 1.0e-7f, 10000},
      {"Gxy = 1e-7", 50000, 25000, 1.0e-7f},  {"Ex = 0", 0, 25000, 10000},
      {"Gxy negative", 50000, 25000, -10000},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    StrainsCall call;
    call.ex = c.ex;
    call.ey = c.ey;
    call.gxy = c.gxy;
    call.nxy = 50.0f;
    call.run();
    EXPECT_EQ(call.ierr, 1);
    for (const float e : {call.eps_x, call.eps_y, call.eps_p45, call.eps_m45}) {
      EXPECT_EQ(e, 1.0e20f);
    }
    EXPECT_EQ(call.gamma_xy, kSentinel);
  }
}

TEST(StrainsEntry, UncheckedInputsGoThrough) {
  // The limit itself is accepted.
  for (float StrainsCall::*modulus :
       {&StrainsCall::ex, &StrainsCall::ey, &StrainsCall::gxy}) {
    StrainsCall at_limit;
    at_limit.*modulus = 1.0e-6f;
    at_limit.nx = 1.0f;
    at_limit.nxy = 1.0f;
    at_limit.run();
    EXPECT_EQ(at_limit.ierr, 0);
    EXPECT_NE(at_limit.gamma_xy, kSentinel);
  }

  // The thickness is not checked.
  StrainsCall no_thickness;
  no_thickness.t = 0.0f;
  no_thickness.nx = 100.0f;
  no_thickness.run();
  EXPECT_EQ(no_thickness.ierr, 0);
  EXPECT_EQ(no_thickness.eps_x, std::numeric_limits<float>::infinity());

  // A NaN modulus is not below the limit.
  StrainsCall nan;
  nan.ex = std::numeric_limits<float>::quiet_NaN();
  nan.run();
  EXPECT_EQ(nan.ierr, 0);
  EXPECT_TRUE(std::isnan(nan.eps_x));
}

TEST(StrainsEntry, NullPointerWritesOnlyTheErrorCode) {
  static auto* const entry =
      library_under_test().entry<decltype(LAMINATE_STRAINS_IN_PLANE)>(
          "LAMINATE_STRAINS_IN_PLANE");
  constexpr int kPointers = 14;
  for (int missing = 0; missing < kPointers; ++missing) {
    SCOPED_TRACE(missing);
    StrainsCall c;
    c.ex = 0.0f;  // would write the four 1e20 if it went on
    const auto given = [missing](int position, auto* pointer) {
      return position == missing ? nullptr : pointer;
    };
    entry(given(0, &c.t), given(1, &c.ex), given(2, &c.ey), given(3, &c.gxy),
          given(4, &c.nuxy), given(5, &c.nx), given(6, &c.ny), given(7, &c.nxy),
          given(8, &c.eps_x), given(9, &c.eps_y), given(10, &c.gamma_xy),
          given(11, &c.eps_p45), given(12, &c.eps_m45), given(13, &c.ierr));
    for (const float e : {c.eps_x, c.eps_y, c.gamma_xy, c.eps_p45, c.eps_m45}) {
      EXPECT_EQ(e, kSentinel);
    }
    EXPECT_EQ(c.ierr, missing == kPointers - 1 ? 7777 : -1);
  }
}

}  // namespace
}  // namespace corvane
