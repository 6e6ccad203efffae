#include <kelpkit/Files.h>

#include <stdexcept>

#include "help_screen.h"
#include "man_sections.h"

namespace Kelpkit::programs {

namespace {

constexpr std::size_t maximumBytes = 1'000'000;

std::string read(const std::string& file) {
    InputFile input(file, std::ios::binary);
    std::string text(maximumBytes + 1, '\0');
    input.stream().read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(input.stream().gcount()));
    if (text.size() > maximumBytes) {
        throw std::runtime_error(file + " has more than " + std::to_string(maximumBytes) + " bytes");
    }
    return text;
}

}  // namespace

std::string readManSections(const std::string& file) {
    const std::string bytes = read(file);
    try {
        return checkedManSections(bytes);
    } catch (const ScreenError& error) {
        throw std::runtime_error(file + ": not man page sections: " + error.what());
    }
}

}  // namespace Kelpkit::programs
