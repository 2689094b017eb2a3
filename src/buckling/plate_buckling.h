// Buckling of flat rectangular plates simply supported on all four edges, for an
// orthotropic laminate without bending-twisting coupling (only D11, D12, D22 and
// D66 of [D] enter): critical running loads in compression by a search over the
// half-wave numbers of the double sine series (Navier solution), critical shear
// from closed-form coefficient tables, and the parabolic interaction of
// compression and shear. Running loads are force per unit width, compression
// negative.
#pragma once

#include <span>

#include "util/matrix3.h"

namespace corvane {

// Outcome of the half-wave search.
struct HalfWaveSearch {
  float lambda = 0.0f;  // smallest positive load factor found; 0 on failure
  int m = 0;            // half-waves along x at the optimum (0: none found)
  int n = 0;            // half-waves along y at the optimum
  int bound = 0;        // the bound M of the sweep that confirmed the optimum
  int error = 0;        // 0 converged; 1 non-positive input or no convergence
};

// Smallest positive factor on the load pair (nx, ny) at which the plate buckles,
// found by sweeping m, n = 1 .. M over the growing bounds M = 1, 10, 20, ..., 90
// until a sweep confirms the optimum of the one before. The pair (-1, 0) gives
// the critical compression in x, (0, -1) that in y. The plate is never taken as
// longer than ten times its width. The search starts from 100000.0 and keeps it
// when no mode gives a smaller positive factor (a tensile pair, or a plate too
// stiff for its loads to fall below 100000 in the caller's units). Fails (error 1, the
// rest 0) for a non-positive a, b, D11, D12, D22 or D66, and for an optimum still
// moving at bound 90: bound 100 is never swept. A NaN among them is not non-positive:
// it passes the check, gives no positive factor, and so leaves 100000.0.
HalfWaveSearch half_wave_search(const Matrix3& D, float a, float b, float nx, float ny);

// Critical loads of the plate as positive magnitudes; 0 where none was found.
struct CriticalLoads {
  float nxcr = 0.0f;
  float nycr = 0.0f;
  float nxycr = 0.0f;
};

// Combined reserve factor of the load vector (nx, ny, nxy) on the plate, or 0 on
// failure. When `critical` is given it receives the critical loads: compression
// from the half-wave search, shear from the closed-form estimate; a failure leaves
// the loads not yet found at 0. `error` (optional) receives 0 or 1.
float plate_buckling(const Matrix3& D, float a, float b, float nx, float ny, float nxy,
                     CriticalLoads* critical = nullptr, int* error = nullptr);

// Reserve factor of the compression ratios rx, ry (only positive parts count) and
// the shear ratio rs >= 0 under the parabolic interaction rc*RF + (rs*RF)^2 = 1;
// 100000.0 when nothing loads the plate.
float interaction_rf(float rx, float ry, float rs);

// Closed-form estimate of the critical loads from the coefficient tables, and the
// reserve factor rf[i] of each load case (nx[i], ny[i], nxy[i]). Returns 0 on
// success, 1 for a non-positive dimension or D term (all outputs 0; a NaN passes
// and spreads into the loads), 2 when the four arrays differ in size (critical
// loads computed, rf left at 0).
int closed_form_estimate(float D11, float D12, float D22, float D66, float a, float b,
                         std::span<const float> nx, std::span<const float> ny,
                         std::span<const float> nxy, std::span<float> rf, float& nxcr,
                         float& nycr, float& nxycr);

}  // namespace corvane
