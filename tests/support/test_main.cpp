// The main program of every GoogleTest program here. A tool that refuses its command line ends its process with exit status
// 0: unless somebody looks, that is a test program whose remaining tests pass unseen.
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
