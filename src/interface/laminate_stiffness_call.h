// The work of LAMINATE_STIFFNESS and BI_MATERIAL_LAMINATE_STIFFNESS once their
// arguments have passed the null check: shared by those entry points of
// corvane.h and by LAMINATE_STIFFNESS_PACKED of the strength library, so that
// both give the same bits and leave the same outputs on a refusal.
#pragma once

#include <cstdint>

namespace corvane {

// The host's seven constants of a ply material.
struct PlyConstants {
  float t, e1, e2, g12, nu12, cte1, cte2;
};

// The host's result variables, argument for argument.
struct StiffnessOutputs {
  std::int32_t* symmetric;
  float *a, *b, *d, *dstar;
  float *h, *ex, *ey, *gxy, *nuxy, *alphax, *alphay, *alphaxy;
  std::int32_t* plies;
  char* cards;
};

// The error code of LAMINATE_STIFFNESS. On a refusal [A], [B], [D] and the
// eight constants are zero; the symmetric flag, [D*], the ply count and the
// cards keep what the host had in them.
std::int32_t laminate_stiffness_call(const PlyConstants& material, const char* layup,
                                     const StiffnessOutputs& out);

// The error code of BI_MATERIAL_LAMINATE_STIFFNESS: as above, but every result
// except the cards is zeroed on entry.
std::int32_t bi_material_laminate_stiffness_call(const PlyConstants& first,
                                                 const PlyConstants& second,
                                                 const char* layup,
                                                 const StiffnessOutputs& out);

}  // namespace corvane
