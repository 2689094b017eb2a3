// LAMINATE_RECTANGULAR_SS_BUCKLING_RF with arbitrary loads and critical loads.
#include <cstdint>
#include <cstdlib>

#include "corvane/corvane.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  corvane::fuzz::FuzzInput in(data, size);
  float v[6];
  for (float& x : v) x = in.next_float();
  float rf = 0;
  int32_t ierr = 0;
  LAMINATE_RECTANGULAR_SS_BUCKLING_RF(&v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &rf,
                                      &ierr);
  if (ierr != 0 && ierr != 1) std::abort();
  return 0;
}
