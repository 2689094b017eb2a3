#include "laminate_call.h"

#include <algorithm>
#include <vector>

#include "corvane/corvane.h"
#include "corvane/corvane_strength.h"
#include "laminas/lamina.h"
#include "laminates/stacking_sequence.h"

namespace corvane::cli {

StiffnessResult laminate_stiffness(const PlyMaterial& material,
                                   const std::optional<PlyMaterial>& second,
                                   std::string_view layup) {
  std::string layup_text(layup);
  layup_text.resize(CORVANE_LAYUP_LENGTH, ' ');
  std::string cards(CORVANE_CARDS_LENGTH, ' ');
  StiffnessResult r;
  std::int32_t symmetric = 0;
  const PlyMaterial& m = material;
  if (second) {
    const PlyMaterial& m2 = *second;
    r.entry_point = "BI_MATERIAL_LAMINATE_STIFFNESS";
    BI_MATERIAL_LAMINATE_STIFFNESS(
        &m.t, &m.e1, &m.e2, &m.g12, &m.nu12, &m.cte1, &m.cte2, &m2.t, &m2.e1, &m2.e2,
        &m2.g12, &m2.nu12, &m2.cte1, &m2.cte2, layup_text.data(), CORVANE_LAYUP_LENGTH,
        &symmetric, r.a.data(), r.b.data(), r.d.data(), r.dstar.data(), &r.h, &r.ex,
        &r.ey, &r.gxy, &r.nuxy, &r.alphax, &r.alphay, &r.alphaxy, &r.plies, cards.data(),
        CORVANE_CARDS_LENGTH, &r.error_code);
  } else {
    r.entry_point = "LAMINATE_STIFFNESS";
    LAMINATE_STIFFNESS(&m.t, &m.e1, &m.e2, &m.g12, &m.nu12, &m.cte1, &m.cte2,
                       layup_text.data(), CORVANE_LAYUP_LENGTH, &symmetric, r.a.data(),
                       r.b.data(), r.d.data(), r.dstar.data(), &r.h, &r.ex, &r.ey, &r.gxy,
                       &r.nuxy, &r.alphax, &r.alphay, &r.alphaxy, &r.plies, cards.data(),
                       CORVANE_CARDS_LENGTH, &r.error_code);
  }
  r.symmetric = symmetric != 0;
  if (r.error_code == 0) {
    const auto last = cards.find_last_not_of(' ');
    cards.resize(last == std::string::npos ? 0 : last + 1);
    r.cards = std::move(cards);
  }
  return r;
}

SolverDeckResult solver_deck(const PlyMaterial& material, const MaterialStrengths& s,
                             const std::optional<PlyMaterial>& second,
                             const MaterialStrengths& s2, std::string_view layup,
                             bool crlf) {
  std::string layup_text(layup);
  layup_text.resize(CORVANE_STRENGTH_LAYUP_LENGTH, ' ');
  std::string deck(CORVANE_SOLVER_DECK_LENGTH, ' ');
  std::string message(CORVANE_STRENGTH_MESSAGE_LENGTH, ' ');
  const std::int32_t line_ends = crlf ? -1 : 0;
  std::int32_t length = 0;
  SolverDeckResult r;
  const PlyMaterial& m = material;
  if (second) {
    const PlyMaterial& m2 = *second;
    r.entry_point = "BI_MATERIAL_LAMINATE_SOLVER_DECK";
    BI_MATERIAL_LAMINATE_SOLVER_DECK(
        &m.t, &m.e1, &m.e2, &m.g12, &m.nu12, &m.cte1, &m.cte2, &s.f1t, &s.f1c, &s.f2t,
        &s.f2c, &s.f12, &m2.t, &m2.e1, &m2.e2, &m2.g12, &m2.nu12, &m2.cte1, &m2.cte2,
        &s2.f1t, &s2.f1c, &s2.f2t, &s2.f2c, &s2.f12, layup_text.data(),
        CORVANE_STRENGTH_LAYUP_LENGTH, &line_ends, deck.data(),
        CORVANE_SOLVER_DECK_LENGTH, &length, message.data(),
        CORVANE_STRENGTH_MESSAGE_LENGTH, &r.error_code);
  } else {
    r.entry_point = "LAMINATE_SOLVER_DECK";
    LAMINATE_SOLVER_DECK(&m.t, &m.e1, &m.e2, &m.g12, &m.nu12, &m.cte1, &m.cte2, &s.f1t,
                         &s.f1c, &s.f2t, &s.f2c, &s.f12, layup_text.data(),
                         CORVANE_STRENGTH_LAYUP_LENGTH, &line_ends, deck.data(),
                         CORVANE_SOLVER_DECK_LENGTH, &length, message.data(),
                         CORVANE_STRENGTH_MESSAGE_LENGTH, &r.error_code);
  }
  if (r.error_code == 0) {
    deck.resize(
        static_cast<std::size_t>(std::clamp(length, 0, CORVANE_SOLVER_DECK_LENGTH)));
    r.deck = std::move(deck);
  } else {
    message.erase(message.find_last_not_of(' ') + 1);
    if (message.rfind("Error! ", 0) == 0) message.erase(0, 7);
    if (!message.empty() && message.back() == '.') message.pop_back();
    r.message = std::move(message);
  }
  return r;
}

std::string solver_deck_error_meaning(std::int32_t code) {
  switch (code) {
    case 3:
      return "a value of the deck is not finite";
    case 8:
      return "memory exhausted";
    default:
      return stiffness_error_meaning(code);
  }
}

std::string stiffness_error_meaning(std::int32_t code) {
  switch (code) {
    case 0:
      return "success";
    case 1:
      return "invalid ply material";
    case 2:
      return "stacking sequence refused or laminate unusable";
    default:
      return "unknown error";
  }
}

std::string material_problem(const PlyMaterial& m) {
  return lamina_fault(m.t, m.e1, m.e2, m.g12, m.nu12);
}

std::string layup_problem(std::string_view layup) {
  std::vector<float> angles;
  StackingRefusal refusal;
  if (parse_stacking_sequence(layup, angles, nullptr, &refusal) == kStackingOk) return {};
  std::string what = "the layup \"" + std::string(layup) + "\" is refused";
  if (refusal.position != 0) what += " at character " + std::to_string(refusal.position);
  return what + ": " + refusal.reason;
}

bool uses_second_material(std::string_view layup) {
  std::vector<float> angles;
  std::vector<std::int32_t> materials;
  parse_stacking_sequence(layup, angles, &materials);
  return std::find(materials.begin(), materials.end(), 2) != materials.end();
}

}  // namespace corvane::cli
