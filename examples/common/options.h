#ifndef COMMON_OPTIONS_H
#define COMMON_OPTIONS_H

#include <kelplib/CommandLineTool.h>

#include <string>
#include <vector>

/// \file
/// Checks of a command line that the library leaves to its tools. Whatever is wrong leaves as a std::runtime_error whose
/// text is the line that the user reads.

namespace common {

/// The marker of an option, which the library leaves to its tools, says here whether the option takes a value.
constexpr bool takesValue = true;
constexpr bool isSwitch = false;

/// Where a search begins that leaves out the program path.
constexpr int firstToken = 1;

/// Refuses flags that are not spelled as one of the options, come twice, lack their value or have one too many.
void checkFlags(Kelp::OptionReader& reader, const std::vector<Kelp::Option>& options);

/// The number that a flag carries, from 1 to `largest`, which lies below the largest number of the type; 0 when the flag is
/// not there.
unsigned long long readCount(Kelp::OptionReader& reader, const std::string& flag, const std::string& longFlag,
                             unsigned long long largest);

/// The whole path of the file that -o names; empty when the flag is not there.
std::string readOutput(Kelp::OptionReader& reader, CommandLineTool& tool);

}  // namespace common

#endif
