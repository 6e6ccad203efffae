#ifndef KELPLIB_BENCHMARKS_COMMAND_LINE_H
#define KELPLIB_BENCHMARKS_COMMAND_LINE_H

#include <cstddef>
#include <string>
#include <vector>

/// The names of the options. kelplib distinguishes options by their first byte, other libraries by words. The first 26 options
/// have the same names in both.
enum class Spelling {
    firstByte,  ///< --X37=value, where X differs for every option
    word,       ///< --l37=value, where l is a letter
};

/// The result of parsing a command line.
struct Answer {
    std::vector<std::string> values;       ///< of every option, in the order of the options
    std::vector<std::string> positionals;  ///< in command-line order
};

bool operator==(const Answer& left, const Answer& right);

/// A command line with its expected answers. Both spellings have the same values and lengths.
class CommandLine {
public:
    /// Spreads all options over the line, or as many as there are tokens. About half of the tokens are positional arguments,
    /// fewer if the options need more room. Tokens have 5 to 20 bytes.
    /// \param count   the number of tokens
    /// \param number  the seed; each number gives another line
    CommandLine(std::size_t options, std::size_t count, Spelling spelling, unsigned number);
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    int argc() const;
    /// Null-terminated strings, followed by a null pointer.
    char** argv() const;

    /// The answer of a library that keeps the first value of every option, or the last one. The value of a missing option is empty.
    Answer first() const;
    Answer last() const;

private:
    void addToken(const std::string& token);
    void addFlag(std::size_t option, const std::string& name, const std::string& value);
    void setPointers();

    /// The tokens in one block, as a process receives them.
    std::string text;
    mutable std::vector<char*> pointers;
    std::vector<std::string> firstValues;
    std::vector<std::string> lastValues;
    std::vector<std::string> positionals;
};

/// Returns the first byte of option `number` in kelplib's spelling.
char keyOf(std::size_t number);
/// Returns "X37" or "l37".
std::string nameOf(std::size_t number, Spelling spelling);
/// Returns the numbers of the options in the order in which they are registered, the same for every library: ascending names would
/// favour sorted containers.
const std::vector<std::size_t>& registrationOrder(std::size_t options);

#endif
