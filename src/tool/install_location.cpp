#include <kelplib/CommandLineTool.h>

#include <cstdlib>

#include "platform/standard_streams.h"

namespace {

constexpr char configuration[] = "cove//skein//SkeinStore//kelplib//tools_configuration.txt";

/// The number of characters cut from the end of an entry, whatever they are. They are the way from the installation's folder
/// to the entry.
constexpr std::size_t cutCharacters = 10;

/// Returns the configuration of the installation that an entry of PATH belongs to.
std::string configurationFor(const std::string& entry) {
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
            result = configurationFor(entry);
        }
    }
    if (result.empty()) {
        Kelp::standardOutput() << "Impossible to find tarn location" << std::endl;
    }
    return result;
}
