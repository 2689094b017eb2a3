/* Writes the expected results of the Windows host's cases, computed by the
 * library of this (Linux) build: make_cases FILE. */
#include <stdio.h>

#include "cases.h"

int main(int argc, char** argv) {
  const corvane_entry_points entry = {
      LAMINATE_STIFFNESS,
      BI_MATERIAL_LAMINATE_STIFFNESS,
      LAMINATE_STRAINS_IN_PLANE,
      LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS,
      LAMINATE_RECTANGULAR_SS_BUCKLING_RF,
      LAMINATE_SHELL_BUCKLING_LOADS,
  };
  FILE* out = argc > 1 ? fopen(argv[1], "w") : stdout;
  if (out == NULL) {
    fprintf(stderr, "make_cases: cannot write %s\n", argv[1]);
    return 1;
  }
  int n = run_cases(&entry, out);
  if (out != stdout) fclose(out);
  fprintf(stderr, "make_cases: %d cases written\n", n);
  return 0;
}
