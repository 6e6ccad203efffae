#include "note.h"

#include <array>
#include <fstream>
#include <sstream>

#include "../common/files.h"

namespace fragment {

namespace {

constexpr char nameEnd[] = ".count";

/// Longer than any note.
constexpr std::size_t bufferBytes = 100;

bool isNoteName(const std::string& name) {
    const std::string end = nameEnd;
    return name.size() >= end.size() && name.compare(name.size() - end.size(), end.size(), end) == 0;
}

}  // namespace

std::string noteName(const std::string& base) {
    return base + nameEnd;
}

std::string textOf(const Note& note) {
    return "fragments: " + std::to_string(note.fragments) + "\nbytes: " + std::to_string(note.bytes) + "\n";
}

std::optional<Note> readNote(const std::string& name) {
    if (!isNoteName(name) || !common::arePlainFiles({name})) {
        return std::nullopt;
    }
    std::array<char, bufferBytes> buffer{};
    std::ifstream stream(common::pathOf(name), std::ios::binary);
    stream.read(buffer.data(), buffer.size());
    const std::string text(buffer.data(), static_cast<std::size_t>(stream.gcount()));
    std::istringstream words(text);
    std::string label;
    Note note;
    words >> label >> note.fragments >> label >> note.bytes;
    return textOf(note) == text ? std::optional(note) : std::nullopt;
}

}  // namespace fragment
