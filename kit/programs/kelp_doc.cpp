// kelp-doc: writes documents about a tool from its help screen.

#include <kelpkit/Tool.h>

#include <array>
#include <cstdlib>
#include <ctime>

#include "document_date.h"
#include "formats.h"
#include "hint_option.h"
#include "man_sections.h"
#include "screen_source.h"

namespace {

using namespace Kelpkit::programs;

struct Material {
    HelpScreen screen;
    DescribedTool tool;
    std::string manSections;
};

std::string manPageOfToday(const Material& material) {
    const std::string date = documentDate(std::getenv("SOURCE_DATE_EPOCH"), std::time(nullptr));
    return manPage(material.tool, date, material.manSections);
}

struct Format {
    const char* name;
    std::string (*write)(const Material& material);
    const char*
        installed;  ///< the name of the file below the prefix of an installation, with the tool's name for *; or empty
};

constexpr std::array<Format, 7> formats{{
    {"bash", [](const Material& material) { return bashCompletion(material.tool); },
     "share/bash-completion/completions/*"},
    {"fish", [](const Material& material) { return fishCompletion(material.tool); },
     "share/fish/vendor_completions.d/*.fish"},
    {"json", [](const Material& material) { return json(material.tool); }, "share/doc/*/*.json"},
    {"man", manPageOfToday, "share/man/man1/*.1"},
    {"markdown", [](const Material& material) { return markdown(material.tool); }, "share/doc/*/*.md"},
    {"screen", [](const Material& material) { return visibleScreen(material.screen); }, ""},
    {"zsh", [](const Material& material) { return zshCompletion(material.tool); }, "share/zsh/site-functions/_*"},
}};

Format readFormat(const Kelpkit::CommandLine& line) {
    Kelpkit::Choices<Format> choices;
    for (const Format& format : formats) {
        choices.emplace_back(format.name, format);
    }
    return line.value<Format>("-f", choices).value_or(formats[2]);
}

/// Writes one document to a file or to standard output.
void writeOne(const std::optional<std::string>& name, const Material& material, const Format& format) {
    Kelpkit::NewFile output(name, true);
    output.stream() << format.write(material);
    output.publish();
}

std::string installedName(const Format& format, const std::string& folder, const std::string& name) {
    std::string path = folder + "/";
    for (const char character : std::string_view(format.installed)) {
        path += character == '*' ? name : std::string(1, character);
    }
    return path;
}

void createFolderOf(const std::string& file) {
    std::error_code reason;
    const std::filesystem::path folder = Kelpkit::pathOf(file).parent_path();
    std::filesystem::create_directories(folder, reason);
    if (reason) {
        Kelpkit::fail("cannot create " + folder.u8string(), reason);
    }
}

/// Writes all documents that are installed.
void writeAll(const std::string& folder, const std::vector<std::string>& inputs, const Material& material) {
    std::vector<std::string> names;
    std::vector<std::string> texts;
    for (const Format& format : formats) {
        if (*format.installed != '\0') {
            names.push_back(installedName(format, folder, material.tool.name));
            texts.push_back(format.write(material));
        }
    }
    for (const std::string& name : names) {
        Kelpkit::requireNoInput(name, inputs);
        createFolderOf(name);
    }
    Kelpkit::NewFiles files(names, true);
    for (const std::string& text : texts) {
        files.startNext();
        files.write(text.data(), text.size());
    }
    files.publish();
}

/// Returns the folder for all documents, or none if one document is written.
std::optional<std::string> readFolder(const Kelpkit::CommandLine& line) {
    if (!line.has("-a")) {
        return std::nullopt;
    }
    const std::string folder = line.value<std::string>("-o").value_or("");
    if (folder.empty() || line.has("-f")) {
        line.refuse("-a", folder.empty() ? "needs the folder: -o=FOLDER" : "cannot be combined with -f");
    }
    return folder;
}

/// Returns the further sections of the man page, which -i names.
std::string readSections(const Kelpkit::CommandLine& line, const Format& format) {
    const std::optional<std::string> file = line.value<std::string>("-i");
    if (file && !line.has("-a") && format.name != std::string_view("man")) {
        line.refuse("-i", "belongs to -f=man or -a");
    }
    return file ? readManSections(*file) : "";
}

int work(Kelpkit::CommandLine& line) {
    const std::optional<std::string> folder = readFolder(line);
    const std::optional<std::string> file = folder ? std::nullopt : line.outputFile("-o");
    const Format format = readFormat(line);
    const std::vector<Hint> hints = readHints(line);
    const std::string sections = readSections(line, format);
    const std::vector<std::string> inputs{line.arguments().front(), line.value<std::string>("-i").value_or("")};
    Kelpkit::requireNoInput(file, inputs);
    const HelpScreen screen = readScreen(line.arguments().front(), line.has("-s"), line.value<std::string>("-n"));
    const Material material{screen, describe(screen, hints), sections};
    if (folder) {
        writeAll(*folder, inputs, material);
    } else {
        writeOne(file, material, format);
    }
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    const Kelpkit::Definition tool{
        "kelp-doc",
        "Writes documents about a tool from its help screen.",
        {{"-a", "--all", "writes all documents for an installation", Kelpkit::isSwitch},
         {"-f", "--format", "bash, fish, json, man, markdown, screen or zsh (json)", Kelpkit::takesValue},
         {"-h", "--help", "shows this help", Kelpkit::isSwitch},
         {"-i", "--include", "inserts the sections of this file, in mdoc, into the man page", Kelpkit::takesValue},
         {"-n", "--name", "the name of the tool (that of its file)", Kelpkit::takesValue},
         {"-o", "--output", "overwrites this file; with -a, files in this folder", Kelpkit::takesValue},
         {"-s", "--screen", "TOOL is a saved help screen, which is read", Kelpkit::isSwitch},
         {"-t", "--takes", "what options take: n=LINES,o=FILE:file,m=fast|exact,l", Kelpkit::takesValue}},
        {{"TOOL", "the program, which is run with --help", false}},
        "-f=markdown -o=firstlines.md bin/firstlines",
        "[-f=FORMAT] [-i=FILE] [-n=NAME] [-t=HINTS] [-s] [-a] [-o=PATH] TOOL",
        "",
        KELPKIT_VERSION};
    return Kelpkit::run(tool, argc, argv, work);
}
