#include "laminates_stressed/strength_status.h"

#include "laminas/criterion_code.h"

namespace corvane {

std::string StrengthStatus::message() const {
  const std::string keyword(check.empty() ? criterion_keyword(criterion) : check);
  const std::string what(name);
  switch (error) {
    case StrengthError::none:
      return {};
    case StrengthError::laminate_in_error:
      return "Error! Laminate in error: no ply stresses.";
    case StrengthError::unknown_criterion:
      return "Error! Unknown failure criterion (code " + std::to_string(criterion) + ").";
    case StrengthError::criterion_not_available:
      return "Error! Criterion " + keyword + " not available: no published definition.";
    case StrengthError::strength_missing:
      return "Error! " + what + " missing (material " + std::to_string(material) +
             ", criterion " + keyword + ").";
    case StrengthError::non_finite_load:
      return "Error! Load case " + std::to_string(load_case) + " is not finite.";
    case StrengthError::bad_option:
      return "Error! Option " + what + " out of range.";
    case StrengthError::wrong_size:
      return "Error! Array " + what + " of the wrong size.";
    case StrengthError::damage_model_unusable:
      return "Error! Damage model of material " + std::to_string(material) +
             " not usable: " + what + ".";
  }
  return "Error! Strength analysis refused.";
}

}  // namespace corvane
