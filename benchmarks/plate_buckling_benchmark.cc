// LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS on a square and a long plate and over a
// range of aspect ratios, LAMINATE_RECTANGULAR_SS_BUCKLING_RF, and the two parts
// of a loads call: the half-wave search (three per call) and the closed-form
// shear estimate. The counters give the bound at which the search converged: a
// search sweeps m, n = 1 .. M for M = 1, 10, 20, ... up to that bound.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <tuple>
#include <vector>

#include "buckling/plate_buckling.h"
#include "corvane/corvane.h"
#include "laminas/lamina.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/laminate_stressed.h"

namespace {

// [D] of a 24-ply quasi-isotropic carbon/epoxy laminate, (45/-45/0/90/0/90)2S of
// 0.184 mm plies, N mm.
corvane::Matrix3 bending_stiffness() {
  corvane::LAMINA m =
      corvane::new_lamina(0.184f, 161000.0f, 11380.0f, 5170.0f, 0.32f, 1000.0f, 1000.0f);
  std::vector<float> angles;
  corvane::parse_stacking_sequence("(45/-45/0/90/0/90)2S", angles);
  return corvane::LAMINATESTRESSED(m, angles).D;
}

struct Plate {
  float a, b;  // length along x, width along y, mm
};
constexpr Plate kSquare = {500.0f, 500.0f};
constexpr Plate kLong = {2000.0f, 200.0f};

void loads_call(benchmark::State& state, float a, float b) {
  const corvane::Matrix3 D = bending_stiffness();
  float nxcr = 0.0f, nycr = 0.0f, nxycr = 0.0f;
  std::int32_t ierr = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(a);
    LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS(D.v.data(), &a, &b, &nxcr, &nycr, &nxycr,
                                           &ierr);
    benchmark::DoNotOptimize(nxcr);
    benchmark::DoNotOptimize(nycr);
    benchmark::DoNotOptimize(nxycr);
  }
  if (nxcr == 0.0f || nycr == 0.0f) state.SkipWithError("no critical load");
  for (const auto& [name, nx, ny] :
       {std::tuple{"bound_x", -1.0f, 0.0f}, std::tuple{"bound_y", 0.0f, -1.0f}}) {
    state.counters[name] = corvane::half_wave_search(D, a, b, nx, ny).bound;
  }
}

void buckling_loads(benchmark::State& state, const Plate& plate) {
  loads_call(state, plate.a, plate.b);
}
BENCHMARK_CAPTURE(buckling_loads, square_500x500, kSquare);
BENCHMARK_CAPTURE(buckling_loads, long_2000x200, kLong);

// Width 200 mm, length 200 mm times the argument; beyond 10 the search takes the
// length as 10 widths.
void buckling_loads_aspect(benchmark::State& state) {
  loads_call(state, 200.0f * static_cast<float>(state.range(0)), 200.0f);
}
BENCHMARK(buckling_loads_aspect)->DenseRange(1, 10, 1)->Arg(20);

void buckling_rf(benchmark::State& state) {
  float nx = -120.0f, ny = -30.0f, nxy = 45.0f;
  float nxcr = 240.0f, nycr = 95.0f, nxycr = 310.0f;
  float rf = 0.0f;
  std::int32_t ierr = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(nx);
    LAMINATE_RECTANGULAR_SS_BUCKLING_RF(&nx, &ny, &nxy, &nxcr, &nycr, &nxycr, &rf, &ierr);
    benchmark::DoNotOptimize(rf);
  }
}
BENCHMARK(buckling_rf);

void half_wave_search(benchmark::State& state, const Plate& plate) {
  const corvane::Matrix3 D = bending_stiffness();
  float a = plate.a;
  int bound = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(a);
    const corvane::HalfWaveSearch s =
        corvane::half_wave_search(D, a, plate.b, -1.0f, 0.0f);
    bound = s.bound;
    benchmark::DoNotOptimize(s.lambda);
  }
  state.counters["bound"] = bound;
}
BENCHMARK_CAPTURE(half_wave_search, square_500x500, kSquare);
BENCHMARK_CAPTURE(half_wave_search, long_2000x200, kLong);

void closed_form_estimate(benchmark::State& state) {
  const corvane::Matrix3 D = bending_stiffness();
  const float zero[1] = {0.0f}, shear[1] = {1.0f};
  float rf[1] = {0.0f};
  float a = kSquare.a, nxcr = 0.0f, nycr = 0.0f, nxycr = 0.0f;
  for (auto _ : state) {
    benchmark::DoNotOptimize(a);
    benchmark::DoNotOptimize(
        corvane::closed_form_estimate(D(1, 1), D(1, 2), D(2, 2), D(3, 3), a, kSquare.b,
                                      zero, zero, shear, rf, nxcr, nycr, nxycr));
    benchmark::DoNotOptimize(nxycr);
  }
}
BENCHMARK(closed_form_estimate);

}  // namespace
