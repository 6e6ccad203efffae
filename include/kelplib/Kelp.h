#ifndef KELPLIB_KELP_H
#define KELPLIB_KELP_H

/// \file
/// The records that describe a command line, the reader that queries it, the conversion of option text to typed values, and
/// string helpers for tools.
///
/// Unless a comment says otherwise, the functions keep no state, may be called from any thread, and throw only
/// std::bad_alloc and std::length_error. All messages go to standard output.

#include <kelplib/Export.h>

#include <array>
#include <cstddef>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

class CommandLineTool;

/// Options and arguments, the command-line reader, typed values, flags read directly from argv, and string helpers.
namespace Kelp {

/// A flag that a tool accepts. A plain record: nothing is checked, and any text may be empty.
///
/// \code
/// std::vector<Kelp::Option> options{{"-n", "--number", "how many lines to show (10)", true},
///                                   {"-l", "--loud", "report every step", false}};
/// \endcode
class KELP_API Option {
public:
    /// \param shortFlag    the short form with its dash ("-h"), by which a CommandLineTool registers the option
    /// \param longFlag     the long form with its dashes ("--help")
    /// \param description  one line of help text
    /// \param marker       free for the tool's own use, for example to mark options that take a value; the library copies it
    ///                     but never reads it
    Option(std::string shortFlag, std::string longFlag, std::string description, bool marker);
    /// Does the same for literals, with less code in each tool. A null pointer counts as an empty text.
    Option(const char* shortFlag, const char* longFlag, const char* description, bool marker);

    // Defined in the library, so that the tools do not contain the code.
    Option(const Option&);                 ///< Copies member by member.
    Option(Option&&) noexcept;             ///< Moves the texts out of the other record.
    Option& operator=(const Option&);      ///< Copies member by member.
    Option& operator=(Option&&) noexcept;  ///< Moves the texts out of the other record.
    ~Option();

    /// Prints the option's entry in the help screen and an empty line. Does not flush.
    /// \param width      ignored
    /// \param lineWidth  ignored
    void printIndented(std::size_t width, std::size_t lineWidth) const;

    std::string shortFlag;    ///< the short form with its dash
    std::string longFlag;     ///< the long form with its dashes
    std::string description;  ///< one line of help text
    bool marker;              ///< free for the tool's own use; the library never reads it
};

/// A positional argument, as the usage line and the help screen describe it. The number of arguments on the command line
/// is not checked. A plain record: any text may be empty.
///
/// \code
/// std::vector<Kelp::Argument> arguments{{"FILE", "the texts to join", true}};
/// \endcode
class KELP_API Argument {
public:
    /// \param name         the name shown in the usage line and in the help screen
    /// \param description  one line of help text
    /// \param repeated     whether the argument may be given several times; the usage line then puts "..." after the name
    Argument(std::string name, std::string description, bool repeated);
    /// Does the same for literals, with less code in each tool. A null pointer counts as an empty text.
    Argument(const char* name, const char* description, bool repeated);

    // As for Option.
    Argument(const Argument&);                 ///< Copies member by member.
    Argument(Argument&&) noexcept;             ///< Moves the texts out of the other record.
    Argument& operator=(const Argument&);      ///< Copies member by member.
    Argument& operator=(Argument&&) noexcept;  ///< Moves the texts out of the other record.
    ~Argument();

    /// Prints the argument's entry in the help screen and an empty line. Does not flush.
    /// \param width      ignored
    /// \param lineWidth  ignored
    void printIndented(std::size_t width, std::size_t lineWidth) const;

