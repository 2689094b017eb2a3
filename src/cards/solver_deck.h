// The solver deck: the bulk data of a laminate laid out by the published
// NASTRAN bulk data card formats, for finite-element preprocessors and solvers
// that read those formats strictly. It stands beside the deck of
// bulk_data_cards.h, which keeps its own layout for the models built on it.
//
// A MAT8 per ply material (101, 102, ...), a PCOMP of the plies (1001), and a
// PSHELL (1002) whose MAT2 cards carry the unrounded membrane (2001), bending
// (2002) and coupling (2004) stiffness. No GRID, no BEGIN BULK, no ENDDATA: the
// deck is meant to be included in a model. Every real is written in the fewest
// characters that read back to the same float; a card that has a value 8
// characters cannot hold so is written in large field (16-character fields).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "laminates_stiffness/laminate_stiffness.h"

namespace corvane {

enum class LineEnd { lf, crlf };

struct SolverDeck {
  std::string text;   // the deck; empty when it could not be written
  std::string fault;  // why not, as a sentence fragment; empty on success
};

// The ids the deck gives its cards.
inline constexpr int kSolverPcompId = 1001;
inline constexpr int kSolverPshellId = 1002;

// A real of a bulk data field: at most `width` characters, with a decimal
// point, reading back (to the nearest float) as `value` exactly; fixed point
// where it is short enough ("135000.", "0.28"), else with an exponent, "E"
// left out ("1.5-6"). Empty when no such text fits or the value is not finite.
std::string bulk_data_real(float value, std::size_t width);

// The deck of a laminate whose stiffness is computed. The strength fields of a
// MAT8 (Xt, Xc, Yt, Yc, S) carry the material's F1t, F1c, F2t, F2c and F12,
// each blank when zero; the PCOMP names the maximum strain theory only when
// every material has all five. Refused, with a fault, when the laminate is in
// error or a value is not finite.
SolverDeck solver_deck(const LAMINATESTIFFNESS& laminate, LineEnd line_end = LineEnd::lf);

}  // namespace corvane
