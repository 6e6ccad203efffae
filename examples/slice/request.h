#ifndef SLICE_REQUEST_H
#define SLICE_REQUEST_H

#include <array>
#include <string>
#include <vector>

namespace slice {

/// What one command line asks for.
struct Request {
    bool byTime = false;            ///< by `times`, otherwise by `steps`
    std::array<double, 2> times{};  ///< first and last
    std::array<int, 2> steps{};     ///< first and last, from 1
    bool relative = false;          ///< times count from the first one of a file
    int mostLines = 0;              ///< 0: all
    std::string output;             ///< empty: standard output
    bool overwrite = false;
    std::vector<std::string> inputs;  ///< at least one
};

/// Refuses flags that are not spelled as the help spells them, come twice, lack their value or have one too many.
/// \throws std::runtime_error  with the line that tells the user what is wrong
void checkFlags(int argc, char** argv);

/// Reads a command line that has passed checkFlags().
/// \throws std::runtime_error  likewise
Request readRequest(int argc, char** argv);

}  // namespace slice

#endif