    std::string name;         ///< the name shown in the usage line and in the help screen
    std::string description;  ///< one line of help text
    bool repeated;            ///< whether "..." follows the name in the usage line
};

/// A label with a number, written as "label:number" on the command line.
struct StringDouble {
    std::string label;   ///< the text before the colon
    double value = 0.0;  ///< the number after it
};

/// \name Option text to typed values
/// Each overload converts `text` and stores the result in `target`.
///
///     target                  text                         target afterwards
///     std::string             " a,b "                      " a,b "
///     bool                    "", "false"                  true
///     char                    "abc"                        'a'
///                             ""                           ' '
///     any number              "", "  "                     unchanged
///                             "12", " +12", "12abc"        12
///                             "abc", "0", "0x1F"           0
///     int                     "99999999999"                2147483647
///                             "-99999999999"               -2147483648
///     unsigned short          "-1", "65536", "-99999"      65535
///     unsigned int            "-1"                         4294967295
///     unsigned long long      "-1"                         18446744073709551615
///     double, float           "2.5", "25e-1", "+2.5x"      2.5
///                             "1e", "inf", "nan"           0
///     double                  "1e400"                      1.7976931348623157e308
///     float                   "1e400"                      3.4028235e38
///     StringDouble            "iron:7.9", "iron::7.9"      {"iron", 7.9}
///                             "iron: "                     label "iron", value unchanged
///                             "iron", ":7.9", "a:b:1"      unchanged
///     std::filesystem::path   "notes/a.txt"                notes/a.txt
///
/// Errors are not reported; a tool that must reject bad text checks the text itself.
///
/// Numbers are read as by a stream with the current global locale. In the classic locale, which applies unless the tool
/// changes it, a number is decimal: optional whitespace, an optional sign, digits and, for the two real types, an optional
/// "." and exponent. Trailing text is ignored. Text without a number gives 0, and so does an exponent without digits. A
/// number out of range gives the nearest limit of the type, never infinity. Unsigned types negate modulo their range, but a
/// magnitude out of range gives the largest value. In a locale that groups digits, a whole number out of range gives the
/// limit too, where libstdc++'s own stream sometimes gives 0.
/// @{

/// Stores an exact copy of `text`.
KELP_API void stringToValue(std::string& target, std::string text);
/// Stores true, whatever `text` is: a flag on the command line is on.
KELP_API void stringToValue(bool& target, std::string text);
/// Stores the first character of `text`, or a space if `text` is empty.
KELP_API void stringToValue(char& target, std::string text);
/// Stores the whole number at the start of `text`, from -2147483648 to 2147483647.
KELP_API void stringToValue(int& target, std::string text);
/// Stores the whole number at the start of `text`, from 0 to 65535.
KELP_API void stringToValue(unsigned short& target, std::string text);
/// Stores the whole number at the start of `text`, from 0 to 4294967295.
KELP_API void stringToValue(unsigned int& target, std::string text);
/// Stores the whole number at the start of `text`, from 0 to 18446744073709551615.
KELP_API void stringToValue(unsigned long long& target, std::string text);
/// Stores the double (IEEE 754 binary64) nearest to the number at the start of `text`.
KELP_API void stringToValue(double& target, std::string text);
/// Stores the float (IEEE 754 binary32) nearest to the number at the start of `text`, without rounding to double first.
KELP_API void stringToValue(float& target, std::string text);
/// Stores label and number of "label:number". Leaves `target` unchanged unless `text` has exactly two pieces between
/// colons, not counting empty ones. A blank second piece leaves the value unchanged.
KELP_API void stringToValue(StringDouble& target, std::string text);
/// Stores the path that `text` names in UTF-8. Where paths are narrow (Linux), stores the bytes unchanged.
/// \throws std::filesystem::filesystem_error  where paths are UTF-16 (Windows), if `text` is not well-formed UTF-8. The
///         message is "Cannot convert character sequence", the code std::errc::illegal_byte_sequence. Leaves `target`
///         unchanged
KELP_API void stringToValue(std::filesystem::path& target, std::string text);
/// @}

/// \name Option text to lists and tuples
/// Each overload cuts `text` into pieces as split() does, so empty pieces are dropped and blank ones are kept. It reads each
/// piece by the rules above and stores the results in `target`. The separator depends on the type of `target`.
///
///     target                     before      text             target afterwards
///     std::vector<std::string>   any         "b, a,,b"        {"b", " a", "b"}
///     std::set<std::string>      any         "b, a,,b"        {" a", "b"}
///     std::set<int>              any         "3,1,x,3, "      {0, 1, 3}
///     std::set<double>           any         "2.5:1:1"        {1, 2.5}
///     std::vector<int>           {7, 8, 9}   "1: :x"          {1, 8, 0}
///     std::vector<double>        {7, 8, 9}   "1.5: :x: "      {1.5, 8, 0, 0}
///                                {7, 8, 9}   ""               {}
///                                {7, 8, 9}   "1,2"            {1}
///     std::tuple of 2 numbers    any         "9:2", "2:9"     (2, 9)
///                                any         "5: "            (0, 5)
///                                (7, 8)      "5", "1:2:3"     (7, 8)
///     std::tuple of 3 numbers    any         "3:2:1"          (3, 2, 1)
///                                any         "3: :1"          (3, 0, 1)
///                                (7, 8, 9)   "1:2"            (7, 8, 9)
/// @{

/// Stores the pieces between commas, in order and with their blanks.
KELP_API void stringToValue(std::vector<std::string>& target, std::string text);
/// Stores the set of the pieces between commas, with their blanks.
KELP_API void stringToValue(std::set<std::string>& target, std::string text);
/// Stores the set of the numbers between commas. A blank piece or one without a number gives 0.
KELP_API void stringToValue(std::set<int>& target, std::string text);
/// Stores the set of the numbers between colons. A blank piece or one without a number gives 0.
KELP_API void stringToValue(std::set<double>& target, std::string text);
/// Resizes `target` to the number of pieces between colons, filling with 0, and reads each piece into the element at its
/// position. A blank piece leaves its element unchanged, so that defaults survive.
KELP_API void stringToValue(std::vector<int>& target, std::string text);
/// Does the same for real numbers.
KELP_API void stringToValue(std::vector<double>& target, std::string text);
/// Stores two numbers between colons, the lower one first. A blank piece gives 0. Leaves `target` unchanged unless there
/// are exactly two pieces.
KELP_API void stringToValue(std::tuple<unsigned int, unsigned int>& target, std::string text);
/// Does the same for two numbers of type float.
KELP_API void stringToValue(std::tuple<float, float>& target, std::string text);
/// Does the same for two numbers of type double.
KELP_API void stringToValue(std::tuple<double, double>& target, std::string text);
/// Stores three numbers between colons in the order in which they are written. A blank piece gives 0. Leaves `target`
/// unchanged unless there are exactly three pieces.
KELP_API void stringToValue(std::tuple<unsigned int, unsigned int, unsigned int>& target, std::string text);
/// @}

/// A command line as a list of tokens. Token 0 is the program path. A token that begins with "-" is a flag; every other
/// token, including the empty one, is a positional argument. A value belongs to its flag only if it is attached with "=".
/// Letter case never matters in flags (ASCII letters only). There is no end-of-options marker: "-5" and "--" are flags.
///
/// A CommandLineTool does not convert values; a tool creates a reader of its own beside it.
///
/// Positions are token indices. A result of 0 means "not found". A negative `start` finds nothing.
///
/// A reader keeps no pointer into argv. Not thread-safe: only one thread at a time may use it.
///
/// \code
/// Kelp::OptionReader reader(argc, argv);
/// unsigned int lines = 10;
/// reader.getValue("-n", "--number", lines, 1);  // stays 10 without -n; text without a number gives 0
/// std::vector<double> weights;
/// reader.getValue("-w", "--weights", weights, 1);  // -w=0.5:2:1
/// const bool loud = reader.hasOption("-l", "--loud", 1) != 0;
/// \endcode
class KELP_API OptionReader {
public:
    /// Copies argv[0] to argv[argc-1]; an argc of 0 or less gives no tokens. Verbose mode starts off.
    /// \throws std::logic_error  "basic_string: construction from null is not valid" if one of these elements is null
    OptionReader(int argc, char** argv);

