// The shared library's own translation unit: its content is the object files
// of every module; this file only gives the target a source of its own.
#include "corvane/corvane.h"
