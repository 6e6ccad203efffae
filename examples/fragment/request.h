#ifndef FRAGMENT_REQUEST_H
#define FRAGMENT_REQUEST_H

#include <kelplib/CommandLineTool.h>

#include <string>
#include <vector>

namespace fragment {

/// The values of one command line.
struct Request {
    unsigned long long pieces = 0;      ///< cut into this many fragments; 0 if not given
    unsigned long long pieceBytes = 0;  ///< cut into fragments of this size; 0 if not given
    std::string output;                 ///< the full path; empty if not given
    bool join = false;
    bool overwrite = false;
    std::vector<std::string> files;
};

/// The largest number of fragments of a cut.
constexpr unsigned long long maxFragments = 100000;

/// Returns the options of the tool. Their markers, which the library leaves to its tools, say whether an option takes a value.
std::vector<Kelp::Option> acceptedOptions();

/// Reads a command line that has passed the checks of the library, and makes the checks that the library leaves to its tools.
/// \throws std::runtime_error  with the message for the user
Request readRequest(Kelp::OptionReader& reader, CommandLineTool& tool);

}  // namespace fragment

#endif
