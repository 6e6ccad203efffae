#include "reading.h"

#include <fcntl.h>
#include <io.h>

namespace Kelpkit {

namespace {

/// Turns "\r\n" into "\n" and returns the new size.
std::size_t withoutReturns(char* data, std::size_t count) {
    std::size_t size = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (data[i] != '\r' || i + 1 == count || data[i + 1] != '\n') {
            data[size++] = data[i];
        }
    }
    return size;
}

}  // namespace

int openToRead(const std::filesystem::path& path) {
    return _wopen(path.c_str(), _O_RDONLY | _O_NOINHERIT | _O_BINARY);
}

std::ptrdiff_t readSome(int descriptor, char* data, std::size_t count) {
    return _read(descriptor, data, static_cast<unsigned int>(count));
}

// _O_TEXT would end the file at a byte 0x1A.
std::ptrdiff_t readText(int descriptor, char* data, std::size_t count, bool& holdsReturn) {
    while (true) {
        const std::size_t held = holdsReturn ? 1 : 0;
        const std::ptrdiff_t added = readSome(descriptor, data + held, count - held);
        if (added == -1) {
            return -1;
        }
        if (holdsReturn) {
            data[0] = '\r';
        }
        const std::size_t size = held + static_cast<std::size_t>(added);
        holdsReturn = added > 0 && data[size - 1] == '\r';
        // A block of "\r" alone is not the end of the file.
        if (added == 0 || size > 1 || !holdsReturn) {
            return static_cast<std::ptrdiff_t>(withoutReturns(data, holdsReturn ? size - 1 : size));
        }
    }
}

void closeRead(int descriptor) {
    _close(descriptor);
}

}  // namespace Kelpkit
