#ifndef COMMON_OPTIONS_H
#define COMMON_OPTIONS_H

#include <kelplib/CommandLineTool.h>

#include <string>
#include <vector>

/// \file
/// Checks of a command line that the library leaves to its tools. They throw a std::runtime_error whose text is the message
/// for the user.

namespace common {

/// Values for the marker of an option, which the library leaves to its tools: here it says whether the option takes a value.
constexpr bool takesValue = true;
constexpr bool isSwitch = false;

/// The start position of a search that skips the program path.
constexpr int firstToken = 1;

/// Throws unless every flag is spelled like one of the options, is given once, and has a value exactly if it takes one.
void checkFlags(Kelp::OptionReader& reader, const std::vector<Kelp::Option>& options);

/// Returns the number of a flag, from 1 to `largest`, which has to be below the largest number of the type; 0 if the flag is not
/// given.
unsigned long long readCount(Kelp::OptionReader& reader, const std::string& flag, const std::string& longFlag,
                             unsigned long long largest);

/// Returns the full path of the file that -o names; empty if the flag is not given.
std::string readOutput(Kelp::OptionReader& reader, CommandLineTool& tool);

}  // namespace common

#endif