    OptionReader(const OptionReader&);                 ///< Copies the tokens and the verbose mode.
    OptionReader(OptionReader&&) noexcept;             ///< Leaves the other reader empty.
    OptionReader& operator=(const OptionReader&);      ///< Copies the tokens and the verbose mode.
    OptionReader& operator=(OptionReader&&) noexcept;  ///< Leaves the other reader empty.
    ~OptionReader();

    /// Finds the first token at or after `start` that equals one of the two names, ignoring case. Compares whole tokens:
    /// "-n=5" is not "-n".
    /// \param shortFlag  the first name, for example "-n"
    /// \param longFlag   the second name, for example "--number"
    /// \param start      first position searched; 0 includes the program path, and a match there reads as not found
    /// \returns the position of the token; 0 if there is none
    int hasOption(std::string shortFlag, std::string longFlag, int start) const;
    /// Does the same for the two forms of `option`.
    int hasOption(const Option& option, int start) const;

    /// Converts the value of the first matching flag at or after `start`. T is any type that has a stringToValue above, or a
    /// type of the tool's own with an overload in the namespace of the type; other types do not compile:
    ///
    ///     void stringToValue(Colour& target, std::string text);
    ///
    /// A token matches by its first letter alone, ignoring case. The value is the text after the first "="; a flag without
    /// "=" has an empty value:
    ///
    ///     getValue("-n", "--number", text, 1)
    ///
    ///     token                               text
    ///     -n=5, -N=5, --n=5, --number=5       "5"
    ///     --nonsense=a=b                      "a=b"
    ///     -n, -nfoo, --number, -n=            ""
    ///     -m=5, n=5                           no match
    ///
    /// To read every occurrence of an option, each into a value of its own:
    ///
    ///     int next = 1;
    ///     for (std::string value; (next = reader.getValue("-i", "--input", value, next)) != 0; value.clear()) { ... }
    ///
    /// \param shortFlag  a dash and the flag's letter
    /// \param longFlag   another name of that form. A full long name such as "--number" is ignored: the short name
    ///                   finds its tokens
    /// \param value      set by stringToValue; unchanged if no flag matches
    /// \param start      first position searched; 0 includes the program path
    /// \returns the position after the flag, for use as the next `start`; 0 if no flag matches
    /// \throws std::filesystem::filesystem_error  as stringToValue, if T is std::filesystem::path
    template <class T>
    int getValue(std::string shortFlag, std::string longFlag, T& value, int start);
    /// Does the same for literals, with less code in each tool. A null pointer counts as an empty name.
    template <class T>
    int getValue(const char* shortFlag, const char* longFlag, T& value, int start);

