#ifndef KELPKIT_READING_H
#define KELPKIT_READING_H

#include <cstddef>
#include <filesystem>

/// \file
/// Reading with calls of the system, which a signal ends. Failures return -1 and set errno.

namespace Kelpkit {

/// Opens a file for readSome() and returns its descriptor.
/// \param isBinary  without it, Windows converts line ends
int openToRead(const std::filesystem::path& path, bool isBinary);

/// Waits until bytes can be read, and returns how many were read, 0 at the end of the file.
std::ptrdiff_t readSome(int descriptor, char* data, std::size_t count);

void closeRead(int descriptor);

}  // namespace Kelpkit

#endif
