#ifndef KELPLIB_TESTS_TOOL_INSPECTOR_H
#define KELPLIB_TESTS_TOOL_INSPECTOR_H

#include <kelplib/CommandLineTool.h>

/// Read access to private members of a CommandLineTool that no output shows. An explicit template instantiation may name
/// private members, so the public header needs nothing for tests.
namespace tool_inspector {

std::size_t optionWidth(const CommandLineTool& tool);
const std::map<std::string, Kelp::Option, ci_less>& options(const CommandLineTool& tool);
const std::string& header(const CommandLineTool& tool);
const std::string& example(const CommandLineTool& tool);
const std::vector<Kelp::Argument>& argumentList(const CommandLineTool& tool);

}  // namespace tool_inspector

#endif
