#include "cards/bulk_data_cards.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cards/card_writer.h"
#include "cards/number_fields.h"
#include "util/fixed_width.h"
#include "util/matrix3.h"
#include "util/numerics.h"

namespace corvane {
namespace {

constexpr std::string_view kEndOfLine = "\r\n";
constexpr std::string_view kRuler =
    "$--01--$$--02--$$--03--$$--04--$$--05--$$--06--$$--07--$$--08--$$--09--$";
constexpr std::string_view kMat8Comment = "$ Ortotropic material as MAT8";
constexpr std::string_view kPcompComment = "$ Laminate as PCOMP";
constexpr std::string_view kMat2Comment =
    "$ Laminate stiffnesses for PSHELL as MAT2: membrane, bending & coupling";
constexpr std::string_view kMid3Remark =
    "$ Remark: Transverse shear stiffness (MID3 in PSHELL) not reported";

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
void append_mat2(std::string& deck, std::int32_t id, const Matrix3& m, float factor) {
  CardWriter card(deck, 8);
  card.field("MAT2");
  card.field(integer_to_text(id));
  card.real(m(1, 1) * factor);
  card.real(m(1, 2) * factor);
  card.real(m(1, 3) * factor);
  card.real(m(2, 2) * factor);
  card.real(m(2, 3) * factor);
  card.real(m(3, 3) * factor);
  card.end();
}

// The MAT8 card of mat8_card under the 8-character id, appended; nothing when
// it has none.
void append_mat8(std::string& deck, const LAMINA& lamina, const std::string& id) {
  if (lamina.status != 0) return;
  if (!is_valid_card_id(id)) return;
  CardWriter card(deck, 20);
  card.field("MAT8");
  card.field(id);
  card.real(lamina.E1);
  card.real(lamina.E2);
  card.real(lamina.v12);
  card.real(lamina.G12);
  const auto real_if = [&card](bool written, float value) {
    if (written) {
      card.real(value);
    } else {
      card.blank();
    }
  };
  real_if(lamina.G13 > 0.0f, lamina.G13);
  real_if(lamina.G23 > 0.0f, lamina.G23);
  real_if(lamina.DENSITY > 0.0f, lamina.DENSITY);
  real_if(lamina.CTE1 != 0.0f, lamina.CTE1);
  real_if(lamina.CTE2 != 0.0f, lamina.CTE2);
  card.blank();  // TREF
  card.real(lamina.uetall);
  card.real(lamina.uecall);
  // Yt, Yc and S: fixed placeholders, whatever the lamina holds.
  card.field("1.0");
  card.field("1.0");
  card.field("1.0");
  card.blank();  // GE
  card.blank();  // F12
  card.field("STRN");
  card.end();
}

// The fields a ply takes from its material, laid out once for all its plies.
struct PlyMaterialFields {
  bool valid = false;  // the identifier is a card identifier
  CardWriter::Field id{}, thickness{};
};

PlyMaterialFields ply_material_fields(const std::string& id, const LAMINA& material) {
  return {is_valid_card_id(id), CardWriter::data_field(id),
          CardWriter::data_field(real_to_text(material.CPT, 3))};
}

// The orientation field of a ply: the angle rounded to a whole number of
// degrees with a point behind it (45 gives "45."), laid out once for each of
// the few distinct angles of a stack; angles are told apart by their bits.
class AngleFields {
 public:
  const CardWriter::Field& get(float angle) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &angle, sizeof bits);
    for (std::size_t i = 0; i < size_; ++i) {
      if (bits_[i] == bits) return fields_[i];
    }
    // Full: the slot past the end holds the latest angle only.
    const std::size_t slot = size_ < kCapacity ? size_++ : kCapacity;
    bits_[slot] = bits;
    std::array<char, 16> text;
    char* end =
        std::to_chars(text.data(), text.data() + text.size() - 1, nint(angle)).ptr;
    *end++ = '.';
    fields_[slot] = CardWriter::data_field(
        {text.data(), static_cast<std::size_t>(end - text.data())});
    return fields_[slot];
  }

 private:
  static constexpr std::size_t kCapacity = 16;
  std::size_t size_ = 0;
  std::array<std::uint32_t, kCapacity + 1> bits_{};
  std::array<CardWriter::Field, kCapacity + 1> fields_{};
};

