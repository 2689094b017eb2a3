// Membrane strains of a laminate under running loads, from its apparent
// engineering constants taken as an orthotropic compliance, with the direct
// strains along +45 and -45 degrees from the strain transformation.
#pragma once

namespace corvane {

struct MembraneStrains {
  float eps_x = 0.0f, eps_y = 0.0f;
  float gamma_xy = 0.0f;                 // engineering shear strain
  float eps_p45 = 0.0f, eps_m45 = 0.0f;  // direct strains along +45 and -45 degrees
};

// The strains of a laminate of thickness t and apparent constants Ex, Ey, Gxy,
// nuxy under the running loads Nx, Ny, Nxy. Returns 1, leaving `strains` alone,
// when Ex, Ey or Gxy is below 1e-6 (a NaN is not, and gives NaN strains);
// otherwise 0. t is not checked: zero gives infinite or NaN strains.
int membrane_strains(float t, float Ex, float Ey, float Gxy, float nuxy, float Nx,
                     float Ny, float Nxy, MembraneStrains& strains);

}  // namespace corvane
