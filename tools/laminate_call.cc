#include "laminate_call.h"

#include <algorithm>
#include <vector>

#include "corvane/corvane.h"
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
