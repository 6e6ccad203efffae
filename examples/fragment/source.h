#ifndef FRAGMENT_SOURCE_H
#define FRAGMENT_SOURCE_H

#include <cstdint>
#include <fstream>
#include <string>

#include "../common/new_files.h"
#include "../common/progress.h"

namespace fragment {

/// A file that is read once, from its first byte to its last.
class Source {
public:
    /// Opens the file. Throws if it is not a regular file, cannot be read or is empty.
    explicit Source(std::string name);

    /// Returns the size that the file had when it was opened.
    std::uintmax_t bytes() const;

    /// Appends the next `count` bytes to the current file of `target` and advances `progress`.
    /// \throws Interruption  if a signal asks the process to end
    void copyTo(common::NewFiles& target, std::uintmax_t count, common::Progress& progress);

    /// Closes the file after all its bytes are copied. Throws if it has grown in the meantime.
    void close();

private:
    void requireEnd();
    [[noreturn]] void failOnRead() const;

    std::string name;
    std::ifstream stream;
    std::uintmax_t size = 0;
};

}  // namespace fragment

#endif
