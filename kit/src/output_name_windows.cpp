#include "output_name.h"

#include <kelplib/FilePath.h>

namespace Kelpkit {

namespace {

/// Whether a FilePath would be empty, because it takes the text for absolute and finds no folder in it.
bool isDriveAndName(const std::string& text) {
    return text.find(':', 1) == 1 && text.find_first_of("/\\") == std::string::npos;
}

}  // namespace

std::string problemOfForm(const std::string& text) {
    if (isDriveAndName(text)) {
        return "begins like a drive; write the folder before the name";
    }
    return text.back() == '/' || text.back() == '\\' ? folderProblem : "";
}

/// A FilePath throws for a single character.
std::string completed(const std::string& text) {
    FilePath path(text.size() == 1 ? "any" : text);
    if (text.size() == 1) {
        path.setName(text);
    }
    return path.filePath();
}

}  // namespace Kelpkit
