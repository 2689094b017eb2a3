// LAMINATE_STIFFNESS with arbitrary ply constants and stacking text.
#include <cstdint>
#include <cstdlib>

#include "corvane/corvane.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  corvane::fuzz::FuzzInput in(data, size);
  float ply[7];
  for (float& v : ply) v = in.next_float();
  auto layup = in.rest_as_text(CORVANE_LAYUP_LENGTH);
  auto cards = std::make_unique<char[]>(CORVANE_CARDS_LENGTH);
  int32_t symmetric = 0, plies = 0, ierr = 0;
  float a[9], b[9], d[9], dstar[9], h, ex, ey, gxy, nuxy, ax, ay, axy;
  LAMINATE_STIFFNESS(&ply[0], &ply[1], &ply[2], &ply[3], &ply[4], &ply[5], &ply[6],
                     layup.get(), 3, &symmetric, a, b, d, dstar, &h, &ex, &ey, &gxy,
                     &nuxy, &ax, &ay, &axy, &plies, cards.get(), 7, &ierr);
  if (ierr < 0 || ierr > 2) std::abort();
  if (ierr == 0 && (plies < 1 || plies > 255)) std::abort();
  return 0;
}
