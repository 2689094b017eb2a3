// LAMINATE_SHELL_BUCKLING_LOADS with arbitrary [A], [D] and geometry.
//
// The cylinder search takes round(L/s) x round(2*pi*R/s) steps, which legal
// input can drive into the billions (a large radius over a short length, see
// docs/robustness.md). Such inputs are slow by design, not faulty, so the
// fuzzer skips those over a million steps and explores everything else.
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "corvane/corvane.h"
#include "fuzz_input.h"

namespace {

bool cylinder_search_is_long(float length, float radius) {
  if (!(radius > 0.0f)) return false;
  const double l = std::fmin(length, 3.141593 * radius / 4.0);
  const double s = l / 10.0;
  const double steps = std::round(length / s) * std::round(6.283186 * radius / s);
  return !(steps < 1.0e6);  // NaN counts as long: the library handles it, skip it
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  corvane::fuzz::FuzzInput in(data, size);
  float a[9], d[9];
  for (float& x : a) x = in.next_float();
  for (float& x : d) x = in.next_float();
  const float length = in.next_float();
  const float width = in.next_float();
  const float radius = in.next_float();
  const float thickness = in.next_float();
  if (cylinder_search_is_long(length, radius)) return -1;  // not added to the corpus
  float nx = 0, ny = 0, nxy = 0;
  int32_t ierr = 0;
  LAMINATE_SHELL_BUCKLING_LOADS(a, d, &length, &width, &radius, &thickness, &nx, &ny,
                                &nxy, &ierr);
  return 0;
}
