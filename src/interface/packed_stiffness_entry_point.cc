// LAMINATE_STIFFNESS_PACKED: LAMINATE_STIFFNESS or BI_MATERIAL_LAMINATE_STIFFNESS
// with the constants, results and counts in three arrays. A host whose every
// argument costs a conversion (ctypes, a spreadsheet's declare) then pays for
// nine instead of thirty; the work and its bits are those of corvane.h's entry
// points (laminate_stiffness_call.h).
#include <cstdint>

#include "corvane/corvane_strength.h"
#include "interface/laminate_stiffness_call.h"
#include "interface/null_arguments.h"

namespace {

constexpr std::int32_t kBadMaterialCount = 3;

corvane::PlyConstants constants_at(const float* c) {
  return {c[0], c[1], c[2], c[3], c[4], c[5], c[6]};
}

}  // namespace

extern "C" {

CORVANE_STRENGTH_API void LAMINATE_STIFFNESS_PACKED(
    const int32_t* materials, const float* constants, const char* layup,
    int64_t /*layup_length*/, float* results, int32_t* counts, char* cards,
    int64_t /*cards_length*/, int32_t* ierr) {
  using namespace corvane;
  if (null_argument(ierr, materials, constants, layup, results, counts, cards)) return;
  const std::int32_t n = *materials;
  if (n != 1 && n != 2) {
    *ierr = kBadMaterialCount;
    return;
  }
  // Read before anything is written, as the one-variable entry points do.
  const PlyConstants first = constants_at(constants);
  const PlyConstants second = n == 2 ? constants_at(constants + 7) : first;
  float* r = results;
  const StiffnessOutputs out{counts, r,      r + 9,  r + 18,     r + 27,
                             r + 36, r + 37, r + 38, r + 39,     r + 40,
                             r + 41, r + 42, r + 43, counts + 1, cards};
  *ierr = n == 1 ? laminate_stiffness_call(first, layup, out)
                 : bi_material_laminate_stiffness_call(first, second, layup, out);
}

}  // extern "C"
