#include "reading.h"

#include <fcntl.h>
#include <unistd.h>

namespace Kelpkit {

int openToRead(const std::filesystem::path& path) {
    return open(path.c_str(), O_RDONLY | O_CLOEXEC);
}

std::ptrdiff_t readSome(int descriptor, char* data, std::size_t count) {
    return read(descriptor, data, count);
}

std::ptrdiff_t readText(int descriptor, char* data, std::size_t count, bool& /*holdsReturn*/) {
    return readSome(descriptor, data, count);
}

void closeRead(int descriptor) {
    close(descriptor);
}

}  // namespace Kelpkit
