// NOTCHED_LAMINATE_STRENGTH, or IMPACT_LAMINATE_STRENGTH when built with
// CORVANE_FUZZ_IMPACT, with arbitrary material, hole diameter (or unit factor
// and energy), load cases and stacking text. Bytes: 7 floats of the material,
// 2 floats (diameter and unused, or unit factor and energy), one float whose
// bits choose the property text, the check or damage model and the number of
// cases (-1 to 8), 8 floats per case (its loads, then the fastener load), then
// the layup.
#include "corvane/corvane_strength.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // clang-format off
  static const char* const kProperties[] = {"", "OHT=450 OHC=300 A0FHT=1 FBR=900",
      "a0oht=1.0,a0ohc=2;KFHC=0", "OHT=1e30", "CAIH=0.004 CAIE=-1", "F1T=", "x=1"};
#ifdef CORVANE_FUZZ_IMPACT
  static const char* const kChoices[] = {"", "CDTM-T03 .001 .002 .001 .003 5e3 5e3 1",
      "cdtm-t04 .003 .5 .004 .2 1 .9", "CDTM-T05 1 2 3 4 5", "CDTM-T06 0 0 0 0 0",
      "CDTM-T04 1 2", "CDTM-T07 1 2 3 4 5"};
  constexpr std::size_t kTextLength = CORVANE_STRENGTH_MODEL_LENGTH;
#else
  static const char* const kChoices[] = {"ALL", " oht", "OHC", "FHT", "fhc", "BEARING", "X"};
  constexpr std::size_t kTextLength = CORVANE_STRENGTH_CRITERION_LENGTH;
#endif
  // clang-format on
  corvane::fuzz::FuzzInput in(data, size);
  const std::vector<float> m = in.floats(9);
  const std::uint32_t choice = in.next_bits();
  const int32_t ncases = static_cast<int32_t>(choice % 10) - 1;
  const std::size_t n = ncases > 0 ? static_cast<std::size_t>(ncases) : 1;
  std::string properties = corvane::fuzz::padded(kProperties[choice / 10 % 4],
                                                 CORVANE_STRENGTH_PROPERTIES_LENGTH),
              text = corvane::fuzz::padded(kChoices[choice / 40 % 7], kTextLength);
  std::vector<float> loads(7 * n), fastener(n);
  for (std::size_t k = 0; k < n; ++k) {
    for (std::size_t i = 0; i < 7; ++i) loads[7 * k + i] = in.next_float();
    fastener[k] = in.next_float();
  }
  auto layup = in.rest_as_text(CORVANE_STRENGTH_LAYUP_LENGTH);
  constexpr std::size_t kMost = 5;  // results per case at most
  std::vector<float> rf(kMost * n, -1.0f);
  std::string message(CORVANE_STRENGTH_MESSAGE_LENGTH, '-');
  int32_t ierr = -2;
#ifdef CORVANE_FUZZ_IMPACT
  IMPACT_LAMINATE_STRENGTH(&m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6],
                           properties.data(), 1, layup.get(), 3, text.data(), 5, &m[7],
                           &m[8], &ncases, loads.data(), rf.data(), message.data(), 7,
                           &ierr);
  const std::size_t per_case = 3;
#else
  NOTCHED_LAMINATE_STRENGTH(&m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6],
                            properties.data(), 1, layup.get(), 3, text.data(), 5, &m[7],
                            &ncases, loads.data(), fastener.data(), rf.data(),
                            message.data(), 7, &ierr);
  const std::size_t per_case = text.rfind("ALL", 0) == 0 ? 5 : 1;
#endif
  // A refusal says why and writes no result; a success writes only its own.
  corvane::fuzz::require(ierr >= 0 && ierr <= 11 &&
                         corvane::fuzz::says_why(message, ierr));
  const std::size_t wrote = ierr == 0 && ncases > 0 ? per_case * n : 0;
  for (std::size_t k = 0; k < rf.size(); ++k) {
    // Every RF is >= 0 (NaN only from NaN data); the impact model column may
    // be left alone.
    const bool model_left = k < wrote && per_case == 3 && k % 3 == 2 && rf[k] == -1.0f;
    corvane::fuzz::require(model_left || (k >= wrote ? rf[k] == -1.0f : !(rf[k] < 0.0f)));
  }
  return 0;
}
