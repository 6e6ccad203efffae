#ifndef KELPKIT_PROGRAMS_HINT_OPTION_H
#define KELPKIT_PROGRAMS_HINT_OPTION_H

#include <kelpkit/CommandLine.h>

#include <vector>

#include "described_tool.h"

namespace Kelpkit::programs {

/// Returns the hints of the option -t.
std::vector<Hint> readHints(const CommandLine& line);

}  // namespace Kelpkit::programs

#endif
