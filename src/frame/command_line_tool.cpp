#include <kelplib/CommandLineTool.h>

#include <algorithm>
#include <utility>

namespace {

/// The banner's line under the tool's name, for tools that bring none of their own.
constexpr char copyrightLine[] = "     Copyright (c) 2026 The kelplib authors, MIT licence";
static_assert(sizeof copyrightLine - 1 == 56, "the banner is laid out for a line of 56 characters");

/// The short constructors skip the file check, the full one makes it.
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

/// What init does, on a reader that has just been built from the same argv and need not be built again.
void startUp(CommandLineTool& tool, bool noFileCheck) {
    checkFileAndHelp(tool, noFileCheck);
    checkFlags(tool);
}

}  // namespace

CommandLineTool::CommandLineTool(int argc, char** argv, std::string about)
    : description(std::move(about)), header(copyrightLine), reader(argc, argv) {
    startUp(*this, withoutFileCheck);
}

CommandLineTool::CommandLineTool(int argc, char** argv, std::string about, const Kelp::Option& option)
    : description(std::move(about)), header(copyrightLine), reader(argc, argv) {
    registerOption(option);
    startUp(*this, withoutFileCheck);
}

CommandLineTool::CommandLineTool(int argc, char** argv, std::string about, const Kelp::Option& first,
                                 const Kelp::Option& second)
    : description(std::move(about)), header(copyrightLine), reader(argc, argv) {
    registerOption(first);
    registerOption(second);
    startUp(*this, withoutFileCheck);
}

CommandLineTool::CommandLineTool(int argc, char** argv, std::string about, std::vector<Kelp::Option>& accepted)
    : description(std::move(about)), header(copyrightLine), reader(argc, argv) {
    registerOptions(accepted);
    startUp(*this, withoutFileCheck);
}

CommandLineTool::CommandLineTool(int argc, char** argv, std::string about, std::string usageText,
                                 std::string exampleText, std::string bannerLine, std::vector<Kelp::Option>& accepted,
                                 std::vector<Kelp::Argument>& arguments)
    : description(std::move(about)),
      usage(std::move(usageText)),
      example(std::move(exampleText)),
      header(std::move(bannerLine)),
      reader(argc, argv),
      optionList(accepted),
      argumentList(arguments) {
    registerOptions(accepted);
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
    // Made before the option is moved from: the key is the first thing in the map's entry.
    options.try_emplace(option.shortFlag, std::move(option));
}

void CommandLineTool::registerOptions(std::vector<Kelp::Option>& accepted) {
    for (const Kelp::Option& option : accepted) {
        optionWidth = std::max(optionWidth, option.longFlag.size());
        options.try_emplace(option.shortFlag, option);
    }
    for (const Kelp::Argument& argument : argumentList) {
        optionWidth = std::max(optionWidth, argument.name.size());
    }
}

void CommandLineTool::addCommonOptions() {}

void CommandLineTool::readArgvFromFile(int& /*argc*/, char**& /*argv*/) {}
