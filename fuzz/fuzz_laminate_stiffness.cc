// LAMINATE_STIFFNESS, or BI_MATERIAL_LAMINATE_STIFFNESS when built with
// CORVANE_FUZZ_TWO_MATERIALS, with arbitrary ply constants and stacking text.
#include "corvane/corvane.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  corvane::fuzz::FuzzInput in(data, size);
#ifdef CORVANE_FUZZ_TWO_MATERIALS
  const std::vector<float> m = in.floats(14);
#else
  const std::vector<float> m = in.floats(7);
#endif
  auto layup = in.rest_as_text(CORVANE_LAYUP_LENGTH);
  auto cards = std::make_unique<char[]>(CORVANE_CARDS_LENGTH);
  int32_t symmetric = 0, plies = 0, ierr = 0;
  float a[9], b[9], d[9], dstar[9], h, ex, ey, gxy, nuxy, ax, ay, axy;
#ifdef CORVANE_FUZZ_TWO_MATERIALS
  BI_MATERIAL_LAMINATE_STIFFNESS(&m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6], &m[7],
                                 &m[8], &m[9], &m[10], &m[11], &m[12], &m[13],
#else
  LAMINATE_STIFFNESS(&m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6],
#endif
                                 layup.get(), 3, &symmetric, a, b, d, dstar, &h, &ex, &ey,
                                 &gxy, &nuxy, &ax, &ay, &axy, &plies, cards.get(), 7,
                                 &ierr);
  corvane::fuzz::require(ierr >= 0 && ierr <= 2 &&
                         (ierr != 0 || (plies >= 1 && plies <= 255)));
  return 0;
}
