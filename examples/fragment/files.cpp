#include <array>
#include <fstream>
#include <sstream>

#include "fragment.h"

namespace fragment {

std::string noteName(const std::string& base) {
    return base + ".count";
}

std::string textOf(const Note& note) {
    return "fragments: " + std::to_string(note.fragments) + "\nbytes: " + std::to_string(note.bytes) + "\n";
}

std::optional<Note> readNote(const std::string& name) {
    if (Kelpkit::pathOf(name).extension() != ".count" || !Kelpkit::arePlainFiles({name})) {
        return std::nullopt;
    }
    std::string text(100, '\0');  // longer than any note
    std::ifstream file(Kelpkit::pathOf(name), std::ios::binary);
    file.read(text.data(), 100);
    text.resize(static_cast<std::size_t>(file.gcount()));
    std::istringstream words(text);
    std::string label;
    Note note;
    words >> label >> note.fragments >> label >> note.bytes;
    const bool isNote = textOf(note) == text && note.fragments > 0 && note.fragments <= maxFragments;
    return isNote ? std::optional(note) : std::nullopt;
}

Source::Source(const std::string& fileName)
    : bytes(Kelpkit::sizeOf(fileName)), name(fileName), input(fileName, std::ios::binary) {
    if (bytes == 0) {
        requireEnd();
        throw std::runtime_error(name + " is empty");
    }
}

void Source::copyTo(Kelpkit::NewFiles& target, std::uintmax_t count, Kelpkit::Progress& progress) {
    std::array<char, 65536> buffer;
    while (count > 0) {
        const auto chunk = static_cast<std::size_t>(std::min<std::uintmax_t>(count, buffer.size()));
        requireUnchanged(!input.stream().read(buffer.data(), static_cast<std::streamsize>(chunk)).fail());
        target.write(buffer.data(), chunk);
        count -= chunk;
        progress.advance(chunk);
    }
}

void Source::requireEnd() {
    requireUnchanged(input.stream().peek() == std::istream::traits_type::eof());
}

void Source::requireUnchanged(bool isUnchanged) const {
    if (!isUnchanged) {
        throw std::runtime_error(name + " changed while it was read");
    }
}

}  // namespace fragment
