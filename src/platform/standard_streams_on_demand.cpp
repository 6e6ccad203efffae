// For libstdc++. Before version 13 its <iostream> makes the streams ready in every file that includes it; the streams can be
// declared without it, as the build has found out.
#include <ext/stdio_filebuf.h>
#include <ext/stdio_sync_filebuf.h>

#include <atomic>
#include <cstddef>
#include <cstdio>
#include <typeinfo>

#include "platform/standard_streams.h"

namespace std {
extern istream cin;
extern ostream cout;
}  // namespace std

namespace {

/// Streams that are made ready late are flushed early at the end of the process. What a program's static objects print after
/// that is flushed here: this one is made when the library is loaded, and so goes after them.
struct LastFlush {
    ~LastFlush() {
        if (wanted) {
            const std::ios_base::Init flushesWhenItGoes;
        }
    }

    std::atomic<bool> wanted = false;  // Threads of a tool may print first, several at once.
};

LastFlush lastFlush;

/// The characters in a stream's buffer. in_avail() would ask the system as well when there are none.
class Buffered : public std::streambuf {
public:
    static std::ptrdiff_t count(const std::streambuf& buffer) {
        return (buffer.*&Buffered::egptr)() - (buffer.*&Buffered::gptr)();
    }
};

void makeReady() {
    static const std::ios_base::Init ready;
    lastFlush.wanted = true;
}

}  // namespace

std::ostream& Kelp::standardOutput() {
    makeReady();
    return std::cout;
}

std::istream& Kelp::standardInput() {
    makeReady();
    return std::cin;
}

Kelp::InputSource Kelp::standardInputSource() {
    using Synchronized = __gnu_cxx::stdio_sync_filebuf<char>;
    using Unsynchronized = __gnu_cxx::stdio_filebuf<char>;
    const std::istream& input = standardInput();
    if (!input.good()) {
        return InputSource::stream;
    }
    std::streambuf& buffer = *input.rdbuf();
    if (typeid(buffer) == typeid(Synchronized) && static_cast<Synchronized&>(buffer).file() == stdin) {
        return InputSource::cLibrary;
    }
    if (typeid(buffer) != typeid(Unsynchronized) || Buffered::count(buffer) > 0) {
        return InputSource::stream;
    }
    auto& file = static_cast<Unsynchronized&>(buffer);
    return file.is_open() && file.fd() == fileno(stdin) ? InputSource::system : InputSource::stream;
}
