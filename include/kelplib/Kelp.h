#ifndef KELPLIB_KELP_H
#define KELPLIB_KELP_H

/// \file
/// The records that describe a command line, the reader that answers questions about one, the conversion of option text
/// into typed values, and the string helpers that a tool needs beside them.
///
/// Unless a comment says otherwise, the functions keep no state, may be called from any thread, and throw nothing besides
/// std::bad_alloc and std::length_error. Whatever they print goes to standard output.

#include <kelplib/Export.h>

#include <array>
#include <cstddef>
#include <filesystem>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

class CommandLineTool;

/// Options and arguments, the reader of the command line, values, flags read straight from argv, and string helpers.
namespace Kelp {

/// One flag that a tool accepts. A plain record: nothing is checked, any text may be empty.
class KELP_API Option {
public:
    /// \param shortFlag    the short form with its dash ("-h"); it names the option in the tool's registry
    /// \param longFlag     the long form with its dashes ("--help")
    /// \param description  one line of help text
    /// \param marker       kept for the tool that builds the record (say, for options that take a value); the library copies
    ///                     it and never reads it
    Option(std::string shortFlag, std::string longFlag, std::string description, bool marker);
    /// The same from literals (null: an empty text). A list of options then compiles to a fraction of the code.
    Option(const char* shortFlag, const char* longFlag, const char* description, bool marker);

    // Copied and moved member by member. The code for it stands in the library once, not in every tool.
    Option(const Option&);                 ///< Copies member by member.
    Option(Option&&) noexcept;             ///< Takes the texts over.
    Option& operator=(const Option&);      ///< Copies member by member.
    Option& operator=(Option&&) noexcept;  ///< Takes the texts over.
    ~Option();

    /// Prints the option's block of the help screen and a blank line. The stream is not flushed.
    /// \param width, lineWidth  accepted for the caller's convenience; the layout does not depend on them
    void printIndented(std::size_t width, std::size_t lineWidth) const;

    std::string shortFlag;    ///< the short form with its dash
    std::string longFlag;     ///< the long form with its dashes
    std::string description;  ///< one line of help text
    bool marker;              ///< the tool's own mark; the library never reads it
};

/// One positional argument that a tool accepts, for the usage line and the help: how many arguments a command line has is
/// not checked. A plain record: any text may be empty.
class KELP_API Argument {
public:
    /// \param name         the name shown in the usage line and in the help
    /// \param description  one line of help text
    /// \param repeated     true when the argument may be given several times; the usage line then puts "..." after the name
    Argument(std::string name, std::string description, bool repeated);
    /// The same from literals; a null pointer counts as an empty text.
    Argument(const char* name, const char* description, bool repeated);

    // As with Option.
    Argument(const Argument&);                 ///< Copies member by member.
    Argument(Argument&&) noexcept;             ///< Takes the texts over.
    Argument& operator=(const Argument&);      ///< Copies member by member.
    Argument& operator=(Argument&&) noexcept;  ///< Takes the texts over.
    ~Argument();

    /// Prints the argument's block of the help screen and a blank line. The stream is not flushed.
    /// \param width, lineWidth  accepted for the caller's convenience; the layout does not depend on them
    void printIndented(std::size_t width, std::size_t lineWidth) const;

