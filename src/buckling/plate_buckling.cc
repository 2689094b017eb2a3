#include "buckling/plate_buckling.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "interpolation/table_lookup.h"
#include "util/numerics.h"

namespace corvane {
namespace {

constexpr float kTwoPiSquared = 2.0f * kPiSquared;  // 19.739212, exactly
constexpr float kStartMinimum = 100000.0f;
constexpr float kAspectCap = 10.0f;  // longest side taken as at most 10 widths
constexpr int kLastBound = 100;

// Two-column tables stored column by column: abscissae, then values.

// Compression buckling coefficient against the effective aspect ratio.
constexpr float kCompression[2][28] = {
    {0.3f, 0.4f, 0.5f, 0.6f, 0.7f, 0.8f, 0.9f, 1.0f, 1.1f, 1.2f, 1.3f, 1.4f, 1.5f, 1.6f,
     1.7f, 1.8f, 1.9f, 2.0f, 2.1f, 2.2f, 2.3f, 2.4f, 2.5f, 2.6f, 2.7f, 2.8f, 2.9f, 3.0f},
    {100.0f, 65.0f, 42.0f, 31.0f, 25.0f, 22.0f, 20.0f, 19.7f, 20.0f, 21.0f,
     22.0f,  24.0f, 23.0f, 22.0f, 21.0f, 20.0f, 19.7f, 19.7f, 19.7f, 20.0f,
     20.5f,  21.0f, 21.0f, 20.5f, 20.0f, 20.0f, 19.7f, 19.7f}};

// Shear buckling coefficient of a long plate against beta = H/sqrt(D11*D22).
constexpr float kLongPlateShear[2][2] = {{0.0f, 1.0f}, {32.5f, 52.8f}};

// Shear buckling coefficients of finite plates against beta: column 0 holds
// beta, column j the values at the aspect ratio kShearRatio[j] (0.2 .. 1.0).
// The uneven steps and the plateau of 340 are the data as measured.
constexpr float kFinitePlateShear[10][18] = {
    {0.0f, 0.25f, 0.5f, 0.75f, 1.0f, 1.25f, 1.5f, 1.75f, 2.0f, 2.25f, 2.5f, 2.75f, 3.0f,
     3.25f, 3.5f, 3.75f, 4.0f, 5.0f},
    {184.0f, 212.0f, 238.0f, 263.0f, 285.0f, 306.0f, 324.0f, 340.0f, 340.0f, 340.0f,
     340.0f, 340.0f, 340.0f, 340.0f, 340.0f, 340.0f, 340.0f, 340.0f},
    {115.0f, 135.0f, 155.0f, 173.0f, 190.0f, 207.0f, 222.0f, 235.0f, 252.0f, 267.0f,
     281.0f, 298.0f, 311.0f, 326.0f, 340.0f, 340.0f, 340.0f, 340.0f},
    {90.0f, 106.0f, 121.0f, 135.0f, 150.0f, 164.0f, 179.0f, 191.0f, 204.0f, 216.0f,
     227.0f, 239.0f, 250.0f, 261.0f, 271.0f, 283.0f, 294.0f, 338.0f},
    {74.0f, 89.0f, 103.0f, 117.0f, 129.0f, 140.0f, 152.0f, 162.0f, 173.0f, 183.0f, 194.0f,
     205.0f, 215.0f, 226.0f, 237.0f, 248.0f, 258.0f, 300.0f},
    {69.0f, 80.0f, 91.0f, 102.0f, 113.0f, 123.0f, 134.0f, 144.0f, 155.0f, 166.0f, 176.0f,
     186.0f, 197.0f, 207.0f, 218.0f, 228.0f, 239.0f, 280.0f},
    {58.0f, 69.0f, 81.0f, 91.0f, 102.0f, 112.0f, 123.0f, 136.0f, 144.0f, 155.0f, 165.0f,
     175.0f, 186.0f, 196.0f, 207.0f, 217.0f, 228.0f, 268.0f},
    {54.0f, 63.0f, 74.0f, 85.0f, 94.0f, 106.0f, 118.0f, 128.0f, 138.0f, 149.0f, 159.0f,
     170.0f, 180.0f, 190.0f, 201.0f, 212.0f, 222.0f, 263.0f},
    {49.0f, 60.0f, 71.0f, 82.0f, 94.0f, 104.0f, 114.0f, 125.0f, 136.0f, 146.0f, 157.0f,
     167.0f, 178.0f, 188.0f, 198.0f, 208.0f, 219.0f, 260.0f},
    {48.0f, 59.0f, 70.0f, 82.0f, 92.0f, 102.0f, 114.0f, 124.0f, 134.0f, 145.0f, 156.0f,
     166.0f, 177.0f, 187.0f, 198.0f, 208.0f, 218.0f, 259.0f}};

// Aspect ratios bracketing the finite-plate tables; at 0.1 and below the
// coefficient is 340 whatever beta.
constexpr float kShearRatio[10] = {0.1f, 0.2f, 0.3f, 0.4f, 0.5f,
                                   0.6f, 0.7f, 0.8f, 0.9f, 1.0f};
constexpr float kNarrowPlateShear = 340.0f;

// A value left out of a row would be silently zero: every coefficient is positive.
constexpr bool all_coefficients_positive() {
  for (const float v : kCompression[1]) {
    if (!(v > 0.0f)) return false;
  }
  for (std::size_t j = 1; j < 10; ++j) {
    for (const float v : kFinitePlateShear[j]) {
      if (!(v > 0.0f)) return false;
    }
  }
  return kFinitePlateShear[0][17] == 5.0f && kCompression[0][27] == 3.0f;
}
static_assert(all_coefficients_positive());

float compression_coefficient(float ratio) {
  return table_lookup(kCompression[0], kCompression[1], ratio);
}

// Finite-plate shear coefficient at the aspect ratio r <= 1, interpolated
// linearly in r between the two tables that bracket it (upper end inclusive).
float finite_plate_shear_coefficient(float r, float beta) {
  if (r <= kShearRatio[0]) return kNarrowPlateShear;
  std::size_t hi = 9;  // r above 0.9 uses the last interval
  for (std::size_t j = 1; j < 9; ++j) {
    if (r <= kShearRatio[j]) {
      hi = j;
      break;
    }
  }
  const std::size_t lo = hi - 1;
  const auto end_value = [beta](std::size_t j) {
    return j == 0 ? kNarrowPlateShear
                  : table_lookup(kFinitePlateShear[0], kFinitePlateShear[j], beta);
  };
  const float k_lo = end_value(lo);
  const float k_hi = end_value(hi);
  return k_lo +
         (r - kShearRatio[lo]) * (k_hi - k_lo) / (kShearRatio[hi] - kShearRatio[lo]);
}

}  // namespace

HalfWaveSearch half_wave_search(const Matrix3& D, float a, float b, float nx, float ny) {
  const float D11 = D(1, 1);
  const float D12 = D(1, 2);
  const float D22 = D(2, 2);
  const float D66 = D(3, 3);
  HalfWaveSearch failed;
  failed.error = 1;
  if (any_not_positive({a, b, D66, D22, D12, D11})) return failed;

  float a_eff = a;
  float b_eff = b;
  if (b > 0.0f && a / b > kAspectCap) a_eff = kAspectCap * b;
  if (a > 0.0f && b / a > kAspectCap) b_eff = kAspectCap * a;
  const float H = D12 + 2.0f * D66;

  // Each sweep only visits the pairs (m, n) that the sweeps before it did not:
  // a pair already visited gave no load factor below the best of its time, so
  // it cannot give one below the best since, and visiting it again changes
  // nothing. The terms of one wave number alone are formed once, and a row of
  // load factors is formed before it is scanned in order of n; every factor is
  // formed from the same operands in the same order as the plain formula.
  const float two_h = 2.0f * H;
  const float ab = a_eff * b_eff;
  std::array<float, kLastBound> q_stiffness{};  // D22 q^4 for n = index + 1
  std::array<float, kLastBound> q_load{};       // ny q^2
  std::array<float, kLastBound> row{};
  int formed = 0;  // wave numbers n whose terms are formed

  float lambda_min = kStartMinimum;
  int best_m = 0;
  int best_n = 0;
  int previous_m = -1;
  int previous_n = 0;
  int swept = 0;  // the bound of the sweeps so far
  int bound = 1;
  int step = 0;
  for (;;) {
    for (; formed < bound; ++formed) {
      const float q = static_cast<float>(formed + 1) / b_eff;
      const float q2 = q * q;
      q_stiffness[static_cast<std::size_t>(formed)] = D22 * (q2 * q2);
      q_load[static_cast<std::size_t>(formed)] = ny * q2;
    }
    for (int m = 1; m <= bound; ++m) {
      const float p = static_cast<float>(m) / a_eff;
      const float p2 = p * p;
      const float p_stiffness = D11 * (p2 * p2);
      const float p_load = nx * p2;
      const int first_n = m <= swept ? swept + 1 : 1;
      for (int n = first_n; n <= bound; ++n) {
        const auto i = static_cast<std::size_t>(n - 1);
        const float pq = static_cast<float>(m * n) / ab;
        row[i] = -kPiSquared * (p_stiffness + two_h * (pq * pq) + q_stiffness[i]) /
                 (p_load + q_load[i]);
      }
      for (int n = first_n; n <= bound; ++n) {
        const float lambda = row[static_cast<std::size_t>(n - 1)];
        if (lambda > 0.0f && lambda < lambda_min) {
          lambda_min = lambda;
          best_m = m;
          best_n = n;
        }
      }
    }
    swept = bound;
    if (best_m == previous_m && best_n == previous_n) {
      return HalfWaveSearch{lambda_min, best_m, best_n, bound, 0};
    }
    previous_m = best_m;
    previous_n = best_n;
    step += 10;
    bound = std::min(step, kLastBound);
    if (bound == kLastBound) return failed;
  }
}

float plate_buckling(const Matrix3& D, float a, float b, float nx, float ny, float nxy,
                     CriticalLoads* critical, int* error) {
  const auto fail = [error] {
    if (error != nullptr) *error = 1;
    return 0.0f;
  };
  if (error != nullptr) *error = 0;
  if (critical != nullptr) *critical = CriticalLoads{};

  const HalfWaveSearch combined = half_wave_search(D, a, b, nx, ny);
  if (combined.error != 0) return fail();
  if (critical != nullptr) {
    const HalfWaveSearch along_x = half_wave_search(D, a, b, -1.0f, 0.0f);
    if (along_x.error != 0) return fail();
    critical->nxcr = along_x.lambda;
    const HalfWaveSearch along_y = half_wave_search(D, a, b, 0.0f, -1.0f);
    if (along_y.error != 0) return fail();
    critical->nycr = along_y.lambda;
  }

  // Shear alone through the closed-form estimate; its compression loads are
  // not used, the search above is the better estimate of those.
  const float no_load[1] = {0.0f};
  const float shear[1] = {nxy};
  float shear_rf[1] = {0.0f};
  float nxcr = 0.0f;
  float nycr = 0.0f;
  float nxycr = 0.0f;
  if (closed_form_estimate(D(1, 1), D(1, 2), D(2, 2), D(3, 3), a, b, no_load, no_load,
                           shear, shear_rf, nxcr, nycr, nxycr) != 0) {
    return fail();
  }
  if (critical != nullptr) critical->nxycr = nxycr;
  return interaction_rf(std::max(1.0f / combined.lambda, 0.0f), 0.0f, 1.0f / shear_rf[0]);
}

float interaction_rf(float rx, float ry, float rs) {
  // std::max keeps a NaN ratio, so it reaches the result.
  const float rc = std::max(rx, 0.0f) + std::max(ry, 0.0f);
  const float s = rc + std::sqrt(rc * rc + 4.0f * (rs * rs));
  if (std::fabs(s) < 1.0e-5f) return 100000.0f;
  return 2.0f / s;
}

int closed_form_estimate(float D11, float D12, float D22, float D66, float a, float b,
                         std::span<const float> nx, std::span<const float> ny,
                         std::span<const float> nxy, std::span<float> rf, float& nxcr,
                         float& nycr, float& nxycr) {
  std::fill(rf.begin(), rf.end(), 0.0f);
  nxcr = 0.0f;
  nycr = 0.0f;
  nxycr = 0.0f;
  if (any_not_positive({a, b, D66, D22, D12, D11})) return 1;

  // Aspect ratios of the equivalent isotropic plate; fourth roots as two square roots.
  const float rx = (a / b) * std::sqrt(std::sqrt(D22 / D11));
  const float ry = (b / a) * std::sqrt(std::sqrt(D11 / D22));
  const float r = std::min(rx, ry);
  const float H = D12 + 2.0f * D66;
  const float root = std::sqrt(D11 * D22);
  const float beta = H / root;

  nxcr = (compression_coefficient(rx) * root + kTwoPiSquared * H) / (b * b);

  const float ks =
      table_lookup(kLongPlateShear[0], kLongPlateShear[1], beta <= 1.0f ? beta : 1.0f);
  float n1 = 0.0f;
  if (a <= b) {
    n1 = ks * std::sqrt(std::sqrt(((D11 * D11) * D11) * D22)) / (a * a);
  } else {
    n1 = ks * std::sqrt(std::sqrt(D11 * ((D22 * D22) * D22))) / (b * b);
  }
  const float k = finite_plate_shear_coefficient(r, std::min(beta, 5.0f));
  const float n2 = k * root / (a * b);
  nxycr = std::max(n1, n2);

  nycr = (compression_coefficient(ry) * root + kTwoPiSquared * H) / (a * a);

  const std::size_t smallest = std::min({nx.size(), ny.size(), nxy.size(), rf.size()});
  const std::size_t largest = std::max({nx.size(), ny.size(), nxy.size(), rf.size()});
  if (smallest != largest) return 2;
  for (std::size_t i = 0; i < smallest; ++i) {
    rf[i] = interaction_rf(-nx[i] / nxcr, -ny[i] / nycr, std::fabs(nxy[i] / nxycr));
  }
  return 0;
}

}  // namespace corvane
