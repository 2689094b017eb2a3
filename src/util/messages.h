// The one place where the library writes a message. Internal routines report
// "Error! ..." lines here; the exported entry points never reach a routine
// that does, so a host process sees no output from them.
#pragma once

#include <string_view>

namespace corvane {

// Writes the line and a newline to standard output.
void write_error_line(std::string_view line);

}  // namespace corvane
