// The exported entry point of shell buckling: it reads the caller's values, runs
// shell_buckling with the empirical curvature factor and writes the three critical
// loads and the error code back. Nothing here prints, and no exception leaves.
#include <cstdint>

#include "buckling/shell_buckling.h"
#include "corvane/corvane.h"
#include "util/matrix3.h"

extern "C" {

CORVANE_API void LAMINATE_SHELL_BUCKLING_LOADS(const float* a, const float* d,
                                               const float* l, const float* b,
                                               const float* r, const float* t,
                                               float* nxcr, float* nycr, float* nxycr,
                                               int32_t* ierr) {
  if (a == nullptr || d == nullptr || l == nullptr || b == nullptr || r == nullptr ||
      t == nullptr || nxcr == nullptr || nycr == nullptr || nxycr == nullptr ||
      ierr == nullptr) {
    if (ierr != nullptr) *ierr = -1;
    return;
  }
  // Every input is read before an output is written, so that a caller passing
  // one variable for both still gets the loads of what it passed.
  corvane::Matrix3 A;
  corvane::Matrix3 D;
  for (int i = 0; i < 9; ++i) {
    A.v[i] = a[i];
    D.v[i] = d[i];
  }
  const float length = *l;
  const float width = *b;
  const float radius = *r;
  const float thickness = *t;
  *ierr = 0;
  *nxcr = 0.0f;
  *nycr = 0.0f;
  *nxycr = 0.0f;
  try {
    int error = 0;
    const corvane::CriticalLoads loads =
        corvane::shell_buckling(A, D, length, width, radius, thickness, &error);
    *nxcr = loads.nxcr;
    *nycr = loads.nycr;
    *nxycr = loads.nxycr;
    *ierr = error;
  } catch (...) {
    // Not reached (nothing above allocates or throws); the loads stay zero.
  }
}

}  // extern "C"
