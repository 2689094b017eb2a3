// LAMINATE_STRAINS_IN_PLANE with arbitrary constants and loads.
#include <cstdint>
#include <cstdlib>

#include "corvane/corvane.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  corvane::fuzz::FuzzInput in(data, size);
  float v[8];
  for (float& x : v) x = in.next_float();
  float ex, ey, gxy, p45, m45;
  int32_t ierr = 0;
  LAMINATE_STRAINS_IN_PLANE(&v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &v[6], &v[7], &ex,
                            &ey, &gxy, &p45, &m45, &ierr);
  if (ierr != 0 && ierr != 1) std::abort();
  return 0;
}
