#include "reading.h"

#include <fcntl.h>
#include <io.h>

namespace Kelpkit {

int openToRead(const std::filesystem::path& path, bool isBinary) {
    return _wopen(path.c_str(), _O_RDONLY | _O_NOINHERIT | (isBinary ? _O_BINARY : _O_TEXT));
}

std::ptrdiff_t readSome(int descriptor, char* data, std::size_t count) {
    return _read(descriptor, data, static_cast<unsigned int>(count));
}

void closeRead(int descriptor) {
    _close(descriptor);
}

}  // namespace Kelpkit
