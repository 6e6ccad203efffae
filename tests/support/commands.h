#ifndef KELPLIB_TESTS_SUPPORT_COMMANDS_H
#define KELPLIB_TESTS_SUPPORT_COMMANDS_H

#include <cstddef>
#include <cstdio>
#include <string>

/// A function of a test program, called when the command line names it.
template <class... Parameters>
struct Command {
    const char* name;
    void (*run)(Parameters...);
};

/// Calls the command of this name.
/// \returns the exit status: 0, or 2 after a message on standard error if there is no such command
template <class... Parameters, std::size_t count, class... Arguments>
int runCommand(const Command<Parameters...> (&commands)[count], const std::string& name,
               const Arguments&... arguments) {
    for (const Command<Parameters...>& command : commands) {
        if (name == command.name) {
            command.run(arguments...);
            return 0;
        }
    }
    static_cast<void>(std::fprintf(stderr, "no such command: %s\n", name.c_str()));
    return 2;
}

/// Prints the result of a call on standard error and flushes nothing else; std::cerr would flush std::cout first.
inline void printResult(int result) {
    static_cast<void>(std::fprintf(stderr, "%d\n", result));
}

#endif
