// The outcome of a strength analysis: 0 (`none`) when it was done, otherwise
// the reason it was refused, with what the message needs to name the culprit.
// Every refusal happens before any result is written, so a caller's arrays
// hold either complete results or what they held before.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

enum class StrengthError : std::int32_t {
  none = 0,
  laminate_in_error = 1,        // the stiffness of the laminate failed
  unknown_criterion = 2,        // a code no keyword has
  criterion_not_available = 3,  // a keyword with no published definition behind it
  strength_missing = 4,         // a strength or allowable the criterion needs is not > 0
  non_finite_load = 5,          // a load or temperature change is NaN or infinite
  bad_option = 6,               // an option of a criterion out of its range
  wrong_size = 7,               // a result array not of the size the call needs
  damage_model_unusable = 8,    // a material's damage-tolerance model is absent or unread
};

struct StrengthStatus {
  StrengthError error = StrengthError::none;
  std::int32_t criterion = 0;  // its code, for the criterion errors
  std::string_view name;       // the missing strength, the option or the array
  std::int32_t material = 0;   // 1-based, for a missing strength
  std::int64_t load_case = 0;  // 1-based, for a non-finite load
  // The check that needs a missing value when it is no criterion code (as
  // "OHT" or "CAI"); it then stands for the criterion in the message.
  std::string_view check;

  bool ok() const { return error == StrengthError::none; }
  // One "Error! ..." line without its newline; empty when ok.
  std::string message() const;
};

}  // namespace corvane
