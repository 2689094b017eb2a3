// LAMINATE_STIFFNESS and BI_MATERIAL_LAMINATE_STIFFNESS: classical laminate
// stiffness of a laminate of one or two ply materials given by their elastic
// constants and a stacking-sequence text, with the bulk data cards of the
// laminate. These are adapters: they read the host's variables and texts, build
// the laminate with the core and copy its results back.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "cards/bulk_data_cards.h"
#include "corvane/corvane.h"
#include "interface/null_arguments.h"
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

// The host's seven constants of a ply material.
struct PlyConstants {
  float t, e1, e2, g12, nu12, cte1, cte2;
};

LAMINA ply_material(const PlyConstants& c) {
  LAMINA m = new_lamina(c.t, c.e1, c.e2, c.g12, c.nu12, kAllowable, kAllowable);
  m.CTE1 = c.cte1;
  m.CTE2 = c.cte2;
  return m;
}

// The stacking sequence always spans CORVANE_LAYUP_LENGTH characters; the parser
// ends it at a C host's zero byte.
std::string_view layup_text(const char* buffer) { return {buffer, CORVANE_LAYUP_LENGTH}; }

// The host's result variables, argument for argument.
struct Results {
  std::int32_t* symmetric;
  float *a, *b, *d, *dstar;
  float *h, *ex, *ey, *gxy, *nuxy, *alphax, *alphay, *alphaxy;
  std::int32_t* plies;
  char* cards;
};

void copy_matrix(const Matrix3& m, float* out) { std::copy(m.v.begin(), m.v.end(), out); }

// Zeroes [A], [B], [D] and the eight scalars after them.
void zero_matrices_and_constants(const Results& r) {
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
std::int32_t publish(const LAMINATESTRESSED& laminate, const Results& r) {
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
                             const Results& r) {
  const LAMINA material = ply_material(constants);
  if (material.status != 0) return kInvalidMaterial;
  std::vector<float> angles;
  if (parse_stacking_sequence(layup_text(layup), angles) != kStackingOk) {
    return kUnusableLaminate;
  }
  return publish(LAMINATESTRESSED(material, angles), r);
}

std::int32_t two_materials(const PlyConstants& first, const PlyConstants& second,
                           const char* layup, const Results& r) {
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
}  // namespace corvane

extern "C" {

// The hidden lengths are deliberately ignored: the texts are always 1000 and
// 10000 characters long.
CORVANE_API void LAMINATE_STIFFNESS(
    const float* t, const float* e1, const float* e2, const float* g12, const float* nu12,
    const float* cte1, const float* cte2, const char* layup, int64_t /*layup_length*/,
    int32_t* symmetric, float* a, float* b, float* d, float* dstar, float* h, float* ex,
    float* ey, float* gxy, float* nuxy, float* alphax, float* alphay, float* alphaxy,
    int32_t* plies, char* cards, int64_t /*cards_length*/, int32_t* ierr) {
  using namespace corvane;
  if (null_argument(ierr, t, e1, e2, g12, nu12, cte1, cte2, layup, symmetric, a, b, d,
                    dstar, h, ex, ey, gxy, nuxy, alphax, alphay, alphaxy, plies, cards)) {
    return;
  }
  // The constants are read before anything is written, in case the host passes
  // a variable twice; the stacking text is parsed after the zeroing, as it
  // always was, and the cards are written only after the parse.
  const PlyConstants constants{*t, *e1, *e2, *g12, *nu12, *cte1, *cte2};
  const Results results{symmetric, a,    b,      d,      dstar,   h,     ex,   ey,
                        gxy,       nuxy, alphax, alphay, alphaxy, plies, cards};
  // The symmetric flag, [D*], the ply count and the cards keep the host's
  // values until the laminate has succeeded.
  zero_matrices_and_constants(results);
  *ierr = kOk;
  try {
    *ierr = single_material(constants, layup, results);
  } catch (...) {
    // Only an exhausted memory can get here, before any result was copied.
    *ierr = kUnusableLaminate;
  }
}

CORVANE_API void BI_MATERIAL_LAMINATE_STIFFNESS(
    const float* t1, const float* e1_1, const float* e2_1, const float* g12_1,
    const float* nu12_1, const float* cte1_1, const float* cte2_1, const float* t2,
    const float* e1_2, const float* e2_2, const float* g12_2, const float* nu12_2,
    const float* cte1_2, const float* cte2_2, const char* layup, int64_t /*layup_length*/,
    int32_t* symmetric, float* a, float* b, float* d, float* dstar, float* h, float* ex,
    float* ey, float* gxy, float* nuxy, float* alphax, float* alphay, float* alphaxy,
    int32_t* plies, char* cards, int64_t /*cards_length*/, int32_t* ierr) {
  using namespace corvane;
  if (null_argument(ierr, t1, e1_1, e2_1, g12_1, nu12_1, cte1_1, cte2_1, t2, e1_2, e2_2,
                    g12_2, nu12_2, cte1_2, cte2_2, layup, symmetric, a, b, d, dstar, h,
                    ex, ey, gxy, nuxy, alphax, alphay, alphaxy, plies, cards)) {
    return;
  }
  const PlyConstants first{*t1, *e1_1, *e2_1, *g12_1, *nu12_1, *cte1_1, *cte2_1};
  const PlyConstants second{*t2, *e1_2, *e2_2, *g12_2, *nu12_2, *cte1_2, *cte2_2};
  const Results results{symmetric, a,    b,      d,      dstar,   h,     ex,   ey,
                        gxy,       nuxy, alphax, alphay, alphaxy, plies, cards};
  // Every result is zeroed here, the flag, [D*] and the ply count included; only
  // the card text keeps the host's content until the laminate has succeeded.
  zero_matrices_and_constants(results);
  *symmetric = 0;
  std::fill_n(dstar, 9, 0.0f);
  *plies = 0;
  *ierr = kOk;
  try {
    *ierr = two_materials(first, second, layup, results);
  } catch (...) {
    *ierr = kUnusableLaminate;
  }
}

}  // extern "C"
