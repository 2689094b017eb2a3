// LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS with an arbitrary [D] and plate size.
#include <cstdint>
#include <cstdlib>

#include "corvane/corvane.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  corvane::fuzz::FuzzInput in(data, size);
  float d[9];
  for (float& x : d) x = in.next_float();
  const float a = in.next_float();
  const float b = in.next_float();
  float nx = 0, ny = 0, nxy = 0;
  int32_t ierr = 1;
  LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS(d, &a, &b, &nx, &ny, &nxy, &ierr);
  if (ierr != 0) std::abort();
  return 0;
}
