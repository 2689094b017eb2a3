// Finite-element bulk data in the small-field layout for a laminate: a MAT8
// card per ply material, a PCOMP card for the stack, and three MAT2 cards with
// the membrane, bending and coupling stiffness of classical laminate theory,
// scaled for use as MID1, MID2 and MID4 of a PSHELL. Lines end in "\r\n".
// A card whose material is invalid or whose identifiers are not whole numbers
// in 1..9999999 is left out silently; nothing here prints.
#pragma once

#include <string>

#include "laminas/lamina.h"
#include "laminates/laminate.h"
#include "laminates_stiffness/laminate_stiffness.h"

namespace corvane {

// The MAT8 card of a ply material, identified by its Name; empty when the
// material is not valid (status != 0) or its Name is not a card identifier.
// The strength fields carry the fibre strain allowables and 1.0 placeholders.
std::string mat8_card(const LAMINA& lamina);

// The PCOMP card of a laminate, identified by its name, its plies referring to
// their materials' Names; empty when any of these is not a card identifier.
// The interlaminar shear strength, "STRN" and "20" deliberately sit one field
// early (in the NSM, SB and FT columns).
std::string pcomp_card(const LAMINATE& laminate);

// The whole deck, with its comment and ruler lines. The cards carry their own
// ids, whatever the names: the materials 101, 102, ... and the laminate 1001.
// The membrane, bending and coupling stiffness go out as MAT2 2001, 2002 and
// 2004: [A]/t, [D] 12/t^3 and -[B]/t^2, each of [A], [B], [D] first rounded to
// whole numbers.
std::string bulk_data_cards(const LAMINATESTIFFNESS& laminate);

}  // namespace corvane
