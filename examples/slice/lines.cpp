#include "lines.h"

#include <cerrno>
#include <utility>

#include "../common/files.h"
#include "../common/interruption.h"

namespace slice {

namespace {

constexpr std::size_t bufferBytes = 65536;

}  // namespace

Lines::Lines(std::string fileName, std::ios::openmode mode) : name(std::move(fileName)), buffer(bufferBytes) {
    common::requireNoFolder(name);
    errno = 0;
    stream.open(common::pathOf(name), std::ios::in | mode);
    if (!stream) {
        common::checkInterruption();
        common::failOnStream("cannot read " + name);
    }
}

bool Lines::next(Piece& piece) {
    if (stream.eof()) {
        return false;
    }
    errno = 0;
    stream.getline(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    const auto count = static_cast<std::size_t>(stream.gcount());
    // libc++ reports a failed read as the end of the file (seen with 14); only errno tells the two apart.
    if (stream.bad() || (stream.eof() && errno != 0)) {
        common::checkInterruption();
        common::failOnStream("cannot read " + name);
    }
    if (stream.eof() && count == 0 && !insideLine) {
        return false;
    }
    // getline() sets failbit if the buffer is full before the line ends. gcount() includes the line end.
    const bool full = stream.fail() && !stream.eof();
    const bool terminated = !stream.fail() && !stream.eof();
    piece = {{buffer.data(), terminated ? count - 1 : count}, !insideLine, !full};
    insideLine = full;
    if (full) {
        stream.clear();
    }
    return true;
}

}  // namespace slice
