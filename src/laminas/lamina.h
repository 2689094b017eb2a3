// LAMINA: one orthotropic ply material (unidirectional tape or woven fabric):
// elastic constants, strengths and allowable strains, thermal and notch data,
// and the stiffness derived from them by classical lamination theory: the
// reduced stiffness Q and compliance S in ply axes, the knocked-down (B-basis)
// stiffness Qb, the quasi-isotropic stiffness Qiso from the stiffness
// invariants, and the transformed stiffness at a ply angle.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "cdt_models/cdt_model.h"
#include "util/matrix3.h"

namespace corvane {

struct LAMINA {
  std::string Name;  // empty when none is given
  float CPT = 0.0f;  // cured ply thickness
  float E1 = 0.0f, E2 = 0.0f, E3 = 0.0f;
  float G12 = 0.0f, G13 = 0.0f, G23 = 0.0f;
  float v12 = 0.0f, nu21 = 0.0f;
  Matrix3 Q;  // reduced stiffness, ply axes
  Matrix3 S;  // compliance, ply axes
  float CTE1 = 0.0f, CTE2 = 0.0f;
  float KBM = 0.85f;  // knock-down factor on the moduli
  float E1b = 0.0f, E2b = 0.0f, G12b = 0.0f;
  Matrix3 Qb;    // reduced stiffness from the knocked-down moduli
  Matrix3 Qiso;  // quasi-isotropic laminate of this ply
  float Eiso = 0.0f, Giso = 0.0f, nuiso = 0.0f;
  float F1t = 0.0f, F2t = 0.0f, F3t = 0.0f;  // strengths, compression positive
  float F1c = 0.0f, F2c = 0.0f, F3c = 0.0f;
  float F12 = 0.0f, F13 = 0.0f, F23 = 0.0f;
  float e1tu = 0.0f;    // fibre-direction ultimate tensile strain
  float uetall = 0.0f;  // allowable tensile strain
  float uecall = 0.0f;  // allowable compressive strain, positive
  float spare = 0.0f;   // zeroed by the constructor, not used otherwise
  // Notch data: characteristic lengths and notch factors, bearing strength.
  float a0oht = 0.0f, a0ohc = 0.0f, a0fht = 0.0f;
  float Kfht = 0.7f, Kfhc = 0.6f;
  float Fbr = 0.0f;
  // Open-hole tension and compression and filled-hole tension strengths as
  // last given to set_oht, set_ohc, set_fht.
  float OHT = 0.0f, OHC = 0.0f, FHT = 0.0f;
  std::int32_t selector = 2;
  CDTMODEL cdt_model;
  // Derived strain limits.
  float uetall_third = 0.0f, uecall_third = 0.0f;
  float CAIH = 0.0f, CAIE = 0.0f;  // after impact, hard and easy
  float DENSITY = 1.5e-6f;
  bool is_fabric = false;
  std::int32_t status = -1;  // -1 not a valid material, 0 valid

  // Sets KBM and the knocked-down moduli when 0 < k <= 1, then Qb.
  void set_kbm(float k);
  // Recomputes Qb from E1b, E2b, G12b.
  void update_design_stiffness();

  // Text lines ending in "\n": one material's line to stand under kShortHeader,
  // and its full table, which ends with "Error! Material is ill conditioned."
  // when 1 - v12 nu21 is not positive. An invalid material gives the single
  // line "Error! Not valid lamina material." from both.
  static constexpr std::string_view kShortHeader =
      "Name                   CPT      E1      E2     G12   v12   KBM  uetall  uecall";
  std::string print_short() const;
  std::string print_full() const;

  // Transformed reduced stiffness at a ply angle in degrees; selector 1 uses Qb,
  // anything else Q. A positive angle turns the fibre from x towards y.
  Matrix3 stiffness_at_angle(float angle_deg, int selector = 0) const;

  // Tsai-Hill reserve factor of the ply stresses; 0 when a strength is missing,
  // 1.0e10 for a stress state that is practically zero.
  float tsai_hill_rf(float s1, float s2, float t12) const;

  // Ply axes: (s1, s2, t12) = Q (e1, e2, g12) and the reverse through S.
  std::array<float, 3> stress_from_strain(const std::array<float, 3>& strain) const;
  std::array<float, 3> strain_from_stress(const std::array<float, 3>& stress) const;

  // Stores the five strengths; a negative one makes the material invalid.
  void set_strengths(float f1t, float f1c, float f12, float f2t, float f2c);
  // Notched strengths of the quasi-isotropic laminate of this ply, measured
  // with a hole of the diameter given: each stores the strength and sets the
  // point-stress characteristic distance (a0oht, a0ohc, a0fht; see
  // laminas/notch.h) at which a hole of that diameter in that laminate
  // (K_T = 3) keeps the ratio of the notched strain, strength/Eiso, to the
  // unnotched one: e1tu in tension, uecall in compression. Return 0, or 1
  // when no distance gives the ratio (it is not between 1/3 and 1), the
  // unnotched strain or Eiso is missing or the diameter is not positive; the
  // characteristic distance is then left as it was.
  int set_oht(float strength, float hole_diameter);
  int set_ohc(float strength, float hole_diameter);
  int set_fht(float strength, float hole_diameter);
  // Filled-hole compression: sets Kfhc from the strength, so that
  // uecall/(3.1401 Kfhc) is the filled-hole strain, strength/Eiso.
  void set_fhc(float strength);

  // Sets properties from (key, value) pairs. Keys are compared in upper case
  // with trailing blanks ignored; a key that matches nothing is ignored. The
  // notched strengths are taken at a hole diameter of 6.35.
  void set_by_key(std::span<const std::pair<std::string_view, float>> pairs);
  // Whether set_by_key knows the key (compared as set_by_key compares it).
  static bool is_property_key(std::string_view key);
};

// Builds a ply material. An allowable below 1.0 is a strain, otherwise a
// stress. The result has status -1 when CPT < 1.0e-5 or any input is negative.
// Without is_fabric, near-equal E1 and E2 (above 1.0) mark a fabric.
LAMINA new_lamina(float CPT, float E1, float E2, float G12, float v12,
                  float tension_allowable, float compression_allowable,
                  std::optional<std::string_view> name = {},
                  std::optional<bool> is_fabric = {});

// Applies properties written as text: "KEY=value" items separated by blanks,
// commas, semicolons or tabs, in order, by set_by_key's rules, except that
// OHT, OHC and FHT (at the keyed hole diameter) are refused when no
// characteristic distance follows from them. Returns an empty text, or why
// the first refused item was refused (an unknown key, a value that is no
// real, such a notched strength); the items before it stay applied.
std::string set_properties(LAMINA& m, std::string_view text);

// Why new_lamina would refuse these inputs, naming the first refused one and
// its value (as "E2 = -10000 is negative"), or an empty text when it would
// build a valid material. The allowables default to values never refused.
std::string lamina_fault(float CPT, float E1, float E2, float G12, float v12,
                         float tension_allowable = 0.0f,
                         float compression_allowable = 0.0f);

}  // namespace corvane
