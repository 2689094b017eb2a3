// The command's side of the stiffness entry points: a ply material as seven
// values, the call with its 1000- and 10000-character texts, the results as
// plain values, and the core's words for a refused material or layup.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::cli {

// One ply material: thickness, moduli, Poisson's ratio, thermal expansion.
struct PlyMaterial {
  float t, e1, e2, g12, nu12, cte1, cte2;
};

// The built-in carbon/epoxy tape (mm, MPa, 1/K).
inline constexpr PlyMaterial kBuiltInTape{0.125f, 135000.0f, 10000.0f, 5000.0f,
                                          0.3f,   -0.3e-6f,  28.0e-6f};
inline constexpr std::string_view kDefaultLayup = "(0/45/-45/90)S";

// Names of the seven values, in the order of PlyMaterial: the option
// (without "--"), the printed label and a few words of meaning.
struct MaterialField {
  std::string_view option, label, meaning;
  float PlyMaterial::*value;
};
inline constexpr std::array<MaterialField, 7> kMaterialFields{{
    {"t", "t", "ply thickness", &PlyMaterial::t},
    {"e1", "E1", "modulus along the fibres", &PlyMaterial::e1},
    {"e2", "E2", "modulus across the fibres", &PlyMaterial::e2},
    {"g12", "G12", "in-plane shear modulus", &PlyMaterial::g12},
    {"nu12", "nu12", "major Poisson's ratio", &PlyMaterial::nu12},
    {"cte1", "CTE1", "thermal expansion along the fibres", &PlyMaterial::cte1},
    {"cte2", "CTE2", "thermal expansion across the fibres", &PlyMaterial::cte2},
}};

using Matrix = std::array<float, 9>;  // column order, as the entry points use

struct StiffnessResult {
  std::string entry_point;  // which of the two stiffness entry points ran
  std::int32_t error_code = 0;
  bool symmetric = false;
  Matrix a{}, b{}, d{}, dstar{};
  float h = 0.0f, ex = 0.0f, ey = 0.0f, gxy = 0.0f, nuxy = 0.0f;
  float alphax = 0.0f, alphay = 0.0f, alphaxy = 0.0f;
  std::int32_t plies = 0;
  std::string cards;  // the deck without its trailing blank padding
};

// Calls LAMINATE_STIFFNESS, or BI_MATERIAL_LAMINATE_STIFFNESS when a second
// material is given. The layup must not be longer than 1000 characters.
StiffnessResult laminate_stiffness(const PlyMaterial& material,
                                   const std::optional<PlyMaterial>& second,
                                   std::string_view layup);

// Strengths of a ply material for the solver deck (compression positive); 0
// for one not known.
struct MaterialStrengths {
  float f1t = 0.0f, f1c = 0.0f, f2t = 0.0f, f2c = 0.0f, f12 = 0.0f;
};

struct SolverDeckResult {
  std::string entry_point;  // which of the two solver deck entry points ran
  std::int32_t error_code = 0;
  std::string message;  // the library's reason, without "Error! " and its point
  std::string deck;
};

// Calls LAMINATE_SOLVER_DECK, or BI_MATERIAL_LAMINATE_SOLVER_DECK when a second
// material is given. The layup must not be longer than 1000 characters.
SolverDeckResult solver_deck(const PlyMaterial& material, const MaterialStrengths& s,
                             const std::optional<PlyMaterial>& second,
                             const MaterialStrengths& s2, std::string_view layup,
                             bool crlf);

// The meaning of a solver deck error code, in a few words.
std::string solver_deck_error_meaning(std::int32_t code);

// The meaning of a stiffness error code, in a few words.
std::string stiffness_error_meaning(std::int32_t code);

// Why the library refuses the material, in the core's words (as
// "E2 = -10000 is negative"), or an empty text when it accepts it.
std::string material_problem(const PlyMaterial& material);

// Why the library refuses the layup, with the character where it found the
// fault, or an empty text when it reads the layup.
std::string layup_problem(std::string_view layup);

// True when the library reads a ply of the layup as of the second material.
bool uses_second_material(std::string_view layup);

}  // namespace corvane::cli
