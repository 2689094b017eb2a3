#include "laminates_stressed/notched_strength.h"

#include <algorithm>
#include <cmath>

#include "laminas/notch.h"
#include "laminates_stressed/laminate_stressed.h"
#include "laminates_stressed/ply_criteria.h"
#include "util/keywords.h"

namespace corvane {
namespace {

constexpr std::array<std::string_view, kNotchChecks> kNames = {"OHT", "OHC", "FHT", "FHC",
                                                               "BEARING"};

// The reference concentration factor of the filled-hole factors (LAMINA::set_fhc).
constexpr float kFilledHoleReference = 3.1401f;

bool tension(NotchCheck check) {
  return check == NotchCheck::oht || check == NotchCheck::fht;
}

// A material's allowable of a check along a direction of factor kt, or the
// name of the value it lacks.
float material_allowable(const LAMINA& m, NotchCheck check, float d, float kt,
                         std::string_view& missing) {
  const auto point_stress = [&](float unnotched, std::string_view unnotched_name,
                                float a0, std::string_view a0_name) {
    if (!(unnotched > 0.0f)) missing = unnotched_name;
    if (!(a0 > 0.0f)) missing = a0_name;
    return unnotched * point_stress_ratio(point_stress_xi(d, a0), kt);
  };
  const auto filled = [&](float unnotched, std::string_view unnotched_name, float kf,
                          std::string_view kf_name) {
    if (!(unnotched > 0.0f)) missing = unnotched_name;
    if (!(kf > 0.0f)) missing = kf_name;
    return unnotched / ((kf * kFilledHoleReference) * (kt / 3.0f));
  };
  switch (check) {
    case NotchCheck::oht:
      return point_stress(m.e1tu, "e1tu", m.a0oht, "a0oht");
    case NotchCheck::ohc:
      return point_stress(m.uecall, "uecall", m.a0ohc, "a0ohc");
    case NotchCheck::fht:
      if (m.a0fht > 0.0f) return point_stress(m.e1tu, "e1tu", m.a0fht, "a0fht");
      return filled(m.e1tu, "e1tu", m.Kfht, "Kfht");
    case NotchCheck::fhc:
      return filled(m.uecall, "uecall", m.Kfhc, "Kfhc");
    case NotchCheck::bearing:
      if (!(m.Fbr > 0.0f)) missing = "Fbr";
      return m.Fbr;
  }
  return 0.0f;
}

}  // namespace

std::string_view notch_check_name(NotchCheck check) {
  const auto k = static_cast<std::size_t>(check) - 1;
  return k < kNames.size() ? kNames[k] : std::string_view{};
}

std::optional<NotchCheck> notch_check(std::string_view keyword) {
  const std::string key = normalize_keyword(keyword);
  for (std::size_t k = 0; k < kNames.size(); ++k) {
    if (key == kNames[k]) return static_cast<NotchCheck>(k + 1);
  }
  return std::nullopt;
}

NotchedPlan::NotchedPlan(const LAMINATE& laminate, std::span<const NotchCheck> checks,
                         float hole_diameter) {
  bool finite = true;
  for (const Matrix3* block : {&laminate.A, &laminate.a, &laminate.b}) {
    for (float x : block->v) finite = finite && std::isfinite(x);
  }
  if (laminate.error || !finite) {
    status_.error = StrengthError::laminate_in_error;
    return;
  }
  if (!(hole_diameter > 0.0f) || !std::isfinite(hole_diameter)) {
    status_.error = StrengthError::bad_option;
    status_.name = "hole diameter";
    return;
  }
  kt_ = {orthotropic_stress_concentration(laminate.A, false),
         orthotropic_stress_concentration(laminate.A, true)};
  if (!std::isfinite(kt_[0]) || !std::isfinite(kt_[1])) {
    status_.error = StrengthError::laminate_in_error;
    return;
  }
  allowable_.resize(checks.size());
  for (std::size_t c = 0; c < checks.size(); ++c) {
    for (std::size_t dir = 0; dir < 2; ++dir) {
      float least = 0.0f;
      for (std::size_t m = 0; m < laminate.materials.size(); ++m) {
        std::string_view missing;
        const float value = material_allowable(laminate.materials[m], checks[c],
                                               hole_diameter, kt_[dir], missing);
        if (!missing.empty()) {
          status_.error = StrengthError::strength_missing;
          status_.name = missing;
          status_.material = static_cast<std::int32_t>(m + 1);
          status_.check = notch_check_name(checks[c]);
          allowable_.clear();
          return;
        }
        least = m == 0 ? value : std::min(least, value);
      }
      allowable_[c][dir] = least;
    }
  }
  checks_.assign(checks.begin(), checks.end());
  inverse_ = {laminate.a, laminate.b};
  bearing_area_ = hole_diameter * laminate.h;
}

float NotchedPlan::allowable(std::size_t check, bool along_y) const {
  return allowable_[check][along_y ? 1 : 0];
}

StrengthStatus NotchedPlan::evaluate(std::span<const float> loads,
                                     std::span<const float> fastener_loads,
                                     std::span<float> rf) const {
  if (!status_.ok()) return status_;
  StrengthStatus status;
  const std::size_t ncases = loads.size() / kLoadCaseValues, nchecks = checks_.size();
  const bool bearing =
      std::find(checks_.begin(), checks_.end(), NotchCheck::bearing) != checks_.end();
  const auto wrong = [&](std::string_view name) {
    status.error = StrengthError::wrong_size;
    status.name = name;
    return status;
  };
  if (loads.size() % kLoadCaseValues != 0) return wrong("loads");
  if (rf.size() != ncases * nchecks) return wrong("rf");
  // Without a bearing check the fastener loads may come along unread.
  const std::size_t given = fastener_loads.size();
  if (bearing ? given != ncases : (given != 0 && given != ncases)) {
    return wrong("fastener loads");
  }
  for (std::size_t i = 0; i < ncases; ++i) {
    bool finite = bearing ? std::isfinite(fastener_loads[i]) : true;
    for (std::size_t k = 0; k < kLoadCaseValues; ++k) {
      finite = finite && std::isfinite(loads[i * kLoadCaseValues + k]);
    }
    if (!finite) {
      status.error = StrengthError::non_finite_load;
      status.load_case = static_cast<std::int64_t>(i + 1);
      return status;
    }
  }
  for (std::size_t i = 0; i < ncases; ++i) {
    const float* load = &loads[i * kLoadCaseValues];
    const Vector3 an = matrix_vector_product(inverse_[0], {load[0], load[1], load[2]});
    const Vector3 bm = matrix_vector_product(inverse_[1], {load[3], load[4], load[5]});
    const std::array<float, 2> strain = {an[0] + bm[0], an[1] + bm[1]};
    for (std::size_t c = 0; c < nchecks; ++c) {
      float least = kNoFailureRF;
      if (checks_[c] == NotchCheck::bearing) {
        const float p = std::abs(fastener_loads[i]);
        if (p > 0.0f) least = std::min(least, allowable_[c][0] * bearing_area_ / p);
      } else {
        const float sign = tension(checks_[c]) ? 1.0f : -1.0f;
        for (std::size_t dir = 0; dir < 2; ++dir) {
          const float e = sign * strain[dir];
          if (e > 0.0f) least = std::min(least, allowable_[c][dir] / e);
        }
      }
      rf[i * nchecks + c] = least;
    }
  }
  return status;
}

}  // namespace corvane
