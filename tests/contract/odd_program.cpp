// Programs that treat their streams in unusual ways or continue after a wait: odd_program COMMAND.
// Standard output carries what is under test, standard error the results of calls.
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

#include "commands.h"

namespace {

constexpr unsigned int longSeconds = 600;

/// Prints the rest of standard input, read by the C library.
void printRest() {
    for (int character = std::getchar(); character != EOF; character = std::getchar()) {
        std::putchar(character);
    }
}

/// Waits for no time: the wait times out, and its reader thread keeps waiting for the next key.
void leaveReader() {
    Kelp::waitOrPressKey(0, "left");
}

/// Calls each drawing function, then moves the cursor.
void drawEverything() {
    KELP_progress_global_init(4.0, 4, "drawn", 1);
    KELP_GlobalProgress.start_time = 0.0;
    KELP_GlobalProgress.last_blink = KELP_time_stamp();
    printResult(KELP_progress_global(1.0));
    printResult(KELP_progress(1.0, 4.0, 4, "drawn", 0.0));
    printResult(KELP_rewind_cursor(1));
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

// After a wait that timed out and left its reader running.

void flushEverything() {
    leaveReader();
    printResult(std::fflush(nullptr));
}

/// A character was pushed back and read again; the buffer holds nothing else.
void flushAfterPushedBack() {
    std::getchar();
    std::ungetc('u', stdin);
    std::getchar();
    flushEverything();
}

/// The same, but the buffer held one more character, which was read too.
void flushAfterPushedBackAndBuffer() {
    std::getchar();
    std::ungetc('u', stdin);
    std::getchar();
    std::getchar();
    flushEverything();
}

void reopenInput() {
    leaveReader();
    printResult(std::freopen("no such file", "r", stdin) == nullptr ? 1 : 0);
}

void exitFromAThread() {
    leaveReader();
    std::thread([] { std::exit(7); }).join();
}

void runACommand() {
    leaveReader();
    printResult(std::system("exit 0"));  // NOLINT(cert-env33-c): it is what is under test
}

void failedInput() {
    std::cin.setstate(std::ios::failbit);
    Kelp::waitOrPressKey(longSeconds, "failed");
}

void closedInput() {
    std::fclose(stdin);
    Kelp::waitOrPressKey(longSeconds, "closed");
    printResult(std::cin.eof() ? 1 : 0);
}

void throwingInput() {
    ThrowingBuffer buffer;
    std::streambuf* const before = std::cin.rdbuf(&buffer);
    std::cin.exceptions(std::ios::badbit | std::ios::eofbit);
    Kelp::waitOrPressKey(longSeconds, "throwing");
    std::cin.exceptions(std::ios::goodbit);
    std::cin.rdbuf(before);
}

/// std::cin is at its end afterwards, as if the caller had read it; nothing is thrown.
void endOfInput() {
    std::cin.exceptions(std::ios::eofbit);
    Kelp::waitOrPressKey(longSeconds, "ended");
    printResult(std::cin.eof() ? 1 : 0);
}

void endOfUnsynchronizedInput() {
    std::ios::sync_with_stdio(false);
    endOfInput();
}

// Input that is already in a buffer.

/// Prints 1 if the wait ends early: buffered input counts as a key, even if the system has no more input.
void waitForBuffered(const char* message) {
    constexpr unsigned int seconds = 20;
    const double start = KELP_time_stamp();
    Kelp::waitOrPressKey(seconds, message);
    printResult(KELP_time_stamp() - start < seconds - 5.0 ? 1 : 0);
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
    // Now only the buffer is left.
    waitForBuffered("buffered");
    printRest();
}

void bufferedByTheStream() {
    std::ios::sync_with_stdio(false);
    const char first = static_cast<char>(std::cin.get());
    std::cout << first << "\n";
    // Each wait takes one of the three characters left in the buffer.
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
    printResult(std::cin.eof() ? 1 : 0);
}

void nothingBufferedByTheStream() {
    std::ios::sync_with_stdio(false);
    Kelp::waitOrPressKey(longSeconds, "unbuffered");
    std::cout << std::cin.rdbuf();
}

constexpr Command<> commands[] = {
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
    {"end-of-unsynchronized-input", endOfUnsynchronizedInput},
    {"buffered-by-c", bufferedByC},
    {"pushed-back", pushedBack},
    {"buffered-by-the-stream", bufferedByTheStream},
    {"closed-by-the-stream", closedByTheStream},
    {"nothing-buffered-by-the-stream", nothingBufferedByTheStream},
};

}  // namespace

int main(int argc, char** argv) {
    return runCommand(commands, argc == 2 ? argv[1] : "");
}
