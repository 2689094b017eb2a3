#include "reports/laminate_report.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "util/fixed_width.h"
#include "util/matrix3.h"
#include "util/numerics.h"

namespace corvane {
namespace {

// A field without its padding.
std::string compact(const std::string& field) {
  return std::string(trim_trailing(move_left(field)));
}

std::string right(std::string_view label, std::size_t width) {
  return std::string(width > label.size() ? width - label.size() : 0, ' ') +
         std::string(label);
}

}  // namespace

std::string laminate_report(const LAMINATE& laminate) {
  std::string text = "# Laminate: " + laminate.name + "\n";
  text += "- Materials\n";
  text += std::string(LAMINA::kShortHeader) + "\n";
  for (const LAMINA& m : laminate.materials) text += m.print_short();

  text += "- Laminate stacking and thickness\n";
  text += "Angles Stacking : " + laminate.stacking_text() + "\n";
  text += "Mats. Stacking  : (";
  for (std::size_t k = 0; k < laminate.material_index.size(); ++k) {
    if (k > 0) text += '/';
    text += std::to_string(laminate.material_index[k]);
  }
  text += ")\n";
  // Share of plies at 0, +-45 and 90 degrees (angles taken modulo 180).
  std::array<int, 3> count{};
  for (float angle : laminate.angles) {
    const float r = std::fmod(std::fabs(angle), 180.0f);
    if (r < 1.0e-3f || r > 180.0f - 1.0e-3f) ++count[0];
    if (std::fabs(r - 45.0f) < 1.0e-3f || std::fabs(r - 135.0f) < 1.0e-3f) ++count[1];
    if (std::fabs(r - 90.0f) < 1.0e-3f) ++count[2];
  }
  const float plies =
      static_cast<float>(std::max<std::size_t>(laminate.angles.size(), 1));
  text += "Stacking style (%0/%45/%90) : ";
  for (std::size_t i = 0; i < 3; ++i) {
    if (i > 0) text += "/";
    text += compact(format_fixed(100.0f * static_cast<float>(count[i]) / plies, 6, 1));
  }
  text += "\n";
  text += "Plies           : " + std::to_string(laminate.nplies) + "\n";
  text += "Thickness       : " + compact(format_fixed(laminate.h, 12, 4)) + "\n";
  text += std::string("Symmetric       : ") + (laminate.symmetric ? "yes" : "no") + "\n";

  text += "- Laminate apparent elastic moduli and strengths\n";
  text += right("Ex", 10) + right("Ey", 10) + right("Gxy", 10) + right("NUxy", 8) +
          right("NUyx", 8) + right("alphax", 12) + right("alphay", 12) +
          right("alphaxy", 12) + "\n";
  text += format_fixed(laminate.Ex, 10, 0) + format_fixed(laminate.Ey, 10, 0) +
          format_fixed(laminate.Gxy, 10, 0) + format_fixed(laminate.nuxy, 8, 4) +
          format_fixed(laminate.nuyx, 8, 4) + format_exponent(laminate.alphax, 12, 4) +
          format_exponent(laminate.alphay, 12, 4) +
          format_exponent(laminate.alphaxy, 12, 4) + "\n";

  text += "- Laminate stiffness matrices\n";
  const std::array<const Matrix3*, 4> shown = {&laminate.A, &laminate.B, &laminate.D,
                                               &laminate.Dstar_B};
  constexpr std::size_t kBlock = 3 * 11 + 2;
  std::string heading;
  for (std::string_view label : {"[A]", "[B]", "[D]", "[D*](B-basis)"}) {
    heading += pad_or_cut(std::string(6, ' ') + std::string(label), kBlock);
  }
  text += std::string(trim_trailing(heading)) + "\n";
  for (int i = 1; i <= 3; ++i) {
    std::string line;
    for (const Matrix3* m : shown) {
      for (int j = 1; j <= 3; ++j) line += format_exponent((*m)(i, j), 11, 3);
      line += "  ";
    }
    text += std::string(trim_trailing(line)) + "\n";
  }
  return text;
}

std::string laminate_summary(const LAMINATE& laminate, bool header) {
  std::string text;
  if (laminate.error) text += "Error! Plate force is ill conditioned.\n";
  if (header) text += std::string(kLaminateSummaryHeader) + "\n";
  text += pad_or_cut(laminate.name, 20) + format_fixed(laminate.h, 7, 3) +
          format_integer(nint(laminate.Ex), 9) + format_integer(nint(laminate.Ey), 9) +
          format_integer(nint(laminate.Gxy), 9) + format_fixed(laminate.nuxy, 8, 4) +
          "\n";
  return text;
}

}  // namespace corvane
