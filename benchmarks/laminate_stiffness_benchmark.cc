// LAMINATE_STIFFNESS, BI_MATERIAL_LAMINATE_STIFFNESS and LAMINATE_STRAINS_IN_PLANE
// on carbon/epoxy laminates of 4, 24 and 255 plies, and the parts of a stiffness
// call on their own: the stacking-sequence parse, the laminate construction
// (LAMINATESTRESSED: [A], [B], [D], the inverses, the constants, the B-basis set)
// and the bulk data deck. The ply-count sweeps fit the growth of a call with the
// number of plies.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "cards/bulk_data_cards.h"
#include "corvane/corvane.h"
#include "laminas/lamina.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/laminate_stressed.h"

namespace {

// An intermediate-modulus carbon/epoxy tape: mm, MPa, 1/K.
struct Ply {
  float t, e1, e2, g12, nu12, cte1, cte2;
};
constexpr Ply kCarbon = {0.184f, 161000.0f, 11380.0f, 5170.0f, 0.32f, -0.9e-6f, 28.0e-6f};
// A glass/epoxy fabric for the second material of the bi-material laminates.
constexpr Ply kGlass = {0.25f, 22000.0f, 21000.0f, 3800.0f, 0.13f, 12.0e-6f, 13.0e-6f};

// Quasi-isotropic layups with 4, 24 and 255 plies; plies written "45." are of
// the second material in the bi-material calls.
const char* layup(std::int64_t plies) {
  switch (plies) {
    case 4:
      return "(0/90)S";
    case 24:
      return "(45/-45/0/90/0/90)2S";
    default:  // 255: 128 listed plies, mirrored about the last one
      return "(45/-45/0/90/0/90/45/-45)16$";
  }
}
const char* bi_material_layup(std::int64_t plies) {
  switch (plies) {
    case 4:
      return "(45./0)S";
    case 24:
      return "(45./-45./0/90/0/90)2S";
    default:
      return "(45./-45./0/90/0/90/45./-45.)16$";
  }
}

// A stacking text of exactly n plies, cycling through 45, -45, 0, 90.
std::string layup_of(std::int64_t n) {
  static constexpr const char* kAngles[] = {"45", "-45", "0", "90"};
  std::string text = "(";
  for (std::int64_t k = 0; k < n; ++k) {
    if (k > 0) text += '/';
    text += kAngles[k % 4];
  }
  return text + ")";
}

std::vector<char> layup_buffer(const std::string& text) {
  std::vector<char> buffer(CORVANE_LAYUP_LENGTH, ' ');
  std::memcpy(buffer.data(), text.data(), text.size());
  return buffer;
}

// The host's variables of one stiffness call.
struct Outputs {
  std::int32_t symmetric = 0, plies = 0, ierr = 0;
  float a[9], b[9], d[9], dstar[9];
  float h, ex, ey, gxy, nuxy, alphax, alphay, alphaxy;
  std::vector<char> cards = std::vector<char>(CORVANE_CARDS_LENGTH);
};

void stiffness_call(benchmark::State& state, const std::string& text) {
  const std::vector<char> buffer = layup_buffer(text);
  const Ply p = kCarbon;
  Outputs o;
  for (auto _ : state) {
    LAMINATE_STIFFNESS(&p.t, &p.e1, &p.e2, &p.g12, &p.nu12, &p.cte1, &p.cte2,
                       buffer.data(), CORVANE_LAYUP_LENGTH, &o.symmetric, o.a, o.b, o.d,
                       o.dstar, &o.h, &o.ex, &o.ey, &o.gxy, &o.nuxy, &o.alphax, &o.alphay,
                       &o.alphaxy, &o.plies, o.cards.data(), CORVANE_CARDS_LENGTH,
                       &o.ierr);
    benchmark::DoNotOptimize(o.cards.data());
    benchmark::ClobberMemory();
  }
  if (o.ierr != 0) state.SkipWithError("LAMINATE_STIFFNESS failed");
  state.counters["plies"] = o.plies;
}

void laminate_stiffness(benchmark::State& state) {
  stiffness_call(state, layup(state.range(0)));
}
BENCHMARK(laminate_stiffness)->Arg(4)->Arg(24)->Arg(255);

// The same call over a range of ply counts, for the fit of time against plies.
void laminate_stiffness_plies(benchmark::State& state) {
  stiffness_call(state, layup_of(state.range(0)));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(laminate_stiffness_plies)
    ->Arg(1)
    ->Arg(4)
    ->Arg(8)
    ->Arg(16)
    ->Arg(32)
    ->Arg(64)
    ->Arg(128)
    ->Arg(255)
    ->Complexity(benchmark::oN);

void bi_material_laminate_stiffness(benchmark::State& state) {
  const std::vector<char> buffer = layup_buffer(bi_material_layup(state.range(0)));
  const Ply p = kCarbon, q = kGlass;
  Outputs o;
  for (auto _ : state) {
    BI_MATERIAL_LAMINATE_STIFFNESS(
        &p.t, &p.e1, &p.e2, &p.g12, &p.nu12, &p.cte1, &p.cte2, &q.t, &q.e1, &q.e2, &q.g12,
        &q.nu12, &q.cte1, &q.cte2, buffer.data(), CORVANE_LAYUP_LENGTH, &o.symmetric, o.a,
        o.b, o.d, o.dstar, &o.h, &o.ex, &o.ey, &o.gxy, &o.nuxy, &o.alphax, &o.alphay,
        &o.alphaxy, &o.plies, o.cards.data(), CORVANE_CARDS_LENGTH, &o.ierr);
    benchmark::DoNotOptimize(o.cards.data());
    benchmark::ClobberMemory();
  }
  if (o.ierr != 0) state.SkipWithError("BI_MATERIAL_LAMINATE_STIFFNESS failed");
  state.counters["plies"] = o.plies;
}
BENCHMARK(bi_material_laminate_stiffness)->Arg(4)->Arg(24)->Arg(255);

void laminate_strains_in_plane(benchmark::State& state) {
  // A 24-ply quasi-isotropic laminate under combined running loads, N/mm.
  float t = 4.416f, ex = 58900.0f, ey = 58900.0f, gxy = 22500.0f, nuxy = 0.31f;
  float nx = -350.0f, ny = 120.0f, nxy = 80.0f;
  float e[5];
  std::int32_t ierr = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(nx);
    LAMINATE_STRAINS_IN_PLANE(&t, &ex, &ey, &gxy, &nuxy, &nx, &ny, &nxy, &e[0], &e[1],
                              &e[2], &e[3], &e[4], &ierr);
    benchmark::DoNotOptimize(e);
  }
}
BENCHMARK(laminate_strains_in_plane);

// The parts of a stiffness call.

corvane::LAMINA carbon() {
  corvane::LAMINA m = corvane::new_lamina(kCarbon.t, kCarbon.e1, kCarbon.e2, kCarbon.g12,
                                          kCarbon.nu12, 1000.0f, 1000.0f);
  m.CTE1 = kCarbon.cte1;
  m.CTE2 = kCarbon.cte2;
  return m;
}

std::vector<float> angles_of(const std::string& text) {
  std::vector<float> angles;
  corvane::parse_stacking_sequence(text, angles);
  return angles;
}

void stacking_sequence_parse(benchmark::State& state) {
  const std::string text = layup(state.range(0));
  std::vector<float> angles;
  for (auto _ : state) {
    benchmark::DoNotOptimize(corvane::parse_stacking_sequence(text, angles));
    benchmark::DoNotOptimize(angles.data());
  }
}
BENCHMARK(stacking_sequence_parse)->Arg(4)->Arg(24)->Arg(255);

void laminate_construction(benchmark::State& state) {
  const corvane::LAMINA m = carbon();
  const std::vector<float> angles = angles_of(layup_of(state.range(0)));
  for (auto _ : state) {
    const corvane::LAMINATESTRESSED laminate(m, angles);
    benchmark::DoNotOptimize(laminate.Dstar_B.v.data());
  }
  state.SetComplexityN(state.range(0));
  state.counters["plies"] = static_cast<double>(angles.size());
}
BENCHMARK(laminate_construction)
    ->Arg(1)
    ->Arg(4)
    ->Arg(8)
    ->Arg(16)
    ->Arg(24)
    ->Arg(32)
    ->Arg(64)
    ->Arg(128)
    ->Arg(255)
    ->Complexity(benchmark::oN);

void bulk_data_deck(benchmark::State& state) {
  const corvane::LAMINATESTRESSED laminate(carbon(), angles_of(layup_of(state.range(0))));
  std::size_t size = 0;
  for (auto _ : state) {
    const std::string deck = corvane::bulk_data_cards(laminate);
    size = deck.size();
    benchmark::DoNotOptimize(deck.data());
  }
  state.SetComplexityN(state.range(0));
  state.counters["characters"] = static_cast<double>(size);
}
BENCHMARK(bulk_data_deck)
    ->Arg(1)
    ->Arg(4)
    ->Arg(8)
    ->Arg(16)
    ->Arg(24)
    ->Arg(32)
    ->Arg(64)
    ->Arg(128)
    ->Arg(255)
    ->Complexity(benchmark::oN);

}  // namespace
