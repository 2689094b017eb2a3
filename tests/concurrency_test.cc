// The entry points of both libraries called from eight threads at once, on a mix
// of inputs (good, refused and degenerate), must give results bit for bit equal to
// the same calls made one after another: nothing is shared between calls.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "corvane/corvane.h"
#include "corvane/corvane_strength.h"

namespace {

using Bytes = std::vector<unsigned char>;

template <typename... T>
void append(Bytes& out, const T&... values) {
  (out.insert(out.end(), reinterpret_cast<const unsigned char*>(&values),
              reinterpret_cast<const unsigned char*>(&values) + sizeof values),
   ...);
}

struct Ply {
  float t, e1, e2, g12, nu12, cte1, cte2;
};

std::vector<char> layup_buffer(const std::string& text,
                               std::size_t size = CORVANE_LAYUP_LENGTH) {
  std::vector<char> buffer(size, ' ');
  std::memcpy(buffer.data(), text.data(), std::min(text.size(), buffer.size()));
  return buffer;
}

Bytes stiffness(const Ply& p, const std::string& text) {
  auto layup = layup_buffer(text);
  std::vector<char> cards(CORVANE_CARDS_LENGTH, 'x');
  int32_t symmetric = 7, plies = 7, ierr = 7;
  float a[9], b[9], d[9], dstar[9] = {}, h, ex, ey, gxy, nuxy, ax, ay, axy;
  LAMINATE_STIFFNESS(&p.t, &p.e1, &p.e2, &p.g12, &p.nu12, &p.cte1, &p.cte2, layup.data(),
                     CORVANE_LAYUP_LENGTH, &symmetric, a, b, d, dstar, &h, &ex, &ey, &gxy,
                     &nuxy, &ax, &ay, &axy, &plies, cards.data(), CORVANE_CARDS_LENGTH,
                     &ierr);
  Bytes out;
  append(out, symmetric, a, b, d, dstar, h, ex, ey, gxy, nuxy, ax, ay, axy, plies, ierr);
  out.insert(out.end(), cards.begin(), cards.end());
  return out;
}

Bytes bi_material(const Ply& p, const Ply& q, const std::string& text) {
  auto layup = layup_buffer(text);
  std::vector<char> cards(CORVANE_CARDS_LENGTH, 'x');
  int32_t symmetric = 7, plies = 7, ierr = 7;
  float a[9], b[9], d[9], dstar[9] = {}, h, ex, ey, gxy, nuxy, ax, ay, axy;
  BI_MATERIAL_LAMINATE_STIFFNESS(&p.t, &p.e1, &p.e2, &p.g12, &p.nu12, &p.cte1, &p.cte2,
                                 &q.t, &q.e1, &q.e2, &q.g12, &q.nu12, &q.cte1, &q.cte2,
                                 layup.data(), CORVANE_LAYUP_LENGTH, &symmetric, a, b, d,
                                 dstar, &h, &ex, &ey, &gxy, &nuxy, &ax, &ay, &axy, &plies,
                                 cards.data(), CORVANE_CARDS_LENGTH, &ierr);
  Bytes out;
  append(out, symmetric, a, b, d, dstar, h, ex, ey, gxy, nuxy, ax, ay, axy, plies, ierr);
  out.insert(out.end(), cards.begin(), cards.end());
  return out;
}

Bytes strains(std::array<float, 8> v) {
  float ex, ey, gxy = 3.0f, p45, m45;
  int32_t ierr = 7;
  LAMINATE_STRAINS_IN_PLANE(&v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &v[6], &v[7], &ex,
                            &ey, &gxy, &p45, &m45, &ierr);
  Bytes out;
  append(out, ex, ey, gxy, p45, m45, ierr);
  return out;
}

Bytes plate_loads(std::array<float, 9> d, float a, float b) {
  float nx, ny, nxy;
  int32_t ierr = 7;
  LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS(d.data(), &a, &b, &nx, &ny, &nxy, &ierr);
  Bytes out;
  append(out, nx, ny, nxy, ierr);
  return out;
}

Bytes plate_rf(std::array<float, 6> v) {
  float rf;
  int32_t ierr = 7;
  LAMINATE_RECTANGULAR_SS_BUCKLING_RF(&v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &rf,
                                      &ierr);
  Bytes out;
  append(out, rf, ierr);
  return out;
}

Bytes shell_loads(std::array<float, 9> a, std::array<float, 9> d, float l, float b,
                  float r, float t) {
  float nx, ny, nxy;
  int32_t ierr = 7;
  LAMINATE_SHELL_BUCKLING_LOADS(a.data(), d.data(), &l, &b, &r, &t, &nx, &ny, &nxy,
                                &ierr);
  Bytes out;
  append(out, nx, ny, nxy, ierr);
  return out;
}

// One material, or two when `two` (material 2 stiffer, on the 45s).
Bytes strength(const std::string& criterion, float nx, bool two = false) {
  const float m[28] = {0.125f, 181000, 10300, 7170, 0.28f, 0,    2e-5f, 1500, 1500,
                       40,     246,    68,    0,    0,     0.2f, 39000, 8600, 3800,
                       0.28f,  7e-6f,  2e-5f, 1080, 620,   39,   128,   89};
  const float options[3] = {-0.5f, 0.35f, 0.30f};
  auto layup = layup_buffer("(0/45./-45./90)2S"), name = layup_buffer(criterion);
  const int32_t n = 2;
  const float loads[14] = {nx, 10, 20, 1, 2, 3, 0, 30, nx, 0, 0, 0, 5, -100};
  float rf[2] = {};
  int32_t where[3][2] = {}, ierr = 7;
  char message[CORVANE_STRENGTH_MESSAGE_LENGTH];
  if (two) {
    BI_MATERIAL_LAMINATE_STRENGTH(&m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6], &m[7],
                                  &m[8], &m[9], &m[10], &m[11], &m[12], &m[13], &m[14],
                                  &m[15], &m[16], &m[17], &m[18], &m[19], &m[20], &m[21],
                                  &m[22], &m[23], &m[24], &m[25], &m[26], &m[27],
                                  layup.data(), 0, name.data(), 0, options, &n, loads, rf,
                                  where[0], where[1], where[2], message, 0, &ierr);
  } else {
    LAMINATE_STRENGTH(&m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6], &m[7], &m[8],
                      &m[9], &m[10], &m[11], &m[12], &m[13], layup.data(), 0, name.data(),
                      0, options, &n, loads, rf, where[0], where[1], where[2], message, 0,
                      &ierr);
  }
  Bytes out;
  append(out, rf, where, ierr, message);
  return out;
}

