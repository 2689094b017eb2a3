// Ply failure criteria on the stresses of one ply in its own axes (1 along the
// fibres, 2 across, 12 in-plane shear; compression negative, strengths positive)
// and their reserve factors.
//
// Along a load path the ply stresses are r + RF s: s from the mechanical loads,
// r from a temperature change, held as they are. The reserve factor RF is the
// least factor > 0 at which the criterion reaches 1 (with r = 0 the usual
// strength ratio); 0 when r alone reaches it or s is beyond the float range;
// kNoFailureRF when the mechanical stresses are practically zero (|s1| + |s2| +
// |s12| < 1.0e-5) or the criterion never reaches 1 along the path, and no RF
// exceeds it.
//
// How RF is found. Criteria homogeneous in the stresses, with r = 0: in closed
// form (Tsai-Hill 1/sqrt(F) with the very operations of LAMINA::tsai_hill_rf,
// Yamada-Sun 1/sqrt(F), maximum strain, truncated maximum strain and Puck 1/f;
// Tsai-Wu and Hoffman the positive root). Otherwise every criterion is,
// piece by piece, a polynomial g of degree <= 2 in the stresses with g < 0 inside,
// g = 0 on the envelope, and each piece holds in a region bounded by planes
// through the zero stress (the signs of s1 and s2, Puck's mode B/C boundary).
// Along the path g is a quadratic in RF: its roots are solved exactly, a root
// counts when its stresses lie in its piece's region (Puck: and its own mode's
// stress exposure is 1 there, which removes the roots squaring brings in), and
// RF is the least root that counts. No iteration, so no tolerance on RF.
//
// Criteria by code (the keywords and codes of criterion_code):
//
//  4 TSAI_HILL  F = (s1/X)^2 - s1 s2/X^2 + (s2/Y)^2 + (s12/S)^2, X = F1t or F1c,
//     Y = F2t or F2c by the sign of s1, s2 (as LAMINA::tsai_hill_rf). R. Hill,
//     "A theory of the yielding and plastic flow of anisotropic metals", Proc.
//     Royal Society A 193 (1948) 281-297; V. D. Azzi and S. W. Tsai, "Anisotropic
//     strength of composites", Experimental Mechanics 5 (1965) 283-288.
//  5 TSAI_WU  F = F1 s1 + F2 s2 + F11 s1^2 + F22 s2^2 + F66 s12^2 + 2 F12 s1 s2,
//     F1 = 1/F1t - 1/F1c, F11 = 1/(F1t F1c), F2, F22 alike, F66 = 1/F12^2,
//     F12 = F12* sqrt(F11 F22), F12* = -1/2 unless the caller gives another.
//     S. W. Tsai and E. M. Wu, "A general theory of strength for anisotropic
//     materials", J. Composite Materials 5 (1971) 58-80; the interaction term
//     F12* = -1/2: S. W. Tsai and H. T. Hahn, Introduction to Composite
//     Materials, Technomic (1980). RF: the positive root of a RF^2 + b RF + c = 1.
//  6 HOFFMAN  F = (s1^2 - s1 s2)/(F1t F1c) + s2^2/(F2t F2c) + (F1c - F1t) s1/(F1t F1c)
//     + (F2c - F2t) s2/(F2t F2c) + (s12/S)^2: O. Hoffman, "The brittle strength of
//     orthotropic materials", J. Composite Materials 1 (1967) 200-206, in plane
//     stress with the transverse strengths equal in 2 and 3.
//  7 YAMADA_SUN  F = (s1/X)^2 + (s12/S)^2, X = F1t or F1c by the sign of s1, S the
//     material's F12 standing for the shear strength of the ply in a cross-ply
//     laminate: S. E. Yamada and C. T. Sun, "Analysis of laminate strength and its
//     distribution", J. Composite Materials 12 (1978) 275-284. s2 plays no part.
//  9 PUCK  plane-stress fibre and inter-fibre failure, stress exposure f = 1 at
//     failure, homogeneous of degree 1: A. Puck and H. Schuermann, "Failure
//     analysis of FRP laminates by means of physically based phenomenological
//     models", Composites Science and Technology 58 (1998) 1045-1067 and 62 (2002)
//     1633-1662; VDI 2014 Part 3 (2006). With R|| = F12, Rt = F2t, Rc = F2c:
//       fibre: s1/F1t (s1 >= 0), -s1/F1c (s1 < 0);
//       mode A (s2 >= 0): sqrt((s12/R||)^2 + (1 - p+ Rt/R||)^2 (s2/Rt)^2) + p+ s2/R||;
//       mode B (s2 < 0, |s2/s12| <= RA/t21c): (sqrt(s12^2 + (p- s2)^2) + p- s2)/R||;
//       mode C (s2 < 0 otherwise): ((s12/(2 (1 + ppp) R||))^2 + (s2/Rc)^2) Rc/(-s2);
//     RA = R||/(2 p-) (sqrt(1 + 2 p- Rc/R||) - 1), computed as
//     Rc/(1 + sqrt(1 + 2 p- Rc/R||)); ppp = p- RA/R||; t21c = R|| sqrt(1 + 2 ppp).
//     The plane-stress form derives ppp from p- so that modes B and C meet; p-perp-
//     perp is an input of the three-dimensional fracture-plane search only.
//     f = the larger of fibre and inter-fibre; the mode is told.
// 11 MAX_STRAIN_I  the classical maximum strain criterion in ply axes on the
//     mechanical strains e = S s: e1 <= F1t/E1, -e1 <= F1c/E1, e2 <= F2t/E2,
//     -e2 <= F2c/E2, |g12| <= F12/G12 (ultimate strains of a ply linear to
//     failure); f = the largest ratio. A. K. Kaw, Mechanics of Composite
//     Materials, 2nd ed., CRC Press (2006), chapter 2, maximum strain failure
//     theory (Example 2.20).
// 31 MAX_TRUNCATED_STRAIN, MTS  Hart-Smith's truncated maximum strain on the
//     mechanical strains: fibre cut-offs e1 <= uetall, -e1 <= uecall (both
//     fibre directions, e2 too, for a fabric) and the shear truncation
//     |e1 - e2| <= (1 + v12) uetall, the line at 45 degrees through the strains of
//     uniaxial fibre tension at uetall; matrix failure is outside the model.
//     L. J. Hart-Smith, "A new approach to fibrous composite laminate strength
//     prediction", 8th DoD/NASA/FAA Conference on Fibrous Composites in Structural
//     Design, NASA CP-3087 (1989); "The truncated maximum strain composite failure
//     model", Composites 24 (1993) 587-591.
//
// Not available, with no published definition to tie them to: 8 AOSL,
// 12 MAX_STRAIN_II (nothing published separates it from the classical maximum
// strain criterion that MAX_STRAIN_I is), 32 MTS2.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "laminas/lamina.h"
#include "laminates_stressed/strength_status.h"

