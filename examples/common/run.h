#ifndef COMMON_RUN_H
#define COMMON_RUN_H

#include <string>

namespace common {

/// Does a tool's work. Whatever it throws is told in one line on standard error and ends in exit status 1; what interrupts
/// it ends the process as it would have.
/// \returns the exit status
int runTool(const std::string& name, int (*work)(int, char**), int argc, char** argv);

}  // namespace common

#endif