    std::string name;         ///< the name shown in the usage line and in the help
    std::string description;  ///< one line of help text
    bool repeated;            ///< whether the usage line puts "..." after the name
};

/// A label with a number, written "label:number" on the command line.
struct StringDouble {
    std::string label;   ///< what stands before the colon
    double value = 0.0;  ///< what stands behind it
};

/// \name Option text to typed values
/// No overload reports an error: a text that cannot be read leaves the value that its comment names. A tool that must tell
/// bad text apart looks at the text itself.
///
/// The numeric overloads read as a formatted stream with the process's global locale does. With the classic locale (every
/// tool that never changes it) that means: leading blanks are skipped; an optional sign; decimal digits only, and for the
/// two real types an optional "." and exponent; reading stops where the number stops and the rest is ignored ("12abc" is
/// 12, "0x1F" is 0). No digits, "inf" and "nan" give 0, and so does a real number whose exponent lacks its digits ("1e").
/// A number that does not fit becomes the type's nearest limit, never infinity. An unsigned type negates modulo its range
/// ("-1" is its largest value), but a magnitude beyond the range gives the largest value. An empty or blank text leaves
/// the target as it was, so that a default survives. With a locale that groups digits, libstdc++'s own stream gives 0 for
/// some whole numbers that do not fit; these overloads give the limit.
/// @{

/// The target becomes an exact copy of the text.
KELP_API void stringToValue(std::string& target, std::string text);
/// The target becomes true, whatever the text: a flag that stands on the command line is on.
KELP_API void stringToValue(bool& target, std::string text);
/// The target becomes the first character of the text; a space for an empty text.
KELP_API void stringToValue(char& target, std::string text);
/// The target becomes the whole number that the text begins with, at most 2147483647 and at least -2147483648.
KELP_API void stringToValue(int& target, std::string text);
/// The same from 0 to 65535; "-1" is 65535.
KELP_API void stringToValue(unsigned short& target, std::string text);
/// The same from 0 to 4294967295; "-1" is 4294967295.
KELP_API void stringToValue(unsigned int& target, std::string text);
/// The same from 0 to 18446744073709551615; "-1" is 18446744073709551615.
KELP_API void stringToValue(unsigned long long& target, std::string text);
/// The target becomes the nearest double (IEEE 754 binary64) to the number that the text begins with; "1e400" is the largest
/// finite one.
KELP_API void stringToValue(double& target, std::string text);
/// The nearest float (IEEE 754 binary32), read as such, without a detour through double.
KELP_API void stringToValue(float& target, std::string text);
/// Reads "label:number". Untouched unless the text has exactly two non-empty pieces between its colons; a blank second
/// piece sets the label and leaves the value.
KELP_API void stringToValue(StringDouble& target, std::string text);
/// The target becomes the path that the text names in UTF-8. Where paths are narrow the bytes are used as they stand.
/// \throws std::filesystem::filesystem_error  where paths are UTF-16 and the text is not well-formed UTF-8 (message
///         "Cannot convert character sequence", code std::errc::illegal_byte_sequence); the target is untouched then
KELP_API void stringToValue(std::filesystem::path& target, std::string text);
/// @}

/// \name Option text to lists and tuples
/// The text is cut into pieces as split() does, so empty pieces are dropped and blank ones count. Each is read by the rules
/// above. Which separator a type has, "," or ":", is a part of its form and told below.
/// @{

/// The target becomes the pieces between commas, in order, with their blanks.
KELP_API void stringToValue(std::vector<std::string>& target, std::string text);
/// The target becomes the set of the pieces between commas, with their blanks.
KELP_API void stringToValue(std::set<std::string>& target, std::string text);
/// The target becomes the set of the numbers between commas; a blank or unreadable piece gives 0.
KELP_API void stringToValue(std::set<int>& target, std::string text);
/// The target becomes the set of the numbers between colons; a blank or unreadable piece gives 0.
KELP_API void stringToValue(std::set<double>& target, std::string text);
/// The target gets as many elements as there are pieces between colons, none for an empty text, and each piece is read over
/// the element in its place: a blank piece leaves that one as it was, so that defaults survive. Elements that are added
/// begin as 0.
KELP_API void stringToValue(std::vector<int>& target, std::string text);
/// The same for real numbers.
KELP_API void stringToValue(std::vector<double>& target, std::string text);
/// Two numbers between colons, the lower one first; a blank piece gives 0. Untouched unless there are exactly two pieces.
KELP_API void stringToValue(std::tuple<unsigned int, unsigned int>& target, std::string text);
/// The same for two numbers of type float.
KELP_API void stringToValue(std::tuple<float, float>& target, std::string text);
/// The same for two numbers of type double.
KELP_API void stringToValue(std::tuple<double, double>& target, std::string text);
/// Three numbers between colons in the order in which they are written; a blank piece gives 0. Untouched unless there are
/// exactly three pieces.
KELP_API void stringToValue(std::tuple<unsigned int, unsigned int, unsigned int>& target, std::string text);
/// @}

/// A command line as a list of tokens. Token 0 is the program path; a token that begins with "-" is a flag, everything
/// else, the empty token included, is a positional argument. A value belongs to its flag only when it is attached with
/// "=". Letter case never matters in flags (ASCII letters only). There is no end-of-options marker: "-5" is a flag.
///
/// A tool reads its values with a reader of its own, beside its CommandLineTool.
///
/// Positions are token indices. Position 0 doubles as the answer for nothing found; a negative `start` finds nothing.
/// A reader keeps no pointer into argv. One thread at a time may use it.
class KELP_API OptionReader {
public:
    /// Copies argv[0] to argv[argc-1]; an argc of 0 or less gives no tokens. Verbose mode starts off.
    /// \throws std::logic_error  "basic_string: construction from null is not valid" for a null element among them
    OptionReader(int argc, char** argv);

