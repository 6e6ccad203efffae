#ifndef HISTOGRAM_REQUEST_H
#define HISTOGRAM_REQUEST_H

#include <kelplib/CommandLineTool.h>

#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace histogram {

/// What one command line asks for.
struct Request {
    std::string file;
    std::optional<std::tuple<double, double>> range;  ///< finite, the lower end first, not empty
    std::vector<double> edges;                        ///< ascending, at least two; empty when not given
    std::set<int> columns;                            ///< from 1; empty: all
    int bins = 10;
    std::string output;  ///< a whole path; empty when not given
    bool overwrite = false;
};

/// The options of the tool.
std::vector<Kelp::Option> acceptedOptions();

/// Reads a command line that has passed the library's own checks, and makes those that the library leaves to its tools.
/// \throws std::runtime_error  with the line that tells the user what is wrong
Request readRequest(Kelp::OptionReader& reader, CommandLineTool& tool);

}  // namespace histogram

#endif
