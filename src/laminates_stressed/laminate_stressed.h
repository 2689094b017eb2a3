// LAMINATESTRESSED: the laminate type the stiffness entry points build. It is
// a LAMINATESTIFFNESS with nothing more to construct; ply stresses and strengths
// would extend it.
#pragma once

#include "laminates_stiffness/laminate_stiffness.h"

namespace corvane {

struct LAMINATESTRESSED : LAMINATESTIFFNESS {
  using LAMINATESTIFFNESS::LAMINATESTIFFNESS;
};

}  // namespace corvane
