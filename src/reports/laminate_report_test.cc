#include "reports/laminate_report.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {
namespace {

LAMINA tape() { return new_lamina(0.125f, 140000, 9000, 4600, 0.3f, 1000, 1000, "tape"); }

TEST(LaminateReport, Summary) {
  const LAMINATE lam(tape(), std::vector<float>{0}, "one ply");
  const std::string line =
      "one ply               0.125   140000     9000     4600  0.3000\n";
  EXPECT_EQ(laminate_summary(lam), line);
  EXPECT_EQ(laminate_summary(lam, true),
            std::string(kLaminateSummaryHeader) + "\n" + line);
  const LAMINATE failed(tape(), std::vector<float>{});
  EXPECT_EQ(laminate_summary(failed, true),
            "Error! Plate force is ill conditioned.\n" +
                std::string(kLaminateSummaryHeader) +
                "\n                      0.000        0        0        0  0.0000\n");
}

TEST(LaminateReport, SectionsInOrder) {
  const LAMINA soft = new_lamina(0.25f, 9000, 9000, 3000, 0.3f, 1000, 1000);
  const std::string report =
      laminate_report(LAMINATE(tape(), soft, std::vector<float>{0, 45, 90, 0},
                               std::vector<std::int32_t>{1, 2, 2, 1}, "mix"));
  std::size_t at = 0;
  for (const char* expected :
       {"# Laminate: mix\n", "- Materials\n", "- Laminate stacking and thickness\n",
        "Angles Stacking : (0/45/90/0)\n", "Mats. Stacking  : (1/2/2/1)\n",
        "Stacking style (%0/%45/%90) : 50.0/25.0/25.0\n",
        "- Laminate apparent elastic moduli and strengths\n",
        "- Laminate stiffness matrices\n", "[A]", "[B]", "[D]", "[D*](B-basis)\n"}) {
    const std::size_t found = report.find(expected, at);
    ASSERT_NE(found, std::string::npos) << expected << "\n" << report;
    at = found;
  }
}

}  // namespace
}  // namespace corvane
