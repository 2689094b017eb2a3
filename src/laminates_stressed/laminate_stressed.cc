#include "laminates_stressed/laminate_stressed.h"

#include <algorithm>
#include <cmath>

#include "cards/number_fields.h"
#include "laminas/criterion_code.h"
#include "util/fixed_width.h"
#include "util/matrix3.h"
#include "util/numerics.h"

namespace corvane {
namespace {

Matrix3 by_rows(const std::array<Vector3, 3>& rows) {
  Matrix3 a;
  for (int i = 1; i <= 3; ++i) {
    for (int j = 1; j <= 3; ++j) a(i, j) = rows[i - 1][j - 1];
  }
  return a;
}

// (e0, k) = [[a, b], [c, d]] (N, M).
std::array<float, 6> apply_inverse(const std::array<Matrix3, 4>& blocks, const Vector3& n,
                                   const Vector3& m) {
  const Vector3 an = matrix_vector_product(blocks[0], n),
                bm = matrix_vector_product(blocks[1], m);
  const Vector3 cn = matrix_vector_product(blocks[2], n),
                dm = matrix_vector_product(blocks[3], m);
  return {an[0] + bm[0], an[1] + bm[1], an[2] + bm[2],
          cn[0] + dm[0], cn[1] + dm[1], cn[2] + dm[2]};
}

std::string right(std::string_view text, std::size_t width) {
  return std::string(width > text.size() ? width - text.size() : 0, ' ') +
         std::string(text);
}

std::string material_label(const LAMINATE& laminate, std::int32_t index) {
  const std::string& name = laminate.materials[static_cast<std::size_t>(index) - 1].Name;
  return name.empty() ? "material " + std::to_string(index) : name;
}

}  // namespace

std::string_view surface_name(Surface surface) {
  switch (surface) {
    case Surface::bottom:
      return "bottom";
    case Surface::middle:
      return "middle";
    case Surface::top:
      return "top";
  }
  return "";
}

StrengthPlan::StrengthPlan(const LAMINATE& laminate,
                           std::span<const std::int32_t> criteria,
                           const StrengthOptions& options)
    : laminate_(&laminate) {
  // A laminate whose inverse could not be formed (a singular [D*]) is no more
  // usable than one that failed outright.
  bool finite = true;
  for (const Matrix3* block : {&laminate.a, &laminate.b, &laminate.c, &laminate.d}) {
    for (float x : block->v) finite = finite && std::isfinite(x);
  }
  if (laminate.error || !finite) {
    status_.error = StrengthError::laminate_in_error;
    return;
  }
  if (criteria.size() > kMaxCriteria) {
    status_.error = StrengthError::bad_option;
    status_.name = "criteria";
    return;
  }
  const std::size_t nmaterials = laminate.materials.size();
  criteria_.resize(criteria.size() * nmaterials);
  for (std::size_t k = 0; k < criteria.size(); ++k) {
    for (std::size_t m = 0; m < nmaterials; ++m) {
      status_ = PlyCriterion::prepare(criteria[k], laminate.materials[m],
                                      static_cast<std::int32_t>(m + 1), options,
                                      criteria_[k * nmaterials + m]);
      if (!status_.ok()) return;
    }
  }
  status_ = {};
  ncriteria_ = criteria.size();
  inverse_ = {laminate.a, laminate.b, laminate.c, laminate.d};

  // Ply terms, and the thermal running loads per unit temperature summed as the
  // laminate sums its stiffness, from z = -h/2.
  plies_.resize(laminate.angles.size());
  std::vector<Vector3> free_stress(plies_.size());  // Q (CTE1, CTE2, 0)
  Vector3 nt{}, mt{};
  float zp = -(laminate.h * 0.5f);
  for (std::size_t k = 0; k < plies_.size(); ++k) {
    Ply& ply = plies_[k];
    ply.material = laminate.material_index[k] - 1;
    const LAMINA& m = laminate.materials[static_cast<std::size_t>(ply.material)];
    const float zk = zp + m.CPT;
    const float theta = radians(laminate.angles[k]);
    const float c = std::cos(theta);
    const float s = std::sin(theta);
    const float cc = c * c, ss = s * s, cs = c * s;
    ply.Te = by_rows({{{cc, ss, cs}, {ss, cc, -cs}, {-2.0f * cs, 2.0f * cs, cc - ss}}});
    ply.P = matrix_product(m.Q, ply.Te);
    ply.z = {zp, (zp + zk) * 0.5f, zk};
    ply.cte1 = m.CTE1;
    ply.cte2 = m.CTE2;
    ply.same_as = k;
    for (std::size_t i = k - k % kBlockPlies; i < k; ++i) {
      if (plies_[i].material == ply.material && plies_[i].P == ply.P) {
        ply.same_as = i;
        break;
      }
    }
    free_stress[k] = matrix_vector_product(m.Q, {m.CTE1, m.CTE2, 0.0f});
    const Matrix3 t_inv =  // T(-theta): ply-axis stresses to laminate axes
        by_rows({{{cc, ss, -2.0f * cs}, {ss, cc, 2.0f * cs}, {cs, -cs, cc - ss}}});
    const Vector3 f = matrix_vector_product(t_inv, free_stress[k]);
    const float dz2 = zk * zk - zp * zp;
    for (std::size_t i = 0; i < 3; ++i) {
      nt[i] = nt[i] + f[i] * m.CPT;
      mt[i] = mt[i] + (0.5f * f[i]) * dz2;
    }
    zp = zk;
  }
  thermal_midplane_ = apply_inverse(inverse_, nt, mt);
  const Vector3 e0 = {thermal_midplane_[0], thermal_midplane_[1], thermal_midplane_[2]};
  const Vector3 kappa = {thermal_midplane_[3], thermal_midplane_[4],
                         thermal_midplane_[5]};
  for (std::size_t k = 0; k < plies_.size(); ++k) {
    Ply& ply = plies_[k];
    const Vector3 u = matrix_vector_product(ply.P, e0),
                  v = matrix_vector_product(ply.P, kappa);
    for (std::size_t s = 0; s < kSurfaces; ++s) {
      for (std::size_t i = 0; i < 3; ++i) {
        ply.thermal[s][i] = (u[i] + ply.z[s] * v[i]) - free_stress[k][i];
      }
    }
  }
}

std::array<float, 6> StrengthPlan::midplane(const float* load) const {
  return apply_inverse(inverse_, {load[0], load[1], load[2]},
                       {load[3], load[4], load[5]});
}

// visit(ply index, surface index, mechanical stress, thermal stress) for every
// ply surface, in order; evaluate() forms the same stresses block by block.
template <typename Visit>
void StrengthPlan::for_each_surface(const float* load, Visit visit) const {
  const std::array<float, 6> e = midplane(load);
  const Vector3 e0 = {e[0], e[1], e[2]}, kappa = {e[3], e[4], e[5]};
  for (std::size_t k = 0; k < plies_.size(); ++k) {
    const Ply& ply = plies_[k];
    const Vector3 u = matrix_vector_product(ply.P, e0),
                  v = matrix_vector_product(ply.P, kappa);
    for (std::size_t s = 0; s < kSurfaces; ++s) {
      PlyStress mechanical{}, thermal{};
      for (std::size_t i = 0; i < 3; ++i) {
        mechanical[i] = u[i] + ply.z[s] * v[i];
        if (load[6] != 0.0f) thermal[i] = load[6] * ply.thermal[s][i];
      }
      visit(k, s, mechanical, thermal);
    }
  }
}

StrengthStatus StrengthPlan::evaluate(std::span<const float> loads,
                                      const StrengthOutputs& out) const {
  if (!status_.ok()) return status_;
  StrengthStatus status;
  const std::size_t ncases = loads.size() / kLoadCaseValues;
  const std::size_t ncriteria = criteria(), nplies = plies();
  const std::size_t nsurfaces = nplies * kSurfaces;
  const std::size_t nmaterials = laminate_->materials.size();
  const auto fits = [&](std::string_view name, std::size_t size, std::size_t wanted) {
    if (size == 0 || size == wanted) return true;
    status.error = StrengthError::wrong_size;
    status.name = name;
    return false;
  };
  if (!fits("loads", loads.size() % kLoadCaseValues, 0) ||
      !fits("rf", out.rf.size(), ncases * ncriteria) ||
      !fits("ply", out.ply.size(), ncases * ncriteria) ||
      !fits("surface", out.surface.size(), ncases * ncriteria) ||
      !fits("mode", out.mode.size(), ncases * ncriteria) ||
      !fits("ply_rf", out.ply_rf.size(), ncases * ncriteria * nsurfaces) ||
      !fits("stress", out.stress.size(), ncases * nsurfaces * 3) ||
      !fits("midplane", out.midplane.size(), ncases * 6)) {
    return status;
  }
  if (status = finite_loads(loads); !status.ok()) return status;

  // Stresses in columns, a block of plies at a time, so that each criterion
  // runs over many surfaces in one tight loop.
  constexpr std::size_t kBlock = kBlockPlies * kSurfaces;
  std::array<std::array<float, kBlock>, 3> s{}, r{};
  std::array<Vector3, kBlockPlies> us{}, vs{};
  std::array<float, kBlock> rf{};
  std::array<float, kMaxCriteria> least{};
  std::array<std::size_t, kMaxCriteria> where{};
  for (std::size_t n = 0; n < ncases; ++n) {
    const float* load = loads.data() + n * kLoadCaseValues;
    const std::array<float, 6> e = midplane(load);
    const Vector3 e0 = {e[0], e[1], e[2]}, kappa = {e[3], e[4], e[5]};
    const float dt = load[6];
    least.fill(INFINITY);
    for (std::size_t k0 = 0; k0 < nplies; k0 += kBlockPlies) {
      const std::size_t k1 = std::min(k0 + kBlockPlies, nplies);
      const std::size_t m = (k1 - k0) * kSurfaces;
      for (std::size_t k = k0; k < k1; ++k) {
        const Ply& ply = plies_[k];
        Vector3& u = us[k - k0];
        Vector3& v = vs[k - k0];
        if (ply.same_as == k) {
          u = matrix_vector_product(ply.P, e0);
          v = matrix_vector_product(ply.P, kappa);
        } else {
          u = us[ply.same_as - k0];
          v = vs[ply.same_as - k0];
        }
        for (std::size_t f = 0; f < kSurfaces; ++f) {
          const std::size_t at = (k - k0) * kSurfaces + f;
          for (std::size_t i = 0; i < 3; ++i) {
            s[i][at] = u[i] + ply.z[f] * v[i];
            r[i][at] = dt != 0.0f ? dt * ply.thermal[f][i] : 0.0f;
          }
        }
      }
      for (std::size_t j = 0; j < ncriteria; ++j) {
        const PlyCriterion* criterion = &criteria_[j * nmaterials];
        if (dt == 0.0f) {  // runs of plies of one material
          for (std::size_t i0 = 0, i1 = 0; i0 < m; i0 = i1) {
            const std::int32_t material = plies_[k0 + i0 / kSurfaces].material;
            while (i1 < m && plies_[k0 + i1 / kSurfaces].material == material) {
              i1 += kSurfaces;
            }
            criterion[material].reserve_factors(&s[0][i0], &s[1][i0], &s[2][i0], i1 - i0,
                                                &rf[i0]);
          }
        } else {
          for (std::size_t i = 0; i < m; ++i) {
            rf[i] = criterion[plies_[k0 + i / kSurfaces].material]
                        .reserve_factor({s[0][i], s[1][i], s[2][i]},
                                        {r[0][i], r[1][i], r[2][i]})
                        .rf;
          }
        }
        // The first least, without a branch: a new least is rare but unforeseeable.
        float low = least[j];
        std::size_t at = where[j];
        for (std::size_t i = 0; i < m; ++i) {
          const bool lower = rf[i] < low;
          low = lower ? rf[i] : low;
          at = lower ? k0 * kSurfaces + i : at;
        }
        least[j] = low;
        where[j] = at;
        if (!out.ply_rf.empty()) {
          std::copy_n(
              rf.begin(), m,
              out.ply_rf.begin() + static_cast<std::ptrdiff_t>(
                                       (n * ncriteria + j) * nsurfaces + k0 * kSurfaces));
        }
      }
      if (!out.stress.empty()) {
        float* x = &out.stress[(n * nsurfaces + k0 * kSurfaces) * 3];
        for (std::size_t i = 0; i < m; ++i) {
          for (std::size_t c = 0; c < 3; ++c) x[i * 3 + c] = s[c][i] + r[c][i];
        }
      }
    }
    for (std::size_t j = 0; j < ncriteria; ++j) {
      const std::size_t at = n * ncriteria + j;
      const std::size_t k = where[j] / kSurfaces, f = where[j] % kSurfaces;
      if (!out.rf.empty()) out.rf[at] = least[j];
      if (!out.ply.empty()) out.ply[at] = static_cast<std::int32_t>(k + 1);
      if (!out.surface.empty()) out.surface[at] = static_cast<std::int32_t>(f + 1);
      if (!out.mode.empty()) {
        // The mode of the least RF only: the same stresses once more.
        const Ply& ply = plies_[k];
        const Vector3 u = matrix_vector_product(ply.P, e0),
                      v = matrix_vector_product(ply.P, kappa);
        PlyStress mechanical{}, thermal{};
        for (std::size_t i = 0; i < 3; ++i) {
          mechanical[i] = u[i] + ply.z[f] * v[i];
          if (dt != 0.0f) thermal[i] = dt * ply.thermal[f][i];
        }
        out.mode[at] = static_cast<std::int32_t>(
            criteria_[j * nmaterials + static_cast<std::size_t>(ply.material)]
                .reserve_factor(mechanical, thermal)
                .mode);
      }
    }
    if (!out.midplane.empty()) {
      for (std::size_t i = 0; i < 6; ++i) {
        out.midplane[n * 6 + i] = e[i] + dt * thermal_midplane_[i];
      }
    }
  }
  return status;
}

StrengthStatus finite_loads(std::span<const float> loads) {
  StrengthStatus status;
  for (std::size_t i = 0; i < loads.size(); ++i) {
    if (!std::isfinite(loads[i])) {
      status.error = StrengthError::non_finite_load;
      status.load_case = static_cast<std::int64_t>(i / kLoadCaseValues + 1);
      break;
    }
  }
  return status;
}

StrengthStatus StrengthPlan::state(const LoadCase& load, LaminateState& out) const {
  if (!status_.ok()) return status_;
  const float row[kLoadCaseValues] = {load.Nx, load.Ny,  load.Nxy, load.Mx,
                                      load.My, load.Mxy, load.dT};
  if (StrengthStatus status = finite_loads(row); !status.ok()) return status;
  LaminateState result;
  const std::array<float, 6> e = midplane(row);
  for (std::size_t i = 0; i < 6; ++i)
    result.midplane[i] = e[i] + load.dT * thermal_midplane_[i];
  result.surfaces.reserve(plies() * kSurfaces);
  for_each_surface(row, [&](std::size_t k, std::size_t s, const PlyStress& mechanical,
                            const PlyStress& thermal) {
    const Ply& ply = plies_[k];
    PlySurfaceState p;
    p.ply = static_cast<std::int32_t>(k + 1);
    p.surface = static_cast<Surface>(s + 1);
    p.z = ply.z[s];
    for (std::size_t i = 0; i < 3; ++i) {
      p.strain[i] = result.midplane[i] + ply.z[s] * result.midplane[i + 3];
      p.stress[i] = mechanical[i] + thermal[i];
    }
    p.thermal_stress = thermal;
    const Vector3 total = matrix_vector_product(ply.Te, p.strain);
    p.mechanical_strain = {total[0] - load.dT * ply.cte1, total[1] - load.dT * ply.cte2,
                           total[2]};
    result.surfaces.push_back(p);
  });
  out = std::move(result);
  return {};
}

StrengthStatus LAMINATESTRESSED::strength_report(const LoadCase& load,
                                                 std::span<const std::int32_t> criteria,
                                                 const StrengthOptions& options,
                                                 std::string& text) const {
  const StrengthPlan plan(*this, criteria, options);
  LaminateState state;
  StrengthStatus status = plan.state(load, state);
  if (!status.ok()) return status;
  const std::size_t ncriteria = criteria.size();
  const std::size_t nsurfaces = state.surfaces.size();
  std::vector<float> rf(ncriteria), ply_rf(ncriteria * nsurfaces);
  std::vector<std::int32_t> ply(ncriteria), surface(ncriteria), mode(ncriteria);
  const float row[kLoadCaseValues] = {load.Nx, load.Ny,  load.Nxy, load.Mx,
                                      load.My, load.Mxy, load.dT};
  status = plan.evaluate(row, {rf, ply, surface, mode, ply_rf, {}, {}});
  if (!status.ok()) return status;

  std::vector<std::string> keywords;
  for (std::int32_t code : criteria) keywords.emplace_back(criterion_keyword(code));
  std::string report = "- Load case\n";
  for (std::string_view label : {"Nx", "Ny", "Nxy", "Mx", "My", "Mxy", "dT"}) {
    report += right(label, 11);
  }
  report += "\n";
  for (float x : row) report += format_exponent(x, 11, 3);
  report += "\n- Ply stresses and reserve factors\n";
  report += right("Ply", 4) + " " + pad_or_cut("Surface", 7) + right("Angle", 7) + " " +
            pad_or_cut("Material", 12) + right("sigma1", 11) + right("sigma2", 11) +
            right("tau12", 11);
  for (const std::string& keyword : keywords) report += " " + right(keyword, 5);
  report += "\n";
  for (std::size_t i = 0; i < nsurfaces; ++i) {
    const PlySurfaceState& p = state.surfaces[i];
    const std::size_t k = static_cast<std::size_t>(p.ply) - 1;
    report += format_integer(p.ply, 4) + " " + pad_or_cut(surface_name(p.surface), 7) +
              format_fixed(angles[k], 7, 1) + " " +
              pad_or_cut(material_label(*this, material_index[k]), 12);
    for (float x : p.stress) report += format_exponent(x, 11, 3);
    for (std::size_t j = 0; j < ncriteria; ++j) {
      report += " " + right(reserve_factor_text5(ply_rf[j * nsurfaces + i]),
                            std::max<std::size_t>(keywords[j].size(), 5));
    }
    report += "\n";
  }
  report += "- First-ply failure\n";
  report += pad_or_cut("Criterion", 13) + right("RF", 5) + right("Ply", 5) + " " +
            pad_or_cut("Surface", 7) + " Mode\n";
  for (std::size_t j = 0; j < ncriteria; ++j) {
    report += pad_or_cut(keywords[j], 13) + reserve_factor_text5(rf[j]) +
              format_integer(ply[j], 5) + " " +
              pad_or_cut(surface_name(static_cast<Surface>(surface[j])), 7) + " " +
              std::string(failure_mode_name(static_cast<FailureMode>(mode[j]))) + "\n";
  }
  text += report;
  return status;
}

}  // namespace corvane
