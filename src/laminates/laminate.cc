#include "laminates/laminate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>

#include "laminates/inverse3x3.h"
#include "util/fixed_width.h"
#include "util/numerics.h"

namespace corvane {
namespace {

// The stiffness matrices [A], [B], [D] of one ply set, summed ply by ply in
// stacking order: every element is its own running sum, so adding all of them
// for one ply before going to the next rounds exactly as summing each element
// over the whole stack in turn.
struct ThroughThickness {
  Matrix3 A, B, D;

  // A ply between z = zp and z = zk of transformed stiffness q.
  void add(const Matrix3& q, float dz, float dz2, float dz3) {
    for (std::size_t e = 0; e < 9; ++e) {
      A.v[e] = A.v[e] + q.v[e] * dz;
      B.v[e] = B.v[e] + (0.5f * q.v[e]) * dz2;
      D.v[e] = D.v[e] + (0.33333334f * q.v[e]) * dz3;
    }
  }
};

// Inverse of [[A, B], [B, D]] by blocks from the inverse of [A]:
//   [D*] = [D] - [B][A]^-1[B],  [d] = [D*]^-1,  [c] = -[d][B][A]^-1,
//   [b] = -[A]^-1[B][d],  [a] = [A]^-1 - [A]^-1[B][c].
struct BlockInverse {
  Matrix3 dstar, a, b, c, d;
};

BlockInverse block_inverse(const Matrix3& a_inv, const Matrix3& b, const Matrix3& d) {
  const Matrix3 a_inv_b = matrix_product(a_inv, b);
  const Matrix3 b_a_inv = matrix_product(b, a_inv);
  const Matrix3 b_a_inv_b = matrix_product(b_a_inv, b);
  BlockInverse r;
  for (std::size_t e = 0; e < 9; ++e) r.dstar.v[e] = d.v[e] + -1.0f * b_a_inv_b.v[e];
  r.d = inverse3x3(r.dstar);
  r.c = matrix_product(r.d, b_a_inv);
  r.b = matrix_product(a_inv_b, r.d);
  for (std::size_t e = 0; e < 9; ++e) {
    r.c.v[e] = -r.c.v[e];
    r.b.v[e] = -r.b.v[e];
  }
  const Matrix3 a_inv_b_c = matrix_product(a_inv_b, r.c);
  for (std::size_t e = 0; e < 9; ++e) r.a.v[e] = a_inv.v[e] - a_inv_b_c.v[e];
  return r;
}

// Thermal force per unit temperature of one ply in laminate axes:
// T(theta)^-1 Q (CTE1, CTE2, 0), times the ply thickness.
Vector3 thermal_force(const LAMINA& ply, float angle_deg) {
  const Vector3 laminate_axes =
      matrix_vector_product(stress_transformation(angle_deg).t_inv,
                            matrix_vector_product(ply.Q, {ply.CTE1, ply.CTE2, 0.0f}));
  Vector3 force{};
  for (std::size_t i = 0; i < 3; ++i) force[i] = laminate_axes[i] * ply.CPT;
  return force;
}

// What a ply contributes whatever its place in the stack: its transformed
// stiffness, its B-basis transformed stiffness and its thermal force.
struct PlyTerms {
  Matrix3 qbar, qbar_b;
  Vector3 thermal;
};

PlyTerms ply_terms(const LAMINA& ply, float angle_deg) {
  return {ply.stiffness_at_angle(angle_deg), ply.stiffness_at_angle(angle_deg, 1),
          thermal_force(ply, angle_deg)};
}

// The terms of the distinct (material, angle) pairs met so far. Stacks repeat a
// handful of angles, so most plies find theirs here and skip the trigonometry
// and the matrix products; the terms are a function of the pair alone, so a
// found entry holds the very bits a fresh evaluation would give. Angles are
// told apart by their bit patterns (0.0 and -0.0 differ, a NaN matches itself).
class PlyTermsCache {
 public:
  const PlyTerms& get(const LAMINA& ply, std::int32_t material, float angle_deg) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &angle_deg, sizeof bits);
    for (std::size_t i = 0; i < size_; ++i) {
      if (keys_[i].material == material && keys_[i].angle_bits == bits) return terms_[i];
    }
    // Full: the slot past the end holds the latest pair only.
    const std::size_t slot = size_ < kCapacity ? size_++ : kCapacity;
    keys_[slot] = {material, bits};
    terms_[slot] = ply_terms(ply, angle_deg);
    return terms_[slot];
  }

 private:
  static constexpr std::size_t kCapacity = 16;
  struct Key {
    std::int32_t material;
    std::uint32_t angle_bits;
  };
  std::size_t size_ = 0;
  std::array<Key, kCapacity + 1> keys_{};
  std::array<PlyTerms, kCapacity + 1> terms_{};
};

template <typename T, typename Format>
std::string bracketed(const std::vector<T>& values, Format format) {
  std::string text = "(";
  for (std::size_t k = 0; k < values.size(); ++k) {
    if (k > 0) text += '/';
    text += format(values[k]);
  }
  return text + ")";
}

}  // namespace

LAMINATE::LAMINATE(const LAMINA& m, std::span<const float> angles, std::string_view name)
    : LAMINATE(std::vector<LAMINA>{m}, std::vector<float>(angles.begin(), angles.end()),
               std::vector<std::int32_t>(angles.size(), 1), name) {}

