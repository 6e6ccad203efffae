// slice: writes the lines of logs and tables whose times or line numbers are in a range.
//
// It reads its command line only with the scanners for raw flags, and prints a help of its own.

#include <kelpkit/Tool.h>

#include <iostream>

#include "slice.h"

namespace {

/// The exit status if there is no error, but no line is in the range.
constexpr int nothingFound = 3;

constexpr char helpText[] = R"(usage: slice (-tr=FROM:TO | -sr=FROM:TO) [-r] [-n=COUNT] [-o=FILE [-f]]
             (-i=FILE | FILE)...

Writes the lines whose time or line number is in a range, including both ends.

  -tr=FROM:TO, --timerange=FROM:TO   the range of times, two numbers
  -sr=FROM:TO, --steprange=FROM:TO   the range of line numbers, from 1
  -r        counts times from the first time in each file
  -n=COUNT  stops after COUNT lines
  -o=FILE   writes to FILE instead of standard output
  -f        overwrites FILE
  -i=FILE   reads FILE, before the files that are named without -i
  -h, --help  shows this help

A value follows its flag and "=", as in -n=5. Files are read one after the
other; line numbers start at 1 in each file.

A line begins with its time; blanks and "[" may precede it. A time is
  a number                    0.25  1e-3  1700000000
  a clock time                12:34:56  12:34:56.7
                              the seconds since midnight, here 45296
  a date, or date and time    2026-11-21  2026-11-21T12:34:56.7+01:00
                              the seconds since 1970 (date -u +%s -d TIME);
                              without Z or an offset, the time is UTC
and ends at a blank, a comma, a semicolon, "]" or the end of the line. A line
without a time belongs to the line before it. Lines before the first time are
not written.

Exit status: 0 if lines were written, 1 after an error, 2 if the command line is
refused, 3 if no line is in the range. The FILE of -o is then unchanged.
)";

/// Returns what the scanners read, at first the tool's name. They search the program path too, and a match there would hide later
/// ones.
std::vector<char*>& tokens() {
    static std::string name = "slice";
    static std::vector<char*> all{name.data()};
    return all;
}

std::string reasonForNothing(const slice::Request& request, const slice::Found& found) {
    if (found.longest == 0) {
        return "the input has no lines";
    }
    if (!request.byTime) {
        return "no such line; the last line of the longest file is " + std::to_string(found.longest);
    }
    if (!found.earliest) {
        return "no line begins with a time; -sr selects lines by their numbers";
    }
    return "no time is in the range; the times are in " +
           std::to_string(std::make_tuple(*found.earliest, found.latest.value()));
}

int work(Kelpkit::CommandLine& /*line*/) {
    const auto count = static_cast<int>(tokens().size());
    char** const data = tokens().data();
    slice::checkFlags(count, data);
    if (Kelp::getHelpFlag(count, data)) {
        std::cout << helpText;
        return EXIT_SUCCESS;
    }
    const slice::Request request = slice::readRequest(count, data);
    Kelpkit::requireNoInput(request.output, request.inputs);
    Kelpkit::NewFile output(request.output, request.overwrite, "-f overwrites it");
    const slice::Found found = slice::selectLines(request, output.stream());
    if (found.written == 0) {
        std::cerr << "slice: " << reasonForNothing(request, found) << std::endl;
        return nothingFound;
    }
    output.publish();
    if (request.output) {
        std::cout << "lines: " << found.written << ", output: " << Kelpkit::printable(*request.output) << "\n";
    }
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    tokens().insert(tokens().end(), argv + std::min(argc, 1), argv + argc);
    // run() reports errors. It sees no arguments, because the scanners read them.
    const Kelpkit::Definition tool{"slice", "Writes the lines in a range."};
    return Kelpkit::run(tool, std::min(argc, 1), argv, work);
}
