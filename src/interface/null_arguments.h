// The guard every entry point runs first: a host that passes a null pointer
// gets error code -1 and nothing else is written.
#pragma once

#include <cstdint>

namespace corvane {

// True when any of the pointers is null.
template <typename... T>
constexpr bool any_null(const T*... pointers) {
  return ((pointers == nullptr) || ...);
}

// Sets the error code to -1 when it can be written at all.
inline void report_null_argument(std::int32_t* error_code) {
  if (error_code != nullptr) *error_code = -1;
}

}  // namespace corvane
