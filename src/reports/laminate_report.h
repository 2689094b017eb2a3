// Printed reports of a laminate: the full report (materials, stacking, apparent
// constants, matrices) and the one-line summary. The laminate record itself
// knows no report layout.
#pragma once

#include <string>
#include <string_view>

#include "laminates/laminate.h"

namespace corvane {

// The laminate report: materials, stacking, apparent constants, matrices.
std::string laminate_report(const LAMINATE& laminate);

inline constexpr std::string_view kLaminateSummaryHeader =
    "Name                      t       Ex       Ey      Gxy    NUxy";
// One line under kLaminateSummaryHeader (name, h, Ex, Ey, Gxy, nuxy), preceded
// by the header when asked, and by an error line when `error` is set.
std::string laminate_summary(const LAMINATE& laminate, bool header = false);

}  // namespace corvane