    OptionReader(const OptionReader&);                 ///< The copy holds the same tokens.
    OptionReader(OptionReader&&) noexcept;             ///< The other has no tokens then.
    OptionReader& operator=(const OptionReader&);      ///< The copy holds the same tokens.
    OptionReader& operator=(OptionReader&&) noexcept;  ///< The other has no tokens then.
    ~OptionReader();

    /// Finds the first token at or after `start` that equals one of the two names, ignoring case. Whole tokens are
    /// compared: "-n=5" is not "-n".
    /// \param start  first position looked at; 0 includes the program path, and a match there reads as nothing found
    /// \returns its position; 0 when there is none
    int hasOption(std::string shortFlag, std::string longFlag, int start) const;
    /// The same with the two forms of `option`.
    int hasOption(const Option& option, int start) const;

    /// Converts the value of the first matching flag token at or after `start`. T is a type that has a stringToValue above.
    /// Every occurrence of an option, each into a target of its own:
    ///
    ///     int next = 1;
    ///     for (std::string value; (next = reader.getValue("-i", "--input", value, next)) != 0; value.clear()) { ... }
    ///
    /// A token matches by its first letter alone: -n, -n=5, -nfoo, --n and --number=5 all count as -n, in either case.
    /// The value is the text after the first "="; a flag without "=" converts the empty text.
    /// \param shortFlag, longFlag  names compared with that two-character key; a full long name can therefore never match
    /// \param value  set by stringToValue for T; untouched when no flag matches
    /// \param start  first position looked at; 0 includes the program path
    /// \returns the position after the flag, fit to be the next start; 0 when there is none
    /// \throws what the stringToValue of T throws (only the path overload does), besides std::bad_alloc
    template <class T>
    int getValue(std::string shortFlag, std::string longFlag, T& value, int start);
    /// The same from literals (null: an empty name), with a fraction of the code in each tool.
    template <class T>
    int getValue(const char* shortFlag, const char* longFlag, T& value, int start);

    /// Finds the first positional argument at or after `start` (0 means 1).
    /// \param argument  set to it; untouched when there is none
    /// \returns its position; 0 when there is none
    int getFirstArgument(std::string& argument, int start) const;

    /// Appends every positional argument at or after `start` (0 means 1). `arguments` is not cleared first.
    /// \returns true when at least one was appended
    bool getArguments(std::vector<std::string>& arguments, int start) const;

    /// Replaces `tokens` by a copy of all tokens, the program path and positional arguments included.
    void getOptions(std::vector<std::string>& tokens);

    /// Checks that the first positional argument at or after `start` (0 means 1) names a file that can be opened for
    /// reading. "." and every text with a "*" in it pass unopened; a named pipe makes it wait for a writer. A failure
    /// is told on standard output.
    /// \param file  set to the argument; untouched when there is none
    bool checkFiles(std::string& file, int start);

    /// Switches verbose mode, a mark that the reader carries and does not look at itself.
    void setVerbose(bool on);
    /// Whether verbose mode is on.
    bool getVerbose() const;

    /// The program path as it stands on the command line; empty when there are no tokens.
    std::string getNameTool() const;

private:
    friend class ::CommandLineTool;

    int findValue(const char* shortFlag, const char* longFlag, std::string& text, int start) const;

