#ifndef SLICE_HELP_H
#define SLICE_HELP_H

namespace slice {

/// Prints the help on standard output.
/// \throws std::runtime_error  when that cannot be written
void printHelp();

}  // namespace slice

#endif
