// are_almost_equal: whether two reals agree to d significant digits, both
// written as m * 10^e with 1 <= |m| < 10 and rounded on the scale of the
// larger one.
#pragma once

#include <cstdint>

namespace corvane {

// True when a and b agree to d significant digits. d is meant to lie in 1..6;
// another d prints "Error! are_almost_equal : d<1 or d>6 are not allowed!" and
// the comparison goes on with it. Values whose decimal exponents differ by more
// than one never agree; otherwise the mantissas are scaled to the larger
// exponent (with one more digit) and compared as rounded whole numbers, so
// 9.99 and 10.0 differ at d = 3. Non-finite values (NaN, infinities) agree
// with one another, their rounded mantissas being the same invalid integer, and
// with no finite value. Below about 1e-38, where 10^-e overflows a float, the
// mantissas are lost and all such values agree.
bool are_almost_equal(float a, float b, std::int32_t d);

}  // namespace corvane
