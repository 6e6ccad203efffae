// For libstdc++, whose <iostream> initialises the streams in every file that includes it (before version 13). The build has
// checked that the streams can be declared without it.
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

/// Flushes at exit what the program's static objects print from their destructors: std::cout, initialised late, has been
/// flushed before those run. This object is constructed when the library is loaded and so destroyed after them.
struct LastFlush {
    ~LastFlush() {
        if (wanted) {
            const std::ios_base::Init flushesWhenDestroyed;
        }
    }

    std::atomic<bool> wanted = false;  // Several threads may print for the first time at once.
};

LastFlush lastFlush;

/// Counts the characters in a stream buffer. in_avail() would also ask the system if there are none.
class Buffered : public std::streambuf {
public:
    static std::ptrdiff_t count(const std::streambuf& buffer) {
        return (buffer.*&Buffered::egptr)() - (buffer.*&Buffered::gptr)();
    }
};

void initialise() {
    static const std::ios_base::Init initialised;
    lastFlush.wanted = true;
}

}  // namespace

std::ostream& Kelp::standardOutput() {
    initialise();
    return std::cout;
}

std::istream& Kelp::standardInput() {
    initialise();
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
