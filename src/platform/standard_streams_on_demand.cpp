// For standard libraries whose <iostream> makes the streams ready in every file that includes it, and whose streams can be
// declared without it. The build finds out.
#include <atomic>

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
