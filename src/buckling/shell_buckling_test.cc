#include "buckling/shell_buckling.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace corvane {
namespace {

constexpr double kPi = 3.14159265358979323846;  // in double: an independent reference
const float kNaN = std::numeric_limits<float>::quiet_NaN();

// Specially orthotropic matrix from its four terms.
Matrix3 orthotropic(float x11, float x12, float x22, float x66) {
  Matrix3 M;
  M(1, 1) = x11;
  M(1, 2) = M(2, 1) = x12;
  M(2, 2) = x22;
  M(3, 3) = x66;
  return M;
}

// A and D of an isotropic wall of modulus E, Poisson's ratio nu, thickness t.
struct Wall {
  Matrix3 A, D;
};
Wall isotropic(double E, double nu, double t) {
  const double q = E * t / (1.0 - nu * nu);
  const double d = q * t * t / 12.0;
  return {orthotropic(q, nu * q, q, E * t / (2.0 * (1.0 + nu))),
          orthotropic(d, nu * d, d, (1.0 - nu) * d / 2.0)};
}

// A quasi-isotropic carbon layup and a strongly orthotropic one (stiff along x).
const Matrix3 kQuasiA = orthotropic(50000.0f, 15000.0f, 40000.0f, 17000.0f);
const Matrix3 kQuasiD = orthotropic(4000.0f, 1200.0f, 3500.0f, 1400.0f);
const Matrix3 kAxialA = orthotropic(120000.0f, 5000.0f, 20000.0f, 6000.0f);
const Matrix3 kAxialD = orthotropic(9000.0f, 500.0f, 1500.0f, 700.0f);
const Matrix3 kWeakHoopD = orthotropic(4000.0f, 1.0f, 1.0e-3f, 1.0f);
const Wall kAluminium = isotropic(70000.0, 0.3, 2.0);
const Matrix3 kNoD12 = orthotropic(4000.0f, 0.0f, 3500.0f, 1400.0f);
const Matrix3 kSingularA = orthotropic(1000.0f, 1000.0f, 1000.0f, 300.0f);
// Best axial half-wave (D22/D11)^(1/4) = 178 times shorter than a square panel is
// wide: the panel search stops on its edge, m = 100.
const Matrix3 kEdgeD = orthotropic(10.0f, 5.0f, 1.0e10f, 10.0f);

// Donnell's shallow-shell equations for the mode w = sin(alpha x) sin(beta y) of a
// specially orthotropic wall without coupling: the radial stiffness left once the
// two membrane displacements are eliminated (R <= 0: flat, no membrane coupling).
// The critical load is rho/alpha^2 axially, rho/beta^2 circumferentially.
double donnell_rho(const Matrix3& A, const Matrix3& D, double alpha, double beta,
                   double R) {
  const double a2 = alpha * alpha, b2 = beta * beta;
  const double bending =
      D(1, 1) * a2 * a2 + 2.0 * (D(1, 2) + 2.0 * D(3, 3)) * a2 * b2 + D(2, 2) * b2 * b2;
  if (!(R > 0.0)) return bending;
  const double k11 = a2 * A(1, 1) + b2 * A(3, 3);
  const double k22 = b2 * A(2, 2) + a2 * A(3, 3);
  const double k12 = (A(1, 2) + A(3, 3)) * alpha * beta;
  const double k13 = A(1, 2) * alpha / R;
  const double k23 = A(2, 2) * beta / R;
  const double det = k11 * k22 - k12 * k12;
  const double u = (k22 * k13 - k12 * k23) / det;
  const double v = (k11 * k23 - k12 * k13) / det;
  return bending + A(2, 2) / (R * R) - (k13 * u + k23 * v);
}

#define EXPECT_CLOSE(actual, expected, tolerance) \
  EXPECT_NEAR(actual, expected, (tolerance)*std::fabs(expected))

TEST(CylinderEstimate, LongIsotropicCylinderReachesTheClassicalLoad) {
  // Classical axial buckling load of an orthotropic cylinder (axisymmetric mode),
  // 2 sqrt(D11 (A11 A22 - A12^2)/A11)/R; for an isotropic wall Donnell's minimum is
  // this value, E t^2/(R sqrt(3(1 - nu^2))), over a whole circle of modes. The
  // discrete modes of the search come within 1e-6 of it at these lengths, but the
  // float determinant of the mode matrix loses up to some 4e-4 to cancellation
  // (membrane terms of order A/R^2 cancel down to the size of the bending terms),
  // either way: hence 1e-3.
  const struct {
    double t, R, L;
  } cases[] = {{1.0, 500.0, 5000.0},
               {2.0, 1000.0, 20000.0},
               {1.0, 100.0, 3000.0},
               {0.5, 1000.0, 4000.0},
               {1.0, 1000.0, 2000.0}};
  for (const auto& c : cases) {
    const Wall w = isotropic(70000.0, 0.3, c.t);
    const double A11 = w.A(1, 1), A12 = w.A(1, 2), A22 = w.A(2, 2);
    const double classical =
        2.0 * std::sqrt(w.D(1, 1) * (A11 * A22 - A12 * A12) / A11) / c.R;
    const CylinderEstimate cylinder = cylinder_estimate(w.A, w.D, c.L, c.R);
    EXPECT_CLOSE(cylinder.nx, classical, 1.0e-3) << c.R << " " << c.L;
  }
}

TEST(CylinderEstimate, SearchFindsTheLowestModeOfItsGrid) {
  // Modes m = 1 .. L/s half-waves along the length and n = 1 .. 2 pi R/s waves round
  // it, s = min(L, pi R/4)/10. The float determinant agrees with the double
  // elimination to 1.2e-5 axially (1e-6 but for the weakest hoop bending); the
  // circumferential optimum, a long shallow mode, cancels more (3e-5 here).
  const struct {
    const Matrix3 &A, &D;
    double L, R;
  } cases[] = {{kQuasiA, kQuasiD, 600.0, 1500.0},   // s from L: 10 x 157 modes
               {kAxialA, kAxialD, 300.0, 1000.0},   // 10 x 209
               {kAxialA, kAxialD, 1000.0, 1000.0},  // s from R: 13 x 80
               {kQuasiA, kQuasiD, 800.0, 300.0},    // 34 x 80
               {kAluminium.A, kAluminium.D, 1000.0, 200.0},
               // Hoop bending so weak that the circumferential optimum is the last
               // wave, of a 10 x 942 grid and of a 10 x 256 one.
               {kQuasiA, kWeakHoopD, 100.0, 1500.0},
               {kQuasiA, kWeakHoopD, 100.0, 407.5}};
  for (const auto& c : cases) {
    const double s = std::min(c.L, kPi * c.R / 4.0) / 10.0;
    const long axial_waves = std::lround(c.L / s);
    const long round_waves = std::lround(2.0 * kPi * c.R / s);
    double nx = 1.0e300, ny = 1.0e300;
    for (long m = 1; m <= axial_waves; ++m) {
      for (long n = 1; n <= round_waves; ++n) {
        const double alpha = m * kPi / c.L, beta = n / c.R;
        const double rho = donnell_rho(c.A, c.D, alpha, beta, c.R);
        nx = std::min(nx, rho / (alpha * alpha));
        ny = std::min(ny, rho / (beta * beta));
      }
    }
    const CylinderEstimate cylinder = cylinder_estimate(c.A, c.D, c.L, c.R);
    EXPECT_CLOSE(cylinder.nx, nx, 3.0e-5) << c.L << " " << c.R;
    EXPECT_CLOSE(cylinder.ny, ny, 1.0e-4) << c.L << " " << c.R;
  }
}

TEST(CylinderEstimate, TorsionFormula) {
  // Powers of two make every factor exact: 256^0.625 = 32, 256^0.375 = 8 (A11 A22 -
  // A12^2 = 256 A22), 16^1.25 = 32, sqrt(4) = 2.
  const Matrix3 A = orthotropic(272.0f, 4.0f, 1.0f, 1.0f);
  const Matrix3 D = orthotropic(1.0f, 1.0f, 256.0f, 1.0f);
  const double expected = 21.75 * 32.0 * 8.0 * 32.0 / 2.0 / (6.283186 * 256.0);
  EXPECT_CLOSE(cylinder_estimate(A, D, 4.0f, 16.0f).nxy, expected, 1.0e-6);
}

TEST(CylinderEstimate, NothingWithoutARadiusAndNoModeWithoutALength) {
  for (const float R : {0.0f, -100.0f, kNaN}) {
    const CylinderEstimate cylinder = cylinder_estimate(kQuasiA, kQuasiD, 600.0f, R);
    EXPECT_EQ(cylinder.nx, 0.0f);
    EXPECT_EQ(cylinder.ny, 0.0f);
    EXPECT_EQ(cylinder.nxy, 0.0f);
  }
  // No step count can be formed: the search keeps its starting value.
  for (const float L : {0.0f, kNaN}) {
    const CylinderEstimate cylinder = cylinder_estimate(kQuasiA, kQuasiD, L, 1500.0f);
    EXPECT_EQ(cylinder.nx, 1.0e30f);
    EXPECT_EQ(cylinder.ny, 1.0e30f);
  }
}

TEST(CurvedPanelSearch, FindsTheLowestDonnellMode) {
  // Over m, n = 1 .. 100 with alpha = m pi/L', beta = n pi/b', neither side longer
  // than ten times the other. The compliance form of the search and the elimination
  // of the reference agree to rounding.
  const struct {
    const Matrix3 &A, &D;
    float L, b, R, kx, ky;
  } cases[] = {{kQuasiA, kQuasiD, 600.0f, 300.0f, 1500.0f, -1.0f, 0.0f},
               {kQuasiA, kQuasiD, 600.0f, 300.0f, 1500.0f, 0.0f, -1.0f},
               {kQuasiA, kQuasiD, 600.0f, 300.0f, -5.0f, -1.0f, 0.0f},  // flat
               {kAxialA, kAxialD, 500.0f, 400.0f, 800.0f, 0.0f, -1.0f},
               {kAxialA, kAxialD, 5000.0f, 400.0f, 800.0f, -1.0f, 0.0f},  // L' = 4000
               {kAxialA, kAxialD, 400.0f, 8000.0f, 800.0f, 0.0f, -1.0f},  // b' = 4000
               {kQuasiA, kQuasiD, 1000.0f, 1000.0f, 3.0f, -1.0f, 0.0f},
               {kQuasiA, kQuasiD, 400.0f, 400.0f, 600.0f, -1.0f, -0.5f}};  // biaxial
  for (const auto& c : cases) {
    const double L = std::min<double>(c.L, 10.0 * c.b);
    const double b = std::min<double>(c.b, 10.0 * c.L);
    double best = 100000.0;
    int best_m = 0, best_n = 0;
    for (int m = 1; m <= 100; ++m) {
      for (int n = 1; n <= 100; ++n) {
        const double alpha = m * kPi / L, beta = n * kPi / b;
        const double load = -donnell_rho(c.A, c.D, alpha, beta, c.R) /
                            (c.kx * alpha * alpha + c.ky * beta * beta);
        if (load > 0.0 && load < best) {
          best = load;
          best_m = m;
          best_n = n;
        }
      }
    }
    const PanelSearch search = curved_panel_search(c.A, c.D, c.L, c.b, c.R, c.kx, c.ky);
    EXPECT_CLOSE(search.load, best, 1.0e-6) << c.L << " " << c.b << " " << c.R;
    EXPECT_EQ(search.m, best_m);
    EXPECT_EQ(search.n, best_n);
  }
}

TEST(CurvedPanelSearch, OptimumOnTheEdgeGivesNoLoad) {
  for (const float R : {0.0f, 1000.0f}) {
    const PanelSearch search = curved_panel_search(kQuasiA, kEdgeD, 100, 100, R, -1, 0);
    EXPECT_EQ(search.load, 0.0f);
    EXPECT_EQ(search.m, 100);
    EXPECT_EQ(search.n, 1);
  }
}

TEST(CurvedPanelSearch, UnusableInput) {
  // A stiffness term or dimension at or below zero: no search, load 0. A singular A
  // (no compliance) or a NaN, which passes that check, leaves no mode: 100000.
  const struct {
    Matrix3 A, D;
    float L, b, load;
  } cases[] = {{orthotropic(50000, 0, 40000, 17000), kQuasiD, 600, 300, 0.0f},  // A12
               {kQuasiA, kNoD12, 600, 300, 0.0f},
               {kQuasiA, kQuasiD, 0, 300, 0.0f},
               {kQuasiA, kQuasiD, 600, -300, 0.0f},
               {kSingularA, kQuasiD, 600, 300, 100000.0f},
               {orthotropic(kNaN, 15000, 40000, 17000), kQuasiD, 600, 300, 100000.0f},
               {kQuasiA, kQuasiD, 600, kNaN, 100000.0f}};
  for (const auto& c : cases) {
    const PanelSearch search = curved_panel_search(c.A, c.D, c.L, c.b, 1500, -1, 0);
    EXPECT_EQ(search.load, c.load);
    EXPECT_EQ(search.m, 0);
    EXPECT_EQ(search.n, 0);
  }
}

TEST(CurvatureFactor, Empirical) {
  // 1 + (0.01 sqrt(min(L/b, 5)) + 0.024) min(b^2/(R t), 100); a panel shorter than
  // wide counts as an L x L square.
  const struct {
    float L, b, R, t;
    double expected;
  } cases[] = {
      {200, 100, 1000, 2, 1.0 + (0.01 * std::sqrt(2.0) + 0.024) * 5.0},  // Z = 5
      {100, 200, 1000, 2, 1.0 + 0.034 * 5.0},  // square of 100: Z = 5, not 20
      {1000, 100, 10, 1, 1.0 + (0.01 * std::sqrt(5.0) + 0.024) * 100.0},  // both capped
      {200, 100, 9.99e-6f, 2, 1.0},                                       // flat
      {200, 100, 1000, 0, 0.0},                                           // no thickness
      {9.0e-6f, 100, 1000, 2, 0.0}};
  for (const auto& c : cases) {
    EXPECT_CLOSE(empirical_curvature_factor(c.L, c.b, c.R, c.t), c.expected, 1.0e-6)
        << c.L << " " << c.b << " " << c.R << " " << c.t;
  }
}

TEST(CurvatureFactor, ComplianceBased) {
  // Isotropic wall: nuxy nuyx = nu^2, q = 12 (1 - nu^2) Z^2 with Z = b^2/(R t),
  // capped at 1600 once sqrt(q) exceeds 40; factor (q/700 + 1)^(1/4).
  const Wall steel = isotropic(200000.0, 0.3, 2.0);
  const Wall cork = isotropic(200000.0, 0.0, 2.0);  // no Poisson effect
  const struct {
    const Matrix3& A;
    float L, b, R;
    double expected;
  } cases[] = {
      {steel.A, 300, 100, 1000, std::pow(12.0 * 0.91 * 25.0 / 700.0 + 1.0, 0.25)},
      // Unlike the empirical factor, a short panel keeps its width.
      {steel.A, 50, 100, 1000, std::pow(12.0 * 0.91 * 25.0 / 700.0 + 1.0, 0.25)},
      {steel.A, 300, 100, 100, std::pow(1600.0 / 700.0 + 1.0, 0.25)},  // Z = 50: capped
      {steel.A, 300, 100, 0.0f, 1.0},                                  // flat
      {steel.A, 300, 0, 1000, 0.0},
      {cork.A, 300, 100, 1000, 0.0}};
  for (const auto& c : cases) {
    float factor = -1.0f;
    EXPECT_EQ(compliance_curvature_factor(c.A, c.L, c.b, c.R, 2.0f, factor), 0);
    EXPECT_CLOSE(factor, c.expected, 1.0e-5) << c.L << " " << c.b << " " << c.R;
  }
  // nuxy = nuyx = 1/2 and Z = 10 make q = 900 exactly; its fourth root is taken as
  // two square roots, which here (with glibc) lie one unit in the last place above
  // powf(x, 0.25).
  float factor = -1.0f;
  EXPECT_EQ(
      compliance_curvature_factor(orthotropic(2, 1, 2, 1), 300, 100, 1000, 1.0f, factor),
      0);
  EXPECT_EQ(factor, std::sqrt(std::sqrt(900.0f / 700.0f + 1.0f)));
  factor = -1.0f;
  EXPECT_EQ(
      compliance_curvature_factor(orthotropic(1, 1, 1, 1), 300, 100, 1000, 2.0f, factor),
      1);
  EXPECT_EQ(factor, -1.0f);
}

// Flat-plate shear of a square isotropic plate from the coefficient tables:
// H/sqrt(D11 D22) = 1 reads 92 from the square-plate table (52.8 for a long plate).
double square_plate_shear(const Wall& w, double a) { return 92.0 * w.D(1, 1) / (a * a); }

TEST(ShellBuckling, FlatPanel) {
  // No cylinder terms: compression from the flat-panel search, shear the flat-plate
  // estimate itself, whichever curvature factor is chosen.
  const Wall& w = kAluminium;
  for (const bool empirical : {true, false}) {
    for (const float R : {0.0f, -1.0f}) {
      int error = -7;
      const CriticalLoads loads =
          shell_buckling(w.A, w.D, 250.0f, 250.0f, R, 2.0f, &error, empirical);
      EXPECT_EQ(error, 0);
      const double plate = 4.0 * kPi * kPi * w.D(1, 1) / (250.0 * 250.0);
      EXPECT_CLOSE(loads.nxcr, plate, 1.0e-6);
      EXPECT_CLOSE(loads.nycr, plate, 1.0e-6);
      EXPECT_CLOSE(loads.nxycr, square_plate_shear(w, 250.0), 1.0e-6);
    }
  }
}

TEST(ShellBuckling, CurvedPanelTakesTheLargerEstimates) {
  // A shallow isotropic panel, L = 2b. Flat shear from the tables: aspect ratio 0.5
  // and H/sqrt(D11 D22) = 1 read 129, so 129 D/(L b) (the long-plate 52.8 D/b^2 is
  // lower). Z = b^2/(R t) = 15.625.
  const Wall& w = kAluminium;
  const float L = 500.0f, b = 250.0f, R = 2000.0f;
  const double flat = 129.0 * w.D(1, 1) / (500.0 * 250.0);
  const double empirical = 1.0 + (0.01 * std::sqrt(2.0) + 0.024) * 15.625;
  const double compliance = std::pow(1600.0 / 700.0 + 1.0, 0.25);  // sqrt(q) = 51.6
  const CylinderEstimate cylinder = cylinder_estimate(w.A, w.D, L, R);
  const PanelSearch axial = curved_panel_search(w.A, w.D, L, b, R, -1, 0);
  const PanelSearch hoop = curved_panel_search(w.A, w.D, L, b, R, 0, -1);
  ASSERT_LT(cylinder.nxy, compliance * flat);

  int error = -7;
  CriticalLoads loads = shell_buckling(w.A, w.D, L, b, R, 2.0f, &error);
  EXPECT_EQ(error, 0);
  EXPECT_EQ(loads.nxcr, std::max(axial.load, cylinder.nx));
  EXPECT_EQ(loads.nycr, std::max(hoop.load, cylinder.ny));
  EXPECT_CLOSE(loads.nxycr, empirical * flat, 1.0e-5);
  loads = shell_buckling(w.A, w.D, L, b, R, 2.0f, &error, false);
  EXPECT_EQ(error, 0);
  EXPECT_EQ(loads.nxcr, std::max(axial.load, cylinder.nx));
  EXPECT_CLOSE(loads.nxycr, compliance * flat, 1.0e-5);
  // A factor of 0 (no thickness; no Poisson effect) leaves the torsion formula.
  loads = shell_buckling(w.A, w.D, L, b, R, 0.0f, &error);
  EXPECT_EQ(loads.nxycr, cylinder.nxy);
  const Matrix3 cork = isotropic(70000.0, 0.0, 2.0).A;
  loads = shell_buckling(cork, w.D, L, b, R, 2.0f, &error, false);
  EXPECT_EQ(error, 0);
  EXPECT_EQ(loads.nxycr, cylinder_estimate(cork, w.D, L, R).nxy);
}

TEST(ShellBuckling, WhereThePanelFailsTheCylinderStands) {
  // The panel estimates give way to the cylinder values (all zero when flat).
  const struct {
    Matrix3 A, D;
    float R;
    bool empirical;
    int error;
  } cases[] = {
      {kQuasiA, kNoD12, 1500, true, 1},  // flat shear estimate and panel search refused
      {kQuasiA, kNoD12, 0, true, 1},
      {kSingularA, kQuasiD, 1500, false, 1},  // no compliance: its status, at once
      {kSingularA, kQuasiD, 0, false, 1}};
  for (const auto& c : cases) {
    int error = -7;
    const CriticalLoads loads =
        shell_buckling(c.A, c.D, 600.0f, 300.0f, c.R, 2.0f, &error, c.empirical);
    const CylinderEstimate cylinder = cylinder_estimate(c.A, c.D, 600.0f, c.R);
    EXPECT_EQ(error, c.error);
    EXPECT_EQ(loads.nxcr, cylinder.nx);
    EXPECT_EQ(loads.nycr, cylinder.ny);
    EXPECT_EQ(loads.nxycr, cylinder.nxy);
  }
  // A panel optimum on the search edge: the cylinder's axial load.
  int error = -7;
  EXPECT_EQ(shell_buckling(kQuasiA, kEdgeD, 100, 100, 1000, 2, &error).nxcr,
            cylinder_estimate(kQuasiA, kEdgeD, 100, 1000).nx);
  EXPECT_EQ(error, 0);
  // A singular A with the empirical factor: the panel search keeps its start.
  EXPECT_EQ(shell_buckling(kSingularA, kQuasiD, 600, 300, 1500, 2, &error).nxcr,
            100000.0f);
  EXPECT_EQ(error, 0);
}

}  // namespace
}  // namespace corvane
