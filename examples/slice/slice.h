#ifndef SLICE_SLICE_H
#define SLICE_SLICE_H

#include <array>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace slice {

/// The values of one command line.
struct Request {
    bool byTime = false;            ///< select by `times`; otherwise by `steps`
    std::array<double, 2> times{};  ///< first and last
    std::array<int, 2> steps{};     ///< first and last, counted from 1
    bool relative = false;          ///< count times from the first time in each file
    int maxLines = 0;               ///< 0 means all
    std::optional<std::string> output;
    bool overwrite = false;
    std::vector<std::string> inputs;  ///< at least one
};

/// Checks that every flag is spelled as in the help, has a value exactly if it takes one, and is not repeated unless it may be.
/// \throws Kelpkit::UsageError
void checkFlags(int argc, char** argv);

/// Reads a command line that has passed checkFlags(). Throws likewise.
Request readRequest(int argc, char** argv);

/// The results of a selection.
struct Found {
    unsigned long long written = 0;  ///< number of lines
    std::optional<double> earliest;  ///< of the times at the beginning of lines
    std::optional<double> latest;
    unsigned long long longest = 0;  ///< number of lines of the longest file
};

/// Writes the lines that the request selects.
Found selectLines(const Request& request, std::ostream& output);

/// Returns the time at the beginning of a line: a number as it is, a clock time as seconds since midnight, a date as seconds
/// since the beginning of 1970. The help lists the formats.
/// \param line  the line, or at least its first 100 bytes
std::optional<double> timeOf(std::string_view line);

}  // namespace slice

#endif
