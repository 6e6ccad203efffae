#include <kelpkit/Files.h>
#include <kelpkit/Interruption.h>

#include <array>
#include <cerrno>
#include <streambuf>

#include "reading.h"

namespace Kelpkit {

namespace {

/// Repeats a call that a signal has interrupted, unless the signal asks the tool to end.
template <class Call>
auto uninterrupted(const std::string& fileName, Call call) {
    while (true) {
        checkInterruption();
        const auto result = call();
        if (result != -1) {
            return result;
        }
        if (errno != EINTR) {
            failOnStream("cannot read " + fileName);
        }
    }
}

}  // namespace

/// Reads with calls of the system, which end when a signal arrives. The file buffer of libstdc++ repeats them, and that of libc++
/// (seen with 14) reports a failed read as the end of the file.
class InputBuffer : public std::streambuf {
public:
    InputBuffer(const std::string& fileName, bool binary) : name(fileName), isBinary(binary) {
        requireNoFolder(name);
        descriptor = uninterrupted(name, [this] { return openToRead(pathOf(name)); });
    }
    ~InputBuffer() override {
        close();
    }
    InputBuffer(const InputBuffer&) = delete;
    InputBuffer& operator=(const InputBuffer&) = delete;
    InputBuffer(InputBuffer&&) = delete;
    InputBuffer& operator=(InputBuffer&&) = delete;

protected:
    int_type underflow() override {
        const bool isFirst = gptr() == nullptr;
        const char last = isFirst ? '\0' : egptr()[-1];
        const std::ptrdiff_t count = descriptor == closed ? 0 : uninterrupted(name, [this] { return readBlock(); });
        if (count == 0) {
            close();
            return traits_type::eof();
        }
        area.front() = last;
        char* const block = area.data() + 1;
        setg(isFirst ? block : area.data(), block, block + count);
        return traits_type::to_int_type(*block);
    }

private:
    static constexpr int closed = -1;
    static constexpr std::size_t blockSize = 65536;

    std::ptrdiff_t readBlock() {
        return isBinary ? readSome(descriptor, area.data() + 1, blockSize)
                        : readText(descriptor, area.data() + 1, blockSize, holdsReturn);
    }

    void close() {
        if (descriptor != closed) {
            closeRead(descriptor);
            descriptor = closed;
        }
    }

    std::string name;
    bool isBinary;
    bool holdsReturn = false;
    int descriptor = closed;
    std::array<char, 1 + blockSize> area;  ///< a block, and before it the last byte of the previous one, for unget()
};

InputFile::InputFile(const std::string& name, std::ios::openmode mode)
    : buffer(std::make_unique<InputBuffer>(name, (mode & std::ios::binary) != 0)), input(buffer.get()) {
    input.exceptions(std::ios::badbit);
}

InputFile::~InputFile() = default;

std::istream& InputFile::stream() {
    return input;
}

}  // namespace Kelpkit
