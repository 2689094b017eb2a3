// First-ply failure of a 24-ply T300/5208 laminate, (45/-45/0/90/0/90)2S, under
// many load cases: every ply at its bottom, middle and top, by each criterion
// alone and by all seven together, through the prepared plan
// (StrengthPlan::evaluate) and through the LAMINATE_STRENGTH entry point,
// which builds the laminate and its plan on every call. The counter per_case
// is the time per load case.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "corvane/corvane_strength.h"
#include "laminas/criterion_code.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/laminate_stressed.h"

namespace {

constexpr const char* kLayup = "(45/-45/0/90/0/90)2S";

// Running loads to +-400 N/mm, moments to +-40 N, as element results of a
// panel give them; with `thermal`, a temperature change of -120 to 0 K too.
std::vector<float> load_cases(std::size_t n, bool thermal) {
  std::mt19937 random(18);
  std::uniform_real_distribution<float> load(-400.0f, 400.0f), moment(-40.0f, 40.0f),
      cooling(-120.0f, 0.0f);
  std::vector<float> loads;
  for (std::size_t k = 0; k < n; ++k) {
    for (int i = 0; i < 3; ++i) loads.push_back(load(random));
    for (int i = 0; i < 3; ++i) loads.push_back(moment(random));
    loads.push_back(thermal ? cooling(random) : 0.0f);
  }
  return loads;
}

void per_case(benchmark::State& state, std::size_t ncases) {
  state.counters["per_case"] = benchmark::Counter(
      static_cast<double>(ncases),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// The plan evaluated for 10000 load cases; `criteria` empty stands for all.
void plan_evaluate(benchmark::State& state, std::vector<std::int32_t> criteria,
                   bool thermal) {
  if (criteria.empty()) {
    criteria.assign(corvane::kEvaluatedCriteria.begin(),
                    corvane::kEvaluatedCriteria.end());
  }
  constexpr std::size_t kCases = 10000;
  std::vector<float> angles;
  corvane::parse_stacking_sequence(kLayup, angles);
  const corvane::LAMINATESTRESSED laminate(corvane::t300_5208(), angles);
  const corvane::StrengthPlan plan = laminate.strength_plan(criteria);
  const std::vector<float> loads = load_cases(kCases, thermal);
  const std::size_t n = kCases * criteria.size();
  std::vector<float> rf(n);
  std::vector<std::int32_t> ply(n), surface(n), mode(n);
  for (auto _ : state) {
    const corvane::StrengthStatus status = plan.evaluate(loads, {rf, ply, surface, mode});
    if (!status.ok()) state.SkipWithError(status.message().c_str());
    benchmark::DoNotOptimize(rf.data());
    benchmark::ClobberMemory();
  }
  per_case(state, kCases);
}

// The entry point for `ncases` load cases, Tsai-Wu.
void entry_point(benchmark::State& state) {
  const auto ncases = static_cast<std::int32_t>(state.range(0));
  const corvane::LAMINA m = corvane::t300_5208();
  const float v[14] = {m.CPT, m.E1,  m.E2,  m.G12, m.v12, m.CTE1,   m.CTE2,
                       m.F1t, m.F1c, m.F2t, m.F2c, m.F12, m.uetall, m.uecall};
  std::string layup(kLayup), criterion("TSAI_WU");
  layup.resize(CORVANE_STRENGTH_LAYUP_LENGTH, ' ');
  criterion.resize(CORVANE_STRENGTH_CRITERION_LENGTH, ' ');
  const std::vector<float> loads = load_cases(static_cast<std::size_t>(ncases), false);
  std::vector<float> rf(static_cast<std::size_t>(ncases));
  std::vector<std::int32_t> ply(rf.size()), surface(rf.size()), mode(rf.size());
  std::string message(CORVANE_STRENGTH_MESSAGE_LENGTH, ' ');
  const float options[3] = {-0.5f, 0.35f, 0.30f};
  std::int32_t ierr = 0;
  for (auto _ : state) {
    LAMINATE_STRENGTH(&v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &v[6], &v[7], &v[8],
                      &v[9], &v[10], &v[11], &v[12], &v[13], layup.data(),
                      CORVANE_STRENGTH_LAYUP_LENGTH, criterion.data(),
                      CORVANE_STRENGTH_CRITERION_LENGTH, options, &ncases, loads.data(),
                      rf.data(), ply.data(), surface.data(), mode.data(), message.data(),
                      CORVANE_STRENGTH_MESSAGE_LENGTH, &ierr);
    benchmark::DoNotOptimize(rf.data());
    benchmark::ClobberMemory();
  }
  if (ierr != 0) state.SkipWithError(message.c_str());
  per_case(state, static_cast<std::size_t>(ncases));
}
BENCHMARK(entry_point)->Arg(1)->Arg(100)->Arg(10000);

const bool registered = [] {
  for (const bool thermal : {false, true}) {
    const std::string suffix = thermal ? "/thermal" : "/mechanical";
    for (const std::int32_t code : corvane::kEvaluatedCriteria) {
      const std::string name =
          "plan_evaluate/" + std::string(corvane::criterion_keyword(code)) + suffix;
      benchmark::RegisterBenchmark(name.c_str(), plan_evaluate,
                                   std::vector<std::int32_t>{code}, thermal);
    }
    benchmark::RegisterBenchmark(("plan_evaluate/all" + suffix).c_str(), plan_evaluate,
                                 std::vector<std::int32_t>{}, thermal);
  }
  return true;
}();

}  // namespace
