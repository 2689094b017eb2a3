// SECTION_CRIPPLING with arbitrary materials, segments, criterion, options,
// column and stacking text. Bytes: one float whose bits choose the number of
// materials (-1 to 2), of segments (-1 to 4) and the criterion; 14 floats a
// material; per segment 4 geometry floats, a given Fcu and a float whose bits
// choose its edge condition (0 to 3) and material (0 to 3); the length, the
// fixity and 3 option floats; then the layup, given to every segment.
#include "corvane/corvane_strength.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const char* const kCriteria[] = {"PUCK", "TSAI_WU", "MAX_STRAIN_I", "MTS",
                                          "AOSL", "",        "tsai_hill"};
  corvane::fuzz::FuzzInput in(data, size);
  const std::uint32_t choice = in.next_bits();
  const int32_t nm = static_cast<int32_t>(choice % 4) - 1;
  const int32_t ns = static_cast<int32_t>(choice / 4 % 6) - 1;
  const std::size_t m = nm > 0 ? static_cast<std::size_t>(nm) : 1;
  const std::size_t n = ns > 0 ? static_cast<std::size_t>(ns) : 1;
  std::string criterion = corvane::fuzz::padded(kCriteria[choice / 24 % 7],
                                                CORVANE_STRENGTH_CRITERION_LENGTH);
  std::vector<float> materials = in.floats(14 * m), geometry(4 * n), fcu(n);
  std::vector<int32_t> edge(n), material(n);
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t k = 0; k < 4; ++k) geometry[4 * i + k] = in.next_float();
    fcu[i] = in.next_float();
    const std::uint32_t b = in.next_bits();
    edge[i] = static_cast<int32_t>(b % 4);
    material[i] = static_cast<int32_t>(b / 4 % 4);
  }
  const float length = in.next_float(), fixity = in.next_float();
  const float options[3] = {in.next_float(), in.next_float(), in.next_float()};
  const auto layup = in.rest_as_text(CORVANE_STRENGTH_LAYUP_LENGTH);
  std::vector<char> layups(n * CORVANE_STRENGTH_LAYUP_LENGTH);
  for (std::size_t i = 0; i < n; ++i) {
    std::memcpy(&layups[i * CORVANE_STRENGTH_LAYUP_LENGTH], layup.get(),
                CORVANE_STRENGTH_LAYUP_LENGTH);
  }
  std::vector<float> t(n, -1.0f), ex(n, -1.0f), used(n, -1.0f), fcc(n, -1.0f);
  std::vector<int32_t> warning(n, -1);
  float s[7] = {-1, -1, -1, -1, -1, -1, -1};
  int32_t mode = -1, ierr = -2;
  std::string message(CORVANE_STRENGTH_MESSAGE_LENGTH, '-');
  SECTION_CRIPPLING(&nm, materials.data(), &ns, geometry.data(), edge.data(),
                    material.data(), fcu.data(), layups.data(), 3, criterion.data(), 5,
                    options, &length, &fixity, t.data(), ex.data(), used.data(),
                    fcc.data(), warning.data(), &s[0], &s[1], &s[2], &s[3], &s[4], &s[5],
                    &s[6], &mode, message.data(), 7, &ierr);
  // A refusal says why and writes no result; a success gives results in range
  // (a subnormal Fcu may cripple at 0) and a warning line or blanks.
  const bool refused = ierr != 0, error_line = message.rfind("Error! ", 0) == 0;
  corvane::fuzz::require(ierr >= 0 && ierr <= 12 && error_line == refused);
  bool bad = refused ? mode != -1 || s[2] != -1.0f
                     : (mode != 1 && mode != 2) || !(s[6] >= 0.0f) || s[5] > s[2] ||
                           (message.rfind("Warning! ", 0) != 0 &&
                            message.find_first_not_of(' ') != std::string::npos);
  for (std::size_t i = 0; i < n; ++i) {
    bad = bad || (refused ? t[i] != -1.0f || fcc[i] != -1.0f || warning[i] != -1
                          : !(t[i] > 0.0f) || !(fcc[i] >= 0.0f) || fcc[i] > used[i] ||
                                warning[i] < 0 || warning[i] > 2);
  }
  corvane::fuzz::require(!bad);
  return 0;
}
