#include "laminates_stressed/notched_strength.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "laminates_stressed/impact_strength.h"
#include "laminates_stressed/laminate_stressed.h"

namespace corvane {
namespace {

using Loads = std::vector<float>;
constexpr float kNaN = NAN;

LAMINA Tape(std::string_view properties = "") {
  LAMINA m = new_lamina(0.125f, 140000, 9000, 4600, 0.3f, 2500, 1500);
  set_properties(m, properties);
  return m;
}

// (0/45/-45/90)2S, 2 mm; and [0]8, 1 mm.
LAMINATESTRESSED QuasiIsotropic(const LAMINA& m) {
  return LAMINATESTRESSED(m, std::vector<float>{0, 45, -45, 90, 0, 45, -45, 90, 90, -45,
                                                45, 0, 90, -45, 45, 0});
}
LAMINATESTRESSED Unidirectional(const LAMINA& m) {
  return LAMINATESTRESSED(m, std::vector<float>(8, 0.0f));
}

// [0]8: K_T = 7.1419 along the fibres (by hand, as in lamina_test), so the default
// Kfhc = 0.6 gives the filled-hole compression strain uecall/(0.6 3.1401 7.1419/3)
// = 0.0023888, Kfht = 0.7 likewise from e1tu. Bearing: the default Fbr = 0.5 F1c
// = 750 against 1000 N in a 6.35 mm hole through 1 mm: RF 4.7625.
TEST(Notched, FilledHoleFactorsAndBearingByHand) {
  const NotchCheck checks[] = {NotchCheck::fhc, NotchCheck::fht, NotchCheck::bearing};
  const NotchedPlan plan(Unidirectional(Tape()), checks);
  ASSERT_TRUE(plan.status().ok()) << plan.status().message();
  EXPECT_NEAR(plan.kt(false), 7.141896f, 2e-5f);
  EXPECT_NEAR(plan.allowable(1, false), (2500.0 / 140000) / (0.7 * 3.1401 * 7.141896 / 3),
              1e-8);
  std::vector<float> rf(6);  // 1000 N/mm of compression, then pure shear and dT
  ASSERT_TRUE(plan.evaluate(Loads{-1000, 0, 0, 0, 0, 0, 0, 0, 0, 300, 0, 0, 0, 90},
                            Loads{-1000, 0}, rf)
                  .ok());
  EXPECT_NEAR(rf[0], 0.00238878f * 140, 1e-5f);
  EXPECT_LT(rf[1], 1000.0f);  // the Poisson strain along y is tensile
  EXPECT_NEAR(rf[2], 4.7625f, 1e-5f);
  EXPECT_EQ(rf[3], kNoFailureRF);
  EXPECT_EQ(rf[5], kNoFailureRF);
}

TEST(Notched, RefusalsWriteNothing) {
  const Loads one = {100, 0, 0, 0, 0, 0, 0}, nan = {0, 0, 0, 0, 0, 0, kNaN};
  const struct {
    std::string_view keys;
    NotchCheck check;
    float diameter;
    Loads loads, fastener;
    std::string_view says;
  } rows[] = {
      {"", NotchCheck::oht, 6.35f, one, {}, "a0oht missing (material 1, criterion OHT)"},
      {"KFHC=0", NotchCheck::fhc, 6.35f, one, {}, "Kfhc missing"},
      {"", NotchCheck::fhc, kNaN, one, {}, "Option hole diameter out of range"},
      {"", NotchCheck::fhc, 1, nan, {}, "Load case 1 is not finite"},
      {"", NotchCheck::bearing, 1, one, {kNaN}, "Load case 1 is not finite"},
      {"", NotchCheck::bearing, 1, one, {}, "Array fastener loads of the wrong size"},
  };
  for (const auto& row : rows) {
    const NotchedPlan plan(QuasiIsotropic(Tape(row.keys)), {&row.check, 1}, row.diameter);
    std::vector<float> rf(1, -7.0f);
    EXPECT_NE(plan.evaluate(row.loads, row.fastener, rf).message().find(row.says),
              std::string::npos);
    EXPECT_EQ(rf[0], -7.0f);
  }
}

TEST(Impact, ShearByPrincipalStrainAndRefusals) {
  const LAMINATESTRESSED lam = QuasiIsotropic(Tape());
  std::vector<float> rf(2, -7.0f);
  ASSERT_TRUE(ImpactPlan(lam, 0, false).evaluate(Loads{0, 0, 200, 0, 0, 0, 0}, rf).ok());
  EXPECT_NEAR(rf[0], lam.materials[0].CAIH / (100 * lam.a(3, 3)), 1e-4f);
  LAMINA unknown = Tape();
  unknown.cdt_model.name = "CDTM-T05X";
  unknown.cdt_model.status = -1;
  EXPECT_EQ(ImpactPlan(lam, 10, true).status().message(),
            "Error! Damage model of material 1 not usable: no model given.");
  EXPECT_EQ(
      ImpactPlan(QuasiIsotropic(unknown), 10, true).status().message(),
      "Error! Damage model of material 1 not usable: unknown model name or unreadable "
      "coefficients.");
  EXPECT_EQ(ImpactPlan(lam, -1, false).status().message(),
            "Error! Option impact energy out of range.");
  unknown.CAIE = 0;
  EXPECT_EQ(ImpactPlan(QuasiIsotropic(unknown), 0, false).status().message(),
            "Error! CAIE missing (material 1, criterion CAI).");
  rf = {-7.0f, -7.0f};
  EXPECT_EQ(
      ImpactPlan(lam, 0, false).evaluate(Loads{kNaN, 0, 0, 0, 0, 0, 0}, rf).message(),
      "Error! Load case 1 is not finite.");
  EXPECT_EQ(rf, (std::vector<float>{-7.0f, -7.0f}));
}

}  // namespace
}  // namespace corvane
