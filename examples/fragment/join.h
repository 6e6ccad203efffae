#ifndef FRAGMENT_JOIN_H
#define FRAGMENT_JOIN_H

#include <kelplib/CommandLineTool.h>

#include "request.h"

namespace fragment {

/// Joins fragments into one file and prints a summary. A single fragment is joined with all that follow it.
void join(const Request& request, CommandLineTool& tool);

}  // namespace fragment

#endif
