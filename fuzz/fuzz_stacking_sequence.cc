// Arbitrary text into the stacking-sequence parser, with and without the
// per-ply material list and the reason of a refusal; every accepted text must
// respect the ply limit.
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "laminates/stacking_sequence.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  std::vector<float> angles;
  std::vector<std::int32_t> materials;
  const int status = corvane::parse_stacking_sequence(text, angles, &materials);
  if (status == 0 &&
      (angles.empty() || angles.size() > 255 || materials.size() != angles.size())) {
    std::abort();
  }
  if (status != 0 && (!angles.empty() || !materials.empty())) std::abort();
  // Without the material list, with the reason: the same status, and a reason
  // that points inside the text.
  std::vector<float> angles_only;
  corvane::StackingRefusal refusal;
  if (corvane::parse_stacking_sequence(text, angles_only, nullptr, &refusal) != status ||
      refusal.status != status || refusal.position > size) {
    std::abort();
  }
  return 0;
}
