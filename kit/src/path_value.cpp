#include "numbers.h"

namespace Kelpkit {

Read<std::filesystem::path> readValue(const std::string& text, Type<std::filesystem::path> /*type*/) {
    using Path = std::filesystem::path;
    if (text.empty()) {
        return Read<Path>::expected("a file name");
    }
    try {
        return Read<Path>::of(libraryValue<Path>(text));
    } catch (const std::filesystem::filesystem_error&) {
        return Read<Path>::expected("a file name in UTF-8");
    }
}

}  // namespace Kelpkit
