#include "cases.h"

#include <stdint.h>
#include <stdlib.h>
#include <string.h>

typedef struct {
  float t, e1, e2, g12, nu12, cte1, cte2;
} ply;

static const ply kCarbon = {0.125f, 135000.0f, 10000.0f, 5000.0f, 0.3f, -0.3e-6f, 28e-6f};
static const ply kGlass = {0.2f, 70000.0f, 70000.0f, 5000.0f, 0.05f, 2e-6f, 2e-6f};
static const ply kThin = {0.0f, 135000.0f, 10000.0f, 5000.0f, 0.3f, 0.0f, 0.0f};
static const ply kNoPoisson = {0.25f, 135000.0f, 10000.0f, 5000.0f, 0.0f, 1e-6f, 1e-6f};

static const char* const kLayups[] = {
    "(0/45/-45/90)S", "(0/90)",  "(0/90/45)3", "(45/-45)$", "(30/-60/10)2",
    "0/90",           "(0/90)X", "(0//90)",    "(0/90)S",   "(22.5/67.5/-15.25)",
};
static const char* const kBiLayups[] = {"(0/45./-45./90)S", "(45.)", "(0./90)2$"};

static void put_f(FILE* out, float x) {
  uint32_t bits;
  memcpy(&bits, &x, sizeof bits);
  fprintf(out, " %08lx", (unsigned long)bits);
}

static void put_i(FILE* out, int32_t n) { fprintf(out, " %ld", (long)n); }

static void put_text_hash(FILE* out, const char* text, size_t n) {
  uint64_t h = 14695981039346656037ull;
  size_t i;
  for (i = 0; i < n; ++i) {
    h ^= (unsigned char)text[i];
    h *= 1099511628211ull;
  }
  fprintf(out, " %08lx%08lx", (unsigned long)(h >> 32), (unsigned long)(h & 0xffffffffu));
}

static char* layup_buffer(const char* text) {
  char* buffer = malloc(CORVANE_LAYUP_LENGTH);
  size_t n = strlen(text);
  memset(buffer, ' ', CORVANE_LAYUP_LENGTH);
  memcpy(buffer, text, n < CORVANE_LAYUP_LENGTH ? n : CORVANE_LAYUP_LENGTH);
  return buffer;
}

static void put_stiffness(FILE* out, int32_t symmetric, const float* m, int32_t plies,
                          const char* cards, int32_t ierr) {
  int i;
  put_i(out, symmetric);
  for (i = 0; i < 44; ++i) put_f(out, m[i]);
  put_i(out, plies);
  put_text_hash(out, cards, CORVANE_CARDS_LENGTH);
  put_i(out, ierr);
  fputc('\n', out);
}

/* Results of the stiffness entry points, in one array: A, B, D, D* (36 values)
 * then h, Ex, Ey, Gxy, nuxy, alphax, alphay, alphaxy. */
static int stiffness_cases(const corvane_entry_points* entry, FILE* out) {
  const ply* plies[] = {&kCarbon, &kGlass, &kThin, &kNoPoisson};
  int count = 0;
  size_t p, k;
  for (p = 0; p < sizeof plies / sizeof plies[0]; ++p) {
    for (k = 0; k < sizeof kLayups / sizeof kLayups[0]; ++k) {
      const ply* q = plies[p];
      char* layup = layup_buffer(kLayups[k]);
      char* cards = malloc(CORVANE_CARDS_LENGTH);
      float m[44] = {0};
      int32_t symmetric = 5, n = 5, ierr = 5;
      memset(cards, '#', CORVANE_CARDS_LENGTH);
      entry->laminate_stiffness(&q->t, &q->e1, &q->e2, &q->g12, &q->nu12, &q->cte1,
                                &q->cte2, layup, CORVANE_LAYUP_LENGTH, &symmetric, m,
                                m + 9, m + 18, m + 27, m + 36, m + 37, m + 38, m + 39,
                                m + 40, m + 41, m + 42, m + 43, &n, cards,
                                CORVANE_CARDS_LENGTH, &ierr);
      fprintf(out, "LAMINATE_STIFFNESS %d %d", (int)p, (int)k);
      put_stiffness(out, symmetric, m, n, cards, ierr);
      free(layup);
      free(cards);
      ++count;
    }
  }
  for (p = 0; p < 2; ++p) {
    for (k = 0; k < sizeof kBiLayups / sizeof kBiLayups[0]; ++k) {
      const ply* q1 = &kCarbon;
      const ply* q2 = p == 0 ? &kGlass : &kThin;
      char* layup = layup_buffer(kBiLayups[k]);
      char* cards = malloc(CORVANE_CARDS_LENGTH);
      float m[44] = {0};
      int32_t symmetric = 5, n = 5, ierr = 5;
      memset(cards, '#', CORVANE_CARDS_LENGTH);
      entry->bi_material_laminate_stiffness(
          &q1->t, &q1->e1, &q1->e2, &q1->g12, &q1->nu12, &q1->cte1, &q1->cte2, &q2->t,
          &q2->e1, &q2->e2, &q2->g12, &q2->nu12, &q2->cte1, &q2->cte2, layup,
          CORVANE_LAYUP_LENGTH, &symmetric, m, m + 9, m + 18, m + 27, m + 36, m + 37,
          m + 38, m + 39, m + 40, m + 41, m + 42, m + 43, &n, cards, CORVANE_CARDS_LENGTH,
          &ierr);
      fprintf(out, "BI_MATERIAL_LAMINATE_STIFFNESS %d %d", (int)p, (int)k);
      put_stiffness(out, symmetric, m, n, cards, ierr);
      free(layup);
      free(cards);
      ++count;
    }
  }
  return count;
}

