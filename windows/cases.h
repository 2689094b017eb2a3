/*
 * The table of cases that the Windows host checks: every entry point on good,
 * refused and degenerate input. run_cases() calls them through the six
 * function pointers it is given and writes one line per case, every result as
 * the hexadecimal bit pattern of its float or integer, and the card text as
 * its 64-bit FNV-1a hash. The Linux build writes the expected lines; the
 * Windows host, loading the DLL by name, must write the very same.
 */
#ifndef CORVANE_WINDOWS_CASES_H_
#define CORVANE_WINDOWS_CASES_H_

#include <stdio.h>

#include "corvane/corvane.h"

typedef struct {
  void (*laminate_stiffness)(const float*, const float*, const float*, const float*,
                             const float*, const float*, const float*, const char*,
                             int64_t, int32_t*, float*, float*, float*, float*, float*,
                             float*, float*, float*, float*, float*, float*, float*,
                             int32_t*, char*, int64_t, int32_t*);
  void (*bi_material_laminate_stiffness)(const float*, const float*, const float*,
                                         const float*, const float*, const float*,
                                         const float*, const float*, const float*,
                                         const float*, const float*, const float*,
                                         const float*, const float*, const char*, int64_t,
                                         int32_t*, float*, float*, float*, float*, float*,
                                         float*, float*, float*, float*, float*, float*,
                                         float*, int32_t*, char*, int64_t, int32_t*);
  void (*strains_in_plane)(const float*, const float*, const float*, const float*,
                           const float*, const float*, const float*, const float*, float*,
                           float*, float*, float*, float*, int32_t*);
  void (*plate_buckling_loads)(const float*, const float*, const float*, float*, float*,
                               float*, int32_t*);
  void (*plate_buckling_rf)(const float*, const float*, const float*, const float*,
                            const float*, const float*, float*, int32_t*);
  void (*shell_buckling_loads)(const float*, const float*, const float*, const float*,
                               const float*, const float*, float*, float*, float*,
                               int32_t*);
} corvane_entry_points;

/* Writes one line per case to out; returns the number of cases. */
int run_cases(const corvane_entry_points* entry, FILE* out);

#endif /* CORVANE_WINDOWS_CASES_H_ */
