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
  __typeof__(LAMINATE_STIFFNESS)* laminate_stiffness;
  __typeof__(BI_MATERIAL_LAMINATE_STIFFNESS)* bi_material_laminate_stiffness;
  __typeof__(LAMINATE_STRAINS_IN_PLANE)* strains_in_plane;
  __typeof__(LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS)* plate_buckling_loads;
  __typeof__(LAMINATE_RECTANGULAR_SS_BUCKLING_RF)* plate_buckling_rf;
  __typeof__(LAMINATE_SHELL_BUCKLING_LOADS)* shell_buckling_loads;
} corvane_entry_points;

/* Writes one line per case to out; returns the number of cases. */
int run_cases(const corvane_entry_points* entry, FILE* out);

#endif /* CORVANE_WINDOWS_CASES_H_ */
