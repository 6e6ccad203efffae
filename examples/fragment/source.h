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
    /// Opens the file. Refuses what is no plain file, cannot be read or is empty.
    explicit Source(std::string name);

    /// The size that the file had when it was opened.
    std::uintmax_t bytes() const;

    /// Appends the next `count` bytes to the file that `target` writes at the moment, and tells `progress`.
    /// \throws Interruption  when somebody wants the process to end
    void copyTo(common::NewFiles& target, std::uintmax_t count, common::Progress& progress);

    /// Closes the file when all its bytes are copied. Refuses one that has grown in the meantime.
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
