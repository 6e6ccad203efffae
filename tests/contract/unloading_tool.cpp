// Loading and unloading kelplib does not flush what the program has printed through the C library: unloading_tool LIBRARY
// ends with 0 if nothing was written.
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
