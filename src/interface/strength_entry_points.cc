// LAMINATE_STRENGTH and BI_MATERIAL_LAMINATE_STRENGTH: first-ply failure of a
// laminate of one or two ply materials under many load cases;
// NOTCHED_LAMINATE_STRENGTH and IMPACT_LAMINATE_STRENGTH: its strength at a
// hole and after impact. Adapters: they read
// the host's variables and texts, build the laminate and its strength plan with
// the core once, evaluate every load case straight into the host's arrays and word
// a refusal as a message. SECTION_CRIPPLING: the crippling and column allowable of
// a section of laminate segments, one laminate built per segment.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "corvane/corvane_strength.h"
#include "crippling_sections/crippling_section.h"
#include "interface/host_texts.h"
#include "interface/null_arguments.h"
#include "laminas/criterion_code.h"
#include "laminas/lamina.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/impact_strength.h"
#include "laminates_stressed/laminate_stressed.h"
#include "laminates_stressed/notched_strength.h"
#include "util/fixed_width.h"
#include "util/keywords.h"
#include "util/number_reading.h"

namespace corvane {
namespace {

// The documented error codes.
enum Code : std::int32_t {
  kOk = 0,
  kInvalidMaterial = 1,
  kUnusableLaminate = 2,
  kUnknownCriterion = 3,
  kNotAvailable = 4,
  kStrengthMissing = 5,
  kNonFiniteLoad = 6,
  kNegativeCount = 7,
  kOutOfMemory = 8,
  kBadOption = 9,
  kPropertyRefused = 10,
  kModelUnusable = 11,
};

struct Outcome {
  std::int32_t code = kOk;
  std::string message;  // empty on success
};

// The host's material: the seven constants of the stiffness entry points, then
// the five strengths and the two allowable strains.
struct Material {
  float t, e1, e2, g12, nu12, cte1, cte2;
  float f1t, f1c, f2t, f2c, f12, uetall, uecall;
};

struct Results {
  float* rf;
  std::int32_t *ply, *surface, *mode;
};

// Why the material is refused, or an empty text. The material's own check
// first; negative strengths are refused here, missing ones (zero, not finite)
// only by a criterion that needs them.
std::string material_fault(const Material& m) {
  std::string fault = lamina_fault(m.t, m.e1, m.e2, m.g12, m.nu12, m.uetall, m.uecall);
  if (!fault.empty()) return fault;
  const std::array<std::pair<std::string_view, float>, 5> strengths = {
      {{"F1t", m.f1t}, {"F1c", m.f1c}, {"F2t", m.f2t}, {"F2c", m.f2c}, {"F12", m.f12}}};
  for (const auto& [name, value] : strengths) {
    if (value < 0.0f)
      return std::string(name) + " = " + shortest_text(value) + " is negative";
  }
  return {};
}

LAMINA ply_material(const Material& m) {
  LAMINA lamina = new_lamina(m.t, m.e1, m.e2, m.g12, m.nu12, m.uetall, m.uecall);
  lamina.CTE1 = m.cte1;
  lamina.CTE2 = m.cte2;
  lamina.set_strengths(m.f1t, m.f1c, m.f12, m.f2t, m.f2c);
  return lamina;
}

std::int32_t code_of(StrengthError error) {
  switch (error) {
    case StrengthError::none:
      return kOk;
    case StrengthError::laminate_in_error:
      return kUnusableLaminate;
    case StrengthError::unknown_criterion:
      return kUnknownCriterion;
    case StrengthError::criterion_not_available:
      return kNotAvailable;
    case StrengthError::strength_missing:
      return kStrengthMissing;
    case StrengthError::non_finite_load:
      return kNonFiniteLoad;
    case StrengthError::bad_option:
      return kBadOption;
    case StrengthError::damage_model_unusable:
      return kModelUnusable;
    case StrengthError::wrong_size:  // the arrays are sized here
      break;
  }
  return kOutOfMemory;
}

Outcome laminate_strength(std::span<const Material> m, std::string_view layup,
                          std::string_view criterion, const float* options,
                          std::int32_t ncases, const float* loads, const Results& out) {
  if (ncases < 0) {
    return {kNegativeCount,
            "Error! Number of load cases " + std::to_string(ncases) + " is negative."};
  }
  std::vector<LAMINA> materials;
  for (const Material& each : m) {
    materials.push_back(ply_material(each));
    if (materials.back().status != 0) {
      const std::string which =
          m.size() == 1 ? "" : " " + std::to_string(materials.size());
      return {kInvalidMaterial,
              "Error! Invalid ply material" + which + ": " + material_fault(each) + "."};
    }
  }
  std::vector<float> angles;
  std::vector<std::int32_t> material_index;
  StackingRefusal refusal;
  if (parse_stacking_sequence(layup, angles, m.size() == 1 ? nullptr : &material_index,
                              &refusal) != kStackingOk) {
    const std::string where =
        refusal.position == 0 ? "" : " at character " + std::to_string(refusal.position);
    return {kUnusableLaminate,
            "Error! Layup refused" + where + ": " + refusal.reason + "."};
  }
  const std::int32_t code = criterion_code(criterion);
  if (code == kNoCriterion) {
    const auto first = criterion.find_first_not_of(' ');
    const std::string_view name =
        first == std::string_view::npos
            ? std::string_view{}
            : criterion.substr(first, criterion.find_last_not_of(' ') - first + 1);
    return {kUnknownCriterion,
            "Error! Unknown failure criterion \"" + std::string(name) + "\"."};
  }

  const LAMINATESTRESSED laminate =
      m.size() == 1
          ? LAMINATESTRESSED(materials[0], angles)
          : LAMINATESTRESSED(materials[0], materials[1], angles, material_index);
  const std::int32_t criteria[] = {code};
  StrengthOptions chosen;
  chosen.tsai_wu_f12_star = options[0];
  chosen.puck = {options[1], options[2]};
  const StrengthPlan plan = laminate.strength_plan(criteria, chosen);
  const auto n = static_cast<std::size_t>(ncases);
  StrengthOutputs outputs;
  outputs.rf = {out.rf, n};
  outputs.ply = {out.ply, n};
  outputs.surface = {out.surface, n};
  outputs.mode = {out.mode, n};
  const StrengthStatus status = plan.evaluate({loads, n * kLoadCaseValues}, outputs);
  return {code_of(status.error), status.message()};
}

struct CripplingIn {
  std::int32_t nmaterials, nsegments;
  const float *materials, *geometry, *fcu, *options;
  const std::int32_t *edge, *material;
  const char *layups, *criterion;
  float length, fixity;
};
struct CripplingOut {
  float *thickness, *ex, *fcu, *fcc;
  std::int32_t* warning;
  float *area, *ea, *fcc_section, *pcc, *rho, *column_stress, *column_load;
  std::int32_t* column_mode;
};

Outcome section_crippling(const CripplingIn& in, const CripplingOut& out) {
  if (in.nmaterials < 1 || in.nsegments < 1) {
    const bool none = in.nmaterials < 1;
    return {static_cast<std::int32_t>(CripplingError::bad_count),
            "Error! Number of " + std::string(none ? "materials " : "segments ") +
                std::to_string(none ? in.nmaterials : in.nsegments) + " is below 1."};
  }
  const auto nm = static_cast<std::size_t>(in.nmaterials);
  const auto ns = static_cast<std::size_t>(in.nsegments);
  std::vector<LAMINA> materials;
  materials.reserve(nm);
  for (std::size_t k = 0; k < nm; ++k) {
    const float* v = in.materials + k * CORVANE_CRIPPLING_MATERIAL_VALUES;
    const Material m{v[0], v[1], v[2], v[3],  v[4],  v[5],  v[6],
                     v[7], v[8], v[9], v[10], v[11], v[12], v[13]};
    materials.push_back(ply_material(m));
    if (materials.back().status != 0) {
      return {kInvalidMaterial, "Error! Invalid ply material " + std::to_string(k + 1) +
                                    ": " + material_fault(m) + "."};
    }
  }
  std::vector<std::vector<float>> angles(ns);
  for (std::size_t i = 0; i < ns; ++i) {
    const std::string segment = "Error! Segment " + std::to_string(i + 1) + ": ";
    if (in.material[i] < 1 || in.material[i] > in.nmaterials) {
      return {static_cast<std::int32_t>(CripplingError::bad_segment),
              segment + "material " + std::to_string(in.material[i]) +
                  " is not one of 1 to " + std::to_string(in.nmaterials) + "."};
    }
    StackingRefusal refusal;
    const std::string_view layup = host_text(
        in.layups + i * CORVANE_STRENGTH_LAYUP_LENGTH, CORVANE_STRENGTH_LAYUP_LENGTH);
    if (parse_stacking_sequence(layup, angles[i], nullptr, &refusal) != kStackingOk) {
      const std::string where = refusal.position == 0
                                    ? ""
                                    : " at character " + std::to_string(refusal.position);
      return {kUnusableLaminate,
              segment + "layup refused" + where + ": " + refusal.reason + "."};
    }
  }
  const std::string_view criterion =
      host_text(in.criterion, CORVANE_STRENGTH_CRITERION_LENGTH);
  const std::int32_t code = criterion_code(criterion);
  if (code == kNoCriterion) {
    const auto first = criterion.find_first_not_of(' ');
    const std::string_view name =
        first == std::string_view::npos
            ? std::string_view{}
            : criterion.substr(first, criterion.find_last_not_of(' ') - first + 1);
    return {kUnknownCriterion,
            "Error! Unknown failure criterion \"" + std::string(name) + "\"."};
  }

  std::vector<LAMINATESTRESSED> laminates;
  laminates.reserve(ns);  // the segments point into it
  CRIPPLINGSECTION section;
  section.criterion = code;
  section.options.tsai_wu_f12_star = in.options[0];
  section.options.puck = {in.options[1], in.options[2]};
  section.column = {in.length, in.fixity};
  for (std::size_t i = 0; i < ns; ++i) {
    laminates.emplace_back(materials[static_cast<std::size_t>(in.material[i] - 1)],
                           angles[i]);
    const float* g = in.geometry + i * CORVANE_CRIPPLING_GEOMETRY_VALUES;
    section.segments.push_back({g[0], g[1], g[2], g[3],
                                static_cast<EdgeCondition>(in.edge[i]), &laminates.back(),
                                in.fcu[i]});
  }
  SectionCrippling r;
  const CripplingStatus status = section.analyse(r);
  if (!status.ok()) return {static_cast<std::int32_t>(status.error), status.message()};
  for (std::size_t i = 0; i < ns; ++i) {
    const SegmentCrippling& c = r.segments[i];
    out.thickness[i] = c.thickness;
    out.ex[i] = c.ex;
    out.fcu[i] = c.fcu;
    out.fcc[i] = c.fcc;
    out.warning[i] = static_cast<std::int32_t>(c.warning);
  }
  *out.area = r.area;
  *out.ea = r.ea;
  *out.fcc_section = r.fcc;
  *out.pcc = r.pcc;
  *out.rho = r.rho;
  *out.column_stress = r.column_stress;
  *out.column_load = r.column_load;
  *out.column_mode = static_cast<std::int32_t>(r.column);
  return {kOk, range_warning(r, section.segments)};
}

// Runs the analysis and writes its outcome: no exception leaves here.
void run(std::span<const Material> m, const char* layup, const char* criterion,
         const float* options, std::int32_t ncases, const float* loads,
         const Results& out, char* message, std::int32_t* ierr) {
  write_outcome(
      [&] {
        return laminate_strength(m, host_text(layup, CORVANE_STRENGTH_LAYUP_LENGTH),
                                 host_text(criterion, CORVANE_STRENGTH_CRITERION_LENGTH),
                                 options, ncases, loads, out);
      },
      message, CORVANE_STRENGTH_MESSAGE_LENGTH, ierr, kOutOfMemory);
}

// The material of the notched and impact entry points: the constants, the
// unnotched allowables and the property text.
struct KeyedMaterial {
  float t, e1, e2, g12, nu12, tension, compression;
  std::string_view properties;
};

// The host's keyed material, read in the argument order both entry points share.
KeyedMaterial host_keyed_material(const float* t, const float* e1, const float* e2,
                                  const float* g12, const float* nu12,
                                  const float* tension, const float* compression,
                                  const char* properties) {
  return {*t,           *e1,
          *e2,          *g12,
          *nu12,        *tension,
          *compression, host_text(properties, CORVANE_STRENGTH_PROPERTIES_LENGTH)};
}

// Builds the material and applies its properties in order; the notched
// strengths are refused when no characteristic distance follows from them.
Outcome keyed_material(const KeyedMaterial& k, LAMINA& m) {
  m = new_lamina(k.t, k.e1, k.e2, k.g12, k.nu12, k.tension, k.compression);
  if (m.status != 0) {
    return {kInvalidMaterial,
            "Error! Invalid ply material: " +
                lamina_fault(k.t, k.e1, k.e2, k.g12, k.nu12, k.tension, k.compression) +
                "."};
  }
  if (std::string fault = set_properties(m, k.properties); !fault.empty()) {
    fault[0] = 'P';
    return {kPropertyRefused, "Error! " + fault + "."};
  }
  return {};
}

// The common start of the notched and impact calls: material, layup, count.
Outcome keyed_laminate(const KeyedMaterial& k, std::string_view layup,
                       std::int32_t ncases, std::optional<LAMINATESTRESSED>& laminate) {
  if (ncases < 0) {
    return {kNegativeCount,
            "Error! Number of load cases " + std::to_string(ncases) + " is negative."};
  }
  LAMINA material;
  if (Outcome outcome = keyed_material(k, material); outcome.code != kOk) return outcome;
  std::vector<float> angles;
  StackingRefusal refusal;
  if (parse_stacking_sequence(layup, angles, nullptr, &refusal) != kStackingOk) {
    const std::string where =
        refusal.position == 0 ? "" : " at character " + std::to_string(refusal.position);
    return {kUnusableLaminate,
            "Error! Layup refused" + where + ": " + refusal.reason + "."};
  }
  laminate.emplace(material, angles);
  return {};
}

std::string_view trimmed_keyword(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

Outcome notched_strength(const KeyedMaterial& k, std::string_view layup,
                         std::string_view check, float hole_diameter, std::int32_t ncases,
                         const float* loads, const float* fastener_loads, float* rf) {
  std::optional<LAMINATESTRESSED> laminate;
  if (Outcome outcome = keyed_laminate(k, layup, ncases, laminate); outcome.code != kOk) {
    return outcome;
  }
  std::vector<NotchCheck> checks;
  if (normalize_keyword(check) == "ALL") {
    for (std::int32_t c = 1; c <= static_cast<std::int32_t>(kNotchChecks); ++c) {
      checks.push_back(static_cast<NotchCheck>(c));
    }
  } else if (const auto one = notch_check(check)) {
    checks.push_back(*one);
  } else {
    return {kUnknownCriterion, "Error! Unknown notch check \"" +
                                   std::string(trimmed_keyword(check)) +
                                   "\": OHT, OHC, FHT, FHC, BEARING or ALL."};
  }
  const NotchedPlan plan(*laminate, checks, hole_diameter);
  const auto n = static_cast<std::size_t>(ncases);
  const StrengthStatus status = plan.evaluate(
      {loads, n * kLoadCaseValues}, {fastener_loads, n}, {rf, n * checks.size()});
  return {code_of(status.error), status.message()};
}

Outcome impact_strength(const KeyedMaterial& k, std::string_view layup,
                        std::string_view model_text, float u, float energy,
                        std::int32_t ncases, const float* loads, float* rf) {
  std::optional<LAMINATESTRESSED> laminate;
  if (Outcome outcome = keyed_laminate(k, layup, ncases, laminate); outcome.code != kOk) {
    return outcome;
  }
  if (!(u > 0.0f) || !std::isfinite(u)) {
    return {kBadOption, "Error! Option unit factor out of range."};
  }
  const bool with_model = !trimmed_keyword(model_text).empty();
  if (with_model) {
    CDTMODEL& model = laminate->materials[0].cdt_model;
    if (read_cdt_model_text(model_text, u, model) != 0 || model.status != 0) {
      return {kModelUnusable, "Error! Damage model \"" +
                                  std::string(trimmed_keyword(model_text)) +
                                  "\" not usable: CDTM-T03 to CDTM-T06 with all their "
                                  "coefficients."};
    }
  }
  const ImpactPlan plan(*laminate, energy, with_model);
  const auto n = static_cast<std::size_t>(ncases);
  if (with_model || !plan.status().ok()) {
    const StrengthStatus status =
        plan.evaluate({loads, n * kLoadCaseValues}, {rf, n * kImpactChecks});
    return {code_of(status.error), status.message()};
  }
  // No model: the third value of each case is left as the caller had it.
  std::vector<float> two(n * 2);
  const StrengthStatus status = plan.evaluate({loads, n * kLoadCaseValues}, two);
  if (status.ok()) {
    for (std::size_t i = 0; i < n; ++i) {
      rf[i * kImpactChecks] = two[i * 2];
      rf[i * kImpactChecks + 1] = two[i * 2 + 1];
    }
  }
  return {code_of(status.error), status.message()};
}

}  // namespace
}  // namespace corvane

extern "C" {

// The hidden lengths are deliberately ignored: the texts always have the
// lengths of corvane_strength.h.
CORVANE_STRENGTH_API void LAMINATE_STRENGTH(
    const float* t, const float* e1, const float* e2, const float* g12, const float* nu12,
    const float* cte1, const float* cte2, const float* f1t, const float* f1c,
    const float* f2t, const float* f2c, const float* f12, const float* uetall,
    const float* uecall, const char* layup, int64_t /*layup_length*/,
    const char* criterion, int64_t /*criterion_length*/, const float* options,
    const int32_t* ncases, const float* loads, float* rf, int32_t* ply, int32_t* surface,
    int32_t* mode, char* message, int64_t /*message_length*/, int32_t* ierr) {
  using namespace corvane;
  if (null_argument(ierr, t, e1, e2, g12, nu12, cte1, cte2, f1t, f1c, f2t, f2c, f12,
                    uetall, uecall, layup, criterion, options, ncases, loads, rf, ply,
                    surface, mode, message)) {
    return;
  }
  const Material m[] = {{*t, *e1, *e2, *g12, *nu12, *cte1, *cte2, *f1t, *f1c, *f2t, *f2c,
                         *f12, *uetall, *uecall}};
  run(m, layup, criterion, options, *ncases, loads, {rf, ply, surface, mode}, message,
      ierr);
}

CORVANE_STRENGTH_API void BI_MATERIAL_LAMINATE_STRENGTH(
    const float* t_1, const float* e1_1, const float* e2_1, const float* g12_1,
    const float* nu12_1, const float* cte1_1, const float* cte2_1, const float* f1t_1,
    const float* f1c_1, const float* f2t_1, const float* f2c_1, const float* f12_1,
    const float* uetall_1, const float* uecall_1, const float* t_2, const float* e1_2,
    const float* e2_2, const float* g12_2, const float* nu12_2, const float* cte1_2,
    const float* cte2_2, const float* f1t_2, const float* f1c_2, const float* f2t_2,
    const float* f2c_2, const float* f12_2, const float* uetall_2, const float* uecall_2,
    const char* layup, int64_t /*layup_length*/, const char* criterion,
    int64_t /*criterion_length*/, const float* options, const int32_t* ncases,
    const float* loads, float* rf, int32_t* ply, int32_t* surface, int32_t* mode,
    char* message, int64_t /*message_length*/, int32_t* ierr) {
  using namespace corvane;
  if (null_argument(ierr, t_1, e1_1, e2_1, g12_1, nu12_1, cte1_1, cte2_1, f1t_1, f1c_1,
                    f2t_1, f2c_1, f12_1, uetall_1, uecall_1, t_2, e1_2, e2_2, g12_2,
                    nu12_2, cte1_2, cte2_2, f1t_2, f1c_2, f2t_2, f2c_2, f12_2, uetall_2,
                    uecall_2, layup, criterion, options, ncases, loads, rf, ply, surface,
                    mode, message)) {
    return;
  }
  const Material m[] = {{*t_1, *e1_1, *e2_1, *g12_1, *nu12_1, *cte1_1, *cte2_1, *f1t_1,
                         *f1c_1, *f2t_1, *f2c_1, *f12_1, *uetall_1, *uecall_1},
                        {*t_2, *e1_2, *e2_2, *g12_2, *nu12_2, *cte1_2, *cte2_2, *f1t_2,
                         *f1c_2, *f2t_2, *f2c_2, *f12_2, *uetall_2, *uecall_2}};
  run(m, layup, criterion, options, *ncases, loads, {rf, ply, surface, mode}, message,
      ierr);
}

CORVANE_STRENGTH_API void SECTION_CRIPPLING(
    const int32_t* nmaterials, const float* materials, const int32_t* nsegments,
    const float* geometry, const int32_t* edge, const int32_t* material, const float* fcu,
    const char* layups, int64_t /*layups_length*/, const char* criterion,
    int64_t /*criterion_length*/, const float* options, const float* length,
    const float* fixity, float* thickness, float* ex, float* fcu_used, float* fcc,
    int32_t* warning, float* area, float* ea, float* fcc_section, float* pcc, float* rho,
    float* column_stress, float* column_load, int32_t* column_mode, char* message,
    int64_t /*message_length*/, int32_t* ierr) {
  using namespace corvane;
  if (null_argument(ierr, nmaterials, materials, nsegments, geometry, edge, material, fcu,
                    layups, criterion, options, length, fixity, thickness, ex, fcu_used,
                    fcc, warning, area, ea, fcc_section, pcc, rho, column_stress,
                    column_load, column_mode, message)) {
    return;
  }
  const CripplingIn in{*nmaterials, *nsegments, materials, geometry,  fcu,     options,
                       edge,        material,   layups,    criterion, *length, *fixity};
  const CripplingOut out{thickness,     ex,          fcu_used,    fcc, warning,
                         area,          ea,          fcc_section, pcc, rho,
                         column_stress, column_load, column_mode};
  write_outcome([&] { return section_crippling(in, out); }, message,
                CORVANE_STRENGTH_MESSAGE_LENGTH, ierr, kOutOfMemory);
}

CORVANE_STRENGTH_API void NOTCHED_LAMINATE_STRENGTH(
    const float* t, const float* e1, const float* e2, const float* g12, const float* nu12,
    const float* tension_allowable, const float* compression_allowable,
    const char* properties, int64_t /*properties_length*/, const char* layup,
    int64_t /*layup_length*/, const char* check, int64_t /*check_length*/,
    const float* hole_diameter, const int32_t* ncases, const float* loads,
    const float* fastener_loads, float* rf, char* message, int64_t /*message_length*/,
    int32_t* ierr) {
  using namespace corvane;
  if (null_argument(ierr, t, e1, e2, g12, nu12, tension_allowable, compression_allowable,
                    properties, layup, check, hole_diameter, ncases, loads,
                    fastener_loads, rf, message)) {
    return;
  }
  const KeyedMaterial m = host_keyed_material(t, e1, e2, g12, nu12, tension_allowable,
                                              compression_allowable, properties);
  write_outcome(
      [&] {
        return notched_strength(m, host_text(layup, CORVANE_STRENGTH_LAYUP_LENGTH),
                                host_text(check, CORVANE_STRENGTH_CRITERION_LENGTH),
                                *hole_diameter, *ncases, loads, fastener_loads, rf);
      },
      message, CORVANE_STRENGTH_MESSAGE_LENGTH, ierr, kOutOfMemory);
}

CORVANE_STRENGTH_API void IMPACT_LAMINATE_STRENGTH(
    const float* t, const float* e1, const float* e2, const float* g12, const float* nu12,
    const float* tension_allowable, const float* compression_allowable,
    const char* properties, int64_t /*properties_length*/, const char* layup,
    int64_t /*layup_length*/, const char* damage_model, int64_t /*damage_model_length*/,
    const float* unit_factor, const float* energy, const int32_t* ncases,
    const float* loads, float* rf, char* message, int64_t /*message_length*/,
    int32_t* ierr) {
  using namespace corvane;
  if (null_argument(ierr, t, e1, e2, g12, nu12, tension_allowable, compression_allowable,
                    properties, layup, damage_model, unit_factor, energy, ncases, loads,
                    rf, message)) {
    return;
  }
  const KeyedMaterial m = host_keyed_material(t, e1, e2, g12, nu12, tension_allowable,
                                              compression_allowable, properties);
  write_outcome(
      [&] {
        return impact_strength(m, host_text(layup, CORVANE_STRENGTH_LAYUP_LENGTH),
                               host_text(damage_model, CORVANE_STRENGTH_MODEL_LENGTH),
                               *unit_factor, *energy, *ncases, loads, rf);
      },
      message, CORVANE_STRENGTH_MESSAGE_LENGTH, ierr, kOutOfMemory);
}

}  // extern "C"
