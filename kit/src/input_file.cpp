#include <kelpkit/Files.h>
#include <kelpkit/Interruption.h>

#include <array>
#include <cerrno>
#include <streambuf>

#include "reading.h"

namespace Kelpkit {

/// Reads with calls of the system, which end when a signal arrives. The file buffer of libstdc++ repeats them, and that of libc++
/// (seen with 14) reports a failed read as the end of the file.
class InputBuffer : public std::streambuf {
public:
    InputBuffer(const std::string& fileName, bool isBinary) : name(fileName) {
        requireNoFolder(name);
        descriptor = openToRead(pathOf(name), isBinary);
        if (descriptor == closed) {
            failOnStream("cannot read " + name);
        }
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
        const std::ptrdiff_t count = descriptor == closed ? 0 : read();
        if (count == 0) {
            close();
            return traits_type::eof();
        }
        setg(area.data(), area.data(), area.data() + count);
        return traits_type::to_int_type(area.front());
    }

private:
    static constexpr int closed = -1;

    std::ptrdiff_t read() {
        while (true) {
            checkInterruption();
            const std::ptrdiff_t count = readSome(descriptor, area.data(), area.size());
            if (count != -1) {
                return count;
            }
            if (errno != EINTR) {
                failOnStream("cannot read " + name);
            }
        }
    }

    void close() {
        if (descriptor != closed) {
            closeRead(descriptor);
            descriptor = closed;
        }
    }

    std::string name;
    int descriptor;
    std::array<char, 65536> area;
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
