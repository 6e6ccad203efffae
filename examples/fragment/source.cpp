#include "source.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "../common/files.h"
#include "../common/interruption.h"

namespace fragment {

namespace {

/// The memory that a copy needs, however large the file is.
constexpr std::size_t bufferBytes = 65536;

}  // namespace

Source::Source(std::string fileName) : name(std::move(fileName)) {
    common::requirePlainFile(name);
    stream.open(common::pathOf(name), std::ios::binary);
    if (!stream) {
        common::failOnStream("cannot read " + name);
    }
    std::error_code reason;
    size = std::filesystem::file_size(common::pathOf(name), reason);
    if (reason) {
        common::fail("cannot read " + name, reason);
    }
    if (size == 0) {
        requireEnd();
        throw std::runtime_error(name + " is empty");
    }
}

std::uintmax_t Source::bytes() const {
    return size;
}

void Source::copyTo(common::NewFiles& target, std::uintmax_t count, common::Progress& progress) {
    std::array<char, bufferBytes> buffer;
    while (count > 0) {
        common::checkInterruption();
        const std::uintmax_t chunk = std::min<std::uintmax_t>(count, buffer.size());
        errno = 0;
        if (!stream.read(buffer.data(), static_cast<std::streamsize>(chunk))) {
            failOnRead();
        }
        target.write(buffer.data(), static_cast<std::size_t>(chunk));
        count -= chunk;
        progress.advance(chunk);
    }
}

void Source::close() {
    requireEnd();
    stream.close();
}

void Source::requireEnd() {
    errno = 0;
    if (stream.peek() != std::ifstream::traits_type::eof() || errno != 0) {
        failOnRead();
    }
}

void Source::failOnRead() const {
    // libc++ reports a failed read as the end of the file (seen with 14); only errno tells the two apart.
    if (errno != 0) {
        common::failOnStream("cannot read " + name);
    }
    throw std::runtime_error(name + " changed while it was read");
}

}  // namespace fragment
