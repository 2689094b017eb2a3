#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>

#include "buckling/shell_buckling.h"
#include "corvane/corvane.h"

namespace corvane {
namespace {

// A quasi-isotropic carbon panel, 2 mm thick.
struct Call {
  std::array<float, 9> a = {50000, 15000, 0, 15000, 40000, 0, 0, 0, 17000};
  std::array<float, 9> d = {4000, 1200, 0, 1200, 3500, 0, 0, 0, 1400};
  float l = 600.0f, b = 300.0f, r = 1500.0f, t = 2.0f;
  float nx = -1.0f, ny = -1.0f, nxy = -1.0f;
  int32_t ierr = -7;
  void run() {
    LAMINATE_SHELL_BUCKLING_LOADS(a.data(), d.data(), &l, &b, &r, &t, &nx, &ny, &nxy,
                                  &ierr);
  }
};

TEST(ShellBucklingLoadsEntry, ReturnsTheEmpiricalShellLoads) {
  for (const float r : {1500.0f, 0.0f}) {
    Call call;
    call.r = r;
    Matrix3 A, D;
    A.v = call.a;
    D.v = call.d;
    int error = -7;
    const CriticalLoads loads = shell_buckling(A, D, 600.0f, 300.0f, r, 2.0f, &error);
    call.run();
    EXPECT_EQ(call.ierr, error);
    EXPECT_EQ(call.nx, loads.nxcr);
    EXPECT_EQ(call.ny, loads.nycr);
    EXPECT_EQ(call.nxy, loads.nxycr);
    // Outputs may share the caller's variables of inputs: all are read first.
    Call shared;
    shared.r = r;
    LAMINATE_SHELL_BUCKLING_LOADS(shared.a.data(), shared.d.data(), &shared.l, &shared.b,
                                  &shared.r, &shared.t, &shared.l, &shared.b, &shared.r,
                                  &shared.ierr);
    EXPECT_EQ(shared.l, loads.nxcr);
    EXPECT_EQ(shared.b, loads.nycr);
    EXPECT_EQ(shared.r, loads.nxycr);
  }
  Call call;
  call.d[1] = call.d[3] = 0.0f;  // D12 = 0: the flat-plate shear estimate refuses it
  call.run();
  EXPECT_EQ(call.ierr, 1);
}

TEST(ShellBucklingLoadsEntry, NullPointerWritesOnlyTheErrorCode) {
  for (int missing = 0; missing < 10; ++missing) {
    Call call;
    const auto given = [missing](int position, auto* pointer) {
      return position == missing ? nullptr : pointer;
    };
    LAMINATE_SHELL_BUCKLING_LOADS(
        given(0, call.a.data()), given(1, call.d.data()), given(2, &call.l),
        given(3, &call.b), given(4, &call.r), given(5, &call.t), given(6, &call.nx),
        given(7, &call.ny), given(8, &call.nxy), given(9, &call.ierr));
    EXPECT_EQ(call.ierr, missing == 9 ? -7 : -1) << missing;
    EXPECT_EQ(call.nx, -1.0f);
    EXPECT_EQ(call.ny, -1.0f);
    EXPECT_EQ(call.nxy, -1.0f);
  }
}

TEST(ShellBucklingLoadsEntry, NonFiniteOrNegativeInputIsAnswered) {
  const float inf = std::numeric_limits<float>::infinity();
  for (const float bad : {std::numeric_limits<float>::quiet_NaN(), inf, -inf, -1.0f}) {
    for (int i = 0; i < 22; ++i) {
      Call call;
      float* const scalars[4] = {&call.l, &call.b, &call.r, &call.t};
      *(i < 9 ? &call.a[i] : i < 18 ? &call.d[i - 9] : scalars[i - 18]) = bad;
      call.run();
      EXPECT_TRUE(call.ierr == 0 || call.ierr == 1) << bad << " at " << i;
    }
  }
}

}  // namespace
}  // namespace corvane
