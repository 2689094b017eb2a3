#include "laminates_stressed/laminate_stressed.h"

#include <gtest/gtest.h>

#include <vector>

namespace corvane {
namespace {

using Angles = std::vector<float>;

TEST(LaminateStressed, BuildsItsStiffnessPart) {
  const LAMINA tape = new_lamina(0.125f, 140000, 9000, 4600, 0.3f, 1000, 1000);
  const LAMINATESTRESSED lam(tape, Angles{0, 90, 90, 0}, "cp");
  const LAMINATESTIFFNESS ref(tape, Angles{0, 90, 90, 0}, "cp");
  EXPECT_FALSE(lam.error);
  EXPECT_EQ(lam.z1, ref.z1);
  EXPECT_EQ(lam.Dstar, ref.Dstar);
}

}  // namespace
}  // namespace corvane
