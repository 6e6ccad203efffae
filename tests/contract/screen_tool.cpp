// A tool that uses the shared library. It prints the options and arguments that it accepts. The last lines show how it ends:
// which destructors and exit handlers run.
#include <kelplib/CommandLineTool.h>

#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace {

class Witness {
public:
    explicit Witness(const char* kind) noexcept : objectKind(kind) {}
    Witness(const Witness&) = delete;
    Witness(Witness&&) = delete;
    Witness& operator=(const Witness&) = delete;
    Witness& operator=(Witness&&) = delete;
    ~Witness() {
        std::cout << objectKind << " object destroyed" << std::endl;
    }

private:
    const char* objectKind;
};

const Witness staticWitness("static");

void printFromExitHandler() {
    std::cout << "exit handler called" << std::endl;
}

void printValues(int argc, char** argv) {
    Kelp::OptionReader reader(argc, argv);
    int number = 12;
    const int afterNumber = reader.getValue("-n", "--number", number, 0);
    std::cout << "number " << number << ", search on from " << afterNumber << "\n";
    std::string text = "nothing";
    const int afterText = reader.getValue("-t", "--text", text, 0);
    std::cout << "text <" << text << ">, search on from " << afterText << "\n";
}

void printArguments(const CommandLineTool& tool) {
    std::string first;
    std::cout << "first argument at " << tool.getFirstArgument(first, 0) << "\n";
    std::vector<std::string> arguments;
    tool.getArguments(arguments, 0);
    for (const std::string& argument : arguments) {
        std::cout << "argument <" << argument << ">\n";
    }
}

}  // namespace

int main(int argc, char** argv) {
    const Witness automaticWitness("automatic");
    if (std::atexit(printFromExitHandler) != 0) {
        return 1;
    }
    std::vector<Kelp::Option> options{{"-n", "--number", "a whole number", false}, {"-t", "--text", "any text", false}};
    std::vector<Kelp::Argument> arguments{{"FILE", "a file that exists", true}};
    const CommandLineTool tool(argc, argv, "Shows what a command line holds.", "", "-n=3 notes.txt",
                               "     The banner's own line", options, arguments);
    std::cout << "tool " << tool.getToolName() << "\n";
    std::cout << "--number at " << tool.hasOption("-n", 0) << ", --text at " << tool.hasOption("-t", 0) << "\n";
    printValues(argc, argv);
    printArguments(tool);
    return 0;
}