    // One behind the other, which reads a command line as fast as memory does: a string of each token's own would take
    // several times as long to make. There are as many tokens as marks; without any, the other two may be empty.
    std::string tokens;               ///< each with its NUL
    std::vector<std::size_t> begins;  ///< where they begin, and the end of the last
    std::string marks;                ///< one character for each token, by which the queries find theirs
    bool verbose = false;
};

template <class T>
int OptionReader::getValue(const char* shortFlag, const char* longFlag, T& value, int start) {
    std::string text;
    const int next = findValue(shortFlag, longFlag, text, start);
    if (next != 0) {
        stringToValue(value, std::move(text));
    }
    return next;
}

template <class T>
int OptionReader::getValue(std::string shortFlag, std::string longFlag, T& value, int start) {
    return getValue(shortFlag.c_str(), longFlag.c_str(), value, start);
}

/// \cond the code for texts, which the library holds
extern template KELP_API int OptionReader::getValue<std::string>(const char* shortFlag, const char* longFlag,
                                                                 std::string& value, int start);
extern template KELP_API int OptionReader::getValue<std::string>(std::string shortFlag, std::string longFlag,
                                                                 std::string& value, int start);
/// \endcond

/// \name String helpers
/// @{

/// Cuts `text` at every `delimiter`. Empty pieces are dropped, blank ones are kept: "a,,b," gives "a" and "b".
KELP_API std::vector<std::string> split(const std::string& text, char delimiter);

/// Cuts `text` at every run of characters of `delimiters`; tokens are never empty. With no delimiters a text that is not
/// empty is one token.
KELP_API std::vector<std::string> Tokenize(const std::string& text, const std::string& delimiters);

/// The first piece of split(text, delimiter); empty when there is none.
KELP_API std::string getFirstToken(std::string text, char delimiter);

/// A copy with every byte passed through the C library's tolower, in its current locale.
KELP_API std::string toLower(std::string text);

/// Replaces what follows the last dot of `name` by `extension` (given without its dot). The whole text counts, directories
/// too: a name without a dot is replaced entirely, doubled dots collapse, and "run.2/data" becomes "run.q6".
KELP_API std::string replaceToFileExtension(std::string name, std::string extension);

/// replaceToFileExtension(name, "q6").
KELP_API std::string replaceToQ6Extension(std::string name);

/// A numbered name: `base`, then `index` with leading zeros to `width` + 1 digits (index 7, width 3: "0007"). An index of
/// more digits is written in full. The digits are counted with log10 in double, so an index of 15 digits or more that
/// rounds up to a power of ten gets one zero less.
KELP_API std::string createFragmentName(unsigned long long index, std::string base, unsigned int width);
/// @}

/// \name Flags without a tool object
/// For programs that read argv themselves. These have a grammar of their own: a flag of at most two characters ("-n")
/// matches every token that begins with it, in either letter case (-n, -N=4, -nfoo); a longer one ("--number") only a token
/// that is the flag itself, or the flag with "=" and a text, in the same letter case.
///
/// Positions are indices into argv; 0 doubles as nothing found, so a match at the program path reads as nothing found and
/// ends the search. A negative `start` counts as 0.
/// \throws std::logic_error  "basic_string: construction from null is not valid" for a null element of argv, when it is
///                           looked at
/// @{

/// The position of the first token at or after `start` that matches; 0 when there is none.
KELP_API int getNextFlag(int argc, char** argv, std::string flag, int start);

/// Whether some token begins with "-h" or is "--help".
KELP_API bool getHelpFlag(int argc, char** argv);

/// The value of a two-character flag: what follows it in its token, without a "=" in between (-ofile, -o=file). The next
/// token is never taken. Of a longer flag's token two characters are left out all the same: "output=file".
/// \param value  empty for a flag without a value; untouched when there is no flag
/// \returns the flag's position; 0 when there is none
/// \throws std::out_of_range  when a token of one character matches
KELP_API int getStringFlag(int argc, char** argv, std::string flag, std::string& value, int start);

/// Replaces `values` by the values of every occurrence of a two-character flag.
/// \returns their number
KELP_API int getMultiStringFlag(int argc, char** argv, std::string flag, std::vector<std::string>& values);

/// The integer behind the "=" of a flag, read as the C library's atoi does: "12abc" is 12, "abc" 0, and what does not fit
/// becomes the nearest limit. When there is no flag, or not exactly one text behind one "=", an empty line is printed (the
/// reason stands on it when verbosity() is above 10): ask getNextFlag first where the flag is optional. With `start` 0 and
/// no flag the program path is read in its place.
/// \param value  untouched unless a number was read
/// \returns the flag's position; 0 otherwise
KELP_API int getIntFlag(int argc, char** argv, std::string flag, int& value, int start);

/// The range a:b of -tr=a:b or --timerange=a:b, read as the C library's atof does, in the order written. The long form
/// counts when the first short form has no such range.
/// \returns 1; 0 with `range` untouched when neither has one
KELP_API int getTimeRangeFlag(int argc, char** argv, std::array<double, 2>& range);
/// The same for integers, with -sr=a:b or --steprange=a:b.
KELP_API int getStepRangeFlag(int argc, char** argv, std::array<int, 2>& range);

/// The first token behind the program path that does not begin with "-"; "please_provide_file_name" when there is none.
KELP_API std::string getFirstFileName(int argc, char** argv);

/// Every token behind the program path that does not begin with "-", the empty ones included.
KELP_API std::vector<std::string> getAllArguments(int argc, char** argv);
/// @}

/// The number that the environment variable K_VERBOSITY begins with, 0 without one. The environment is read at the first
/// call, from whichever thread, and never again. What a level means is the program's choice; the library looks at it in
/// getIntFlag alone. A tool's verbose mode is another matter.
KELP_API int verbosity();

/// Prints the message and a line that gives the number of seconds, then waits for a key on standard input or for the seconds
/// to pass, whichever comes first. A console passes a key on with Enter. The end of standard input counts as a key, and so
/// does input that cannot be read. A program in the background of its terminal waits the whole time: what is typed belongs
/// to the program in the foreground.
///
/// A wait that a key ends takes one character and leaves the rest of the line to the next read of this program. A wait for
/// the whole time takes 0.2 s longer than announced and leaves its reader: a thread that takes the next character that comes
/// in, after those of earlier waits. Do not read standard input afterwards. The reader does not keep the process from
/// exiting, forking or flushing its streams. From the first wait on the library stays in memory, even if the program unloads
/// it. A wait whose thread is cancelled leaves its reader too.
/// \throws std::system_error  when no thread can be started
KELP_API void waitOrPressKey(unsigned int seconds, std::string message);

}  // namespace Kelp

