#ifndef KELPLIB_BENCHMARKS_COMMAND_LINE_H
#define KELPLIB_BENCHMARKS_COMMAND_LINE_H

#include <cstddef>
#include <string>
#include <vector>

/// Which names the options of a command line have: one byte tells kelplib's options apart, other libraries want words.
enum class Spelling {
    firstByte,  ///< --X37=value, X another byte for every option
    word,       ///< --o37=value
};

/// What a library makes of a command line.
struct Answer {
    std::vector<std::string> values;       ///< of every option, in their order
    std::vector<std::string> positionals;  ///< in command-line order
};

bool operator==(const Answer& left, const Answer& right);

/// A command line with what is to be read from it. All spellings of one size have the same values and lengths.
class CommandLine {
public:
    /// Every option stands on the line as long as there are tokens for them, spread over it. About half of the tokens are
    /// positional arguments, as far as the options leave room for them. Tokens have 5 to 20 bytes.
    /// \param number  another one gives another line
    CommandLine(std::size_t options, std::size_t tokens, Spelling spelling, unsigned number);
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    int argc() const;
    /// Zero-terminated texts; a null pointer ends the list.
    char** argv() const;

    /// The first value of every option, or the last one, for libraries that keep that; empty for an option that is missing.
    Answer first() const;
    Answer last() const;

private:
    void addToken(const std::string& token);
    void addFlag(std::size_t option, const std::string& name, const std::string& value);
    void setPointers();

    /// The tokens one behind the other, as a process gets them.
    std::string text;
    mutable std::vector<char*> pointers;
    std::vector<std::string> firstValues;
    std::vector<std::string> lastValues;
    std::vector<std::string> positionals;
};

/// The byte that tells option `number` of kelplib's apart.
char keyOf(std::size_t number);
/// "X37" or "o37".
std::string nameOf(std::size_t number, Spelling spelling);

#endif
