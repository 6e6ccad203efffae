#ifndef KELPKIT_DEFINITION_H
#define KELPKIT_DEFINITION_H

/// \file
/// The description of a tool, from which the kit makes the help screen and checks the command line.

#include <kelplib/Kelp.h>

#include <cstddef>
#include <string>
#include <vector>

namespace Kelpkit {

/// The last field of a Kelp::Option that takes a value, as in -n=3.
inline constexpr bool takesValue = true;
/// The last field of a Kelp::Option that takes none.
inline constexpr bool isSwitch = false;

/// A tool: its options, its positional arguments and the texts of its help screen. A plain record; report() checks it. What an
/// initialiser leaves out at the end keeps its default.
///
/// \code
/// const Kelpkit::Definition tool{"firstlines",
///                                "Shows the first lines of a text.",
///                                {{"-n", "--number", "how many lines to show (10)", Kelpkit::takesValue},
///                                 {"-h", "--help", "show this help", Kelpkit::isSwitch}},
///                                {{"FILE", "the text to show", false}},
///                                "-n=3 letter.txt"};
/// \endcode
struct Definition {
    std::string name;         ///< the name in messages, for example "firstlines"
    std::string description;  ///< one line: what the tool does
    /// Each is accepted once, no two have a form in common; -h and --help work unlisted.
    std::vector<Kelp::Option> options = {};
    /// Each is required once; the last one once or more often if it is repeated.
    std::vector<Kelp::Argument> arguments = {};
    std::string example = {};  ///< the text after the tool's name in the example line
    /// The text after the tool's name in the usage line. By default it shows the options and arguments, as in "[-n=NUMBER] [-f] FILE",
    /// or if the line would have more than 79 characters, "[OPTIONS] FILE". -h, --help and -v, --verbose are not in it.
    std::string usage = {};
    std::string banner = {};            ///< the line below the tool's name in the banner
    std::string version = {};           ///< printed for --version, which is refused without it unless it is an option
    std::size_t optionalArguments = 0;  ///< how many of the last arguments may be missing
};

/// Returns what is wrong with a definition, one finding a line, each with its rule, the option and the cure; the empty text if
/// nothing is. Meant for a unit test of the tool:
///
///     EXPECT_EQ(Kelpkit::report(tool), "");
std::string report(const Definition& definition);

}  // namespace Kelpkit

#endif
