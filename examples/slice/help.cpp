#include "help.h"

#include <iostream>

#include "../common/files.h"

namespace slice {

namespace {

constexpr char helpText[] = R"(usage: slice (-tr=FROM:TO | -sr=FROM:TO) [-r] [-n=COUNT] [-o=FILE [-f]]
             (-i=FILE | FILE)...

Writes the lines whose time, or whose line number, lies in a range. Both ends
belong to it.

  -tr=FROM:TO, --timerange=FROM:TO   the range of times, two numbers
  -sr=FROM:TO, --steprange=FROM:TO   the range of line numbers, from 1
  -r        times count from the first one of each file
  -n=COUNT  stops after so many lines
  -o=FILE   writes to FILE in place of standard output
  -f        overwrites FILE
  -i=FILE   reads FILE, before the files that are named without -i
  -h, --help  shows this help

A value stands behind its flag and "=". Files are read one after the other;
line numbers begin anew in each.

A line begins with its time, perhaps behind blanks and "[". A time is
  a number                    0.25  1e-3  1700000000
  a clock time                12:34:56  12:34:56.7
                              the seconds since midnight, here 45296
  a date, or date and time    2026-11-21  2026-11-21T12:34:56.7+01:00
                              the seconds since 1970 (date -u +%s -d TIME);
                              without Z or an offset it is taken as UTC
and ends at a blank, a comma, a semicolon, "]" or the line's end. A line
without a time goes with the line before; lines before the first time are
left out.

Exit status: 0 lines were written, 1 something is wrong, 2 no line lies in the
range. In the last two cases FILE is as it was before.
)";

}  // namespace

void printHelp() {
    if (!(std::cout << helpText << std::flush)) {
        common::failOnStream("cannot write standard output");
    }
}

}  // namespace slice
