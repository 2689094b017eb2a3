#include "cases.h"

#include <stdint.h>
#include <stdlib.h>
#include <string.h>

/* Ply materials: t, E1, E2, G12, nu12, CTE1, CTE2. */
static const float kPlies[][7] = {
    {0.125f, 135000.0f, 10000.0f, 5000.0f, 0.3f, -0.3e-6f, 28e-6f},
    {0.2f, 70000.0f, 70000.0f, 5000.0f, 0.05f, 2e-6f, 2e-6f},
    {0.0f, 135000.0f, 10000.0f, 5000.0f, 0.3f, 0.0f, 0.0f},
    {0.25f, 135000.0f, 10000.0f, 5000.0f, 0.0f, 1e-6f, 1e-6f},
};
static const char* const kLayups[] = {"(0/45/-45/90)S",   "(0/90)",
                                      "(0/90/45)3",       "(45/-45)$",
                                      "(30/-60/10)2",     "0/90",
                                      "(0/90)X",          "(0//90)",
                                      "(0/90)S",          "(22.5/67.5/-15.25)",
                                      "(0/45./-45./90)S", "(45.)",
                                      "(0./90)2$"};

static void put_f(FILE* out, float x) {
  uint32_t bits;
  memcpy(&bits, &x, sizeof bits);
  fprintf(out, " %08lx", (unsigned long)bits);
}

static void put_i(FILE* out, int32_t n) { fprintf(out, " %ld", (long)n); }

/* n floats, then the error code, closing the line. */
static void put_all(FILE* out, const float* x, int n, int32_t ierr) {
  int i;
  for (i = 0; i < n; ++i) put_f(out, x[i]);
  put_i(out, ierr);
  fputc('\n', out);
}

/* Every ply with the first ten layups through LAMINATE_STIFFNESS, the first
 * ply with the first two and with the last three through the two-material
 * entry point. Results in one array: A, B, D, D*, then h .. alphaxy. */
static int stiffness_cases(const corvane_entry_points* entry, FILE* out) {
  int count = 0, p, k;
  for (p = 0; p < 6; ++p) {
    for (k = 0; k < 13; ++k) {
      const float* q = kPlies[p < 4 ? p : 0];
      const float* q2 = kPlies[p == 4 ? 1 : 2];
      char* layup = malloc(CORVANE_LAYUP_LENGTH);
      char* cards = malloc(CORVANE_CARDS_LENGTH);
      float m[44] = {0};
      int32_t symmetric = 5, n = 5, ierr = 5, i;
      uint64_t h = 14695981039346656037ull; /* FNV-1a of the cards */
      if ((p < 4) != (k < 10)) continue;
      memset(layup, ' ', CORVANE_LAYUP_LENGTH);
      memcpy(layup, kLayups[k], strlen(kLayups[k]));
      memset(cards, '#', CORVANE_CARDS_LENGTH);
      if (p < 4) {
        entry->laminate_stiffness(&q[0], &q[1], &q[2], &q[3], &q[4], &q[5], &q[6], layup,
                                  CORVANE_LAYUP_LENGTH, &symmetric, m, m + 9, m + 18,
                                  m + 27, m + 36, m + 37, m + 38, m + 39, m + 40, m + 41,
                                  m + 42, m + 43, &n, cards, CORVANE_CARDS_LENGTH, &ierr);
      } else {
        entry->bi_material_laminate_stiffness(
            &q[0], &q[1], &q[2], &q[3], &q[4], &q[5], &q[6], &q2[0], &q2[1], &q2[2],
            &q2[3], &q2[4], &q2[5], &q2[6], layup, CORVANE_LAYUP_LENGTH, &symmetric, m,
            m + 9, m + 18, m + 27, m + 36, m + 37, m + 38, m + 39, m + 40, m + 41, m + 42,
            m + 43, &n, cards, CORVANE_CARDS_LENGTH, &ierr);
      }
      for (i = 0; i < CORVANE_CARDS_LENGTH; ++i) {
        h = (h ^ (unsigned char)cards[i]) * 1099511628211ull;
      }
      fprintf(out, "%sLAMINATE_STIFFNESS %d %d", p < 4 ? "" : "BI_MATERIAL_", p, k);
      put_i(out, symmetric);
      put_i(out, n);
      fprintf(out, " %08lx%08lx", (unsigned long)(h >> 32),
              (unsigned long)(h & 0xffffffffu));
      put_all(out, m, 44, ierr);
      free(layup);
      free(cards);
      ++count;
    }
  }
  return count;
}

