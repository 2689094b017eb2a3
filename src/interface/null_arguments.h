// The guard every entry point runs first: a host that passes a null pointer
// gets error code -1 and nothing else is written.
#pragma once

#include <cstdint>

namespace corvane {

// True when the error code or any of the other arguments is null; the error
// code is then set to -1 when it can be written at all.
template <typename... T>
bool null_argument(std::int32_t* error_code, const T*... arguments) {
  if (error_code != nullptr && ((arguments != nullptr) && ...)) return false;
  if (error_code != nullptr) *error_code = -1;
  return true;
}

}  // namespace corvane
