// LAMINATESTIFFNESS: a LAMINATE whose apparent membrane constants are checked
// for use, with the two complex anisotropy parameters of the laminate as a
// homogeneous orthotropic plate, z = (s - 1) / (s + 1), where s1^2 and s2^2 are
// the roots of s^4 - 2 c s^2 + k = 0, k = Ey/Ex and c = Ey/(2 Gxy) - nuyx
// (complex-variable method of anisotropic elasticity).
#pragma once

#include <complex>
#include <cstdint>
#include <span>
#include <string_view>

#include "laminates/laminate.h"

namespace corvane {

struct LAMINATESTIFFNESS : LAMINATE {
  // Both zero when the check of the apparent constants fails.
  std::complex<float> z1, z2;

  // Construct the LAMINATE part, then the check: any of Ex, Ey, Gxy, nuxy below
  // 1.0e-10 (a Poisson's ratio clamped to zero included) sets `error`.
  LAMINATESTIFFNESS(const LAMINA& m, std::span<const float> angles,
                    std::string_view name = {});
  LAMINATESTIFFNESS(const LAMINA& m1, const LAMINA& m2, std::span<const float> angles,
                    std::span<const std::int32_t> material_index,
                    std::string_view name = {});

 private:
  void compute_anisotropy();
};

}  // namespace corvane