    /// Finds the first positional argument at or after `start` (0 means 1).
    /// \param argument  set to the argument; unchanged if there is none
    /// \param start     first position searched
    /// \returns the position of the argument; 0 if there is none
    int getFirstArgument(std::string& argument, int start) const;

    /// Appends every positional argument at or after `start` (0 means 1) to `arguments`, without clearing it first.
    /// \returns true if at least one was appended
    bool getArguments(std::vector<std::string>& arguments, int start) const;

    /// Replaces `tokens` with a copy of all tokens, including the program path and the positional arguments.
    void getOptions(std::vector<std::string>& tokens);

    /// Checks that the first positional argument at or after `start` (0 means 1) names a file that can be opened for
    /// reading. Accepts "." and every text that contains "*" without opening it. Waits for a writer if the file is a named
    /// pipe. Prints a message if the check fails.
    /// \param file   set to the argument; unchanged if there is none
    /// \param start  first position searched
    /// \returns whether the check succeeds
    bool checkFiles(std::string& file, int start);

    /// Switches verbose mode on or off. The reader only stores it.
    void setVerbose(bool on);
    /// Returns whether verbose mode is on.
    bool getVerbose() const;

    /// Returns the program path unchanged; an empty text if there are no tokens.
    std::string getNameTool() const;

private:
    // All tokens in one text: a string for each would take several times as long to make.
    class TokenRecord {
    public:
        inline TokenRecord(int argc, char** argv);

