#include "crippling_sections/crippling_section.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
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

// The published curves at a few b/t, by hand: 1.63 x^-0.717 and 11.0 x^-1.124
// (e.g. 1.63 * 10^-0.717 = 1.63 * 0.191867 = 0.312743), a segment's Fcc being
// that times its Fcu; b/t outside the fitted range is flagged, not refused.
TEST(CripplingSection, SegmentsFollowThePublishedCurves) {
  const struct {
    EdgeCondition edge;
    float b_over_t, ratio;
    RangeWarning warning;
  } rows[] = {
      {kOEF, 3.0f, 0.741467f, RangeWarning::below},
      {kOEF, 5.0f, 0.514075f, RangeWarning::none},
      {kOEF, 10.0f, 0.312743f, RangeWarning::none},
      {kOEF, 20.0f, 0.190261f, RangeWarning::none},
      {kOEF, 30.0f, 0.142263f, RangeWarning::none},
      {kOEF, 40.0f, 0.115747f, RangeWarning::above},
      {kNEF, 10.0f, 0.826785f, RangeWarning::none},
      {kNEF, 20.0f, 0.379346f, RangeWarning::none},
      {kNEF, 40.0f, 0.174051f, RangeWarning::none},
      {kNEF, 50.0f, 0.135441f, RangeWarning::none},
      {kNEF, 80.0f, 0.079858f, RangeWarning::above},
  };
  for (const auto& row : rows) {
    EXPECT_NEAR(crippling_ratio(row.edge, row.b_over_t), row.ratio, 2e-6f)
        << row.b_over_t;
    CRIPPLINGSECTION section;
    section.segments = {
        {row.b_over_t * 2.0f, 0, 0, 0, row.edge, &quasi_isotropic(), 400}};
    const SectionCrippling r = analyse(section);
    ASSERT_EQ(r.segments.size(), 1u);
    EXPECT_NEAR(r.segments[0].fcc, 400.0f * row.ratio, 1e-3f);
    EXPECT_FLOAT_EQ(r.fcc, r.segments[0].fcc);
    EXPECT_EQ(r.segments[0].warning, row.warning);
    EXPECT_EQ(r.warnings, row.warning == RangeWarning::none ? 0 : 1);
    EXPECT_FALSE(r.segments[0].capped);
  }
}

// A stocky segment cripples at its compression strength: the curves pass 1 at
// b/t = 1.63^(1/0.717) = 1.977 and 11^(1/1.124) = 8.443.
TEST(CripplingSection, StockySegmentsAreCappedAtTheirStrength) {
  const struct {
    EdgeCondition edge;
    float b_over_t;
    bool capped;
  } rows[] = {{kOEF, 1.5f, true}, {kOEF, 1.95f, true}, {kOEF, 2.0f, false},
              {kNEF, 5.0f, true}, {kNEF, 8.4f, true},  {kNEF, 8.5f, false}};
  for (const auto& row : rows) {
    CRIPPLINGSECTION section;
    section.segments = {
        {row.b_over_t * 2.0f, 0, 0, 0, row.edge, &quasi_isotropic(), 400}};
    const SectionCrippling r = analyse(section);
    EXPECT_EQ(r.segments[0].capped, row.capped) << row.b_over_t;
    EXPECT_EQ(r.segments[0].fcc == 400.0f, row.capped) << row.b_over_t;
    EXPECT_LE(r.segments[0].fcc, 400.0f);
    EXPECT_EQ(r.segments[0].warning, RangeWarning::below);
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
      {300, 1, ColumnMode::johnson, fcc - fcc * fcc * 300 * 300 / (4 * pi2 * ei / 160)},
      {600, 4, ColumnMode::johnson, fcc - fcc * fcc * 300 * 300 / (4 * pi2 * ei / 160)},
      {1500, 2, ColumnMode::euler, pi2 * ei / (160 * 1500 * 1500 / 2)},
      {20000, 1, ColumnMode::euler, pi2 * ei / (160.0 * 20000 * 20000)},
  };
  for (const auto& column : columns) {
    z.column = {column.length, column.fixity};
    const SectionCrippling r = analyse(z);
    EXPECT_NEAR(r.segments[0].fcc, 156.3715f, 2e-4f);
    EXPECT_NEAR(r.segments[1].fcc, 189.6728f, 2e-4f);
    EXPECT_NEAR(r.fcc, fcc, 2e-4);
    EXPECT_NEAR(r.pcc, 27683.54, 0.03);
    EXPECT_FLOAT_EQ(r.area, 160.0f);
    EXPECT_NEAR(r.ea, 160.0 * ex, 1e-6 * 160 * ex);
    EXPECT_NEAR(r.yc, 0.0f, 1e-5f);
    EXPECT_NEAR(r.ei_min, ei, 2e-5 * ei);
    EXPECT_NEAR(r.rho, std::sqrt(ei / (160 * ex)), 1e-5);
    EXPECT_EQ(r.column, column.mode) << column.length;
    EXPECT_NEAR(r.column_stress, column.stress, 2e-5 * column.stress) << column.length;
    EXPECT_FLOAT_EQ(r.column_load, r.column_stress * 160.0f);
    EXPECT_EQ(r.warnings, 0);
  }
}

