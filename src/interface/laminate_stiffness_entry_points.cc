// LAMINATE_STIFFNESS and BI_MATERIAL_LAMINATE_STIFFNESS: classical laminate
// stiffness of a laminate of one or two ply materials given by their elastic
// constants and a stacking-sequence text, with the bulk data cards of the
// laminate. These are adapters: they read the host's variables and texts, build
// the laminate with the core and copy its results back.
#include <cstdint>

#include "corvane/corvane.h"
#include "interface/laminate_stiffness_call.h"
#include "interface/null_arguments.h"

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
  const StiffnessOutputs out{symmetric, a,    b,      d,      dstar,   h,     ex,   ey,
                             gxy,       nuxy, alphax, alphay, alphaxy, plies, cards};
  *ierr = laminate_stiffness_call(constants, layup, out);
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
  const StiffnessOutputs out{symmetric, a,    b,      d,      dstar,   h,     ex,   ey,
                             gxy,       nuxy, alphax, alphay, alphaxy, plies, cards};
  *ierr = bi_material_laminate_stiffness_call(first, second, layup, out);
}

}  // extern "C"
