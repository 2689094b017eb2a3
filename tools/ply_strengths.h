// The ply strengths of the commands that judge strength: the options that give
// them, the built-in values, and the LAMINA they make with a PlyMaterial.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "laminas/lamina.h"
#include "laminate_call.h"

namespace corvane::cli {

// Strengths (compression positive) and allowable strains of a ply material.
// An allowable strain that is NaN is derived from the strengths (see lamina()).
struct PlyStrengths {
  float f1t, f1c, f2t, f2c, f12, uetall, uecall;
};
struct StrengthField {
  std::string_view option, label, meaning;
  float PlyStrengths::*value;
  float LAMINA::*member;
};
inline constexpr std::array<StrengthField, 7> kStrengthFields{{
    {"f1t", "F1t", "tensile strength along the fibres", &PlyStrengths::f1t, &LAMINA::F1t},
    {"f1c", "F1c", "compressive strength along the fibres", &PlyStrengths::f1c,
     &LAMINA::F1c},
    {"f2t", "F2t", "tensile strength across the fibres", &PlyStrengths::f2t,
     &LAMINA::F2t},
    {"f2c", "F2c", "compressive strength across the fibres", &PlyStrengths::f2c,
     &LAMINA::F2c},
    {"f12", "F12", "in-plane shear strength", &PlyStrengths::f12, &LAMINA::F12},
    {"uetall", "uetall", "allowable tensile strain along the fibres",
     &PlyStrengths::uetall, &LAMINA::uetall},
    {"uecall", "uecall", "allowable compressive strain along the fibres",
     &PlyStrengths::uecall, &LAMINA::uecall},
}};

// The built-in material's strengths: those of T300/5208 carbon/epoxy tape
// (S. W. Tsai and H. T. Hahn, Introduction to Composite Materials, 1980), paired
// with the command's default moduli, which are not T300/5208's.
PlyStrengths built_in_strengths();

// A ply material with its strengths. new_lamina derives the allowable strains
// from F1t and F1c when it reads them as strengths (1 or more): 0.8 F1t/E1 and
// F1c/E1. Below 1 it would read a strain, so a smaller strength derives none.
LAMINA lamina(const PlyMaterial& m, const PlyStrengths& s);

// A negative strength or allowable, as "F2t = -40 is negative"; empty if none.
std::string negative_strength(const PlyStrengths& s);

// "F1t = 1500  F1c = 1500 ..." of a material.
std::string strength_line(const LAMINA& m);

}  // namespace corvane::cli
