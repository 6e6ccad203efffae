#ifndef KELPKIT_REFUSALS_H
#define KELPKIT_REFUSALS_H

#include <kelpkit/CommandLine.h>

#include <string>
#include <vector>

/// \file
/// The texts for command lines that are refused. The functions named refuse... throw a UsageError.

namespace Kelpkit {

/// \param token  a token that begins with "-" and is not a form of an option
[[noreturn]] void refuseUnknown(const std::string& token, const Definition& definition);

/// \param flag   a form of an option, as typed
/// \param value  what was meant as its value; "VALUE" if nothing was
[[noreturn]] void refuseWithoutValue(const std::string& flag, const std::string& value);

[[noreturn]] void refuseValueOfSwitch(const std::string& token);

[[noreturn]] void refuseSecond(const Kelp::Option& option, const std::string& first, const std::string& second);

/// Throws a UsageError if there are fewer arguments than the definition requires, or more than it allows.
void checkCount(const std::vector<std::string>& given, const Definition& definition);

/// Returns a token as messages show it: only the beginning of a long one, and "...".
std::string shortened(const std::string& token);

}  // namespace Kelpkit

#endif
