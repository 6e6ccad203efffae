#include "convert/path_value.h"

#include <kelplib/Kelp.h>

#include <filesystem>
#include <system_error>

namespace Kelp {

bool containsEncodedSurrogate(const std::string& text) {
    for (std::size_t lead = text.find('\xED'); lead != std::string::npos; lead = text.find('\xED', lead + 1)) {
        if (lead + 1 < text.size() && static_cast<unsigned char>(text[lead + 1]) >= 0xA0) {
            return true;
        }
    }
    return false;
}

void stringToValue(std::filesystem::path& target, std::string text) {
    constexpr bool narrowPaths = sizeof(std::filesystem::path::value_type) == 1;
    if (!narrowPaths && containsEncodedSurrogate(text)) {
        throw std::filesystem::filesystem_error("Cannot convert character sequence",
                                                std::make_error_code(std::errc::illegal_byte_sequence));
    }
    target = std::filesystem::u8path(text);
}

}  // namespace Kelp
