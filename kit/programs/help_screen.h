#ifndef KELPKIT_PROGRAMS_HELP_SCREEN_H
#define KELPKIT_PROGRAMS_HELP_SCREEN_H

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace Kelpkit::programs {

/// A help screen of the library, taken apart. The texts are UTF-8 without NUL bytes, escape characters and control characters
/// above ASCII. All but the example may contain line ends.
struct HelpScreen {
    struct Option {
        std::string shortForm;
        std::string longForm;
        std::string text;
    };
    struct Argument {
        std::string name;
        std::string text;
    };

    std::string name;    ///< in the banner, the usage line and the example line
    std::string banner;  ///< the line below the name
    std::string description;
    std::string usage;  ///< the text after the name and a blank
    std::vector<Option> options;
    std::vector<Argument> arguments;
    std::string example;  ///< the text after the name and a blank
};

/// Thrown for a text that is not a help screen of the library.
class ScreenError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Takes a help screen apart. All line ends are LF, or all are CRLF.
/// \throws ScreenError  "line 7: expected the heading \"Usage:\"" unless the text is a whole help screen and nothing else
HelpScreen parse(std::string_view text);

/// Returns the bytes of a help screen, with LF. For every text that parse() accepts with LF, render(parse(text)) is that text.
std::string render(const HelpScreen& screen);

/// Returns whether the line in a banner is that of the library's short constructors. They describe no arguments and no example.
bool isOfShortConstructor(const std::string& banner);

/// \name The visible form
/// A help screen as a text that editors and version control show: "\e" is the escape character, "\t" a tab, "\r" a carriage
/// return, "\xNN" another control character, "\\" a backslash, and "$" marks the line ends.
/// @{

/// Returns the visible form of a help screen.
std::string visibleScreen(const HelpScreen& screen);
/// Returns whether a text begins like a visible form, as no help screen does.
bool isVisibleForm(std::string_view text);
/// Returns the text with the visible form `text`. Its line ends are LF or CRLF.
/// \throws ScreenError  "line 7: expected $ at the end" for a text that is not a visible form
std::string textOfVisibleForm(std::string_view text);
/// @}

}  // namespace Kelpkit::programs

#endif