static int strain_cases(const corvane_entry_points* entry, FILE* out) {
  static const float cases[][8] = {
      {1.0f, 50000.0f, 40000.0f, 19000.0f, 0.3f, -100.0f, 20.0f, 30.0f},
      {1.0f, 50000.0f, 40000.0f, 19000.0f, 0.3f, 0.0f, 0.0f, 30.0f},
      {1.0f, 1e-7f, 40000.0f, 19000.0f, 0.3f, -100.0f, 20.0f, 30.0f},
      {0.0f, 50000.0f, 40000.0f, 19000.0f, 0.3f, -100.0f, 20.0f, 30.0f},
  };
  size_t i;
  for (i = 0; i < sizeof cases / sizeof cases[0]; ++i) {
    const float* v = cases[i];
    float r[5] = {0, 0, 7.0f, 0, 0};
    int32_t ierr = 5;
    entry->strains_in_plane(&v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &v[6], &v[7], &r[0],
                            &r[1], &r[2], &r[3], &r[4], &ierr);
    fprintf(out, "LAMINATE_STRAINS_IN_PLANE %d", (int)i);
    for (int j = 0; j < 5; ++j) put_f(out, r[j]);
    put_i(out, ierr);
    fputc('\n', out);
  }
  return (int)i;
}

static const float kA[9] = {60000, 18000, 0, 18000, 60000, 0, 0, 0, 21000};
static const float kD[9] = {10000, 3000, 0, 3000, 10000, 0, 0, 0, 3500};
static const float kDOrtho[9] = {25000, 2500, 0, 2500, 6000, 0, 0, 0, 3000};
static const float kDNoCoupling[9] = {25000, 0, 0, 0, 6000, 0, 0, 0, 3000};

/* Three critical loads and the error code, closing the line. */
static void put_loads(FILE* out, const float* loads, int32_t ierr) {
  put_f(out, loads[0]);
  put_f(out, loads[1]);
  put_f(out, loads[2]);
  put_i(out, ierr);
  fputc('\n', out);
}

static int buckling_cases(const corvane_entry_points* entry, FILE* out) {
  static const float plates[][2] = {
      {500, 500}, {2000, 300}, {300, 2000}, {6000, 300}, {-1, 300}};
  const float* ds[] = {kD, kDOrtho, kDNoCoupling};
  static const float rf_cases[][6] = {
      {-100, -10, 20, 500, 400, 300}, {-500, 0, 0, 500, 400, 300},
      {0, 0, 300, 500, 400, 300},     {10, 20, 0, 500, 400, 300},
      {-1, 0, 0, 5e-7f, 400, 300},
  };
  static const float shells[][4] = {
      {600, 200, 1000, 2},
      {600, 200, 0, 2},
      {400, 250, 150, 2},
      {150, 400, 800, 1.5f},
  };
  int count = 0;
  size_t i, j;
  for (j = 0; j < 3; ++j) {
    for (i = 0; i < sizeof plates / sizeof plates[0]; ++i) {
      float r[3] = {7, 7, 7};
      int32_t ierr = 5;
      entry->plate_buckling_loads(ds[j], &plates[i][0], &plates[i][1], &r[0], &r[1],
                                  &r[2], &ierr);
      fprintf(out, "LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS %d %d", (int)j, (int)i);
      put_loads(out, r, ierr);
      ++count;
    }
  }
  for (i = 0; i < sizeof rf_cases / sizeof rf_cases[0]; ++i) {
    const float* v = rf_cases[i];
    float rf = 7;
    int32_t ierr = 5;
    entry->plate_buckling_rf(&v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &rf, &ierr);
    fprintf(out, "LAMINATE_RECTANGULAR_SS_BUCKLING_RF %d", (int)i);
    put_f(out, rf);
    put_i(out, ierr);
    fputc('\n', out);
    ++count;
  }
  for (j = 0; j < 2; ++j) {
    for (i = 0; i < sizeof shells / sizeof shells[0]; ++i) {
      const float* s = shells[i];
      float r[3] = {7, 7, 7};
      int32_t ierr = 5;
      entry->shell_buckling_loads(kA, ds[j], &s[0], &s[1], &s[2], &s[3], &r[0], &r[1],
                                  &r[2], &ierr);
      fprintf(out, "LAMINATE_SHELL_BUCKLING_LOADS %d %d", (int)j, (int)i);
      put_loads(out, r, ierr);
      ++count;
    }
  }
  return count;
}

int run_cases(const corvane_entry_points* entry, FILE* out) {
  return stiffness_cases(entry, out) + strain_cases(entry, out) +
         buckling_cases(entry, out);
}
