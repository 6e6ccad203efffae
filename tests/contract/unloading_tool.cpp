// What a program has printed with the C library and not yet flushed stays its own when it loads kelplib, uses nothing of it and
// unloads it: unloading_tool LIBRARY ends with 0 when nothing came out.
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

int main(int argc, char** argv) {
    int ends[2] = {};
    if (argc != 2 || pipe2(ends, O_NONBLOCK) != 0 || dup2(ends[1], STDOUT_FILENO) == -1) {
        return 2;
    }
    std::fputs("mine", stdout);
    void* const library = dlopen(argv[1], RTLD_NOW);
    if (library == nullptr || dlclose(library) != 0) {
        return 3;
    }
    char printed = '\0';
    return read(ends[0], &printed, 1) == -1 ? 0 : 1;
}
