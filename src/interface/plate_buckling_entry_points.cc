// The exported entry points of simply supported plate buckling: they read the
// caller's values, run the routines of plate_buckling.h and write the results
// back. Nothing here prints, and no exception leaves.
#include <cmath>
#include <cstdint>

#include "buckling/plate_buckling.h"
#include "corvane/corvane.h"
#include "util/matrix3.h"

extern "C" {

CORVANE_API void LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS(const float* d, const float* a,
                                                        const float* b, float* nxcr,
                                                        float* nycr, float* nxycr,
                                                        int32_t* ierr) {
  if (d == nullptr || a == nullptr || b == nullptr || nxcr == nullptr ||
      nycr == nullptr || nxycr == nullptr || ierr == nullptr) {
    if (ierr != nullptr) *ierr = -1;
    return;
  }
  *ierr = 0;
  *nxcr = 0.0f;
  *nycr = 0.0f;
  *nxycr = 0.0f;
  try {
    corvane::Matrix3 D;
    for (int i = 0; i < 9; ++i) D.v[i] = d[i];
    // A tensile load vector: only the critical loads are wanted, and failures
    // show as zero loads, not through the error code.
    corvane::CriticalLoads critical;
    corvane::plate_buckling(D, *a, *b, 1.0f, 1.0f, 0.0f, &critical);
    *nxcr = critical.nxcr;
    *nycr = critical.nycr;
    *nxycr = critical.nxycr;
  } catch (...) {
    // Not reached (nothing above allocates or throws); the loads stay zero.
  }
}

CORVANE_API void LAMINATE_RECTANGULAR_SS_BUCKLING_RF(const float* nx, const float* ny,
                                                     const float* nxy, const float* nxcr,
                                                     const float* nycr,
                                                     const float* nxycr, float* rf,
                                                     int32_t* ierr) {
  if (nx == nullptr || ny == nullptr || nxy == nullptr || nxcr == nullptr ||
      nycr == nullptr || nxycr == nullptr || rf == nullptr || ierr == nullptr) {
    if (ierr != nullptr) *ierr = -1;
    return;
  }
  *ierr = 0;
  // A NaN critical load is not below 1e-6: it passes, and its NaN reaches rf.
  if (*nxcr < 1.0e-6f || *nycr < 1.0e-6f || *nxycr < 1.0e-6f) {
    *rf = 0.0f;
    *ierr = 1;
    return;
  }
  try {
    *rf = corvane::interaction_rf(-*nx / *nxcr, -*ny / *nycr, std::fabs(*nxy / *nxycr));
  } catch (...) {
    *rf = 0.0f;  // not reached: nothing above throws
  }
}

}  // extern "C"
