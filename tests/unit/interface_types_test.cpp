// The type of every public function and member, typed out. After a const, a reference or a static is added or removed, calls
// still compile, but tools that were linked before or that take a function's address break. This file then fails to compile.
#include <kelplib/CommandLineTool.h>
#include <kelplib/KelpProgress.h>

#include <cstddef>
#include <type_traits>

namespace {

using Kelp::Argument;
using Kelp::Option;
using Kelp::OptionReader;
using Kelp::StringDouble;
using String = std::string;
using Strings = std::vector<std::string>;
using Options = std::vector<Option>;
using Arguments = std::vector<Argument>;

/// Selects the overload of exactly this type. Without one the call does not compile.
template <class Type>
constexpr bool has(Type /*function*/) {
    return true;
}

template <class T, class... Parameters>
constexpr bool constructs = std::is_constructible_v<T, Parameters...>;

/// A class that can be copied, moved and assigned, without virtual functions.
template <class T>
constexpr bool isPlainValue = std::is_copy_constructible_v<T>&& std::is_nothrow_move_constructible_v<T>&&
                                  std::is_copy_assignable_v<T>&& std::is_nothrow_move_assignable_v<T> &&
                              !std::is_polymorphic_v<T>;

// Option and Argument
static_assert(isPlainValue<Option> && isPlainValue<Argument>);
static_assert(constructs<Option, String, String, String, bool>);
static_assert(constructs<Option, const char*, const char*, const char*, bool>);
static_assert(constructs<Argument, String, String, bool> && constructs<Argument, const char*, const char*, bool>);
static_assert(!std::is_default_constructible_v<Option> && !std::is_default_constructible_v<Argument>);
static_assert(has<void (Option::*)(std::size_t, std::size_t) const>(&Option::printIndented));
static_assert(has<void (Argument::*)(std::size_t, std::size_t) const>(&Argument::printIndented));
static_assert(has<String Option::*>(&Option::shortFlag) && has<String Option::*>(&Option::longFlag));
static_assert(has<String Option::*>(&Option::description) && has<bool Option::*>(&Option::marker));
static_assert(offsetof(Option, shortFlag) < offsetof(Option, longFlag));
static_assert(offsetof(Option, longFlag) < offsetof(Option, description));
static_assert(offsetof(Option, description) < offsetof(Option, marker));
static_assert(has<String Argument::*>(&Argument::name) && has<String Argument::*>(&Argument::description));
static_assert(has<bool Argument::*>(&Argument::repeated));
static_assert(offsetof(Argument, name) < offsetof(Argument, description));
static_assert(offsetof(Argument, description) < offsetof(Argument, repeated));

static_assert(std::is_empty_v<ci_less>);
static_assert(has<bool (ci_less::*)(const String&, const String&) const>(&ci_less::operator()));

// OptionReader
static_assert(isPlainValue<OptionReader>);
static_assert(constructs<OptionReader, int, char**> && !constructs<OptionReader, int, const char**>);
static_assert(has<int (OptionReader::*)(String, String, int) const>(&OptionReader::hasOption));
static_assert(has<int (OptionReader::*)(const Option&, int) const>(&OptionReader::hasOption));
static_assert(has<int (OptionReader::*)(String, String, String&, int)>(&OptionReader::getValue<String>));
static_assert(has<int (OptionReader::*)(String, String, double&, int)>(&OptionReader::getValue<double>));
static_assert(has<int (OptionReader::*)(const char*, const char*, int&, int)>(&OptionReader::getValue<int>));
static_assert(has<int (OptionReader::*)(String&, int) const>(&OptionReader::getFirstArgument));
static_assert(has<bool (OptionReader::*)(Strings&, int) const>(&OptionReader::getArguments));
static_assert(has<void (OptionReader::*)(Strings&)>(&OptionReader::getOptions));
static_assert(has<bool (OptionReader::*)(String&, int)>(&OptionReader::checkFiles));
static_assert(has<void (OptionReader::*)(bool)>(&OptionReader::setVerbose));
static_assert(has<bool (OptionReader::*)() const>(&OptionReader::getVerbose));
static_assert(has<String (OptionReader::*)() const>(&OptionReader::getNameTool));

// CommandLineTool. Its vectors are passed by non-const reference.
using Tool = CommandLineTool;
static_assert(!std::is_polymorphic_v<Tool> && !std::is_copy_constructible_v<Tool>);
static_assert(constructs<Tool, int, char**, String> && constructs<Tool, int, char**, String, const Option&>);
static_assert(constructs<Tool, int, char**, String, const Option&, const Option&>);
static_assert(constructs<Tool, int, char**, String, Options&> && !constructs<Tool, int, char**, String, Options>);
static_assert(constructs<Tool, int, char**, String, String, String, String, Options&, Arguments&>);
static_assert(!constructs<Tool, int, char**, String, String, String, String, Options, Arguments&>);
static_assert(!constructs<Tool, int, char**, String, String, String, String, Options&, Arguments>);
static_assert(has<void (Tool::*)(int, char**, bool)>(&Tool::init));
static_assert(has<void (Tool::*)(Option)>(&Tool::registerOption));
static_assert(has<void (Tool::*)(Options&)>(&Tool::registerOptions));
static_assert(has<void (Tool::*)()>(&Tool::addCommonOptions));
static_assert(has<void (Tool::*)(int&, char**&)>(&Tool::readArgvFromFile));
static_assert(has<String (Tool::*)() const>(&Tool::getToolName));
static_assert(has<void (Tool::*)() const>(&Tool::printHeader) && has<void (Tool::*)() const>(&Tool::help));
static_assert(has<void (Tool::*)() const>(&Tool::printUsage));
static_assert(has<void (Tool::*)(const String&)>(&Tool::addExampleText));
static_assert(has<void (Tool::*)(String) const>(&Tool::print));
static_assert(has<void (Tool::*)()>(&Tool::checkForHelp) && has<void (Tool::*)()>(&Tool::checkForVerbose));
static_assert(has<void (Tool::*)()>(&Tool::checkMandatoryArgs) && has<void (Tool::*)()>(&Tool::checkForInvalidFlags));
static_assert(has<int (Tool::*)(String, int) const>(&Tool::hasOption));
static_assert(has<bool (Tool::*)() const>(&Tool::isVerbose));
static_assert(has<int (Tool::*)(String&, int) const>(&Tool::getFirstArgument));
static_assert(has<int (Tool::*)(Strings&, int) const>(&Tool::getArguments));
static_assert(has<int (Tool::*)(std::list<String>&, int) const>(&Tool::getArguments));
static_assert(has<Options (Tool::*)() const>(&Tool::getOptions));
static_assert(has<int (Tool::*)(std::vector<FilePath>&, int)>(&Tool::getOutFiles));
static_assert(has<bool (Tool::*)(FilePath&)>(&Tool::getOutFile));
static_assert(has<bool (Tool::*)(const FilePath&) const>(&Tool::checkSpace));
static_assert(has<void (Tool::*)(double, String, unsigned long long)>(&Tool::initProgress));
static_assert(has<void (Tool::*)(double, String, unsigned long long)>(&Tool::progress));
static_assert(has<String (*)()>(&getFilePath));

// Text to values
static_assert(isPlainValue<StringDouble> && std::is_aggregate_v<StringDouble>);
static_assert(has<String StringDouble::*>(&StringDouble::label) && has<double StringDouble::*>(&StringDouble::value));
static_assert(offsetof(StringDouble, label) < offsetof(StringDouble, value));

template <class T>
constexpr bool isRead = has<void (*)(T&, String)>(&Kelp::stringToValue);

static_assert(isRead<String> && isRead<bool> && isRead<char> && isRead<int>);
static_assert(isRead<unsigned short> && isRead<unsigned int> && isRead<unsigned long long>);
static_assert(isRead<double> && isRead<float> && isRead<StringDouble> && isRead<std::filesystem::path>);
static_assert(isRead<Strings> && isRead<std::set<String>> && isRead<std::set<int>> && isRead<std::set<double>>);
static_assert(isRead<std::vector<int>> && isRead<std::vector<double>>);
static_assert(isRead<std::tuple<unsigned int, unsigned int>>);
static_assert(isRead<std::tuple<unsigned int, unsigned int, unsigned int>>);
static_assert(isRead<std::tuple<float, float>> && isRead<std::tuple<double, double>>);

// Values to text
template <class T>
constexpr bool isWritten = has<String (*)(const T&)>(&std::to_string);

static_assert(isWritten<Option> && isWritten<StringDouble> && isWritten<std::vector<double>>);
static_assert(isWritten<Strings> && isWritten<String> && isWritten<std::tuple<double, double>>);
static_assert(has<String (*)(const String&, const int&)>(&getColoredString));

// String helpers
static_assert(has<Strings (*)(const String&, char)>(&Kelp::split));
static_assert(has<Strings (*)(const String&, const String&)>(&Kelp::Tokenize));
static_assert(has<String (*)(String, char)>(&Kelp::getFirstToken));
static_assert(has<String (*)(String)>(&Kelp::toLower));
static_assert(has<String (*)(String, String)>(&Kelp::replaceToFileExtension));
static_assert(has<String (*)(String)>(&Kelp::replaceToQ6Extension));
static_assert(has<String (*)(unsigned long long, String, unsigned int)>(&Kelp::createFragmentName));

// Flags without a tool object, verbosity and waiting
static_assert(has<int (*)(int, char**, String, int)>(&Kelp::getNextFlag));
static_assert(has<bool (*)(int, char**)>(&Kelp::getHelpFlag));
static_assert(has<int (*)(int, char**, String, String&, int)>(&Kelp::getStringFlag));
static_assert(has<int (*)(int, char**, String, Strings&)>(&Kelp::getMultiStringFlag));
static_assert(has<int (*)(int, char**, String, int&, int)>(&Kelp::getIntFlag));
static_assert(has<int (*)(int, char**, std::array<double, 2>&)>(&Kelp::getTimeRangeFlag));
static_assert(has<int (*)(int, char**, std::array<int, 2>&)>(&Kelp::getStepRangeFlag));
static_assert(has<String (*)(int, char**)>(&Kelp::getFirstFileName));
static_assert(has<Strings (*)(int, char**)>(&Kelp::getAllArguments));
static_assert(has<int (*)()>(&Kelp::verbosity) && has<void (*)(unsigned int, String)>(&Kelp::waitOrPressKey));

// FilePath
static_assert(isPlainValue<FilePath> && sizeof(FilePath) == 2 * sizeof(String));
static_assert(std::is_default_constructible_v<FilePath> && std::is_convertible_v<const String&, FilePath>);
static_assert(has<void (FilePath::*)(const String&, char)>(&FilePath::fromString));
static_assert(has<void (FilePath::*)(const String&)>(&FilePath::fromNameInCurrentDir));
static_assert(has<String (FilePath::*)() const>(&FilePath::getDelim));
static_assert(has<String (FilePath::*)() const>(&FilePath::filePath));
static_assert(has<String (FilePath::*)() const>(&FilePath::getPath));
static_assert(has<String (FilePath::*)() const>(&FilePath::getName));
static_assert(has<String (FilePath::*)() const>(&FilePath::prefix));
static_assert(has<String (FilePath::*)() const>(&FilePath::extension));
static_assert(has<void (FilePath::*)(const String&)>(&FilePath::setName));
static_assert(has<bool (FilePath::*)(const String&)>(&FilePath::setPath));
static_assert(has<String (*)()>(&FilePath::getCurrentDir));
static_assert(has<bool (*)(const String&)>(&FilePath::isAbsoluteFilePath));

// The process-wide display
using Display = KELP_GlobalProgressData;
static_assert(std::is_same_v<decltype(KELP_GlobalProgress), Display> && std::is_standard_layout_v<Display>);
static_assert(has<double Display::*>(&Display::total) && has<int Display::*>(&Display::width));
static_assert(has<char (Display::*)[128]>(&Display::text) && has<double Display::*>(&Display::start_time));
static_assert(has<double Display::*>(&Display::last_blink) && has<int Display::*>(&Display::smile));
static_assert(has<const char * Display::*>(&Display::terminal_env));
static_assert(offsetof(Display, total) == 0 && offsetof(Display, width) == 8 && offsetof(Display, text) == 12);
static_assert(offsetof(Display, start_time) == 144 && offsetof(Display, last_blink) == 152);
static_assert(offsetof(Display, smile) == 160 && offsetof(Display, terminal_env) == 168);

// The flat interface; consumer/flat.c declares the same to a C compiler.
static_assert(has<int (*)(double, double, int, const char*, double)>(&KELP_progress));
static_assert(has<double (*)()>(&KELP_time_stamp) && has<void (*)(unsigned int)>(&KELP_sleep));
static_assert(has<int (*)(unsigned int)>(&KELP_rewind_cursor));
static_assert(has<int (*)(double, int, const char*, int)>(&KELP_progress_global_init));
static_assert(has<void (*)(const char*, std::size_t)>(&KELP_progress_global_set_text));
static_assert(has<int (*)(double)>(&KELP_progress_global) && has<int (*)(double)>(&KELP_progress_smile));

}  // namespace
