#ifndef KELPKIT_PROGRAMS_MDOC_MACROS_H
#define KELPKIT_PROGRAMS_MDOC_MACROS_H

#include <string>

#include "described_tool.h"

namespace Kelpkit::programs {

/// Returns the macros that print a word of the usage line, such as "[-n=LINES]", with its parts in their fonts.
std::string mdocUsageWord(const std::string& word);

/// Returns the macros that print the forms of an option: "-n=LINES, --number=LINES". Empty if it has none.
std::string mdocForms(const DescribedOption& option);

}  // namespace Kelpkit::programs

#endif
