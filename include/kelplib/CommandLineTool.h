#ifndef KELPLIB_COMMANDLINETOOL_H
#define KELPLIB_COMMANDLINETOOL_H

/// \file
/// The front end of a console tool: one object, built from argc and argv, that has checked the command line by the time
/// its constructor returns.

#include <kelplib/Export.h>
#include <kelplib/FilePath.h>
#include <kelplib/Kelp.h>

#include <cstddef>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <vector>

/// A tool's command line, options, arguments, banner and help screen.
///
/// A constructor that returns leaves a tool whose command line is acceptable. A help request ("--help", "-h", "/help",
/// "/h", "/?"), an unknown flag and, with the full constructor, a missing input file end the process instead: the banner
/// and the help screen are printed on standard output and the exit status is 0, whatever the reason.
///
/// Flags are told apart by their first letter alone: with "-o" registered, --output, --oops and -o=x are all accepted.
/// "-v" and "-h" are flags like any other in this check; a tool that wants "-v" registers it. hasOption() and the help and
/// verbose requests compare whole tokens: --oops is accepted and is no --output.
///
/// Values are read with a Kelp::OptionReader of the tool's own.
///
/// A program path with a backslash whose last part has fewer than four characters has no tool name: whatever prints the
/// banner or the help screen then throws std::out_of_range, the constructors included.
///
/// Use a tool from one thread, initProgress() and progress() apart. Besides what a comment names, members throw only
/// std::bad_alloc and std::length_error.
class KELP_API CommandLineTool {
public:
    /// \name Construction
    /// All texts and records are copied; the vectors have to be variables and are only read. The short forms demand no
    /// input file, make the usage line themselves, and put kelplib's copyright line into the banner. The full one demands,
    /// even with no arguments described, that the first positional argument names a readable file ("." and texts with "*"
    /// pass unopened), and looks for it before it looks for a help request.
    /// \throws std::logic_error   for a null element of argv, see Kelp::OptionReader
    /// \throws std::out_of_range  see the class
    /// @{

    /// A tool without options.
    CommandLineTool(int argc, char** argv, std::string description);
    /// A tool with one option.
    CommandLineTool(int argc, char** argv, std::string description, const Kelp::Option& option);
    /// A tool with two options; on equal short flags the first one is kept.
    CommandLineTool(int argc, char** argv, std::string description, const Kelp::Option& first,
                    const Kelp::Option& second);
    /// A tool with any number of options.
    CommandLineTool(int argc, char** argv, std::string description, std::vector<Kelp::Option>& options);
    /// A tool with everything.
    /// \param usage    what follows the tool's name in the usage line; empty: "[OPTIONS]" and the argument names
    /// \param example  what follows the tool's name in the example line
    /// \param header   the banner's line under the tool's name
    CommandLineTool(int argc, char** argv, std::string description, std::string usage, std::string example,
                    std::string header, std::vector<Kelp::Option>& options, std::vector<Kelp::Argument>& arguments);
    /// @}

    /// The start-up sequence that every constructor ends in. In this order: the file check (unless `noFileCheck`), the
    /// help request, then the tokens are read anew from `argv` (when `argc` is above 1), then verbose mode and the unknown
    /// flags. So a second call looks for the file and the help request on the tokens that are there already.
    /// \throws as the constructors
    void init(int argc, char** argv, bool noFileCheck);

    /// Adds one option. The first registration of a short flag wins, whatever its letter case; later ones are dropped
    /// without a message.
    void registerOption(Kelp::Option option);
    /// Adds the options in order.
    void registerOptions(std::vector<Kelp::Option>& options);

    /// Does nothing: the place for options that all tools share.
    void addCommonOptions();
    /// Does nothing and changes neither argument: the place for reading a command line from a file.
    void readArgvFromFile(int& argc, char**& argv);

    /// The program path as it stands when it holds no backslash. Otherwise what follows the last one, without ".exe" (in
    /// any case) at its end.
    /// \throws std::out_of_range  see the class
    std::string getToolName() const;

    /// Prints the banner, six lines, each flushed: an empty one, a rule, the tool's name, the header, a rule, an empty one.
    /// \throws std::out_of_range  see the class
    void printHeader() const;
    /// Prints the help screen, waits half a second so that a console that closes at once still shows it, and ends the
    /// process with exit status 0 (as std::exit does: the caller's stack is not unwound).
    /// \throws std::out_of_range  see the class
    [[noreturn]] void help() const;
    /// Prints the banner and the help screen and ends the process as help() does.
    /// \throws std::out_of_range  see the class
    [[noreturn]] void printUsage() const;