static const float kA[9] = {60000, 18000, 0, 18000, 60000, 0, 0, 0, 21000};
static const float kD[3][9] = {{10000, 3000, 0, 3000, 10000, 0, 0, 0, 3500},
                               {25000, 2500, 0, 2500, 6000, 0, 0, 0, 3000},
                               {25000, 0, 0, 0, 6000, 0, 0, 0, 3000}};

static int other_cases(const corvane_entry_points* entry, FILE* out) {
  static const float strains[][8] = {
      {1.0f, 50000.0f, 40000.0f, 19000.0f, 0.3f, -100.0f, 20.0f, 30.0f},
      {1.0f, 50000.0f, 40000.0f, 19000.0f, 0.3f, 0.0f, 0.0f, 30.0f},
      {1.0f, 1e-7f, 40000.0f, 19000.0f, 0.3f, -100.0f, 20.0f, 30.0f},
      {0.0f, 50000.0f, 40000.0f, 19000.0f, 0.3f, -100.0f, 20.0f, 30.0f}};
  static const float plates[][2] = {
      {500, 500}, {2000, 300}, {300, 2000}, {6000, 300}, {-1, 300}};
  static const float rf_cases[][6] = {{-100, -10, 20, 500, 400, 300},
                                      {-500, 0, 0, 500, 400, 300},
                                      {0, 0, 300, 500, 400, 300},
                                      {10, 20, 0, 500, 400, 300},
                                      {-1, 0, 0, 5e-7f, 400, 300}};
  static const float shells[][4] = {
      {600, 200, 1000, 2}, {600, 200, 0, 2}, {400, 250, 150, 2}, {150, 400, 800, 1.5f}};
  int count = 0, i, j;
  for (i = 0; i < 4; ++i, ++count) {
    const float* v = strains[i];
    float r[5] = {0, 0, 7.0f, 0, 0};
    int32_t ierr = 5;
    entry->strains_in_plane(&v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &v[6], &v[7], &r[0],
                            &r[1], &r[2], &r[3], &r[4], &ierr);
    fprintf(out, "LAMINATE_STRAINS_IN_PLANE %d", i);
    put_all(out, r, 5, ierr);
  }
  for (i = 0; i < 15; ++i, ++count) {
    float r[3] = {7, 7, 7};
    int32_t ierr = 5;
    entry->plate_buckling_loads(kD[i / 5], &plates[i % 5][0], &plates[i % 5][1], &r[0],
                                &r[1], &r[2], &ierr);
    fprintf(out, "LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS %d %d", i / 5, i % 5);
    put_all(out, r, 3, ierr);
  }
  for (i = 0; i < 5; ++i, ++count) {
    const float* v = rf_cases[i];
    float rf = 7;
    int32_t ierr = 5;
    entry->plate_buckling_rf(&v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &rf, &ierr);
    fprintf(out, "LAMINATE_RECTANGULAR_SS_BUCKLING_RF %d", i);
    put_all(out, &rf, 1, ierr);
  }
  for (j = 0; j < 8; ++j, ++count) {
    const float* s = shells[j % 4];
    float r[3] = {7, 7, 7};
    int32_t ierr = 5;
    entry->shell_buckling_loads(kA, kD[j / 4], &s[0], &s[1], &s[2], &s[3], &r[0], &r[1],
                                &r[2], &ierr);
    fprintf(out, "LAMINATE_SHELL_BUCKLING_LOADS %d %d", j / 4, j % 4);
    put_all(out, r, 3, ierr);
  }
  return count;
}

int run_cases(const corvane_entry_points* entry, FILE* out) {
  return stiffness_cases(entry, out) + other_cases(entry, out);
}
