// A tool with the Windows parts, for parts_test.py: parts_tool COMMAND [ARGUMENTS]
//
//     arguments     prints the arguments on standard output, one a line
//     write         writes the file whose name is the next argument, and prints the length of its full path
//     return, exit, interrupt, note, raise, print, encoding, wait
//                   print the state of the console on standard error, then end as their functions below say

#include <kelpkit/Tool.h>
#include <windows.h>

#include <csignal>
#include <cstdio>
#include <fstream>

#include "console_state.h"

namespace {

/// Ends by a signal as a tool of the kit does.
int endAsKitTool(char** argv, int (*work)(Kelpkit::CommandLine& line)) {
    const Kelpkit::Definition tool{"parts", "Waits for a signal.", {}, {}, "", "", "", ""};
    return Kelpkit::run(tool, 1, argv, work);
}

int note(int /*argc*/, char** argv) {
    return endAsKitTool(argv, [](Kelpkit::CommandLine& /*line*/) {
        Kelpkit::noteInterruptions();
        GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
        for (;; Sleep(10)) {
            Kelpkit::checkInterruption();
        }
        return EXIT_FAILURE;
    });
}

/// The console learns nothing of this signal.
int raise(int /*argc*/, char** argv) {
    return endAsKitTool(argv, [](Kelpkit::CommandLine& /*line*/) {
        Kelpkit::noteInterruptions();
        std::raise(SIGTERM);
        return EXIT_SUCCESS;
    });
}

/// Ends by Ctrl-C without having asked for it.
int interrupt(int /*argc*/, char** /*argv*/) {
    GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
    Sleep(INFINITE);
    return EXIT_FAILURE;
}

int endByExit(int /*argc*/, char** /*argv*/) {
    std::exit(3);
}

int endByReturn(int /*argc*/, char** /*argv*/) {
    return 4;
}

/// Leaves text in the buffer of a standard output that is closed before the end.
int print(int /*argc*/, char** /*argv*/) {
    std::fputs("\033[31mred\033[39m\n", stdout);
    std::fclose(stdout);
    return EXIT_SUCCESS;
}

/// Sets another encoding, as a program does that it starts.
int setEncoding(int /*argc*/, char** /*argv*/) {
    SetConsoleOutputCP(1252);
    return EXIT_SUCCESS;
}

/// Reports that it has started and waits for leave to end.
int wait(int argc, char** argv) {
    SetEvent(OpenEventA(EVENT_MODIFY_STATE, FALSE, argv[argc - 2]));
    WaitForSingleObject(OpenEventA(SYNCHRONIZE, FALSE, argv[argc - 1]), INFINITE);
    printState("at the end");
    return EXIT_SUCCESS;
}

int printArguments(int argc, char** argv) {
    for (int i = 2; i < argc; ++i) {
        std::puts(argv[i]);
    }
    return EXIT_SUCCESS;
}

int writeFile(int /*argc*/, char** argv) {
    std::ofstream(Kelpkit::pathOf(argv[2])) << "written\n";
    std::FILE* const again = std::fopen(argv[2], "r");
    std::printf("%d %d\n", again != nullptr ? 1 : 0,
                static_cast<int>(std::filesystem::absolute(Kelpkit::pathOf(argv[2])).native().size()));
    return EXIT_SUCCESS;
}

struct Command {
    const char* name;
    int (*run)(int argc, char** argv);
    bool showsState;
};
constexpr Command commands[] = {
    {"arguments", printArguments, false},
    {"write", writeFile, false},
    {"return", endByReturn, true},
    {"exit", endByExit, true},
    {"interrupt", interrupt, true},
    {"note", note, true},
    {"raise", raise, true},
    {"print", print, true},
    {"encoding", setEncoding, true},
    {"wait", wait, true},
};

}  // namespace

int main(int argc, char** argv) {
    for (const Command& command : commands) {
        if (argc > 1 && std::string(argv[1]) == command.name) {
            if (command.showsState) {
                printState("inside");
            }
            return command.run(argc, argv);
        }
    }
    return 2;
}
