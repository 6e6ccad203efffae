// Feeds a target with stored inputs, without a fuzzer: fuzz_replay TARGET FOLDER...
// Prints the number of inputs. Names the input that fails on standard error. A folder without inputs is a failure too.
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "target.h"

namespace {

struct Named {
    const char* name;
    fuzz::Target* run;
};

constexpr Named targets[] = {
    {"reader", fuzz::reader},
    {"start_up", fuzz::start_up},
    {"tool", fuzz::tool},
    {"scanners", fuzz::scanners},
    {"scalars", fuzz::scalars},
    {"localized", fuzz::localized},
    {"collections", fuzz::collections},
    {"number_text", fuzz::number_text},
    {"paths", fuzz::paths},
    {"strings", fuzz::strings},
    {"labels", fuzz::labels},
    {"progress", fuzz::progress},
    {"install_location", fuzz::install_location},
    {"kit_line", fuzz::kit_line},
    {"documents", fuzz::documents},
};

std::string current;

void nameInput(int /*signal*/) {
    static_cast<void>(std::fprintf(stderr, "input: %s\n", current.c_str()));
    std::_Exit(1);
}

std::vector<std::filesystem::path> inputsIn(const char* folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

void replayFile(fuzz::Target* run, const std::filesystem::path& file) {
    current = file.string();
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    // A copy of exactly this size lets AddressSanitizer and valgrind see reads beyond the input.
    const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
    run(data.data(), data.size());
}

int replayFolders(const Named& target, const std::vector<const char*>& folders) {
    std::size_t count = 0;
    for (const char* const folder : folders) {
        const auto files = inputsIn(folder);
        if (files.empty()) {
            static_cast<void>(std::fprintf(stderr, "no inputs: %s\n", folder));
            return 1;
        }
        for (const auto& file : files) {
            replayFile(target.run, file);
        }
        count += files.size();
    }
    static_cast<void>(std::fprintf(stderr, "%s: %zu inputs\n", target.name, count));
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    static_cast<void>(std::signal(SIGABRT, nameInput));
    for (const Named& target : targets) {
        if (argc >= 3 && target.name == std::string(argv[1])) {
            return replayFolders(target, {argv + 2, argv + argc});
        }
    }
    static_cast<void>(std::fputs("usage: fuzz_replay TARGET FOLDER...\n", stderr));
    return 2;
}