        inline std::size_t size() const;
        // Returns the token, which a NUL follows.
        inline std::string_view at(std::size_t position) const;
        // Returns the mark of the token.
        inline char mark(std::size_t position) const;
        // Counts the positional arguments at or after `from`, which is at most size().
        inline std::size_t countArguments(std::size_t from) const;
        // Returns the first position at or after `from` whose token has one of two marks; npos if there is none.
        inline std::size_t find(char mark, char otherMark, std::size_t from) const;

    private:
        std::string text;                 // each token and a NUL
        std::vector<std::size_t> begins;  // the start of each token, and the end of the last one
        std::string marks;                // one character for each token; a search looks at these first
    };

    friend struct FlagCheck;

    int findValue(const char* shortFlag, const char* longFlag, std::string& text, int start) const;

    // Whether getValue can convert to a T. A member, so that it has the same access as getValue.
    template <class T, class = void>
    struct IsReadable {
        static constexpr bool value = false;
    };
    template <class T>
    struct IsReadable<T, decltype(static_cast<void>(stringToValue(std::declval<T&>(), std::declval<std::string>())))> {
        static constexpr bool value = true;
    };

    TokenRecord record;
    bool verbose = false;
};

template <class T>
int OptionReader::getValue(const char* shortFlag, const char* longFlag, T& value, int start) {
    static_assert(
        IsReadable<T>::value,
        "getValue has no conversion to this type: use std::string, bool, char, int, unsigned short, unsigned int, "
        "unsigned long long, double, float, std::filesystem::path, Kelp::StringDouble, a std::vector or std::set of "
        "int, double or std::string, a std::tuple of two double, float or unsigned int or of three unsigned int, or "
        "declare stringToValue(YourType&, std::string) in the namespace of your type");
    if constexpr (std::is_same_v<T, std::string>) {
        return findValue(shortFlag, longFlag, value, start);
    } else if constexpr (IsReadable<T>::value) {  // without this, the compiler adds an error that lists every overload
        std::string text;
        const int next = findValue(shortFlag, longFlag, text, start);
        if (next != 0) {
            static_cast<void>(stringToValue(value, std::move(text)));
        }
        return next;
    } else {
        return 0;
    }
}

template <class T>
int OptionReader::getValue(std::string shortFlag, std::string longFlag, T& value, int start) {
    return getValue(shortFlag.c_str(), longFlag.c_str(), value, start);
}

/// \cond instantiated in the library
extern template KELP_API int OptionReader::getValue<std::string>(const char* shortFlag, const char* longFlag,
                                                                 std::string& value, int start);
extern template KELP_API int OptionReader::getValue<std::string>(std::string shortFlag, std::string longFlag,
                                                                 std::string& value, int start);
/// \endcond

/// \name String helpers
/// @{

/// Returns the pieces of `text` between delimiters, without the empty ones. Blank pieces are kept.
///
///     split("a,,b, ,", ',')  // {"a", "b", " "}
KELP_API std::vector<std::string> split(const std::string& text, char delimiter);

/// Returns the pieces of `text` between runs of characters from `delimiters`; no piece is empty. If `delimiters` is empty,
/// a text that is not empty is one piece.
///
///     Tokenize("a, b;c", ",; ")  // {"a", "b", "c"}
KELP_API std::vector<std::string> Tokenize(const std::string& text, const std::string& delimiters);

/// Returns the first piece of split(text, delimiter); an empty text if there is none.
KELP_API std::string getFirstToken(std::string text, char delimiter);

/// Returns a copy with every byte converted by the C library's tolower in its current locale.
KELP_API std::string toLower(std::string text);

/// Splits `name` at its dots, replaces the last piece with `extension` (given without a dot), and joins the pieces with
/// dots. Empty pieces are dropped, and a dot in a folder's name counts like any other. Without a piece, returns `extension`.
///
///     replaceToFileExtension("letter.old.txt", "bak")  // "letter.old.bak"
///     replaceToFileExtension("letter..txt", "bak")     // "letter.bak"
///     replaceToFileExtension("README", "bak")          // "bak"
///     replaceToFileExtension("run.2/data", "bak")      // "run.bak"
KELP_API std::string replaceToFileExtension(std::string name, std::string extension);

/// Returns replaceToFileExtension(name, "q6").
KELP_API std::string replaceToQ6Extension(std::string name);

/// Returns `base` followed by `index`, which is padded with leading zeros to `width` + 1 digits.
///
///     createFragmentName(7, "part_", 3)       // "part_0007"
///     createFragmentName(123456, "part_", 3)  // "part_123456"
///
/// The digits are counted with log10 in double precision, so an index of 15 or more digits that rounds up to a power of ten
/// gets one zero less.
KELP_API std::string createFragmentName(unsigned long long index, std::string base, unsigned int width);
/// @}

/// \name Flags without a tool object
/// For programs that read argv directly. The grammar differs from OptionReader's: a flag of a dash and one more character
/// matches every token that begins with it, ignoring case; any other flag must equal the first non-empty piece of the token
/// between "=", in its own case.
///
///     flag        matches                        does not match
///     "-n"        -n, -N=4, -nfoo                --n, n=4
///     "--number"  --number, --number=4           --Number, --num=4, --numbers
///     "-tr"       -tr=1:2                        -TR=1:2, -tr1:2
///
/// Positions are indices into argv. A result of 0 means "not found", so a match at the program path reads as not found and
/// ends the search. A negative `start` counts as 0.
/// \throws std::logic_error  "basic_string: construction from null is not valid" when a null element of argv is reached
/// @{

/// Returns the position of the first token at or after `start` that matches `flag`; 0 if there is none.
KELP_API int getNextFlag(int argc, char** argv, std::string flag, int start);

/// Returns whether a token matches "-h" (so -H and -hello count too) or "--help".
KELP_API bool getHelpFlag(int argc, char** argv);

/// Finds the value of a two-character flag: the rest of its token, without a leading "=". Never takes the next token.
///
///     flag         token          value
///     "-o"         -ofile         "file"
///     "-o"         -o=file        "file"
///     "-o"         -o             ""
///     "--output"   --output=file  "output=file": two characters are dropped from a longer flag too
///
/// \param argc   the number of elements of `argv`
/// \param argv   the command line
/// \param flag   the flag with its dash
/// \param value  set to the value; unchanged if the flag is not found
/// \param start  first position searched
/// \returns the position of the flag; 0 if it is not found
/// \throws std::out_of_range  if the matching token is a single character
KELP_API int getStringFlag(int argc, char** argv, std::string flag, std::string& value, int start);

/// Replaces `values` with the values of every occurrence of a two-character flag, as getStringFlag finds them.
/// \returns the number of values
KELP_API int getMultiStringFlag(int argc, char** argv, std::string flag, std::vector<std::string>& values);

/// Reads the integer after the "=" of a flag as the C library's atoi does. A number out of range gives the nearest limit.
///
///     getIntFlag(argc, argv, "-n", value, 1)
///
///     token                   value
///     -n=12, -n=12abc         12
///     -nfoo=12, -n==12        12
///     -n=abc                  0
///     -n=99999999999          2147483647
///     -n, -n=, -n12, -n=1=2   unchanged
///
/// If the flag is not found or its token does not have exactly two non-empty pieces between "=", prints an empty line; if
/// verbosity() is above 10, the line contains the reason. For an optional flag, call getNextFlag first. If `start` is 0 or
/// less and the flag is not found, reads the program path in its place.
/// \param argc   the number of elements of `argv`
/// \param argv   the command line
/// \param flag   the flag with its dashes
/// \param value  set to the number; unchanged if none was read
/// \param start  first position searched
/// \returns the position of the flag; 0 if no number was read
KELP_API int getIntFlag(int argc, char** argv, std::string flag, int& value, int start);

/// Reads the range a:b from -tr=a:b or --timerange=a:b, in the order written, as the C library's atof does. Uses the long
/// form only if the first -tr is missing or has no such range.
/// \returns 1; 0, leaving `range` unchanged, if neither form has a range
KELP_API int getTimeRangeFlag(int argc, char** argv, std::array<double, 2>& range);
/// Does the same for integers, from -sr=a:b or --steprange=a:b, as the C library's atoi does.
KELP_API int getStepRangeFlag(int argc, char** argv, std::array<int, 2>& range);

/// Returns the first token after the program path that does not begin with "-"; "please_provide_file_name" if there is
/// none.
KELP_API std::string getFirstFileName(int argc, char** argv);

/// Returns all tokens after the program path that do not begin with "-", including empty ones.
KELP_API std::vector<std::string> getAllArguments(int argc, char** argv);
/// @}

/// Returns the integer at the start of the environment variable K_VERBOSITY; 0 if there is none. Reads the environment on
/// the first call only, from whichever thread makes it. The meaning of a level is up to the program; the library uses it
/// only in getIntFlag. Unrelated to a tool's verbose mode.
KELP_API int verbosity();

/// Prints `message` and a line with the number of seconds, then waits until a key is pressed or the time is up. A key is a
/// character on standard input; a console delivers it when Enter is pressed. The end of standard input counts as a key, and
/// so does input that cannot be read. A program in the background of its terminal waits the whole time, because the keys
/// go to the program in the foreground.
///
/// A key that ends the wait takes one character from standard input. The rest of the line is left to the program's next
/// read.
///
/// When the time is up, the call returns 0.2 s later than announced and leaves a thread running. That thread takes the next
/// character from standard input, after the threads of earlier waits have each taken one, so do not read standard input
/// afterwards. It does not keep the process from exiting, forking or flushing its streams. A wait whose own thread is
/// cancelled leaves such a thread too.
///
/// After the first wait, the library stays in memory even if the program unloads it.
/// \param seconds  the time to wait
/// \param message  the text printed first
/// \throws std::system_error  if no thread can be started
KELP_API void waitOrPressKey(unsigned int seconds, std::string message);

}  // namespace Kelp

