// LAMINATE_SHELL_BUCKLING_LOADS on a curved fuselage-like panel and on a long
// cylinder, and the two searches that take its time. The counters give the modes
// each search visits: round(L/s) x round(2 pi R/s) for the cylinder, 100 x 100
// twice for the panel.
#include <benchmark/benchmark.h>

#include <cstdint>

#include "buckling/shell_buckling.h"
#include "corvane/corvane.h"

namespace {

// Quasi-isotropic carbon, (45/-45/0/90)2S of 0.125 mm plies: N/mm and N mm.
const float kA[9] = {50000, 15000, 0, 15000, 40000, 0, 0, 0, 17000};
const float kD[9] = {4000, 1200, 0, 1200, 3500, 0, 0, 0, 1400};
constexpr float kThickness = 2.0f;

struct Shape {
  float length, width, radius;
  double cylinder_modes;
};
// Panel 600 x 300 of radius 1500: 10 x 157 cylinder modes.
constexpr Shape kPanel = {600.0f, 300.0f, 1500.0f, 10.0 * 157.0};
// Cylinder 10 m long of radius 1 m: 127 x 80 cylinder modes.
constexpr Shape kLongCylinder = {10000.0f, 300.0f, 1000.0f, 127.0 * 80.0};

void entry_point(benchmark::State& state, const Shape& shape) {
  float l = shape.length, b = shape.width, r = shape.radius, t = kThickness;
  float nx = 0.0f, ny = 0.0f, nxy = 0.0f;
  std::int32_t ierr = 0;
  for (auto _ : state) {
    LAMINATE_SHELL_BUCKLING_LOADS(kA, kD, &l, &b, &r, &t, &nx, &ny, &nxy, &ierr);
    benchmark::DoNotOptimize(nx);
    benchmark::DoNotOptimize(ny);
    benchmark::DoNotOptimize(nxy);
    benchmark::ClobberMemory();
  }
  state.counters["cylinder_modes"] = shape.cylinder_modes;
  state.counters["panel_modes"] = 2.0 * 100.0 * 100.0;
}

corvane::Matrix3 matrix(const float (&v)[9]) {
  corvane::Matrix3 m;
  for (int i = 0; i < 9; ++i) m.v[i] = v[i];
  return m;
}

void cylinder_estimate(benchmark::State& state, const Shape& shape) {
  const corvane::Matrix3 A = matrix(kA), D = matrix(kD);
  float length = shape.length;
  for (auto _ : state) {
    benchmark::DoNotOptimize(length);
    benchmark::DoNotOptimize(corvane::cylinder_estimate(A, D, length, shape.radius));
  }
  state.counters["modes_per_second"] = benchmark::Counter(
      shape.cylinder_modes, benchmark::Counter::kIsIterationInvariantRate);
}

void panel_search(benchmark::State& state) {
  const corvane::Matrix3 A = matrix(kA), D = matrix(kD);
  float length = kPanel.length;
  for (auto _ : state) {
    benchmark::DoNotOptimize(length);
    benchmark::DoNotOptimize(corvane::curved_panel_search(A, D, length, kPanel.width,
                                                          kPanel.radius, -1.0f, 0.0f));
  }
  state.counters["modes_per_second"] =
      benchmark::Counter(100.0 * 100.0, benchmark::Counter::kIsIterationInvariantRate);
}

BENCHMARK_CAPTURE(entry_point, curved_panel, kPanel);
BENCHMARK_CAPTURE(entry_point, long_cylinder, kLongCylinder);
BENCHMARK_CAPTURE(cylinder_estimate, curved_panel, kPanel);
BENCHMARK_CAPTURE(cylinder_estimate, long_cylinder, kLongCylinder);
BENCHMARK(panel_search);

}  // namespace
