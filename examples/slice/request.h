#ifndef SLICE_REQUEST_H
#define SLICE_REQUEST_H

#include <array>
#include <string>
#include <vector>

namespace slice {

/// The values of one command line.
struct Request {
    bool byTime = false;            ///< select by `times`; otherwise by `steps`
    std::array<double, 2> times{};  ///< first and last
    std::array<int, 2> steps{};     ///< first and last, counted from 1
    bool relative = false;          ///< count times from the first time in each file
    int maxLines = 0;               ///< 0 means all
    std::string output;             ///< standard output if empty
    bool overwrite = false;
    std::vector<std::string> inputs;  ///< at least one
};

/// Checks that every flag is spelled as in the help, has a value exactly if it takes one, and is not repeated unless it may be.
/// \throws std::runtime_error  with the message for the user
void checkFlags(int argc, char** argv);

/// Reads a command line that has passed checkFlags().
/// \throws std::runtime_error  likewise
Request readRequest(int argc, char** argv);

}  // namespace slice

#endif
