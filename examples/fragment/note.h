#ifndef FRAGMENT_NOTE_H
#define FRAGMENT_NOTE_H

#include <optional>
#include <string>

namespace fragment {

/// The note that a cut writes beside its fragments, so that a join notices missing fragments at the end.
struct Note {
    unsigned long long fragments = 0;
    unsigned long long bytes = 0;  ///< of all fragments together
};

/// Returns the name of the note for fragments whose names begin with `base`.
std::string noteName(const std::string& base);

/// Returns the content of the note's file.
std::string textOf(const Note& note);

/// Returns the note in the file; none if the file does not have the name of a note, cannot be read or contains anything else.
std::optional<Note> readNote(const std::string& name);

}  // namespace fragment

#endif
