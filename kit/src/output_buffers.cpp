#include "output_buffers.h"

#include <cerrno>
#include <cstdio>
#include <stdexcept>
#include <utility>

#include <kelpkit/Files.h>
#include <kelpkit/Interruption.h>

namespace Kelpkit {

void OutputBuffer::publish(bool streamIsGood) {
    requireOpen();
    requireIntact();
    if (!streamIsGood) {
        // Copying from another stream buffer turns exceptions into a failed state.
        checkInterruption();
        throw std::runtime_error(
            "cannot write " + name() +
            ": an input could not be read or was empty, or the output stream was in a failed state");
    }
    complete();
    published = true;
}

void OutputBuffer::requireOpen() const {
    if (published) {
        throw std::logic_error(name() + " is published already");
    }
}

FileBuffer::FileBuffer(std::string outputName, bool mayOverwrite, std::string advice)
    : ownName(std::move(outputName)), files({ownName}, mayOverwrite, std::move(advice)) {
    files.startNext();
}

FileBuffer::int_type FileBuffer::overflow(int_type character) {
    sync();
    if (!traits_type::eq_int_type(character, traits_type::eof())) {
        sputc(traits_type::to_char_type(character));
    }
    return traits_type::not_eof(character);
}

std::streamsize FileBuffer::xsputn(const char* data, std::streamsize count) {
    // A tool that writes little at a time notices a signal before the buffer is full.
    checkInterruption();
    return std::streambuf::xsputn(data, count);
}

int FileBuffer::sync() {
    requireOpen();
    files.write(pbase(), static_cast<std::size_t>(pptr() - pbase()));
    setp(area.data(), area.data() + area.size());
    return 0;
}

const std::string& FileBuffer::name() const {
    return ownName;
}

void FileBuffer::requireIntact() const {
    files.requireIntact();
}

void FileBuffer::complete() {
    sync();
    files.publish();
    // Without room the next character reaches overflow(), which throws.
    setp(nullptr, nullptr);
}

/// Calls a function of the C library that writes. After the first failure, throws its reason whenever it is called.
template <class Call>
void StandardOutputBuffer::require(Call call) {
    requireOpen();
    requireIntact();
    errno = 0;
    if (call()) {
        return;
    }
    try {
        failOnStream("cannot write " + name());
    } catch (const std::runtime_error& error) {
        failure = error.what();
        throw;
    }
}

StandardOutputBuffer::int_type StandardOutputBuffer::overflow(int_type character) {
    if (!traits_type::eq_int_type(character, traits_type::eof())) {
        const char byte = traits_type::to_char_type(character);
        xsputn(&byte, 1);
    }
    return traits_type::not_eof(character);
}

std::streamsize StandardOutputBuffer::xsputn(const char* data, std::streamsize count) {
    const auto size = static_cast<std::size_t>(count);
    require([&] { return std::fwrite(data, 1, size, stdout) == size; });
    return count;
}

int StandardOutputBuffer::sync() {
    require([] { return std::fflush(stdout) == 0; });
    return 0;
}

const std::string& StandardOutputBuffer::name() const {
    static const std::string text = "standard output";
    return text;
}

void StandardOutputBuffer::requireIntact() const {
    if (!failure.empty()) {
        throw std::runtime_error(failure);
    }
}

void StandardOutputBuffer::complete() {
    // An input that a signal has cut short looks like one that has ended.
    checkInterruption();
    sync();
}

}  // namespace Kelpkit
