// LAMINATE: a stack of plies of one or two ply materials and its classical
// laminate theory stiffness: the extensional, coupling and bending matrices
// [A], [B], [D], the reduced bending matrix [D*] = [D] - [B][A]^-1[B], the blocks
// of the inverse of the full 6x6 stiffness by partitioned inversion, the apparent
// membrane constants, the apparent thermal expansion coefficients, and the same
// matrices from the knocked-down (B-basis) ply stiffness.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "laminas/lamina.h"
#include "util/matrix3.h"

namespace corvane {

struct LAMINATE {
  std::string name;               // empty when built without one
  std::vector<LAMINA> materials;  // copies
  std::int32_t nplies = 0;
  std::vector<std::int32_t> material_index;  // 1-based into materials, per ply
  std::vector<float> angles;                 // degrees, stacking order

  bool symmetric = false;  // mirrored ply angles equal (materials not compared)
  bool error = true;       // true until the stiffness computation completes
  float h = 0.0f;          // total thickness
  Matrix3 A, B, D, Dstar;
  Matrix3 a, b, c, d;  // blocks of the inverse of [[A, B], [B, D]]
  float Ex = 0.0f, Ey = 0.0f, Gxy = 0.0f, nuxy = 0.0f, nuyx = 0.0f;
  float alphax = 0.0f, alphay = 0.0f, alphaxy = 0.0f;
  Matrix3 A_B, B_B, D_B, Dstar_B, a_B, b_B, c_B, d_B;  // B-basis set

  // A laminate of one material, plies at the given angles (degrees) from the
  // face at z = -h/2. The stiffness is computed at once; test `error`.
  LAMINATE(const LAMINA& m, std::span<const float> angles, std::string_view name = {});
  // A laminate of two materials: material_index holds 1 or 2 per ply. Lists of
  // different lengths or an index other than 1 or 2 leave `error` set and the
  // results zero.
  LAMINATE(const LAMINA& m1, const LAMINA& m2, std::span<const float> angles,
           std::span<const std::int32_t> material_index, std::string_view name = {});

  // Knock-down factor of a ratio x in [0, 1] (x outside: 1.0). kind 1: min(1, sqrt(x));
  // kind 2: a factor from the membrane stiffness ratios of [A]; any other kind: 0.0.
  float knock_down_factor(float x, int kind) const;
  // m pi^2 / (b^2 g), g the (1,1) compliance of the B-basis [D*]; 0.0 for m
  // outside [1.5, 4.0] or a singular [D*]_B.
  float plate_term(float b, float m) const;
  // The same plies turned by delta_deg degrees, stiffness recomputed.
  LAMINATE rotate(float delta_deg) const;

  // The ply angles as a stacking-sequence text, e.g. "(0/45/-45/90)", each angle
  // in the shortest form that reads back to the same float.
  std::string stacking_text() const;
  // The same text blank padded or cut to the length of out.
  void stacking_text(std::span<char> out) const;

 private:
  LAMINATE(std::vector<LAMINA> materials, std::vector<float> angles,
           std::vector<std::int32_t> material_index, std::string_view name);
  void compute_stiffness();
};

}  // namespace corvane
