// convert: converts the numbers of a text file from one unit of length into another.

#include <kelpkit/Tool.h>

#include <iomanip>

namespace {

/// Neither a word without an end uses up the memory nor a number becomes infinite.
constexpr int longestWord = 1000;
constexpr double largest = 1e300;

int convert(Kelpkit::CommandLine& line) {
    const Kelpkit::Choices<double> metres{{"mm", 0.001},  {"cm", 0.01},   {"m", 1.0},     {"km", 1000.0},
                                          {"in", 0.0254}, {"ft", 0.3048}, {"yd", 0.9144}, {"mi", 1609.344}};
    const auto from = line.value<double>("-f", metres);
    const double to = line.value<double>("-t", metres).value_or(1.0);
    if (!from) {
        line.refuse("-f", "say which unit the numbers have, as in -f=ft");
    }
    const std::string& name = line.arguments().front();
    Kelpkit::InputFile input(name);
    Kelpkit::NewFile output(line.outputFile("-o"));
    output.stream().precision(15);
    std::string word;
    while (input.stream() >> std::setw(longestWord) >> word) {
        const auto number = readValue(word, Kelpkit::Type<double>{}, Kelpkit::between(-largest, largest));
        if (word.size() == longestWord) {
            throw std::runtime_error(name + " contains a word of " + std::to_string(longestWord) +
                                     " characters or more");
        }
        if (!number) {
            throw std::runtime_error(name + ": \"" + Kelpkit::printable(word) + "\" is not " + number.expectation());
        }
        output.stream() << number.value() * *from / to << "\n";
    }
    output.publish();
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    const Kelpkit::Definition tool{
        "convert",
        "Converts the numbers of a text file from one unit of length into another.",
        {{"-f", "--from", "the unit of FILE: mm, cm, m, km, in, ft, yd or mi", Kelpkit::takesValue},
         {"-t", "--to", "the unit to convert into (default: m)", Kelpkit::takesValue},
         {"-o", "--output", "writes the numbers to this file, one a line", Kelpkit::takesValue},
         {"-h", "--help", "shows this help", Kelpkit::isSwitch}},
        {{"FILE", "the numbers, separated by blanks or line ends", false}},
        "-f=ft -t=m heights.txt",
        "-f=UNIT [-t=UNIT] [-o=OUTPUT] FILE",
        "     Lengths in other units"};
    return Kelpkit::run(tool, argc, argv, convert);
}