// The PCOMP card of pcomp_card under the 8-character id, its plies referring to
// material_ids (one per listed material), appended; nothing when it has none.
void append_pcomp(std::string& deck, const LAMINATE& laminate, const std::string& id,
                  std::span<const std::string> material_ids) {
  const std::int32_t n = laminate.nplies;
  const auto plies = static_cast<std::size_t>(n);
  const std::vector<LAMINA>& materials = laminate.materials;
  // Ply lists that disagree with the ply count describe no card.
  if (n < 0 || laminate.angles.size() < plies || laminate.material_index.size() < plies ||
      materials.empty()) {
    return;
  }
  // A ply without a material in the list cannot be written either.
  for (std::size_t k = 0; k < plies; ++k) {
    const std::int32_t index = laminate.material_index[k];
    if (index < 1 || static_cast<std::size_t>(index) > materials.size()) return;
  }
  // Laminates hold one or two materials; their fields are formed once.
  std::array<PlyMaterialFields, 2> listed;
  for (std::size_t i = 0; i < listed.size() && i < materials.size(); ++i) {
    listed[i] = ply_material_fields(material_ids[i], materials[i]);
  }
  PlyMaterialFields other;
  const auto fields_of = [&](std::size_t k) -> const PlyMaterialFields& {
    const auto i = static_cast<std::size_t>(laminate.material_index[k]) - 1;
    if (i < listed.size()) return listed[i];
    other = ply_material_fields(material_ids[i], materials[i]);
    return other;
  };

  bool valid = is_valid_card_id(id);
  for (std::size_t k = 0; k < plies && valid; ++k) valid = fields_of(k).valid;
  if (!valid) return;

  CardWriter card(deck, 9 + 4 * plies);
  card.field("PCOMP");
  card.field(id);
  card.blank();
  const float interlaminar_shear = materials[0].F13;
  if (interlaminar_shear > 0.0f) {
    card.field(real_to_text(interlaminar_shear, 1));
  } else {
    card.blank();
  }
  card.field("STRN");
  card.field("20");
  card.blank();
  card.blank();
  card.blank();
  const CardWriter::Field yes = CardWriter::data_field("YES");
  AngleFields angles;
  for (std::size_t k = 0; k < plies; ++k) {
    const PlyMaterialFields& material = fields_of(k);
    card.laid(material.id);
    card.laid(material.thickness);
    card.laid(angles.get(laminate.angles[k]));
    card.laid(yes);
  }
  card.end();
}

}  // namespace

std::string mat8_card(const LAMINA& lamina) {
  std::string card;
  append_mat8(card, lamina, pad_or_cut(lamina.Name, 8));
  return card;
}

std::string pcomp_card(const LAMINATE& laminate) {
  std::string card;
  std::vector<std::string> material_ids;
  material_ids.reserve(laminate.materials.size());
  for (const LAMINA& material : laminate.materials) {
    material_ids.push_back(pad_or_cut(material.Name, 8));
  }
  append_pcomp(card, laminate, pad_or_cut(laminate.name, 8), material_ids);
  return card;
}

std::string bulk_data_cards(const LAMINATESTIFFNESS& laminate) {
  const std::size_t materials = laminate.materials.size();
  const auto plies = static_cast<std::size_t>(std::max(laminate.nplies, 0));
  std::string deck;
  deck.reserve(materials * (kMat8Comment.size() + kRuler.size() + 2 * kEndOfLine.size() +
                            CardWriter::length_bound(20)) +
               kPcompComment.size() + kRuler.size() + 2 * kEndOfLine.size() +
               CardWriter::length_bound(9 + 4 * plies) + 1 + kMat2Comment.size() +
               kRuler.size() + kMid3Remark.size() + 4 * kEndOfLine.size() +
               3 * CardWriter::length_bound(8));

  std::vector<std::string> material_ids(materials);
  for (std::size_t k = 0; k < materials; ++k) {
    material_ids[k] = pad_or_cut(integer_to_text(static_cast<std::int32_t>(k) + 101), 8);
    append_line(deck, kMat8Comment);
    append_line(deck, kRuler);
    append_mat8(deck, laminate.materials[k], material_ids[k]);
  }

  append_line(deck, kPcompComment);
  append_line(deck, kRuler);
  append_pcomp(deck, laminate, pad_or_cut("1001", 8), material_ids);
  append_line(deck, "$");

  append_line(deck, kMat2Comment);
  append_line(deck, kRuler);
  const Matrix3 a = rounded(laminate.A);
  const Matrix3 b = rounded(laminate.B);
  const Matrix3 d = rounded(laminate.D);
  const float t = laminate.h;
  append_mat2(deck, 2001, a, 1.0f / t);
  append_mat2(deck, 2002, d, 12.0f / ((t * t) * t));
  append_line(deck, kMid3Remark);
  // The coupling card carries -[B]/t^2: the sign is reversed on purpose.
  append_mat2(deck, 2004, b, -1.0f / (t * t));
  return deck;
}

}  // namespace corvane
