#include "cdt_models/cdt_model.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "util/keywords.h"
#include "util/number_reading.h"

namespace corvane {

float CDTMODEL::simple_allowable(float p1, float p2) const {
  return ((p2 * p2) * d[2]) * (1.0f - std::exp(-d[3] * p1 / p2));
}

float CDTMODEL::allowable_by_ratio(float p1, float p2, float g) const {
  const float r = 3.0f / g;
  const float f = scale * factor;
  return f * (k2 * std::pow(r, k3) + k0 * std::exp(-k1 * p1 / (p2 * p2)));
}

float CDTMODEL::allowable(float p1, float p2, float p3, float p4) const {
  switch (model) {
    case 3:
      return allowable_t03(p1, p2, p3, p4);
    case 4:
    case 6:
      return allowable_t04_t06(p1, p2, p3, p4);
    default:  // form 5 is not evaluated through here
      return 0.0f;
  }
}

float CDTMODEL::allowable_t03(float p1, float p2, float p3, float p4) const {
  const float r = p4 / p3;
  const float f = scale * factor;
  const float alpha = a0 * r + a1;
  const float beta = b0 * r + b1;
  const float kappa = c0 * r + c1;
  return f * (alpha + beta * std::exp(-kappa * p1 / (((p2 * p2) * p2) * p3)));
}

float CDTMODEL::allowable_t04_t06(float p1, float p2, float p3, float p4) const {
  const float r = p3 / p4;
  const float f = scale * factor;
  float v = 0.0f;
  if (model == 4) {
    v = k2 / std::pow(r, k3);
  } else if (model == 6) {
    v = (1.0f - (r - 1.0f) * k3) * k2;
  }
  return f * (v + k0 * std::exp(-k1 * p1 / (p2 * p2)));
}

namespace {

// The coefficient fields a line fills, from its eighth token on, and whether
// each carries the unit factor.
struct Slot {
  float CDTMODEL::*field;
  bool scaled;
};

constexpr Slot kFormT03[] = {{&CDTMODEL::a0, true},    {&CDTMODEL::a1, true},
                             {&CDTMODEL::b0, true},    {&CDTMODEL::b1, true},
                             {&CDTMODEL::c0, false},   {&CDTMODEL::c1, false},
                             {&CDTMODEL::scale, false}};
constexpr Slot kFormT04T06[] = {{&CDTMODEL::k2, true},
                                {&CDTMODEL::k3, false},
                                {&CDTMODEL::k0, true},
                                {&CDTMODEL::k1, false},
                                {&CDTMODEL::scale, false}};

constexpr std::size_t kFirstCoefficient = 7;  // the eighth token

}  // namespace

int read_cdt_model(std::span<const std::string_view> tokens, float u,
                   bool allow_factor_override, float d5, CDTMODEL& model) {
  model = CDTMODEL{};
  const float d5u = d5 * u;
  if (d5u > 0.0f) model.d[4] = d5u;
  if (tokens.empty()) {
    model.status = -1;
    return kCdtMissingToken;
  }
  model.name = std::string(tokens[0]);
  static constexpr std::string_view kNames[] = {"CDTM-T03", "CDTM-T04", "CDTM-T05",
                                                "CDTM-T06"};
  const std::string key = normalize_keyword(tokens[0]);
  std::int32_t form = 0;
  for (std::int32_t i = 0; i < 4; ++i) {
    if (key == kNames[i]) {
      form = i + 3;
      break;
    }
  }
  if (form == 0) {
    model.status = -1;
    return 0;
  }
  model.model = form;

  const std::span<const Slot> slots =
      form == 3 ? std::span<const Slot>(kFormT03) : std::span<const Slot>(kFormT04T06);
  if (tokens.size() < kFirstCoefficient + slots.size()) {
    model.status = -1;
    return kCdtMissingToken;
  }
  auto read = [&](std::size_t index, float& out, bool scaled) {
    float value = 0.0f;
    const int status = read_real(tokens[index], value);
    if (status == kReadOk) out = scaled ? value * u : value;
    return status;
  };
  for (std::size_t i = 0; i < slots.size(); ++i) {
    const int status =
        read(kFirstCoefficient + i, model.*(slots[i].field), slots[i].scaled);
    if (status != kReadOk) {
      model.status = -1;
      return status;
    }
  }
  const std::size_t factor_index = kFirstCoefficient + slots.size();
  if (allow_factor_override && tokens.size() > factor_index) {
    const int status = read(factor_index, model.factor, false);
    if (status != kReadOk) {
      model.status = -1;
      return status;
    }
  }
  return 0;
}

int read_cdt_model_text(std::string_view text, float u, CDTMODEL& model) {
  std::vector<std::string_view> tokens;
  for (std::size_t at = 0;;) {
    const std::size_t start = text.find_first_not_of(" \t", at);
    if (start == std::string_view::npos) break;
    const std::size_t end = std::min(text.find_first_of(" \t", start), text.size());
    tokens.push_back(text.substr(start, end - start));
    // The six tokens of a data line between the name and the coefficients.
    if (tokens.size() == 1) tokens.insert(tokens.end(), kFirstCoefficient - 1, {});
    at = end;
  }
  return read_cdt_model(tokens, u, true, 0.0f, model);
}

}  // namespace corvane
