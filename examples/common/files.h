#ifndef COMMON_FILES_H
#define COMMON_FILES_H

#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

/// \file
/// Functions for reading and writing files. They throw exceptions whose text is the message for the user.

namespace common {

/// Converts a file name from the command line to a path, like a path option of the library. Where paths are UTF-16, the name
/// has to be UTF-8.
std::filesystem::path pathOf(const std::string& name);

/// Whether the name is in use, even by a broken link. Throws if access is denied.
bool exists(const std::string& name);

/// Throws if the name belongs to a folder. A name that is not in use passes.
void requireNoFolder(const std::string& name);

/// Throws if the name belongs to anything but a regular file. A name that is not in use passes.
void requirePlainFile(const std::string& name);

/// Returns the size of a regular file. Throws for anything else and if access is denied.
std::uintmax_t sizeOf(const std::string& name);

/// Throws for a pattern, which passes the file check of the library. An existing file with "*" in its name passes.
void requireNoPattern(const std::string& name);

/// Throws if the output file is one of the inputs, under any name or link.
void requireNoInput(const std::string& output, const std::vector<std::string>& inputs);

/// Whether all are regular files, which can be read without waiting for input.
bool arePlainFiles(const std::vector<std::string>& names);

/// Throws "what: the system's reason".
[[noreturn]] void fail(const std::string& what, std::error_code reason);

/// The same for a stream that has just failed. The reason is in errno; the stream does not keep it.
[[noreturn]] void failOnStream(const std::string& what);

}  // namespace common

#endif
