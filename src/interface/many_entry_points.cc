// PLATE_BUCKLING_LOADS_MANY, PLATE_BUCKLING_RF_MANY, SHELL_BUCKLING_LOADS_MANY and
// STRAINS_IN_PLANE_MANY: the plate, shell and strain entry points of corvane.h
// over arrays, so that a host with many cases loops in C rather than calling once
// per case. Each element goes through the same routine as the one-element entry
// point (element_calls.h). Nothing they call allocates or throws.
#include <cstddef>
#include <cstdint>

#include "corvane/corvane_strength.h"
#include "interface/element_calls.h"
#include "interface/null_arguments.h"

namespace {

// The overall code: 2 for a negative count, else 1 when any element's code is
// not 0.
constexpr std::int32_t kSomeElementFailed = 1;
constexpr std::int32_t kNegativeCount = 2;

bool negative_count(const std::int32_t* n, std::int32_t* ierr) {
  if (*n >= 0) return false;
  *ierr = kNegativeCount;
  return true;
}

}  // namespace

extern "C" {

CORVANE_STRENGTH_API void PLATE_BUCKLING_LOADS_MANY(const int32_t* n, const float* d,
                                                    const float* a, const float* b,
                                                    float* nxcr, float* nycr,
                                                    float* nxycr, int32_t* ierr) {
  if (corvane::null_argument(ierr, n, d, a, b, nxcr, nycr, nxycr)) return;
  if (negative_count(n, ierr)) return;
  const auto count = static_cast<std::size_t>(*n);
  for (std::size_t i = 0; i < count; ++i) {
    const corvane::CriticalLoads loads =
        corvane::plate_critical_loads(d + 9 * i, a[i], b[i]);
    nxcr[i] = loads.nxcr;
    nycr[i] = loads.nycr;
    nxycr[i] = loads.nxycr;
  }
  *ierr = 0;
}

CORVANE_STRENGTH_API void PLATE_BUCKLING_RF_MANY(const int32_t* n, const float* nx,
                                                 const float* ny, const float* nxy,
                                                 const float* nxcr, const float* nycr,
                                                 const float* nxycr, float* rf,
                                                 int32_t* codes, int32_t* ierr) {
  if (corvane::null_argument(ierr, n, nx, ny, nxy, nxcr, nycr, nxycr, rf, codes)) return;
  if (negative_count(n, ierr)) return;
  const auto count = static_cast<std::size_t>(*n);
  std::int32_t overall = 0;
  for (std::size_t i = 0; i < count; ++i) {
    float value = 0.0f;
    const std::int32_t code =
        corvane::plate_rf(nx[i], ny[i], nxy[i], nxcr[i], nycr[i], nxycr[i], &value);
    rf[i] = value;
    codes[i] = code;
    if (code != 0) overall = kSomeElementFailed;
  }
  *ierr = overall;
}

CORVANE_STRENGTH_API void SHELL_BUCKLING_LOADS_MANY(const int32_t* n, const float* a,
                                                    const float* d, const float* l,
                                                    const float* b, const float* r,
                                                    const float* t, float* nxcr,
                                                    float* nycr, float* nxycr,
                                                    int32_t* codes, int32_t* ierr) {
  if (corvane::null_argument(ierr, n, a, d, l, b, r, t, nxcr, nycr, nxycr, codes)) {
    return;
  }
  if (negative_count(n, ierr)) return;
  const auto count = static_cast<std::size_t>(*n);
  std::int32_t overall = 0;
  for (std::size_t i = 0; i < count; ++i) {
    int error = 0;
    const corvane::CriticalLoads loads = corvane::shell_critical_loads(
        a + 9 * i, d + 9 * i, l[i], b[i], r[i], t[i], &error);
    nxcr[i] = loads.nxcr;
    nycr[i] = loads.nycr;
    nxycr[i] = loads.nxycr;
    codes[i] = error;
    if (error != 0) overall = kSomeElementFailed;
  }
  *ierr = overall;
}

CORVANE_STRENGTH_API void STRAINS_IN_PLANE_MANY(
    const int32_t* n, const float* t, const float* ex, const float* ey, const float* gxy,
    const float* nuxy, const float* nx, const float* ny, const float* nxy, float* eps_x,
    float* eps_y, float* gamma_xy, float* eps_p45, float* eps_m45, int32_t* codes,
    int32_t* ierr) {
  if (corvane::null_argument(ierr, n, t, ex, ey, gxy, nuxy, nx, ny, nxy, eps_x, eps_y,
                             gamma_xy, eps_p45, eps_m45, codes)) {
    return;
  }
  if (negative_count(n, ierr)) return;
  const auto count = static_cast<std::size_t>(*n);
  std::int32_t overall = 0;
  for (std::size_t i = 0; i < count; ++i) {
    corvane::MembraneStrains e;
    const int code = corvane::membrane_strains(t[i], ex[i], ey[i], gxy[i], nuxy[i], nx[i],
                                               ny[i], nxy[i], e);
    codes[i] = code;
    if (code != 0) {
      // As the one-element call: the shear strain keeps what the host had.
      eps_x[i] = eps_y[i] = eps_p45[i] = eps_m45[i] = 1.0e20f;
      overall = kSomeElementFailed;
      continue;
    }
    eps_x[i] = e.eps_x;
    eps_y[i] = e.eps_y;
    gamma_xy[i] = e.gamma_xy;
    eps_p45[i] = e.eps_p45;
    eps_m45[i] = e.eps_m45;
  }
  *ierr = overall;
}

}  // extern "C"
