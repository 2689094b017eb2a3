#include "laminates/inverse3x3.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace corvane {
namespace {

// Builds a matrix from rows as printed, so the cases read like the algebra.
Matrix3 rows(float a11, float a12, float a13, float a21, float a22, float a23, float a31,
             float a32, float a33) {
  Matrix3 m;
  m(1, 1) = a11, m(1, 2) = a12, m(1, 3) = a13;
  m(2, 1) = a21, m(2, 2) = a22, m(2, 3) = a23;
  m(3, 1) = a31, m(3, 2) = a32, m(3, 3) = a33;
  return m;
}

TEST(Inverse3x3, InvertibleMatricesAgainstHandInverses) {
  const struct {
    const char* what;
    Matrix3 m, inverse;
  } cases[] = {
      {"diagonal", rows(2, 0, 0, 0, -4, 0, 0, 0, 8),
       rows(0.5f, 0, 0, 0, -0.25f, 0, 0, 0, 0.125f)},
      // Unsymmetric with det = 1: a transposed adjugate or a row/column mix-up
      // gives a different matrix.
      {"unsymmetric", rows(1, 2, 3, 0, 1, 4, 5, 6, 0),
       rows(-24, 18, 5, 20, -15, -4, -5, 4, 1)},
      // det = -1: the sign of the determinant carries into every element.
      {"negative determinant", rows(0, 1, 0, 1, 0, 0, 0, 0, 1),
       rows(0, 1, 0, 1, 0, 0, 0, 0, 1)},
  };
  for (const auto& c : cases) {
    int status = -1;
    const Matrix3 inv = inverse3x3(c.m, 1.0e-20f, &status);
    EXPECT_EQ(status, kInverseOk) << c.what;
    for (int i = 1; i <= 3; ++i)
      for (int j = 1; j <= 3; ++j)
        EXPECT_EQ(inv(i, j), c.inverse(i, j)) << c.what << " (" << i << "," << j << ")";
  }
}

TEST(Inverse3x3, SingularWhenDeterminantNotAboveTolerance) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float inf = std::numeric_limits<float>::infinity();
  const struct {
    const char* what;
    Matrix3 m;
    float tolerance;
    int status;
  } cases[] = {
      {"dependent rows", rows(1, 2, 3, 2, 4, 6, 1, 1, 1), 1.0e-20f, kInverseSingular},
      // det = 1e-21 lies below the default tolerance of 1e-20.
      {"tiny determinant", rows(1.0e-7f, 0, 0, 0, 1.0e-7f, 0, 0, 0, 1.0e-7f), 1.0e-20f,
       kInverseSingular},
      // The test is strict: |det| equal to the tolerance is singular.
      {"det equals tolerance", rows(1, 0, 0, 0, 1, 0, 0, 0, 0.5f), 0.5f,
       kInverseSingular},
      {"det just above tolerance", rows(1, 0, 0, 0, 1, 0, 0, 0, 0.5f), 0.4999f,
       kInverseOk},
      {"NaN element", rows(nan, 0, 0, 0, 1, 0, 0, 0, 1), 1.0e-20f, kInverseSingular},
      // 0 * inf in the Sarrus terms makes the determinant NaN.
      {"infinite element", rows(inf, 0, 0, 0, 1, 0, 0, 0, 1), 1.0e-20f, kInverseSingular},
  };
  for (const auto& c : cases) {
    int status = -1;
    const Matrix3 inv = inverse3x3(c.m, c.tolerance, &status);
    EXPECT_EQ(status, c.status) << c.what;
    if (c.status == kInverseSingular) {
      for (float x : inv.v) EXPECT_TRUE(std::isnan(x)) << c.what;
    }
  }
}

}  // namespace
}  // namespace corvane
