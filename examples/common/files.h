#ifndef COMMON_FILES_H
#define COMMON_FILES_H

#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

/// \file
/// The few things that reading and writing files have in common. Whatever goes wrong leaves as an exception whose text
/// is the line that the user reads.

namespace common {

/// The path of a file named on the command line, read as the library reads a path option: where paths are UTF-16, the
/// name has to be UTF-8.
std::filesystem::path pathOf(const std::string& name);

/// Whether anything has this name, be it a link that leads nowhere. Fails where nobody may look.
bool exists(const std::string& name);

/// Refuses a folder. A name that nothing has passes.
void requireNoFolder(const std::string& name);

/// Refuses a folder, a device and whatever else is no plain file. A name that nothing has passes.
void requirePlainFile(const std::string& name);

/// The size of a plain file. Refuses whatever else the name may mean, and what nobody may look at.
std::uintmax_t sizeOf(const std::string& name);

/// Refuses a pattern, which the library's file check lets pass. A file whose name holds a "*" passes.
void requireNoPattern(const std::string& name);

/// Refuses a file that is to be written when it is one of the inputs, by whatever name or link.
void requireNoInput(const std::string& output, const std::vector<std::string>& inputs);

/// Whether all of them are plain files, whose reading never waits for anybody.
bool arePlainFiles(const std::vector<std::string>& names);

/// Throws "what: the system's reason".
[[noreturn]] void fail(const std::string& what, std::error_code reason);

/// The same for a stream that has just failed. A stream keeps no reason; the system call under it leaves one in errno.
[[noreturn]] void failOnStream(const std::string& what);

}  // namespace common

#endif
