// The progress display of the shared library, a short sequence of calls per run: progress_tool COMMAND FILLER_LINES.
// Standard output carries what is under test, standard error the results of calls. The duration of a test does not show:
// the bar has no time, and the face starts ten hours ago.
#include <kelplib/KelpProgress.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <iostream>

#include "commands.h"

namespace {

constexpr double tenHours = 36000.0;

void printLaterOutput() {
    std::puts("later output");
}

/// Draws the bar in five steps and ends its line.
void bar() {
    for (const double value : {0.0, 5.0, 50.0, 99.0, 100.0}) {
        printResult(KELP_progress(value, 100.0, 20, "Reading", 0.0));
    }
    std::puts("");
    printLaterOutput();
}

void unfinishedBar() {
    printResult(KELP_progress(50.0, 100.0, 20, "Reading", 0.0));
}

void setFaceUp() {
    KELP_progress_global_init(100.0, 20, "the label", 1);
    KELP_GlobalProgress.start_time = KELP_time_stamp() - tenHours;
}

void drawFace(double value) {
    printResult(KELP_progress_global(value));
}

/// Draws the face with every expression, the finished one last.
void face() {
    setFaceUp();
    for (const double value : {10.0, 30.0, 50.0, 70.0, 85.0, 95.0, 100.0}) {
        drawFace(value);
    }
    printLaterOutput();
}

void unfinishedFace() {
    setFaceUp();
    drawFace(10.0);
    drawFace(50.0);
}

/// Prints how many bytes of KELP_GlobalProgress are not zero before it is initialised.
void untouched() {
    char bytes[sizeof KELP_GlobalProgress];
    std::memcpy(bytes, &KELP_GlobalProgress, sizeof bytes);
    int count = 0;
    for (const char byte : bytes) {
        count += byte != 0 ? 1 : 0;
    }
    printResult(count);
}

/// Moves the cursor while std::cout is set to throw when its output fails.
void throwingStream() {
    std::cout.exceptions(std::ios::badbit);
    std::cout << "text";
    printResult(KELP_rewind_cursor(1));
    std::_Exit(0);
}

constexpr Command<> commands[] = {{"bar", bar},
                                  {"unfinished-bar", unfinishedBar},
                                  {"face", face},
                                  {"unfinished-face", unfinishedFace},
                                  {"untouched", untouched},
                                  {"throwing-stream", throwingStream}};

}  // namespace

int main(int argc, char** argv) {
    const long fillers = argc == 3 ? std::strtol(argv[2], nullptr, 10) : 0;
    for (long i = 1; i <= fillers; ++i) {
        std::printf("filler line %ld\n", i);
    }
    return runCommand(commands, argc == 3 ? argv[1] : "");
}