// Johnson's parabola meets Euler's curve at Fcc/2 with the same slope, and a
// long column tends to Euler's load whatever the crippling stress.
TEST(CripplingSection, JohnsonMeetsEulerAndLongColumnsAreEuler) {
  CRIPPLINGSECTION section;
  section.segments = {{30, 0, 0, 0, kNEF, &quasi_isotropic(), 0}};
  SectionCrippling r = analyse(section);
  const float lt = r.transition * r.rho;  // L at the tangency, c = 1
  section.column.length = lt * 0.999f;
  r = analyse(section);
  EXPECT_EQ(r.column, ColumnMode::johnson);
  EXPECT_NEAR(r.column_stress, r.fcc / 2, 2e-3f * r.fcc);
  section.column.length = lt * 1.001f;
  r = analyse(section);
  EXPECT_EQ(r.column, ColumnMode::euler);
  EXPECT_NEAR(r.column_stress, r.fcc / 2, 3e-3f * r.fcc);
  // The strip's weak axis is its plate bending: EI = b/d11.
  const double ei = 30.0 / quasi_isotropic().d(1, 1);
  EXPECT_NEAR(r.ei_min, ei, 1e-5 * ei);
  section.column.length = 5000.0f;
  const double euler = 9.8696044 * ei / (5000.0 * 5000.0);
  EXPECT_NEAR(analyse(section).column_load, euler, 1e-5 * euler);
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
    FailureMode mode;
  } rows[] = {
      {&ud, 9, m.F1c, FailureMode::fibre_compression},
      {&ud, 11, m.F1c, FailureMode::fibre_compression},
      {&cross, 11, cross.Ex * m.F1c / m.E1, FailureMode::fibre_compression},
  };
  for (const auto& row : rows) {
    CRIPPLINGSECTION section;
    section.criterion = row.criterion;
    section.segments = {{20, 0, 0, 0, kNEF, row.laminate, 0}};
    const SectionCrippling r = analyse(section);
    EXPECT_NEAR(r.segments[0].fcu, row.fcu, 2e-5f * row.fcu) << row.criterion;
    EXPECT_EQ(r.segments[0].fcu_mode, row.mode);
    EXPECT_FALSE(r.segments[0].fcu_given);
  }
}

