// LAMINATE_SHELL_BUCKLING_LOADS: an adapter over shell_buckling with the
// empirical curvature factor. Nothing it calls allocates or throws, so it needs
// no catch.
#include <cstdint>

#include "corvane/corvane.h"
#include "interface/element_calls.h"
#include "interface/null_arguments.h"

extern "C" {

CORVANE_API void LAMINATE_SHELL_BUCKLING_LOADS(const float* a, const float* d,
                                               const float* l, const float* b,
                                               const float* r, const float* t,
                                               float* nxcr, float* nycr, float* nxycr,
                                               int32_t* ierr) {
  if (corvane::null_argument(ierr, a, d, l, b, r, t, nxcr, nycr, nxycr)) return;
  // Every input is read before an output is written, so that a caller passing
  // one variable for both still gets the loads of what it passed.
  int error = 0;
  const corvane::CriticalLoads loads =
      corvane::shell_critical_loads(a, d, *l, *b, *r, *t, &error);
  *nxcr = loads.nxcr;
  *nycr = loads.nycr;
  *nxycr = loads.nxycr;
  *ierr = error;
}

}  // extern "C"
