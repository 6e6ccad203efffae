#ifndef KELPKIT_PROGRAMS_OBSERVER_REPORT_H
#define KELPKIT_PROGRAMS_OBSERVER_REPORT_H

#include <string>
#include <string_view>

/// \file
/// What the observer, a library that is loaded into a tool, and kelp-check agree on.
///
/// A report is a sequence of events, and an event is a field that consists of fields:
///
///     kind, fields after it                                     the tool
///     process, PROCESS                                          is in this process, until the next event of this kind
///     tool, OBJECT, full or short, own or kit or other          calls a constructor, with its own command line or another
///     option, OBJECT, SHORT, LONG, TEXT, marked or not          has passed this option to the constructor
///     argument, OBJECT, NAME, TEXT, repeated or once            has passed this argument
///     late, OBJECT, SHORT, LONG, TEXT                           registers an option after the constructor
///     asks, OBJECT, NAME                                        asks for an option
///     verbose, OBJECT                                           prints a verbose text, or asks for verbose mode
///     output, OBJECT                                            asks for output files
///     token, NAME, NAME                                         asks an OptionReader for a flag
///     value, NAME, NAME                                         asks an OptionReader for a value
///
/// OBJECT names a CommandLineTool of the process, until the next constructor of the same OBJECT. A program that replaces itself
/// (exec) gets another PROCESS; a copy of it (fork) does not.

namespace Kelpkit::programs {

/// The variable with the path of the report, a file that exists.
inline constexpr char reportVariable[] = "KELPLIB_OBSERVER_REPORT";

/// Returns a text as a field: "3:abc".
inline std::string field(std::string_view text) {
    return std::to_string(text.size()) + ":" + std::string(text);
}

}  // namespace Kelpkit::programs

#endif
