#ifndef SLICE_HELP_H
#define SLICE_HELP_H

namespace slice {

/// Prints the help on standard output.
/// \throws std::runtime_error  if standard output cannot be written
void printHelp();

}  // namespace slice

#endif
