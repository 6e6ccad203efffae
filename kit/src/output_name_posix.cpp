#include "output_name.h"

#include <filesystem>
#include <system_error>

namespace Kelpkit {

std::string problemOfForm(const std::string& text) {
    return text.back() == '/' ? folderProblem : "";
}

// Not a FilePath: it takes backslashes for delimiters and colons for drives, and cannot hold a folder of 260 bytes.
std::string completed(const std::string& text) {
    std::error_code reason;
    const std::filesystem::path path = std::filesystem::absolute(text, reason);
    if (reason) {
        return text;
    }
    return path.string();
}

}  // namespace Kelpkit
