/* A Windows host: loads corvane.dll by name with LoadLibrary, finds the six
 * entry points with GetProcAddress, runs the table of cases and compares every
 * result, bit for bit, with the results the Linux build wrote.
 *   corvane_windows_host PATH\corvane.dll expected.txt */
#include <stdio.h>
#include <string.h>
#include <windows.h>

#include "cases.h"

static FARPROC find(HMODULE library, const char* name, int* missing) {
  FARPROC f = GetProcAddress(library, name);
  if (f == NULL) {
    printf("missing export: %s\n", name);
    ++*missing;
  }
  return f;
}

int main(int argc, char** argv) {
  if (argc != 3) {
    printf("usage: corvane_windows_host corvane.dll expected.txt\n");
    return 2;
  }
  HMODULE library = LoadLibraryA(argv[1]);
  if (library == NULL) {
    printf("cannot load %s (error %lu)\n", argv[1], (unsigned long)GetLastError());
    return 2;
  }
  int missing = 0;
  corvane_entry_points entry;
  /* GetProcAddress returns a generic pointer; the casts restore each type. */
  *(FARPROC*)&entry.laminate_stiffness = find(library, "LAMINATE_STIFFNESS", &missing);
  *(FARPROC*)&entry.bi_material_laminate_stiffness =
      find(library, "BI_MATERIAL_LAMINATE_STIFFNESS", &missing);
  *(FARPROC*)&entry.strains_in_plane =
      find(library, "LAMINATE_STRAINS_IN_PLANE", &missing);
  *(FARPROC*)&entry.plate_buckling_loads =
      find(library, "LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS", &missing);
  *(FARPROC*)&entry.plate_buckling_rf =
      find(library, "LAMINATE_RECTANGULAR_SS_BUCKLING_RF", &missing);
  *(FARPROC*)&entry.shell_buckling_loads =
      find(library, "LAMINATE_SHELL_BUCKLING_LOADS", &missing);
  if (missing) return 2;

  FILE* actual = tmpfile();
  FILE* expected = fopen(argv[2], "r");
  if (actual == NULL || expected == NULL) {
    printf("cannot open %s\n", argv[2]);
    return 2;
  }
  run_cases(&entry, actual);
  rewind(actual);

  static char want[4096], got[4096];
  int passed = 0, failed = 0;
  while (fgets(want, sizeof want, expected) != NULL) {
    if (fgets(got, sizeof got, actual) == NULL) got[0] = '\0';
    if (strcmp(want, got) == 0) {
      ++passed;
    } else {
      ++failed;
      printf("MISMATCH\n  linux:   %s  windows: %s", want, got);
    }
  }
  if (fgets(got, sizeof got, actual) != NULL) ++failed; /* more cases than expected */
  printf("%d passed, %d failed\n", passed, failed);
  FreeLibrary(library);
  return failed == 0 && passed > 0 ? 0 : 1;
}
