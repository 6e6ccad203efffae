#include "hint_option.h"

#include <stdexcept>
#include <string>

namespace Kelpkit::programs {

std::vector<Hint> readHints(const CommandLine& line) {
    std::vector<Hint> hints;
    for (const std::string& text : line.value<std::vector<std::string>>("-t").value_or(std::vector<std::string>())) {
        try {
            hints.push_back(readHint(text));
        } catch (const std::runtime_error& error) {
            line.refuse("-t", error.what());
        }
    }
    return hints;
}

}  // namespace Kelpkit::programs
