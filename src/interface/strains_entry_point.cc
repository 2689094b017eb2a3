// LAMINATE_STRAINS_IN_PLANE: membrane strains of a laminate under running loads
// from its apparent engineering constants (orthotropic compliance), with the
// direct strains along +45 and -45 degrees from the strain transformation.
#include <cstdint>

#include "corvane/corvane.h"
#include "interface/null_arguments.h"

extern "C" {

CORVANE_API void LAMINATE_STRAINS_IN_PLANE(
    const float* t, const float* ex, const float* ey, const float* gxy, const float* nuxy,
    const float* nx, const float* ny, const float* nxy, float* eps_x, float* eps_y,
    float* gamma_xy, float* eps_p45, float* eps_m45, int32_t* ierr) {
  if (corvane::any_null(t, ex, ey, gxy, nuxy, nx, ny, nxy, eps_x, eps_y, gamma_xy,
                        eps_p45, eps_m45, ierr)) {
    corvane::report_null_argument(ierr);
    return;
  }
  // Inputs are read before anything is written, in case the host passes one
  // variable in two places.
  const float T = *t, Ex = *ex, Ey = *ey, Gxy = *gxy, nu = *nuxy;
  const float Nx = *nx, Ny = *ny, Nxy = *nxy;
  *ierr = 0;
  // A NaN modulus is not below the limit: it goes through and gives NaN strains.
  if (Ex < 1.0e-6f || Ey < 1.0e-6f || Gxy < 1.0e-6f) {
    // The shear strain is deliberately left as the host had it.
    *eps_x = *eps_y = *eps_p45 = *eps_m45 = 1.0e20f;
    *ierr = 1;
    return;
  }
  // The thickness is not checked: zero gives infinite or NaN strains.
  const float e_x = (Nx - nu * Ny) / (Ex * T);
  const float e_y = (Ny - (Ey / Ex) * nu * Nx) / (Ey * T);
  const float g_xy = Nxy / (Gxy * T);
  *eps_x = e_x;
  *eps_y = e_y;
  *gamma_xy = g_xy;
  *eps_p45 = (e_x + e_y + g_xy) * 0.5f;
  *eps_m45 = (e_x + e_y - g_xy) * 0.5f;
}

}  // extern "C"
