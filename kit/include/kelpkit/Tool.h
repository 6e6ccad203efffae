#ifndef KELPKIT_TOOL_H
#define KELPKIT_TOOL_H

/// \file
/// The main function of a tool. Includes the rest of the kit.

#include <kelpkit/CommandLine.h>
#include <kelpkit/Files.h>
#include <kelpkit/Interruption.h>
#include <kelpkit/NewFiles.h>
#include <kelpkit/Progress.h>

namespace Kelpkit {

/// Runs a tool: answers --help and --version, reads the command line strictly, calls `work`, and reports its errors.
///
///     int main(int argc, char** argv) {
///         return Kelpkit::run(tool, argc, argv, firstLines);
///     }
///
///     token, in any letter case                                          prints                         exit status
///     -h, --help, /h, /help, /?                                          the library's help screen      0
///     --version, and the short form registered with it, if any           "firstlines 1.2.0"             0
///
/// These count anywhere on the command line, also beside mistakes; the first line of the table counts first. The help screen is
/// followed by the library's pause of half a second, shows the name in the program path, and needs no input file. Without
/// Definition::version, --version is an option like any other.
///
///     otherwise                                    standard error                                         exit status
///     work returns                                                                                        its result
///     the command line is refused: UsageError      "firstlines: -n=abc: not a whole number from 1 to 9
///                                                  (see firstlines --help)" in one line                   2
///     any other exception thrown by work           "firstlines: cannot read a.txt: No such file or
///                                                  directory" in one line                                 1
///     std::bad_alloc                               "firstlines: out of memory"                            1
///     standard output is closed                    "firstlines: standard output is closed"                1
///     not all that was printed arrived             "firstlines: standard output cannot be written"        1
///     Interruption, also if work has not noticed   "firstlines: interrupted", but nothing if its signal   that of the signal
///     the noted signal                             is SIGPIPE: the reader of the output has ended
///
/// The first line of this table that applies counts, except that a closed standard output counts before all others. What the help
/// screen prints is not checked, nor what std::wcout still holds after std::ios_base::sync_with_stdio(false). Control characters in
/// messages, and bytes that are not UTF-8, are replaced by a backslash, "x" and two hexadecimal digits. Exceptions do not leave
/// run().
/// \returns the exit status, unless help was asked for or a signal was noted: then the process ends
int run(const Definition& definition, int argc, char** argv, int (*work)(CommandLine& line));

}  // namespace Kelpkit

#endif