TEST(CripplingSection, RefusalsNameTheCauseAndWriteNothing) {
  constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  LAMINA weak = t300_5208();
  weak.F2c = 0.0f;
  const LAMINATESTRESSED no_f2c(weak, Angles{0, 90});
  const LAMINATESTRESSED broken(new_lamina(0.1f, 0, 0, 0, 0.3f, 0, 0), Angles{0});
  const struct {
    void (*change)(CRIPPLINGSECTION&);
    CripplingError error;
    const char* text;
  } rows[] = {
      {[](CRIPPLINGSECTION& s) { s.segments.clear(); }, CripplingError::bad_count,
       "Error! Section has no segment."},
      {[](CRIPPLINGSECTION& s) { s.segments[1].width = 0; }, CripplingError::bad_segment,
       "Error! Segment 2: width 0 is not a positive number."},
      {[](CRIPPLINGSECTION& s) { s.segments[0].width = nan; },
       CripplingError::bad_segment, "Error! Segment 1: width nan is not"},
      {[](CRIPPLINGSECTION& s) { s.segments[1].angle = nan; },
       CripplingError::bad_segment, "Error! Segment 2: centre (0, 0) or angle nan"},
      {[](CRIPPLINGSECTION& s) { s.segments[1].edge = EdgeCondition{3}; },
       CripplingError::bad_segment, "edge condition 3 is neither"},
      {[](CRIPPLINGSECTION& s) { s.segments[0].fcu = -5; }, CripplingError::bad_segment,
       "Segment 1: compression strength -5 is not 0 or a positive number."},
      {[](CRIPPLINGSECTION& s) { s.column.length = -1; }, CripplingError::bad_column,
       "Error! Length -1 is not 0"},
      {[](CRIPPLINGSECTION& s) { s.column.fixity = 0; }, CripplingError::bad_column,
       "Error! End fixity coefficient 0 is not a positive number."},
      {[](CRIPPLINGSECTION& s) { s.column.fixity = nan; }, CripplingError::bad_column,
       "End fixity coefficient nan"},
      {[](CRIPPLINGSECTION& s) { s.criterion = 8; },
       CripplingError::criterion_not_available,
       "Error! Segment 2: Criterion AOSL not available"},
      {[](CRIPPLINGSECTION& s) { s.criterion = 99; }, CripplingError::unknown_criterion,
       "Error! Segment 2: Unknown failure criterion (code 99)."},
      {[](CRIPPLINGSECTION& s) { s.options.puck.p_minus = 1; },
       CripplingError::bad_option, "Option p- out of range."},
      {[](CRIPPLINGSECTION& s) { s.segments[0].width = 1.0e30f; },
       CripplingError::out_of_range, "Error! Section results beyond"},
  };
  const CRIPPLINGSECTION good = [] {
    CRIPPLINGSECTION s;
    s.segments = {{20, 0, 0, 0, kOEF, &quasi_isotropic(), 500},
                  {40, 0, 0, 90, kNEF, &quasi_isotropic(), 0}};
    return s;
  }();
  for (const auto& row : rows) {
    CRIPPLINGSECTION section = good;
    row.change(section);
    SectionCrippling r;
    r.fcc = -7.0f;
    const CripplingStatus status = section.analyse(r);
    EXPECT_EQ(status.error, row.error) << status.message();
    EXPECT_NE(status.message().find(row.text), std::string::npos) << status.message();
    EXPECT_TRUE(r.fcc == -7.0f && r.segments.empty());
  }
  const struct {
    const LAMINATESTRESSED* laminate;
    CripplingError error;
    const char* text;
  } laminates[] = {
      {&no_f2c, CripplingError::strength_missing,
       "Error! Segment 1: F2c missing (criterion PUCK)."},
      {&broken, CripplingError::laminate_in_error,
       "Error! Segment 1: laminate in error."},
  };
  for (const auto& row : laminates) {
    CRIPPLINGSECTION section;
    section.segments = {{20, 0, 0, 0, kOEF, row.laminate, 0}};
    SectionCrippling r;
    const CripplingStatus status = section.analyse(r);
    EXPECT_EQ(status.error, row.error);
    EXPECT_EQ(status.message(), row.text);
  }
}

TEST(CripplingSection, OutOfRangeWarningLine) {
  CRIPPLINGSECTION section;
  section.segments = {{20, 0, 0, 0, kOEF, &quasi_isotropic(), 500},
                      {90, 0, 0, 90, kOEF, &quasi_isotropic(), 500}};
  const SectionCrippling r = analyse(section);
  EXPECT_EQ(r.warnings, 1);
  EXPECT_EQ(range_warning(r, section.segments),
            "Warning! Segment 2: b/t = 45 above the range 4 to 30 of the OEF crippling "
            "relation.");
  section.segments.pop_back();
  EXPECT_EQ(range_warning(analyse(section), section.segments), "");
}

}  // namespace
}  // namespace corvane
