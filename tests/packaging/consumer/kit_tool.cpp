// A tool made with the kit. Uses a template of the headers, functions of the library, and an exception that the kit throws.
#include <kelpkit/Tool.h>

#include <iostream>

static int showNumber(Kelpkit::CommandLine& line) {
    try {
        const auto number = line.value<int>("-n");
        std::cout << (number ? std::to_string(*number) : "no number") << "\n";
    } catch (const Kelpkit::UsageError&) {
        std::cout << "caught\n" << std::flush;
        throw;
    }
    return 0;
}

int main(int argc, char** argv) {
    const Kelpkit::Definition tool{
        "kit_tool", "Shows a number.", {{"-n", "--number", "the number", Kelpkit::takesValue}}, {}};
    return Kelpkit::run(tool, argc, argv, showNumber);
}
