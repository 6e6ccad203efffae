// Loads a plugin that leaves a reader, unloads it with the library it uses, and reads a line: unloading_program PLUGIN
#include <cstdio>

#include "plugin.h"

int main(int argc, char** argv) {
    if (argc != 2 || !callPlugin(argv[1], "leaveReader")) {
        return 1;
    }
    std::puts("unloaded");
    std::fflush(stdout);
    // The input ends after the reader that was left has taken a key.
    while (std::getchar() != EOF) {
    }
    std::puts("ended");
    return 0;
}
