// tally: counts how often each line of a text occurs.

#include <kelpkit/Tool.h>

#include <map>

static int countLines(Kelpkit::CommandLine& line) {
    const auto least = line.value<std::size_t>("-l", Kelpkit::between(1, 1'000'000'000)).value_or(1);
    Kelpkit::NewFile output(line.outputFile("-o"));
    Kelpkit::InputFile input(line.arguments().front());
    std::map<std::string, std::size_t> counts;
    for (std::string text; std::getline(input.stream(), text);) {
        ++counts[text];
    }
    for (const auto& [text, count] : counts) {
        if (count >= least) {
            output.stream() << count << '\t' << text << '\n';
        }
    }
    output.publish();
    return EXIT_SUCCESS;
}

int main(int argc, char** argv) {
    const Kelpkit::Definition tool{
        "tally",
        "Counts how often each line of a text occurs.",
        {{"-l", "--least", "only lines that occur so often or more (1)", Kelpkit::takesValue},
         {"-o", "--output", "writes the counts to this file", Kelpkit::takesValue},
         {"-h", "--help", "shows this help", Kelpkit::isSwitch}},
        {{"FILE", "the text", false}},
        "-l=2 words.txt",
        "[-l=COUNT] [-o=OUTPUT] FILE",
        "",
        TOOL_VERSION};
    return Kelpkit::run(tool, argc, argv, countLines);
}
