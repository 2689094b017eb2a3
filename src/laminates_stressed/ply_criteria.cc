#include "laminates_stressed/ply_criteria.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <utility>
#if defined(__SSE__)
#include <xmmintrin.h>
#endif

namespace corvane {
namespace {

using Piece = PlyCriterion::Piece;
using Row = PlyCriterion::Row;

// x where pick, else y, chosen by bits: both are computed and the choice is a
// mask, so that a compiler can run the same loop on several stresses at once
// (a branch, or an operation it may not move out of one, would stop it).
float blend(bool pick, float x, float y) {
  const std::uint32_t m = 0u - static_cast<std::uint32_t>(pick);
  return std::bit_cast<float>((std::bit_cast<std::uint32_t>(x) & m) |
                              (std::bit_cast<std::uint32_t>(y) & ~m));
}

bool present(float strength) { return strength > 0.0f && std::isfinite(strength); }

float square(float x) { return x * x; }

// Quadratic and linear parts of a piece: g(x) = quadratic(x, x) + linear(x) + f0.
float quadratic(const Piece& p, const PlyStress& x, const PlyStress& y) {
  return ((p.f11 * (x[0] * y[0]) + p.f22 * (x[1] * y[1])) + p.f66 * (x[2] * y[2])) +
         p.f12 * (0.5f * (x[0] * y[1] + x[1] * y[0]));
}
float linear(const Piece& p, const PlyStress& x) { return p.f1 * x[0] + p.f2 * x[1]; }

// The two roots of a t^2 + b t + c = 0 in the form that never subtracts nearly
// equal numbers; NaN or infinite where there is no such root (no real root,
// a = 0), which no test t > 0 lets through.
std::array<float, 2> roots(float a, float b, float c) {
  const float q = -0.5f * (b + std::copysign(std::sqrt(b * b - 4.0f * a * c), b));
  return {q / a, c / q};
}

float least_positive(const std::array<float, 2>& t) {
  const float t0 = blend(t[0] > 0.0f, t[0], kNoFailureRF);
  return blend(static_cast<int>(t[1] > 0.0f) & static_cast<int>(t[1] < t0), t[1], t0);
}

// a and b of a RF^2 + b RF = 1, the quadratic and linear parts at s.
std::array<float, 2> quadratic_ab(const Piece& p, const PlyStress& s) {
  return {((p.f11 * (s[0] * s[0]) + p.f22 * (s[1] * s[1])) + p.f66 * (s[2] * s[2])) +
              p.f12 * (s[0] * s[1]),
          linear(p, s)};
}

// Its least positive root from the root of b^2 + 4a. With a > 0 the roots have
// the product -1/a < 0, so the positive one is known before dividing: the value
// least_positive would pick.
float quadratic_rf(float a, float b, float root) {
  const float q = -0.5f * (b + std::copysign(root, b));
  const float t0 = q / a, t1 = -1.0f / q;
  return blend(a > 0.0f, blend(q < 0.0f, t1, t0), least_positive({t0, t1}));
}

float dot(const Row& row, const PlyStress& x) {
  return (row.l1 * x[0] + row.l2 * x[1]) + row.l6 * x[2];
}

bool negligible(const PlyStress& s) {
  return std::fabs(s[0]) + std::fabs(s[1]) + std::fabs(s[2]) < 1.0e-5f;
}

// Stresses beyond the float range (from loads near it): no RF but 0 makes sense.
bool overflow(const PlyStress& s) {
  return !(std::fabs(s[0]) + std::fabs(s[1]) + std::fabs(s[2]) <= 3.4e38f);
}

// The larger of v/limit_t for v >= 0 and -v/limit_c for v < 0 over the rows
// (unused rows are zero and give 0).
[[gnu::always_inline]] inline float rows_exposure(const std::array<Row, 3>& rows,
                                                  const PlyStress& x) {
  const auto of = [&x](const Row& r) {
    const float v = dot(r, x);
    return blend(v >= 0.0f, v * r.inv_t, -v * r.inv_c);
  };
  const float e0 = of(rows[0]), e1 = of(rows[1]), e2 = of(rows[2]);
  const float e01 = blend(e1 > e0, e1, e0);
  return blend(e2 > e01, e2, e01);
}

// The sum under the root of LAMINA::tsai_hill_rf, term for term.
float tsai_hill_sum(const LAMINA& m, const PlyStress& s) {
  const float x = s[0] >= 0.0f ? m.F1t : m.F1c;
  const float y = s[1] >= 0.0f ? m.F2t : m.F2c;
  const float a = s[0] / x, b = s[1] / y, c = s[2] / m.F12;
  return a * a - s[0] * s[1] / (x * x) + b * b + c * c;
}

float yamada_sun_sum(const std::array<Piece, 4>& pieces, const PlyStress& s) {
  const float f11 = blend(s[0] >= 0.0f, pieces[0].f11, pieces[1].f11);
  return f11 * (s[0] * s[0]) + pieces[0].f66 * (s[2] * s[2]);
}

Row row(const PlyStress& l, float limit_t, float limit_c, FailureMode mode_t,
        FailureMode mode_c) {
  return {l[0], l[1], l[2], 1.0f / limit_t, 1.0f / limit_c, mode_t, mode_c};
}

// Row i of the compliance: the mechanical strain e_i = row . s.
PlyStress compliance_row(const LAMINA& m, int i) {
  return {m.S(i, 1), m.S(i, 2), m.S(i, 3)};
}

}  // namespace

std::string_view failure_mode_name(FailureMode mode) {
  switch (mode) {
    case FailureMode::none:
      return "-";
    case FailureMode::fibre_tension:
      return "fibre tension";
    case FailureMode::fibre_compression:
      return "fibre compression";
    case FailureMode::matrix_tension:
      return "matrix tension";
    case FailureMode::matrix_compression:
      return "matrix compression";
    case FailureMode::shear:
      return "shear";
    case FailureMode::puck_a:
      return "IFF mode A";
    case FailureMode::puck_b:
      return "IFF mode B";
    case FailureMode::puck_c:
      return "IFF mode C";
  }
  return "-";
}

StrengthStatus PlyCriterion::prepare(std::int32_t code, const LAMINA& m,
                                     std::int32_t material,
                                     const StrengthOptions& options, PlyCriterion& out) {
  StrengthStatus status;
  status.criterion = code;
  const auto need = [&](std::initializer_list<std::pair<std::string_view, float>> list) {
    for (const auto& [name, value] : list) {
      if (!present(value)) {
        status.error = StrengthError::strength_missing;
        status.name = name;
        status.material = material;
        return false;
      }
    }
    return true;
  };
  const auto need_strengths = [&] {
    return need(
        {{"F1t", m.F1t}, {"F1c", m.F1c}, {"F2t", m.F2t}, {"F2c", m.F2c}, {"F12", m.F12}});
  };
  const auto option_in = [&](std::string_view name, float x, float lo, bool lo_open) {
    if ((lo_open ? x > lo : x >= lo) && x < 1.0f) return true;
    status.error = StrengthError::bad_option;
    status.name = name;
    return false;
  };

  PlyCriterion c;
  c.code_ = code;
  c.material_ = &m;
  const float xt = m.F1t, xc = m.F1c, yt = m.F2t, yc = m.F2c, s = m.F12;
  const auto add = [&c](const Piece& p) {
    c.pieces_[static_cast<std::size_t>(c.npieces_++)] = p;
  };
  const auto add_row = [&c](const Row& r) {
    c.rows_[static_cast<std::size_t>(c.nrows_++)] = r;
  };
  switch (code) {
    case 4:  // Tsai-Hill: one quadratic per quadrant of (s1, s2)
      if (!need_strengths()) return status;
      c.kind_ = Kind::tsai_hill;
      for (const std::int8_t sign1 : {1, -1}) {
        for (const std::int8_t sign2 : {1, -1}) {
          const float x = sign1 > 0 ? xt : xc;
          const float y = sign2 > 0 ? yt : yc;
          Piece p;
          p.f11 = 1.0f / (x * x);
          p.f22 = 1.0f / (y * y);
          p.f66 = 1.0f / (s * s);
          p.f12 = -p.f11;
          p.sign1 = sign1;
          p.sign2 = sign2;
          add(p);
        }
      }
      break;
    case 5:  // Tsai-Wu
    case 6:  // Hoffman
    {
      if (!need_strengths()) return status;
      if (code == 5 && !option_in("F12*", options.tsai_wu_f12_star, -1.0f, true)) {
        return status;
      }
      c.kind_ = Kind::quadratic;
      Piece p;
      p.f11 = 1.0f / (xt * xc);
      p.f22 = 1.0f / (yt * yc);
      p.f66 = 1.0f / (s * s);
      p.f12 = code == 5 ? 2.0f * (options.tsai_wu_f12_star * std::sqrt(p.f11 * p.f22))
                        : -p.f11;
      p.f1 = 1.0f / xt - 1.0f / xc;
      p.f2 = 1.0f / yt - 1.0f / yc;
      add(p);
      break;
    }
    case 7:  // Yamada-Sun
      if (!need({{"F1t", xt}, {"F1c", xc}, {"F12", s}})) return status;
      c.kind_ = Kind::yamada_sun;
      for (const std::int8_t sign1 : {1, -1}) {
        const float x = sign1 > 0 ? xt : xc;
        Piece p;
        p.f11 = 1.0f / (x * x);
        p.f66 = 1.0f / (s * s);
        p.sign1 = sign1;
        add(p);
      }
      break;
    case 9: {  // Puck
      if (!need_strengths()) return status;
      const PuckParameters& puck = options.puck;
      if (!option_in("p+", puck.p_plus, 0.0f, false) ||
          !option_in("p-", puck.p_minus, 0.0f, false)) {
        return status;
      }
      c.kind_ = Kind::puck;
      c.ra_ = yc / (1.0f + std::sqrt(1.0f + 2.0f * puck.p_minus * yc / s));
      const float ppp = puck.p_minus * c.ra_ / s;
      c.tau_c_ = s * std::sqrt(1.0f + 2.0f * ppp);
      c.rc_ = yc;
      c.inv_rs_ = 1.0f / s;
      c.inv_rc_ = 1.0f / yc;
      c.k_inv_rt_ = (1.0f - puck.p_plus * yt / s) / yt;
      c.p_plus_inv_rs_ = puck.p_plus / s;
      c.p_minus_ = puck.p_minus;
      c.inv_c_ = 1.0f / (2.0f * (1.0f + ppp) * s);
      add_row(row({1.0f, 0.0f, 0.0f}, xt, xc, FailureMode::fibre_tension,
                  FailureMode::fibre_compression));
      // The inter-fibre modes squared free of their roots and divisions: A and B
      // hold where 1 - p s2/R|| > 0, C multiplied by -s2/Rc > 0.
      Piece a;
      a.f22 = square(c.k_inv_rt_) - square(c.p_plus_inv_rs_);
      a.f66 = square(c.inv_rs_);
      a.f2 = 2.0f * c.p_plus_inv_rs_;
      a.sign2 = 1;
      a.mode = FailureMode::puck_a;
      add(a);
      Piece b;
      b.f66 = square(c.inv_rs_);
      b.f2 = 2.0f * puck.p_minus * c.inv_rs_;
      b.sign2 = -1;
      b.puck_side = 1;
      b.mode = FailureMode::puck_b;
      add(b);
      Piece cc;
      cc.f22 = square(c.inv_rc_);
      cc.f66 = square(c.inv_c_);
      cc.f2 = c.inv_rc_;
      cc.f0 = 0.0f;
      cc.sign2 = -1;
      cc.puck_side = 2;
      cc.mode = FailureMode::puck_c;
      add(cc);
      break;
    }
    case 11:  // classical maximum strain, ply axes
      if (!need_strengths() || !need({{"E1", m.E1}, {"E2", m.E2}, {"G12", m.G12}})) {
        return status;
      }
      c.kind_ = Kind::linear;
      add_row(row(compliance_row(m, 1), xt / m.E1, xc / m.E1, FailureMode::fibre_tension,
                  FailureMode::fibre_compression));
      add_row(row(compliance_row(m, 2), yt / m.E2, yc / m.E2, FailureMode::matrix_tension,
                  FailureMode::matrix_compression));
      add_row(row(compliance_row(m, 3), s / m.G12, s / m.G12, FailureMode::shear,
                  FailureMode::shear));
      break;
    case 31: {  // Hart-Smith's truncated maximum strain
      if (!need({{"uetall", m.uetall}, {"uecall", m.uecall}})) return status;
      c.kind_ = Kind::linear;
      const PlyStress e1 = compliance_row(m, 1), e2 = compliance_row(m, 2);
      const float gamma = (1.0f + m.v12) * m.uetall;
      add_row(row(e1, m.uetall, m.uecall, FailureMode::fibre_tension,
                  FailureMode::fibre_compression));
      add_row(row({e1[0] - e2[0], e1[1] - e2[1], e1[2] - e2[2]}, gamma, gamma,
                  FailureMode::shear, FailureMode::shear));
      if (m.is_fabric) {
        add_row(row(e2, m.uetall, m.uecall, FailureMode::fibre_tension,
                    FailureMode::fibre_compression));
      }
      break;
    }
    case 8:
    case 12:
    case 32:
      status.error = StrengthError::criterion_not_available;
      return status;
    default:
      status.error = StrengthError::unknown_criterion;
      return status;
  }
  out = c;
  return status;
}

bool PlyCriterion::in_region(const Piece& p, const PlyStress& x,
                             const PlyStress& slack) const {
  const auto sign_ok = [&](std::int8_t sign, std::size_t i) {
    return sign == 0 || (sign > 0 ? x[i] >= -slack[i] : x[i] < slack[i]);
  };
  if (!sign_ok(p.sign1, 0) || !sign_ok(p.sign2, 1)) return false;
  if (p.puck_side == 0) return true;
  // Mode B while |s2| t21c <= RA |s12|, C beyond.
  const float lhs = std::fabs(x[1]) * tau_c_;
  const float rhs = ra_ * std::fabs(x[2]);
  const float tol = 1.0e-4f * (ra_ * slack[2] + tau_c_ * slack[1]);
  return p.puck_side == 1 ? lhs <= rhs + tol : lhs >= rhs - tol;
}

Exposure PlyCriterion::rows_value(const PlyStress& x) const {
  Exposure e;
  for (const Row& r : rows_) {
    const float v = dot(r, x);
    const Exposure here =
        v >= 0.0f ? Exposure{v * r.inv_t, r.mode_t} : Exposure{-v * r.inv_c, r.mode_c};
    if (here.value > e.value) e = here;
  }
  return e;
}

FailureMode PlyCriterion::puck_mode(const PlyStress& x) const {
  // A for s2 >= 0; for s2 < 0, B while |s2| tau_c <= RA |s12|, else C.
  const int compression = x[1] < 0.0f;
  const int b = std::fabs(x[1]) * tau_c_ <= ra_ * std::fabs(x[2]);
  return static_cast<FailureMode>(static_cast<int>(FailureMode::puck_a) +
                                  compression * (2 - b));
}

// The stress exposure of an inter-fibre mode is, for A and B, a square root of
// this plus a linear term; C has no root (0).
float PlyCriterion::puck_root_argument(const PlyStress& x, FailureMode mode) const {
  const float s2 = x[1], t = x[2];
  const float a = square(t * inv_rs_) + square(s2 * k_inv_rt_);
  const float b = t * t + square(p_minus_ * s2);
  return blend(mode == FailureMode::puck_a, a,
               blend(mode == FailureMode::puck_b, b, 0.0f));
}

float PlyCriterion::puck_iff(const PlyStress& x, FailureMode mode, float root) const {
  const float s2 = x[1], t = x[2];
  const float a = root + s2 * p_plus_inv_rs_;
  const float b = (root + p_minus_ * s2) * inv_rs_;
  const float c = (square(t * inv_c_) + square(s2 * inv_rc_)) * rc_ / (-s2);
  return blend(mode == FailureMode::puck_a, a, blend(mode == FailureMode::puck_b, b, c));
}

Exposure PlyCriterion::value(const PlyStress& x) const {
  switch (kind_) {
    case Kind::tsai_hill:
      return {tsai_hill_sum(*material_, x), FailureMode::none};
    case Kind::quadratic: {
      const std::array<float, 2> ab = quadratic_ab(pieces_[0], x);
      return {ab[0] + ab[1], FailureMode::none};
    }
    case Kind::yamada_sun:
      return {yamada_sun_sum(pieces_, x), FailureMode::none};
    case Kind::linear:
      return rows_value(x);
    case Kind::puck: {
      const Exposure fibre = rows_value(x);
      const FailureMode mode = puck_mode(x);
      const Exposure iff{puck_iff(x, mode, std::sqrt(puck_root_argument(x, mode))), mode};
      return fibre.value >= iff.value ? fibre : iff;
    }
  }
  return {};
}

void PlyCriterion::reserve_factors(const float* s1, const float* s2, const float* s12,
                                   std::size_t n, float* rf) const {
  // In passes over a chunk: the arithmetic (which a compiler may run on several
  // stresses at once), the square roots (which it may not, as they may set
  // errno), the arithmetic again. One loop per kind, nothing else inside, over
  // a multiple of 4 stresses (zeros past the end) so that even a cautious
  // compiler does so.
  // The columns are left uninitialised: every pass writes the elements it reads
  // first, and zeroing 2 KiB per call cost as much as the criterion itself.
  constexpr std::size_t kChunk = 64;
  std::array<float, kChunk> x1, x2, x3, out, root, u, v;
  std::array<FailureMode, kChunk> mode;
  for (std::size_t i0 = 0; i0 < n; i0 += kChunk) {
    const std::size_t used = std::min(kChunk, n - i0);
    const std::size_t m = (used + 3) & ~std::size_t{3};
    for (std::size_t i = 0; i < m; ++i) {
      x1[i] = i < used ? s1[i0 + i] : 0.0f;
      x2[i] = i < used ? s2[i0 + i] : 0.0f;
      x3[i] = i < used ? s12[i0 + i] : 0.0f;
    }
    const auto at = [&](std::size_t i) { return PlyStress{x1[i], x2[i], x3[i]}; };
    const auto roots_of = [&] {
#if defined(__SSE__)
      // Four at a time: the same correctly rounded roots as std::sqrt, without
      // the errno check that keeps a compiler from doing so.
      for (std::size_t i = 0; i < m; i += 4) {
        _mm_storeu_ps(&root[i], _mm_sqrt_ps(_mm_loadu_ps(&root[i])));
      }
#else
      for (std::size_t i = 0; i < m; ++i) root[i] = std::sqrt(root[i]);
#endif
    };
    switch (kind_) {
      case Kind::tsai_hill:  // LAMINA::tsai_hill_rf, in columns
        for (std::size_t i = 0; i < m; ++i) root[i] = tsai_hill_sum(*material_, at(i));
        roots_of();
        for (std::size_t i = 0; i < m; ++i) out[i] = 1.0f / root[i];
        break;
      case Kind::yamada_sun:
        for (std::size_t i = 0; i < m; ++i) root[i] = yamada_sun_sum(pieces_, at(i));
        roots_of();
        for (std::size_t i = 0; i < m; ++i) out[i] = 1.0f / root[i];
        break;
      case Kind::quadratic:
        for (std::size_t i = 0; i < m; ++i) {
          const std::array<float, 2> ab = quadratic_ab(pieces_[0], at(i));
          u[i] = ab[0];
          v[i] = ab[1];
          root[i] = ab[1] * ab[1] + 4.0f * ab[0];
        }
        roots_of();
        for (std::size_t i = 0; i < m; ++i) out[i] = quadratic_rf(u[i], v[i], root[i]);
        break;
      case Kind::linear:
        for (std::size_t i = 0; i < m; ++i) out[i] = 1.0f / rows_exposure(rows_, at(i));
        break;
      case Kind::puck:
        for (std::size_t i = 0; i < m; ++i) {
          mode[i] = puck_mode(at(i));
          root[i] = puck_root_argument(at(i), mode[i]);
          u[i] = rows_exposure(rows_, at(i));
        }
        roots_of();
        for (std::size_t i = 0; i < m; ++i) {
          const float iff = puck_iff(at(i), mode[i], root[i]);
          out[i] = 1.0f / blend(u[i] >= iff, u[i], iff);
        }
        break;
    }
    for (std::size_t i = 0; i < m; ++i) {
      const int capped = static_cast<int>(negligible(at(i))) |
                         static_cast<int>(!(out[i] < kNoFailureRF));
      out[i] = blend(overflow(at(i)), 0.0f, blend(capped, kNoFailureRF, out[i]));
    }
    std::copy_n(out.begin(), used, rf + i0);
  }
}

ReserveFactor PlyCriterion::first_crossing(const PlyStress& s, const PlyStress& r) const {
  ReserveFactor best;
  // Linear limits: one root each.
  for (std::int32_t i = 0; i < nrows_; ++i) {
    const Row& row = rows_[static_cast<std::size_t>(i)];
    const float vs = dot(row, s), vr = dot(row, r);
    if (vs > 0.0f && (1.0f - vr * row.inv_t) / (vs * row.inv_t) < best.rf) {
      best = {(1.0f - vr * row.inv_t) / (vs * row.inv_t), row.mode_t};
    }
    if (vs < 0.0f && (1.0f + vr * row.inv_c) / (-vs * row.inv_c) < best.rf) {
      best = {(1.0f + vr * row.inv_c) / (-vs * row.inv_c), row.mode_c};
    }
  }
  for (std::int32_t i = 0; i < npieces_; ++i) {
    const Piece& p = pieces_[static_cast<std::size_t>(i)];
    const std::array<float, 2> t =
        roots(quadratic(p, s, s), linear(p, s) + 2.0f * quadratic(p, s, r),
              (quadratic(p, r, r) + linear(p, r)) + p.f0);
    for (const float f : t) {
      if (!(f > 0.0f && f < best.rf)) continue;
      PlyStress x{}, slack{};
      for (std::size_t k = 0; k < 3; ++k) {
        x[k] = r[k] + f * s[k];
        slack[k] = 1.0e-5f * (std::fabs(r[k]) + f * std::fabs(s[k]));
      }
      if (!in_region(p, x, slack)) continue;
      // Puck's squared modes have roots of their own: keep those of the mode.
      if (kind_ == Kind::puck &&
          !(std::fabs(puck_iff(x, p.mode, std::sqrt(puck_root_argument(x, p.mode))) -
                      1.0f) <= 1.0e-3f)) {
        continue;
      }
      best = {f, p.mode};
    }
  }
  return best;
}

ReserveFactor PlyCriterion::reserve_factor(const PlyStress& s, const PlyStress& r) const {
  if (r[0] == 0.0f && r[1] == 0.0f && r[2] == 0.0f) {
    // Homogeneous: RF from the value at s; the mode is the one the value tells.
    ReserveFactor f;
    reserve_factors(&s[0], &s[1], &s[2], 1, &f.rf);
    if (f.rf < kNoFailureRF) f.mode = value(s).mode;
    return f;
  }
  const Exposure e = value(r);
  if (!(e.value < 1.0f)) return {0.0f, e.mode};
  if (overflow(s)) return {0.0f, FailureMode::none};
  if (negligible(s)) return {};
  const ReserveFactor f = first_crossing(s, r);
  return f.rf < kNoFailureRF ? f : ReserveFactor{};
}

LAMINA t300_5208() {
  LAMINA m = new_lamina(0.125f, 181000.0f, 10300.0f, 7170.0f, 0.28f, 1500.0f, 1500.0f,
                        "T300/5208");
  m.set_strengths(1500.0f, 1500.0f, 68.0f, 40.0f, 246.0f);
  m.CTE1 = 0.02e-6f;
  m.CTE2 = 22.5e-6f;
  return m;
}

}  // namespace corvane
