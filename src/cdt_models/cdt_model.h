// CDTMODEL: a parametric residual-allowable model for damage tolerance. The
// allowable falls off exponentially with a damage parameter over the square (or
// cube) of a thickness towards a floor term, scaled by `scale` * `factor`.
// Four forms exist, named "CDTM-T03" to "CDTM-T06".
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace corvane {

struct CDTMODEL {
  std::string name;        // the model keyword as read
  std::int32_t model = 3;  // form code 3, 4, 5 or 6
  // d3 and d4 are the coefficients of simple_allowable; d5 comes with the input.
  std::array<float, 5> d{35.0f, 2.5f, 100.0f, 100.0f, 0.0f};
  float scale = 1.0f;
  float factor = 0.83f;
  std::int32_t status = 0;  // 0 usable, -1 not usable (unknown name or bad line)
  float a0 = 0.0f, a1 = 0.0f, b0 = 0.0f, b1 = 0.0f, c0 = 0.0f, c1 = 0.0f;  // form 3
  float k0 = 0.0f, k1 = 0.0f, k2 = 0.0f, k3 = 0.0f;                        // forms 4-6

  // p1 is the damage parameter, p2 a thickness; p3 and p4 enter through a ratio.
  float simple_allowable(float p1, float p2) const;
  // g is the value of the geometric evaluation; the ratio is 3/g.
  float allowable_by_ratio(float p1, float p2, float g) const;
  // Form 3 and forms 4 and 6 are evaluated; form 5 and anything else give 0.
  float allowable(float p1, float p2, float p3, float p4) const;
  float allowable_t03(float p1, float p2, float p3, float p4) const;
  float allowable_t04_t06(float p1, float p2, float p3, float p4) const;
};

// Status of read_cdt_model when the line lacks a coefficient token.
inline constexpr int kCdtMissingToken = 5020;

// Reads a model from the tokens of one line of material data (tokens[0] is the
// model name; the coefficients follow from the eighth token on). u is the unit
// factor applied to the coefficients that carry units, d5 the fifth coefficient
// in input units; `factor` is read from the line only when allow_factor_override.
// Returns 0, kCdtMissingToken, or the number reader's status; the model's status
// is -1 for an unknown name and for any non-zero return.
int read_cdt_model(std::span<const std::string_view> tokens, float u,
                   bool allow_factor_override, float d5, CDTMODEL& model);

// Reads a model from a text of its own: the name, then its coefficients
// separated by blanks or tabs (those of a line of material data from its
// eighth token on: a0 a1 b0 b1 c0 c1 scale [factor] for form 3, k2 k3 k0 k1
// scale [factor] for the others; `factor` may be given). Returns as
// read_cdt_model; a blank text gives kCdtMissingToken.
int read_cdt_model_text(std::string_view text, float u, CDTMODEL& model);

}  // namespace corvane
