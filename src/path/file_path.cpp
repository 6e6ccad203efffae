#include <kelplib/FilePath.h>

#include <algorithm>

#include "platform/platform.h"

namespace {

constexpr char slash = '/';
constexpr char backslash = '\\';
constexpr char noDelimiter = '\0';

bool contains(const std::string& text, char character) {
    return text.find(character) != std::string::npos;
}

/// Returns the delimiter of a text, "/" if it contains both, noDelimiter if it contains neither.
char delimiterOf(const std::string& text) {
    if (contains(text, slash)) {
        return slash;
    }
    return contains(text, backslash) ? backslash : noDelimiter;
}

/// Returns the part after the last `delimiter`; the whole text if there is none.
std::string afterLast(const std::string& text, char delimiter) {
    return text.substr(text.rfind(delimiter) + 1);
}

}  // namespace

FilePath::FilePath(const std::string& text) {
    if (isAbsoluteFilePath(text)) {
        const char delimiter = delimiterOf(text);
        if (delimiter != noDelimiter) {
            fromString(text, delimiter);
        }
        return;
    }
    const std::string directory = getCurrentDir();
    const char delimiter = delimiterOf(directory);
    if (delimiter == noDelimiter) {
        fromNameInCurrentDir(text);
        return;
    }
    std::string relative = text;
    std::replace(relative.begin(), relative.end(), delimiter == slash ? backslash : slash, delimiter);
    fromString(directory + delimiter + relative, delimiter);
}

void FilePath::fromString(const std::string& text, char delim) {
    name = afterLast(text, delim);
    path = text.substr(0, text.size() - name.size());
}

void FilePath::fromNameInCurrentDir(const std::string& text) {
    name = text;
    path = getCurrentDir();
}

std::string FilePath::getDelim() const {
    char delimiter = delimiterOf(path);
    if (delimiter == noDelimiter) {
        delimiter = delimiterOf(getCurrentDir());
    }
    return {delimiter == noDelimiter ? slash : delimiter};
}

std::string FilePath::filePath() const {
    return path + name;
}

std::string FilePath::getPath() const {
    return path;
}

std::string FilePath::getName() const {
    return name;
}

std::string FilePath::prefix() const {
    return name.substr(0, name.rfind('.'));
}

std::string FilePath::extension() const {
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

void FilePath::setName(const std::string& text) {
    name = afterLast(afterLast(text, slash), backslash);
}

bool FilePath::setPath(const std::string& text) {
    if (!isAbsoluteFilePath(text)) {
        return false;
    }
    path = text;
    return true;
}

std::string FilePath::getCurrentDir() {
    return Kelp::platform::currentDirectory();
}

bool FilePath::isAbsoluteFilePath(const std::string& text) {
    return !text.empty() && (text.front() == slash || text.at(1) == ':');
}
