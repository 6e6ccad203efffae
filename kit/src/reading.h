#ifndef KELPKIT_READING_H
#define KELPKIT_READING_H

#include <cstddef>
#include <filesystem>

/// \file
/// Reading with calls of the system, which a signal ends. Failures return -1 and set errno.

namespace Kelpkit {

/// Opens a file and returns its descriptor.
int openToRead(const std::filesystem::path& path);

/// Waits until bytes can be read, and returns how many were read, 0 at the end of the file.
std::ptrdiff_t readSome(int descriptor, char* data, std::size_t count);

/// The same for a text, whose line ends become "\n" on Windows.
/// \param count        at least 2
/// \param holdsReturn  whether the last call has kept a "\r", which may begin a line end; at first false
std::ptrdiff_t readText(int descriptor, char* data, std::size_t count, bool& holdsReturn);

void closeRead(int descriptor);

}  // namespace Kelpkit

#endif
