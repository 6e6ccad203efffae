#include <kelplib/CommandLineTool.h>
int main(int argc, char** argv) {
    std::vector<Kelp::Option> options{{"-v", "--verbose", "trace", false}};
    std::vector<Kelp::Argument> arguments{{"FILE", "the file", false}};
    const CommandLineTool tool(argc, argv, "Cuts", "", "x", "     h", options, arguments);
}
