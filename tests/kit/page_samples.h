#ifndef KELPKIT_TESTS_PAGE_SAMPLES_H
#define KELPKIT_TESTS_PAGE_SAMPLES_H

#include <kelpkit/Definition.h>

#include <string>
#include <utility>

// The samples of docs/kit-rules.md that need no run, as code and as its text.

namespace page_samples {

using Kelpkit::Definition;
using Kelpkit::isSwitch;
using Kelpkit::takesValue;

#define CODE(...) #__VA_ARGS__, [](Definition & tool) { __VA_ARGS__; }
#define TEXT_AND_VALUE(...) #__VA_ARGS__, __VA_ARGS__

inline const std::pair<std::string, Definition> pageTool{
    TEXT_AND_VALUE(Definition{"commonlines",
                              "Shows the lines that two texts have in common.",
                              {{"-n", "--number", "how many lines to show", takesValue},
                               {"-o", "--output", "write to this file", takesValue},
                               {"-h", "--help", "show this help", isSwitch}},
                              {{"FILE", "a text", false}, {"OTHER", "another text", false}},
                              "-n=3 a.txt b.txt"})};

struct PageSample {
    const char* rule;
    const char* sampleText;
    void (*sample)(Definition& tool);
    const char* neighbourText;
    void (*neighbour)(Definition& tool);
};

inline const PageSample pageSamples[] = {
    {"same-letter", CODE(tool.options.emplace_back("-N", "--name", "a name", isSwitch)),
     CODE(tool.options.emplace_back("-m", "--mode", "a mode", isSwitch))},
    {"short-form", CODE(tool.options.emplace_back("e", "--exact", "exactly", isSwitch)),
     CODE(tool.options.emplace_back("-e", "--exact", "exactly", isSwitch))},
    {"long-letter", CODE(tool.options.emplace_back("-x", "--exact", "exactly", isSwitch)),
     CODE(tool.options.emplace_back("-E", "--exact", "exactly", isSwitch))},
    {"long-form", CODE(tool.options.emplace_back("-e", "--exact match", "exactly", isSwitch)),
     CODE(tool.options.emplace_back("-e", "--exact-match", "exactly", isSwitch))},
    {"empty-long", CODE(tool.options.emplace_back("-e", "", "exactly", isSwitch)),
     CODE(tool.options.emplace_back("-e", "--e", "exactly", isSwitch))},
    {"help-taken", CODE(tool.options[2] = {"-h", "--height", "how many rows", takesValue}),
     CODE(tool.options[2] = {"-H", "--HELP", "show this help", isSwitch})},
    {"no-help", CODE(tool.options.erase(tool.options.begin() + 2)), CODE(tool.options.erase(tool.options.begin() + 1))},
    {"verbose-taken", CODE(tool.options.emplace_back("-v", "--vertical", "in columns", isSwitch)),
     CODE(tool.options.emplace_back("-v", "--verbose", "print each step", isSwitch))},
    {"version-letter", CODE(tool.options.emplace_back("-V", "--version", "print the version", isSwitch)),
     CODE(tool.version = "1.2.0"; tool.options.emplace_back("-V", "--version", "print the version", isSwitch))},
    {"output-letter", CODE(tool.options[1] = {"-o", "--offset", "the first line", takesValue}),
     CODE(tool.options[1] = {"-o", "--outfile", "write to this file", takesValue})},
    {"digit", CODE(tool.options.emplace_back("-3", "--3-columns", "in columns", isSwitch)),
     CODE(tool.options.emplace_back("-c", "--columns-3", "in columns", isSwitch))},
    {"usage-names", CODE(tool.usage = "[-n LINES] FILE OTHER"), CODE(tool.usage = "[-n=LINES] FILE OTHER")},
    {"example-refused", CODE(tool.example = "-n=3 -x a.txt b.txt"), CODE(tool.example = "-N=3 a.txt b.txt | sort")},
    {"name-twice", CODE(tool.arguments[1].name = "FILE"), CODE(tool.arguments[1].name = "FILE2")},
    {"argument-name", CODE(tool.arguments[1].name = "OTHER FILE"), CODE(tool.arguments[1].name = "OTHER-FILE")},
    {"repeated-not-last", CODE(tool.arguments[0].repeated = true), CODE(tool.arguments[1].repeated = true)},
    {"no-example", CODE(tool.example = ""), CODE(tool.example = "a.txt b.txt")},
    {"no-description", CODE(tool.description = ""), CODE(tool.description = "Compares texts.")},
    {"empty-text", CODE(tool.options[0].description = ""), CODE(tool.options[0].description = "a number")},
    {"control-character", CODE(tool.description = "Compares\ntexts."), CODE(tool.description = "Compares texts: ä")},
    {"too-long", CODE(tool.description = std::string(80, 'x')), CODE(tool.description = std::string(79, 'x'))},
    {"file-name", CODE(tool.name = "com1"), CODE(tool.name = "common-lines")},
    {"short-name", CODE(tool.name = "cmp"), CODE(tool.name = "comm")},
};

#undef CODE
#undef TEXT_AND_VALUE

}  // namespace page_samples

#endif
