#include "plane_stresses_strains/membrane_strains.h"

namespace corvane {

int membrane_strains(float t, float Ex, float Ey, float Gxy, float nuxy, float Nx,
                     float Ny, float Nxy, MembraneStrains& strains) {
  if (Ex < 1.0e-6f || Ey < 1.0e-6f || Gxy < 1.0e-6f) return 1;
  const float e_x = (Nx - nuxy * Ny) / (Ex * t);
  const float e_y = (Ny - (Ey / Ex) * nuxy * Nx) / (Ey * t);
  const float g_xy = Nxy / (Gxy * t);
  // At exactly 45 degrees the transformation needs no sine or cosine.
  strains = {e_x, e_y, g_xy, (e_x + e_y + g_xy) * 0.5f, (e_x + e_y - g_xy) * 0.5f};
  return 0;
}

}  // namespace corvane
