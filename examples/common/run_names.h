#ifndef COMMON_RUN_NAMES_H
#define COMMON_RUN_NAMES_H

#include <string>

/// \file
/// The names that files have while a run writes or replaces them, and what a run says that finds one in use.

namespace common {

/// The name of a new file until all of a run's files are written.
std::string unfinished(const std::string& name);

/// The name of an old file until all of the new ones have their names.
std::string replaced(const std::string& name);

/// The first of these names that is in use, by another run or by a file that an interrupted run has left; empty when none is.
std::string leftover(const std::string& name);

/// Throws "NAME exists already; ADVICE".
[[noreturn]] void refuse(const std::string& name, const std::string& advice);

/// The same for unfinished(name).
[[noreturn]] void refuseUnfinished(const std::string& name);

/// The same for replaced(name), which may be the only copy of a file.
[[noreturn]] void refuseReplaced(const std::string& name);

}  // namespace common

#endif
