#ifndef KELPKIT_OUTPUT_NAME_H
#define KELPKIT_OUTPUT_NAME_H

#include <string>

/// \file
/// What the name of an output file means on this system.

namespace Kelpkit {

constexpr char folderProblem[] = "is a folder, not a file";

/// Returns why a text that is not empty cannot name a file, whatever files exist; an empty text if it can.
std::string problemOfForm(const std::string& text);

/// Completes a relative name with the current folder.
std::string completed(const std::string& text);

}  // namespace Kelpkit

#endif
