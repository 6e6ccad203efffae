// The main program of every GoogleTest program here. A tool that refuses its command line ends the process with exit status
// 0, and the remaining tests do not run. That must not count as success.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

namespace {

bool finished = false;

void checkThatTestsFinished() {
    if (!finished) {
        static_cast<void>(std::fputs("The process ended in the middle of a test.\n", stderr));
        std::_Exit(EXIT_FAILURE);
    }
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    std::atexit(checkThatTestsFinished);
    const int result = RUN_ALL_TESTS();
    finished = true;
    return result;
}
