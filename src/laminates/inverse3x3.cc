#include "laminates/inverse3x3.h"

#include <cmath>
#include <limits>

namespace corvane {

Matrix3 inverse3x3(const Matrix3& m, float tolerance, int* status) {
  // Every product and sum rounds to float in the order written here, so the
  // determinant and the inverse match single-precision hosts to the last digit.
  const float det = m(1, 1) * m(2, 2) * m(3, 3) + m(1, 2) * m(2, 3) * m(3, 1) +
                    m(1, 3) * m(2, 1) * m(3, 2) -
                    (m(3, 1) * m(2, 2) * m(1, 3) + m(2, 1) * m(1, 2) * m(3, 3) +
                     m(2, 3) * m(3, 2) * m(1, 1));
  Matrix3 inv;
  // Written as "not greater" so that a NaN determinant counts as singular.
  if (!(std::fabs(det) > tolerance)) {
    inv.v.fill(std::numeric_limits<float>::quiet_NaN());
    if (status != nullptr) *status = kInverseSingular;
    return inv;
  }
  inv(1, 1) = (m(2, 2) * m(3, 3) - m(2, 3) * m(3, 2)) / det;
  inv(1, 2) = -(m(1, 2) * m(3, 3) - m(1, 3) * m(3, 2)) / det;
  inv(1, 3) = (m(1, 2) * m(2, 3) - m(1, 3) * m(2, 2)) / det;
  inv(2, 1) = -(m(2, 1) * m(3, 3) - m(2, 3) * m(3, 1)) / det;
  inv(2, 2) = (m(1, 1) * m(3, 3) - m(1, 3) * m(3, 1)) / det;
  inv(2, 3) = -(m(1, 1) * m(2, 3) - m(1, 3) * m(2, 1)) / det;
  inv(3, 1) = (m(2, 1) * m(3, 2) - m(2, 2) * m(3, 1)) / det;
  inv(3, 2) = -(m(1, 1) * m(3, 2) - m(1, 2) * m(3, 1)) / det;
  inv(3, 3) = (m(1, 1) * m(2, 2) - m(1, 2) * m(2, 1)) / det;
  if (status != nullptr) *status = kInverseOk;
  return inv;
}

}  // namespace corvane
