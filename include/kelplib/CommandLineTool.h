#ifndef KELPLIB_COMMANDLINETOOL_H
#define KELPLIB_COMMANDLINETOOL_H

/// \file
/// The front end of a console tool: an object built from argc and argv whose constructor checks the command line.

#include <kelplib/Export.h>
#include <kelplib/FilePath.h>
#include <kelplib/Kelp.h>

#include <cstddef>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <vector>

/// A tool's command line with its options, positional arguments, banner and help screen.
///
/// \code
/// std::vector<Kelp::Option> options{{"-o", "--output", "the file to write", true},
///                                   {"-l", "--loud", "report every step", false}};
/// CommandLineTool tool(argc, argv, "Joins texts.", options);
/// std::list<std::string> names;
/// tool.getArguments(names, 1);
/// const bool loud = tool.hasOption("-l", 1) != 0;
/// \endcode
///
/// When a constructor returns, the command line is acceptable. A help request ("--help", "-h", "/help", "/h", "/?"), an
/// unknown flag and, with the full constructor, a missing input file make it print the banner and the help screen on
/// standard output and end the process. The exit status is 0 in all cases.
///
/// The check for unknown flags compares first letters only, ignoring case. hasOption(), the help request and the verbose
/// request compare whole tokens. "-v" and "-h" are checked like any other flag; a tool that wants "-v" registers it. With
/// the options above:
///
///     token              accepted  hasOption("-l", 1) finds it
///     -l, -L, --LOUD     yes       yes
///     --lou, -l=yes      yes       no
///     -o=x, --oops       yes       no
///     -v, --verbose      no        -
///
/// A CommandLineTool does not read option values; create a Kelp::OptionReader for them.
///
/// If the program path contains a backslash and fewer than four characters follow the last one, the tool has no name.
/// Every member that prints the banner or the help screen, constructors included, then throws std::out_of_range.
///
/// Not thread-safe, except for initProgress() and progress(). Members throw only what their comments name, std::bad_alloc
/// and std::length_error.
class KELP_API CommandLineTool {
public:
    /// \name Construction
    /// The constructors copy all texts and records. The vectors must be lvalues; they are not modified.
    ///
    /// The short constructors require no input file, generate the usage line, and put kelplib's copyright line into the
    /// banner. The full constructor requires the first positional argument to be a readable file, even if `arguments` is
    /// empty; it accepts "." and texts that contain "*" without opening them. It checks the file before it looks for a help
    /// request.
    /// \throws std::logic_error   for a null element of argv, see Kelp::OptionReader
    /// \throws std::out_of_range  if the tool has no name, see the class
    /// @{

    /// Creates a tool without options.
    CommandLineTool(int argc, char** argv, std::string description);
    /// Creates a tool with one option.
    CommandLineTool(int argc, char** argv, std::string description, const Kelp::Option& option);
    /// Creates a tool with two options. If their short flags are equal, only the first is kept.
    CommandLineTool(int argc, char** argv, std::string description, const Kelp::Option& first,
                    const Kelp::Option& second);
    /// Creates a tool with any number of options.
    CommandLineTool(int argc, char** argv, std::string description, std::vector<Kelp::Option>& options);
    /// Creates a tool with options, arguments, and its own usage line, example and banner: the full constructor.
    /// \param argc         the number of elements of `argv`, as passed to main()
    /// \param argv         the command line, as passed to main()
    /// \param description  the first line of the help screen
    /// \param usage        the text after the tool's name in the usage line; if empty, "[OPTIONS]" and the argument names
    /// \param example      the text after the tool's name in the example line
    /// \param header       the line below the tool's name in the banner
    /// \param options      the flags that the tool accepts
    /// \param arguments    the positional arguments, for the usage line and the help screen
    CommandLineTool(int argc, char** argv, std::string description, std::string usage, std::string example,
                    std::string header, std::vector<Kelp::Option>& options, std::vector<Kelp::Argument>& arguments);
    /// @}

    /// \name Options and screens
    /// @{

    /// Runs the checks that every constructor ends with: the file check (unless `noFileCheck`), then the help request; then
    /// reads the tokens from `argv` again (if `argc` is above 1), sets verbose mode and checks for unknown flags. A second
    /// call therefore checks the file and the help request on the previous tokens.
    /// \throws std::logic_error, std::out_of_range  as the constructors
    void init(int argc, char** argv, bool noFileCheck);

    /// Adds an option. Ignores it without a message if its short flag is already registered, in any letter case.
    void registerOption(Kelp::Option option);
    /// Adds the options in order.
    void registerOptions(std::vector<Kelp::Option>& newOptions);

    /// Does nothing. Reserved for options that all tools share.
    void addCommonOptions();
    /// Does nothing and leaves both arguments unchanged. Reserved for reading a command line from a file.
    void readArgvFromFile(int& argc, char**& argv);

    /// Returns the program path unchanged if it contains no backslash; otherwise the part after the last backslash, without
    /// a final ".exe" in any letter case.
    ///
    ///     program path              tool name
    ///     "/usr/bin/join"           "/usr/bin/join"
    ///     "C:\\tools\\Join.EXE"     "Join"
    ///
    /// \throws std::out_of_range  if the tool has no name, see the class
    std::string getToolName() const;

    /// Prints the banner: an empty line, a rule, the tool's name, the header, a rule and an empty line. Flushes each.
    /// \throws std::out_of_range  if the tool has no name, see the class
    void printHeader() const;
    /// Prints the help screen, waits half a second and ends the process with exit status 0. The pause leaves the screen
    /// readable in a console that closes with the process. Like std::exit, does not unwind the caller's stack.
    /// \throws std::out_of_range  if the tool has no name, see the class
    [[noreturn]] void help() const;
    /// Prints the banner and the help screen and ends the process as help() does.
    /// \throws std::out_of_range  if the tool has no name, see the class
    [[noreturn]] void printUsage() const;

