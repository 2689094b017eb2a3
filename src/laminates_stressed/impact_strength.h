// Residual strength after impact: the membrane strains of a laminate under
// load cases against the damaged allowable strains of each of its materials.
//
// The strain checked is the largest principal membrane strain in magnitude,
// max(|e_I|, |e_II|), of e0 = [a] N + [b] M (the mechanical loads; a
// temperature change is not counted). Impact damage is sized, in the usual
// strain-based practice, by a cut-off on the laminate strain whatever its
// direction; compression after impact governs, and the cut-off is applied to
// tension alike. RF = allowable/max(|e_I|, |e_II|), kNoFailureRF at zero strain.
//
// The allowables of a material, each a strain:
//   CAIH, CAIE     its after-impact strain limits (2 uecall/3 and uecall/3
//                  unless set by key);
//   its CDTMODEL   (cdt_models/cdt_model.h), evaluated with
//                  p1 = the impact energy,
//                  p2 = the laminate thickness h,
//                  p3 = the laminate's apparent membrane modulus Ex,
//                  p4 = the material's quasi-isotropic modulus Eiso,
//                  so that the damage parameter of T03, p1/(p2^3 p3), is the
//                  impact energy over the plate's bending stiffness scale
//                  Ex h^3, and of T04-T06, p1/p2^2, the energy over the
//                  thickness squared; the ratio r is Eiso/Ex (T03) or Ex/Eiso
//                  (T04-T06), 1 for a quasi-isotropic laminate, so the model's
//                  coefficients are those of the quasi-isotropic laminate of
//                  the material, and r carries them to stiffer or softer
//                  layups. The unit factor u of read_cdt_model converts the
//                  coefficients that carry the allowable's unit (a0, a1, b0,
//                  b1; k2, k0) from the units of the data to the caller's.
//                  As everywhere in Corvane, a result below 1 is a strain,
//                  one of 1 or more a stress, taken to a strain through Ex.
//                  Form 5, which the model's dispatcher leaves at 0, is
//                  evaluated by its own formula (no floor term).
// The damage-tolerance model's form is a data-fitted curve of residual
// strength against impact energy, not a published closed-form method: its
// coefficients are the material's test data.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "laminates/laminate.h"
#include "laminates_stressed/strength_status.h"

namespace corvane {

// The allowables checked, in the order of the results.
enum class ImpactCheck : std::int32_t { caih = 0, caie = 1, model = 2 };
inline constexpr std::size_t kImpactChecks = 3;

// The allowable strain of a material's damage model for an impact energy on a
// laminate (p1 ... p4 as above); NaN when the model is absent or not usable
// (no name, status -1) or its result is not finite.
float damage_model_allowable(const LAMINA& material, const LAMINATE& laminate,
                             float energy);

// A laminate prepared for after-impact checks at one impact energy.
class ImpactPlan {
 public:
  // with_model: check each material's damage model as well. Refused for a
  // laminate in error, an energy that is negative or not finite, a CAIH or
  // CAIE not > 0, or (with_model) a model that is not usable.
  ImpactPlan(const LAMINATE& laminate, float energy, bool with_model);

  const StrengthStatus& status() const { return status_; }
  std::size_t materials() const { return allowable_.size(); }
  // 2 checks (CAIH, CAIE) or 3 with the model.
  std::size_t checks() const { return with_model_ ? 3 : 2; }
  // The allowable strain of a material (0-based) for a check.
  float allowable(std::size_t material, ImpactCheck check) const {
    return allowable_[material][static_cast<std::size_t>(check)];
  }

  // Many load cases, kLoadCaseValues floats each; rf gets
  // [case][material][check]. Checks every size and load first, then writes.
  StrengthStatus evaluate(std::span<const float> loads, std::span<float> rf) const;

 private:
  StrengthStatus status_;
  bool with_model_ = false;
  std::vector<std::array<float, kImpactChecks>> allowable_;
  std::array<Matrix3, 2> inverse_{};  // [a], [b]
};

}  // namespace corvane