// A material by name from the installed materials (or a name not found), and
// the list of names.
Bytes material(const std::string& wanted) {
  auto name = layup_buffer(wanted, CORVANE_MATERIAL_NAME_LENGTH),
       places = layup_buffer("", CORVANE_MATERIAL_PLACES_LENGTH),
       installed = layup_buffer(CORVANE_MATERIALS_DIR, CORVANE_MATERIAL_PATH_LENGTH),
       found = layup_buffer("", CORVANE_MATERIAL_NAME_LENGTH),
       file = layup_buffer("", CORVANE_MATERIAL_PATH_LENGTH),
       names = layup_buffer("", CORVANE_MATERIAL_NAMES_LENGTH);
  float values[CORVANE_MATERIAL_VALUES] = {};
  int32_t fabric = 7, line = 7, count = 7, ierr = 7, list_ierr = 7;
  char message[CORVANE_STRENGTH_MESSAGE_LENGTH];
  MATERIAL_DATA(name.data(), 0, places.data(), 0, installed.data(), 0, values, &fabric,
                found.data(), 0, file.data(), 0, &line, message, 0, &ierr);
  Bytes out;
  append(out, values, fabric, line, ierr, message);
  MATERIAL_NAMES(places.data(), 0, installed.data(), 0, &count, names.data(), 0, message,
                 0, &list_ierr);
  append(out, count, list_ierr, message);
  out.insert(out.end(), found.begin(), found.end());
  out.insert(out.end(), names.begin(), names.end());
  return out;
}

// The solver deck of one material, or two when `two`; t is material 1's thickness.
Bytes solver_deck(float t, const std::string& text, bool two = false) {
  const float m[24] = {t,     135000, 10000, 5000, 0.3f, -3e-7f, 28e-6f, 1500,
                       1200,  40,     246,   70,   0.2f, 39000,  8600,   3800,
                       0.28f, 7e-6f,  2e-5f, 1080, 620,  39,     128,    89};
  auto layup = layup_buffer(text);
  const int32_t crlf = two ? -1 : 0;
  std::vector<char> deck(CORVANE_SOLVER_DECK_LENGTH, 'x');
  char message[CORVANE_STRENGTH_MESSAGE_LENGTH];
  int32_t length = 7, ierr = 7;
  if (two) {
    BI_MATERIAL_LAMINATE_SOLVER_DECK(&m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6],
                                     &m[7], &m[8], &m[9], &m[10], &m[11], &m[12], &m[13],
                                     &m[14], &m[15], &m[16], &m[17], &m[18], &m[19],
                                     &m[20], &m[21], &m[22], &m[23], layup.data(), 0,
                                     &crlf, deck.data(), 0, &length, message, 0, &ierr);
  } else {
    LAMINATE_SOLVER_DECK(&m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6], &m[7], &m[8],
                         &m[9], &m[10], &m[11], layup.data(), 0, &crlf, deck.data(), 0,
                         &length, message, 0, &ierr);
  }
  Bytes out;
  append(out, length, ierr, message);
  out.insert(out.end(), deck.begin(), deck.end());
  return out;
}

