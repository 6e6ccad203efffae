// sequence: prints numbered names, for scripts and test data. It needs no input file.

#include <kelpkit/Tool.h>

#include <iostream>

namespace {

using Steps = std::tuple<unsigned int, unsigned int>;

constexpr unsigned int highest = 999999999;

int printNames(Kelpkit::CommandLine& line) {
    const auto [first, last] = line.value<Steps>("-r", Kelpkit::between(0U, highest)).value_or(Steps(1, 10));
    const auto step = line.value<unsigned int>("-s", Kelpkit::between(1U, highest)).value_or(1);
    const std::size_t digits = std::to_string(last).size();
    const auto width = line.value<std::size_t>("-w", Kelpkit::between(1, 9)).value_or(digits);
    const std::string before = line.value<std::string>("-b").value_or("");
    const std::string after = line.value<std::string>("-a").value_or("");
    Kelpkit::NewFile output(line.outputFile("-o"));
    for (unsigned int number = first; number <= last; number += step) {
        const std::string text = std::to_string(number);
        const std::string zeros(width - std::min(width, text.size()), '0');
        output.stream() << before << zeros << text << after << "\n";
    }
    output.publish();
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    const Kelpkit::Definition tool{
        "sequence",
        "Prints numbered names, one a line.",
        {{"-r", "--range", "the first and the last number (default: 1:10)", Kelpkit::takesValue},
         {"-s", "--step", "the distance between two numbers (default: 1)", Kelpkit::takesValue},
         {"-w", "--width", "the least number of digits, up to 9 (default: as many as the last number has)",
          Kelpkit::takesValue},
         {"-b", "--before", "the text before the number", Kelpkit::takesValue},
         {"-a", "--after", "the text after the number", Kelpkit::takesValue},
         {"-o", "--output", "writes the names to this file", Kelpkit::takesValue},
         {"-h", "--help", "shows this help", Kelpkit::isSwitch}},
        {},
        "-r=1:31 -b=2026-12- -a=.log",
        "",
        "     Numbered names"};
    return Kelpkit::run(tool, argc, argv, printNames);
}
