// Buckling of curved laminated panels and closed cylinders of radius R under axial
// compression (Nx), circumferential compression (Ny) and shear (Nxy). Each critical
// load is the larger of a whole-cylinder estimate (Donnell shell equations solved for
// sinusoidal modes, plus an empirical torsion formula) and a curved-panel estimate (a
// half-wave search on a simply supported panel with its curvature coupling membrane
// and bending). The panel shear is the flat-plate closed-form estimate raised by a
// curvature factor. The laminate is taken as specially orthotropic and free of
// membrane-bending coupling. Running loads are force per unit width; the critical
// loads are positive magnitudes.
#pragma once

#include "buckling/plate_buckling.h"
#include "util/matrix3.h"

namespace corvane {

// Cylinder values (0 each when R is not positive).
struct CylinderEstimate {
  float nx = 0.0f;   // smallest axial load over the mode search
  float ny = 0.0f;   // smallest circumferential load over the mode search
  float nxy = 0.0f;  // torsion formula
};

// Whole-cylinder estimate. The search runs over m = 1 .. round(L/s) half-waves
// along the length and n = 1 .. round(2 pi R/s) full waves round the circumference,
// with s a tenth of min(L, pi R/4); it starts from 1e30 and keeps that value when no
// mode gives a smaller one (also when a count is zero or cannot be formed). The
// mode count grows with R/L and with L/R and is not capped: a radius a million
// times the length takes some six hundred million modes.
CylinderEstimate cylinder_estimate(const Matrix3& A, const Matrix3& D, float L, float R);

// Outcome of the curved-panel search.
struct PanelSearch {
  float load = 0.0f;  // critical factor on the load pair, or 0 or 100000 (below)
  int m = 0;          // half-waves along L at the optimum (0: none)
  int n = 0;          // half-waves along b at the optimum
};

// Smallest positive factor on the load pair (kx, ky) at which a simply supported
// panel L x b of radius R (flat when R <= 0) buckles, over m, n = 1 .. 100. Neither
// side is taken as longer than ten times the other. 0 when a used term of A or D
// (A12 and D12 included) or a dimension is zero or negative, and when the optimum
// lies on the edge of the search (m or n = 100); 100000 when no mode gives a smaller
// positive factor: a singular A, and a NaN among those terms, which passes the
// check as min() passes over it.
PanelSearch curved_panel_search(const Matrix3& A, const Matrix3& D, float L, float b,
                                float R, float kx, float ky);

// Empirical factor raising the flat-panel shear load for curvature: 1 for a flat
// panel (R < 1e-5), 0 when the smallest of L, b and t (passing over a NaN) is below
// 1e-5. A panel shorter than it is wide counts as square, with L as its width.
float empirical_curvature_factor(float L, float b, float R, float t);

// Curvature factor from the membrane compliance of A: 1 for a flat panel (R < 1e-5),
// 0 when the smallest of L, b, t or nuxy*nuyx is below 1e-5. Returns the status of
// the inversion of A (0 good, 1 singular); `factor` is written only on success.
int compliance_curvature_factor(const Matrix3& A, float L, float b, float R, float t,
                                float& factor);

// Critical loads of the panel or cylinder (A, D; length L, arc width b, radius R,
// thickness t). `error` (optional) receives the closed-form estimate's error code
// (1: non-positive input, the flat shear value is then 0), or the inversion status
// of A when the compliance-based factor is chosen and A is singular; the result then
// holds the cylinder values alone. `empirical_curvature` selects the shear
// curvature factor: the empirical one, or the compliance-based one when false.
CriticalLoads shell_buckling(const Matrix3& A, const Matrix3& D, float L, float b,
                             float R, float t, int* error = nullptr,
                             bool empirical_curvature = true);

}  // namespace corvane
