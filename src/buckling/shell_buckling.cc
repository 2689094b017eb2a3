#include "buckling/shell_buckling.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "laminates/inverse3x3.h"
#include "util/numerics.h"

namespace corvane {
namespace {

constexpr float kCylinderStart = 1.0e30f;
constexpr float kPanelStart = 100000.0f;
constexpr std::int32_t kBlock = 256;  // cylinder modes formed before they are compared
constexpr int kPanelWaves = 100;      // fixed bounds of the panel search
constexpr float kAspectCap = 10.0f;   // neither panel side longer than 10 times the other
constexpr float kFlat = 1.0e-5f;      // radius (and smallest dimension) of the factors

// The terms of the cylinder mode matrix that depend on the circumferential wave
// number n alone, for a block of consecutive n.
struct WaveTerms {
  std::array<float, kBlock> beta, beta2, wave2, beta2_A66, beta2_A22, B22_beta3,
      A22_beta_R, D22_beta4, hoop;
};

}  // namespace

CylinderEstimate cylinder_estimate(const Matrix3& A, const Matrix3& D, float L, float R) {
  CylinderEstimate cylinder;
  if (!(R > 0.0f)) return cylinder;
  const float A11 = A(1, 1);
  const float A12 = A(1, 2);
  const float A22 = A(2, 2);
  const float A66 = A(3, 3);
  const float D11 = D(1, 1);
  const float D12 = D(1, 2);
  const float D22 = D(2, 2);
  const float D66 = D(3, 3);
  // Membrane-bending coupling is not modelled, but its terms are still multiplied
  // in: 0 times an overflowed power is NaN, and leaving them out would change the
  // outcome for such input.
  const float B11 = 0.0f;
  const float B12 = 0.0f;
  const float B22 = 0.0f;
  const float B66 = 0.0f;

  const float span = std::fmin(L, kPi * R / 4.0f);
  const float step = span / 10.0f;
  // nint gives INT32_MIN for NaN and overflow, so the loops below do not run, and
  // never more than 2147483520, so m cannot overflow.
  const std::int32_t axial_waves = nint(L / step);
  const std::int32_t circumferential_waves = nint(kTwoPi * R / step);

  // Terms that do not change within a loop are formed outside it, as the same
  // products of the same operands: each sum keeps its order, each value its rounding.
  const float R2 = R * R;
  const float A22_R = A22 / R;
  const float A12_A66 = A12 + A66;
  const float B12_2B66 = B12 + 2.0f * B66;
  const float two_B22 = 2.0f * B22;
  const float two_B12 = 2.0f * B12;
  const float two_H = 2.0f * (D12 + 2.0f * D66);
  // The terms of n alone, each formed exactly as in the full expression, are
  // formed once when all waves fit in one block, and once per m and block otherwise.
  WaveTerms waves;
  const auto form_waves = [&](std::int64_t first, std::int32_t count) {
    for (std::int32_t i = 0; i < count; ++i) {
      const float wave = static_cast<float>(first + i);
      const float beta = wave / R;
      const float beta2 = beta * beta;
      waves.beta[i] = beta;
      waves.beta2[i] = beta2;
      waves.wave2[i] = wave * wave;
      waves.beta2_A66[i] = beta2 * A66;
      waves.beta2_A22[i] = beta2 * A22;
      waves.B22_beta3[i] = B22 * (beta2 * beta);
      waves.A22_beta_R[i] = A22 * beta / R;
      waves.D22_beta4[i] = D22 * (beta2 * beta2);
      waves.hoop[i] = A22_R + two_B22 * beta2;
    }
  };
  const bool one_block = circumferential_waves <= kBlock;
  if (one_block) form_waves(1, circumferential_waves);
  float axial = kCylinderStart;
  float circumferential = kCylinderStart;
  for (std::int32_t m = 1; m <= axial_waves; ++m) {
    const float alpha = static_cast<float>(m) * kPi / L;
    const float alpha2 = alpha * alpha;
    const float alpha3 = alpha2 * alpha;
    const float alpha4 = alpha2 * alpha2;
    const float k11_m = alpha2 * A11;
    const float k22_m = alpha2 * A66;
    const float k12_m = A12_A66 * alpha;
    const float k13_m = A12 * alpha / R + B11 * alpha3;
    const float k13_beta2 = B12_2B66 * alpha;
    const float k23_beta = B12_2B66 * alpha2;
    const float k33_m = D11 * alpha4;
    const float k33_beta2 = two_H * alpha2;
    const float k33_coupling = two_B12 * alpha2;
    // 64-bit block starts: the one after the last may pass the int32 range.
    for (std::int64_t first = 1; first <= circumferential_waves; first += kBlock) {
      const auto count = static_cast<std::int32_t>(
          std::min<std::int64_t>(kBlock, circumferential_waves - first + 1));
      if (!one_block) form_waves(first, count);
      // The candidates of the block first, then the scan: without a branch the
      // block runs several modes per instruction.
      std::array<float, kBlock> axial_loads;
      std::array<float, kBlock> circumferential_loads;
      for (std::int32_t i = 0; i < count; ++i) {
        const float beta = waves.beta[i];
        const float beta2 = waves.beta2[i];
        const float k11 = k11_m + waves.beta2_A66[i];
        const float k22 = waves.beta2_A22[i] + k22_m;
        const float k12 = k12_m * beta;
        const float k13 = k13_m + k13_beta2 * beta2;
        const float k23 = waves.B22_beta3[i] + k23_beta * beta + waves.A22_beta_R[i];
        const float k33 = k33_m + k33_beta2 * beta2 + waves.D22_beta4[i] +
                          (waves.hoop[i] + k33_coupling) / R;
        // Rule of Sarrus, summed left to right; K is symmetric (K21 = K12 ...).
        const float det3 = k11 * k22 * k33 + k12 * k23 * k13 + k13 * k12 * k23 -
                           k13 * k22 * k13 - k12 * k12 * k33 - k23 * k23 * k11;
        const float det2 = k11 * k22 - k12 * k12;
        const float rho = det3 / det2;
        axial_loads[i] = rho / alpha2;
        circumferential_loads[i] = rho * R2 / waves.wave2[i];
      }
      for (std::int32_t i = 0; i < count; ++i) {
        if (axial_loads[i] < axial) axial = axial_loads[i];
        if (circumferential_loads[i] < circumferential) {
          circumferential = circumferential_loads[i];
        }
      }
    }
  }
  cylinder.nx = axial;
  cylinder.ny = circumferential;

  const float membrane = (A11 * A22 - A12 * A12) / A22;
  cylinder.nxy = 21.75f * std::pow(D22, 0.625f) * std::pow(membrane, 0.375f) *
                 std::pow(R, 1.25f) / std::sqrt(L) / (kTwoPi * R2);
  return cylinder;
}

PanelSearch curved_panel_search(const Matrix3& A, const Matrix3& D, float L, float b,
                                float R, float kx, float ky) {
  const float D11 = D(1, 1);
  const float D12 = D(1, 2);
  const float D22 = D(2, 2);
  const float D66 = D(3, 3);
  PanelSearch search;
  float L_eff = L;
  float b_eff = b;
  if (b > 0.0f && L / b > kAspectCap) L_eff = kAspectCap * b;
  if (L > 0.0f && b / L > kAspectCap) b_eff = kAspectCap * L;
  if (smallest_number({A(1, 1), A(1, 2), A(2, 2), A(3, 3), D11, D12, D22, D66, L, b}) <=
      0.0f) {
    return search;
  }

  int status = 0;
  const Matrix3 a = inverse3x3(A, 1.0e-20f, &status);
  search.load = kPanelStart;
  // A singular A has a NaN compliance, which makes every factor NaN: the search
  // could only end where it starts.
  if (status != 0) return search;

  // Terms of n alone, formed once for all m.
  std::array<float, kPanelWaves> beta2{};
  std::array<float, kPanelWaves> a11_beta4{};
  std::array<float, kPanelWaves> D22_beta4{};
  std::array<float, kPanelWaves> ky_beta2{};
  for (int n = 1; n <= kPanelWaves; ++n) {
    const float beta = static_cast<float>(n) * kPi / b_eff;
    const float b2 = beta * beta;
    const float b4 = b2 * b2;
    beta2[n - 1] = b2;
    a11_beta4[n - 1] = a(1, 1) * b4;
    D22_beta4[n - 1] = D22 * b4;
    ky_beta2[n - 1] = ky * b2;
  }
  const float a_twist = (a(3, 3) / 2.0f + a(1, 2)) * 2.0f;
  const float D_twist = (2.0f * D66 + D12) * 2.0f;
  for (int m = 1; m <= kPanelWaves; ++m) {
    const float alpha = static_cast<float>(m) * kPi / L_eff;
    const float alpha2 = alpha * alpha;
    const float alpha4 = alpha2 * alpha2;
    const float kappa = R > 0.0f ? alpha2 / R : 0.0f;
    const float kappa2 = kappa * kappa;
    const float a22_alpha4 = a(2, 2) * alpha4;
    const float a_twist_alpha2 = a_twist * alpha2;
    const float D11_alpha4 = D11 * alpha4;
    const float D_twist_alpha2 = D_twist * alpha2;
    // A row of factors first, then the scan: the row has no branch and so
    // runs several modes per instruction.
    std::array<float, kPanelWaves> loads;
    for (int i = 0; i < kPanelWaves; ++i) {
      const float b2 = beta2[i];
      const float membrane = a22_alpha4 + a_twist_alpha2 * b2 + a11_beta4[i];
      const float F = kappa2 / membrane + D11_alpha4 + D_twist_alpha2 * b2 + D22_beta4[i];
      loads[i] = -(F / alpha2) / (kx + ky_beta2[i] / alpha2);
    }
    for (int n = 1; n <= kPanelWaves; ++n) {
      const float load = loads[n - 1];
      if (load > 0.0f && load < search.load) {
        search.load = load;
        search.m = m;
        search.n = n;
      }
    }
  }
  // An optimum on the edge may lie beyond it: no load is claimed.
  if (std::max(search.m, search.n) == kPanelWaves) search.load = 0.0f;
  return search;
}

float empirical_curvature_factor(float L, float b, float R, float t) {
  if (R < kFlat) return 1.0f;
  if (!(smallest_number({L, b, t}) >= kFlat)) return 0.0f;
  float aspect = 1.0f;
  float width = b;
  if (L < b) {
    width = L;  // a short panel counts as a square of side L
  } else {
    aspect = L / b;
  }
  const float Z = width * width / (R * t);
  return 1.0f +
         (0.01f * std::sqrt(std::fmin(aspect, 5.0f)) + 0.024f) * std::fmin(Z, 100.0f);
}

int compliance_curvature_factor(const Matrix3& A, float L, float b, float R, float t,
                                float& factor) {
  int status = 0;
  const Matrix3 a = inverse3x3(A, 1.0e-20f, &status);
  if (status != 0) return status;
  const float Ex = 1.0f / (t * a(1, 1));
  const float nuxy = -t * a(1, 2) * Ex;
  const float nuxy_nuyx = nuxy * nuxy * (1.0f / (t * a(2, 2))) / Ex;
  if (R < kFlat) {
    factor = 1.0f;
  } else if (smallest_number({L, b, t}) >= kFlat && nuxy_nuyx >= 1.0e-5f) {
    const float Z = b * b / (R * t);
    float q = 12.0f * (1.0f - nuxy_nuyx) * (Z * Z);
    if (std::sqrt(q) > 40.0f) q = 1600.0f;
    // A fourth root as two square roots, as in the flat-plate estimate: powf can
    // differ from it in the last bit.
    factor = std::sqrt(std::sqrt(q / 700.0f + 1.0f));
  } else {
    factor = 0.0f;
  }
  return 0;
}

CriticalLoads shell_buckling(const Matrix3& A, const Matrix3& D, float L, float b,
                             float R, float t, int* error, bool empirical_curvature) {
  int code = 0;
  const auto finish = [&code, error](const CriticalLoads& loads) {
    if (error != nullptr) *error = code;
    return loads;
  };

  const CylinderEstimate cylinder = cylinder_estimate(A, D, L, R);
  const PanelSearch axial = curved_panel_search(A, D, L, b, R, -1.0f, 0.0f);
  const PanelSearch circumferential = curved_panel_search(A, D, L, b, R, 0.0f, -1.0f);

  // Flat-panel shear from the closed-form estimate, for shear alone.
  const float no_load[1] = {0.0f};
  const float unit_shear[1] = {1.0f};
  float rf[1] = {0.0f};
  float nxcr = 0.0f;
  float nycr = 0.0f;
  float flat_shear = 0.0f;
  const int flat_error =
      closed_form_estimate(D(1, 1), D(1, 2), D(2, 2), D(3, 3), L, b, no_load, no_load,
                           unit_shear, rf, nxcr, nycr, flat_shear);
  if (flat_error != 0) flat_shear = 0.0f;
  code += flat_error;

  float factor = 0.0f;
  if (empirical_curvature) {
    factor = empirical_curvature_factor(L, b, R, t);
  } else {
    const int status = compliance_curvature_factor(A, L, b, R, t, factor);
    if (status != 0) {
      code = status;
      return finish({cylinder.nx, cylinder.ny, cylinder.nxy});
    }
  }

  CriticalLoads loads;
  loads.nxcr = larger_number(axial.load, cylinder.nx);
  loads.nycr = larger_number(circumferential.load, cylinder.ny);
  loads.nxycr = R > 0.0f ? larger_number(factor * flat_shear, cylinder.nxy) : flat_shear;
  return finish(loads);
}

}  // namespace corvane
