// The shared library's own translation unit: its content comes whole from the
// core archive; this file only gives the target a source of its own.
#include "corvane/corvane.h"
