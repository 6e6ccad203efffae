// A tool of the library with a hostile definition, which its name decides.

#include <kelplib/CommandLineTool.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

struct Definition {
    std::string description;
    std::string usage;
    std::string example;
    std::string banner;
    std::vector<Kelp::Option> options;
    std::vector<Kelp::Argument> arguments;
};

/// Returns a definition with a text everywhere.
Definition fullOf(const std::string& text) {
    return {text, text, text, text, {{"-a", "--" + text, text, false}, {text, text, text, true}}, {{text, text, true}}};
}

Definition definitionOf(const std::string& name) {
    if (name == "quotes") {
        return fullOf(R"('"`$(touch executed)`touch executed`;|&>executed %s%n \ \n .TH ]]>)");
    }
    if (name == "brackets") {
        return fullOf("[a](b){c}<d>:e=f,g*h?i~j!k#l@m^n");
    }
    if (name == "letters") {
        return fullOf("\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80");
    }
    if (name == "blanks") {
        return fullOf("  a \t b  ");
    }
    if (name == "words") {
        return fullOf(std::string(10'000, 'w'));
    }
    if (name == "lines") {
        Definition definition = fullOf("a\n\n  b\n.SH c\n");
        definition.example = "on one line";
        return definition;
    }
    if (name == "many") {
        Definition definition = fullOf("text");
        for (int i = 1000; i < 1500; ++i) {
            definition.options.emplace_back("-" + std::to_string(i), "--" + std::to_string(i), "text", false);
        }
        return definition;
    }
    return {"", "", "", "", {}, {}};
}

}  // namespace

int main(int argc, char** argv) {
    Definition definition = definitionOf(argc > 0 ? argv[0] : "");
    const CommandLineTool tool(argc, argv, definition.description, definition.usage, definition.example,
                               definition.banner, definition.options, definition.arguments);
    tool.printUsage();
}
