// LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS and LAMINATE_RECTANGULAR_SS_BUCKLING_RF:
// adapters over the simply supported plate routines of plate_buckling.h. Nothing
// they call allocates or throws, so they need no catch.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "buckling/plate_buckling.h"
#include "corvane/corvane.h"
#include "interface/null_arguments.h"
#include "util/matrix3.h"

extern "C" {

CORVANE_API void LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS(const float* d, const float* a,
                                                        const float* b, float* nxcr,
                                                        float* nycr, float* nxycr,
                                                        int32_t* ierr) {
  if (corvane::null_argument(ierr, d, a, b, nxcr, nycr, nxycr)) return;
  // The loads are zeroed before [D], a and b are read, as hosts have always had
  // it: one variable passed as a dimension and as a load reads as zero.
  *ierr = 0;
  *nxcr = 0.0f;
  *nycr = 0.0f;
  *nxycr = 0.0f;
  corvane::Matrix3 D;
  std::copy_n(d, 9, D.v.begin());
  // A tensile load vector: only the critical loads are wanted, and failures
  // show as zero loads, not through the error code.
  corvane::CriticalLoads critical;
  corvane::plate_buckling(D, *a, *b, 1.0f, 1.0f, 0.0f, &critical);
  *nxcr = critical.nxcr;
  *nycr = critical.nycr;
  *nxycr = critical.nxycr;
}

CORVANE_API void LAMINATE_RECTANGULAR_SS_BUCKLING_RF(const float* nx, const float* ny,
                                                     const float* nxy, const float* nxcr,
                                                     const float* nycr,
                                                     const float* nxycr, float* rf,
                                                     int32_t* ierr) {
  if (corvane::null_argument(ierr, nx, ny, nxy, nxcr, nycr, nxycr, rf)) return;
  const float Nx = *nx, Ny = *ny, Nxy = *nxy;
  const float Nxcr = *nxcr, Nycr = *nycr, Nxycr = *nxycr;
  // A NaN critical load is not below 1e-6: it passes, and its NaN reaches rf.
  if (Nxcr < 1.0e-6f || Nycr < 1.0e-6f || Nxycr < 1.0e-6f) {
    *rf = 0.0f;
    *ierr = 1;
    return;
  }
  *rf = corvane::interaction_rf(-Nx / Nxcr, -Ny / Nycr, std::fabs(Nxy / Nxycr));
  *ierr = 0;
}

}  // extern "C"
