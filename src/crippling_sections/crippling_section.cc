#include "crippling_sections/crippling_section.h"

#include <array>
#include <cmath>

#include "laminas/criterion_code.h"
#include "laminates_stressed/laminate_stressed.h"
#include "util/fixed_width.h"
#include "util/numerics.h"

namespace corvane {
namespace {

bool finite(float x) { return std::isfinite(x); }

CripplingStatus refuse(CripplingError error, std::int32_t segment, std::string detail) {
  return {error, segment, std::move(detail)};
}

CripplingError error_of(StrengthError error) {
  switch (error) {
    case StrengthError::none:
      return CripplingError::none;
    case StrengthError::laminate_in_error:
      return CripplingError::laminate_in_error;
    case StrengthError::unknown_criterion:
      return CripplingError::unknown_criterion;
    case StrengthError::criterion_not_available:
      return CripplingError::criterion_not_available;
    case StrengthError::strength_missing:
      return CripplingError::strength_missing;
    case StrengthError::bad_option:
      return CripplingError::bad_option;
    case StrengthError::non_finite_load:        // the load here is Nx = -1
    case StrengthError::damage_model_unusable:  // no damage model is used
    case StrengthError::wrong_size:
      break;
  }
  return CripplingError::out_of_range;
}

// Why a segment is refused, or an empty text.
std::string segment_fault(const SectionSegment& s) {
  if (!(s.width > 0.0f) || !finite(s.width)) {
    return "width " + shortest_text(s.width) + " is not a positive number";
  }
  if (!finite(s.y) || !finite(s.z) || !finite(s.angle)) {
    return "centre (" + shortest_text(s.y) + ", " + shortest_text(s.z) + ") or angle " +
           shortest_text(s.angle) + " is not finite";
  }
  if (edge_condition_name(s.edge).empty()) {
    return "edge condition " + std::to_string(static_cast<std::int32_t>(s.edge)) +
           " is neither 1 (one edge free) nor 2 (no edge free)";
  }
  if (!(s.fcu >= 0.0f) || !finite(s.fcu)) {
    return "compression strength " + shortest_text(s.fcu) +
           " is not 0 or a positive number";
  }
  return {};
}

// The compression strength of a laminate by first-ply failure under Nx = -1.
CripplingStatus first_ply_failure(const LAMINATE& laminate, std::int32_t criterion,
                                  const StrengthOptions& options, std::int32_t segment,
                                  SegmentCrippling& out) {
  const std::int32_t criteria[] = {criterion};
  const StrengthPlan plan(laminate, criteria, options);
  const float load[kLoadCaseValues] = {-1.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f};
  float rf = 0.0f;
  std::int32_t ply = 0, surface = 0, mode = 0;
  StrengthStatus status = plan.status();
  if (status.ok())
    status = plan.evaluate(load, {{&rf, 1}, {&ply, 1}, {&surface, 1}, {&mode, 1}});
  if (status.error == StrengthError::strength_missing) {
    // The laminate's own material number means nothing to the section's caller
    // unless the laminate has two.
    const std::string which =
        laminate.materials.size() > 1
            ? "ply material " + std::to_string(status.material) + ", "
            : std::string();
    return refuse(CripplingError::strength_missing, segment,
                  std::string(status.name) + " missing (" + which + "criterion " +
                      std::string(criterion_keyword(criterion)) + ")");
  }
  if (!status.ok()) {
    std::string words = status.message();
    if (words.starts_with("Error! ")) words.erase(0, 7);
    if (words.ends_with('.')) words.pop_back();
    return refuse(error_of(status.error), segment, words);
  }
  if (!(rf > 0.0f) || !(rf < kNoFailureRF)) {
    return refuse(CripplingError::no_compression_failure, segment,
                  "criterion " + std::string(criterion_keyword(criterion)) +
                      " finds no failure of the laminate under compression: give its "
                      "compression strength");
  }
  out.fcu = rf / laminate.h;
  out.fcu_mode = static_cast<FailureMode>(mode);
  return {};
}

}  // namespace

std::string_view edge_condition_name(EdgeCondition edge) {
  switch (edge) {
    case EdgeCondition::one_edge_free:
      return "OEF";
    case EdgeCondition::no_edge_free:
      return "NEF";
  }
  return {};
}

std::string_view column_mode_name(ColumnMode mode) {
  return mode == ColumnMode::euler ? "Euler" : "Johnson";
}

BtRange fitted_range(EdgeCondition edge) {
  return edge == EdgeCondition::one_edge_free ? kOneEdgeFreeRange : kNoEdgeFreeRange;
}

float crippling_ratio(EdgeCondition edge, float b_over_t) {
  switch (edge) {
    case EdgeCondition::one_edge_free:
      return 1.63f * std::pow(b_over_t, -0.717f);
    case EdgeCondition::no_edge_free:
      return 11.0f * std::pow(b_over_t, -1.124f);
  }
  return 0.0f;
}

std::string CripplingStatus::message() const {
  if (ok()) return {};
  const std::string where =
      segment > 0 ? "Segment " + std::to_string(segment) + ": " : std::string();
  return "Error! " + where + detail + ".";
}

CripplingStatus CRIPPLINGSECTION::analyse(SectionCrippling& out) const {
  if (segments.empty())
    return refuse(CripplingError::bad_count, 0, "Section has no segment");
  if (!(column.length >= 0.0f) || !finite(column.length)) {
    return refuse(
        CripplingError::bad_column, 0,
        "Length " + shortest_text(column.length) + " is not 0 or a positive number");
  }
  if (!(column.fixity > 0.0f) || !finite(column.fixity)) {
    return refuse(CripplingError::bad_column, 0,
                  "End fixity coefficient " + shortest_text(column.fixity) +
                      " is not a positive number");
  }
  SectionCrippling r;
  r.segments.resize(segments.size());
  for (std::size_t i = 0; i < segments.size(); ++i) {
    const SectionSegment& s = segments[i];
    const auto number = static_cast<std::int32_t>(i + 1);
    if (std::string fault = segment_fault(s); !fault.empty()) {
      return refuse(CripplingError::bad_segment, number, fault);
    }
    if (s.laminate == nullptr || s.laminate->error) {
      return refuse(CripplingError::laminate_in_error, number, "laminate in error");
    }
    SegmentCrippling& c = r.segments[i];
    c.thickness = s.laminate->h;
    c.ex = s.laminate->Ex;
    c.fcu_given = s.fcu > 0.0f;
    c.fcu = s.fcu;
    if (!c.fcu_given) {
      const CripplingStatus fpf =
          first_ply_failure(*s.laminate, criterion, options, number, c);
      if (!fpf.ok()) return fpf;
    }
  }

  // Crippling of each segment and the weighted sums, segment by segment.
  float fcc_area = 0.0f, ea_y = 0.0f, ea_z = 0.0f;
  for (std::size_t i = 0; i < segments.size(); ++i) {
    const SectionSegment& s = segments[i];
    SegmentCrippling& c = r.segments[i];
    c.b_over_t = s.width / c.thickness;
    const float ratio = crippling_ratio(s.edge, c.b_over_t);
    c.capped = !(ratio < 1.0f);
    c.fcc = c.capped ? c.fcu : ratio * c.fcu;
    const BtRange range = fitted_range(s.edge);
    c.warning = c.b_over_t < range.low    ? RangeWarning::below
                : c.b_over_t > range.high ? RangeWarning::above
                                          : RangeWarning::none;
    r.warnings += c.warning == RangeWarning::none ? 0 : 1;
    const float area = s.width * c.thickness;
    const float ea = (c.ex * c.thickness) * s.width;
    r.area += area;
    r.ea += ea;
    fcc_area += c.fcc * area;
    ea_y += ea * s.y;
    ea_z += ea * s.z;
  }
  r.fcc = fcc_area / r.area;
  r.pcc = r.fcc * r.area;
  r.yc = ea_y / r.ea;
  r.zc = ea_z / r.ea;

  // Bending stiffness about the centroid: J = sum(Ku u u' + Kn n n' + EA d d'),
  // u along the width, n normal to the segment.
  float jyy = 0.0f, jzz = 0.0f, jyz = 0.0f;
  for (std::size_t i = 0; i < segments.size(); ++i) {
    const SectionSegment& s = segments[i];
    const SegmentCrippling& c = r.segments[i];
    const float ea = (c.ex * c.thickness) * s.width;
    const float ku = ea * (s.width * s.width) / 12.0f;
    const float kn = s.width / floor_at(s.laminate->d(1, 1), 1.0e-20f);
    const float cs = std::cos(radians(s.angle)), sn = std::sin(radians(s.angle));
    const float dy = s.y - r.yc, dz = s.z - r.zc;
    jyy += ku * (cs * cs) + kn * (sn * sn) + ea * (dy * dy);
    jzz += ku * (sn * sn) + kn * (cs * cs) + ea * (dz * dz);
    jyz += ku * (cs * sn) - kn * (sn * cs) + ea * (dy * dz);
  }
  // The least principal value as det/largest: no cancellation when the section's
  // axes are those of y and z (jyz = 0); divided first, so no product overflows.
  const float largest = 0.5f * (jyy + jzz) + std::hypot(0.5f * (jyy - jzz), jyz);
  r.ei_min = (jyy / largest) * jzz - (jyz / largest) * jyz;
  for (const float x : {r.area, r.ea, r.fcc, r.pcc, r.yc, r.zc, r.ei_min}) {
    if (!finite(x)) {
      return refuse(CripplingError::out_of_range, 0,
                    "Section results beyond the range of single precision");
    }
  }
  if (!(r.ei_min > 0.0f)) {
    return refuse(CripplingError::out_of_range, 0, "Section has no bending stiffness");
  }
  r.modulus = r.ea / r.area;
  r.rho = std::sqrt(r.ei_min / r.ea);

  r.effective_length = column.length / std::sqrt(column.fixity);
  r.slenderness = r.effective_length / r.rho;
  r.transition = std::sqrt(2.0f * kPiSquared * r.modulus / r.fcc);
  const float lambda2 = r.slenderness * r.slenderness;
  if (r.slenderness < r.transition) {
    r.column = ColumnMode::johnson;
    r.column_stress = r.fcc - (r.fcc * r.fcc) * lambda2 / (4.0f * kPiSquared * r.modulus);
  } else {
    r.column = ColumnMode::euler;
    r.column_stress = kPiSquared * r.modulus / lambda2;
  }
  r.column_load = r.column_stress * r.area;
  for (const float x :
       {r.modulus, r.rho, r.slenderness, r.column_stress, r.column_load}) {
    if (!finite(x)) {
      return refuse(CripplingError::out_of_range, 0,
                    "Section results beyond the range of single precision");
    }
  }
  out = std::move(r);
  return {};
}

std::string range_warning(const SectionCrippling& result,
                          std::span<const SectionSegment> segments) {
  for (std::size_t i = 0; i < result.segments.size() && i < segments.size(); ++i) {
    const SegmentCrippling& c = result.segments[i];
    if (c.warning == RangeWarning::none) continue;
    const BtRange range = fitted_range(segments[i].edge);
    return "Warning! Segment " + std::to_string(i + 1) +
           ": b/t = " + shortest_text(c.b_over_t) +
           (c.warning == RangeWarning::below ? " below" : " above") + " the range " +
           shortest_text(range.low) + " to " + shortest_text(range.high) + " of the " +
           std::string(edge_condition_name(segments[i].edge)) + " crippling relation.";
  }
  return {};
}

}  // namespace corvane
