// LAMINATE_SOLVER_DECK, or BI_MATERIAL_LAMINATE_SOLVER_DECK when built with
// CORVANE_FUZZ_TWO_MATERIALS, with arbitrary materials, line-end choice and
// stacking text. Bytes: 12 floats a material, one float whose bits choose the
// line ends, then the layup.
#include <string_view>

#include "corvane/corvane_strength.h"
#include "fuzz_input.h"

#ifdef CORVANE_FUZZ_TWO_MATERIALS
constexpr int kMaterialValues = 24;
#else
constexpr int kMaterialValues = 12;
#endif

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  corvane::fuzz::FuzzInput in(data, size);
  const std::vector<float> m = in.floats(kMaterialValues);
  const std::int32_t crlf = static_cast<std::int32_t>(in.next_bits());
  auto layup = in.rest_as_text(CORVANE_STRENGTH_LAYUP_LENGTH);
  std::string deck(CORVANE_SOLVER_DECK_LENGTH, '-');
  std::string message(CORVANE_STRENGTH_MESSAGE_LENGTH, '-');
  std::int32_t length = -1, ierr = -2;
#ifdef CORVANE_FUZZ_TWO_MATERIALS
  BI_MATERIAL_LAMINATE_SOLVER_DECK(
      &m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6], &m[7], &m[8], &m[9], &m[10],
      &m[11], &m[12], &m[13], &m[14], &m[15], &m[16], &m[17], &m[18], &m[19], &m[20],
      &m[21], &m[22], &m[23],
#else
  LAMINATE_SOLVER_DECK(
      &m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6], &m[7], &m[8], &m[9], &m[10],
      &m[11],
#endif
      layup.get(), 3, &crlf, deck.data(), 5, &length, message.data(), 7, &ierr);
  // A refusal says why and writes no deck; a deck fits its buffer, is padded
  // with blanks and has lines of at most 80 characters, none of them a GRID.
  using corvane::fuzz::require;
  require((ierr == 8 || (ierr >= 0 && ierr <= 3)) &&
          corvane::fuzz::says_why(message, ierr));
  if (ierr != 0) {
    require(length == -1 && deck == std::string(CORVANE_SOLVER_DECK_LENGTH, '-'));
    return 0;
  }
  require(length > 0 && length <= CORVANE_SOLVER_DECK_LENGTH);
  const std::string_view text(deck.data(), static_cast<std::size_t>(length));
  require(deck.find_first_not_of(' ', text.size()) == std::string::npos);
  for (std::size_t start = 0, end; start < text.size(); start = end + 1) {
    end = text.find('\n', start);
    require(end != std::string_view::npos && end - start <= 81 &&
            text.substr(start, 4) != "GRID");
  }
  return 0;
}
