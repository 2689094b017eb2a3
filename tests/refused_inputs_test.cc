// The table of refused inputs through the library: the entry point's error
// code, and the core's reason for it.
#include "refused_inputs.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "corvane/corvane.h"
#include "laminas/lamina.h"
#include "laminates/stacking_sequence.h"

namespace corvane {
namespace {

TEST(RefusedInputs, CodeAndReasonOfTheLibrary) {
  const std::vector<RefusedInput> rows = refused_inputs(CORVANE_REFUSED_INPUTS);
  ASSERT_FALSE(rows.empty());
  for (const RefusedInput& row : rows) {
    float m[7] = {0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f};  // the CTEs stay 0
    for (int k = 0; k < 5; ++k) m[k] = std::stof(row.material[k]);
    std::string layup = row.layup;
    layup.resize(CORVANE_LAYUP_LENGTH, ' ');
    std::string cards(CORVANE_CARDS_LENGTH, ' ');
    float a[9], b[9], d[9], dstar[9], h, ex, ey, gxy, nuxy, ax, ay, axy;
    std::int32_t symmetric = 0, plies = 0, ierr = -9;
    LAMINATE_STIFFNESS(&m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6], layup.data(),
                       CORVANE_LAYUP_LENGTH, &symmetric, a, b, d, dstar, &h, &ex, &ey,
                       &gxy, &nuxy, &ax, &ay, &axy, &plies, cards.data(),
                       CORVANE_CARDS_LENGTH, &ierr);
    EXPECT_EQ(ierr, row.code) << row.layup;

    // The material is judged first, as the entry point does.
    std::string reason = lamina_fault(m[0], m[1], m[2], m[3], m[4]);
    std::size_t position = 0;
    if (reason.empty()) {
      std::vector<float> angles;
      StackingRefusal refusal;
      EXPECT_NE(parse_stacking_sequence(layup, angles, nullptr, &refusal), kStackingOk);
      reason = refusal.reason;
      position = refusal.position;
    }
    EXPECT_NE(reason.find(row.reason), std::string::npos) << reason;
    EXPECT_EQ(position, row.position) << row.layup;
  }
}

}  // namespace
}  // namespace corvane
