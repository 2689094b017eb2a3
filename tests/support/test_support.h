// What many test files need: a reference tape and fabric, caller-style text
// buffers, orthotropic 3x3 matrices and the special floats.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string_view>
#include <vector>

#include "corvane/corvane.h"
#include "laminas/lamina.h"
#include "util/matrix3.h"

namespace corvane::testing {

inline constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
inline constexpr float kInf = std::numeric_limits<float>::infinity();
inline constexpr double kPiDouble = 3.14159265358979323846;  // independent of kPi

// A ply material as the entry points take it.
struct Ply {
  float t, e1, e2, g12, nu12, cte1, cte2;
};
// Carbon/epoxy tape, mm and MPa; a negative CTE1 is accepted.
inline constexpr Ply kTape{0.125f, 140000.0f, 10000.0f, 5000.0f,
                           0.3f,   -0.5e-6f,  30.0e-6f};
// Glass fabric, thicker.
inline constexpr Ply kFabric{0.25f, 25000.0f, 24000.0f, 4000.0f,
                             0.12f, 10.0e-6f, 11.0e-6f};

// The same ply as a LAMINA with both allowables 1000 (stresses).
inline LAMINA lamina_of(const Ply& p, std::string_view name = "tape") {
  LAMINA m = new_lamina(p.t, p.e1, p.e2, p.g12, p.nu12, 1000.0f, 1000.0f, name);
  m.CTE1 = p.cte1;
  m.CTE2 = p.cte2;
  return m;
}

// A text as a host passes it: blank padded (or cut) to the entry points' length.
inline std::vector<char> layup_buffer(std::string_view text,
                                      std::size_t size = CORVANE_LAYUP_LENGTH) {
  std::vector<char> buffer(size, ' ');
  text.copy(buffer.data(), std::min(text.size(), size));
  return buffer;
}

// A symmetric matrix with no 16 and 26 terms.
inline Matrix3 orthotropic(float x11, float x12, float x22, float x66) {
  Matrix3 m;
  m(1, 1) = x11;
  m(1, 2) = m(2, 1) = x12;
  m(2, 2) = x22;
  m(3, 3) = x66;
  return m;
}

}  // namespace corvane::testing
