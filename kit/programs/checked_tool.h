#ifndef KELPKIT_PROGRAMS_CHECKED_TOOL_H
#define KELPKIT_PROGRAMS_CHECKED_TOOL_H

#include "described_tool.h"
#include "observation.h"
#include "rules.h"

namespace Kelpkit::programs {

/// Returns what the rules see of a tool.
/// \param observed  the tool in a run, which knows options that the screen does not show; null if there was none
/// \throws std::runtime_error  what describe() throws, and for a hint that contradicts the definition of a tool of the kit
rules::Tool checkedTool(const HelpScreen& screen, const std::vector<Hint>& hints, const ObservedTool* observed);

}  // namespace Kelpkit::programs

#endif
