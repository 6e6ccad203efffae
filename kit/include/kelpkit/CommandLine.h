#ifndef KELPKIT_COMMANDLINE_H
#define KELPKIT_COMMANDLINE_H

/// \file
/// A command line that is read strictly: everything on it is understood, or the tool ends with a message.

#include <kelpkit/CommandLineValues.h>
#include <kelpkit/Definition.h>
#include <kelpkit/Values.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace Kelpkit {

/// A command line that the tool does not accept. run() prints its text and ends the tool with exit status 2.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The options and arguments of one run. Every token that begins with "-" is an option; every other one, including the empty
/// one, is a positional argument. run() passes it to the tool's function:
///
/// \code
/// auto lines = line.value<std::size_t>("-n", Kelpkit::between(1, 1000)).value_or(10);
/// const bool loud = line.has("-l");
/// const std::string& name = line.arguments().front();
/// \endcode
///
///     token                 -n takes a value, -l is a switch
///     -n=3, -N=3            the option, in any letter case
///     --number=-3           the long form; the value is everything after the first "="
///     -n=                   the empty value, which most types refuse
///     -n, -n 3, -n3         refused: "-n needs its value attached: -n=3"
///     --num=3, --nubmer=3   refused: "--num: no such option; did you mean --number?"
///     -l=yes, -lv           refused: "-l=yes: -l takes no value", "-lv: one option at a time: -l -v"
///     -n=1 -n=2             refused: "-n is given twice: -n=1, -n=2"
///     --, -                 refused: no token ends the options or means standard input
///     -5, -x.txt            refused unless it is an option; the file of this name is given as ./-5
///
/// Messages show a token of more than 100 bytes cut.
///
/// A value is checked when the tool asks for it: read all options before the work begins. The members name an option by its
/// short or long form and throw std::logic_error for an option that the definition does not contain: that is a mistake in the
/// tool. Several threads may read one object.
class CommandLine {
public:
    /// Reads the command line and checks it except for the values, which value() and outputFile() check. Does not answer
    /// --help and --version, as run() does.
    /// \throws UsageError        for the first token that is not accepted, and for too few or too many positional arguments
    /// \throws std::logic_error  if an option has no short form, or two share a form, ignoring letter case
    CommandLine(const Definition& definition, int argc, char** argv);

    /// Returns whether an option is on the command line.
    bool has(std::string_view flag) const;

    /// Reads the value of an option; none if the option is not on the command line. T is any type of kelpkit/Values.h.
    /// \throws UsageError        "-n=3x: not a whole number from ..." unless the whole text is a value of the type
    /// \throws std::logic_error  if the option is a switch
    template <class T>
    std::optional<T> value(std::string_view flag) const;
    /// Reads a number, or a list of numbers, within limits. Limits of another number type are converted; a limit that T does
    /// not have becomes the nearest T. Throws also std::logic_error if no T lies within the limits, and for a NaN.
    template <class T, class Limit>
    std::optional<T> value(std::string_view flag, const Limits<Limit>& limits) const;
    /// Reads one of several names: "-m=slow: not one of fast, exact". Throws also std::logic_error for no names, an empty name,
    /// and two that are equal, ignoring letter case.
    template <class T>
    std::optional<T> value(std::string_view flag, const Choices<T>& choices) const;

    /// Returns the name of an output file, completed with the current directory, also if it is a single character; none if the
    /// option is not on the command line. On Windows a FilePath completes it; elsewhere only "/" is a delimiter, and colons and
    /// backslashes are ordinary characters. In a current directory that was deleted, a relative name stays as it is. Does not
    /// check that the file can be written.
    ///
    ///     option          in /home/ann
    ///     -o=r            "/home/ann/r"
    ///     -o=../a.txt     "/home/ann/../a.txt"
    ///     -o=/tmp/a.txt   "/tmp/a.txt"
    ///
    /// \throws UsageError  for an empty name, a folder ("out/", "..", or an existing folder), and on Windows a character and a
    ///                     colon with no folder after them ("c:a.txt")
    std::optional<std::string> outputFile(std::string_view flag) const;

    /// Returns the positional arguments in order.
    const std::vector<std::string>& arguments() const;

    /// Returns whether -v or --verbose is registered and on the command line.
    bool isVerbose() const;
    /// Prints a line on standard output and flushes it, in verbose mode only.
    void print(const std::string& text) const;

    /// Refuses an option that is on the command line, for checks of the tool's own: "-n=3: REASON". If it is not, the message
    /// is "-n: REASON".
    /// \throws UsageError  always
    [[noreturn]] void refuse(std::string_view flag, const std::string& reason) const;

    /// Returns the name of the tool, as defined.
    const std::string& name() const;

private:
    /// An option on the command line.
    struct Given {
        std::size_t option;  ///< its position in the definition
        std::string token;   ///< as typed
        std::string value;
    };

    void addOption(const std::string& token, const std::string& next, const Definition& definition);
    std::size_t positionOf(std::string_view flag) const;
    const Given* find(std::size_t option) const;
    const Given* findValue(std::string_view flag) const;
    std::optional<std::size_t> choose(std::string_view flag, const std::vector<std::string>& names) const;
    [[noreturn]] static void refuse(const Given& given, const std::string& reason);
    template <class T>
    static std::optional<T> accepted(const Given& given, const Read<T>& read);

    std::vector<Kelp::Option> options;
    std::vector<Given> flags;
    std::vector<std::string> positionals;
    std::string toolName;
};

template <class T>
std::optional<T> CommandLine::accepted(const Given& given, const Read<T>& read) {
    if (!read) {
        refuse(given, "not " + read.expectation());
    }
    return read.value();
}

template <class T>
std::optional<T> CommandLine::value(std::string_view flag) const {
    const Given* const given = findValue(flag);
    return given == nullptr ? std::nullopt : accepted(*given, detail::read<T>(given->value));
}

template <class T, class Limit>
std::optional<T> CommandLine::value(std::string_view flag, const Limits<Limit>& limits) const {
    const auto numberLimits = detail::convertLimits<typename detail::Element<T>::type>(limits);
    const Given* const given = findValue(flag);
    return given == nullptr ? std::nullopt : accepted(*given, detail::read<T>(given->value, numberLimits));
}

template <class T>
std::optional<T> CommandLine::value(std::string_view flag, const Choices<T>& choices) const {
    std::vector<std::string> names;
    for (const auto& [name, value] : choices) {
        names.push_back(name);
    }
    const std::optional<std::size_t> position = choose(flag, names);
    return position ? std::optional<T>(choices[*position].second) : std::nullopt;
}

}  // namespace Kelpkit

#endif
