// Plain checks of a stacking-sequence text such as "(0/45/-45/90)S", made by
// the command to explain, in words, why the library refused a layup, and to
// choose between the one- and two-material entry points. The library's own
// parser decides what is accepted; these checks only name the likely fault.
#pragma once

#include <string>
#include <string_view>

namespace corvane::cli {

// At most this many plies after repetition and mirroring.
inline constexpr int kMaxPlies = 255;

// What looks wrong with the layup text (missing parenthesis, unreadable
// ending or ply, too many plies), or an empty text when nothing does.
std::string layup_problem(std::string_view layup);

// True when a ply of the group is written with a trailing "." (as "45."),
// the mark of a ply of the second material.
bool uses_second_material(std::string_view layup);

}  // namespace corvane::cli
