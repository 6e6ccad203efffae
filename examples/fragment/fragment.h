#ifndef FRAGMENT_FRAGMENT_H
#define FRAGMENT_FRAGMENT_H

#include <kelpkit/Tool.h>

namespace fragment {

constexpr unsigned long long maxFragments = 100000;

/// Cuts one file into numbered fragments, writes a note that counts them, and prints a summary.
void cut(const Kelpkit::CommandLine& line);

/// Joins fragments into one file and prints a summary. A single fragment is joined with all that follow it.
void join(const Kelpkit::CommandLine& line);

/// Returns the name of one of `count` fragments.
std::string fragmentName(const std::string& base, unsigned long long index, unsigned long long count);

/// The files to join.
struct FragmentSet {
    std::vector<std::string> names;
    std::vector<std::string> notes;  ///< files that a cut into these fragments writes first; they may not exist
    unsigned long long bytes = 0;    ///< of all fragments together, according to the notes; 0 if unknown
    std::vector<std::optional<Kelpkit::FileIdentity>> identities;  ///< of the fragments
};

/// Returns the named files without notes; for a single file, the fragment and all that follow it.
/// \throws std::runtime_error  if names or notes show that fragments are missing, named twice or out of order, or if a run that
///                             writes one of the files is in progress or was interrupted
FragmentSet findFragments(const std::vector<std::string>& files, const std::string& output);

/// The note that a cut writes beside its fragments, so that a join notices missing fragments at the end.
struct Note {
    unsigned long long fragments = 0;
    unsigned long long bytes = 0;  ///< of all fragments together
};

std::string noteName(const std::string& base);
std::string textOf(const Note& note);

/// Returns the note in the file; none if the file does not have the name of a note, cannot be read or contains anything else.
std::optional<Note> readNote(const std::string& name);

/// A file that is read once, from its first byte to its last.
class Source {
public:
    /// Opens the file. Throws if it is not a regular file, cannot be read or is empty.
    explicit Source(const std::string& fileName);

    /// The size that the file had when it was opened.
    const std::uintmax_t bytes;

    /// Appends the next `count` bytes to the current file of `target`.
    void copyTo(Kelpkit::NewFiles& target, std::uintmax_t count, Kelpkit::Progress& progress);

    /// Throws if the file has grown since it was opened. Call this after all its bytes are copied.
    void requireEnd();

private:
    void requireUnchanged(bool isUnchanged) const;

    std::string name;
    Kelpkit::InputFile input;
};

}  // namespace fragment

#endif
