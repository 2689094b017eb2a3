#include "cards/bulk_data_cards.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "cards/number_fields.h"
#include "util/fixed_width.h"
#include "util/matrix3.h"
#include "util/numerics.h"

namespace corvane {
namespace {

constexpr std::string_view kEndOfLine = "\r\n";
constexpr std::string_view kRuler =
    "$--01--$$--02--$$--03--$$--04--$$--05--$$--06--$$--07--$$--08--$$--09--$";

void append_line(std::string& deck, std::string_view line) {
  deck += line;
  deck += kEndOfLine;
}

// Each entry rounded to a whole number through int32 and back to a real.
Matrix3 rounded(const Matrix3& m) {
  Matrix3 r;
  for (std::size_t e = 0; e < r.v.size(); ++e) {
    r.v[e] = static_cast<float>(nint(m.v[e])) * 1.0f;
  }
  return r;
}

// MAT2 with the upper triangle of m times the factor.
std::string mat2_card(std::int32_t id, const Matrix3& m, float factor) {
  const std::array<std::string, 8> fields = {
      "MAT2",
      integer_to_text(id),
      real_to_field8(m(1, 1) * factor),
      real_to_field8(m(1, 2) * factor),
      real_to_field8(m(1, 3) * factor),
      real_to_field8(m(2, 2) * factor),
      real_to_field8(m(2, 3) * factor),
      real_to_field8(m(3, 3) * factor),
  };
  return assemble_card(fields);
}

}  // namespace

std::string mat8_card(const LAMINA& lamina) {
  if (lamina.status != 0) return {};
  std::vector<std::string> fields(20);
  fields[0] = "MAT8";
  fields[1] = pad_or_cut(lamina.Name, 8);
  if (!is_valid_card_id(fields[1])) return {};
  fields[2] = real_to_field8(lamina.E1);
  fields[3] = real_to_field8(lamina.E2);
  fields[4] = real_to_field8(lamina.v12);
  fields[5] = real_to_field8(lamina.G12);
  if (lamina.G13 > 0.0f) fields[6] = real_to_field8(lamina.G13);
  if (lamina.G23 > 0.0f) fields[7] = real_to_field8(lamina.G23);
  if (lamina.DENSITY > 0.0f) fields[8] = real_to_field8(lamina.DENSITY);
  if (lamina.CTE1 != 0.0f) fields[9] = real_to_field8(lamina.CTE1);
  if (lamina.CTE2 != 0.0f) fields[10] = real_to_field8(lamina.CTE2);
  // fields[11], TREF, stays blank.
  fields[12] = real_to_field8(lamina.uetall);
  fields[13] = real_to_field8(lamina.uecall);
  // Yt, Yc and S: fixed placeholders, whatever the lamina holds.
  fields[14] = fields[15] = fields[16] = "1.0";
  // fields[17] and fields[18], GE and F12, stay blank.
  fields[19] = "STRN";
  return assemble_card(fields);
}

std::string pcomp_card(const LAMINATE& laminate) {
  const std::int32_t n = laminate.nplies;
  const auto plies = static_cast<std::size_t>(n);
  // Ply lists that disagree with the ply count describe no card.
  if (n < 0 || laminate.angles.size() < plies || laminate.material_index.size() < plies ||
      laminate.materials.empty()) {
    return {};
  }
  std::vector<std::string> fields(9 + 4 * plies);
  fields[0] = "PCOMP";
  fields[1] = pad_or_cut(laminate.name, 8);
  bool valid = is_valid_card_id(fields[1]);
  const float interlaminar_shear = laminate.materials[0].F13;
  if (interlaminar_shear > 0.0f) fields[3] = real_to_text(interlaminar_shear, 1);
  fields[4] = "STRN";
  fields[5] = "20";
  for (std::size_t k = 0; k < plies; ++k) {
    const std::int32_t index = laminate.material_index[k];
    // A ply without a material in the list cannot be written either.
    if (index < 1 || static_cast<std::size_t>(index) > laminate.materials.size()) {
      return {};
    }
    const LAMINA& material = laminate.materials[static_cast<std::size_t>(index) - 1];
    const std::size_t first = 9 + 4 * k;
    fields[first] = pad_or_cut(material.Name, 8);
    valid = valid && is_valid_card_id(fields[first]);
    fields[first + 1] = real_to_text(material.CPT, 3);
    fields[first + 2] = integer_to_text(nint(laminate.angles[k])) + ".";
    fields[first + 3] = "YES";
  }
  return valid ? assemble_card(fields) : std::string();
}

std::string bulk_data_cards(LAMINATESTIFFNESS laminate) {
  std::string deck;
  for (std::size_t k = 0; k < laminate.materials.size(); ++k) {
    LAMINA& material = laminate.materials[k];
    material.Name = integer_to_text(static_cast<std::int32_t>(k) + 101);
    append_line(deck, "$ Ortotropic material as MAT8");
    append_line(deck, kRuler);
    deck += mat8_card(material);
  }

  laminate.name = "1001";
  append_line(deck, "$ Laminate as PCOMP");
  append_line(deck, kRuler);
  deck += pcomp_card(laminate);
  append_line(deck, "$");

  append_line(deck,
              "$ Laminate stiffnesses for PSHELL as MAT2: membrane, bending & coupling");
  append_line(deck, kRuler);
  const Matrix3 a = rounded(laminate.A);
  const Matrix3 b = rounded(laminate.B);
  const Matrix3 d = rounded(laminate.D);
  const float t = laminate.h;
  deck += mat2_card(2001, a, 1.0f / t);
  deck += mat2_card(2002, d, 12.0f / ((t * t) * t));
  append_line(deck, "$ Remark: Transverse shear stiffness (MID3 in PSHELL) not reported");
  // The coupling card carries -[B]/t^2: the sign is reversed on purpose.
  deck += mat2_card(2004, b, -1.0f / (t * t));
  return deck;
}

}  // namespace corvane
