// CRIPPLINGSECTION: the crippling strength of a thin-walled section built of
// flat laminate segments, and its allowable as a column of a given length and
// end fixity.
//
// Segment crippling. Each segment is a flat laminate of width b (centre-line
// width: a free edge to the mid-thickness of the segment that supports it, or
// between the mid-thickness lines of its two supports), thickness t (the
// laminate's) and compression strength Fcu, either given or the first-ply
// failure stress of the laminate under uniaxial compression (Nx = -1: Fcu = RF/t
// by the chosen criterion). Its crippling stress follows the empirical curves
// fitted to crippling tests of carbon/epoxy laminated elements:
//   one edge free (OEF):  Fcc/Fcu = 1.63 (b/t)^-0.717
//   no edge free (NEF):   Fcc/Fcu = 11.0 (b/t)^-1.124
// each capped at Fcc = Fcu (b/t below 1.98 and 8.44). Sources: MIL-HDBK-17-3F,
// Composite Materials Handbook, Vol. 3 (2002), its section on the crippling of
// laminated compression elements; C. Kassapoglou, Design and Analysis of
// Composite Structures, Wiley (2010), chapter 8 (composite beams), its section
// on crippling, which gives the same two relations. Outside the b/t range the relations
// are taken here to be fitted on (kOneEdgeFreeRange, kNoEdgeFreeRange) a segment's result
// is kept and flagged with a RangeWarning, never refused and never silent.
//
// Section crippling: the width-times-thickness weighted mean of the segments'
// crippling stresses, Fcc = sum(Fcc_i b_i t_i) / sum(b_i t_i), and the crippling
// load Pcc = Fcc A, A = sum(b_i t_i) (Kassapoglou, chapter 8; MIL-HDBK-17-3F).
// Axial stiffness EA = sum(Ex_i t_i b_i), Ex the laminate's apparent membrane
// modulus.
//
// Column allowable (Johnson-Euler). E. F. Bruhn, Analysis and Design of Flight
// Vehicle Structures, Jacobs (1973), the chapter on columns: effective length
// L' = L / sqrt(c) for the end-fixity coefficient c (1 pinned ends, 4 fixed
// ends), the Johnson parabola cut off at the crippling stress
//   F = Fcc - Fcc^2 (L'/rho)^2 / (4 pi^2 E)    for L'/rho < sqrt(2 pi^2 E / Fcc),
// and the Euler stress F = pi^2 E / (L'/rho)^2 beyond, where they meet at
// Fcc/2. The column allowable load is F A.
//
// E and rho of a section of laminates: E = EA/A (the area-weighted membrane
// modulus) and rho = sqrt(EI_min / EA), so that pi^2 E / (L'/rho)^2 is the
// Euler load pi^2 EI_min / L'^2 over A. EI_min is the least principal bending
// stiffness about the modulus-weighted centroid, from the segments' centres
// (y, z) and the directions of their widths in the section plane: each segment
// adds EA_i d d' (parallel axes), Ex t b^3/12 about the axis normal to it (its
// membrane bending) and b/d11 about its own width (plate bending, d11 the (1,1)
// term of the laminate's bending compliance), the membrane and bending
// stiffnesses of laminated beam sections in Kassapoglou, chapter 8.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "laminates/laminate.h"
#include "laminates_stressed/ply_criteria.h"

