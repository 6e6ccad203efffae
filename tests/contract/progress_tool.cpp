// The progress display of the shared library, a short sequence of calls per run: progress_tool WHAT FILLER_LINES. Standard
// output carries what is under test; what the calls returned goes to standard error. No real time is shown: the bar has
// none, and the face's work began ten hours ago, which the few moments of a test do not change.
#include <kelplib/KelpProgress.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <iostream>

namespace {

constexpr double tenHours = 36000.0;

void tellResult(int result) {
    static_cast<void>(std::fprintf(stderr, "%d\n", result));
}

void printLaterOutput() {
    std::puts("later output");
}

/// The bar in five steps, and its line end.
void bar() {
    for (const double value : {0.0, 5.0, 50.0, 99.0, 100.0}) {
        tellResult(KELP_progress(value, 100.0, 20, "Reading", 0.0));
    }
    std::puts("");
    printLaterOutput();
}

/// The bar as unfinished work leaves it.
void unfinishedBar() {
    tellResult(KELP_progress(50.0, 100.0, 20, "Reading", 0.0));
}

void setFaceUp() {
    KELP_progress_global_init(100.0, 20, "the label", 1);
    KELP_GlobalProgress.start_time = KELP_time_stamp() - tenHours;
}

void drawFace(double value) {
    tellResult(KELP_progress_global(value));
}

/// The face in all its expressions, to its cheer.
void face() {
    setFaceUp();
    for (const double value : {10.0, 30.0, 50.0, 70.0, 85.0, 95.0, 100.0}) {
        drawFace(value);
    }
    printLaterOutput();
}

/// The face as unfinished work leaves it.
void unfinishedFace() {
    setFaceUp();
    drawFace(10.0);
    drawFace(50.0);
}

/// How many of the display's bytes are not zero before anybody has set it up.
void untouched() {
    char bytes[sizeof KELP_GlobalProgress];
    std::memcpy(bytes, &KELP_GlobalProgress, sizeof bytes);
    int count = 0;
    for (const char byte : bytes) {
        count += byte != 0 ? 1 : 0;
    }
    tellResult(count);
}

/// A move of the cursor by a program whose standard output throws when it fails.
void throwingStream() {
    std::cout.exceptions(std::ios::badbit);
    std::cout << "text";
    tellResult(KELP_rewind_cursor(1));
    std::_Exit(0);
}

struct Command {
    const char* name;
    void (*run)();
};

constexpr Command commands[] = {{"bar", bar},
                                {"unfinished-bar", unfinishedBar},
                                {"face", face},
                                {"unfinished-face", unfinishedFace},
                                {"untouched", untouched},
                                {"throwing-stream", throwingStream}};

}  // namespace

int main(int argc, char** argv) {
    for (const Command& command : commands) {
        if (argc == 3 && std::strcmp(argv[1], command.name) == 0) {
            const long fillers = std::strtol(argv[2], nullptr, 10);
            for (long i = 1; i <= fillers; ++i) {
                std::printf("filler line %ld\n", i);
            }
            command.run();
            return 0;
        }
    }
    static_cast<void>(std::fputs("progress_tool: no such call\n", stderr));
    return 2;
}
