// Loads a plugin whose wait leaves a reader running, unloads it together with the library, and runs for another second, in
// which a key may arrive: unloading_program PLUGIN
#include <chrono>
#include <cstdio>
#include <thread>

#include "plugin.h"

int main(int argc, char** argv) {
    if (argc != 2 || !callPlugin(argv[1], "leaveReader")) {
        return 1;
    }
    std::puts("unloaded");
    std::fflush(stdout);
    std::this_thread::sleep_for(std::chrono::seconds(1));
    std::puts("ended");
    return 0;
}
