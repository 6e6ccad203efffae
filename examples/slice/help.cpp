#include "help.h"

#include <iostream>

#include "../common/files.h"

namespace slice {

namespace {

constexpr char helpText[] = R"(usage: slice (-tr=FROM:TO | -sr=FROM:TO) [-r] [-n=COUNT] [-o=FILE [-f]]
             (-i=FILE | FILE)...

Writes the lines whose time or line number is in a range, including both ends.

  -tr=FROM:TO, --timerange=FROM:TO   the range of times, two numbers
  -sr=FROM:TO, --steprange=FROM:TO   the range of line numbers, from 1
  -r        counts times from the first time in each file
  -n=COUNT  stops after COUNT lines
  -o=FILE   writes to FILE instead of standard output
  -f        overwrites FILE
  -i=FILE   reads FILE, before the files that are named without -i
  -h, --help  shows this help

A value follows its flag and "=", as in -n=5. Files are read one after the
other; line numbers start at 1 in each file.

A line begins with its time; blanks and "[" may precede it. A time is
  a number                    0.25  1e-3  1700000000
  a clock time                12:34:56  12:34:56.7
                              the seconds since midnight, here 45296
  a date, or date and time    2026-11-21  2026-11-21T12:34:56.7+01:00
                              the seconds since 1970 (date -u +%s -d TIME);
                              without Z or an offset, the time is UTC
and ends at a blank, a comma, a semicolon, "]" or the end of the line. A line
without a time belongs to the line before it. Lines before the first time are
not written.

Exit status: 0 if lines were written, 1 after an error, 2 if no line is in the
range. In the last two cases, the FILE of -o is unchanged.
)";

}  // namespace

void printHelp() {
    if (!(std::cout << helpText << std::flush)) {
        common::failOnStream("cannot write standard output");
    }
}

}  // namespace slice
