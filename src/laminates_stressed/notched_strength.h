// Notched strength of a laminate: open-hole tension and compression (OHT,
// OHC), filled-hole tension and compression (FHT, FHC) at a circular hole, and
// the bearing of a fastener in it, with their reserve factors under load cases.
//
// Each check is an allowable membrane strain of the laminate along x and along
// y, against the laminate's membrane strains from the mechanical loads,
// e0 = [a] N + [b] M (a temperature change loads no hole and is not counted).
// Tension checks take the positive strains, compression checks the negative
// ones, each direction on its own: RF = allowable/|strain|, the least of the
// two directions, kNoFailureRF when neither direction is loaded that way.
// In-plane shear does not enter: the methods below are for uniaxial loading.
//
// Open holes, and filled-hole tension when the material has a0fht > 0: the
// point-stress criterion of J. M. Whitney and R. J. Nuismer, "Stress fracture
// criteria for laminated composites containing stress concentrations",
// J. Composite Materials 8 (1974) 253-265 (see laminas/notch.h), with the
// laminate's own stress concentration factor K_T (Lekhnitskii) along each
// direction. The unnotched strain is the material's e1tu in tension and
// uecall in compression, the characteristic distance its a0oht, a0ohc or
// a0fht; notched and unnotched strains stand in the ratio of the strengths,
// the modulus being the laminate's in both. So the allowable is
//   e1tu (or uecall) * point_stress_ratio(R/(R + a0), K_T).
//
// Filled-hole factors. A fastener in the hole carries part of the load and
// leaves part of the hole's concentration; the material's Kfhc (and Kfht when
// it has no a0fht) is that part against the reference factor 3.1401 of a
// quasi-isotropic laminate, the constant LAMINA::set_fhc defines it with:
//   allowable = uecall (or e1tu) / (Kf * 3.1401 * K_T/3),
// so that for a quasi-isotropic laminate (K_T = 3) the allowable is the
// strain set_fhc was given, strength/Eiso. Neither factor comes from a
// published formula: they are the record's own definition, carried to other
// laminates through K_T.
//
// Bearing: the bearing stress of a fastener load P in a hole of diameter d
// through the laminate's thickness h is |P|/(d h), against the material's
// bearing strength Fbr (the bearing stress as ASTM D5961, "Standard Test
// Method for Bearing Response of Polymer Matrix Composite Laminates", defines
// it); RF = Fbr d h/|P|.
//
// With two materials every allowable is the lesser of the two materials'.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "laminates/laminate.h"
#include "laminates_stressed/strength_status.h"

namespace corvane {

enum class NotchCheck : std::int32_t { oht = 1, ohc = 2, fht = 3, fhc = 4, bearing = 5 };
inline constexpr std::size_t kNotchChecks = 5;
// "OHT", "OHC", "FHT", "FHC", "BEARING".
std::string_view notch_check_name(NotchCheck check);
// The check of a keyword (letter case and surrounding blanks ignored).
std::optional<NotchCheck> notch_check(std::string_view keyword);

// The hole diameter keyed notched strengths are taken at, and the default.
inline constexpr float kDefaultHoleDiameter = 6.35f;

// A laminate prepared for chosen notch checks at one hole diameter.
// Immutable; it keeps what it needs of the laminate, not the laminate.
class NotchedPlan {
 public:
  // Refused (see status()) for a laminate in error, a diameter that is not a
  // positive finite number, or a check whose data a material lacks (a0oht,
  // a0ohc, e1tu, uecall, Kfhc, Kfht or Fbr not > 0).
  NotchedPlan(const LAMINATE& laminate, std::span<const NotchCheck> checks,
              float hole_diameter = kDefaultHoleDiameter);

  const StrengthStatus& status() const { return status_; }
  std::size_t checks() const { return checks_.size(); }
  // Stress concentration factors along x and y.
  float kt(bool along_y) const { return kt_[along_y ? 1 : 0]; }
  // The allowable membrane strain of a check (by its place in the plan) along
  // x or y; for bearing, the bearing strength.
  float allowable(std::size_t check, bool along_y) const;

  // Many load cases, `loads` kLoadCaseValues floats per case, and as many
  // fastener loads (or none, when no bearing check is made); rf gets
  // [case][check]. Checks every size and value first, then writes.
  StrengthStatus evaluate(std::span<const float> loads,
                          std::span<const float> fastener_loads,
                          std::span<float> rf) const;

 private:
  StrengthStatus status_;
  std::vector<NotchCheck> checks_;
  std::vector<std::array<float, 2>> allowable_;  // per check: x, y
  std::array<float, 2> kt_{};
  std::array<Matrix3, 2> inverse_{};  // [a], [b]
  float bearing_area_ = 0.0f;         // d h
};

}  // namespace corvane
