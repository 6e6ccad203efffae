// The observer: a library that kelp-check has loaded into a tool (LD_PRELOAD). Its functions have the names of kelplib's
// constructors and queries, so that the tool calls them; they report the call and pass it on. They hand on the addresses of texts
// and records that they receive by value, as the ABI of these systems passes them.

#include <kelplib/FilePath.h>
#include <kelplib/Kelp.h>

#include <cstdint>

#include "observer_events.h"

namespace {

using namespace Kelpkit::programs::observer;

std::string nameOf(const void* object) {
    return std::to_string(reinterpret_cast<std::uintptr_t>(object));
}

std::string optionText(const std::string& object, const Kelp::Option& option) {
    return textOf(
        {"option", object, option.shortFlag, option.longFlag, option.description, option.marker ? "marked" : "not"});
}

std::string toolText(const void* object, std::string_view constructor, int argc, char** argv) {
    return textOf({"tool", nameOf(object), constructor, ownerOf(argc, argv)});
}

std::string optionTexts(const void* object, const std::vector<Kelp::Option>& options) {
    const std::string name = nameOf(object);
    std::string text;
    for (const Kelp::Option& option : options) {
        text += optionText(name, option);
    }
    return text;
}

void addLate(const void* object, const Kelp::Option& option) {
    add({"late", nameOf(object), option.shortFlag, option.longFlag, option.description});
}

template <class Function>
Function* nextAs(void* function) {
    return reinterpret_cast<Function*>(function);
}

}  // namespace

/// The library's class without its data: the members here have the names of the library's.
class KELP_API CommandLineTool {
public:
    CommandLineTool(int argc, char** argv, std::string description);
    CommandLineTool(int argc, char** argv, std::string description, const Kelp::Option& option);
    CommandLineTool(int argc, char** argv, std::string description, const Kelp::Option& first,
                    const Kelp::Option& second);
    CommandLineTool(int argc, char** argv, std::string description, std::vector<Kelp::Option>& options);
    CommandLineTool(int argc, char** argv, std::string description, std::string usage, std::string example,
                    std::string header, std::vector<Kelp::Option>& options, std::vector<Kelp::Argument>& arguments);
    void registerOption(Kelp::Option option);
    void registerOptions(std::vector<Kelp::Option>& newOptions);
    int hasOption(std::string name, int start) const;
    void print(std::string text) const;
    bool isVerbose() const;
    int getOutFiles(std::vector<FilePath>& out, int start);
    bool getOutFile(FilePath& out);
};

CommandLineTool::CommandLineTool(int argc, char** argv, std::string description) {
    auto* const library = nextAs<void(void*, int, char**, std::string*)>(next());
    addTool(toolText(this, "short", argc, argv));
    library(this, argc, argv, &description);
}

CommandLineTool::CommandLineTool(int argc, char** argv, std::string description, const Kelp::Option& option) {
    auto* const library = nextAs<void(void*, int, char**, std::string*, const Kelp::Option&)>(next());
    addTool(toolText(this, "short", argc, argv) + optionText(nameOf(this), option));
    library(this, argc, argv, &description, option);
}

CommandLineTool::CommandLineTool(int argc, char** argv, std::string description, const Kelp::Option& first,
                                 const Kelp::Option& second) {
    auto* const library =
        nextAs<void(void*, int, char**, std::string*, const Kelp::Option&, const Kelp::Option&)>(next());
    addTool(toolText(this, "short", argc, argv) + optionText(nameOf(this), first) + optionText(nameOf(this), second));
    library(this, argc, argv, &description, first, second);
}

CommandLineTool::CommandLineTool(int argc, char** argv, std::string description, std::vector<Kelp::Option>& options) {
    auto* const library = nextAs<void(void*, int, char**, std::string*, std::vector<Kelp::Option>&)>(next());
    addTool(toolText(this, "short", argc, argv) + optionTexts(this, options));
    library(this, argc, argv, &description, options);
}

CommandLineTool::CommandLineTool(int argc, char** argv, std::string description, std::string usage, std::string example,
                                 std::string header, std::vector<Kelp::Option>& options,
                                 std::vector<Kelp::Argument>& arguments) {
    auto* const library = nextAs<void(void*, int, char**, std::string*, std::string*, std::string*, std::string*,
                                      std::vector<Kelp::Option>&, std::vector<Kelp::Argument>&)>(next());
    std::string text = toolText(this, "full", argc, argv) + optionTexts(this, options);
    for (const Kelp::Argument& argument : arguments) {
        text += textOf(
            {"argument", nameOf(this), argument.name, argument.description, argument.repeated ? "repeated" : "once"});
    }
    addTool(text);
    library(this, argc, argv, &description, &usage, &example, &header, options, arguments);
}

void CommandLineTool::registerOption(Kelp::Option option) {
    void* const function = next();
    if (!isInner(__builtin_return_address(0), function)) {
        addLate(this, option);
    }
    nextAs<void(void*, Kelp::Option*)>(function)(this, &option);
}

void CommandLineTool::registerOptions(std::vector<Kelp::Option>& newOptions) {
    void* const function = next();
    if (!isInner(__builtin_return_address(0), function)) {
        for (const Kelp::Option& option : newOptions) {
            addLate(this, option);
        }
    }
    nextAs<void(void*, std::vector<Kelp::Option>&)>(function)(this, newOptions);
}

int CommandLineTool::hasOption(std::string name, int start) const {
    add({"asks", nameOf(this), name});
    return nextAs<int(const void*, std::string*, int)>(next())(this, &name, start);
}

void CommandLineTool::print(std::string text) const {
    add({"verbose", nameOf(this)});
    nextAs<void(const void*, std::string*)>(next())(this, &text);
}

bool CommandLineTool::isVerbose() const {
    add({"verbose", nameOf(this)});
    return nextAs<bool(const void*)>(next())(this);
}

int CommandLineTool::getOutFiles(std::vector<FilePath>& out, int start) {
    add({"output", nameOf(this)});
    return nextAs<int(void*, std::vector<FilePath>&, int)>(next())(this, out, start);
}

bool CommandLineTool::getOutFile(FilePath& out) {
    add({"output", nameOf(this)});
    return nextAs<bool(void*, FilePath&)>(next())(this, out);
}

int Kelp::OptionReader::hasOption(std::string shortFlag, std::string longFlag, int start) const {
    void* const function = next();
    if (!isInner(__builtin_return_address(0), function)) {
        addQuery(this, {"token", shortFlag, longFlag});
    }
    return nextAs<int(const void*, std::string*, std::string*, int)>(function)(this, &shortFlag, &longFlag, start);
}

int Kelp::OptionReader::hasOption(const Option& option, int start) const {
    void* const function = next();
    if (!isInner(__builtin_return_address(0), function)) {
        addQuery(this, {"token", option.shortFlag, option.longFlag});
    }
    return nextAs<int(const void*, const Option&, int)>(function)(this, option, start);
}

int Kelp::OptionReader::findValue(const char* shortFlag, const char* longFlag, std::string& text, int start) const {
    addQuery(this, {"value", shortFlag == nullptr ? "" : shortFlag, longFlag == nullptr ? "" : longFlag});
    return nextAs<int(const void*, const char*, const char*, std::string&, int)>(next())(this, shortFlag, longFlag,
                                                                                         text, start);
}
