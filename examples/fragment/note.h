#ifndef FRAGMENT_NOTE_H
#define FRAGMENT_NOTE_H

#include <optional>
#include <string>

namespace fragment {

/// What a cut writes beside its fragments, so that a join notices when the last ones are missing.
struct Note {
    unsigned long long fragments = 0;
    unsigned long long bytes = 0;  ///< of all fragments together
};

/// The name of the note of all fragments whose names begin with this.
std::string noteName(const std::string& base);

/// The text of the file that holds the note.
std::string textOf(const Note& note);

/// The note in a file of such a name; none when the file holds anything else or cannot be read.
std::optional<Note> readNote(const std::string& name);

}  // namespace fragment

#endif
