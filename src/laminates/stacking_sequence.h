// Parser of the stacking-sequence notation of a laminate, e.g. "(0/45/-45/90)S":
// ply angles in degrees between "(" and ")" separated by "/", an optional repeat
// count of the group, and an optional last symmetry mark, "S" (the sequence and
// its mirror image) or "$" (mirrored about the last listed ply, which appears
// once). A ply angle written with a trailing "." (such as "45.") is a ply of the
// second material.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

// Status values of parse_stacking_sequence. Any other non-zero status is the
// number reader's status for an unreadable ply angle or repeat count.
inline constexpr int kStackingOk = 0;
inline constexpr int kStackingSyntax = 1;
inline constexpr int kStackingTooManyPlies = 3;

// The most plies a laminate may have after repetition and mirroring.
inline constexpr int kMaxPlies = 255;

// Why a text was refused: the parser's status, a few words, and the 1-based
// position in the given text of the character where the fault was found (0 when
// the fault is of the text as a whole, as a missing ")" or too many plies).
struct StackingRefusal {
  int status = kStackingOk;
  std::string reason;
  std::size_t position = 0;
};

// Parses text into the ply angles in stacking order and, when material_indices
// is given, the material of each ply (1 or 2; a mirrored ply keeps the index of
// the ply it mirrors). Blanks around the text are ignored, and the text ends at
// its first zero byte. Both outputs are cleared first and stay empty unless the
// status is kStackingOk. When refusal is given, it is filled in on a refusal
// and left alone otherwise.
int parse_stacking_sequence(std::string_view text, std::vector<float>& angles,
                            std::vector<std::int32_t>* material_indices = nullptr,
                            StackingRefusal* refusal = nullptr);

}  // namespace corvane
