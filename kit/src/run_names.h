#ifndef KELPKIT_RUN_NAMES_H
#define KELPKIT_RUN_NAMES_H

#include <string>

/// \file
/// The names of files while a run writes or replaces them, and the errors if such a name is in use.

namespace Kelpkit {

/// Returns the name of a new file until all files of the run are written.
std::string unfinished(const std::string& name);

/// Returns the name of an old file until all new files have their names.
std::string replaced(const std::string& name);

/// Throws "NAME exists already; ADVICE", or without an empty advice.
[[noreturn]] void refuse(const std::string& name, const std::string& advice);

/// The same for unfinished(name).
[[noreturn]] void refuseUnfinished(const std::string& name);

/// The same for replaced(name), which may be the only copy of a file.
[[noreturn]] void refuseReplaced(const std::string& name);

}  // namespace Kelpkit

#endif
