// Runs a program with a pipe as its standard input, and copies its own standard input into the pipe:
// piping_program PROGRAM [ARGUMENTS]
#include <io.h>
#include <process.h>
#include <windows.h>

#include <cstdio>
#include <thread>

namespace {

void copyInput(int to) {
    char bytes[512];
    int count = 0;
    while ((count = _read(_fileno(stdin), bytes, sizeof bytes)) > 0 &&
           _write(to, bytes, static_cast<unsigned int>(count)) == count) {
    }
    _close(to);
}

}  // namespace

int main(int argc, char** argv) {
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    if (argc < 2 || CreatePipe(&reading, &writing, nullptr, 0) == 0) {
        return 1;
    }
    const int input = _open_osfhandle(reinterpret_cast<intptr_t>(reading), 0);
    const int ownInput = _dup(_fileno(stdin));
    _dup2(input, _fileno(stdin));
    _close(input);
    const intptr_t program = _spawnv(_P_NOWAIT, argv[1], argv + 1);
    _dup2(ownInput, _fileno(stdin));
    if (program == -1) {
        return 1;
    }
    std::thread(copyInput, _open_osfhandle(reinterpret_cast<intptr_t>(writing), 0)).detach();
    int status = 1;
    _cwait(&status, program, 0);
    // Does not wait for the thread, which may still be reading.
    _exit(status);
}
