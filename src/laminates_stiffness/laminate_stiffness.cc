#include "laminates_stiffness/laminate_stiffness.h"

#include "util/numerics.h"

namespace corvane {
namespace {

// (s - 1) / (s + 1) as b conj(a) / |a|^2 in double, rounded to float.
std::complex<float> bilinear(std::complex<float> s) {
  const std::complex<float> a = s + 1.0f, b = s - 1.0f;
  const double ar = a.real(), ai = a.imag(), br = b.real(), bi = b.imag();
  const double norm = ar * ar + ai * ai;
  return {static_cast<float>((br * ar + bi * ai) / norm),
          static_cast<float>((bi * ar - br * ai) / norm)};
}

}  // namespace

LAMINATESTIFFNESS::LAMINATESTIFFNESS(const LAMINA& m, std::span<const float> angles,
                                     std::string_view name)
    : LAMINATE(m, angles, name) {
  compute_anisotropy();
}

LAMINATESTIFFNESS::LAMINATESTIFFNESS(const LAMINA& m1, const LAMINA& m2,
                                     std::span<const float> angles,
                                     std::span<const std::int32_t> material_index,
                                     std::string_view name)
    : LAMINATE(m1, m2, angles, material_index, name) {
  compute_anisotropy();
}

void LAMINATESTIFFNESS::compute_anisotropy() {
  // A clamped Poisson's ratio fails here on purpose: the parameters need a
  // positive one.
  const float smallest = min_of(Ex, min_of(Ey, min_of(Gxy, nuxy)));
  if (smallest < 1.0e-10f) {
    z1 = z2 = 0.0f;
    error = true;
    return;
  }
  const float k = Ey / Ex;
  const float c = Ey / (2.0f * Gxy) - nuyx;
  const std::complex<float> d = std::sqrt(std::complex<float>(c * c - k, 0.0f));
  const std::complex<float> s1 = std::sqrt(std::complex<float>(c, 0.0f) + d);
  const std::complex<float> s2 = std::sqrt(std::complex<float>(c, 0.0f) - d);
  z1 = bilinear(s1);
  z2 = bilinear(s2);
}

}  // namespace corvane
