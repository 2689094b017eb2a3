// LAMINATESTRESSED: a laminate under running loads and a temperature change,
// by classical lamination theory: mid-plane strains and curvatures from the
// inverse of the stiffness, the strains and stresses of every ply at its bottom,
// middle and top, ply failure criteria with their reserve factors, first-ply
// failure and the report table.
//
// A load case holds running loads Nx, Ny, Nxy (force per width), running moments
// Mx, My, Mxy (moment per width) and a temperature change dT. The temperature
// change adds the thermal running loads
//   N_T = dT sum_k T_k^-1 Q_k a_k t_k,
//   M_T = dT sum_k T_k^-1 Q_k a_k (z_k^2 - z_(k-1)^2)/2,
// a_k = (CTE1, CTE2, 0) of the ply's material, so that
//   (e0, k) = [[a, b], [c, d]] (N + N_T, M + M_T)
// with [a], [b], [c], [d] the blocks of the laminate's inverse stiffness. At a
// height z the strains are e0 + z k in laminate axes; turned into ply axes, less
// the free thermal strain a_k dT, they are the mechanical strains, and Q_k of
// them the ply stresses. The stresses are the sum of a mechanical part (from the
// loads) and a thermal part (from dT): the reserve factors scale the first and
// keep the second (see ply_criteria.h).
//
// Precision and sharing of work: the ply stresses are formed, for every path
// (one case, many cases, the report), in the one order below, so the same load
// case gives the same bits everywhere. Per ply, P = Q T_e (T_e the strain
// transformation) is prepared once, and per surface the thermal stress of a unit
// temperature change, P (e0 + z k) - Q a_k of the unit thermal loads. A case
// costs the 6x6 product for (e0, k) of its mechanical loads, per ply P e0 and
// P k (shared by plies of equal P), per surface (P e0) + z (P k), plus dT times
// the unit thermal stress (exactly 0 when dT = 0).
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "laminates_stiffness/laminate_stiffness.h"
#include "laminates_stressed/ply_criteria.h"
#include "laminates_stressed/strength_status.h"

namespace corvane {

struct LoadCase {
  float Nx = 0.0f, Ny = 0.0f, Nxy = 0.0f;
  float Mx = 0.0f, My = 0.0f, Mxy = 0.0f;
  float dT = 0.0f;
};
// A load case as a row of floats, in the order of LoadCase.
inline constexpr std::size_t kLoadCaseValues = 7;

// Load cases as rows of kLoadCaseValues floats: the non-finite load error with
// the 1-based case of the first non-finite value, or ok.
StrengthStatus finite_loads(std::span<const float> loads);

// Surfaces of a ply, numbered from its bottom (the side of z = -h/2).
enum class Surface : std::int32_t { bottom = 1, middle = 2, top = 3 };
inline constexpr std::size_t kSurfaces = 3;
std::string_view surface_name(Surface surface);

// At most this many criteria in one call.
inline constexpr std::size_t kMaxCriteria = 16;

struct PlySurfaceState {
  std::int32_t ply = 0;  // 1-based from the bottom
  Surface surface = Surface::bottom;
  float z = 0.0f;
  std::array<float, 3> strain{};             // laminate axes: ex, ey, gxy
  std::array<float, 3> mechanical_strain{};  // ply axes: e1, e2, g12 less thermal
  PlyStress stress{};                        // ply axes, all of it
  PlyStress thermal_stress{};                // the part from dT
};

struct LaminateState {
  std::array<float, 6> midplane{};        // e0x, e0y, g0xy, kx, ky, kxy
  std::vector<PlySurfaceState> surfaces;  // ply by ply, bottom, middle, top
};

// Caller-provided results of many load cases. Each array is either empty (not
// wanted) or of exactly its size; the index order is that of the brackets.
struct StrengthOutputs {
  // First-ply failure per [case][criterion]: least RF over plies and surfaces
  // (the first met, bottom ply first, on a tie), its ply (1-based), surface and
  // mode.
  std::span<float> rf{};
  std::span<std::int32_t> ply{};
  std::span<std::int32_t> surface{};  // Surface values
  std::span<std::int32_t> mode{};     // FailureMode values
  std::span<float> ply_rf{};          // [case][criterion][ply][surface]
  std::span<float> stress{};          // [case][ply][surface][s1, s2, s12]
  std::span<float> midplane{};        // [case][e0x, e0y, g0xy, kx, ky, kxy]
};

// A laminate prepared for strength analysis with chosen criteria: built once,
// then evaluated for any number of load cases. Immutable, so one plan serves
// many threads. It refers to the materials of the laminate it was built from,
// which must outlive it.
class StrengthPlan {
 public:
  // Refused (see status()) for a laminate in error, a criterion that is unknown
  // or not available, a missing strength, an option out of range or more than
  // kMaxCriteria criteria.
  StrengthPlan(const LAMINATE& laminate, std::span<const std::int32_t> criteria,
               const StrengthOptions& options = {});

  const StrengthStatus& status() const { return status_; }
  std::size_t plies() const { return plies_.size(); }
  std::size_t criteria() const { return ncriteria_; }

  // Many load cases, `loads` kLoadCaseValues floats per case. Checks every size
  // and every load first, then writes every wanted array; allocates nothing.
  StrengthStatus evaluate(std::span<const float> loads, const StrengthOutputs& out) const;

  // Strains and stresses of one load case, every ply surface.
  StrengthStatus state(const LoadCase& load, LaminateState& out) const;

 private:
  // Plies evaluated together by evaluate(), their stresses in columns.
  static constexpr std::size_t kBlockPlies = 16;
  struct Ply {
    std::int32_t material = 0;  // 0-based
    std::size_t same_as = 0;    // an earlier ply of its block of equal P, or itself
    Matrix3 P;                  // Q T_e: laminate-axis strains to ply stresses
    Matrix3 Te;                 // strain transformation to ply axes
    std::array<float, 3> z{};   // bottom, middle, top
    std::array<PlyStress, kSurfaces> thermal{};  // ply stresses per unit dT
    float cte1 = 0.0f, cte2 = 0.0f;
  };

  // Mid-plane strains and curvatures of the mechanical loads of a row.
  std::array<float, 6> midplane(const float* load) const;
  template <typename Visit>
  void for_each_surface(const float* load, Visit visit) const;

  StrengthStatus status_;
  const LAMINATE* laminate_ = nullptr;
  std::array<Matrix3, 4> inverse_{};         // [a], [b], [c], [d]
  std::array<float, 6> thermal_midplane_{};  // per unit dT
  std::vector<Ply> plies_;
  std::size_t ncriteria_ = 0;
  std::vector<PlyCriterion> criteria_;  // [criterion][material]
};

struct LAMINATESTRESSED : LAMINATESTIFFNESS {
  using LAMINATESTIFFNESS::LAMINATESTIFFNESS;

  StrengthPlan strength_plan(std::span<const std::int32_t> criteria,
                             const StrengthOptions& options = {}) const {
    return StrengthPlan(*this, criteria, options);
  }

  // Strains and stresses of one load case (strength_plan({}).state).
  StrengthStatus state(const LoadCase& load, LaminateState& out) const {
    return strength_plan({}).state(load, out);
  }

  // The report of one load case: the loads, per ply surface its angle, material,
  // s1, s2, s12 and the RF of each criterion (cut toward zero), then the
  // first-ply failure of each criterion. Nothing is appended when refused.
  StrengthStatus strength_report(const LoadCase& load,
                                 std::span<const std::int32_t> criteria,
                                 const StrengthOptions& options, std::string& text) const;
};

}  // namespace corvane
