// Writes the completion scripts of the tools that shells_test.py completes: shell_scripts FOLDER
//
// FOLDER/bash, FOLDER/zsh and FOLDER/fish contain a script for each tool, FOLDER/texts the hostile text of each of the tools
// odd0, odd1, ...

#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "formats.h"

namespace {

using Kelpkit::Takes;
using Kelpkit::programs::DescribedTool;
namespace fs = std::filesystem;

DescribedTool firstlines() {
    DescribedTool tool;
    tool.name = "firstlines";
    tool.description = "Shows the first lines of a text.";
    tool.options = {{"-n", "--number", "how many lines to show (10)", Takes::text, "LINES", {}},
                    {"-m", "--mode", "how to read", Takes::choice, "", {"fast", "exact", "Even", "5", "two words"}},
                    {"-o", "--output", "write to this file", Takes::file, "FILE", {}},
                    {"-d", "--directory", "where to look", Takes::folder, "DIR", {}},
                    {"-u", "--unknown", "nothing says what it takes", Takes::unknown, "", {}},
                    {"-l", "--long", "show long lines: all of them", Takes::nothing, "", {}},
                    {"-h", "--help", "show this help", Takes::nothing, "", {}}};
    tool.arguments = {{"FILE", "the text to show", false, false}};
    return tool;
}

/// 500 options, one more with a name, a text and a choice of 10,000 characters, and no arguments.
DescribedTool large() {
    DescribedTool tool;
    tool.name = "large";
    for (int i = 0; i < 500; ++i) {
        tool.options.push_back({"", "--option" + std::to_string(i), "text", Takes::nothing, "", {}});
    }
    const std::string word(10000, 'y');
    tool.options.push_back({"-y", "--" + word, word, Takes::choice, word, {word}});
    return tool;
}

/// Texts that try to leave their quotes, to be executed, or to be taken for something else.
const std::vector<std::string> hostileTexts = {"'$(touch canary)'",
                                               "\"$(touch canary)\"",
                                               "$(touch canary)",
                                               "(touch canary)",
                                               "`touch canary`",
                                               "';touch canary;'",
                                               "\";touch canary;\"",
                                               "\ntouch canary\n",
                                               "x\n)\ntouch canary",
                                               "]:x:(touch canary)",
                                               "::x:{touch canary}",
                                               "{touch,canary}",
                                               "<(touch canary)",
                                               ">canary",
                                               "&touch canary",
                                               "|touch canary",
                                               "#",
                                               "%s%n%d%F{red}",
                                               "\\",
                                               "\\'",
                                               "\\n\\",
                                               "x\\:y",
                                               "[x]",
                                               "[",
                                               "]",
                                               "a:b",
                                               ":",
                                               ".TH x",
                                               "a  b ",
                                               " a",
                                               "*",
                                               "?",
                                               "~",
                                               "~root",
                                               "!!",
                                               "-",
                                               "_ID",
                                               "$x",
                                               "${x}",
                                               "@host",
                                               "^a^b",
                                               "\xC3\xA9\xE6\x97\xA5\xCC\x81",
                                               "\xFF",
                                               "\t",
                                               "\r"};

DescribedTool hostile(const std::string& name, const std::string& text) {
    DescribedTool tool;
    tool.name = name;
    tool.banner = tool.description = tool.usage = tool.example = text;
    tool.options = {{"-m", "--mode", text, Takes::choice, text, {text}},
                    {"-x", "--x" + text, text, Takes::text, text, {}},
                    {"-" + text.substr(0, 1), "", text, Takes::file, text, {}}};
    tool.arguments = {{text, text, true, true}};
    return tool;
}

/// One option and no arguments.
DescribedTool only() {
    DescribedTool tool;
    tool.name = "only";
    tool.options = {{"", "--all", "all of it", Takes::nothing, "", {}}};
    return tool;
}

/// A tool of a short constructor, which shows no arguments.
DescribedTool shortTool() {
    DescribedTool tool = only();
    tool.name = "short";
    tool.banner = "     Copyright (c) 2026 The kelplib authors, MIT licence";
    return tool;
}

DescribedTool named(const std::string& name, DescribedTool tool) {
    tool.name = name;
    return tool;
}

void write(const fs::path& path, const std::string& text) {
    create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    if (!(file << text << std::flush)) {
        throw std::runtime_error("cannot write " + path.string());
    }
}

void writeScripts(const fs::path& folder, const DescribedTool& tool, const std::string& fileName) {
    write(folder / "bash" / fileName, bashCompletion(tool));
    write(folder / "zsh" / ("_" + fileName), zshCompletion(tool));
    write(folder / "fish" / (fileName + ".fish"), fishCompletion(tool));
}

void writeAll(const fs::path& folder) {
    writeScripts(folder, firstlines(), "firstlines");
    writeScripts(folder, large(), "large");
    writeScripts(folder, only(), "only");
    writeScripts(folder, shortTool(), "short");
    writeScripts(folder, named("a-b", firstlines()), "a-b");
    writeScripts(folder, named("a_b", {}), "a_b");
    for (std::size_t i = 0; i < hostileTexts.size(); ++i) {
        const std::string name = "odd" + std::to_string(i);
        writeScripts(folder, hostile(name, hostileTexts[i]), name);
        writeScripts(folder, named(hostileTexts[i], firstlines()), "name" + std::to_string(i));
        write(folder / "texts" / name, hostileTexts[i]);
    }
}

}  // namespace

int main(int argc, char** argv) {
    try {
        writeAll(argc == 2 ? argv[1] : "");
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
