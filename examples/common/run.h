#ifndef COMMON_RUN_H
#define COMMON_RUN_H

#include <string>

namespace common {

/// Runs a tool. Prints the text of an exception on standard error. After an Interruption, ends the process with its signal.
/// \returns the exit status, 1 after an exception
int runTool(const std::string& name, int (*work)(int, char**), int argc, char** argv);

}  // namespace common

#endif
