// LAMINATE_STRAINS_IN_PLANE: an adapter over membrane_strains. Nothing it calls
// allocates or throws, so it needs no catch.
#include <cstdint>

#include "corvane/corvane.h"
#include "interface/null_arguments.h"
#include "plane_stresses_strains/membrane_strains.h"

extern "C" {

CORVANE_API void LAMINATE_STRAINS_IN_PLANE(
    const float* t, const float* ex, const float* ey, const float* gxy, const float* nuxy,
    const float* nx, const float* ny, const float* nxy, float* eps_x, float* eps_y,
    float* gamma_xy, float* eps_p45, float* eps_m45, int32_t* ierr) {
  if (corvane::null_argument(ierr, t, ex, ey, gxy, nuxy, nx, ny, nxy, eps_x, eps_y,
                             gamma_xy, eps_p45, eps_m45)) {
    return;
  }
  // Every input is read before an output is written, in case the host passes
  // one variable in two places.
  corvane::MembraneStrains e;
  *ierr = corvane::membrane_strains(*t, *ex, *ey, *gxy, *nuxy, *nx, *ny, *nxy, e);
  if (*ierr != 0) {
    // The shear strain is deliberately left as the host had it.
    *eps_x = *eps_y = *eps_p45 = *eps_m45 = 1.0e20f;
    return;
  }
  *eps_x = e.eps_x;
  *eps_y = e.eps_y;
  *gamma_xy = e.gamma_xy;
  *eps_p45 = e.eps_p45;
  *eps_m45 = e.eps_m45;
}

}  // extern "C"
