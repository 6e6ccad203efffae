#ifndef FRAGMENT_CUT_H
#define FRAGMENT_CUT_H

#include <kelplib/CommandLineTool.h>

#include "request.h"

namespace fragment {

/// Cuts one file into numbered fragments, writes a note that counts them, and prints a summary.
void cut(const Request& request, CommandLineTool& tool);

}  // namespace fragment

#endif
