#include "reading.h"

#include <fcntl.h>
#include <unistd.h>

namespace Kelpkit {

int openToRead(const std::filesystem::path& path, bool /*isBinary*/) {
    return open(path.c_str(), O_RDONLY | O_CLOEXEC);
}

std::ptrdiff_t readSome(int descriptor, char* data, std::size_t count) {
    return read(descriptor, data, count);
}

void closeRead(int descriptor) {
    close(descriptor);
}

}  // namespace Kelpkit