/// Orders strings ignoring letter case, byte by byte through the C library's tolower: "-a" and "-A" are equivalent. A
/// comparator for std::map and std::set.
struct KELP_API ci_less {
    /// Returns whether `a` is ordered before `b`.
    bool operator()(const std::string& a, const std::string& b) const;
};

/// Returns `text` between the escape sequence that selects graphic rendition `code` (ECMA-48 SGR: 31 red, 34 blue, 1 bold;
/// any int is accepted) and the one that resets it. Does not check whether standard output is a terminal.
///
///     getColoredString("stop", 31)  // "\033[31mstop\033[0m"
KELP_API std::string getColoredString(const std::string& text, const int& code);

namespace std {

/// Returns the option as "shortFlag, longFlag:", a tab and the description.
///
///     to_string(Kelp::Option("-n", "--number", "how many", true))  // "-n, --number:\thow many"
KELP_API std::string to_string(const Kelp::Option& option);

/// \name Values to text
/// A number becomes the shortest text that reads back as the same double, in fixed or scientific notation, whichever is
/// shorter; fixed if both are equally long. Locales have no effect.
///
///     to_string(std::vector<double>{2.5, 100, 1e20, 1e-5, -0.0})  // "2.5, 100, 1e+20, 1e-05, -0"
///     to_string(std::vector<double>{1.0 / 3, HUGE_VAL, -NAN})     // "0.3333333333333333, inf, -nan"
///     to_string(std::vector<std::string>{"a", "b c"})             // "a, b c"
///     to_string(Kelp::StringDouble{"iron", 7.9})                  // "iron, 7.9"
///     to_string(std::tuple<double, double>{2, 9.5})               // "2:9.5"
///
/// The separators are not always those that stringToValue reads.
/// @{

/// Returns the label, ", " and the number.
KELP_API std::string to_string(const Kelp::StringDouble& value);
/// Returns the numbers, separated by ", ".
KELP_API std::string to_string(const std::vector<double>& values);
/// Returns the texts, separated by ", " and not quoted.
KELP_API std::string to_string(const std::vector<std::string>& values);
/// Returns a copy.
KELP_API std::string to_string(const std::string& value);
/// Returns the two numbers, separated by ":".
KELP_API std::string to_string(const std::tuple<double, double>& value);
/// @}

}  // namespace std

#endif
