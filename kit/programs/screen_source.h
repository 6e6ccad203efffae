#ifndef KELPKIT_PROGRAMS_SCREEN_SOURCE_H
#define KELPKIT_PROGRAMS_SCREEN_SOURCE_H

#include <optional>
#include <string>

#include "help_screen.h"

namespace Kelpkit::programs {

/// Returns the help screen of a tool.
/// \param source   the program, which is run, or the file of a saved screen, as its bytes or in the visible form
/// \param isSaved  whether it is a saved screen
/// \param name     the name of the tool; by default that of the program's file without ".exe", or that in the saved screen
/// \throws std::runtime_error  "bin/tool: not a kelplib help screen: line 7: expected ...", and what readHelp() throws
HelpScreen readScreen(const std::string& source, bool isSaved, const std::optional<std::string>& name);

/// Returns the name in the definition of a tool of the kit, which its help screen shows if its program path is not one.
/// \throws std::runtime_error  what readScreen() throws
std::string definedName(const std::string& program);

}  // namespace Kelpkit::programs

#endif
