// LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS and LAMINATE_RECTANGULAR_SS_BUCKLING_RF:
// adapters over the simply supported plate routines of plate_buckling.h. Nothing
// they call allocates or throws, so they need no catch.
#include <cstdint>

#include "corvane/corvane.h"
#include "interface/element_calls.h"
#include "interface/null_arguments.h"

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
  const corvane::CriticalLoads critical = corvane::plate_critical_loads(d, *a, *b);
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
  *ierr = corvane::plate_rf(*nx, *ny, *nxy, *nxcr, *nycr, *nxycr, rf);
}

}  // extern "C"