// A channel of three segments (one material), the web's strength from
// first-ply failure; `width` of the web and `length` vary the case.
Bytes crippling(float width, float length, const std::string& criterion = "PUCK") {
  const float m[14] = {0.125f, 181000, 10300, 7170, 0.28f, 0, 2e-5f,
                       1500,   1500,   40,    246,  68,    0, 0};
  const int32_t nm = 1, ns = 3, edge[3] = {1, 2, 1}, material[3] = {1, 1, 1};
  const float geometry[12] = {20, 10, 20, 0, width, 0, 0, 90, 20, 10, -20, 0};
  const float fcu[3] = {450, 0, 450}, options[3] = {-0.5f, 0.35f, 0.30f}, c = 1.5f;
  std::vector<char> layups;
  for (int k = 0; k < 3; ++k) {
    const auto one = layup_buffer(k == 1 ? "(45/-45/0/90)2S" : "(0/45/-45/90)S");
    layups.insert(layups.end(), one.begin(), one.end());
  }
  auto name = layup_buffer(criterion);
  float t[3], ex[3], used[3], fcc[3], section[7];
  int32_t warning[3], mode = 7, ierr = 7;
  char message[CORVANE_STRENGTH_MESSAGE_LENGTH];
  SECTION_CRIPPLING(&nm, m, &ns, geometry, edge, material, fcu, layups.data(), 0,
                    name.data(), 0, options, &length, &c, t, ex, used, fcc, warning,
                    &section[0], &section[1], &section[2], &section[3], &section[4],
                    &section[5], &section[6], &mode, message, 0, &ierr);
  Bytes out;
  append(out, ierr, message);
  if (ierr == 0) append(out, t, ex, used, fcc, warning, section, mode);
  return out;
}

// A keyed material with a hole, by one check or all; or after impact, with a
// damage model or none.
Bytes damaged(bool impact, const std::string& text, float nx) {
  const float m[7] = {0.125f, 181000, 10300, 7170, 0.28f, 1500, 1500}, d = 6.35f, e = 30;
  auto keys =
      layup_buffer("OHT=420 OHC=310 CAIH=0.005", CORVANE_STRENGTH_PROPERTIES_LENGTH);
  auto layup = layup_buffer("(0/45/-45/90)2S"), name = layup_buffer(text, 200);
  const int32_t n = 2;
  const float loads[14] = {nx, 10, 20, 1, 2, 3, 0, -30, nx, 0, 0, 0, 5, -100};
  float rf[10] = {};
  int32_t ierr = 7;
  char message[CORVANE_STRENGTH_MESSAGE_LENGTH];
  if (impact) {
    IMPACT_LAMINATE_STRENGTH(&m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6], keys.data(),
                             0, layup.data(), 0, name.data(), 0, &m[6], &e, &n, loads, rf,
                             message, 0, &ierr);
  } else {
    NOTCHED_LAMINATE_STRENGTH(&m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6],
                              keys.data(), 0, layup.data(), 0, name.data(), 0, &d, &n,
                              loads, loads, rf, message, 0, &ierr);
  }
  Bytes out;
  append(out, rf, ierr, message);
  return out;
}

// The four many-element entry points over three elements, the middle one
// refused or degenerate.
Bytes many(const std::array<float, 9>& a, const std::array<float, 9>& d) {
  const int32_t n = 3;
  std::array<float, 27> as{}, ds{};
  for (int i = 0; i < 3; ++i) {
    std::copy(a.begin(), a.end(), as.begin() + 9 * i);
    std::copy(d.begin(), d.end(), ds.begin() + 9 * i);
  }
  const float l[3] = {600, 600, 400}, b[3] = {200, -1, 250}, r[3] = {1000, 1000, 0},
              t[3] = {2, 2, 1}, e[3] = {50000, 1e-7f, 40000}, nu[3] = {0.3f, 0.3f, 0.1f},
              nx[3] = {-100, 20, 0}, crit[3] = {500, 5e-7f, 300};
  float out[5][3] = {}, rf[3] = {};
  int32_t codes[3][3] = {}, ierr[4] = {7, 7, 7, 7};
  Bytes result;
  PLATE_BUCKLING_LOADS_MANY(&n, ds.data(), l, b, out[0], out[1], out[2], &ierr[0]);
  append(result, out);
  PLATE_BUCKLING_RF_MANY(&n, nx, nx, nx, crit, crit, crit, rf, codes[0], &ierr[1]);
  SHELL_BUCKLING_LOADS_MANY(&n, as.data(), ds.data(), l, b, r, t, out[0], out[1], out[2],
                            codes[1], &ierr[2]);
  append(result, out, rf, codes, ierr);
  STRAINS_IN_PLANE_MANY(&n, t, e, e, e, nu, nx, l, b, out[0], out[1], out[2], out[3],
                        out[4], codes[2], &ierr[3]);
  append(result, out, codes, ierr);
  return result;
}

