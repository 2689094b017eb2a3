// LAMINATE_SOLVER_DECK and BI_MATERIAL_LAMINATE_SOLVER_DECK: the solver deck of a
// laminate of one or two ply materials. Adapters: they read the host's variables
// and layup, build the laminate with the core, write the deck into the host's
// buffer and word a refusal as a message.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cards/solver_deck.h"
#include "corvane/corvane_strength.h"
#include "interface/host_texts.h"
#include "interface/null_arguments.h"
#include "laminas/lamina.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stiffness/laminate_stiffness.h"
#include "util/fixed_width.h"

namespace corvane {
namespace {

enum Code : std::int32_t {
  kOk = 0,
  kInvalidMaterial = 1,
  kUnusableLaminate = 2,
  kNotFinite = 3,
  kOutOfMemory = 8,
};

// The host's material: the seven constants of the stiffness entry points and
// the five strengths.
struct Material {
  float t, e1, e2, g12, nu12, cte1, cte2;
  float f1t, f1c, f2t, f2c, f12;
};

struct Outcome {
  std::int32_t code = kOk;
  std::string message;  // empty on success
  std::string deck;
};

// Why the material is refused, or an empty text.
std::string material_fault(const Material& m) {
  std::string fault = lamina_fault(m.t, m.e1, m.e2, m.g12, m.nu12);
  if (!fault.empty()) return fault;
  const std::array<std::pair<std::string_view, float>, 5> strengths = {
      {{"F1t", m.f1t}, {"F1c", m.f1c}, {"F2t", m.f2t}, {"F2c", m.f2c}, {"F12", m.f12}}};
  for (const auto& [name, value] : strengths) {
    if (value < 0.0f)
      return std::string(name) + " = " + shortest_text(value) + " is negative";
  }
  return {};
}

// The allowables of the stiffness entry points: they fill no field of this deck.
LAMINA ply_material(const Material& m) {
  LAMINA lamina = new_lamina(m.t, m.e1, m.e2, m.g12, m.nu12, 1000.0f, 1000.0f);
  lamina.CTE1 = m.cte1;
  lamina.CTE2 = m.cte2;
  lamina.set_strengths(m.f1t, m.f1c, m.f12, m.f2t, m.f2c);
  return lamina;
}

Outcome laminate_deck(std::span<const Material> m, std::string_view layup,
                      LineEnd line_end) {
  std::vector<LAMINA> materials;
  for (const Material& each : m) {
    materials.push_back(ply_material(each));
    if (materials.back().status != 0) {
      const std::string which =
          m.size() == 1 ? "" : " " + std::to_string(materials.size());
      return {kInvalidMaterial,
              "Error! Invalid ply material" + which + ": " + material_fault(each) + ".",
              {}};
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
            "Error! Layup refused" + where + ": " + refusal.reason + ".",
            {}};
  }
  const LAMINATESTIFFNESS laminate =
      m.size() == 1
          ? LAMINATESTIFFNESS(materials[0], angles)
          : LAMINATESTIFFNESS(materials[0], materials[1], angles, material_index);
  if (laminate.error) {
    return {kUnusableLaminate,
            "Error! Laminate in error: its stiffness could not be computed.",
            {}};
  }
  SolverDeck deck = solver_deck(laminate, line_end);
  if (!deck.fault.empty()) return {kNotFinite, "Error! No deck: " + deck.fault + ".", {}};
  if (deck.text.size() > CORVANE_SOLVER_DECK_LENGTH) {
    return {kNotFinite, "Error! No deck: longer than its buffer.", {}};
  }
  return {kOk, {}, std::move(deck.text)};
}

// Runs the deck and writes its outcome.
void run(std::span<const Material> m, const char* layup, std::int32_t crlf, char* deck,
         std::int32_t* length, char* message, std::int32_t* ierr) {
  write_outcome(
      [&] {
        Outcome outcome =
            laminate_deck(m, host_text(layup, CORVANE_STRENGTH_LAYUP_LENGTH),
                          crlf == 0 ? LineEnd::lf : LineEnd::crlf);
        if (outcome.code == kOk) {
          write_text(outcome.deck, deck, CORVANE_SOLVER_DECK_LENGTH);
          *length = static_cast<std::int32_t>(outcome.deck.size());
        }
        return outcome;
      },
      message, CORVANE_STRENGTH_MESSAGE_LENGTH, ierr, kOutOfMemory);
}

}  // namespace
}  // namespace corvane

extern "C" {

// The hidden lengths are deliberately ignored: the texts always have the
// lengths of corvane_strength.h.
CORVANE_STRENGTH_API void LAMINATE_SOLVER_DECK(
    const float* t, const float* e1, const float* e2, const float* g12, const float* nu12,
    const float* cte1, const float* cte2, const float* f1t, const float* f1c,
    const float* f2t, const float* f2c, const float* f12, const char* layup,
    int64_t /*layup_length*/, const int32_t* crlf, char* deck, int64_t /*deck_length*/,
    int32_t* length, char* message, int64_t /*message_length*/, int32_t* ierr) {
  using namespace corvane;
  if (null_argument(ierr, t, e1, e2, g12, nu12, cte1, cte2, f1t, f1c, f2t, f2c, f12,
                    layup, crlf, deck, length, message)) {
    return;
  }
  const Material m[] = {
      {*t, *e1, *e2, *g12, *nu12, *cte1, *cte2, *f1t, *f1c, *f2t, *f2c, *f12}};
  run(m, layup, *crlf, deck, length, message, ierr);
}

CORVANE_STRENGTH_API void BI_MATERIAL_LAMINATE_SOLVER_DECK(
    const float* t_1, const float* e1_1, const float* e2_1, const float* g12_1,
    const float* nu12_1, const float* cte1_1, const float* cte2_1, const float* f1t_1,
    const float* f1c_1, const float* f2t_1, const float* f2c_1, const float* f12_1,
    const float* t_2, const float* e1_2, const float* e2_2, const float* g12_2,
    const float* nu12_2, const float* cte1_2, const float* cte2_2, const float* f1t_2,
    const float* f1c_2, const float* f2t_2, const float* f2c_2, const float* f12_2,
    const char* layup, int64_t /*layup_length*/, const int32_t* crlf, char* deck,
    int64_t /*deck_length*/, int32_t* length, char* message, int64_t /*message_length*/,
    int32_t* ierr) {
  using namespace corvane;
  if (null_argument(ierr, t_1, e1_1, e2_1, g12_1, nu12_1, cte1_1, cte2_1, f1t_1, f1c_1,
                    f2t_1, f2c_1, f12_1, t_2, e1_2, e2_2, g12_2, nu12_2, cte1_2, cte2_2,
                    f1t_2, f1c_2, f2t_2, f2c_2, f12_2, layup, crlf, deck, length,
                    message)) {
    return;
  }
  const Material m[] = {{*t_1, *e1_1, *e2_1, *g12_1, *nu12_1, *cte1_1, *cte2_1, *f1t_1,
                         *f1c_1, *f2t_1, *f2c_1, *f12_1},
                        {*t_2, *e1_2, *e2_2, *g12_2, *nu12_2, *cte1_2, *cte2_2, *f1t_2,
                         *f1c_2, *f2t_2, *f2c_2, *f12_2}};
  run(m, layup, *crlf, deck, length, message, ierr);
}

}  // extern "C"