    /// Replaces the example text.
    void addExampleText(const std::string& text);

    /// In verbose mode, prints the text and a line end and flushes; otherwise nothing.
    void print(std::string text) const;

    /// \name Checks
    /// Each returns only when there is nothing to object to; otherwise it ends the process through the help screen.
    /// \throws std::out_of_range  see the class
    /// @{

    /// Ends the process when help is asked for. Help is asked for by whole tokens, in any letter case. A match that stands
    /// at position 0 hides the later ones of its pair.
    void checkForHelp();
    /// Switches verbose mode on when "--verbose" or "-v" is on the command line; never off.
    void checkForVerbose();
    /// Ends the process when the first positional argument is missing or names no readable file.
    void checkMandatoryArgs();
    /// Ends the process at the first token that begins with "-" and whose first letter no registered option has.
    void checkForInvalidFlags();
    /// @}

    /// The position of an option on the command line.
    /// \param name   the short flag under which the option is registered, in any letter case; its long form is none
    /// \param start  first position looked at
    /// \returns the position of the first token that equals one of the option's two forms; 0 when there is none, or when
    ///          no such option is registered
    int hasOption(std::string name, int start) const;

    /// Whether verbose mode is on.
    bool isVerbose() const;

    /// As Kelp::OptionReader::getFirstArgument.
    int getFirstArgument(std::string& out, int start) const;
    /// Replaces `out` by the positional arguments at or after `start` (0 means 1). In verbose mode the trace line
    /// "getFiles()" is printed first; the list form prints nothing.
    /// \returns their number
    int getArguments(std::vector<std::string>& out, int start) const;
    /// The same into a list, without a trace line.
    int getArguments(std::list<std::string>& out, int start) const;

    /// A copy of the options given to the full constructor, in their order; empty for tools built otherwise.
    std::vector<Kelp::Option> getOptions() const;

    /// \name Output files
    /// @{

    /// Replaces `out` by the values of every occurrence of the option registered under "-o", in command-line order, each
    /// made a path. Without such an option an error line is printed and there are none.
    /// \param start  has no effect; the whole command line is looked at
    /// \returns their number
    /// \throws std::out_of_range  for a name of one character other than "/", see FilePath; `out` holds those before it
    int getOutFiles(std::vector<FilePath>& out, int start);
    /// Sets `out` to the first output file.
    /// \returns false, with `out` unchanged, when there is none
    /// \throws std::out_of_range  as getOutFiles
    bool getOutFile(FilePath& out);
    /// Always true: nobody looks at the file or the disk.
    bool checkSpace(const FilePath& file) const;
    /// @}

    /// \name Progress
    /// The tool's face or bar on the console; see kelplib/KelpProgress.h for both and for the process-wide display that all
    /// tools of a process share. Several threads may call these two on one tool: each drawing happens whole. Two tools need
    /// a lock of the program's own.
    /// \throws std::system_error  when the tool's mutex cannot be locked
    /// @{

    /// Sets the display up, with the face (with MSYSTEM in the environment: with a bar of 37 characters), and starts its
    /// clock. Call it once before progress(); again, it begins anew.
    /// \param total       the amount of work
    /// \param text        the label
    /// \param max_length  the label's room in characters, see KELP_progress_global_set_text
    void initProgress(double total, std::string text, unsigned long long max_length);
    /// Shows that `value` of the total is done; a negative one ends the process where the bar is drawn, see KELP_progress.
    /// In verbose mode nothing is drawn, and the label stays, so that the display does not mix with trace lines. After the
    /// last call the bar needs a line end; the finished face has the cursor below it.
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

/// The path of the main application's tools_configuration.txt, found through PATH: the last entry (they are parted by ";" on
/// every system) with "tarn" in it, in lower case, less its last 10 characters, and the configuration's place below that.
/// Every such entry is told on standard output, and so is that there is none, or no PATH. Nobody looks whether the file is
/// there. May be called from any thread while none changes the environment.
/// \returns the path; empty when there is no such entry
/// \throws std::bad_alloc, std::length_error
KELP_API std::string getFilePath();

#endif
