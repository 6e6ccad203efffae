// Writes man pages of tools whose texts are all the same: man_pages FILE...
//
// FILE contains the text; FILE.1 becomes the page. A FILE of the name names* is the name of the tool instead, and one of the name
// sections* contains further sections.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "formats.h"

namespace {

using Kelpkit::Takes;
using Kelpkit::programs::DescribedTool;
using Kelpkit::programs::manPage;
namespace fs = std::filesystem;

constexpr const char* date = "November 22, 2026";

/// Returns a tool with a text everywhere but in its name.
DescribedTool fullOf(const std::string& text) {
    return {"tool",
            text,
            text,
            text,
            text,
            {{"-m", "--mode", text, Takes::choice, text, {text, text}},
             {"-x", "--x" + text, text, Takes::text, text, {}},
             {text, text, text, Takes::unknown, "", {}},
             {"", "", text, Takes::nothing, "", {}},
             {"-e", "", "", Takes::file, text, {}}},
            {{text, text, true, true}, {text, "", false, false}, {"", text, false, false}}};
}

DescribedTool named(const std::string& name) {
    return {name, "", "Has an odd name.", "FILE", "file", {}, {}};
}

std::string read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path.string());
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool startsWith(const fs::path& path, const std::string& begin) {
    return path.filename().string().compare(0, begin.size(), begin) == 0;
}

std::string pageOf(const fs::path& path) {
    const std::string text = read(path);
    if (startsWith(path, "sections")) {
        return manPage(named("tool"), date, text);
    }
    return manPage(startsWith(path, "names") ? named(text) : fullOf(text), date, "");
}

void write(const fs::path& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    if (!(file << text << std::flush)) {
        throw std::runtime_error("cannot write " + path.string());
    }
}

}  // namespace

int main(int argc, char** argv) {
    try {
        for (int i = 1; i < argc; ++i) {
            write(argv[i] + std::string(".1"), pageOf(argv[i]));
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
}
