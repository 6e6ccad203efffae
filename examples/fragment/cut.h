#ifndef FRAGMENT_CUT_H
#define FRAGMENT_CUT_H

#include <kelplib/CommandLineTool.h>

#include "request.h"

namespace fragment {

/// Cuts one file into numbered fragments with a note of them, and prints a line that says so.
void cut(const Request& request, CommandLineTool& tool);

}  // namespace fragment

#endif
