// The laminate behind LAMINATE_STIFFNESS and BI_MATERIAL_LAMINATE_STIFFNESS:
// built from the host's constants and stacking text, its results and cards
// copied back.
#include "interface/laminate_stiffness_call.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "cards/bulk_data_cards.h"
#include "corvane/corvane.h"
#include "laminas/lamina.h"
#include "laminates/stacking_sequence.h"
#include "laminates_stressed/laminate_stressed.h"
#include "util/matrix3.h"

namespace corvane {
namespace {

constexpr std::int32_t kOk = 0;
constexpr std::int32_t kInvalidMaterial = 1;
constexpr std::int32_t kUnusableLaminate = 2;  // refused layup, failed stiffness

// Every ply material is built with 1000.0 as tension and compression allowable,
// which reads as a strength, and without a name.
constexpr float kAllowable = 1000.0f;

LAMINA ply_material(const PlyConstants& c) {
  LAMINA m = new_lamina(c.t, c.e1, c.e2, c.g12, c.nu12, kAllowable, kAllowable);
  m.CTE1 = c.cte1;
  m.CTE2 = c.cte2;
  return m;
}

// The stacking sequence always spans CORVANE_LAYUP_LENGTH characters; the parser
// ends it at a C host's zero byte.
std::string_view layup_text(const char* buffer) { return {buffer, CORVANE_LAYUP_LENGTH}; }

void copy_matrix(const Matrix3& m, float* out) { std::copy(m.v.begin(), m.v.end(), out); }

// Zeroes [A], [B], [D] and the eight scalars after them.
void zero_matrices_and_constants(const StiffnessOutputs& r) {
  std::fill_n(r.a, 9, 0.0f);
  std::fill_n(r.b, 9, 0.0f);
  std::fill_n(r.d, 9, 0.0f);
  for (float* x : {r.h, r.ex, r.ey, r.gxy, r.nuxy, r.alphax, r.alphay, r.alphaxy}) {
    *x = 0.0f;
  }
}

// Copies the laminate's results and its cards to the host, or writes nothing and
// reports an unusable laminate. The deck is rendered before anything is copied,
// so a failure there leaves the host's variables as they were.
std::int32_t publish(const LAMINATESTRESSED& laminate, const StiffnessOutputs& r) {
  if (laminate.error) return kUnusableLaminate;
  const std::string deck = bulk_data_cards(laminate);

  *r.symmetric = laminate.symmetric ? -1 : 0;
  copy_matrix(laminate.A, r.a);
  copy_matrix(laminate.B, r.b);
  copy_matrix(laminate.D, r.d);
  copy_matrix(laminate.Dstar, r.dstar);
  *r.h = laminate.h;
  *r.ex = laminate.Ex;
  *r.ey = laminate.Ey;
  *r.gxy = laminate.Gxy;
  *r.nuxy = laminate.nuxy;
  *r.alphax = laminate.alphax;
  *r.alphay = laminate.alphay;
  *r.alphaxy = laminate.alphaxy;
  *r.plies = laminate.nplies;

  // Exactly CORVANE_CARDS_LENGTH characters: the deck cut or blank padded.
  const std::size_t n = std::min(deck.size(), std::size_t{CORVANE_CARDS_LENGTH});
  std::memcpy(r.cards, deck.data(), n);
  std::memset(r.cards + n, ' ', CORVANE_CARDS_LENGTH - n);
  return kOk;
}

std::int32_t single_material(const PlyConstants& constants, const char* layup,
                             const StiffnessOutputs& r) {
  const LAMINA material = ply_material(constants);
  if (material.status != 0) return kInvalidMaterial;
  std::vector<float> angles;
  if (parse_stacking_sequence(layup_text(layup), angles) != kStackingOk) {
    return kUnusableLaminate;
  }
  return publish(LAMINATESTRESSED(material, angles), r);
}

std::int32_t two_materials(const PlyConstants& first, const PlyConstants& second,
                           const char* layup, const StiffnessOutputs& r) {
  const LAMINA m1 = ply_material(first);
  if (m1.status != 0) return kInvalidMaterial;
  const LAMINA m2 = ply_material(second);
  if (m2.status != 0) return kInvalidMaterial;
  std::vector<float> angles;
  std::vector<std::int32_t> material_index;
  if (parse_stacking_sequence(layup_text(layup), angles, &material_index) !=
      kStackingOk) {
    return kUnusableLaminate;
  }
  return publish(LAMINATESTRESSED(m1, m2, angles, material_index), r);
}

}  // namespace

std::int32_t laminate_stiffness_call(const PlyConstants& material, const char* layup,
                                     const StiffnessOutputs& out) {
  // The symmetric flag, [D*], the ply count and the cards keep the host's
  // values until the laminate has succeeded.
  zero_matrices_and_constants(out);
  try {
    return single_material(material, layup, out);
  } catch (...) {
    // Only an exhausted memory can get here, before any result was copied.
    return kUnusableLaminate;
  }
}

std::int32_t bi_material_laminate_stiffness_call(const PlyConstants& first,
                                                 const PlyConstants& second,
                                                 const char* layup,
                                                 const StiffnessOutputs& out) {
  // Every result is zeroed here, the flag, [D*] and the ply count included; only
  // the card text keeps the host's content until the laminate has succeeded.
  zero_matrices_and_constants(out);
  *out.symmetric = 0;
  std::fill_n(out.dstar, 9, 0.0f);
  *out.plies = 0;
  try {
    return two_materials(first, second, layup, out);
  } catch (...) {
    return kUnusableLaminate;
  }
}

}  // namespace corvane
