/*
 * A host program in C: the stiffness of a quasi-isotropic carbon/epoxy laminate
 * (0/45/-45/90)S from LAMINATE_STIFFNESS, printed with its bulk data cards.
 * Units: mm, MPa, 1/K.
 */
#include <stdio.h>
#include <string.h>

#include "corvane/corvane.h"

static void print_matrix(const char* label, const float m[9]) {
  int i;
  printf("%s\n", label);
  for (i = 0; i < 3; ++i) {
    /* Column order: element (i,j) at i + 3j. */
    printf("  %14.6g %14.6g %14.6g\n", m[i], m[i + 3], m[i + 6]);
  }
}

int main(void) {
  const float t = 0.125f, e1 = 135000.0f, e2 = 10000.0f, g12 = 5000.0f, nu12 = 0.3f;
  const float cte1 = -0.3e-6f, cte2 = 28.0e-6f;
  static const char stacking[] = "(0/45/-45/90)S";
  char layup[CORVANE_LAYUP_LENGTH];
  static char cards[CORVANE_CARDS_LENGTH + 1];
  int32_t symmetric = 0, plies = 0, ierr = 0;
  float a[9], b[9], d[9], dstar[9];
  float h, ex, ey, gxy, nuxy, alphax, alphay, alphaxy;
  size_t length;

  /* A fixed-length text, blank padded, no terminating zero needed. */
  memset(layup, ' ', sizeof layup);
  memcpy(layup, stacking, strlen(stacking));

  LAMINATE_STIFFNESS(&t, &e1, &e2, &g12, &nu12, &cte1, &cte2, layup, CORVANE_LAYUP_LENGTH,
                     &symmetric, a, b, d, dstar, &h, &ex, &ey, &gxy, &nuxy, &alphax,
                     &alphay, &alphaxy, &plies, cards, CORVANE_CARDS_LENGTH, &ierr);
  printf("error code %d\n", (int)ierr);
  if (ierr != 0) return 1;

  printf("%s: %d plies, h = %g, symmetric: %s\n", stacking, (int)plies, h,
         symmetric ? "yes" : "no");
  print_matrix("[A]", a);
  print_matrix("[B]", b);
  print_matrix("[D]", d);
  print_matrix("[D*]", dstar);
  printf("Ex = %g  Ey = %g  Gxy = %g  nuxy = %g\n", ex, ey, gxy, nuxy);
  printf("alphax = %g  alphay = %g  alphaxy = %g\n", alphax, alphay, alphaxy);

  /* The card text is blank padded to its full length: print up to its last
     non-blank character. */
  length = CORVANE_CARDS_LENGTH;
  while (length > 0 && cards[length - 1] == ' ') --length;
  cards[length] = '\0';
  printf("%s\n", cards);
  return 0;
}
