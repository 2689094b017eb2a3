#include "laminates_stressed/impact_strength.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "laminates_stressed/laminate_stressed.h"
#include "laminates_stressed/ply_criteria.h"

namespace corvane {

float damage_model_allowable(const LAMINA& material, const LAMINATE& laminate,
                             float energy) {
  const CDTMODEL& model = material.cdt_model;
  const float nan = std::numeric_limits<float>::quiet_NaN();
  if (model.name.empty() || model.status != 0) return nan;
  const float p1 = energy, p2 = laminate.h, p3 = laminate.Ex, p4 = material.Eiso;
  const float value = model.model == 5 ? model.allowable_t04_t06(p1, p2, p3, p4)
                                       : model.allowable(p1, p2, p3, p4);
  if (!std::isfinite(value)) return nan;
  return value < 1.0f ? value : value / laminate.Ex;
}

ImpactPlan::ImpactPlan(const LAMINATE& laminate, float energy, bool with_model)
    : with_model_(with_model) {
  bool finite = std::isfinite(laminate.Ex) && laminate.Ex > 0.0f;
  for (const Matrix3* block : {&laminate.a, &laminate.b}) {
    for (float x : block->v) finite = finite && std::isfinite(x);
  }
  if (laminate.error || !finite) {
    status_.error = StrengthError::laminate_in_error;
    return;
  }
  if (!(energy >= 0.0f) || !std::isfinite(energy)) {
    status_.error = StrengthError::bad_option;
    status_.name = "impact energy";
    return;
  }
  std::vector<std::array<float, kImpactChecks>> allowable;
  for (std::size_t m = 0; m < laminate.materials.size(); ++m) {
    const LAMINA& lamina = laminate.materials[m];
    const auto material = static_cast<std::int32_t>(m + 1);
    for (const auto& [value, name] :
         {std::pair{lamina.CAIH, "CAIH"}, std::pair{lamina.CAIE, "CAIE"}}) {
      if (!(value > 0.0f) || !std::isfinite(value)) {
        status_.error = StrengthError::strength_missing;
        status_.name = name;
        status_.material = material;
        status_.check = "CAI";
        return;
      }
    }
    float model = 0.0f;
    if (with_model) {
      model = damage_model_allowable(lamina, laminate, energy);
      if (std::isnan(model)) {
        status_.error = StrengthError::damage_model_unusable;
        status_.material = material;
        status_.name = lamina.cdt_model.name.empty() ? "no model given"
                       : lamina.cdt_model.status != 0
                           ? "unknown model name or unreadable coefficients"
                           : "its allowable is not finite";
        return;
      }
    }
    allowable.push_back({lamina.CAIH, lamina.CAIE, model});
  }
  allowable_ = std::move(allowable);
  inverse_ = {laminate.a, laminate.b};
}

StrengthStatus ImpactPlan::evaluate(std::span<const float> loads,
                                    std::span<float> rf) const {
  if (!status_.ok()) return status_;
  StrengthStatus status;
  const std::size_t ncases = loads.size() / kLoadCaseValues;
  const std::size_t per_case = allowable_.size() * checks();
  if (loads.size() % kLoadCaseValues != 0 || rf.size() != ncases * per_case) {
    status.error = StrengthError::wrong_size;
    status.name = loads.size() % kLoadCaseValues != 0 ? "loads" : "rf";
    return status;
  }
  if (status = finite_loads(loads); !status.ok()) return status;
  for (std::size_t i = 0; i < ncases; ++i) {
    const float* load = &loads[i * kLoadCaseValues];
    const Vector3 an = matrix_vector_product(inverse_[0], {load[0], load[1], load[2]});
    const Vector3 bm = matrix_vector_product(inverse_[1], {load[3], load[4], load[5]});
    const float ex = an[0] + bm[0], ey = an[1] + bm[1], gxy = an[2] + bm[2];
    const float centre = 0.5f * (ex + ey);
    const float radius = std::hypot(0.5f * (ex - ey), 0.5f * gxy);
    const float largest = std::max(std::abs(centre + radius), std::abs(centre - radius));
    for (std::size_t m = 0; m < allowable_.size(); ++m) {
      for (std::size_t c = 0; c < checks(); ++c) {
        rf[(i * allowable_.size() + m) * checks() + c] =
            largest > 0.0f ? std::max(0.0f, allowable_[m][c]) / largest : kNoFailureRF;
      }
    }
  }
  return status;
}

}  // namespace corvane
