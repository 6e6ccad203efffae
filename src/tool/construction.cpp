#include <kelplib/CommandLineTool.h>

#include <algorithm>
#include <utility>

namespace {

/// The banner's line under the tool's name, for tools that do not give one.
constexpr char copyrightLine[] = "     Copyright (c) 2026 The kelplib authors, MIT licence";
static_assert(sizeof copyrightLine - 1 == 56, "the banner is laid out for a line of 56 characters");

/// Only the full constructor checks the input file.
constexpr bool withoutFileCheck = true;
constexpr bool withFileCheck = false;

void checkFileAndHelp(CommandLineTool& tool, bool noFileCheck) {
    if (!noFileCheck) {
        tool.checkMandatoryArgs();
    }
    tool.checkForHelp();
}

void checkFlags(CommandLineTool& tool) {
    tool.checkForVerbose();
    tool.checkForInvalidFlags();
}

/// What init() does, with a reader that already holds the tokens.
void startUp(CommandLineTool& tool, bool noFileCheck) {
    checkFileAndHelp(tool, noFileCheck);
    checkFlags(tool);
}

}  // namespace

CommandLineTool::CommandLineTool(int argc, char** argv, std::string description)
    : description(std::move(description)), header(copyrightLine), reader(argc, argv) {
    startUp(*this, withoutFileCheck);
}

CommandLineTool::CommandLineTool(int argc, char** argv, std::string description, const Kelp::Option& option)
    : description(std::move(description)), header(copyrightLine), reader(argc, argv) {
    registerOption(option);
    startUp(*this, withoutFileCheck);
}

CommandLineTool::CommandLineTool(int argc, char** argv, std::string description, const Kelp::Option& first,
                                 const Kelp::Option& second)
    : description(std::move(description)), header(copyrightLine), reader(argc, argv) {
    registerOption(first);
    registerOption(second);
    startUp(*this, withoutFileCheck);
}

CommandLineTool::CommandLineTool(int argc, char** argv, std::string description, std::vector<Kelp::Option>& options)
    : description(std::move(description)), header(copyrightLine), reader(argc, argv) {
    registerOptions(options);
    startUp(*this, withoutFileCheck);
}

CommandLineTool::CommandLineTool(int argc, char** argv, std::string description, std::string usage, std::string example,
                                 std::string header, std::vector<Kelp::Option>& options,
                                 std::vector<Kelp::Argument>& arguments)
    : description(std::move(description)),
      usage(std::move(usage)),
      example(std::move(example)),
      header(std::move(header)),
      reader(argc, argv),
      optionList(options),
      argumentList(arguments) {
    registerOptions(options);
    startUp(*this, withFileCheck);
}

void CommandLineTool::init(int argc, char** argv, bool noFileCheck) {
    checkFileAndHelp(*this, noFileCheck);
    if (argc > 1) {
        reader = Kelp::OptionReader(argc, argv);
    }
    checkFlags(*this);
}

void CommandLineTool::registerOption(Kelp::Option option) {
    optionWidth = std::max(optionWidth, option.longFlag.size());
    // The key is copied before the option is moved: it is the first member of the map's entry.
    options.try_emplace(option.shortFlag, std::move(option));
}

void CommandLineTool::registerOptions(std::vector<Kelp::Option>& newOptions) {
    for (const Kelp::Option& option : newOptions) {
        optionWidth = std::max(optionWidth, option.longFlag.size());
        options.try_emplace(option.shortFlag, option);
    }
    for (const Kelp::Argument& argument : argumentList) {
        optionWidth = std::max(optionWidth, argument.name.size());
    }
}

void CommandLineTool::addCommonOptions() {}

void CommandLineTool::readArgvFromFile(int& /*argc*/, char**& /*argv*/) {}
