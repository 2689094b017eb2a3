// The two plate buckling entry points called as a host calls them.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "corvane/corvane.h"

namespace {

const float kNaN = NAN;
const float kInf = INFINITY;

struct Loads {
  float nxcr = -5.0f, nycr = -5.0f, nxycr = -5.0f;
  int32_t ierr = 7;
};

// [D] in column order: D11 D21 D31 D12 D22 D32 D13 D23 D33.
Loads buckling_loads(float D11, float D12, float D22, float D66, float a, float b,
                     float noise = 0.0f) {
  const float d[9] = {D11, noise, noise, D12, D22, noise, noise, noise, D66};
  Loads out;
  LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS(d, &a, &b, &out.nxcr, &out.nycr, &out.nxycr,
                                         &out.ierr);
  return out;
}

TEST(BucklingLoadsEntry, ReadsD11D12D22D66Only) {
  // Isotropic D = 1000, nu = 0.3, 200 x 200: 4 pi^2 D/b^2, and 92 D/b^2 in shear;
  // D21, D16, D26 and their copies carry a value that would show.
  const Loads out =
      buckling_loads(1000.0f, 300.0f, 1000.0f, 350.0f, 200.0f, 200.0f, 77.0f);
  EXPECT_EQ(out.ierr, 0);
  EXPECT_NEAR(out.nxcr, 4.0 * 9.869604401 * 1000.0 / 40000.0, 1.0e-5);
  EXPECT_EQ(out.nycr, out.nxcr);
  EXPECT_NEAR(out.nxycr, 92.0 * 1000.0 / 40000.0, 1.0e-5);
}

TEST(BucklingLoadsEntry, LoadsAreZeroedBeforeTheDimensionsAreRead) {
  // A dimension passed in the variable of a load reads as zero: no load found.
  const float d[9] = {1000, 0, 0, 300, 1000, 0, 0, 0, 350};
  for (int k = 0; k < 3; ++k) {
    for (const bool length : {true, false}) {
      float loads[3] = {200.0f, 200.0f, 200.0f};
      float other = 200.0f;
      int32_t ierr = 7;
      LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS(d, length ? &loads[k] : &other,
                                             length ? &other : &loads[k], &loads[0],
                                             &loads[1], &loads[2], &ierr);
      EXPECT_EQ(loads[0] + loads[1] + loads[2], 0.0f) << k << length;
    }
  }
}

TEST(BucklingLoadsEntry, FailuresShowAsZeroLoadsWithErrorCodeZero) {
  Loads out = buckling_loads(10.0f, 0.0f, 5.0f, 2.0f, 1.0f, 1.0f);  // D12 = 0
  EXPECT_EQ(out.ierr, 0);
  EXPECT_EQ(out.nxcr + out.nycr + out.nxycr, 0.0f);
  // 1000 half-waves across in y compression: the x load is found first and kept.
  out = buckling_loads(1.0f, 1.0e-10f, 1.0e-8f, 1.0e-10f, 1.0f, 10.0f);
  EXPECT_EQ(out.ierr, 0);
  EXPECT_GT(out.nxcr, 0.0f);
  EXPECT_EQ(out.nycr + out.nxycr, 0.0f);
  // A NaN D12 is not non-positive: no mode gives a positive factor, and the
  // search reports its starting value.
  out = buckling_loads(10.0f, NAN, 5.0f, 2.0f, 1.0f, 1.0f);
  EXPECT_EQ(out.ierr, 0);
  EXPECT_EQ(out.nxcr, 100000.0f);
  EXPECT_EQ(out.nycr, 100000.0f);
}

TEST(BucklingRfEntry, ReserveFactorAndErrorCode) {
  const struct {
    float nx, ny, nxy, nxcr, nycr, nxycr, rf;  // rf NaN: a NaN result
    int32_t ierr;
  } cases[] = {{-120, 0, 0, 120, 80, 50, 1.0f, 0},  // NX = -NXCR
               {-60, 0, 25, 120, 80, 50, 1.2360680f, 0},
               {500, -40, 0, 120, 80, 50, 2.0f, 0},
               {10, 20, 0, 120, 80, 50, 100000.0f, 0},
               {-1e-6f, 0, 0, 1e-6f, 1e-6f, 1e-6f, 1.0f, 0},  // 1e-6 itself passes
               {-1, 0, 0, 0.5e-6f, 80, 50, 0.0f, 1},
               {-1, 0, 0, 120, 0, 50, 0.0f, 1},
               {-1, 0, 0, 120, 80, -50, 0.0f, 1},
               {-1, 0, 0, kNaN, 0, 50, 0.0f, 1},  // NaN passes, the next check fails
               {-1, 0, 0, kNaN, kNaN, kNaN, kNaN, 0}};
  for (const auto& c : cases) {
    float rf = -5.0f;
    int32_t ierr = 7;
    LAMINATE_RECTANGULAR_SS_BUCKLING_RF(&c.nx, &c.ny, &c.nxy, &c.nxcr, &c.nycr, &c.nxycr,
                                        &rf, &ierr);
    EXPECT_EQ(ierr, c.ierr) << c.nx << " " << c.nxcr;
    EXPECT_TRUE(std::isnan(c.rf) ? std::isnan(rf) : rf == c.rf) << rf;
  }
}

TEST(BucklingEntries, ANullPointerLeavesEverythingButTheErrorCode) {
  const float d[9] = {1, 0.3f, 0, 0.3f, 1, 0, 0, 0, 0.35f};
  const float v[6] = {-1, 0, 0, 10, 10, 10};
  for (int missing = 0; missing < 8; ++missing) {
    const auto in = [&](int i, const float* p) { return missing == i ? nullptr : p; };
    float out[3] = {-5, -5, -5};
    const auto at = [&](int i, float* p) { return missing == i ? nullptr : p; };
    int32_t ierr = 7;
    int32_t* ierr_arg = missing == 7 ? nullptr : &ierr;
    LAMINATE_RECTANGULAR_SS_BUCKLING_RF(in(0, &v[0]), in(1, &v[1]), in(2, &v[2]),
                                        in(3, &v[3]), in(4, &v[4]), in(5, &v[5]),
                                        at(6, &out[0]), ierr_arg);
    EXPECT_EQ(ierr, missing == 7 ? 7 : -1) << missing;
    EXPECT_EQ(out[0], -5.0f);
    if (missing == 7) continue;
    ierr = 7;
    LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS(in(0, d), in(1, &v[3]), in(2, &v[4]),
                                           at(3, &out[0]), at(4, &out[1]), at(5, &out[2]),
                                           missing == 6 ? nullptr : &ierr);
    EXPECT_EQ(ierr, missing == 6 ? 7 : -1) << missing;
    EXPECT_EQ(out[0] + out[1] + out[2], -15.0f);
  }
}

TEST(BucklingEntries, PrintNothing) {
  testing::internal::CaptureStdout();
  buckling_loads(16.0f, 1.0f, 1.0f, 1.5f, 1.0f, 5.0f);
  buckling_loads(kNaN, kNaN, kNaN, kNaN, kNaN, kNaN);
  buckling_loads(kInf, kInf, kInf, kInf, kInf, kInf);
  buckling_loads(1.0e30f, 1.0e30f, 1.0e30f, 1.0e30f, 1.0e-30f, 1.0e30f);
  const float v[6] = {-1.0f, kNaN, kInf, 1.0f, 2.0f, 3.0f};
  float rf = 0.0f;
  int32_t ierr = 0;
  LAMINATE_RECTANGULAR_SS_BUCKLING_RF(&v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &rf,
                                      &ierr);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

}  // namespace
