// Programs that treat their streams in unusual ways and go on after a wait: odd_program WHAT.
// Standard output carries what is under test; what a call returned goes to standard error.
#include <kelplib/Kelp.h>
#include <kelplib/KelpProgress.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <thread>

namespace {

constexpr unsigned int longSeconds = 600;

void printError(int result) {
    static_cast<void>(std::fprintf(stderr, "%d\n", result));
}

/// The rest of standard input, read by the C library.
void printRest() {
    for (int character = std::getchar(); character != EOF; character = std::getchar()) {
        std::putchar(character);
    }
}

/// Leaves a reader behind that waits for the next key.
void leaveReader() {
    Kelp::waitOrPressKey(0, "left");
}

/// Every call that draws, and the move of the cursor.
void drawEverything() {
    KELP_progress_global_init(4.0, 4, "drawn", 1);
    KELP_GlobalProgress.start_time = 0.0;
    KELP_GlobalProgress.last_blink = KELP_time_stamp();
    printError(KELP_progress_global(1.0));
    printError(KELP_progress(1.0, 4.0, 4, "drawn", 0.0));
    printError(KELP_rewind_cursor(1));
}

// Output.

void mutedOutput() {
    std::streambuf* const before = std::cout.rdbuf(nullptr);
    drawEverything();
    std::cout.rdbuf(before);
}

class ThrowingBuffer : public std::streambuf {
    int sync() override {
        throw std::runtime_error("sync");
    }
    int_type underflow() override {
        throw std::runtime_error("underflow");
    }
};

void throwingOutput() {
    ThrowingBuffer buffer;
    std::streambuf* const before = std::cout.rdbuf(&buffer);
    std::cout.exceptions(std::ios::badbit);
    drawEverything();
    std::cout.exceptions(std::ios::goodbit);
    std::cout.rdbuf(before);
}

/// One thread prints through a stream of its own while another moves the cursor, as the face does.
void printBesideTheFace() {
    std::ios::sync_with_stdio(false);
    std::atomic<bool> done = false;
    std::thread printer([&done] {
        for (int i = 0; i < 100000; ++i) {
            std::cout << "line " << i << '\n';
        }
        std::cout.flush();
        done = true;
    });
    while (!done) {
        KELP_rewind_cursor(1);
    }
    printer.join();
}

// After a wait that has left its reader.

void flushEverything() {
    leaveReader();
    printError(std::fflush(nullptr));
}

/// One character has been pushed back and taken. Nothing else was in the buffer.
void flushAfterPushedBack() {
    std::getchar();
    std::ungetc('u', stdin);
    std::getchar();
    flushEverything();
}

/// The same with a character in the buffer, which has been taken too.
void flushAfterPushedBackAndBuffer() {
    std::getchar();
    std::ungetc('u', stdin);
    std::getchar();
    std::getchar();
    flushEverything();
}

void reopenInput() {
    leaveReader();
    printError(std::freopen("no such file", "r", stdin) == nullptr ? 1 : 0);
}

void exitFromAThread() {
    leaveReader();
    std::thread([] { std::exit(7); }).join();
}

void runACommand() {
    leaveReader();
    printError(std::system("exit 0"));  // NOLINT(cert-env33-c): it is what is under test
}

void failedInput() {
    std::cin.setstate(std::ios::failbit);
    Kelp::waitOrPressKey(longSeconds, "failed");
}

void closedInput() {
    std::fclose(stdin);
    Kelp::waitOrPressKey(longSeconds, "closed");
    printError(std::cin.eof() ? 1 : 0);
}

void throwingInput() {
    ThrowingBuffer buffer;
    std::streambuf* const before = std::cin.rdbuf(&buffer);
    std::cin.exceptions(std::ios::badbit | std::ios::eofbit);
    Kelp::waitOrPressKey(longSeconds, "throwing");
    std::cin.exceptions(std::ios::goodbit);
    std::cin.rdbuf(before);
}

/// The end of the input is on the stream afterwards, as if the caller had read it; nothing is thrown.
void endOfInput() {
    std::cin.exceptions(std::ios::eofbit);
    Kelp::waitOrPressKey(longSeconds, "ended");
    printError(std::cin.eof() ? 1 : 0);
}

// Characters that are in a buffer already.

/// A wait that need not last, as something is there to read although the system has nothing more.
void waitForBuffered(const char* message) {
    constexpr unsigned int seconds = 20;
    const double start = KELP_time_stamp();
    Kelp::waitOrPressKey(seconds, message);
    printError(KELP_time_stamp() - start < seconds - 5.0 ? 1 : 0);
}

void bufferedByC() {
    const int first = std::getchar();
    std::printf("%c\n", first);
    waitForBuffered("buffered");
    printRest();
}

void pushedBack() {
    std::getchar();
    std::ungetc('u', stdin);
    waitForBuffered("pushed back");
    // The buffer itself is what is left.
    waitForBuffered("buffered");
    printRest();
}

void bufferedByTheStream() {
    std::ios::sync_with_stdio(false);
    const char first = static_cast<char>(std::cin.get());
    std::cout << first << "\n";
    // Down to the last character of the buffer.
    for (int i = 0; i < 3; ++i) {
        waitForBuffered("buffered");
    }
    std::cout << std::cin.rdbuf();
}

void closedByTheStream() {
    std::ios::sync_with_stdio(false);
    // libc++'s std::cin always reads through the C library.
    if (auto* const file = dynamic_cast<std::filebuf*>(std::cin.rdbuf()); file != nullptr) {
        file->close();
    } else {
        std::fclose(stdin);
    }
    Kelp::waitOrPressKey(longSeconds, "closed");
    printError(std::cin.eof() ? 1 : 0);
}

void nothingBufferedByTheStream() {
    std::ios::sync_with_stdio(false);
    Kelp::waitOrPressKey(longSeconds, "unbuffered");
    std::cout << std::cin.rdbuf();
}

struct Command {
    const char* name;
    void (*run)();
};

constexpr Command commands[] = {
    {"muted-output", mutedOutput},
    {"throwing-output", throwingOutput},
    {"print-beside-the-face", printBesideTheFace},
    {"flush", flushEverything},
    {"flush-after-pushed-back", flushAfterPushedBack},
    {"flush-after-pushed-back-and-buffer", flushAfterPushedBackAndBuffer},
    {"reopen", reopenInput},
    {"exit", exitFromAThread},
    {"system", runACommand},
    {"failed-input", failedInput},
    {"throwing-input", throwingInput},
    {"closed-input", closedInput},
    {"end-of-input", endOfInput},
    {"buffered-by-c", bufferedByC},
    {"pushed-back", pushedBack},
    {"buffered-by-the-stream", bufferedByTheStream},
    {"closed-by-the-stream", closedByTheStream},
    {"nothing-buffered-by-the-stream", nothingBufferedByTheStream},
};

}  // namespace

int main(int argc, char** argv) {
    const std::string what = argc == 2 ? argv[1] : "";
    for (const Command& command : commands) {
        if (what == command.name) {
            command.run();
            return 0;
        }
    }
    std::cerr << "odd_program: no such call\n";
    return 2;
}
