// Strength of a laminate at a circular hole: the stress concentration of an
// infinite orthotropic plate and the point-stress criterion.
//
// Stress concentration at the edge of a circular hole in an infinite
// orthotropic plate loaded along x, from the membrane stiffness [A]
// (S. G. Lekhnitskii, Anisotropic Plates, 1968; the [A] form as in J. M.
// Whitney and R. J. Nuismer, J. Composite Materials 8 (1974) 253-265):
//   K_T = 1 + sqrt( (2/A22) (sqrt(A11 A22) - A12 + (A11 A22 - A12^2)/(2 A66)) ),
// 3 for an isotropic (quasi-isotropic) laminate. Along y, A11 and A22 swap.
//
// Point-stress criterion (Whitney and Nuismer 1974, with the orthotropic
// stress distribution of H. J. Konish and J. M. Whitney, J. Composite
// Materials 9 (1975) 157-166): the plate fails when the stress
// at the distance d0 ahead of the hole edge reaches the unnotched strength, so
// with xi = R/(R + d0), R the hole radius,
//   sigma_N/sigma_0 = 2 / (2 + xi^2 + 3 xi^4 - (K_T - 3)(5 xi^6 - 7 xi^8)).
// It runs from 1 for a vanishing hole (xi = 0) to 1/K_T for d0 = 0 (xi = 1).
// The polynomial approximates the exact distribution less well as K_T grows;
// for strongly orthotropic laminates it can fall below 1/K_T and even turn
// negative, so the ratio is held at 1/K_T or above: the stress ahead of the
// hole never exceeds its peak at the edge.
#pragma once

#include "util/matrix3.h"

namespace corvane {

// K_T of a laminate loaded along x (along_y: loaded along y); NaN when [A] is
// not positive definite.
float orthotropic_stress_concentration(const Matrix3& A, bool along_y = false);

// xi = R/(R + d0) for a hole of diameter d and a characteristic distance d0.
float point_stress_xi(float hole_diameter, float d0);

// sigma_N/sigma_0 of the point-stress criterion, at least 1/K_T.
float point_stress_ratio(float xi, float kt);

// The inverse at K_T = 3: the characteristic distance d0 at which a hole of
// diameter d keeps the strength ratio given. With x = xi^2 the ratio r reads
// 2/r = 2 + x + 3x^2, so x = (sqrt(24/r - 23) - 1)/6. Returns a negative value
// when no distance gives r (r outside (1/3, 1)) or d is not positive.
float point_stress_distance(float ratio, float hole_diameter);

}  // namespace corvane
