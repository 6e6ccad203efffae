// Feeds a target with the inputs that fuzzing has kept, without a fuzzer: fuzz_replay TARGET FOLDER. It prints how many there
// were. An input that fails is named on standard error before the process ends; so is a folder without inputs.
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

void replay(fuzz::Target* run, const std::filesystem::path& file) {
    current = file.string();
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    // A copy of its own size, so that reading beyond it is seen.
    const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
    run(data.data(), data.size());
}

}  // namespace

int main(int argc, char** argv) {
    static_cast<void>(std::signal(SIGABRT, nameInput));
    for (const Named& target : targets) {
        if (argc == 3 && target.name == std::string(argv[1])) {
            const auto files = inputsIn(argv[2]);
            for (const auto& file : files) {
                replay(target.run, file);
            }
            static_cast<void>(std::fprintf(stderr, "%s: %zu inputs\n", target.name, files.size()));
            return files.empty() ? 1 : 0;
        }
    }
    static_cast<void>(std::fputs("usage: fuzz_replay TARGET FOLDER\n", stderr));
    return 2;
}