namespace corvane {

using PlyStress = std::array<float, 3>;  // s1, s2, s12

inline constexpr float kNoFailureRF = 1.0e10f;

// The criteria that have an evaluation, in code order.
inline constexpr std::array<std::int32_t, 7> kEvaluatedCriteria = {4, 5, 6, 7, 9, 11, 31};

enum class FailureMode : std::int32_t {
  none = 0,  // the criterion does not tell
  fibre_tension = 1,
  fibre_compression = 2,
  matrix_tension = 3,
  matrix_compression = 4,
  shear = 5,
  puck_a = 6,  // inter-fibre failure, mode A
  puck_b = 7,
  puck_c = 8,
};
std::string_view failure_mode_name(FailureMode mode);

// Inclination parameters of Puck's inter-fibre envelope, p+ and p- of the
// (s2, s12) plane: the defaults of VDI 2014 Part 3 for carbon and glass.
struct PuckParameters {
  float p_plus = 0.35f;   // p(perp,par)(+), in [0, 1)
  float p_minus = 0.30f;  // p(perp,par)(-), in [0, 1)
  static constexpr PuckParameters carbon() { return {0.35f, 0.30f}; }
  static constexpr PuckParameters glass() { return {0.30f, 0.25f}; }
};

struct StrengthOptions {
  float tsai_wu_f12_star = -0.5f;  // normalised interaction term, in (-1, 1)
  PuckParameters puck;
};

struct ReserveFactor {
  float rf = kNoFailureRF;
  FailureMode mode = FailureMode::none;
};

// The value of the criterion itself, 1 on the envelope (Puck: the stress
// exposure), with the mode it tells.
struct Exposure {
  float value = 0.0f;
  FailureMode mode = FailureMode::none;
};

// One criterion prepared for one ply material.
class PlyCriterion {
 public:
  // Prepares criterion `code` for material `m` (1-based `material` names it in a
  // status). A refusal leaves `out` as it was. `m` must outlive `out`.
  static StrengthStatus prepare(std::int32_t code, const LAMINA& m, std::int32_t material,
                                const StrengthOptions& options, PlyCriterion& out);

