#ifndef FRAGMENT_REQUEST_H
#define FRAGMENT_REQUEST_H

#include <kelplib/CommandLineTool.h>

#include <string>
#include <vector>

namespace fragment {

/// What one command line asks for.
struct Request {
    unsigned long long pieces = 0;      ///< cut into this many fragments; 0 when not given
    unsigned long long pieceBytes = 0;  ///< cut after every so many bytes; 0 when not given
    std::string output;                 ///< a whole path; empty when not given
    bool join = false;
    bool overwrite = false;
    std::vector<std::string> files;
};

/// No cut makes more fragments than this.
constexpr unsigned long long mostFragments = 100000;

/// The options of the tool. The marker, which the library leaves to its tools, says here that an option takes a value.
std::vector<Kelp::Option> acceptedOptions();

/// Reads a command line that has passed the library's own checks, and makes those that the library leaves to its tools.
/// \throws std::runtime_error  with the line that tells the user what is wrong
Request readRequest(Kelp::OptionReader& reader, CommandLineTool& tool);

}  // namespace fragment

#endif