LAMINATE::LAMINATE(const LAMINA& m1, const LAMINA& m2, std::span<const float> angles,
                   std::span<const std::int32_t> material_index, std::string_view name)
    : LAMINATE(
          std::vector<LAMINA>{m1, m2}, std::vector<float>(angles.begin(), angles.end()),
          std::vector<std::int32_t>(material_index.begin(), material_index.end()), name) {
}

LAMINATE::LAMINATE(std::vector<LAMINA> materials_in, std::vector<float> angles_in,
                   std::vector<std::int32_t> material_index_in, std::string_view name_in)
    : name(name_in),
      materials(std::move(materials_in)),
      material_index(std::move(material_index_in)),
      angles(std::move(angles_in)) {
  compute_stiffness();
}

void LAMINATE::compute_stiffness() {
  error = true;
  nplies = static_cast<std::int32_t>(angles.size());
  if (material_index.size() != angles.size()) return;
  for (std::int32_t index : material_index) {
    if (index < 1 || static_cast<std::size_t>(index) > materials.size()) return;
  }
  const auto material_of = [this](std::size_t k) -> const LAMINA& {
    return materials[static_cast<std::size_t>(material_index[k]) - 1];
  };
  const std::size_t n = angles.size();

  h = 0.0f;
  for (std::size_t k = 0; k < n; ++k) h = h + material_of(k).CPT;

  // One pass over the plies from z = -h/2; the ply terms are looked up once per
  // distinct material and angle.
  PlyTermsCache cache;
  ThroughThickness set, set_b;
  Vector3 thermal{};  // thermal resultant per unit temperature
  float zp = -(h * 0.5f);
  for (std::size_t k = 0; k < n; ++k) {
    const LAMINA& ply = material_of(k);
    const float zk = zp + ply.CPT;
    const PlyTerms& terms = cache.get(ply, material_index[k], angles[k]);
    for (std::size_t i = 0; i < 3; ++i) thermal[i] = thermal[i] + terms.thermal[i];
    const float dz = zk - zp;
    const float dz2 = zk * zk - zp * zp;
    const float dz3 = zk * zk * zk - zp * zp * zp;
    set.add(terms.qbar, dz, dz2, dz3);
    set_b.add(terms.qbar_b, dz, dz2, dz3);
    zp = zk;
  }
  A = set.A;
  B = set.B;
  D = set.D;
  A_B = set_b.A;
  B_B = set_b.B;
  D_B = set_b.D;

  // Only angles are compared; the middle ply of an odd stack is its own mirror.
  symmetric = true;
  for (std::size_t k = 0; k < n / 2; ++k) {
    if (std::fabs(angles[k] - angles[n - 1 - k]) > 1.0e-6f) symmetric = false;
  }

  int status = kInverseOk;
  const Matrix3 a_inv = inverse3x3(A, 1.0e-20f, &status);
  if (status != kInverseOk) return;
  BlockInverse blocks = block_inverse(a_inv, B, D);
  Dstar = blocks.dstar;
  a = blocks.a;
  b = blocks.b;
  c = blocks.c;
  d = blocks.d;

  // Membrane constants from [A]^-1 alone. The shear modulus comes from [A]
  // itself, not from the compliance.
  Ex = floor_at(1.0f / (a_inv(1, 1) * h), 1.0e-6f);
  Ey = floor_at(1.0f / (a_inv(2, 2) * h), 1.0e-6f);
  Gxy = floor_at(A(3, 3) / h, 1.0e-6f);
  nuxy = floor_at(-(a_inv(1, 2) * h) * Ex, 0.0f);
  nuyx = nuxy * Ey / Ex;

  const Vector3 alpha = matrix_vector_product(a_inv, thermal);
  alphax = alpha[0];
  alphay = alpha[1];
  alphaxy = alpha[2];

  const Matrix3 a_inv_b = inverse3x3(A_B, 1.0e-20f, &status);
  if (status != kInverseOk) return;
  blocks = block_inverse(a_inv_b, B_B, D_B);
  Dstar_B = blocks.dstar;
  a_B = blocks.a;
  b_B = blocks.b;
  c_B = blocks.c;
  d_B = blocks.d;

  error = false;
}

float LAMINATE::knock_down_factor(float x, int kind) const {
  if (x < 0.0f || x > 1.0f) return 1.0f;
  switch (kind) {
    case 1:
      return std::fmin(1.0f, std::sqrt(x));
    case 2:
      return 1.0f / (2.0f * (A(1, 2) / A(1, 1) + 1.0f) * (1.0f - x) *
                         (A(1, 1) / (3.0f * A(2, 2) + A(1, 1))) +
                     1.0f);
    default:
      return 0.0f;
  }
}

float LAMINATE::plate_term(float width, float m) const {
  if (m < 1.5f || m > 4.0f) return 0.0f;
  int status = kInverseOk;
  const Matrix3 compliance = inverse3x3(Dstar_B, 1.0e-20f, &status);
  if (status != kInverseOk) return 0.0f;
  return m * kPiSquared / (width * width * compliance(1, 1));
}

LAMINATE LAMINATE::rotate(float delta_deg) const {
  std::vector<float> turned = angles;
  for (float& angle : turned) angle = angle + delta_deg;
  return LAMINATE(materials, std::move(turned), material_index, name);
}

std::string LAMINATE::stacking_text() const { return bracketed(angles, shortest_text); }

void LAMINATE::stacking_text(std::span<char> out) const {
  const std::string text = pad_or_cut(stacking_text(), out.size());
  std::copy(text.begin(), text.end(), out.begin());
}

}  // namespace corvane