namespace corvane {

enum class EdgeCondition : std::int32_t { one_edge_free = 1, no_edge_free = 2 };
// "OEF", "NEF"; empty for another value.
std::string_view edge_condition_name(EdgeCondition edge);

// The b/t ranges the empirical relations are used on without a warning: the
// span of the published test data this code is sure of. The handbook's plots
// may reach further; a result outside is still given, with its flag.
struct BtRange {
  float low, high;
};
inline constexpr BtRange kOneEdgeFreeRange{4.0f, 30.0f};
inline constexpr BtRange kNoEdgeFreeRange{10.0f, 50.0f};
BtRange fitted_range(EdgeCondition edge);

// Fcc/Fcu of an element by its relation, before the cap; 0 for an unknown edge.
float crippling_ratio(EdgeCondition edge, float b_over_t);

enum class RangeWarning : std::int32_t { none = 0, below = 1, above = 2 };

// One flat segment of the section.
struct SectionSegment {
  float width = 0.0f;        // b, > 0
  float y = 0.0f, z = 0.0f;  // its centre in the section plane
  float angle = 0.0f;        // direction of its width from the y axis, degrees
  EdgeCondition edge = EdgeCondition::no_edge_free;
  const LAMINATE* laminate = nullptr;  // must outlive the analysis
  float fcu = 0.0f;                    // compression strength (> 0); 0: first-ply failure
};

// Compression strength by first-ply failure: Puck's criterion unless another is
// chosen, since it tells fibre compression from inter-fibre failure and so shows
// which one sets Fcu. Give Fcu from coupon tests where there are any: the
// crippling curves were fitted with measured strengths.
inline constexpr std::int32_t kDefaultCripplingCriterion = 9;  // PUCK

struct ColumnInput {
  float length = 0.0f;  // L >= 0; 0 gives the crippling stress itself
  float fixity = 1.0f;  // end-fixity coefficient c > 0
};

struct SegmentCrippling {
  float thickness = 0.0f, ex = 0.0f;
  float fcu = 0.0f;
  bool fcu_given = false;
  FailureMode fcu_mode = FailureMode::none;  // of the first-ply failure
  float b_over_t = 0.0f;
  float fcc = 0.0f;
  bool capped = false;  // Fcc = Fcu
  RangeWarning warning = RangeWarning::none;
};

enum class ColumnMode : std::int32_t { johnson = 1, euler = 2 };
std::string_view column_mode_name(ColumnMode mode);  // "Johnson", "Euler"

struct SectionCrippling {
  std::vector<SegmentCrippling> segments;
  float area = 0.0f, ea = 0.0f;
  float fcc = 0.0f, pcc = 0.0f;
  float yc = 0.0f, zc = 0.0f;  // modulus-weighted centroid
  float ei_min = 0.0f, rho = 0.0f, modulus = 0.0f;
  float effective_length = 0.0f, slenderness = 0.0f, transition = 0.0f;
  float column_stress = 0.0f, column_load = 0.0f;
  ColumnMode column = ColumnMode::johnson;
  std::int32_t warnings = 0;  // segments outside their fitted range
};

// The reasons for a refusal; their values are the error codes of the C entry
// point SECTION_CRIPPLING.
enum class CripplingError : std::int32_t {
  none = 0,
  invalid_material = 1,  // of the host's ply materials (the entry point's check)
  laminate_in_error = 2,
  unknown_criterion = 3,
  criterion_not_available = 4,
  strength_missing = 5,
  bad_segment = 6,  // width, centre, angle, edge condition, material or Fcu
  bad_count = 7,    // no segment (or no material)
  out_of_memory = 8,
  bad_option = 9,
  bad_column = 10,  // length or fixity
  no_compression_failure = 11,
  out_of_range = 12,  // a result beyond single precision
};

struct CripplingStatus {
  CripplingError error = CripplingError::none;
  std::int32_t segment = 0;  // 1-based, for a segment's refusal
  std::string detail;        // what the message names after "Error! "

  bool ok() const { return error == CripplingError::none; }
  // One "Error! ..." line without its newline; empty when ok.
  std::string message() const;
};

struct CRIPPLINGSECTION {
  std::vector<SectionSegment> segments;
  std::int32_t criterion = kDefaultCripplingCriterion;
  StrengthOptions options;
  ColumnInput column;

  // Checks every input, then computes; `out` is written only on success.
  CripplingStatus analyse(SectionCrippling& out) const;
};

// The first segment out of its fitted range as one "Warning! ..." line, or an
// empty text.
std::string range_warning(const SectionCrippling& result,
                          std::span<const SectionSegment> segments);

}  // namespace corvane
