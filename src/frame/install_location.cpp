#include <kelplib/CommandLineTool.h>

#include <cstdlib>

#include "platform/standard_streams.h"

namespace {

constexpr char configuration[] = "cove//skein//SkeinStore//kelplib//tools_configuration.txt";

/// How many characters of an entry lie below the folder that holds the configuration, whatever the entry is.
constexpr std::size_t cutCharacters = 10;

/// The configuration of the installation that an entry of PATH belongs to.
std::string configurationBeside(const std::string& entry) {
    return entry.substr(0, entry.size() < cutCharacters ? entry.size() : entry.size() - cutCharacters) + configuration;
}

}  // namespace

std::string getFilePath() {
    const char* const path = std::getenv("PATH");
    if (path == nullptr) {
        Kelp::standardOutput() << "Impossible to read environment variable PATH" << std::endl;
        return {};
    }
    std::string result;
    for (const std::string& entry : Kelp::split(path, ';')) {
        if (entry.find("tarn") != std::string::npos) {
            Kelp::standardOutput() << "tarn location: " << entry << std::endl;
            result = configurationBeside(entry);
        }
    }
    if (result.empty()) {
        Kelp::standardOutput() << "Impossible to find tarn location" << std::endl;
    }
    return result;
}
