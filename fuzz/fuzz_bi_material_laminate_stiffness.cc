// BI_MATERIAL_LAMINATE_STIFFNESS with two arbitrary materials and stacking text.
#include <cstdint>
#include <cstdlib>

#include "corvane/corvane.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  corvane::fuzz::FuzzInput in(data, size);
  float m[14];
  for (float& v : m) v = in.next_float();
  auto layup = in.rest_as_text(CORVANE_LAYUP_LENGTH);
  auto cards = std::make_unique<char[]>(CORVANE_CARDS_LENGTH);
  int32_t symmetric = 0, plies = 0, ierr = 0;
  float a[9], b[9], d[9], dstar[9], h, ex, ey, gxy, nuxy, ax, ay, axy;
  BI_MATERIAL_LAMINATE_STIFFNESS(
      &m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6], &m[7], &m[8], &m[9], &m[10],
      &m[11], &m[12], &m[13], layup.get(), 0, &symmetric, a, b, d, dstar, &h, &ex, &ey,
      &gxy, &nuxy, &ax, &ay, &axy, &plies, cards.get(), 0, &ierr);
  if (ierr < 0 || ierr > 2) std::abort();
  return 0;
}
