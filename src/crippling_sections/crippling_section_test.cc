#include "crippling_sections/crippling_section.h"

#include <gtest/gtest.h>

#include <vector>

#include "laminates_stressed/laminate_stressed.h"

namespace corvane {
namespace {

using Angles = std::vector<float>;
constexpr auto kOEF = EdgeCondition::one_edge_free;
constexpr auto kNEF = EdgeCondition::no_edge_free;

const LAMINATESTRESSED& quasi_isotropic() {  // T300/5208, 16 plies, t = 2
  static const LAMINATESTRESSED lam(t300_5208(), Angles{0, 45, -45, 90, 0, 45, -45, 90,
                                                        90, -45, 45, 0, 90, -45, 45, 0});
  return lam;
}

SectionCrippling analyse(const CRIPPLINGSECTION& section) {
  SectionCrippling r;
  const CripplingStatus status = section.analyse(r);
  EXPECT_TRUE(status.ok()) << status.message();
  return r;
}

// A section of one NEF or OEF segment.
SectionCrippling one(float b, EdgeCondition edge, float fcu,
                     const LAMINATE& lam = quasi_isotropic(),
                     std::int32_t criterion = 9) {
  CRIPPLINGSECTION section;
  section.criterion = criterion;
  section.segments = {{b, 0, 0, 0, edge, &lam, fcu}};
  return analyse(section);
}

// The published curves by hand: Fcc/Fcu = 1.63 x^-0.717 (OEF), 11.0 x^-1.124 (NEF),
// capped at 1 (x = 1.977 and 8.443); out of the fitted range flagged, not refused.
TEST(CripplingSection, SegmentsFollowThePublishedCurvesCappedAtFcu) {
  using enum RangeWarning;
  const struct {
    EdgeCondition edge;
    float b_over_t, ratio;
    RangeWarning warning;
  } rows[] = {
      {kOEF, 1.5f, 1.0f, below},       {kOEF, 3.0f, 0.741467f, below},
      {kOEF, 5.0f, 0.514075f, none},   {kOEF, 30.0f, 0.142263f, none},
      {kOEF, 40.0f, 0.115747f, above}, {kNEF, 8.4f, 1.0f, below},
      {kNEF, 10.0f, 0.826785f, none},  {kNEF, 50.0f, 0.135441f, none},
      {kNEF, 80.0f, 0.079858f, above},
  };
  for (const auto& row : rows) {
    const SectionCrippling r = one(row.b_over_t * 2.0f, row.edge, 400);
    EXPECT_NEAR(r.segments[0].fcc, 400.0f * row.ratio, 1e-3f) << row.b_over_t;
    EXPECT_EQ(r.segments[0].capped, row.ratio == 1.0f);
    EXPECT_EQ(r.segments[0].warning, row.warning);
    EXPECT_EQ(r.warnings, row.warning == none ? 0 : 1);
  }
}

// A Z section of the 16-ply quasi-isotropic laminate (t = 2), Fcu = 500 given,
// centre-line dimensions: web b = 40 (NEF) along z through the origin, flanges
// b = 20 (OEF) centred at (10, 20) and (-10, -20).
//   flanges: b/t = 10, Fcc = 500 * 1.63 * 10^-0.717 = 156.3715
//   web:     b/t = 20, Fcc = 500 * 11.0 * 20^-1.124  = 189.6728
//   A = 160, Pcc = 2 * 156.3715 * 40 + 189.6728 * 80 = 27683.54, Fcc = 173.0221
//   EA = Ex t (20 + 40 + 20) = 160 Ex
// Bending about the centroid (0, 0), with Kn = b/d11 the plate terms:
//   Jyy = 2 Ex 2 20^3/12 + 2 (40 Ex) 10^2 + 40/d11 = 10666.67 Ex + 40/d11
//   Jzz = Ex 2 40^3/12 + 2 (40 Ex) 20^2 + 40/d11 = 42666.67 Ex + 40/d11
//   Jyz = 2 (40 Ex) (10 * 20) = 16000 Ex
//   EI_min = 26666.67 Ex + 40/d11 - 16000 sqrt(2) Ex = 4039.250 Ex + 40/d11
// Column: E = EA/A = Ex, rho^2 = EI_min/EA, Johnson below L'/rho =
// sqrt(2 pi^2 Ex/Fcc), Euler pi^2 EI_min / (A L'^2) beyond.
TEST(CripplingSection, ZSectionByHand) {
  const LAMINATESTRESSED& lam = quasi_isotropic();
  CRIPPLINGSECTION z;
  z.segments = {{20, 10, 20, 0, kOEF, &lam, 500},
                {40, 0, 0, 90, kNEF, &lam, 500},
                {20, -10, -20, 0, kOEF, &lam, 500}};
  const double ex = lam.Ex, ei = 4039.2497 * ex + 40.0 / lam.d(1, 1);
  const double pi2 = 9.8696044010893586, fcc = 173.02213;
  const struct {
    float length, fixity;
    ColumnMode mode;
    double stress;
  } columns[] = {
      {0, 1, ColumnMode::johnson, fcc},
      {600, 4, ColumnMode::johnson, fcc - fcc * fcc * 300 * 300 / (4 * pi2 * ei / 160)},
      {1500, 2, ColumnMode::euler, pi2 * ei / (160 * 1500 * 1500 / 2)},
  };
  for (const auto& column : columns) {
    z.column = {column.length, column.fixity};
    const SectionCrippling r = analyse(z);
    EXPECT_NEAR(r.segments[0].fcc, 156.3715f, 2e-4f);
    EXPECT_NEAR(r.segments[1].fcc, 189.6728f, 2e-4f);
    EXPECT_NEAR(r.fcc, fcc, 2e-4);
    EXPECT_NEAR(r.pcc, 27683.54, 0.03);
    EXPECT_NEAR(r.ea, 160.0 * ex, 1e-6 * 160 * ex);
    EXPECT_NEAR(r.ei_min, ei, 2e-5 * ei);
    EXPECT_EQ(r.column, column.mode) << column.length;
    EXPECT_NEAR(r.column_stress, column.stress, 2e-5 * column.stress) << column.length;
  }
  for (SectionSegment& s : z.segments) s.y -= 3, s.z += 5;  // moved: the centroid too
  const SectionCrippling moved = analyse(z);
  EXPECT_NEAR(moved.yc, -3.0f, 1e-5f);
  EXPECT_NEAR(moved.zc, 5.0f, 1e-5f);
  EXPECT_NEAR(moved.ei_min, ei, 2e-5 * ei);
}

}  // namespace
}  // namespace corvane
