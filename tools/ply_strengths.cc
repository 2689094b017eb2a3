#include "ply_strengths.h"

#include <cmath>

#include "laminates_stressed/ply_criteria.h"
#include "number_text.h"

namespace corvane::cli {

PlyStrengths built_in_strengths() {
  const LAMINA m = t300_5208();
  return {m.F1t, m.F1c, m.F2t, m.F2c, m.F12, NAN, NAN};
}

LAMINA lamina(const PlyMaterial& m, const PlyStrengths& s) {
  LAMINA l = new_lamina(m.t, m.e1, m.e2, m.g12, m.nu12, s.f1t >= 1.0f ? s.f1t : 0.0f,
                        s.f1c >= 1.0f ? s.f1c : 0.0f);
  l.CTE1 = m.cte1;
  l.CTE2 = m.cte2;
  l.set_strengths(s.f1t, s.f1c, s.f12, s.f2t, s.f2c);
  if (!std::isnan(s.uetall)) l.uetall = s.uetall;
  if (!std::isnan(s.uecall)) l.uecall = s.uecall;
  return l;
}

std::string negative_strength(const PlyStrengths& s) {
  for (const StrengthField& field : kStrengthFields) {
    if (s.*field.value < 0.0f) {
      return std::string(field.label) + " = " + format_general(s.*field.value) +
             " is negative";
    }
  }
  return {};
}

std::string strength_line(const LAMINA& m) {
  std::string line;
  for (const StrengthField& f : kStrengthFields) {
    line += (line.empty() ? "" : "  ") + std::string(f.label) + " = " +
            format_general(m.*f.member);
  }
  return line;
}

}  // namespace corvane::cli