std::vector<std::function<Bytes()>> mixed_calls() {
  const Ply carbon{0.125f, 135000.0f, 10000.0f, 5000.0f, 0.3f, -0.3e-6f, 28e-6f};
  const Ply glass{0.2f, 70000.0f, 70000.0f, 5000.0f, 0.05f, 2e-6f, 2e-6f};
  const Ply invalid{0.0f, 135000.0f, 10000.0f, 5000.0f, 0.3f, 0.0f, 0.0f};
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const std::array<float, 9> a{60000, 18000, 0, 18000, 60000, 0, 0, 0, 21000};
  const std::array<float, 9> d{10000, 3000, 0, 3000, 10000, 0, 0, 0, 3500};
  const std::array<float, 9> d_ortho{25000, 2500, 0, 2500, 6000, 0, 0, 0, 3000};
  return {
      [=] { return stiffness(carbon, "(0/45/-45/90)S"); },
      [=] { return stiffness(carbon, "(0/90/45)3"); },
      [=] { return stiffness(glass, "(45/-45)$"); },
      [=] { return stiffness(invalid, "(0/90)S"); },
      [=] { return stiffness(carbon, "0/90"); },
      [=] { return bi_material(carbon, glass, "(0/45./-45./90)S"); },
      [=] { return bi_material(carbon, invalid, "(0/90)"); },
      [=] {
        return strains({1.0f, 50000, 40000, 19000, 0.3f, -100, 20, 30});
      },
      [=] {
        return strains({1.0f, 1e-7f, 40000, 19000, 0.3f, -100, 20, 30});
      },
      [=] { return plate_loads(d, 500, 500); },
      [=] { return plate_loads(d_ortho, 2000, 300); },
      [=] { return plate_loads(d, nan, 300); },
      [=] {
        return plate_rf({-100, -10, 20, 500, 400, 300});
      },
      [=] {
        return plate_rf({-100, -10, 20, 5e-7f, 400, 300});
      },
      [=] { return shell_loads(a, d, 600, 200, 1000, 2); },
      [=] { return shell_loads(a, d, 600, 200, 0, 2); },
      [=] { return shell_loads(a, d_ortho, 400, 250, 150, 2); },
      [=] { return strength("PUCK", -500); },
      [=] { return strength("TSAI_WU", 300); },
      [=] { return strength("TSAI_WU", nan); },
      [=] { return strength("PUCK", -500, true); },
      [=] { return strength("HOFFMAN", 200, true); },
      [=] { return material("Scotchply 1002"); },
      [=] { return material("T300/5280"); },
      [=] { return solver_deck(0.125f, "(0/45/-45/90)3S"); },
      [=] { return solver_deck(0.13333334f, "(0/45./-45./90)2", true); },
      [=] { return solver_deck(-1, "(0/90)S"); },
      [=] { return crippling(40, 300); },
      [=] { return crippling(90, 2500, "TSAI_WU"); },
      [=] { return crippling(-1, 300); },
      [=] { return crippling(40, 300, "AOSL"); },
      [=] { return damaged(false, "ALL", 300); },
      [=] { return damaged(false, "fhc", -700); },
      [=] { return damaged(false, "OHT", nan); },
      [=] { return damaged(true, "CDTM-T04 0.003 0.5 0.004 0.05 1", -400); },
      [=] { return damaged(true, "", -400); },
      [=] { return damaged(true, "CDTM-T99 1", 300); },
      [=] { return many(a, d); },
      [=] { return many(a, d_ortho); },
  };
}

TEST(Concurrency, EightThreadsGiveTheSerialResultsBitForBit) {
  const auto calls = mixed_calls();
  std::vector<Bytes> serial;
  for (const auto& call : calls) serial.push_back(call());

  constexpr int kThreads = 8;
  constexpr int kRounds = 25;
  std::vector<int> mismatches(kThreads, 0);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (int round = 0; round < kRounds; ++round) {
        // Each thread walks the calls from a different starting point, so
        // different entry points overlap in time.
        for (std::size_t k = 0; k < calls.size(); ++k) {
          const std::size_t i = (k + static_cast<std::size_t>(t) * 3) % calls.size();
          if (calls[i]() != serial[i]) ++mismatches[t];
        }
      }
    });
  }
  for (auto& thread : threads) thread.join();
  for (int t = 0; t < kThreads; ++t) EXPECT_EQ(mismatches[t], 0) << "thread " << t;
}

}  // namespace