    /// Replaces the text of the example line.
    void addExampleText(const std::string& text);

    /// Prints `text` and a newline and flushes, in verbose mode only.
    void print(std::string text) const;
    /// @}

    /// \name Checks
    /// Each check returns if it finds nothing wrong. Otherwise it ends the process as printUsage() does.
    /// \throws std::out_of_range  if the tool has no name, see the class
    /// @{

    /// Ends the process if a token is "--help", "-h", "/help", "/h" or "/?", in any letter case. A match at position 0 hides
    /// later ones of the same group: --help and -h, /help and /h, or /?.
    void checkForHelp();
    /// Switches verbose mode on if a token is "--verbose" or "-v", in any letter case. Never switches it off.
    void checkForVerbose();
    /// Ends the process if the first positional argument is missing or is not a readable file.
    void checkMandatoryArgs();
    /// Ends the process at the first flag whose first letter is not that of a registered short flag.
    void checkForInvalidFlags();
    /// @}

    /// \name The command line
    /// @{

    /// Finds an option on the command line.
    /// \param name   the short flag of a registered option, in any letter case; the long form is not accepted
    /// \param start  first position searched
    /// \returns the position of the first token that equals the option's short or long form; 0 if there is none or the
    ///          option is not registered
    int hasOption(std::string name, int start) const;

    /// Returns whether verbose mode is on.
    bool isVerbose() const;

    /// Finds the first positional argument, as Kelp::OptionReader::getFirstArgument does.
    int getFirstArgument(std::string& out, int start) const;
    /// Replaces `out` with the positional arguments at or after `start` (0 means 1). In verbose mode, first prints the trace
    /// line "getFiles()".
    /// \returns the number of arguments
    int getArguments(std::vector<std::string>& out, int start) const;
    /// Does the same for a list, but never prints a trace line.
    int getArguments(std::list<std::string>& out, int start) const;

    /// Returns a copy of the options passed to the full constructor, in the same order; an empty vector if the tool was
    /// built with another constructor.
    std::vector<Kelp::Option> getOptions() const;
    /// @}

    /// \name Output files
    /// @{

    /// Replaces `out` with the values of all occurrences of the option registered as "-o", in command-line order, each
    /// converted to a FilePath. If no such option is registered, prints an error and finds no files.
    /// \param out    the files found
    /// \param start  ignored; the whole command line is searched
    /// \returns the number of files
    /// \throws std::out_of_range  for a name that is a single character other than "/", see FilePath; `out` then holds the
    ///                            files before it
    int getOutFiles(std::vector<FilePath>& out, int start);
    /// Sets `out` to the first output file.
    /// \returns false, leaving `out` unchanged, if there is none
    /// \throws std::out_of_range  as getOutFiles, also for a later name
    bool getOutFile(FilePath& out);
    /// Returns true. Does not check the file or the disk.
    bool checkSpace(const FilePath& file) const;
    /// @}

    /// \name Progress
    /// Shows the face or the bar on the console; see kelplib/KelpProgress.h for both, and for the process-wide display that
    /// all tools of a process share. Several threads may call these two functions on the same tool: a lock keeps each
    /// drawing whole. A program that draws from several tools must provide its own lock.
    /// \throws std::system_error  if the tool's mutex cannot be locked
    /// @{

    /// Sets up the display as the face, or as a bar of 37 characters if MSYSTEM is in the environment, and starts its clock.
    /// Call it once before progress(); another call restarts the display.
    /// \param total       the amount of work
    /// \param text        the label
    /// \param max_length  the maximum length of the label in characters, see KELP_progress_global_set_text
    void initProgress(double total, std::string text, unsigned long long max_length);
    /// Shows that `value` of the total is done. In verbose mode, draws nothing and leaves the label unchanged, so that the
    /// display does not mix with trace lines. After the last call, the bar needs a newline; the face leaves the cursor below
    /// itself.
    /// \param value       the amount done; a negative value ends the process if the bar is drawn, see KELP_progress
    /// \param text        the label
    /// \param max_length  the maximum length of the label in characters, see KELP_progress_global_set_text
    void progress(double value, std::string text, unsigned long long max_length);
    /// @}

private:
    std::map<std::string, Kelp::Option, ci_less> options;
    std::string description;
    std::string usage;
    std::string example;
    std::string header;
    Kelp::OptionReader reader;
    std::size_t optionWidth = 0;
    std::mutex progressMutex;
    std::vector<Kelp::Option> optionList;
    std::vector<Kelp::Argument> argumentList;
};

/// Returns the path of the main application's tools_configuration.txt, derived from PATH: the last entry that contains
/// "tarn" in lower case, without its last 10 characters (a shorter entry stays whole), followed by the file's place in the
/// installation.
///
///     PATH    "/usr/bin;/opt/tarn/1.0/tools/bin/"
///     result  "/opt/tarn/1.0/cove//skein//SkeinStore//kelplib//tools_configuration.txt"
///
/// Entries are separated by ";" on every system. Prints every matching entry on standard output, or a message if there is
/// none or PATH is not set. Does not check that the file exists. May be called from any thread while no thread changes the
/// environment.
/// \returns the path; an empty text if no entry matches or PATH is not set
/// \throws std::bad_alloc, std::length_error
KELP_API std::string getFilePath();

#endif
