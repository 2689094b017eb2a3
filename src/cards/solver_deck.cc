#include "cards/solver_deck.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "util/matrix3.h"

namespace corvane {
namespace {

constexpr std::size_t kSmall = 8;   // small-field width
constexpr std::size_t kLarge = 16;  // large-field width

// A data field before layout: blank, a text (a name or an integer id) or a real.
struct Entry {
  enum Kind { kBlank, kText, kReal } kind = kBlank;
  std::string text;
  float value = 0.0f;
};

Entry blank() { return {}; }
Entry text(std::string t) { return {Entry::kText, std::move(t), 0.0f}; }
Entry id(int n) { return text(std::to_string(n)); }
Entry real(float x) { return {Entry::kReal, {}, x}; }
Entry real_if(bool written, float x) { return written ? real(x) : blank(); }

struct Card {
  std::string name;
  std::vector<Entry> fields;
};

// Lays cards out and keeps the running number of continuation markers, so that
// every marker of the deck is distinct.
class DeckWriter {
 public:
  explicit DeckWriter(LineEnd line_end)
      : end_(line_end == LineEnd::crlf ? "\r\n" : "\n") {}

  void comment(std::string_view line) {
    out_ += "$ ";
    out_ += line;
    out_ += end_;
  }

  // Small field when every real fits 8 characters, else large field; false
  // when a real fits neither (it is not finite).
  bool card(const Card& c) {
    const bool small = std::all_of(c.fields.begin(), c.fields.end(), [](const Entry& e) {
      return e.kind != Entry::kReal || !bulk_data_real(e.value, kSmall).empty();
    });
    const std::size_t width = small ? kSmall : kLarge;
    const std::size_t per_line = small ? 8 : 4;
    std::string line = c.name + (small ? "" : "*");
    line.resize(kSmall, ' ');
    // Trailing blank fields would only make empty continuation lines.
    std::size_t n = c.fields.size();
    while (n > 0 && c.fields[n - 1].kind == Entry::kBlank) --n;
    for (std::size_t k = 0; k < n; ++k) {
      if (k > 0 && k % per_line == 0) {
        // The marker closes this line in columns 73-80 and opens the next.
        const std::string marker = (small ? "+C" : "*C") + std::to_string(++markers_);
        line.resize(kSmall + 8 * kSmall, ' ');
        line += marker;
        finish(line);
        line = marker;
        line.resize(kSmall, ' ');
      }
      const Entry& e = c.fields[k];
      std::string f = e.kind == Entry::kReal ? bulk_data_real(e.value, width) : e.text;
      if (e.kind == Entry::kReal && f.empty()) return false;
      line.append(width - std::min(width, f.size()), ' ');
      line += f.substr(0, width);
    }
    finish(line);
    return true;
  }

  std::string take() { return std::move(out_); }

 private:
  void finish(std::string& line) {
    line.erase(line.find_last_not_of(' ') + 1);
    out_ += line;
    out_ += end_;
  }

