#include "laminas/lamina.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "laminas/notch.h"
#include "util/fixed_width.h"
#include "util/keywords.h"
#include "util/number_reading.h"

namespace corvane {
namespace {

constexpr float kTiny = 1.0e-20f;

// A matrix written row by row, as the formulas read.
Matrix3 by_rows(const std::array<std::array<float, 3>, 3>& rows) {
  Matrix3 a;
  for (int i = 1; i <= 3; ++i) {
    for (int j = 1; j <= 3; ++j) a(i, j) = rows[i - 1][j - 1];
  }
  return a;
}

// Reduced (plane-stress) stiffness of an orthotropic ply.
Matrix3 reduced_stiffness(float e1, float e2, float g12, float v12, float nu21) {
  const float d = 1.0f - v12 * nu21;
  const float q12 = v12 * e2 / d;
  return by_rows({{{e1 / d, q12, 0.0f}, {q12, e2 / d, 0.0f}, {0.0f, 0.0f, g12}}});
}

// A row of fixed-point fields: value, width, decimals.
struct Field {
  float value;
  int width;
  int decimals;
};

std::string row(std::initializer_list<Field> fields) {
  std::string line;
  for (const Field& f : fields) line += format_fixed(f.value, f.width, f.decimals);
  return line + "\n";
}

// Dashes under each 8-character column of a header, behind `indent` blanks.
std::string column_rule(int indent, int columns) {
  std::string line(static_cast<std::size_t>(indent), ' ');
  for (int i = 0; i < columns; ++i) line += " -------";
  return line + "\n";
}

// new_lamina's inputs in the order of its parameters; the first must reach
// kThinnestPly, the others must not be negative (a NaN is let through).
constexpr std::array<std::string_view, 7> kInputNames = {
    "CPT", "E1", "E2", "G12", "v12", "tension_allowable", "compression_allowable"};
constexpr float kThinnestPly = 1.0e-5f;
constexpr std::size_t kNoRefusedInput = kInputNames.size();

std::size_t refused_input(const std::array<float, 7>& inputs) {
  if (inputs[0] < kThinnestPly) return 0;
  for (std::size_t k = 1; k < inputs.size(); ++k) {
    if (inputs[k] < 0.0f) return k;
  }
  return kNoRefusedInput;
}

}  // namespace

std::string lamina_fault(float CPT, float E1, float E2, float G12, float v12,
                         float tension_allowable, float compression_allowable) {
  const std::array<float, 7> inputs = {
      CPT, E1, E2, G12, v12, tension_allowable, compression_allowable};
  const std::size_t k = refused_input(inputs);
  if (k == kNoRefusedInput) return {};
  // The shortest text that reads back as the very float refused.
  std::array<char, 32> value{};
  const auto written =
      std::to_chars(value.data(), value.data() + value.size(), inputs[k]);
  return std::string(kInputNames[k]) + " = " +
         std::string(value.data(), static_cast<std::size_t>(written.ptr - value.data())) +
         (k == 0 ? " is below 1.0e-5" : " is negative");
}

LAMINA new_lamina(float CPT, float E1, float E2, float G12, float v12,
                  float tension_allowable, float compression_allowable,
                  std::optional<std::string_view> name, std::optional<bool> is_fabric) {
  LAMINA m;
  m.status = -1;
  m.selector = 2;
  m.F1t = m.F2t = m.F3t = m.F1c = m.F2c = m.F3c = m.F12 = m.F13 = m.F23 = 0.0f;
  m.e1tu = m.uetall = m.uecall = 0.0f;
  m.spare = 0.0f;
  m.DENSITY = 0.0f;
  m.is_fabric = false;
  if (name) m.Name = std::string(*name);

  if (refused_input({CPT, E1, E2, G12, v12, tension_allowable, compression_allowable}) !=
      kNoRefusedInput) {
    return m;
  }

  m.CPT = CPT;
  m.E1 = E1;
  m.E2 = E2;
  m.G12 = G12;
  m.v12 = v12;
  m.KBM = 0.85f;
  m.E1b = 0.85f * E1;
  m.E2b = 0.85f * E2;
  m.G12b = 0.85f * G12;

  m.nu21 = v12 * E2 / std::max(kTiny, E1);
  m.Q = reduced_stiffness(E1, E2, G12, v12, m.nu21);
  const float s12 = -v12 / std::max(kTiny, E1);
  m.S = by_rows({{{1.0f / std::max(kTiny, E1), s12, 0.0f},
                  {s12, 1.0f / std::max(kTiny, E2), 0.0f},
                  {0.0f, 0.0f, 1.0f / std::max(kTiny, G12)}}});
  m.update_design_stiffness();

  if (is_fabric) {
    m.is_fabric = *is_fabric;
  } else if (E1 > 1.0f && E2 > 1.0f && std::abs(E1 - E2) < 1.0f) {
    m.is_fabric = true;
  }

  const float t = tension_allowable;
  if (t < 1.0f) {  // a strain
    m.e1tu = t;
    m.uetall = t;
    m.F1t = E1 * t;
  } else {  // a stress
    m.F1t = t;
    m.e1tu = t / E1;
    m.uetall = 0.8f * m.e1tu;
  }
  m.uetall_third = m.uetall / 3.0f;

  const float c = compression_allowable;
  if (c < 1.0f) {
    m.uecall = c;
    m.F1c = E1 * c;
  } else {
    m.F1c = c;
    m.uecall = c / E1;
  }
  m.uecall_third = m.uecall / 3.0f;
  m.CAIH = 2.0f * (m.uecall / 3.0f);
  m.CAIE = m.uecall / 3.0f;

  // Stiffness invariants; the quasi-isotropic laminate keeps U1, U4 and U5.
  const Matrix3& q = m.Q;
  const float u1 =
      (3.0f * q(1, 1) + 3.0f * q(2, 2) + 2.0f * q(1, 2) + 4.0f * q(3, 3)) / 8.0f;
  const float u4 = (q(1, 1) + q(2, 2) + 6.0f * q(1, 2) - 4.0f * q(3, 3)) / 8.0f;
  const float u5 = (q(1, 1) + q(2, 2) - 2.0f * q(1, 2) + 4.0f * q(3, 3)) / 8.0f;
  m.Qiso = by_rows({{{u1, u4, 0.0f}, {u4, u1, 0.0f}, {0.0f, 0.0f, u5}}});
  m.nuiso = u4 / std::max(kTiny, u1);
  m.Eiso = u1 * (1.0f - m.nuiso * m.nuiso);
  m.Giso = u5;

  m.a0oht = m.a0ohc = m.a0fht = 0.0f;
  m.Kfht = 0.7f;
  m.Kfhc = 0.6f;
  m.DENSITY = 1.5e-6f;
  m.Fbr = m.is_fabric ? m.F1c : 0.5f * m.F1c;
  m.status = 0;
  return m;
}

void LAMINA::set_kbm(float k) {
  if (!(k > 0.0f && k <= 1.0f)) return;
  KBM = k;
  E1b = k * E1;
  E2b = k * E2;
  G12b = k * G12;
  update_design_stiffness();
}

void LAMINA::update_design_stiffness() {
  Qb = reduced_stiffness(E1b, E2b, G12b, v12, nu21);
}

Matrix3 LAMINA::stiffness_at_angle(float angle_deg, int which) const {
  // Stress transformation T(theta) and its inverse T(-theta).
  const auto [t, t_inv] = stress_transformation(angle_deg);
  // Engineering shear strain: R = diag(1, 1, 2).
  const Matrix3 r =
      by_rows({{{1.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f}, {0.0f, 0.0f, 2.0f}}});
  const Matrix3 r_inv =
      by_rows({{{1.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f}, {0.0f, 0.0f, 0.5f}}});

  const Matrix3& ply = which == 1 ? Qb : Q;
  return matrix_product(matrix_product(matrix_product(matrix_product(t_inv, ply), r), t),
                        r_inv);
}

float LAMINA::tsai_hill_rf(float s1, float s2, float t12) const {
  const float x = s1 >= 0.0f ? F1t : F1c;
  const float y = s2 >= 0.0f ? F2t : F2c;
  const float s = F12;
  // Each strength on its own: a NaN among them must not hide a zero one.
  if (x <= 0.0f || y <= 0.0f || s <= 0.0f) return 0.0f;
  if (std::abs(s1) + std::abs(s2) + std::abs(t12) < 1.0e-5f) return 1.0e10f;
  const float a = s1 / x;
  const float b = s2 / y;
  const float c = t12 / s;
  return 1.0f / std::sqrt(a * a - s1 * s2 / (x * x) + b * b + c * c);
}

std::array<float, 3> LAMINA::stress_from_strain(
    const std::array<float, 3>& strain) const {
  return matrix_vector_product(Q, strain);
}

std::array<float, 3> LAMINA::strain_from_stress(
    const std::array<float, 3>& stress) const {
  return matrix_vector_product(S, stress);
}

void LAMINA::set_strengths(float f1t, float f1c, float f12, float f2t, float f2c) {
  F1t = f1t;
  F1c = f1c;
  F12 = f12;
  F2t = f2t;
  F2c = f2c;
  for (float f : {f1t, f1c, f12, f2t, f2c}) {
    if (f < 0.0f) status = -1;
  }
}

namespace {

// The characteristic distance of a notched strength against the unnotched
// strain, both of the quasi-isotropic laminate; 1 when there is none.
int characteristic_distance(const LAMINA& m, float strength, float unnotched,
                            float hole_diameter, float& a0) {
  if (!(unnotched > 0.0f) || !(m.Eiso > 0.0f)) return 1;
  const float d0 = point_stress_distance((strength / m.Eiso) / unnotched, hole_diameter);
  if (!(d0 >= 0.0f)) return 1;
  a0 = d0;
  return 0;
}

}  // namespace

int LAMINA::set_oht(float strength, float hole_diameter) {
  OHT = strength;
  return characteristic_distance(*this, strength, e1tu, hole_diameter, a0oht);
}
int LAMINA::set_ohc(float strength, float hole_diameter) {
  OHC = strength;
  return characteristic_distance(*this, strength, uecall, hole_diameter, a0ohc);
}
int LAMINA::set_fht(float strength, float hole_diameter) {
  FHT = strength;
  return characteristic_distance(*this, strength, e1tu, hole_diameter, a0fht);
}

void LAMINA::set_fhc(float strength) {
  // 3.1401 is the constant of the method, not a rounded pi.
  Kfhc = uecall / (3.1401f * strength / Eiso);
}

namespace {

// The values a key takes; any other value leaves the material as it is.
enum class Accepts { any, positive, non_negative };

bool accepts(Accepts rule, float v) {
  switch (rule) {
    case Accepts::positive:
      return v > 0.0f;
    case Accepts::non_negative:
      return v >= 0.0f;
    default:
      return true;
  }
}

template <float LAMINA::*field>
void store(LAMINA& m, float v) {
  m.*field = v;
}

// The hole diameter that keyed notched strengths are taken at.
constexpr float kKeyedHoleDiameter = 6.35f;

struct PropertyKey {
  std::string_view key;
  Accepts rule;
  void (*set)(LAMINA&, float);
};

constexpr PropertyKey kPropertyKeys[] = {
    {"KBM", Accepts::positive, [](LAMINA& m, float v) { m.set_kbm(v); }},
    {"CTE1", Accepts::any, store<&LAMINA::CTE1>},
    {"CTE2", Accepts::any, store<&LAMINA::CTE2>},
    // Any value: the strength needs a positive one, the ultimate strain follows
    // whatever is given.
    {"F1T", Accepts::any,
     [](LAMINA& m, float v) {
       if (v > 0.0f) m.F1t = v;
       m.e1tu = v / m.E1;
       if (m.is_fabric) m.e1tu = m.e1tu * 1.2f;
     }},
    {"F1C", Accepts::positive, store<&LAMINA::F1c>},
    {"FBR", Accepts::positive, store<&LAMINA::Fbr>},
    {"OHT", Accepts::positive,
     [](LAMINA& m, float v) { m.set_oht(v, kKeyedHoleDiameter); }},
    {"OHC", Accepts::positive,
     [](LAMINA& m, float v) { m.set_ohc(v, kKeyedHoleDiameter); }},
    {"FHT", Accepts::positive,
     [](LAMINA& m, float v) { m.set_fht(v, kKeyedHoleDiameter); }},
    {"FHC", Accepts::positive, [](LAMINA& m, float v) { m.set_fhc(v); }},
    // The notch data accept 0, unlike every other key.
    {"A0OHT", Accepts::non_negative, store<&LAMINA::a0oht>},
    {"A0OHC", Accepts::non_negative, store<&LAMINA::a0ohc>},
    {"A0FHT", Accepts::non_negative, store<&LAMINA::a0fht>},
    {"KFHT", Accepts::non_negative, store<&LAMINA::Kfht>},
    {"KFHC", Accepts::non_negative, store<&LAMINA::Kfhc>},
    {"DENSITY", Accepts::positive, store<&LAMINA::DENSITY>},
    {"E3", Accepts::positive, store<&LAMINA::E3>},
    {"G13", Accepts::positive, store<&LAMINA::G13>},
    {"G23", Accepts::positive, store<&LAMINA::G23>},
    {"F2T", Accepts::positive,
     [](LAMINA& m, float v) {
       m.F2t = v;
       // fmin passes over a NaN F1t.
       if (m.is_fabric) m.e1tu = std::fmin(m.F1t, m.F2t) / m.E1;
     }},
    {"F2C", Accepts::positive, store<&LAMINA::F2c>},
    {"F3T", Accepts::positive, store<&LAMINA::F3t>},
    {"F3C", Accepts::positive, store<&LAMINA::F3c>},
    {"F12", Accepts::positive, store<&LAMINA::F12>},
    {"F13", Accepts::positive, store<&LAMINA::F13>},
    {"F23", Accepts::positive, store<&LAMINA::F23>},
    {"CAIH", Accepts::positive, store<&LAMINA::CAIH>},
    {"CAIE", Accepts::positive, store<&LAMINA::CAIE>},
};

}  // namespace

void LAMINA::set_by_key(std::span<const std::pair<std::string_view, float>> pairs) {
  for (const auto& [text, v] : pairs) {
    const std::string key = normalize_keyword(text);
    for (const PropertyKey& property : kPropertyKeys) {
      if (key != property.key) continue;
      if (accepts(property.rule, v)) property.set(*this, v);
      break;
    }
  }
}

bool LAMINA::is_property_key(std::string_view text) {
  const std::string key = normalize_keyword(text);
  for (const PropertyKey& property : kPropertyKeys) {
    if (key == property.key) return true;
  }
  return false;
}

std::string set_properties(LAMINA& m, std::string_view rest) {
  constexpr std::string_view kSeparators = " ,;\t";
  while (true) {
    const std::size_t start = rest.find_first_not_of(kSeparators);
    if (start == std::string_view::npos) return {};
    rest.remove_prefix(start);
    const std::size_t end = std::min(rest.find_first_of(kSeparators), rest.size());
    const std::string_view item = rest.substr(0, end);
    rest.remove_prefix(end);
    const std::size_t equals = item.find('=');
    const std::string key =
        normalize_keyword(item.substr(0, std::min(equals, item.size())));
    float v = 0.0f;
    if (equals == std::string_view::npos || !LAMINA::is_property_key(key) ||
        read_real(item.substr(equals + 1), v) != kReadOk) {
      return "property \"" + std::string(item) +
             "\" refused: KEY=value with a known key and a real value";
    }
    int (LAMINA::*notched)(float, float) = key == "OHT"   ? &LAMINA::set_oht
                                           : key == "OHC" ? &LAMINA::set_ohc
                                           : key == "FHT" ? &LAMINA::set_fht
                                                          : nullptr;
    if (notched != nullptr && v > 0.0f) {
      if ((m.*notched)(v, kKeyedHoleDiameter) != 0) {
        return "property " + std::string(item) +
               " refused: no characteristic distance gives it (its strain over the "
               "unnotched one must lie between 1/3 and 1)";
      }
      continue;
    }
    const std::pair<std::string_view, float> pair[] = {{key, v}};
    m.set_by_key(pair);
  }
}

std::string LAMINA::print_short() const {
  if (status != 0) return "Error! Not valid lamina material.\n";
  return pad_or_cut(Name, 20) + row({{CPT, 6, 3},
                                     {E1, 8, 0},
                                     {E2, 8, 0},
                                     {G12, 8, 0},
                                     {v12, 6, 3},
                                     {KBM, 6, 3},
                                     {uetall, 8, 5},
                                     {uecall, 8, 5}});
}

std::string LAMINA::print_full() const {
  if (status != 0) return "Error! Not valid lamina material.\n";
  std::string text;
  text +=
      "Name                     CPT      E1      E2     G12     v12     KBM     E1b     "
      "E2b    G12b\n";
  text += column_rule(20, 9);
  text += pad_or_cut(Name, 20) + row({{CPT, 8, 4},
                                      {E1, 8, 0},
                                      {E2, 8, 0},
                                      {G12, 8, 0},
                                      {v12, 8, 4},
                                      {KBM, 8, 4},
                                      {E1b, 8, 0},
                                      {E2b, 8, 0},
                                      {G12b, 8, 0}});
  text += " uetall  uecall     F1t     F1c\n";
  text += column_rule(0, 4);
  text += row({{uetall, 8, 5}, {uecall, 8, 5}, {F1t, 8, 1}, {F1c, 8, 1}});
  text += "     F2t     F2c     F12     F13\n";
  text += column_rule(0, 4);
  text += row({{F2t, 8, 1}, {F2c, 8, 1}, {F12, 8, 1}, {F13, 8, 1}});
  text += "   a0oht   a0ohc   a0fht    Kfhc     Fbr\n";
  text += column_rule(0, 5);
  text += row({{a0oht, 8, 3}, {a0ohc, 8, 3}, {a0fht, 8, 3}, {Kfhc, 8, 3}, {Fbr, 8, 1}});
  text += "    --------------------\n";
  // The ply stiffness is positive definite only while 1 - v12 nu21 > 0.
  if (!(1.0f - v12 * nu21 > 0.0f)) text += "Error! Material is ill conditioned.\n";
  return text;
}

}  // namespace corvane