  std::int32_t code() const { return code_; }
  Exposure value(const PlyStress& stress) const;
  ReserveFactor reserve_factor(const PlyStress& s, const PlyStress& r) const;
  // The RF of n mechanical stress states given by columns, without thermal
  // stresses: reserve_factor(s, {}).rf of each, in a loop made for speed.
  void reserve_factors(const float* s1, const float* s2, const float* s12, std::size_t n,
                       float* rf) const;

  // A quadratic piece of the envelope: g = f11 s1^2 + f22 s2^2 + f66 s12^2
  // + f12 s1 s2 + f1 s1 + f2 s2 + f0, with g < 0 inside.
  struct Piece {
    float f11 = 0, f22 = 0, f66 = 0, f12 = 0, f1 = 0, f2 = 0, f0 = -1;
    std::int8_t sign1 = 0, sign2 = 0;  // region: s >= 0 (+1), s < 0 (-1), any (0)
    std::int8_t puck_side = 0;         // region: mode B side (1), mode C side (2)
    FailureMode mode = FailureMode::none;
  };
  // A linear limit pair on v = l . s: v <= 1/inv_t and -v <= 1/inv_c.
  struct Row {
    float l1 = 0, l2 = 0, l6 = 0, inv_t = 0, inv_c = 0;
    FailureMode mode_t = FailureMode::none, mode_c = FailureMode::none;
  };

 private:
  enum class Kind : std::int8_t { tsai_hill, quadratic, yamada_sun, linear, puck };

  Exposure rows_value(const PlyStress& x) const;
  FailureMode puck_mode(const PlyStress& x) const;
  float puck_root_argument(const PlyStress& x, FailureMode mode) const;
  float puck_iff(const PlyStress& x, FailureMode mode, float root) const;
  bool in_region(const Piece& p, const PlyStress& x, const PlyStress& slack) const;
  ReserveFactor first_crossing(const PlyStress& s, const PlyStress& r) const;

  std::int32_t code_ = 0;
  Kind kind_ = Kind::linear;
  const LAMINA* material_ = nullptr;
  std::int32_t npieces_ = 0, nrows_ = 0;
  std::array<Piece, 4> pieces_{};
  std::array<Row, 3> rows_{};
  // Puck: the mode B/C boundary |s2| tau_c = RA |s12|, and the constants of
  // the modes with the divisions by the strengths done beforehand.
  float ra_ = 0, tau_c_ = 0, rc_ = 0, inv_rs_ = 0, inv_rc_ = 0, k_inv_rt_ = 0;
  float p_plus_inv_rs_ = 0, p_minus_ = 0, inv_c_ = 0;
};

// T300/5208 carbon/epoxy tape in mm, MPa and 1/K: E1 = 181000, E2 = 10300,
// G12 = 7170, v12 = 0.28; strengths F1t = F1c = 1500, F2t = 40, F2c = 246,
// F12 = 68; CTE1 = 0.02e-6, CTE2 = 22.5e-6. S. W. Tsai and H. T. Hahn,
// Introduction to Composite Materials (1980); the same values in A. K. Kaw,
// Mechanics of Composite Materials, 2nd ed. (2006), Table 2.1. The ply
// thickness 0.125 is a usual cured ply of such tapes, not from those tables; the
// allowable strains follow from F1t and F1c by new_lamina.
LAMINA t300_5208();

}  // namespace corvane