  std::string_view end_;
  std::string out_;
  int markers_ = 0;
};

bool has_strengths(const LAMINA& m) {
  return m.F1t > 0.0f && m.F1c > 0.0f && m.F2t > 0.0f && m.F2c > 0.0f && m.F12 > 0.0f;
}

Card mat8(const LAMINA& m, int mid) {
  return {"MAT8",
          {id(mid), real(m.E1), real(m.E2), real(m.v12), real(m.G12),
           real_if(m.G13 > 0.0f, m.G13), real_if(m.G23 > 0.0f, m.G23),
           real_if(m.DENSITY > 0.0f, m.DENSITY),
           // A1, A2, TREF
           real_if(m.CTE1 != 0.0f, m.CTE1), real_if(m.CTE2 != 0.0f, m.CTE2), blank(),
           // Xt, Xc, Yt, Yc, S: stresses, compression positive, so STRN is blank
           real_if(m.F1t > 0.0f, m.F1t), real_if(m.F1c > 0.0f, m.F1c),
           real_if(m.F2t > 0.0f, m.F2t), real_if(m.F2c > 0.0f, m.F2c),
           real_if(m.F12 > 0.0f, m.F12),
           // GE, F12 (the Tsai-Wu interaction term, not the shear strength), STRN
           blank(), blank(), blank()}};
}

Card pcomp(const LAMINATESTIFFNESS& laminate) {
  const LAMINA& first = laminate.materials[0];
  const bool failure_theory =
      std::all_of(laminate.materials.begin(), laminate.materials.end(), has_strengths);
  // The interlaminar shear strength, the maximum strain theory and a reference
  // temperature of 20 degrees: what the established deck means, in their fields.
  Card c{"PCOMP",
         {id(kSolverPcompId), real(-0.5f * laminate.h), blank(),
          real_if(first.F13 > 0.0f, first.F13), failure_theory ? text("STRN") : blank(),
          real(20.0f), blank(), blank()}};
  for (std::size_t k = 0; k < static_cast<std::size_t>(laminate.nplies); ++k) {
    const auto m = static_cast<std::size_t>(laminate.material_index[k]) - 1;
    c.fields.insert(c.fields.end(),
                    {id(101 + static_cast<int>(m)), real(laminate.materials[m].CPT),
                     real(laminate.angles[k]), text("YES")});
  }
  return c;
}

Card mat2(int mid, const Matrix3& m, float factor) {
  return {
      "MAT2",
      {id(mid), real(m(1, 1) * factor), real(m(1, 2) * factor), real(m(1, 3) * factor),
       real(m(2, 2) * factor), real(m(2, 3) * factor), real(m(3, 3) * factor)}};
}

// Coupling above the rounding noise of a symmetric stack, which is some 1e-7
// of [A] t.
bool coupled(const LAMINATE& laminate) {
  float a = 0.0f;
  for (float x : laminate.A.v) a = std::max(a, std::fabs(x));
  return std::any_of(laminate.B.v.begin(), laminate.B.v.end(),
                     [&](float x) { return std::fabs(x) > 1.0e-5f * (a * laminate.h); });
}

// Plies that refer to a material the laminate lists, as many as it counts.
bool plies_consistent(const LAMINATE& laminate) {
  const auto n = static_cast<std::size_t>(std::max(laminate.nplies, 0));
  if (laminate.nplies < 1 || laminate.angles.size() < n ||
      laminate.material_index.size() < n) {
    return false;
  }
  return std::all_of(laminate.material_index.begin(), laminate.material_index.begin() + n,
                     [&](std::int32_t i) {
                       return i >= 1 &&
                              static_cast<std::size_t>(i) <= laminate.materials.size();
                     });
}

}  // namespace

std::string bulk_data_real(float value, std::size_t width) {
  if (!std::isfinite(value)) return {};
  if (value == 0.0f) return width >= 2 ? "0." : "";
  const std::string sign = value < 0.0f ? "-" : "";
  // The fewest significant digits that read back to the value: at most 9.
  for (int digits = 1; digits <= 9; ++digits) {
    std::array<char, 32> buffer{};
    const auto written =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                      std::chars_format::scientific, digits - 1);
    if (written.ec != std::errc{}) return {};
    float back = 0.0f;
    std::from_chars(buffer.data(), written.ptr, back);
    if (back != std::fabs(value)) continue;

    // "d.ddde+XX": the significant digits and the decimal exponent.
    const std::string_view s(buffer.data(),
                             static_cast<std::size_t>(written.ptr - buffer.data()));
    const std::size_t e_at = s.find('e');
    std::string d(1, s[0]);
    if (e_at > 2) d += s.substr(2, e_at - 2);
    const int e = std::atoi(std::string(s.substr(e_at + 1)).c_str());
    const auto n = static_cast<int>(d.size());

    std::string fixed;
    std::string fixed_short;
    if (e >= n - 1) {
      fixed = d + std::string(static_cast<std::size_t>(e - n + 1), '0') + ".";
    } else if (e >= 0) {
      fixed = d.substr(0, static_cast<std::size_t>(e + 1)) + "." +
              d.substr(static_cast<std::size_t>(e + 1));
    } else {
      fixed_short = "." + std::string(static_cast<std::size_t>(-e - 1), '0') + d;
      fixed = "0" + fixed_short;
    }
    fixed = sign + fixed;
    if (!fixed_short.empty()) fixed_short = sign + fixed_short;
    const std::string exponent = sign + d.substr(0, 1) + "." +
                                 (n > 1 ? d.substr(1) : "0") + (e < 0 ? "-" : "+") +
                                 std::to_string(std::abs(e));
    // Fixed point reads best while it is not much longer than the exponent form.
    if (fixed.size() <= width && fixed.size() <= exponent.size() + 2) return fixed;
    std::string best;
    for (const std::string& candidate : {exponent, fixed_short}) {
      if (!candidate.empty() && candidate.size() <= width &&
          (best.empty() || candidate.size() < best.size())) {
        best = candidate;
      }
    }
    if (best.empty() && fixed.size() <= width) best = fixed;
    return best;  // more digits would only be longer
  }
  return {};
}

SolverDeck solver_deck(const LAMINATESTIFFNESS& laminate, LineEnd line_end) {
  if (laminate.error || !plies_consistent(laminate)) {
    return {{}, "the laminate's stiffness is not computed"};
  }
  const float t = laminate.h;
  DeckWriter deck(line_end);
  deck.comment("Laminate in the NASTRAN bulk data format, to be included in a model");
  deck.comment("Ply materials as MAT8");
  bool written = true;
  for (std::size_t k = 0; k < laminate.materials.size(); ++k) {
    if (laminate.materials[k].status != 0) {
      return {{}, "ply material " + std::to_string(k + 1) + " is not valid"};
    }
    written =
        deck.card(mat8(laminate.materials[k], 101 + static_cast<int>(k))) && written;
  }
  deck.comment("Laminate as PCOMP");
  written = deck.card(pcomp(laminate)) && written;
  deck.comment("The same laminate as PSHELL: MAT2 membrane, bending and coupling");
  const bool has_mid4 = coupled(laminate);
  Card pshell{"PSHELL",
              {id(kSolverPshellId), id(2001), real(t), id(2002), blank(), blank(),
               blank(), blank(), blank(), blank(), has_mid4 ? id(2004) : blank()}};
  if (!has_mid4) pshell.fields.resize(4);
  written = deck.card(pshell) && written;
  written = deck.card(mat2(2001, laminate.A, 1.0f / t)) && written;
  written = deck.card(mat2(2002, laminate.D, 12.0f / ((t * t) * t))) && written;
  // -[B]/t^2, the sign of the established deck's coupling card.
  written = deck.card(mat2(2004, laminate.B, -1.0f / (t * t))) && written;
  if (!written) return {{}, "a value of the laminate is not finite"};
  return {deck.take(), {}};
}

}  // namespace corvane
