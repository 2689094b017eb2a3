// The many-element entry points with arbitrary counts and values, each array on
// the heap at exactly the size the count calls for, so that a read or write past
// it shows. Built once per entry point, chosen by CORVANE_FUZZ_MANY: 1
// PLATE_BUCKLING_LOADS_MANY, 2 PLATE_BUCKLING_RF_MANY, 3 SHELL_BUCKLING_LOADS_MANY,
// 4 STRAINS_IN_PLANE_MANY.
#include "corvane/corvane_strength.h"
#include "fuzz_input.h"

using Floats = std::vector<float>;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  // Counts from -8 to 7: a negative one must be refused, not read.
  const std::int32_t n = static_cast<std::int8_t>(data[0]) / 16;
  corvane::fuzz::FuzzInput in(data + 1, size - 1);
  // Arrays of exactly n elements, or of one when there are none: an empty
  // vector's data() may be null, which the entry points refuse first.
  const std::size_t count = n > 0 ? static_cast<std::size_t>(n) : 1;
  const auto floats = [&](std::size_t per_element) {
    return in.floats(count * per_element);
  };
  std::vector<std::int32_t> codes(count, 7);
  if (n <= 0) codes.assign(1, 0);
  std::int32_t ierr = 7;
#if CORVANE_FUZZ_MANY == 1
  const Floats d = floats(9), a = floats(1), b = floats(1);
  Floats nxcr(count), nycr(count), nxycr(count);
  PLATE_BUCKLING_LOADS_MANY(&n, d.data(), a.data(), b.data(), nxcr.data(), nycr.data(),
                            nxycr.data(), &ierr);
#elif CORVANE_FUZZ_MANY == 2
  const Floats nx = floats(1), ny = floats(1), nxy = floats(1), nxcr = floats(1),
               nycr = floats(1), nxycr = floats(1);
  Floats rf(count);
  PLATE_BUCKLING_RF_MANY(&n, nx.data(), ny.data(), nxy.data(), nxcr.data(), nycr.data(),
                         nxycr.data(), rf.data(), codes.data(), &ierr);
#elif CORVANE_FUZZ_MANY == 3
  const Floats a = floats(9), d = floats(9), l = floats(1), b = floats(1), r = floats(1),
               t = floats(1);
  for (std::size_t i = 0; n > 0 && i < count; ++i) {
    if (corvane::fuzz::cylinder_search_is_long(l[i], r[i]))
      return -1;  // not added to the corpus
  }
  Floats nxcr(count), nycr(count), nxycr(count);
  SHELL_BUCKLING_LOADS_MANY(&n, a.data(), d.data(), l.data(), b.data(), r.data(),
                            t.data(), nxcr.data(), nycr.data(), nxycr.data(),
                            codes.data(), &ierr);
#else
  const Floats t = floats(1), ex = floats(1), ey = floats(1), gxy = floats(1),
               nuxy = floats(1), nx = floats(1), ny = floats(1), nxy = floats(1);
  Floats e[5] = {Floats(count), Floats(count), Floats(count), Floats(count),
                 Floats(count)};
  STRAINS_IN_PLANE_MANY(&n, t.data(), ex.data(), ey.data(), gxy.data(), nuxy.data(),
                        nx.data(), ny.data(), nxy.data(), e[0].data(), e[1].data(),
                        e[2].data(), e[3].data(), e[4].data(), codes.data(), &ierr);
#endif
  // Every element's code is 0 or 1, and the overall code says whether any is 1.
  bool any = false;
  for (const std::int32_t c : codes) {
    corvane::fuzz::require(c == 0 || c == 1 || (c == 7 && CORVANE_FUZZ_MANY == 1));
    any = any || c == 1;
  }
  corvane::fuzz::require(ierr == (n < 0 ? 2 : any ? 1 : 0));
  return 0;
}
