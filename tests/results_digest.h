// A digest of the core's results over many random cases: one line per case, its
// name and a 64-bit FNV-1a hash of the bit patterns of every result (every float
// of the laminate, the deck text, the buckling loads, modes and status codes).
// The cases come from a fixed seed and an integer-only mapping to floats, so
// they are the same on every platform. A stored copy of the lines
// (tests/testdata/results_digest.txt) lets a change of the code prove that it
// left every bit of every result as it was.
#pragma once

#include <string>
#include <vector>

namespace corvane::testing {

// "L0001 0123456789abcdef" for laminate cases (stiffness and deck), "S0001 ..."
// for the stiffness and strain entry points, "P0001 ..." for flat plates
// (searches, closed-form estimate, reserve factors), "C0001 ..." for curved
// panels and cylinders.
std::vector<std::string> results_digest();

}  // namespace corvane::testing
