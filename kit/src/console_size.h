#ifndef KELPKIT_CONSOLE_SIZE_H
#define KELPKIT_CONSOLE_SIZE_H

namespace Kelpkit {

/// The size of a console in characters.
struct ConsoleSize {
    int columns;
    int rows;
};

/// Returns the size of the console on standard output; 0 columns and rows if it is not a console, cannot move its cursor
/// (TERM=dumb) or its size is not known. A terminal of MSYS, which is a pipe to its programs, counts as a console of 80 columns
/// and 24 rows.
///
/// One source per system implements this, and another one the tests.
ConsoleSize consoleSize();

}  // namespace Kelpkit

#endif
