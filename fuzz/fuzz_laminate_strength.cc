// LAMINATE_STRENGTH, or BI_MATERIAL_LAMINATE_STRENGTH when built with
// CORVANE_FUZZ_TWO_MATERIALS, with arbitrary materials, criterion, options, load
// cases and stacking text. Bytes: 14 floats a material, 3 option floats, one
// float whose bits choose the criterion and the number of cases (-1 to 8), 7
// floats per case, then the layup.
#include "corvane/corvane_strength.h"
#include "fuzz_input.h"

#ifdef CORVANE_FUZZ_TWO_MATERIALS
constexpr int kMaterialValues = 28;
#else
constexpr int kMaterialValues = 14;
#endif

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const char* const kCriteria[] = {"TSAI_HILL",    "TSAI_WU",    "HOFFMAN",
                                          " puck ",       "YAMADA_SUN", "MTS",
                                          "MAX_STRAIN_I", "AOSL",       ""};
  corvane::fuzz::FuzzInput in(data, size);
  const std::vector<float> m = in.floats(kMaterialValues + 3);
  const float* options = &m[kMaterialValues];
  const std::uint32_t choice = in.next_bits();
  const int32_t ncases = static_cast<int32_t>(choice % 10) - 1;
  const std::size_t n = ncases > 0 ? static_cast<std::size_t>(ncases) : 1;
  std::string criterion = corvane::fuzz::padded(kCriteria[choice / 10 % 9],
                                                CORVANE_STRENGTH_CRITERION_LENGTH);
  std::vector<float> loads = in.floats(7 * n), rf(n, -1.0f);
  auto layup = in.rest_as_text(CORVANE_STRENGTH_LAYUP_LENGTH);
  std::vector<int32_t> ply(n, -1), surface(n, -1), mode(n, -1);
  std::string message(CORVANE_STRENGTH_MESSAGE_LENGTH, '-');
  int32_t ierr = -2;
#ifdef CORVANE_FUZZ_TWO_MATERIALS
  BI_MATERIAL_LAMINATE_STRENGTH(
      &m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6], &m[7], &m[8], &m[9], &m[10],
      &m[11], &m[12], &m[13], &m[14], &m[15], &m[16], &m[17], &m[18], &m[19], &m[20],
      &m[21], &m[22], &m[23], &m[24], &m[25], &m[26], &m[27],
#else
  LAMINATE_STRENGTH(
      &m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6], &m[7], &m[8], &m[9], &m[10],
      &m[11], &m[12], &m[13],
#endif
      layup.get(), 3, criterion.data(), 5, options, &ncases, loads.data(), rf.data(),
      ply.data(), surface.data(), mode.data(), message.data(), 7, &ierr);
  // A refusal says why and writes no result; a success gives results in range.
  corvane::fuzz::require(ierr >= 0 && ierr <= 9 &&
                         corvane::fuzz::says_why(message, ierr));
  for (std::size_t k = 0; k < n; ++k) {
    const bool written = ply[k] != -1 || surface[k] != -1 || mode[k] != -1 || rf[k] != -1;
    const bool valid = ply[k] >= 1 && ply[k] <= 255 && surface[k] >= 1 &&
                       surface[k] <= 3 && mode[k] >= 0 && mode[k] <= 8 && rf[k] >= 0.0f;
    corvane::fuzz::require(ierr != 0 || ncases < 1 ? !written : valid);
  }
  return 0;
}
