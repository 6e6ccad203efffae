// Runs a program without a standard output and returns its exit status: without_output PROGRAM [ARGUMENTS]
#include <windows.h>

#include <string>

int main(int argc, char** argv) {
    std::string commandLine;
    for (int i = 1; i < argc; ++i) {
        commandLine += (i > 1 ? " \"" : "\"") + std::string(argv[i]) + "\"";
    }
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION program{};
    if (CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &program) ==
        0) {
        return 127;
    }
    DWORD status = 0;
    WaitForSingleObject(program.hProcess, INFINITE);
    GetExitCodeProcess(program.hProcess, &status);
    return static_cast<int>(status);
}