/// Orders strings ignoring letter case, byte by byte through the C library's tolower: "-a" and "-A" are equivalent. Fit to
/// order any std::map or std::set of strings.
struct KELP_API ci_less {
    /// Whether `a` stands before `b`.
    bool operator()(const std::string& a, const std::string& b) const;
};

/// Wraps `text` in the escape sequence that selects graphic rendition `code` (ECMA-48 SGR: 31 red, 34 blue, 1 bold; any
/// int is written as it stands) and the one that resets it. Nobody looks whether standard output is a terminal.
KELP_API std::string getColoredString(const std::string& text, const int& code);

namespace std {

/// The option as "shortFlag, longFlag:", a tab and the description.
KELP_API std::string to_string(const Kelp::Option& option);

/// \name Values to text
/// A number becomes the shortest text that reads back to the same double, in fixed or scientific notation, whichever is
/// shorter, fixed on a tie: "2.5", "100", "1e+20", "1e-05", "-0", "inf", "-nan". No locale plays a part. The separators are
/// not always those that stringToValue reads.
/// @{

/// The label, ", " and the number.
KELP_API std::string to_string(const Kelp::StringDouble& value);
/// The numbers with ", " between them.
KELP_API std::string to_string(const std::vector<double>& values);
/// The texts with ", " between them, not quoted.
KELP_API std::string to_string(const std::vector<std::string>& values);
/// A copy.
KELP_API std::string to_string(const std::string& value);
/// The two numbers with ":" between them.
KELP_API std::string to_string(const std::tuple<double, double>& value);
/// @}

}  // namespace std

#endif
