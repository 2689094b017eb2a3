#include "crippling_sections/crippling_section.h"

#include <gtest/gtest.h>

#include <cmath>
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

// Fcu by first-ply failure under compression, against hand values: a
// unidirectional laminate fails by fibre compression at F1c; a cross-ply one by
// the maximum strain criterion when its 0-degree plies reach -F1c/E1, at
// Fcu = Ex F1c/E1 (the 90-degree plies' limit F2c/E2 is three times larger).
TEST(CripplingSection, CompressionStrengthFromFirstPlyFailure) {
  const LAMINA m = t300_5208();
  const LAMINATESTRESSED ud(m, Angles{0, 0, 0, 0, 0, 0, 0, 0});
  const LAMINATESTRESSED cross(m, Angles{0, 90, 0, 90, 90, 0, 90, 0});
  const struct {
    const LAMINATESTRESSED* laminate;
    std::int32_t criterion;
    float fcu;
  } rows[] = {{&ud, 9, m.F1c}, {&ud, 11, m.F1c}, {&cross, 11, cross.Ex * m.F1c / m.E1}};
  for (const auto& row : rows) {
    const SectionCrippling r = one(20, kNEF, 0, *row.laminate, row.criterion);
    EXPECT_NEAR(r.segments[0].fcu, row.fcu, 2e-5f * row.fcu) << row.criterion;
    EXPECT_EQ(r.segments[0].fcu_mode, FailureMode::fibre_compression);
  }
}

TEST(CripplingSection, RefusalsNameTheCauseAndWriteNothing) {
  using E = CripplingError;
  using S = CRIPPLINGSECTION;
  static LAMINA weak = [] {
    LAMINA m = t300_5208();
    m.F2c = 0.0f;
    return m;
  }();
  static const LAMINATESTRESSED no_f2c(weak, Angles{0, 90});
  static const LAMINATESTRESSED broken(new_lamina(0.1f, 0, 0, 0, 0.3f, 0, 0), Angles{0});
  const struct {
    void (*change)(S&);
    E error;
    const char* text;
  } rows[] = {
      {[](S& s) { s.segments.clear(); }, E::bad_count, "Error! Section has no segment."},
      {[](S& s) { s.segments[1].width = 0; }, E::bad_segment,
       "Error! Segment 2: width 0 is not a positive number."},
      {[](S& s) { s.segments[1].edge = EdgeCondition{3}; }, E::bad_segment,
       "edge condition 3"},
      {[](S& s) { s.segments[0].fcu = -5; }, E::bad_segment, "strength -5 is not 0 or a"},
      {[](S& s) { s.column.length = -1; }, E::bad_column, "Error! Length -1 is not 0"},
      {[](S& s) { s.column.fixity = 0; }, E::bad_column, "fixity coefficient 0 is not"},
      {[](S& s) { s.criterion = 8; }, E::criterion_not_available,
       "2: Criterion AOSL not"},
      {[](S& s) { s.options.puck.p_minus = 1; }, E::bad_option,
       "Option p- out of range."},
      {[](S& s) { s.segments[0].width = 1.0e30f; }, E::out_of_range,
       "Section results bey"},
      {[](S& s) { s.segments[1].laminate = &no_f2c; }, E::strength_missing,
       "Error! Segment 2: F2c missing (criterion PUCK)."},
      {[](S& s) { s.segments[0].laminate = &broken; }, E::laminate_in_error,
       "Error! Segment 1: laminate in error."},
  };
  for (const auto& row : rows) {
    S section;
    section.segments = {{20, 0, 0, 0, kOEF, &quasi_isotropic(), 500},
                        {40, 0, 0, 90, kNEF, &quasi_isotropic(), 0}};
    row.change(section);
    SectionCrippling r;
    r.fcc = -7.0f;
    const CripplingStatus status = section.analyse(r);
    EXPECT_EQ(status.error, row.error) << status.message();
    EXPECT_NE(status.message().find(row.text), std::string::npos) << status.message();
    EXPECT_TRUE(r.fcc == -7.0f && r.segments.empty());
  }
}

}  // namespace
}  // namespace corvane
