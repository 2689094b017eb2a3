// The four entry points of scalars and 3x3 matrices with arbitrary values, chosen
// by CORVANE_FUZZ_ENTRY: 1 LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS, 2
// LAMINATE_RECTANGULAR_SS_BUCKLING_RF, 3 LAMINATE_SHELL_BUCKLING_LOADS, 4
// LAMINATE_STRAINS_IN_PLANE.
#include "corvane/corvane.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  corvane::fuzz::FuzzInput in(data, size);
  float out[5];
  int32_t ierr = 7;
#if CORVANE_FUZZ_ENTRY == 1
  const std::vector<float> d = in.floats(9), ab = in.floats(2);
  LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS(d.data(), &ab[0], &ab[1], &out[0], &out[1],
                                         &out[2], &ierr);
  corvane::fuzz::require(ierr == 0);
#elif CORVANE_FUZZ_ENTRY == 2
  const std::vector<float> v = in.floats(6);
  LAMINATE_RECTANGULAR_SS_BUCKLING_RF(&v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &out[0],
                                      &ierr);
  corvane::fuzz::require(ierr == 0 || ierr == 1);
#elif CORVANE_FUZZ_ENTRY == 3
  const std::vector<float> a = in.floats(9), d = in.floats(9), g = in.floats(4);
  if (corvane::fuzz::cylinder_search_is_long(g[0], g[2])) return -1;  // kept out
  LAMINATE_SHELL_BUCKLING_LOADS(a.data(), d.data(), &g[0], &g[1], &g[2], &g[3], &out[0],
                                &out[1], &out[2], &ierr);
  corvane::fuzz::require(ierr == 0 || ierr == 1);
#else
  const std::vector<float> v = in.floats(8);
  LAMINATE_STRAINS_IN_PLANE(&v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &v[6], &v[7],
                            &out[0], &out[1], &out[2], &out[3], &out[4], &ierr);
  corvane::fuzz::require(ierr == 0 || ierr == 1);
#endif
  return 0;
}
