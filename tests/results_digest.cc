#include "results_digest.h"

#include <array>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include "buckling/plate_buckling.h"
#include "buckling/shell_buckling.h"
#include "cards/bulk_data_cards.h"
#include "corvane/corvane.h"
#include "laminas/lamina.h"
#include "laminates_stressed/laminate_stressed.h"
#include "util/matrix3.h"

namespace corvane::testing {
namespace {

constexpr int kLaminateCases = 400;
constexpr int kEntryPointCases = 400;
constexpr int kPlateCases = 1000;
constexpr int kShellCases = 200;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

LAMINA random_ply(Cases& r) {
  float t = r.uniform(0.05f, 0.5f);
  float e1 = r.uniform(5.0e3f, 3.0e5f);
  float e2 = r.uniform(2.0e3f, 2.0e4f);
  float g12 = r.uniform(1.0e3f, 1.0e4f);
  float nu12 = r.uniform(0.0f, 0.45f);
  switch (r.integer(1, 40)) {
    case 1:  // no Poisson effect: the stiffness check fails
      nu12 = 0.0f;
      break;
    case 2:  // fabric
      e2 = e1;
      break;
    case 3:  // all moduli zero: [A] singular
      e1 = e2 = g12 = 0.0f;
      break;
    case 4:  // not a valid material: built all the same
      nu12 = -0.1f;
      break;
    case 5:
      t = kNaN;
      break;
    default:
      break;
  }
  const float tension =
      r.chance(50) ? r.uniform(0.002f, 0.02f) : r.uniform(500.0f, 3000.0f);
  const float compression =
      r.chance(50) ? r.uniform(0.002f, 0.02f) : r.uniform(500.0f, 3000.0f);
  LAMINA ply = new_lamina(t, e1, e2, g12, nu12, tension, compression);
  ply.CTE1 = r.chance(10) ? 0.0f : r.uniform(-1.0e-6f, 1.0e-5f);
  ply.CTE2 = r.uniform(1.0e-5f, 5.0e-5f);
  if (r.chance(30)) ply.G13 = r.uniform(1.0e3f, 6.0e3f);
  if (r.chance(30)) ply.G23 = r.uniform(1.0e3f, 6.0e3f);
  if (r.chance(30)) ply.F13 = r.uniform(50.0f, 120.0f);
  return ply;
}

float random_angle(Cases& r) {
  static constexpr std::array<float, 10> kUsual = {0.0f,   45.0f, -45.0f, 90.0f, 30.0f,
                                                   -30.0f, 60.0f, -60.0f, 15.0f, -15.0f};
  if (r.chance(60)) return kUsual[static_cast<std::size_t>(r.integer(0, 9))];
  return r.uniform(-180.0f, 180.0f);
}

std::string laminate_case(Cases& r, int index) {
  const LAMINA m1 = random_ply(r);
  const LAMINA m2 = random_ply(r);
  int n = 0;
  switch (r.integer(1, 10)) {
    case 1:
      n = 255;
      break;
    case 2:
    case 3:
    case 4:
      n = r.integer(1, 16);
      break;
    default:
      n = r.integer(1, 255);
      break;
  }
  std::vector<float> angles(static_cast<std::size_t>(n));
  std::vector<std::int32_t> material(angles.size());
  const bool mirrored = r.chance(40);
  for (std::size_t k = 0; k < angles.size(); ++k) {
    const std::size_t mirror = angles.size() - 1 - k;
    if (mirrored && mirror < k) {
      angles[k] = angles[mirror];
      material[k] = material[mirror];
    } else {
      angles[k] = random_angle(r);
      material[k] = r.integer(1, 2);
    }
  }
  const bool two_materials = r.chance(30);

  const LAMINATESTRESSED lam = two_materials ? LAMINATESTRESSED(m1, m2, angles, material)
                                             : LAMINATESTRESSED(m1, angles);
  Digest digest;
  digest.add(lam.nplies);
  digest.add(lam.symmetric);
  digest.add(lam.error);
  digest.add(lam.h);
  for (const Matrix3* m :
       {&lam.A, &lam.B, &lam.D, &lam.Dstar, &lam.a, &lam.b, &lam.c, &lam.d, &lam.A_B,
        &lam.B_B, &lam.D_B, &lam.Dstar_B, &lam.a_B, &lam.b_B, &lam.c_B, &lam.d_B}) {
    digest.add(*m);
  }
  for (float x :
       {lam.Ex, lam.Ey, lam.Gxy, lam.nuxy, lam.nuyx, lam.alphax, lam.alphay, lam.alphaxy,
        lam.z1.real(), lam.z1.imag(), lam.z2.real(), lam.z2.imag()}) {
    digest.add(x);
  }
  for (std::size_t k = 0; k < angles.size() && k < 3; ++k) {
    digest.add(m1.stiffness_at_angle(angles[k]));
    digest.add(m1.stiffness_at_angle(angles[k], 1));
  }
  digest.add(bulk_data_cards(lam));
  return digest.line('L', index);
}

float random_dimension(Cases& r) {
  switch (r.integer(1, 150)) {
    case 1:
      return 0.0f;
    case 2:
      return -100.0f;
    case 3:
      return kNaN;
    default:
      return r.uniform(20.0f, 3000.0f);
  }
}

std::string plate_case(Cases& r, int index) {
  Matrix3 D;
  D(1, 1) = r.uniform(100.0f, 1.0e5f);
  D(2, 2) = r.chance(20) ? D(1, 1) : r.uniform(100.0f, 1.0e5f);
  D(1, 2) = D(2, 1) = r.uniform(0.01f, 0.6f) * D(2, 2);
  D(3, 3) = r.uniform(0.05f, 0.8f) * D(1, 1);
  D(1, 3) = D(3, 1) = r.uniform(-0.1f, 0.1f) * D(1, 1);
  switch (r.integer(1, 60)) {
    case 1:
      D(1, 2) = 0.0f;
      break;
    case 2:
      D(3, 3) = -1.0f;
      break;
    case 3:
      D(2, 2) = kNaN;
      break;
    case 4:  // isotropic-like
      D(2, 2) = D(1, 1);
      D(1, 2) = 0.3f * D(1, 1);
      D(3, 3) = 0.35f * D(1, 1);
      break;
    default:
      break;
  }
  float a = random_dimension(r);
  float b = random_dimension(r);
  if (r.chance(15)) a = b * r.uniform(5.0f, 40.0f);  // long plates, capped at 10 b
  if (r.chance(10)) b = a * r.uniform(5.0f, 40.0f);
  const float nx = r.chance(20) ? 0.0f : r.uniform(-500.0f, 200.0f);
  const float ny = r.chance(20) ? 0.0f : r.uniform(-500.0f, 200.0f);
  const float nxy = r.chance(20) ? 0.0f : r.uniform(-300.0f, 300.0f);

  Digest digest;
  for (const auto [px, py] :
       {std::array<float, 2>{-1.0f, 0.0f}, {0.0f, -1.0f}, {nx, ny}}) {
    const HalfWaveSearch s = half_wave_search(D, a, b, px, py);
    digest.add(s.lambda);
    digest.add(static_cast<std::int32_t>(s.m));
    digest.add(static_cast<std::int32_t>(s.n));
    digest.add(static_cast<std::int32_t>(s.bound));
    digest.add(static_cast<std::int32_t>(s.error));
  }
  CriticalLoads critical;
  int error = -7;
  digest.add(plate_buckling(D, a, b, nx, ny, nxy, &critical, &error));
  digest.add(critical.nxcr);
  digest.add(critical.nycr);
  digest.add(critical.nxycr);
  digest.add(static_cast<std::int32_t>(error));
  digest.add(plate_buckling(D, a, b, nx, ny, nxy));

  const std::array<float, 3> load_x = {nx, 0.0f, -1.0f};
  const std::array<float, 3> load_y = {ny, -1.0f, 0.0f};
  const std::array<float, 3> load_xy = {nxy, 0.0f, 1.0f};
  std::array<float, 3> rf{};
  float nxcr = 0.0f, nycr = 0.0f, nxycr = 0.0f;
  digest.add(static_cast<std::int32_t>(
      closed_form_estimate(D(1, 1), D(1, 2), D(2, 2), D(3, 3), a, b, load_x, load_y,
                           load_xy, rf, nxcr, nycr, nxycr)));
  for (float x : rf) digest.add(x);
  digest.add(nxcr);
  digest.add(nycr);
  digest.add(nxycr);

  // The entry points, as a host calls them.
  float loads[3] = {-1.0f, -1.0f, -1.0f};
  std::int32_t ierr = -7;
  LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS(D.v.data(), &a, &b, &loads[0], &loads[1],
                                         &loads[2], &ierr);
  for (float x : loads) digest.add(x);
  digest.add(ierr);
  float reserve = -1.0f;
  LAMINATE_RECTANGULAR_SS_BUCKLING_RF(&nx, &ny, &nxy, &loads[0], &loads[1], &loads[2],
                                      &reserve, &ierr);
  digest.add(reserve);
  digest.add(ierr);
  return digest.line('P', index);
}

// A stacking-sequence text: a group of angles, a repeat count and a symmetry
// mark, now and then refused (no parentheses, a bad mark, too many plies).
std::string random_layup(Cases& r) {
  std::string text = r.chance(5) ? "" : "(";
  const int group = r.integer(1, 12);
  for (int k = 0; k < group; ++k) {
    if (k > 0) text += '/';
    char buf[32];
    if (r.chance(70)) {
      std::snprintf(buf, sizeof buf, "%d", static_cast<int>(random_angle(r)));
      text += buf;
      if (r.chance(30)) text += '.';  // a ply of the second material
    } else {
      std::snprintf(buf, sizeof buf, "%.2f", static_cast<double>(random_angle(r)));
      text += buf;
    }
  }
  text += ')';
  if (r.chance(50)) text += std::to_string(r.integer(1, 12));
  switch (r.integer(1, 20)) {
    case 1:
      text += 'X';
      break;
    case 2:
    case 3:
    case 4:
    case 5:
    case 6:
      text += 'S';
      break;
    case 7:
    case 8:
    case 9:
      text += '$';
      break;
    default:
      break;
  }
  return text;
}

std::string entry_point_case(Cases& r, int index) {
  const auto constants = [&r] {
    const LAMINA ply = random_ply(r);
    return std::array<float, 7>{ply.CPT, ply.E1,   ply.E2,  ply.G12,
                                ply.v12, ply.CTE1, ply.CTE2};
  };
  std::array<float, 7> first = constants();
  const std::array<float, 7> second = constants();
  if (r.chance(5)) first[0] = 0.0f;  // an invalid material
  std::vector<char> layup(CORVANE_LAYUP_LENGTH, ' ');
  const std::string text = random_layup(r);
  std::copy(text.begin(), text.end(), layup.begin());

  std::int32_t symmetric = 7, plies = 7, ierr = 7;
  std::array<float, 9> a{}, b{}, d{}, dstar{};
  std::array<float, 8> scalars{};  // h, Ex, Ey, Gxy, nuxy, alphax, alphay, alphaxy
  scalars.fill(-1.0f);
  std::vector<char> cards(CORVANE_CARDS_LENGTH, '#');
  float* s = scalars.data();
  if (r.chance(50)) {
    LAMINATE_STIFFNESS(&first[0], &first[1], &first[2], &first[3], &first[4], &first[5],
                       &first[6], layup.data(), CORVANE_LAYUP_LENGTH, &symmetric,
                       a.data(), b.data(), d.data(), dstar.data(), &s[0], &s[1], &s[2],
                       &s[3], &s[4], &s[5], &s[6], &s[7], &plies, cards.data(),
                       CORVANE_CARDS_LENGTH, &ierr);
  } else {
    BI_MATERIAL_LAMINATE_STIFFNESS(
        &first[0], &first[1], &first[2], &first[3], &first[4], &first[5], &first[6],
        &second[0], &second[1], &second[2], &second[3], &second[4], &second[5],
        &second[6], layup.data(), CORVANE_LAYUP_LENGTH, &symmetric, a.data(), b.data(),
        d.data(), dstar.data(), &s[0], &s[1], &s[2], &s[3], &s[4], &s[5], &s[6], &s[7],
        &plies, cards.data(), CORVANE_CARDS_LENGTH, &ierr);
  }
  Digest digest;
  digest.add(ierr);
  digest.add(symmetric);
  digest.add(plies);
  for (const auto* m : {&a, &b, &d, &dstar}) {
    for (float x : *m) digest.add(x);
  }
  for (float x : scalars) digest.add(x);
  digest.add(std::string_view(cards.data(), cards.size()));

  // The membrane strains of the laminate under random running loads.
  float t = s[0], ex = s[1], ey = s[2], gxy = s[3], nuxy = s[4];
  float nx = r.uniform(-500.0f, 500.0f), ny = r.uniform(-500.0f, 500.0f),
        nxy = r.uniform(-200.0f, 200.0f);
  std::array<float, 5> strains;
  strains.fill(-1.0f);
  LAMINATE_STRAINS_IN_PLANE(&t, &ex, &ey, &gxy, &nuxy, &nx, &ny, &nxy, &strains[0],
                            &strains[1], &strains[2], &strains[3], &strains[4], &ierr);
  for (float x : strains) digest.add(x);
  digest.add(ierr);
  return digest.line('S', index);
}

std::string shell_case(Cases& r, int index) {
  Matrix3 A, D;
  A(1, 1) = r.uniform(1.0e4f, 2.0e5f);
  A(2, 2) = r.uniform(1.0e4f, 2.0e5f);
  A(1, 2) = A(2, 1) = r.uniform(0.02f, 0.5f) * A(2, 2);
  A(3, 3) = r.uniform(0.05f, 0.4f) * A(1, 1);
  A(1, 3) = A(3, 1) = r.uniform(-0.05f, 0.05f) * A(1, 1);
  D(1, 1) = r.uniform(100.0f, 1.0e5f);
  D(2, 2) = r.uniform(100.0f, 1.0e5f);
  D(1, 2) = D(2, 1) = r.uniform(0.01f, 0.6f) * D(2, 2);
  D(3, 3) = r.uniform(0.05f, 0.8f) * D(1, 1);
  if (r.chance(3)) D(1, 2) = 0.0f;
  if (r.chance(3)) A = Matrix3{};  // singular membrane stiffness
  float L = r.uniform(100.0f, 5000.0f);
  float b = r.uniform(50.0f, 2000.0f);
  // Radii from L/20 to 20 L keep the cylinder mode count in the thousands.
  float R = L * r.uniform(0.05f, 20.0f);
  if (r.chance(10)) R = 0.0f;
  if (r.chance(3)) R = -100.0f;
  float t = r.chance(3) ? 0.0f : r.uniform(0.5f, 10.0f);

  Digest digest;
  const CylinderEstimate cylinder = cylinder_estimate(A, D, L, R);
  digest.add(cylinder.nx);
  digest.add(cylinder.ny);
  digest.add(cylinder.nxy);
  for (const auto [kx, ky] : {std::array<float, 2>{-1.0f, 0.0f}, {0.0f, -1.0f}}) {
    const PanelSearch panel = curved_panel_search(A, D, L, b, R, kx, ky);
    digest.add(panel.load);
    digest.add(static_cast<std::int32_t>(panel.m));
    digest.add(static_cast<std::int32_t>(panel.n));
  }
  for (const bool empirical : {true, false}) {
    int error = -7;
    const CriticalLoads loads = shell_buckling(A, D, L, b, R, t, &error, empirical);
    digest.add(loads.nxcr);
    digest.add(loads.nycr);
    digest.add(loads.nxycr);
    digest.add(static_cast<std::int32_t>(error));
  }
  float loads[3] = {-1.0f, -1.0f, -1.0f};
  std::int32_t ierr = -7;
  LAMINATE_SHELL_BUCKLING_LOADS(A.v.data(), D.v.data(), &L, &b, &R, &t, &loads[0],
                                &loads[1], &loads[2], &ierr);
  for (float x : loads) digest.add(x);
  digest.add(ierr);
  return digest.line('C', index);
}

}  // namespace

std::vector<std::string> results_digest() {
  std::vector<std::string> lines;
  Cases laminates;
  for (int i = 1; i <= kLaminateCases; ++i) lines.push_back(laminate_case(laminates, i));
  Cases entry_points;
  for (int i = 1; i <= kEntryPointCases; ++i) {
    lines.push_back(entry_point_case(entry_points, i));
  }
  Cases plates;
  for (int i = 1; i <= kPlateCases; ++i) lines.push_back(plate_case(plates, i));
  Cases shells;
  for (int i = 1; i <= kShellCases; ++i) lines.push_back(shell_case(shells, i));
  return lines;
}

}  // namespace corvane::testing
